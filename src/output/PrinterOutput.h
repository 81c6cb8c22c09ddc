// A printer of the system as the target of a report.
#pragma once

#include "output/Print.h"

#include <QString>

class QPrinter;

namespace korvanel {

/// Gives the printer its name, and false if the system has none of that name: the toolkit would go on with the default
/// one without a word.
bool ChoosePrinter(QPrinter& printer, const QString& name);

class PrinterOutput : public ReportOutput
{
public:
    /// `printer` keeps what the user has set up: copies, sides, colour.
    PrinterOutput(QPrinter& ofSystem, QString ofName) : printer(ofSystem), name(std::move(ofName)) {}
    bool IsPrinter() const override { return true; }
    void Put(const Report& report, const ReportProgress& progress) override;

private:
    QPrinter& printer;
    QString name;
};

} // namespace korvanel
