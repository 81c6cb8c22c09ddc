// The export as the page of the results runs it.
#include "output/Export.h"

#include "support/ResultPageFixture.h"

#include <QMouseEvent>
#include <QPushButton>

namespace korvanel::test {
namespace {

class ExportPageTest : public ResultPageTest
{
protected:
    static void Bind(const std::function<void()>& routine) { SetHook(Hook::ExportEvaluation, Done(routine)); }
    static void PostClick(QWidget& button)
    {
        for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease})
            QCoreApplication::postEvent(&button, new QMouseEvent(type, QPointF(5, 5), button.mapToGlobal(QPointF(5, 5)),
                                                                 Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    }
};

TEST_F(ExportPageTest, ButtonWritesTheFileAndLeavesThePageAsItWas)
{
    Bind(ExportFromPage);
    OpenProjectOf(2);
    StoreNumbered(30);
    EnterPage();
    shell.savePaths = {PathOf("übersicht.xls")};
    Find<QPushButton>("cmdExcel").click();
    EXPECT_EQ(shell.BoxTexts(), QStringList());
    EXPECT_EQ(ContentOf("übersicht.xls").left(8), "\xEF\xBB\xBFSatz\t");
    EXPECT_EQ(PageName(), "FormF6");
    EXPECT_TRUE(Find<QPushButton>("cmdExcel").isEnabled());
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_EQ(settings->ExportPath(), folder.path() + QDir::separator());
}

TEST_F(ExportPageTest, PageIsLockedMeanwhileAndWhatIsPressedIsLost)
{
    int runs = 0;
    Bind([&] {
        ++runs;
        for (const char* name : {"cmdExcel", "cmdBack", "cmdForw"}) {
            EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name;
            PostClick(Find<QPushButton>(name));
        }
    });
    OpenProjectOf(0);
    EnterPage();
    Find<QPushButton>("cmdExcel").click();
    QCoreApplication::processEvents();
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(PageName(), "FormF6");
    EXPECT_TRUE(Find<QPushButton>("cmdExcel").isEnabled());
}

TEST_F(ExportPageTest, ButtonIsDisabledWhereNobodyExports)
{
    SetHook(Hook::ExportEvaluation, {});
    OpenProjectOf(0);
    EnterPage();
    EXPECT_FALSE(Find<QPushButton>("cmdExcel").isEnabled());
}

TEST_F(ExportPageTest, FocusIsWhereItWas)
{
    Bind([] {});
    OpenProjectOf(0);
    EnterPage();
    auto& button = Find<QPushButton>("cmdExcel");
    button.setFocus();
    button.click();
    EXPECT_EQ(window.PageOnShow()->focusWidget(), &button);
    EXPECT_TRUE(button.hasFocus());
}

TEST_F(ExportPageTest, FailureUnlocksThePageToo)
{
    Bind([] { throw std::runtime_error("kaputt"); });
    OpenProjectOf(0);
    EnterPage();
    Find<QPushButton>("cmdExcel").click();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(Find<QPushButton>("cmdExcel").isEnabled());
}

} // namespace
} // namespace korvanel::test
