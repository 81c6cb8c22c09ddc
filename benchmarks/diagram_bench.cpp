// Draws the first view of a recording on its page and prints the longest time, in milliseconds, for which the window
// answered nothing.  diagram_bench PROJECT
#include "Recording.h"

#include "core/Common.h"
#include "core/clsGraphColours.h"
#include "core/window/PageFrame.h"
#include "core/window/PageTable.h"
#include "data/ValueTables.h"
#include "diagrams/FormF8.h"
#include "evaluation/Algorithms.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QToolButton>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {

/// A frame that does nothing for its page.
class BareFrame : public korvanel::PageFrame
{
public:
    void UnloadAndOpen(int /*page*/) override {}
    void SetPageButtons(bool /*areEnabled*/) override {}
    void ShowDatabase(const QString& /*name*/) override {}
};

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
    clsGraphColours colours(QStringLiteral("KORVANEL"));
    App().GraphColours = &colours;
    bench::OpenForPage(QString::fromLocal8Bit(argv[1]));
    EvaluateProject();

    BareFrame frame;
    FormF8 page(frame, *FindPage(kPageResultGraph));
    page.AddBottomRow();
    page.show();
    auto* button = page.findChild<QToolButton*>(QStringLiteral("cmdRedraw"));
    QElapsedTimer sinceAnswer;
    qint64 longest = 0;
    int answers = 0;
    QTimer heartbeat;
    heartbeat.setInterval(1);
    bool wasLocked = false;
    QObject::connect(&heartbeat, &QTimer::timeout, &heartbeat, [&] {
        const bool isLocked = !button->isEnabled();
        if (isLocked || wasLocked) {
            longest = std::max(longest, sinceAnswer.nsecsElapsed());
            ++answers;
        }
        sinceAnswer.restart();
        if (wasLocked && !isLocked)
            QApplication::quit();
        wasLocked = isLocked;
    });
    sinceAnswer.start();
    heartbeat.start();
    page.Refresh();
    QApplication::exec();
    std::printf("%.2f\n", static_cast<double>(longest) / kNanosecondsPerMillisecond);
    return answers > 2 ? EXIT_SUCCESS : EXIT_FAILURE;
}
