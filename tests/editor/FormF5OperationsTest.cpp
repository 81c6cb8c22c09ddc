// Operations on the page of the editor: sets duplicated, deleted and interpolated, interval and method, the energies,
// the second machine.
#include "EditorPageFixture.h"

#include "machine/Algorithms_ASM_Start.h"
#include "support/FullDisk.h"

namespace korvanel::test {
namespace {

using FormF5OperationsTest = EditorPageTest;

TEST_F(FormF5OperationsTest, DuplicateMarkedSets)
{
    EnterEditor(5);
    MarkSets(2, 2);
    Press("cmdInsDel_0");
    EXPECT_EQ(Currents(), "1,2,3,2,3,4,5");
    EXPECT_EQ(Query("SELECT group_concat(t) FROM SampledValues"), "0,1,2,3,4,5,6");
    EXPECT_EQ(App().iCurrentSet, 2);
    EXPECT_EQ(App().sMeasurementTerm, "00:00:06");
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(Shown().first(), "1");
}

TEST_F(FormF5OperationsTest, DuplicatingTheLastSetPutsTheCopyBeforeIt)
{
    EnterEditor(3);
    Press("cmdSet_1");
    Press("cmdInsDel_0");
    EXPECT_EQ(Currents(), "1,2,3,3");
    EXPECT_EQ(Query("SELECT Time FROM SampledValues WHERE [Set]=3"), "null");
}

TEST_F(FormF5OperationsTest, DeleteMarkedSetsByButtonAndByKey)
{
    EnterEditor(6);
    MarkSets(2, 2);
    Press("cmdInsDel_1");
    EXPECT_EQ(Currents(), "1,4,5,6");
    EXPECT_EQ(App().iCurrentSet, 2);
    EXPECT_EQ(Grid().MarkedCount(), 1);
    Key(Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Currents(), "1,5,6");
    Press("cmdSet_1");
    Key(Qt::Key_Delete);
    Settle();
    EXPECT_EQ(Currents(), "1,5");
    EXPECT_EQ(App().iCurrentSet, 2) << "the last one that there is";
}

TEST_F(FormF5OperationsTest, DeletingEverySetLeavesAnEmptyGridAndNewWorksAgain)
{
    EnterEditor(6);
    QTest::keyClick(&Values(), Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Delete);
    Settle();
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_EQ(Shown(), (QStringList{"", "", "", "", ""}));
    EXPECT_EQ(Cell("flxHeader", 0, 0), "");
    EXPECT_EQ(Box().text(), "");
    Press("cmdNew");
    EXPECT_EQ(Currents(), "1");
    EXPECT_EQ(Shown().first(), "1*");
}

TEST_F(FormF5OperationsTest, InterpolateMarkedSets)
{
    EnterEditor(6);
    MarkSets(3, 1);
    DoubleClick(1, 1);
    Enter(Box(), "99");
    Press("cmdInsDel_2");
    EXPECT_EQ(Currents(), "1,2,3,4,5,6");
    EXPECT_EQ(Stored("Edit", 3), 255);
}

TEST_F(FormF5OperationsTest, InterpolatingARangeThatTouchesTheFirstOrLastSetDoesNothing)
{
    EnterEditor(6);
    for (const auto& [first, count] : {std::pair{1, 2}, {5, 2}, {1, 6}}) {
        MarkSets(first, count);
        Press("cmdInsDel_2");
    }
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "0");
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
}

TEST_F(FormF5OperationsTest, LargerIntervalYieldsFewerSetsEachWithAMarkOfCorrection)
{
    EnterEditor(13);
    Enter(Find<QLineEdit>("txtInterval"), "3");
    EXPECT_EQ(App().dInterval, 3);
    EXPECT_EQ(Shown(), (QStringList{"1*", "2*", "3*", "4*", "5*"}));
    EXPECT_EQ(App().iSetCount, 5);
    EXPECT_EQ(Query("SELECT [Decimal] FROM Overview WHERE Name='Measurement Interval'"), "3.0");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF5OperationsTest, IntervalOutsideItsRangeIsToldAndNothingChanges)
{
    EnterEditor(13);
    auto& box = Find<QLineEdit>("txtInterval");
    for (const char* typed : {"61", "60,5", "0,5", "viel", "1e400", "1.2,3"}) {
        shell.boxes.clear();
        Enter(box, QLatin1String(typed));
        ASSERT_EQ(shell.boxes.size(), 1u) << typed;
        EXPECT_EQ(shell.boxes[0].text, "Der eingegebene Wert muss sich\nzwischen 1 und 60  befinden.") << typed;
        EXPECT_EQ(App().iSetCount, 13);
    }
    EXPECT_EQ(App().dInterval, 1);
}

TEST_F(FormF5OperationsTest, IntervalOfZeroOrBelowBecomesOne)
{
    EnterEditor(13);
    auto& box = Find<QLineEdit>("txtInterval");
    for (const char* typed : {"0", "-7"}) {
        Enter(box, "2");
        EXPECT_EQ(App().dInterval, 2);
        Enter(box, QLatin1String(typed));
        EXPECT_EQ(App().dInterval, 1);
        EXPECT_EQ(box.text(), "1");
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF5OperationsTest, IntervalThatIsTheSameMakesNothingAnew)
{
    EnterEditor(13);
    Enter(Find<QLineEdit>("txtInterval"), "1,0");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "0");
    EXPECT_EQ(Find<QLineEdit>("txtInterval").text(), "1");
}

TEST_F(FormF5OperationsTest, FormerIntervalStandsWhereTheFileCanNotBeWritten)
{
    EnterEditor(13);
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    Enter(Find<QLineEdit>("txtInterval"), "3");
    EXPECT_EQ(App().dInterval, 1);
    EXPECT_EQ(Find<QLineEdit>("txtInterval").text(), "1");
    EXPECT_EQ(App().iSetCount, 13);
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.contains("wird gerade von einem anderen Programm benutzt"));
    other.exec("ROLLBACK");
    EXPECT_FALSE(Entry("mnuUndo").isEnabled());
}

