// A report on its way out: into a file, or by a spool to a printer. Either everything goes out or nothing: a report
// that is stopped or fails leaves no half file and no job.
#pragma once

#include "output/Report.h"
#include "output/ReportFailures.h"

#include <QString>

#include <functional>

class QPagedPaintDevice;
class QPaintDevice;
class QPainter;

namespace korvanel {

/// Where a report goes.
class ReportOutput
{
public:
    virtual ~ReportOutput() = default;
    /// Whether it is a printer of the system.
    virtual bool IsPrinter() const = 0;
    /// Puts a report out. Throws ReportStopped, ReportFailed and DbError, with nothing put out.
    virtual void Put(const Report& report, const ReportProgress& progress) = 0;
};

/// A4 upright over the whole paper.
void SetReportPaper(QPagedPaintDevice& device);

/// The title of the document.
QString ReportTitle();

/// A painter's units for the pages of a device.
void ScaleToUnits(QPainter& painter, const QPaintDevice& device);

/// Has the pages drawn one by one, 1 to the last, each when what it waits for is done. Throws ReportStopped, and what
/// the drawing throws.
void DrawPages(const Report& report, const ReportProgress& progress, const std::function<void(int page)>& draw);

/// A PDF file: searchable text, title and author. An existing one is replaced when the last page is written.
class PdfOutput : public ReportOutput
{
public:
    explicit PdfOutput(QString toPath) : path(std::move(toPath)) {}
    bool IsPrinter() const override { return false; }
    void Put(const Report& report, const ReportProgress& progress) override;

private:
    QString path;
};

/// How a report is accompanied.
struct ReportWatch
{
    ReportProgress progress = {};
    std::function<void()> atEnd = {}; ///< before anything is told
};

/// Puts a report out, and tells what has become of it if it isn't done. False then, and on a printer of the system that
/// has no default printer, where nothing happens.
bool PutReport(const Report& report, ReportOutput& output, const ReportWatch& watch = {});

/// The report of the project, with what is switched on in it.
bool PrintReport(ReportOutput& output, const ReportWatch& watch = {});

} // namespace korvanel
