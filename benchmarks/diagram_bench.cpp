// Draws the first view of a recording on its page and prints the longest time, in milliseconds, for which the window
// answered nothing.  diagram_bench PROJECT
#include "PageBench.h"

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

namespace {

/// A frame that does nothing for its page.
class BareFrame : public korvanel::PageFrame
{
public:
    void UnloadAndOpen(int /*page*/) override {}
    void SetPageButtons(bool /*areEnabled*/) override {}
    void ShowDatabase(const QString& /*name*/) override {}
};

/// Longest time in nanoseconds between two answers while the page draws; 0 if there are hardly any.
qint64 LongestWithoutAnswer()
{
    using namespace korvanel;
    clsGraphColours colours(QStringLiteral("KORVANEL"));
    App().GraphColours = &colours;
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
    return answers > 2 ? longest : 0;
}

} // namespace

int main(int argc, char* argv[])
{
    return korvanel::bench::MeasureOverProject(argc, argv, LongestWithoutAnswer);
}
