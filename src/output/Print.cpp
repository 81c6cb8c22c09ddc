#include "output/Print.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Printers.h"
#include "core/ToldAccess.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/PrintExportTexts.h"
#include "output/PdfFile.h"
#include "output/ReportContent.h"

#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QPicture>
#include <QScopeGuard>
#include <QTemporaryFile>

namespace korvanel {

namespace {

/// A painter's units for the pages of a device.
void ScaleToUnits(QPainter& painter, const QPaintDevice& device)
{
    constexpr double kMillimetresPerInch = 25.4;
    painter.scale(device.logicalDpiX() / kMillimetresPerInch / kUnitsPerMillimetre,
                  device.logicalDpiY() / kMillimetresPerInch / kUnitsPerMillimetre);
}

/// Draws the pages one by one; `place` makes room for a page and hands its painter over.
void DrawPages(const Report& report, const ReportProgress& progress,
               const std::function<void(int page, const std::function<void(QPainter&)>& draw)>& place)
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
        place(page, [&](QPainter& painter) { report.DrawPage(painter, page); });
    }
    goOn(report.PageCount());
}

} // namespace

void SetReportPaper(QPagedPaintDevice& device)
{
    device.setPageSize(QPageSize(QPageSize::A4));
    device.setPageOrientation(QPageLayout::Portrait);
    device.setPageMargins({});
}

QString ReportTitle()
{
    return texts::reportTitle + QStringLiteral(" - ") + App().sProjectName;
}

ReportSpool::ReportSpool(const Report& report, const ReportProgress& progress)
    : file(std::make_unique<QTemporaryFile>())
{
    if (!file->open())
        throw ReportFailed(texts::reportSpoolFailed + u'\n' + file->errorString());
    DrawPages(report, progress, [this](int /*page*/, const std::function<void(QPainter&)>& draw) {
        QPicture picture;
        QPainter painter(&picture);
        draw(painter);
        painter.end();
        Keep(QByteArray::fromRawData(picture.data(), static_cast<qsizetype>(picture.size())));
    });
}

ReportSpool::~ReportSpool() = default;

void ReportSpool::Keep(const QByteArray& page)
{
    if (file->write(page) != page.size() || !file->flush())
        throw ReportFailed(texts::reportSpoolFailed + u'\n' + file->errorString());
    lengths.push_back(page.size());
}

void ReportSpool::DrawOn(QPagedPaintDevice& device)
{
    QPainter painter;
    file->seek(0);
    for (std::size_t page = 0; page < lengths.size(); ++page) {
        QPicture picture;
        const QByteArray data = file->read(lengths[page]);
        picture.setData(data.constData(), static_cast<uint>(data.size()));
        if (page == 0 ? !painter.begin(&device) : !device.newPage())
            throw ReportFailed(texts::reportSpoolFailed);
        painter.save();
        ScaleToUnits(painter, device);
        painter.drawPicture(0, 0, picture);
        painter.restore();
    }
    painter.end();
}

void PdfOutput::Put(const Report& report, const ReportProgress& progress)
{
    PdfFile file(path);
    QPdfWriter writer(&file.Device());
    writer.setTitle(ReportTitle());
    writer.setCreator(App().sProgramTitle + App().sVersion);
    SetReportPaper(writer);
    QPainter painter;
    DrawPages(report, progress, [&](int page, const std::function<void(QPainter&)>& draw) {
        if (page == 1 ? !painter.begin(&writer) : !writer.newPage())
            throw ReportFailed(texts::reportNoFile + u'\n' + path);
        painter.save();
        ScaleToUnits(painter, writer);
        draw(painter);
        painter.restore();
        file.RequireWritten();
    });
    painter.end();
    file.Finish({.title = ReportTitle(), .author = App().sEditor, .creator = writer.creator()});
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
