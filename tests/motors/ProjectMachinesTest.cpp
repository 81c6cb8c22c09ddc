// The machines of a project: loaded with it, compared with the motor database, copied into it.
#include "motors/ProjectMachinesFixture.h"

#include "machine/Algorithms_ASM_Start.h"
#include "support/FullDisk.h"

namespace korvanel::test {
namespace {

const QString kQuestion =
    QStringLiteral("'Werk A'\nDiese ASM-Maschine ist nicht in der aktiven Datenbank verzeichnet.\n"
                   "Dadurch ist die Nutzung des aktuellen Projektes nur eingeschränkt möglich.\n"
                   "Möchten Sie die Maschine jetzt in die Datenbank aufnehmen?");

// Loading.

TEST_F(ProjectMachines, Load_TakesTheFirstMachineAndBuildsItsModel)
{
    for (const int netConf : {2, 5}) {
        MakeProject(netConf, true, false);
        if (netConf == 2)
            Add({RatedMachine(), KnownMachine()});
        Open();
        EXPECT_TRUE(App().bModelValid);
        EXPECT_TRUE(App().bMotorDbCheck);
        EXPECT_FALSE(App().bASMSim);
        EXPECT_EQ(App().MachineI.record.Pmech, 18500);
        EXPECT_EQ(App().MachineI.record.Tth, 1800);
        EXPECT_EQ(App().MachineI.record.set_ID, 2) << "the number in the motor database";
        EXPECT_TRUE(shell.boxes.empty());
        App().bProjectOpen = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ProjectMachines, Load_TakesTheSecondMachineWithASimulation)
{
    MakeProject(2, true, true);
    Add({KnownMachine()});
    Open();
    EXPECT_TRUE(App().bASMSim);
    EXPECT_EQ(App().MachineII.record.Pmech, 18500);
    EXPECT_EQ(App().MachineII.record.set_ID, 1);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ProjectMachines, Load_WithoutMachinesClearsBothFlags)
{
    MakeProject(2, false, false);
    ExecuteMotors("DELETE FROM Motor");
    App().bASMSim = true; // a new project keeps it
    App().bModelValid = true;
    Open();
    EXPECT_FALSE(App().bModelValid);
    EXPECT_FALSE(App().bASMSim);
    EXPECT_FALSE(App().bMotorDbCheck);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ProjectMachines, Load_OfAnEmptyTableClearsBothFlags)
{
    MakeProject(2, true, true);
    Execute("DELETE FROM Motor");
    Open();
    EXPECT_FALSE(App().bModelValid);
    EXPECT_FALSE(App().bASMSim);
}

TEST_F(ProjectMachines, Load_InANetConfigurationWithoutAMachineIgnoresTheTable)
{
    for (const int netConf : {0, 1, 3, 4, 6}) {
        MakeProject(netConf, true, true);
        Open();
        EXPECT_FALSE(App().bModelValid) << netConf;
        EXPECT_FALSE(App().bASMSim) << netConf;
        EXPECT_FALSE(App().MachineI.record.Pmech) << netConf;
        EXPECT_TRUE(shell.boxes.empty()) << netConf;
        App().bProjectOpen = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ProjectMachines, Load_AsksForAMachineThatTheDatabaseDoesNotHold)
{
    MakeProject(2, true, false);
    shell.answers = {Answer::Yes};
    Open();
    ASSERT_EQ(shell.BoxTexts(), QStringList{kQuestion});
    EXPECT_EQ(shell.boxes[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(shell.boxes[0].icon, BoxIcon::Question);
    EXPECT_EQ(MotorCount(), "1");
    EXPECT_EQ(App().MachineI.record.set_ID, 1);
    EXPECT_TRUE(App().bModelValid);
}

// Building the model comes after the question and sets the flag again.
TEST_F(ProjectMachines, Load_BuildsTheModelAlsoOfAMachineThatIsNotAdded)
{
    MakeProject(2, true, false);
    shell.answers = {Answer::No};
    Open();
    EXPECT_EQ(MotorCount(), "0");
    EXPECT_TRUE(App().bModelValid);
    EXPECT_FALSE(App().MachineI.record.set_ID);
}

TEST_F(ProjectMachines, Load_NoForTheSecondMachineEndsTheSimulation)
{
    MakeProject(2, true, true);
    shell.answers = {Answer::No, Answer::No};
    Open();
    EXPECT_EQ(shell.BoxTexts(), (QStringList{kQuestion, kQuestion}));
    EXPECT_FALSE(App().bASMSim);
    EXPECT_TRUE(App().bModelValid);
}

TEST_F(ProjectMachines, Load_AddsAMachineOfWhichAnythingIsUnknownEachTime)
{
    CreateProject(2);
    CopyMachineIntoProject(RatedMachine(), WhichMachine::I);
    for (const char* expected : {"1", "2", "3"}) {
        App().bProjectOpen = false;
        shell.answers = {Answer::Yes};
        Open();
        EXPECT_EQ(MotorCount(), expected);
    }
}

TEST_F(ProjectMachines, Load_WithoutTheDatabaseTellsItOnceAndKeepsTheMachines)
{
    MakeProject(2, true, true);
    App().sMotorDbPath = PathOf("nirgends.MDB");
    Open();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("nirgends.MDB")});
    EXPECT_EQ(shell.calls.count("ShowDialog FormH11"), 1);
    EXPECT_TRUE(App().bModelValid);
    EXPECT_TRUE(App().bASMSim);
    EXPECT_FALSE(App().MachineI.record.set_ID); // the project's own number names no row of the database
}

TEST_F(ProjectMachines, Load_GoesOnWithTheDatabaseThatTheUserChose)
{
    MakeProject(2, true, false);
    Add({KnownMachine()});
    const QString present = App().sMotorDbPath;
    App().sMotorDbPath = PathOf("nirgends.MDB");
    shell.dialogs[kDialogMotorDatabase] = [&present] {
        UseMotorDatabase(present);
        return true;
    };
    Open();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(App().MachineI.record.set_ID, 1);
    EXPECT_TRUE(App().bModelValid);
}

TEST_F(ProjectMachines, Load_OfRowsOfOtherTypesIsABadFormat)
{
    MakeProject(2, true, false);
    Execute("UPDATE Motor SET U='viel'");
    OpenRecentProject(App().sProjectPath);
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Ungültiges Dateiformat:\n" + App().sProjectPath});
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ProjectMachines, Use_OfAnotherDatabaseComparesTheMachinesOfTheOpenProject)
{
    MakeProject(2, true, false);
    Add({KnownMachine()});
    Open();
    MakeMotorDb("andere.MDB");
    shell.answers = {Answer::Yes};
    UseMotorDatabase(PathOf("andere.MDB"));
    EXPECT_EQ(shell.BoxTexts(), QStringList{kQuestion});
    EXPECT_EQ(MotorCount(), "1");
}

// The check.

TEST_F(ProjectMachines, Check_IsMadeOnlyWhenItIsDue)
{
    MachineRecord machine = KnownMachine();
    CheckMachineInDb(machine, WhichMachine::I);
    EXPECT_TRUE(shell.boxes.empty());
    App().bMotorDbCheck = true;
    App().bModelValid = App().bASMSim = true;
    CheckMachineInDb(machine, WhichMachine::I);
    EXPECT_EQ(shell.BoxTexts(), QStringList{kQuestion});
    EXPECT_FALSE(App().bModelValid);
    EXPECT_TRUE(App().bASMSim);
    CheckMachineInDb(machine, WhichMachine::II);
    EXPECT_FALSE(App().bASMSim);
}

TEST_F(ProjectMachines, Check_ShowsAStrangeRemarkOnOneShortLine)
{
    App().bMotorDbCheck = true;
    MachineRecord machine = KnownMachine();
    machine.Hersteller = "O'Brien #1\n100 %; [x]" + QString(30'000, u'x');
    CheckMachineInDb(machine, WhichMachine::I);
    ASSERT_EQ(shell.boxes.size(), 1U);
    const QStringList lines = shell.boxes[0].text.split(u'\n');
    EXPECT_EQ(lines.size(), 4);
    EXPECT_TRUE(lines[0].startsWith("'O'Brien #1 100 %; [x]xxx")) << lines[0].toStdString();
    EXPECT_LT(lines[0].size(), 250);
}

TEST_F(ProjectMachines, Check_AsksOnceIfTheChoiceOfAFileHasCheckedAlready)
{
    MakeProject(2, true, false);
    Add({KnownMachine()});
    Open();
    MakeMotorDb("andere.MDB");
    const QString chosen = App().sMotorDbPath;
    App().sMotorDbPath = PathOf("nirgends.MDB");
    shell.dialogs[kDialogMotorDatabase] = [&chosen] {
        UseMotorDatabase(chosen);
        return true;
    };
    shell.answers = {Answer::No, Answer::No};
    CheckMachineInDb(App().MachineI.record, WhichMachine::I);
    EXPECT_EQ(shell.BoxTexts().count(kQuestion), 1);
}

TEST_F(ProjectMachines, Check_TellsWhenTheMachineCanNotBeAdded)
{
    App().bMotorDbCheck = true;
    App().bModelValid = true;
    shell.answers = {Answer::Yes};
    SQLite::Database other(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    MachineRecord machine = KnownMachine();
    CheckMachineInDb(machine, WhichMachine::I);
    EXPECT_EQ(shell.boxes.size(), 2U);
    EXPECT_EQ(shell.boxes.back().title, "Fehlermeldung");
    EXPECT_FALSE(machine.set_ID);
}

// Copying.

TEST_F(ProjectMachines, Copy_MakesTheTableAndPutsTheMachineIn)
{
    CreateProject(2);
    MachineRecord machine = KnownMachine();
    machine.set_ID = 17;
    EXPECT_TRUE(CopyMachineIntoProject(machine, WhichMachine::I));
    EXPECT_EQ(Query("SELECT set_ID||'|'||Hersteller||'|'||Pmech||'|'||Tth FROM Motor"), "1|Werk A|18.5|30.0");
    EXPECT_EQ(machine.set_ID, 17);
    EXPECT_TRUE(App().bMotorDbCheck);
    EXPECT_TRUE(CopyMachineIntoProject(machine, WhichMachine::II));
    EXPECT_EQ(Query("SELECT group_concat(set_ID, ',') FROM Motor"), "1,2");
    EXPECT_EQ(ColumnNames("Motor"), QueryMotors("SELECT group_concat(name, ',') FROM pragma_table_info('Motor')"));
}

TEST_F(ProjectMachines, Copy_OfTheSameMachineLeavesTheRow)
{
    CreateProject(2);
    EXPECT_TRUE(CopyMachineIntoProject(KnownMachine(), WhichMachine::I));
    App().bEvaluated = 1;
    App().bMotorDbCheck = false;
    EXPECT_FALSE(CopyMachineIntoProject(KnownMachine(), WhichMachine::I));
    EXPECT_EQ(App().bEvaluated, 1);
    EXPECT_TRUE(App().bMotorDbCheck);
}

TEST_F(ProjectMachines, Copy_OfAnotherMachineReplacesTheRowOnly)
{
    CreateProject(2);
    CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
    CopyMachineIntoProject(KnownMachine(), WhichMachine::II);
    App().bEvaluated = 1;
    EXPECT_TRUE(CopyMachineIntoProject(RatedMachine(), WhichMachine::I));
    EXPECT_EQ(Query("SELECT group_concat(set_ID || Hersteller, ',') FROM Motor"), "1Werk B,2Werk A");
    EXPECT_EQ(App().bEvaluated, 0);
}

TEST_F(ProjectMachines, Copy_OfAMachineWithAnythingUnknownReplacesTheRowEachTime)
{
    CreateProject(2);
    EXPECT_TRUE(CopyMachineIntoProject(RatedMachine(), WhichMachine::I));
    EXPECT_TRUE(CopyMachineIntoProject(RatedMachine(), WhichMachine::I));
    EXPECT_EQ(Query("SELECT count(*) FROM Motor"), "1");
}

TEST_F(ProjectMachines, Copy_ThatFailsIsToldAndLeavesTheProject)
{
    CreateProject(2);
    CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
    MachineRecord broken = RatedMachine();
    broken.Hersteller = QString(200'000, u'x');
    EXPECT_FALSE(CopyMachineIntoProject(broken, WhichMachine::I));
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains(App().sProjectPath));
    EXPECT_EQ(Query("SELECT Hersteller FROM Motor"), "Werk A");
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ProjectMachines, SaveAs_CarriesTheMachinesInUseIntoTheCopy)
{
    MakeProject(2, true, false);
    Add({KnownMachine()});
    Open();
    const QString former = App().sProjectPath;
    App().MachineI.record = RatedMachine(); // picked on the page and not yet left
    App().MachineII.record = KnownMachine();
    App().bASMSim = true;
    shell.savePaths = {PathOf("kopie.MDB")};
    SaveProjectAs();
    EXPECT_EQ(App().sProjectPath, PathOf("kopie.MDB"));
    EXPECT_EQ(Query("SELECT group_concat(set_ID || Hersteller, ',') FROM Motor"), "1Werk B,2Werk A");
    EXPECT_EQ(QueryFile(former, "SELECT group_concat(set_ID || Hersteller, ',') FROM Motor"), "1Werk A");
}

TEST_F(ProjectMachines, SaveAs_OfAProjectWithoutAMachineMakesNoTable)
{
    for (const int netConf : {0, 2}) {
        CreateProject(netConf);
        shell.savePaths = {PathOf("kopie%1.MDB").arg(netConf)};
        SaveProjectAs();
        EXPECT_EQ(Query("SELECT count(*) FROM sqlite_schema WHERE name='Motor'"), "0") << netConf;
        App().bProjectOpen = false;
        QFile::remove(PathOf("test.MDB"));
    }
}

// A new project.

TEST_F(ProjectMachines, NewProject_ForgetsTheMachines)
{
    App().MachineI.record = App().MachineII.record = KnownMachine();
    App().MachineI.status.fill(true);
    App().MachineI.model.Pelec_n = 1;
    App().MachineI.model.cosphi_o = 0.085;
    App().Estimate.n = 1500;
    App().DiagramLimits.fill(1);
    App().ModelErrors = 3;
    App().bModelValid = App().bMotorDbCheck = true;
    ResetProjectData();
    EXPECT_FALSE(App().MachineI.record.Pmech || App().MachineII.record.Pmech);
    EXPECT_EQ(App().MachineI.status, MachineStatus{});
    EXPECT_EQ(App().MachineI.model.Pelec_n, 0);
    EXPECT_EQ(App().MachineI.model.cosphi_o, 0.085); // as the build before has left it
    EXPECT_EQ(App().Estimate.n, 0);
    EXPECT_EQ(App().DiagramLimits, (DiagramLimitList{500, 10, 50, 100, 50, 5000}));
    EXPECT_EQ(App().ModelErrors, 0);
    EXPECT_FALSE(App().bModelValid || App().bMotorDbCheck);
}

} // namespace
} // namespace korvanel::test
