// Entering values on the page of the editor: double click and keys, limits, sign, steps, what is pending.
#include "EditorPageFixture.h"

#include "machine/Algorithms_ASM_Start.h"

namespace korvanel::test {
namespace {

using FormF5EntryTest = EditorPageTest;

constexpr int kColumnOfU = 0;
constexpr int kColumnOfP = 3;
constexpr int kColumnOfQ = 4;
constexpr int kColumnOfS = 5;

TEST_F(FormF5EntryTest, DoubleClickBringsTheValueIntoTheBoxAndEnterTakesIt)
{
    EnterEditor();
    DoubleClick(3, kColumnOfU);
    EXPECT_TRUE(Box().hasFocus());
    EXPECT_EQ(Box().text(), "400");
    EXPECT_EQ(Box().selectedText(), "400");
    QTest::keyClicks(&Box(), "230,5");
    QTest::keyClick(&Box(), Qt::Key_Return);
    EXPECT_EQ(Stored("[U sum]", 4), 230.5) << "the set of the first click, wherever its row has moved";
    EXPECT_EQ(Stored("[Edit]", 4), 255);
    EXPECT_DOUBLE_EQ(Stored("[S sum]", 4), 230.5 * 4);
    EXPECT_TRUE(Values().hasFocus());
    EXPECT_EQ(Shown()[1], "4*");
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(App().bEvaluated, 0);
}

TEST_F(FormF5EntryTest, RowsStayWhereTheyAreAfterAnEntry)
{
    EnterEditor(10);
    MarkSets(9, 1);
    const QStringList before = Shown();
    EXPECT_EQ(before, (QStringList{"8", "9", "10", "", ""}));
    Enter(Box(), "222");
    EXPECT_EQ(Shown(), (QStringList{"8", "9*", "10", "", ""}));
}

TEST_F(FormF5EntryTest, DoubleClickThatComesAloneEditsItsRow)
{
    EnterEditor();
    QTest::mouseDClick(Values().viewport(), Qt::LeftButton, {}, CellAt(2, kColumnOfP));
    EXPECT_EQ(Find<QLabel>("lblEdit").text(), "Satz 3, Pel [W]:");
    EXPECT_TRUE(Box().hasFocus());
}

TEST_F(FormF5EntryTest, OnlyTheToldColumnsCanBeEntered)
{
    for (const auto& [netConf, names] :
         {std::pair<int, QStringList>{0, {"U [V]", "I [A]", "f [Hz]", "Pel [W]", "Q [var]"}},
          {2, {"U [V]", "I [A]", "f [Hz]", "Pel [W]", "Q [var]"}},
          {6, {"U [V]", "U L1 [V]", "U L2 [V]", "U L3 [V]", "f [Hz]"}}}) {
        EnterEditor(5, netConf);
        QStringList editable;
        for (int i = 0; i < Values().columnCount(); ++i) {
            if (IsEnabled("txtEdit_0"))
                editable << Find<QLabel>("lblEdit").text().mid(8).chopped(1);
            Key(Qt::Key_Right);
        }
        EXPECT_EQ(editable.size(), names.size()) << editable.join(u';').toStdString();
        if (netConf != 6) {
            EXPECT_EQ(editable, names);
        }
        window.UnloadPage();
        App().bProjectOpen = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF5EntryTest, CellThatFollowsFromOthersCanNotBeEntered)
{
    EnterEditor();
    DoubleClick(0, kColumnOfS);
    EXPECT_FALSE(Box().isEnabled());
    EXPECT_FALSE(IsEnabled("cmdEnter"));
    EXPECT_TRUE(Values().hasFocus());
}

TEST_F(FormF5EntryTest, WhatIsNoValueOfTheColumnIsToldAndNothingChanges)
{
    EnterEditor(5, 6);
    const QString before = Query("SELECT group_concat(quote([U sum])) FROM SampledValues");
    for (const char* typed : {"-1", "100000.5", "100001", "1e400", "abc", "1,2,3", "1.2,3", "--4", "nan", "inf"}) {
        shell.boxes.clear();
        Enter(Box(), QLatin1String(typed));
        ASSERT_EQ(shell.boxes.size(), 1u) << typed;
        EXPECT_EQ(shell.boxes[0].text, "Der eingegebene Wert muss sich\nzwischen 0 und 100000  befinden.") << typed;
        EXPECT_TRUE(Box().hasFocus()) << "what was typed can be mended";
    }
    EXPECT_EQ(Query("SELECT group_concat(quote([U sum])) FROM SampledValues"), before);
    Key(Qt::Key_Escape);
}

TEST_F(FormF5EntryTest, LimitsOfEachColumn)
{
    EnterEditor();
    const struct
    {
        int column;
        const char* typed;
        bool isTaken;
    } cases[] = {
        {0, "0", true},
        {0, "100000", true},
        {1, "0", true},
        {1, "100000", true},
        {1, "100001", false},
        {1, "-0,1", false},
        {2, "1000", true},
        {2, "1000,1", false},
        {2, "-1", false},
        {3, "-1000000000", true},
        {3, "1e9", true},
        {3, "1000000001", false},
        {3, "-1000000001", false},
    };
    for (const auto& line : cases) {
        shell.boxes.clear();
        DoubleClick(0, line.column);
        Enter(Box(), QLatin1String(line.typed));
        EXPECT_EQ(shell.boxes.empty(), line.isTaken) << line.column << ": " << line.typed;
        QTest::keyClick(&Box(), Qt::Key_Escape);
        QTest::qWait(QApplication::doubleClickInterval() + 1);
    }
}

TEST_F(FormF5EntryTest, EmptiedBoxCountsAsOne)
{
    EnterEditor();
    Enter(Box(), {});
    EXPECT_EQ(Stored("[U sum]", 1), 400) << "nothing typed, nothing taken away";
    Box().clear();
    QTest::keyClick(&Box(), Qt::Key_Return);
    EXPECT_EQ(Stored("[U sum]", 1), 1);
}

TEST_F(FormF5EntryTest, ReactivePowerTakesASignAlone)
{
    EnterEditor();
    DoubleClick(2, kColumnOfP);
    Enter(Box(), "300");
    const double phi = Stored("[phi sum]", 3);
    const double Q = Stored("[Q sum]", 3);
    ASSERT_GT(Q, 0);
    const struct
    {
        const char* typed;
        double sign;
    } cases[] = {{"-5", -1}, {"0", 1}, {"-0,001", -1}, {"7", 1}, {"-", -1}, {"+", 1}};
    for (const auto& line : cases) {
        DoubleClick(1, kColumnOfQ);
        Enter(Box(), QLatin1String(line.typed));
        EXPECT_DOUBLE_EQ(Stored("[phi sum]", 3), line.sign * phi) << line.typed;
        EXPECT_DOUBLE_EQ(Stored("[Q sum]", 3), line.sign * Q) << line.typed;
        QTest::qWait(QApplication::doubleClickInterval() + 1);
    }
}

TEST_F(FormF5EntryTest, SignButtonChangesTheSignInTheBox)
{
    EnterEditor();
    DoubleClick(0, kColumnOfP);
    auto& sign = Find<QAbstractButton>("cmdPlusMinus");
    sign.click();
    EXPECT_EQ(Box().text(), "-10000");
    sign.click();
    EXPECT_EQ(Box().text(), "10000");
    sign.click();
    Press("cmdEnter");
    EXPECT_EQ(Stored("[P sum]", 1), -10000);
}

TEST_F(FormF5EntryTest, StepsChangeTheValueInTheBox)
{
    EnterEditor();
    DoubleClick(0, kColumnOfU);
    Find<QLineEdit>("txtEdit_1").setText("2.5");
    Find<QAbstractButton>("cmdStep_0").click();
    EXPECT_EQ(Box().text(), "402,5");
    Find<QAbstractButton>("cmdStep_1").click();
    Find<QAbstractButton>("cmdStep_1").click();
    EXPECT_EQ(Box().text(), "397,5");
    QTest::keyClick(&Box(), Qt::Key_Up);
    EXPECT_EQ(Box().text(), "400");
    EXPECT_EQ(Stored("[U sum]", 1), 400) << "nothing is taken yet";
    Find<QLineEdit>("txtEdit_1").setText("viel");
    Find<QAbstractButton>("cmdStep_0").click();
    EXPECT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(Box().text(), "400");
}

TEST_F(FormF5EntryTest, EscapeLeavesTheBoxWithTheFormerValue)
{
    EnterEditor();
    Key(Qt::Key_Return);
    EXPECT_TRUE(Box().hasFocus());
    QTest::keyClicks(&Box(), "777");
    QTest::keyClick(&Box(), Qt::Key_Escape);
    EXPECT_EQ(Box().text(), "400");
    EXPECT_TRUE(Values().hasFocus());
    EXPECT_EQ(Stored("[U sum]", 1), 400);
}

TEST_F(FormF5EntryTest, TypingBeginsAnEntry)
{
    EnterEditor();
    QTest::keyClicks(&Values(), "2");
    EXPECT_TRUE(Box().hasFocus());
    QTest::keyClicks(&Box(), "31");
    QTest::keyClick(&Box(), Qt::Key_Enter);
    EXPECT_EQ(Stored("[U sum]", 1), 231);
}

TEST_F(FormF5EntryTest, PendingEntryIsTakenWhenTheCursorMoves)
{
    EnterEditor();
    DoubleClick(0, kColumnOfU);
    QTest::keyClicks(&Box(), "111");
    Click(3, kColumnOfP);
    EXPECT_EQ(Stored("[U sum]", 1), 111);
    EXPECT_EQ(App().iCurrentSet, 4);
    EXPECT_EQ(Box().text(), "10000");
}

TEST_F(FormF5EntryTest, PendingEntryThatCanNotBeTakenKeepsTheCursor)
{
    EnterEditor();
    DoubleClick(0, kColumnOfU);
    QTest::keyClicks(&Box(), "viel");
    Click(3, kColumnOfP);
    EXPECT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(Grid().CursorSet(), 1);
    EXPECT_EQ(Box().text(), "viel");
    EXPECT_EQ(Find<QLabel>("lblEdit").text(), "Satz 1, U [V]:");
}

TEST_F(FormF5EntryTest, PendingEntryWithoutAFiniteEstimateIsToldAndNothingChanges)
{
    EnterEditor(5, 2);
    App().MachineI.record = MotorWithNoLoadData();
    BuildMachineModel();
    Execute("UPDATE SampledValues SET [f sum]=1000 WHERE [Set]=1"); // with such a voltage beyond all powers
    EnterAgain();
    const auto row = [this] {
        return Query("SELECT [U sum] || ' ' || [phi sum] || ' ' || Edit || ' ' || [S sum] || ' ' "
                     "|| n || ' ' || M FROM SampledValues JOIN ComputedValues USING ([Set]) WHERE [Set]=1");
    };
    const QString before = row();
    DoubleClick(0, kColumnOfU);
    QTest::keyClicks(&Box(), "100000");
    Key(Qt::Key_Down);
    Settle();
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(shell.boxes[0].text,
              "Messgerät - Messwerteditor (Offline)\nDie Berechnung hat keine endliche Zahl ergeben.");
    EXPECT_EQ(row(), before);
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
    QTest::keyClick(&Box(), Qt::Key_Escape);
    Key(Qt::Key_Down);
    EXPECT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(Grid().CursorSet(), App().iCurrentSet) << "the page goes on";
}

TEST_F(FormF5EntryTest, PendingEntryIsTakenWhenThePageIsLeft)
{
    EnterEditor();
    DoubleClick(0, kColumnOfU);
    QTest::keyClicks(&Box(), "112");
    Find<QPushButton>("cmdForw").click();
    EXPECT_EQ(App().iCurrentPage, kPageResultTable);
    EXPECT_EQ(Stored("[U sum]", 1), 112);
}

TEST_F(FormF5EntryTest, PendingEntryThatCanNotBeTakenKeepsThePage)
{
    EnterEditor();
    DoubleClick(0, kColumnOfU);
    QTest::keyClicks(&Box(), "-5");
    Find<QPushButton>("cmdBack").click();
    EXPECT_EQ(App().iCurrentPage, kPageEditor);
    EXPECT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(Box().text(), "-5");
    QTest::keyClick(&Box(), Qt::Key_Escape);
}

TEST_F(FormF5EntryTest, PendingEntryIsTakenBeforeAnOperation)
{
    EnterEditor(4);
    DoubleClick(1, kColumnOfU);
    QTest::keyClicks(&Box(), "113");
    Press("cmdInsDel_0");
    EXPECT_EQ(Query("SELECT group_concat(CAST([U sum] AS INTEGER)) FROM SampledValues"), "400,113,113,400,400");
}

TEST_F(FormF5EntryTest, PhasesAreEnteredWhereTheConfigurationHasThem)
{
    EnterEditor(3, 6);
    DoubleClick(1, 2);
    Enter(Box(), "231");
    EXPECT_EQ(Query("SELECT [U 2] FROM SampledValues WHERE [Set]=2"), "231.0");
    EXPECT_EQ(Query("SELECT [U sum] FROM SampledValues WHERE [Set]=2"), "400.0");
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues WHERE [Set]=2"), "255");
}

TEST_F(FormF5EntryTest, EntryWithAPointIsTakenInALocaleWithAComma)
{
    EnterEditor();
    Enter(Box(), "229.25");
    EXPECT_EQ(Stored("[U sum]", 1), 229.25);
    EXPECT_EQ(Box().text(), "229,25");
}

TEST_F(FormF5EntryTest, EntryInALocaleWithAPoint)
{
    App().DecimalChar = u'.';
    App().OtherDecimalChar = u',';
    EnterEditor();
    Enter(Box(), "229,25");
    EXPECT_EQ(Stored("[U sum]", 1), 229.25);
    EXPECT_EQ(Box().text(), "229.25");
}

} // namespace
} // namespace korvanel::test
