// The page of the diagrams: entering, zoom and its history.
#include "diagrams/DiagramPageFixture.h"

namespace korvanel::test {
namespace {

using FormF8Test = DiagramPageTest;

// Entering.

TEST_F(FormF8Test, EnteringThePage_EvaluatesAndDrawsTheFullView)
{
    EnterDiagrams();
    EXPECT_NE(App().bEvaluated, 0);
    EXPECT_EQ(Sets().first().section(u'\n', 0, 0), "25");
    EXPECT_EQ(Sets().last().section(u'\n', 0, 0), "175");
    EXPECT_EQ(Sets().first().section(u'\n', 1), "00:00:24");
    EXPECT_EQ(Fractions(), (QStringList{"0,0", "0,1", "0,2", "0,3", "0,4", "0,5", "0,6", "0,7", "0,8", "0,9", "1,0"}));
    EXPECT_GT(Coloured(kU), 100);
    EXPECT_FALSE(CanUndo());
    EXPECT_FALSE(CanRedo());
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF8Test, EnteringThePageAgain_TakesTheResultsInHand)
{
    EnterDiagrams();
    App().MachineI.evaluation.tExtremMax[kU].dValue = 4000;
    EnterAgain();
    EXPECT_EQ(Legend().item(2, ColumnOf(kU))->text(), "5000 V");
}

TEST_F(FormF8Test, OfNegativeValuesTheFullViewGoesBelowZero)
{
    OpenProjectOf(2);
    Store({WorkingSet(10, 5000, 30, 4000), WorkingSet(10, -5000, -30, -4000), WorkingSet(10, 100, 1, 90)});
    EnterAgain();
    EXPECT_EQ(Fractions(),
              (QStringList{"-1,0", "-0,8", "-0,6", "-0,4", "-0,2", "0,0", "0,2", "0,4", "0,6", "0,8", "1,0"}));
}

TEST_F(FormF8Test, FirstCurves_AreVoltageCurrentAndPowerAndThoseOfTheMachine)
{
    EnterDiagrams();
    for (const int quantity : {+kU, +kI, +kP, +kN, +kM, +kPmech})
        EXPECT_EQ(App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity)), 1) << quantity;
    EXPECT_EQ(std::ranges::count(App().DiagramPage.iGraphState, 1), 6);
    CloseProjectOf();
    EnterDiagrams(50, 1);
    EXPECT_EQ(std::ranges::count(App().DiagramPage.iGraphState, 1), 3);
}

TEST_F(FormF8Test, ChosenCurves_StayWithTheProject)
{
    EnterDiagrams();
    ClickCell(0, ColumnOf(kU));
    window.UnloadAndOpen(kPageResultTable);
    EnterAgain();
    EXPECT_EQ(App().DiagramPage.iGraphState[kU], 0);
    EXPECT_EQ(Coloured(kU), 0);
    CloseProjectOf();
    EnterDiagrams();
    EXPECT_EQ(App().DiagramPage.iGraphState[kU], 1) << "another project begins anew";
}

TEST_F(FormF8Test, WithoutSetsOrWithOneTheGridIsAllThereIs)
{
    for (const int sets : {0, 1}) {
        EnterDiagrams(sets);
        for (const int quantity : {+kU, +kI, +kP})
            EXPECT_EQ(Coloured(quantity), 0) << sets;
        Press("cmdFullScreen");
        Press("cmdRedraw");
        Drag({20, 20}, {200, 100});
        Wheel({50, 50}, 3);
        QTest::mouseClick(&Box(), Qt::RightButton, {}, {30, 30});
        CloseProjectOf();
    }
    EXPECT_TRUE(shell.boxes.empty());
}

// Zoom and its history.

TEST_F(FormF8Test, RectangleZoomsAndUndoGoesBack)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({Box().width() / 4, 10}, {Box().width() / 2, Box().height() / 2});
    const QStringList zoomed = Sets();
    EXPECT_NE(zoomed, full);
    EXPECT_GE(zoomed.first().section(u'\n', 0, 0).toInt(), 50);
    EXPECT_LE(zoomed.last().section(u'\n', 0, 0).toInt(), 101);
    EXPECT_TRUE(CanUndo());
    Press("cmdUndo");
    EXPECT_EQ(Sets(), full);
    EXPECT_FALSE(CanUndo());
    EXPECT_TRUE(CanRedo());
    Press("cmdRedo");
    EXPECT_EQ(Sets(), zoomed);
    EXPECT_FALSE(CanRedo());
    Press("cmdFullScreen");
    EXPECT_EQ(Sets(), full);
    Press("cmdUndo");
    EXPECT_EQ(Sets(), zoomed) << "the full view is a record of its own";
}

