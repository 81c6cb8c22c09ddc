// Shows places of a recording at random in the list of the sets and in the grid of the editor, painting included, and
// prints the longest time in milliseconds.  list_bench PROJECT
#include "Recording.h"

#include "core/Common.h"
#include "editor/EditorGrid.h"
#include "evaluation/SetJudges.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

/// Longest time in nanoseconds that a place at random takes; nothing if one isn't shown.
qint64 LongestOf(korvanel::SetGrid& grid)
{
    constexpr int kPlaces = 200;
    constexpr unsigned kSeed = 20261121;
    grid.resize(730, 400);
    grid.Rebuild();
    grid.show();
    auto* bar = grid.findChild<QScrollBar*>(QStringLiteral("ScrollFlex"));
    if (bar->maximum() <= bar->minimum())
        return 0;
    std::minstd_rand random(kSeed);
    qint64 longest = 0;
    for (int i = 0; i < kPlaces; ++i) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(static_cast<int>(random() % static_cast<unsigned>(bar->maximum() + 1)));
        if (grid.grab().isNull())
            return 0;
        longest = std::max(longest, timer.nsecsElapsed());
    }
    return longest;
}

} // namespace

int main(int argc, char* argv[])
{
    using namespace korvanel;
    constexpr double kNanosecondsPerMillisecond = 1e6;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2)
        return EXIT_FAILURE;
    bench::PrepareBlock();
    bench::OpenForPage(QString::fromLocal8Bit(argv[1]));
    SetList list(JudgeBy(RatingMode::MachineI));
    EditorGrid grid;
    const qint64 ofList = LongestOf(list);
    const qint64 ofEditor = LongestOf(grid);
    std::printf("%.2f\n", static_cast<double>(std::max(ofList, ofEditor)) / kNanosecondsPerMillisecond);
    return App().iSetCount == bench::Sets() && ofList > 0 && ofEditor > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
