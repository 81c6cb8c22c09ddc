// The pages of a report, kept in a temporary file until the last one is drawn: a printer can't be called off once it
// has begun, so it begins when everything is there.
#pragma once

#include "output/Print.h"

#include <QByteArray>

#include <memory>
#include <vector>

class QTemporaryFile;

namespace korvanel {

class ReportSpool
{
public:
    /// Draws all pages. Throws as `ReportOutput::Put`.
    ReportSpool(const Report& ofReport, const ReportProgress& progress);
    ReportSpool(const ReportSpool&) = delete;
    ReportSpool& operator=(const ReportSpool&) = delete;
    ~ReportSpool();

    /// Draws them on a device. Throws ReportFailed.
    void DrawOn(QPagedPaintDevice& device);

private:
    void Write(const QByteArray& block);
    void Keep(const QByteArray& page);
    /// The toolkit makes the document of a printer in a file of its own, and hands over what has found room there. So
    /// it is tried before whether there is enough.
    void TryRoom();

    const Report& report;
    std::unique_ptr<QTemporaryFile> file;
    std::vector<qint64> lengths; ///< of the pages
};

} // namespace korvanel
