// Shows places of a recording at random in the list of the sets, painting included, and prints the longest time in
// milliseconds.  list_bench PROJECT
#include "Recording.h"

#include "core/Common.h"
#include "core/clsSymbols.h"
#include "evaluation/SetJudges.h"
#include "project/ProjectStore.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QPixmap>
#include <QScrollBar>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <random>

int main(int argc, char* argv[])
{
    using namespace korvanel;
    constexpr int kPlaces = 200;
    constexpr unsigned kSeed = 20261121;
    constexpr double kNanosecondsPerMillisecond = 1e6;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    if (argc != 2)
        return EXIT_FAILURE;
    bench::PrepareBlock();
    clsSymbols symbols;
    App().Symbols = &symbols;
    OpenProject(QString::fromLocal8Bit(argv[1]));
    App().bProjectOpen = true;
    bench::PrepareMachine();

    SetList list(JudgeBy(RatingMode::MachineI));
    list.resize(730, 400);
    list.Rebuild();
    list.show();
    auto* bar = list.findChild<QScrollBar*>(QStringLiteral("ScrollFlex"));
    std::minstd_rand random(kSeed);
    qint64 longest = 0;
    for (int i = 0; i < kPlaces; ++i) {
        QElapsedTimer timer;
        timer.start();
        bar->setValue(static_cast<int>(random() % static_cast<unsigned>(bar->maximum() + 1)));
        if (list.grab().isNull())
            return EXIT_FAILURE;
        longest = std::max(longest, timer.nsecsElapsed());
    }
    std::printf("%.2f\n", static_cast<double>(longest) / kNanosecondsPerMillisecond);
    return App().iSetCount == bench::Sets() && bar->maximum() > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