TEST_F(FormF8Test, RectangleDraggedRightToLeftGivesTheSameView)
{
    EnterDiagrams();
    Drag({60, 30}, {160, 130});
    const QStringList sets = Sets();
    const QImage picture = Picture();
    Press("cmdUndo");
    Drag({160, 130}, {60, 30});
    EXPECT_EQ(Sets(), sets);
    EXPECT_EQ(Picture(), picture);
}

TEST_F(FormF8Test, RectangleBeyondTheDiagramIsClipped)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({-500, -500}, {5000, 5000});
    EXPECT_EQ(Sets(), full);
    EXPECT_FALSE(CanUndo()) << "the same view again is no new record";
}

TEST_F(FormF8Test, LinesOfTheRectangleFollowTheMouse)
{
    EnterDiagrams();
    const auto isShown = [this](const char* line) { return !Find<QWidget>(line).isHidden(); };
    EXPECT_FALSE(isShown("linLeft"));
    QTest::mousePress(&Box(), Qt::LeftButton, {}, {40, 30});
    for (const char* line : {"linLeft", "linDown", "linRight", "linTop"}) {
        EXPECT_TRUE(isShown(line)) << line;
        EXPECT_EQ(Find<QWidget>(line).pos(), QPoint(40, 30)) << line;
    }
    Move({140, 90}, Qt::LeftButton);
    EXPECT_EQ(Find<QWidget>("linLeft").geometry(), QRect(40, 30, 1, 61));
    EXPECT_EQ(Find<QWidget>("linDown").geometry(), QRect(40, 90, 101, 1));
    EXPECT_EQ(Find<QWidget>("linRight").geometry(), QRect(140, 30, 1, 61));
    EXPECT_EQ(Find<QWidget>("linTop").geometry(), QRect(40, 30, 101, 1));
    QTest::mouseRelease(&Box(), Qt::LeftButton, {}, {140, 90});
    EXPECT_FALSE(isShown("linLeft"));
    WaitForDrawing();
}

TEST_F(FormF8Test, ClickWithoutADragIsNoZoom)
{
    EnterDiagrams();
    Drag({50, 50}, {51, 51});
    EXPECT_FALSE(CanUndo());
}

TEST_F(FormF8Test, EscapeDropsTheRectangle)
{
    EnterDiagrams();
    QTest::mousePress(&Box(), Qt::LeftButton, {}, {40, 30});
    Move({140, 90}, Qt::LeftButton);
    QTest::keyClick(&Box(), Qt::Key_Escape);
    EXPECT_TRUE(Find<QWidget>("linLeft").isHidden());
    QTest::mouseRelease(&Box(), Qt::LeftButton, {}, {140, 90});
    WaitForDrawing();
    EXPECT_FALSE(CanUndo());
}

TEST_F(FormF8Test, WheelZoomsAboutThePointer)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Wheel({0, Box().height() - 1}, 4);
    EXPECT_EQ(Fractions(), (QStringList{"0,00", "0,05", "0,10", "0,15", "0,20", "0,25", "0,30", "0,35", "0,40"}))
        << "the corner under the pointer stays";
    EXPECT_NE(Sets(), full);
    EXPECT_TRUE(CanUndo());
    Wheel({0, Box().height() - 1}, -10);
    EXPECT_EQ(Sets(), full) << "and farther away than the full view it doesn't go";
}

TEST_F(FormF8Test, HandMovesTheView)
{
    EnterDiagrams();
    Drag({Box().width() / 4, 10}, {Box().width() / 2, Box().height() - 10});
    const QString first = Sets().first();
    Drag({200, 50}, {100, 50}, Qt::MiddleButton);
    EXPECT_GT(Sets().first().section(u'\n', 0, 0).toInt(), first.section(u'\n', 0, 0).toInt());
    const QStringList moved = Sets();
    Drag({100, 50}, {200, 50}, Qt::LeftButton, Qt::ShiftModifier);
    EXPECT_NE(Sets(), moved);
    Press("cmdUndo");
    EXPECT_EQ(Sets(), moved);
    Drag({100, 50}, {-5000, 50}, Qt::MiddleButton);
    QTest::mouseClick(&Box(), Qt::RightButton, {}, {Box().width() - 1, 30});
    EXPECT_EQ(Legend().verticalHeaderItem(1)->text(), "Satz 200") << "no farther than the last set";
}

TEST_F(FormF8Test, KeysUndoAndRedo)
{
    EnterDiagrams();
    const QStringList full = Sets();
    Drag({60, 30}, {160, 130});
    const QStringList zoomed = Sets();
    QTest::keyClick(&Box(), Qt::Key_Z, Qt::ControlModifier);
    WaitForDrawing();
    EXPECT_EQ(Sets(), full);
    QTest::keyClick(&Box(), Qt::Key_Y, Qt::ControlModifier);
    WaitForDrawing();
    EXPECT_EQ(Sets(), zoomed);
}

} // namespace
} // namespace korvanel::test
