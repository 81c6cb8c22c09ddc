#include "core/window/PlainLabel.h"

#include <QFormLayout>

namespace korvanel {

PlainLabel::PlainLabel(const QString& text, QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText); // before the text, which is looked at when it is set
    setText(text);
}

PlainLabel* AddRow(QFormLayout& form, const QString& caption, QWidget* field)
{
    auto* label = new PlainLabel(caption);
    label->setBuddy(field);
    form.addRow(label, field);
    return label;
}

PlainLabel* AddRow(QFormLayout& form, const QString& caption, QLayout* field)
{
    auto* label = new PlainLabel(caption);
    form.addRow(label, field);
    return label;
}

} // namespace korvanel
