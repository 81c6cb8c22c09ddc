// The clipboard on the page of the editor: sets copied as a table, and pasted as new ones or over the marked ones.
#include "EditorPageFixture.h"

namespace korvanel::test {
namespace {

using FormF5ClipboardTest = EditorPageTest;

TEST_F(FormF5ClipboardTest, CopiedRowsAreATableForSpreadsheets)
{
    EnterEditor(5);
    MarkSets(2, 2);
    QTest::keyClick(&Values(), Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = QApplication::clipboard()->text().split('\n');
    ASSERT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[0].startsWith("Satz\tU [V]\tI [A]\tf [Hz]\tPel [W]\tQ [var]"));
    EXPECT_TRUE(lines[1].startsWith("2\t400\t2\t50\t10000\t7500"));
    EXPECT_TRUE(lines[2].startsWith("3\t400\t3\t50"));
    EXPECT_EQ(lines[3], "");
}

TEST_F(FormF5ClipboardTest, PastedRowsBecomeSetsBehindTheCursor)
{
    EnterEditor(3);
    MarkSets(2, 1);
    PasteText("230,5\t10\t50\t1000\t-1\n231.5\t11\t50\t1100\t1\n");
    EXPECT_EQ(Query("SELECT group_concat([U sum]) FROM SampledValues"), "400.0,400.0,230.5,231.5,400.0");
    EXPECT_EQ(Query("SELECT group_concat(t) FROM SampledValues"), "0,1,2,3,4");
    EXPECT_LT(Stored("[phi sum]", 3), 0);
    EXPECT_GT(Stored("[phi sum]", 4), 0);
    EXPECT_EQ(Grid().FirstMarked(), 3);
    EXPECT_EQ(Grid().MarkedCount(), 2);
    EXPECT_EQ(Shown()[1], "3*");
}

TEST_F(FormF5ClipboardTest, PastedRowsOverTheMarkedSets)
{
    EnterEditor(4);
    MarkSets(2, 2);
    PasteText("100;1;50;50\n101;1;50;50");
    EXPECT_EQ(Voltages(), "400,100,101,400");
    EXPECT_EQ(App().iSetCount, 4);
    shell.boxes.clear();
    MarkSets(1, 3);
    PasteText("100;1;50;50\n101;1;50;50");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(shell.boxes[0].text, "Die Zwischenablage enthält 2 Zeilen, markiert sind 3 Sätze.");
    MarkSets(1, 1);
    QApplication::clipboard()->setText("99;1;50;50");
    Entry("mnuPasteOver").trigger();
    Settle();
    EXPECT_EQ(Voltages(), "99,100,101,400");
}

TEST_F(FormF5ClipboardTest, CopiedRowsCanBePasted)
{
    EnterEditor(4);
    MarkSets(1, 2);
    QTest::keyClick(&Values(), Qt::Key_C, Qt::ControlModifier);
    MarkSets(4, 1);
    QTest::keyClick(&Values(), Qt::Key_V, Qt::ControlModifier);
    Settle();
    EXPECT_EQ(Currents(), "1,2,3,4,1,2");
}

TEST_F(FormF5ClipboardTest, BadCellIsNamedAndNothingIsPasted)
{
    EnterEditor(2);
    PasteText("230\t1\t50\t100\t1\n230\t1\t5o\t100\t1\n");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_EQ(shell.boxes[0].text, "Zeile 2, Spalte 3 (f [Hz]): '5o'\nDas ist keine Zahl.");
    EXPECT_EQ(App().iSetCount, 2);
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
}

} // namespace
} // namespace korvanel::test