TEST_F(FormF5OperationsTest, FullDiskInTheMiddleLeavesTheRowsAsTheyWere)
{
    EnterEditor(3000);
    const QString before = Query("SELECT group_concat([Set] || ' ' || [I sum]) FROM SampledValues");
    MarkSets(1, 2900);
    {
        const FullDisk disk(static_cast<rlim_t>(QFileInfo(App().sProjectPath).size()) + 8192);
        Press("cmdInsDel_0");
    }
    ASSERT_EQ(shell.boxes.size(), 1u);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht schreiben!"));
    EXPECT_EQ(Query("SELECT group_concat([Set] || ' ' || [I sum]) FROM SampledValues"), before);
    EXPECT_EQ(Shown().first(), "1");
    EXPECT_EQ(App().iSetCount, 3000);
}

TEST_F(FormF5OperationsTest, OtherMethodEstimatesAllSetsAndMarksThem)
{
    EnterEditor(4, 2);
    App().MachineI.record = MotorWithNoLoadData();
    BuildMachineModel();
    EnterAgain();
    auto& box = Find<QComboBox>("cboEngine");
    ASSERT_EQ(box.count(), 2);
    EXPECT_EQ(box.currentText(), "Leistungsbilanz (P)");
    box.setCurrentIndex(0);
    emit box.activated(0);
    Settle();
    EXPECT_EQ(App().iCalcMethod, 0);
    EXPECT_EQ(Query("SELECT group_concat(Method) FROM ComputedValues"), "V,V,V,V");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "4");
    EXPECT_EQ(Query("SELECT [Number] FROM Settings WHERE Name='iCalcMethod'"), "0");
    Undo();
    EXPECT_EQ(App().iCalcMethod, 1);
    EXPECT_EQ(box.currentText(), "Leistungsbilanz (P)");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "0");
}

TEST_F(FormF5OperationsTest, EnergiesAreToldToBeOutdatedUntilTheyAreFormedAnew)
{
    EnterEditor(4);
    EXPECT_TRUE(Find<QLabel>("lblEnergies").isHidden());
    MarkSets(2, 1);
    Press("cmdInsDel_1");
    EXPECT_FALSE(Find<QLabel>("lblEnergies").isHidden());
    TakePicture("editor-energies");
    EXPECT_EQ(Query("SELECT [Number] FROM Settings WHERE Name='bEnergiesOutdated'"), "1");
    EXPECT_EQ(Stored("Wp", 3), 0) << "as they were";
    Entry("mnuEnergies").trigger();
    Settle();
    EXPECT_TRUE(Find<QLabel>("lblEnergies").isHidden());
    EXPECT_EQ(Stored("Wp", 3), 20000);
    Undo();
    EXPECT_FALSE(Find<QLabel>("lblEnergies").isHidden());
    EXPECT_EQ(Stored("Wp", 3), 0);
    Undo();
    EXPECT_TRUE(Find<QLabel>("lblEnergies").isHidden());
}

