// The choice of where a report goes: the printers of the system, and a file behind them.
#pragma once

#include "output/Print.h"

#include <QWidget>

#include <memory>

class QComboBox;
class QPrinter;
class QPushButton;

namespace korvanel {

class PrinterChoice : public QWidget
{
    Q_OBJECT

public:
    /// The button that sets the printer up has a name and a text of the page's own.
    PrinterChoice(const char* setupName, const QString& setupText);
    ~PrinterChoice() override;

    /// Where a report would go, for the hint of the button that prints. Without a default printer it says so.
    QString Target() const;
    bool IsFile() const;
    /// Where the report goes; for a file it is asked which. Nothing if the user cancels, or can't choose that file.
    std::unique_ptr<ReportOutput> AskOutput();
    QPushButton& SetupButton() { return *setupButton; }
    /// Shows the dialog of the printer in use, and takes over what is chosen there.
    void SetUp();

private:
    void Fill();
    void TakeChoice();
    QPrinter& Printer();

    QComboBox* box;
    QPushButton* setupButton;
    std::unique_ptr<QPrinter> printer; ///< none until somebody asks: finding printers takes its time
};

} // namespace korvanel
