// The page of the diagrams while a drawing goes on: what is locked, leaving, a file that fails.
#include "diagrams/DiagramPageFixture.h"

#include <QPushButton>

namespace korvanel::test {
namespace {

using SteppedDrawingTest = DiagramPageTest;

TEST_F(SteppedDrawingTest, ButtonsAreLockedWhileItDraws)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled()) << "60000 sets take more than one step";
    for (const char* button : {"cmdInfo", "cmdHide", "cmdUndo", "cmdRedo", "cmdFullScreen", "cmdPicture"})
        EXPECT_FALSE(Find<QToolButton>(button).isEnabled()) << button;
    EXPECT_FALSE(Find<QPushButton>("cmdBack").isEnabled());
    EXPECT_FALSE(IsEntryEnabled("mnuFile"));
    EXPECT_FALSE(Legend().isEnabled());
    Drag({10, 10}, {100, 100}); // waits for the end, and does nothing
    EXPECT_FALSE(CanUndo());
    EXPECT_TRUE(Find<QPushButton>("cmdBack").isEnabled());
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_TRUE(Legend().isEnabled());
}

TEST_F(SteppedDrawingTest, LeavingThePageWhileItDrawsEndsTheDrawing)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled());
    window.UnloadAndOpen(kPageGeneralData);
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    QTest::qWait(50);
    EXPECT_EQ(PageName(), "FormF1");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(SteppedDrawingTest, ClosingTheWindowWhileItDrawsCloses)
{
    EnterDiagrams(60'000);
    BeginToDraw();
    ASSERT_FALSE(Find<QToolButton>("cmdRedraw").isEnabled());
    EXPECT_TRUE(window.close());
    QTest::qWait(50);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(SteppedDrawingTest, FileThatVanishesIsToldAndThePageGoesOn)
{
    EnterDiagrams();
    const QString path = App().sProjectPath;
    QFile::rename(path, path + ".away");
    Press("cmdRedraw");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht lesen!")) << shell.boxes[0].text.toStdString();
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {30, 30});
    EXPECT_EQ(shell.boxes.size(), 2u);
    QFile::rename(path + ".away", path);
    Press("cmdRedraw");
    EXPECT_EQ(shell.boxes.size(), 2u);
    EXPECT_GT(Coloured(kU), 100);
}

TEST_F(SteppedDrawingTest, FileThatAnotherProgramHoldsIsTold)
{
    EnterDiagrams();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE; UPDATE SampledValues SET t=t");
    RecordingChanged();
    App().bEvaluated = 1;
    Press("cmdRedraw");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.contains("wird gerade von einem anderen Programm benutzt"))
        << shell.boxes[0].text.toStdString();
}

} // namespace
} // namespace korvanel::test
