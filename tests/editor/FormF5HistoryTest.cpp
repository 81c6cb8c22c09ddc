// What is taken back and done again on the page of the editor, and what ends it.
#include "EditorPageFixture.h"

namespace korvanel::test {
namespace {

using FormF5HistoryTest = EditorPageTest;

TEST_F(FormF5HistoryTest, TenOperationsAndMoreAreTakenBackAndDoneAgain)
{
    EnterEditor(10);
    QStringList states{Currents()};
    for (int i = 0; i < 12; ++i) {
        MarkSets(1 + i % 3, 1 + i % 2);
        Press(i % 3 == 2 ? "cmdInsDel_1" : "cmdInsDel_0");
        states << Currents();
    }
    for (int i = 11; i >= 0; --i) {
        Undo();
        EXPECT_EQ(Currents(), states[i]);
    }
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
    Undo();
    EXPECT_EQ(Currents(), states[0]);
    for (int i = 1; i <= 12; ++i) {
        Redo();
        EXPECT_EQ(Currents(), states[i]);
    }
    EXPECT_FALSE(Entry("mnuRedo").isEnabled());
}

TEST_F(FormF5HistoryTest, EntryIntervalPasteAndNewAreTakenBackToo)
{
    EnterEditor(0);
    Press("cmdNew");
    Enter(Box(), "231");
    PasteText("100;1;50;60;1\n110;1;50;60;1\n");
    Enter(Find<QLineEdit>("txtInterval"), "2");
    EXPECT_EQ(Voltages(), "231,110");
    Undo();
    EXPECT_EQ(Voltages(), "231,100,110");
    EXPECT_EQ(App().dInterval, 1);
    EXPECT_EQ(Find<QLineEdit>("txtInterval").text(), "1");
    Undo();
    Undo();
    EXPECT_EQ(Voltages(), "380");
    Undo();
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_TRUE(IsEnabled("cmdNew"));
    for (int i = 0; i < 4; ++i)
        Redo();
    EXPECT_EQ(Voltages(), "231,110");
    EXPECT_EQ(App().dInterval, 2);
}

TEST_F(FormF5HistoryTest, NothingIsTakenBackOnceThePageWasLeft)
{
    EnterEditor(5);
    Press("cmdInsDel_0");
    EXPECT_TRUE(Entry("mnuUndo").isEnabled());
    EnterAgain();
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
    EXPECT_NE(App().RowHistory, nullptr);
    window.UnloadPage();
    QTRY_VERIFY(App().RowHistory == nullptr);
}

TEST_F(FormF5HistoryTest, SaveFromTheMenuLeavesWhatCanBeTakenBack)
{
    EnterEditor(5);
    Press("cmdInsDel_1");
    SaveProjectFromMenu();
    Undo();
    EXPECT_EQ(Currents(), "1,2,3,4,5");
    Redo();
    SaveProjectFromMenu();
    Press("cmdInsDel_1");
    Undo();
    Undo();
    EXPECT_EQ(Currents(), "1,2,3,4,5");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF5HistoryTest, SaveFromTheMenuDoesNotHideWhatAnotherProgramHasWritten)
{
    EnterEditor(5);
    Press("cmdInsDel_1");
    Execute("UPDATE SampledValues SET [f sum]=60 WHERE [Set]=4");
    SaveProjectFromMenu();
    Undo();
    EXPECT_EQ(Currents(), "2,3,4,5");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.contains("Die Sätze wurden inzwischen an anderer Stelle geändert"));
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
}

TEST_F(FormF5HistoryTest, ChoiceOfASecondMachineLeavesWhatCanBeTakenBack)
{
    SetHook(Hook::RunSimulation, [] { return true; });
    EnterEditor(5, 2);
    shell.dialogs[kDialogSecondMachine] = [this] {
        Execute("CREATE TABLE SimulatedValues ([Set] INTEGER PRIMARY KEY)"); // it stores what the machine does
        App().MachineII.record = KnownMachine();
        App().bASMSim = true;
        return true;
    };
    Press("cmdInsDel_1");
    ASSERT_EQ(Currents(), "2,3,4,5");
    Press("cmdSimulation");
    ASSERT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name='SimulatedValues'"), "1");
    Undo();
    EXPECT_EQ(Currents(), "1,2,3,4,5");
    Redo();
    EXPECT_EQ(Currents(), "2,3,4,5");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF5HistoryTest, ChoiceOfASecondMachineDoesNotHideWhatAnotherProgramHasWritten)
{
    SetHook(Hook::RunSimulation, [] { return true; });
    EnterEditor(5, 2);
    shell.dialogs[kDialogSecondMachine] = [this] {
        Execute("CREATE TABLE SimulatedValues ([Set] INTEGER PRIMARY KEY)");
        return true;
    };
    Press("cmdInsDel_1");
    Execute("UPDATE SampledValues SET [f sum]=60 WHERE [Set]=4");
    Press("cmdSimulation");
    Undo();
    EXPECT_EQ(Currents(), "2,3,4,5");
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.contains("Die Sätze wurden inzwischen an anderer Stelle geändert"));
}

} // namespace
} // namespace korvanel::test
