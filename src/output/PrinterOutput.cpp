#include "output/PrinterOutput.h"

#include "core/NumberText.h"
#include "core/Printers.h"
#include "core/texts/PrintExportTexts.h"
#include "output/ReportSpool.h"

#include <QLibrary>
#include <QPrinter>

namespace korvanel {

namespace {

/// What the print service of the system has to complain of about the job that was just handed over. The toolkit doesn't
/// tell it; where there is no such service nothing is known.
QString ServiceComplaint()
{
    constexpr int kLastSuccess = 0xFF;
    constexpr int kVersion = 2;
    QLibrary cups(QStringLiteral("cups"), kVersion);
    using Code = int (*)();
    using Text = const char* (*)();
    const auto code = reinterpret_cast<Code>(cups.resolve("cupsLastError"));
    const auto text = reinterpret_cast<Text>(cups.resolve("cupsLastErrorString"));
    if (code == nullptr || text == nullptr || code() <= kLastSuccess)
        return {};
    return QString::fromUtf8(text());
}

/// What the job is called: the service refuses one with a name of more bytes.
QString JobName()
{
    constexpr qsizetype kMostBytes = 255;
    QString name = ReportTitle().left(kMostBytes);
    while (name.toUtf8().size() > kMostBytes || (!name.isEmpty() && name.back().isHighSurrogate()))
        name.chop(1);
    return name;
}

} // namespace

bool ChoosePrinter(QPrinter& printer, const QString& name)
{
    if (!SelectPrinter(name))
        return false;
    printer.setPrinterName(name);
    return printer.printerName() == name;
}

void PrinterOutput::Put(const Report& report, const ReportProgress& progress)
{
    ReportSpool spool(report, progress);
    if (!ChoosePrinter(printer, name)) // it may have gone while the pages were drawn
        throw ReportFailed(FillPlaceholders(texts::reportPrinterGone, {name}));
    printer.setDocName(JobName());
    printer.setFullPage(true);
    SetReportPaper(printer);
    spool.DrawOn(printer);
    if (const QString complaint = ServiceComplaint(); !complaint.isEmpty())
        throw ReportFailed(FillPlaceholders(texts::reportJobFailed, {name}) + u'\n' + complaint);
}

} // namespace korvanel