TEST_F(FormF5OperationsTest, OutdatedEnergiesAreToldAfterTheProjectWasOpenedAgain)
{
    EnterEditor(4);
    Press("cmdInsDel_1");
    window.UnloadPage();
    const QString path = App().sProjectPath;
    App().bEnergiesOutdated = false;
    OpenProject(path);
    EXPECT_TRUE(App().bEnergiesOutdated);
    EnterAgain();
    EXPECT_FALSE(Find<QLabel>("lblEnergies").isHidden());
}

TEST_F(FormF5OperationsTest, LeavingThePageAfterASaveKeepsTheEnergies)
{
    EnterEditor(4);
    Press("cmdInsDel_1");
    window.UnloadAndOpen(kPageMeasure);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(Stored("Wp", 3), 0);
}

TEST_F(FormF5OperationsTest, LeavingThePageWithoutASaveFormsTheEnergiesAnew)
{
    EnterEditor(4);
    Press("cmdInsDel_1");
    Execute("DROP TABLE Overview"); // the header can't be saved any more
    window.UnloadAndOpen(kPageMeasure);
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(Stored("Wp", 3), 20000);
}

TEST_F(FormF5OperationsTest, SecondMachineRunsAgainAfterEachChange)
{
    EnterEditor(4);
    int runs = 0;
    SetHook(Hook::RunSimulation, [&runs] {
        ++runs;
        return true;
    });
    Press("cmdInsDel_0");
    EXPECT_EQ(runs, 0) << "there is none";
    App().bASMSim = true;
    App().MachineII.record = KnownMachine();
    SetHook(Hook::RunSimulation, [this, &runs] {
        ++runs;
        Execute("CREATE TABLE IF NOT EXISTS SimulatedValues ([Set] INTEGER PRIMARY KEY)");
        Execute("INSERT OR REPLACE INTO SimulatedValues VALUES (1)"); // as it does
        return true;
    });
    Press("cmdInsDel_0");
    EXPECT_EQ(runs, 1);
    Undo();
    EXPECT_EQ(runs, 2) << "what the simulation writes doesn't count as another program's";
    Enter(Box(), "222");
    EXPECT_EQ(runs, 3);
}

TEST_F(FormF5OperationsTest, SimulationButtonRunsItAndBeeps)
{
    int runs = 0;
    SetHook(Hook::RunSimulation, [&runs] {
        ++runs;
        return true;
    });
    EnterEditor(4, 2);
    App().lSound = 1;
    int choices = 0;
    shell.dialogs[kDialogSecondMachine] = [&choices] {
        ++choices;
        return false;
    };
    Press("cmdSimulation");
    EXPECT_EQ(choices, 1) << "there is no second machine yet";
    EXPECT_EQ(runs, 0);
    App().bASMSim = true;
    App().MachineII.record = KnownMachine();
    Press("cmdSimulation");
    EXPECT_EQ(runs, 1);
    SetHook(Hook::RunSimulation, {});
    EnterAgain();
    EXPECT_FALSE(IsEnabled("cmdSimulation"));
}

TEST_F(FormF5OperationsTest, MissingSetLeavesTheRowsAlone)
{
    EnterEditor(6);
    Execute("DELETE FROM ComputedValues WHERE [Set]=3");
    const QString before = Currents();
    MarkSets(2, 3);
    Press("cmdInsDel_0");
    EXPECT_EQ(Currents(), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF5OperationsTest, ProjectIsSavedFromTheMenuWhileThePictureIsDrawn)
{
    EnterEditor(20'000);
    Press("cmdInsDel_1");
    Overview().ShowRecording();
    ASSERT_TRUE(Overview().IsGoingOn());
    QCoreApplication::processEvents();
    SaveProjectFromMenu();
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_TRUE(shell.boxes.empty());
    Settle();
}

TEST_F(FormF5OperationsTest, OperationsCanBePressedWhileThePictureIsDrawn)
{
    EnterEditor(20'000);
    for (int i = 0; i < 5; ++i) {
        QCoreApplication::processEvents();
        Find<QPushButton>("cmdInsDel_1").click();
    }
    EXPECT_EQ(App().iSetCount, 19'995);
    EXPECT_TRUE(shell.boxes.empty());
    Settle();
}

} // namespace
} // namespace korvanel::test
