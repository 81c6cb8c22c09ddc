// The page of general data: the header of the project, bound to its fields, and where its file lies.
#pragma once

#include "core/window/Page.h"

class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;

namespace korvanel {

class FormF1 : public Page
{
    Q_OBJECT

public:
    FormF1(PageFrame& host, const PageEntry& entry);
    void Refresh() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* AddLine(const char* name, const QString& caption, QString& field);
    void AddDescription();
    void AddDates();
    void AddPath();
    void RefreshCaptions();
    /// Takes typed text into its field; any difference makes the project changed.
    void TakeText(const QString& text, QString& field);

    QFormLayout* form;
    QGroupBox* frame;
    QLineEdit* nameBox;
    QLineEdit* firmBox;
    QLineEdit* whoBox;
    QPlainTextEdit* descriptionBox = nullptr;
    QString shownDescription; ///< as last set: the box itself alters some line breaks
    QLabel* createdLabel = nullptr;
    QLabel* savedLabel = nullptr;
    QLabel* pathLabel = nullptr;
};

} // namespace korvanel
