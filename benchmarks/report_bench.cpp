// A report whose table has ten thousand sets, against the bare drawing of as many texts on the same device.
//   report_bench PROJECT         prints the times in milliseconds: into a file, by the spool, bare, and the longest
//   that
//                                the preview of a report of all sets takes to show a page
//   report_bench PROJECT COUNT   writes the table of so many sets and prints the peak memory in MB
#include "Recording.h"

#include "core/Common.h"
#include "output/Print.h"
#include "output/ReportContent.h"
#include "output/ReportPreview.h"
#include "output/ReportSpool.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QPixmap>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <random>

namespace {

using namespace korvanel;

constexpr qint32 kTableSets = 10'000;
constexpr double kNanosecondsPerMillisecond = 1e6;

/// The table of the measured sets with the columns of a new project, and nothing else.
void ChooseTable(qint32 sets)
{
    App().PrintIt.fill(0);
    App().PrintIt[kReportSets] = 1;
    App().PrChecks.fill(0);
    std::fill_n(App().PrChecks.begin(), kWq + 1, 1);
    App().PrintSetsOpt = 0;
    App().StartAtSet = 1;
    App().StopAtSet = sets;
}

/// Milliseconds of the faster one of two runs.
double TimeOf(const std::function<void()>& work)
{
    qint64 shortest = 0;
    for (int run = 0; run < 2; ++run) {
        QElapsedTimer timer;
        timer.start();
        work();
        const qint64 time = timer.nsecsElapsed();
        shortest = run == 0 ? time : std::min(shortest, time);
    }
    return static_cast<double>(shortest) / kNanosecondsPerMillisecond;
}

/// As many texts as the table has cells, on as many pages.
void DrawBare(const QString& path, int pages)
{
    const ReportFonts fonts;
    const auto cells = static_cast<int>(ReportColumns(kReportSets).size()) + 2;
    const int texts = static_cast<int>(kTableSets) * cells / pages;
    QPdfWriter writer(path);
    SetReportPaper(writer);
    QPainter painter(&writer);
    constexpr double kMillimetresPerInch = 25.4;
    const double scale = writer.logicalDpiX() / kMillimetresPerInch / kUnitsPerMillimetre;
    painter.scale(scale, scale);
    painter.setFont(fonts.table.Font());
    for (int page = 0; page < pages; ++page) {
        if (page > 0)
            writer.newPage();
        for (int i = 0; i < texts; ++i)
            painter.drawText(QPointF(2000 + i % 8 * 2000, 4000 + i / 8 * 360), QString::number(10000.125 + i));
    }
}

int PrintTimes()
{
    ChooseTable(kTableSets);
    const Report report = ReportOfProject();
    const QString path = bench::ScratchPath(QStringLiteral("report.pdf"));
    const double file = TimeOf([&] { PdfOutput(path).Put(report, {}); });
    const double spool = TimeOf([&] {
        QPdfWriter writer(path);
        SetReportPaper(writer);
        ReportSpool(report, {}).DrawOn(writer);
    });
    const double bare = TimeOf([&] { DrawBare(path, report.PageCount()); });

    ChooseTable(App().iSetCount);
    ReportPreview preview;
    preview.resize(400, 560);
    preview.show();
    preview.Show(ReportOfProject(), {});
    constexpr int kPlaces = 60;
    std::minstd_rand random(20261122);
    double longest = 0;
    for (int i = 0; i < kPlaces; ++i) {
        QElapsedTimer timer;
        timer.start();
        preview.ShowPage(1 + static_cast<int>(random() % static_cast<unsigned>(preview.PageCount())));
        do
            QCoreApplication::processEvents();
        while (!preview.IsDrawn());
        longest = std::max(longest, static_cast<double>(timer.nsecsElapsed()) / kNanosecondsPerMillisecond);
    }
    std::printf("%.2f %.2f %.2f %.2f\n", file, spool, bare, longest);
    return EXIT_SUCCESS;
}

/// MB; 0 where the system doesn't tell.
double PeakMemory()
{
    constexpr double kKilobytesPerMegabyte = 1024;
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / kKilobytesPerMegabyte;
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc < 2)
        return EXIT_FAILURE;
    bench::PrepareBlock();
    bench::OpenForPage(QString::fromLocal8Bit(argv[1]));
    if (argc == 2)
        return PrintTimes();
    ChooseTable(QByteArray(argv[2]).toInt());
    PdfOutput(bench::ScratchPath(QStringLiteral("report.pdf"))).Put(ReportOfProject(), {});
    std::printf("%.1f\n", PeakMemory());
    return EXIT_SUCCESS;
}
