#include "output/Print.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Printers.h"
#include "core/ToldAccess.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/PrintExportTexts.h"
#include "output/ExportText.h"
#include "output/PdfFile.h"
#include "output/ReportContent.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QScopeGuard>

namespace korvanel {

void SetReportPaper(QPagedPaintDevice& device)
{
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(QPageLayout::Portrait);
    device.setPageMargins({});
}

QString ReportTitle()
{
    return texts::reportTitle + QStringLiteral(" - ") + FieldText(App().sProjectName);
}

void ScaleToUnits(QPainter& painter, const QPaintDevice& device)
{
    constexpr double kMillimetresPerInch = 25.4;
    painter.scale(device.logicalDpiX() / kMillimetresPerInch / kUnitsPerMillimetre,
                  device.logicalDpiY() / kMillimetresPerInch / kUnitsPerMillimetre);
}

void DrawPages(const Report& report, const ReportProgress& progress, const std::function<void(int page)>& draw)
{
    constexpr int kMilliseconds = 30;
    const auto goOn = [&](double pages) {
        if (progress && !progress(pages / report.PageCount()))
            throw ReportStopped();
    };
    for (int page = 1; page <= report.PageCount(); ++page) {
        goOn(page - 1);
        while (!report.Prepare(page, kMilliseconds))
            goOn(page - 1);
        draw(page);
    }
    goOn(report.PageCount());
}

void PdfOutput::Put(const Report& report, const ReportProgress& progress)
{
    PdfFile file(path);
    QPdfWriter writer(&file.Device());
    writer.setTitle(ReportTitle());
    writer.setCreator(App().sProgramTitle + App().sVersion);
    SetReportPaper(writer);
    QPainter painter;
    DrawPages(report, progress, [&](int page) {
        if (page == 1 ? !painter.begin(&writer) : !writer.newPage())
            throw ReportFailed(texts::reportNoFile + u'\n' + path);
        {
            painter.save();
            const auto restored = qScopeGuard([&painter] { painter.restore(); });
            ScaleToUnits(painter, writer);
            PainterPaper paper(painter, report.Fonts());
            report.DrawPage(paper, page);
        }
        file.RequireWritten();
    });
    painter.end();
    file.Finish({.title = ReportTitle(), .author = FieldText(App().sEditor), .creator = writer.creator()});
}

bool PutReport(const Report& report, ReportOutput& output, const ReportWatch& watch)
{
    if (output.IsPrinter() && !HasDefaultPrinter())
        return false;
    if (report.PageCount() < 1) {
        ShowInformation(texts::reportNothing);
        return false;
    }
    std::function<void()> complaint;
    const bool isRead = ToldAccess(texts::cannotReadFile, [&] {
        const auto ended = qScopeGuard([&watch] {
            if (watch.atEnd)
                watch.atEnd();
        });
        try {
            output.Put(report, watch.progress);
        } catch (const ReportStopped&) {
            complaint = [] { ShowInformation(texts::reportStopped); };
        } catch (const ReportFailed& failure) {
            complaint = [message = QString::fromUtf8(failure.what())] { ShowError(message); };
        }
    });
    if (complaint)
        complaint();
    return isRead && !complaint;
}

bool PrintReport(ReportOutput& output, const ReportWatch& watch)
{
    return PutReport(ReportOfProject(), output, watch);
}

} // namespace korvanel
