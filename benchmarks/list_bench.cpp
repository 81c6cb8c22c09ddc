// Shows places of a recording at random in the list of the sets and in the grid of the editor, painting included, and
// prints the longest time in milliseconds.  list_bench PROJECT
#include "PageBench.h"

#include "core/Common.h"
#include "editor/EditorGrid.h"
#include "evaluation/SetJudges.h"

#include <QElapsedTimer>
#include <QPixmap>
#include <QScrollBar>

#include <algorithm>
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
    return bench::MeasureOverProject(argc, argv, [] {
        SetList list(JudgeBy(RatingMode::MachineI));
        EditorGrid grid;
        const qint64 ofList = LongestOf(list);
        const qint64 ofEditor = LongestOf(grid);
        const bool areMeasured = App().iSetCount == bench::Sets() && ofList > 0 && ofEditor > 0;
        return areMeasured ? std::max(ofList, ofEditor) : 0;
    });
}
