// Labels that show their text as it stands. Texts come from language files, projects, databases and paths; one that
// looks like markup must not become any, or a stranger's file could have pictures loaded and memory filled.
#pragma once

#include <QLabel>

class QFormLayout;
class QLayout;

namespace korvanel {

class PlainLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PlainLabel(const QString& text = {}, QWidget* parent = nullptr);
};

/// Adds a row to a form; its caption is a plain label, and the key in it leads to the field.
PlainLabel* AddRow(QFormLayout& form, const QString& caption, QWidget* field);
PlainLabel* AddRow(QFormLayout& form, const QString& caption, QLayout* field);

} // namespace korvanel
