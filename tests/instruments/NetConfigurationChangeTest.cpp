#include "instruments/NetConfigurationChange.h"

#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

class NetConfigurationChange : public ProjectTest
{
protected:
    void AppendOneSet()
    {
        OpenDbGuarded();
        App().MeasuredRow.lSet = 1;
        ASSERT_TRUE(AppendMeasuredRow());
        CloseDbGuarded();
    }
};

TEST_F(NetConfigurationChange, WithoutSetsRebuildsTheTablesAndSavesTheSettings)
{
    CreateProject(0);
    EXPECT_TRUE(ChangeNetConfiguration(6));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(ColumnNames("SampledValues"), "Set,Time,U sum,U 1,U 2,U 3,f sum,t,Edit");
    EXPECT_EQ(Query("SELECT Number FROM Settings WHERE Name='iNetConfIndex'"), "6");
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(App().ColumnLayout, ColumnLayoutOf(6));
}

TEST_F(NetConfigurationChange, WithSetsAsksWithNoAsThePreset)
{
    CreateProject(0);
    AppendOneSet();
    const QByteArray before = ContentOf("test.MDB");
    shell.answers = {Answer::No};
    EXPECT_FALSE(ChangeNetConfiguration(2));
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text,
              "Durch diese Änderung werden die bereits aufgezeichneten Messwerte gelöscht.\nFortfahren?");
    EXPECT_EQ(shell.boxes[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(shell.boxes[0].preset, Answer::No);
    EXPECT_EQ(App().iNetConfIndex, 0);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(ContentOf("test.MDB"), before);
}

TEST_F(NetConfigurationChange, YesDeletesTheSetsAndResetsTheState)
{
    CreateProject(0);
    AppendOneSet();
    App().CurrentRow.dI[kSum] = 4;
    App().bEvaluated = 1;
    App().bASMSim = true;
    shell.answers = {Answer::Yes};
    EXPECT_TRUE(ChangeNetConfiguration(2));
    EXPECT_EQ(CountSets(), 0);
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_EQ(App().CurrentRow.dI[kSum], 0);
    EXPECT_EQ(App().bEvaluated, 0);
    EXPECT_FALSE(App().bASMSim);
    EXPECT_TRUE(shell.calls.contains("EnableMachineMenu 1"));
}

TEST_F(NetConfigurationChange, LeavingTheMachineConfigurationsClearsTheMachine)
{
    CreateProject(2);
    App().bModelValid = true;
    EXPECT_TRUE(ChangeNetConfiguration(5));
    EXPECT_TRUE(App().bModelValid);
    EXPECT_TRUE(ChangeNetConfiguration(1));
    EXPECT_FALSE(App().bModelValid);
    EXPECT_TRUE(shell.calls.contains("EnableMachineMenu 0"));
}

TEST_F(NetConfigurationChange, LeavingTheMachineConfigurationsClearsTheMachineInTheFileAndTheHeading)
{
    CreateProject(2);
    Execute("CREATE TABLE Motor(set_ID INTEGER, Pmech REAL); INSERT INTO Motor VALUES(1, 18.5),(2, 22)");
    App().MachineI.record.Pmech = 18500;
    App().dtMeasurementBegin = App().dtMeasurementEnd = QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26), Qt::UTC);
    App().sMeasurementTerm = "00:10:00";
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        EXPECT_FALSE(ChangeNetConfiguration(0));
    }
    EXPECT_EQ(App().MachineI.record.Pmech, 18500) << "what failed has changed nothing";
    EXPECT_EQ(App().sMeasurementTerm, "00:10:00");
    EXPECT_EQ(Query("SELECT count(*) FROM Motor"), "2");
    EXPECT_TRUE(ChangeNetConfiguration(0));
    EXPECT_EQ(Query("SELECT count(*) FROM Motor"), "0");
    EXPECT_FALSE(App().MachineI.record.Pmech.has_value());
    EXPECT_EQ(App().sMeasurementTerm, "");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Measurement Term'"), "");
}

TEST_F(NetConfigurationChange, SamplesWithoutTheirComputedHalfAreNotLostWithoutAQuestion)
{
    CreateProject(0);
    AppendOneSet();
    Execute("DROP TABLE ComputedValues");
    shell.answers = {Answer::No};
    EXPECT_FALSE(ChangeNetConfiguration(2));
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "1");
}

TEST_F(NetConfigurationChange, WhatCantBeReadIsNotGivenUp)
{
    CreateProject(0);
    AppendOneSet();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        EXPECT_FALSE(ChangeNetConfiguration(2));
    }
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht lesen!"));
    EXPECT_EQ(App().iNetConfIndex, 0);
    EXPECT_EQ(CountSets(), 1);
}

TEST_F(NetConfigurationChange, TheSameConfigurationChangesNothing)
{
    CreateProject(3);
    AppendOneSet();
    EXPECT_TRUE(ChangeNetConfiguration(3));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(CountSets(), 1);
}

TEST_F(NetConfigurationChange, FailureIsToldAndLeavesFileAndBlock)
{
    CreateProject(0);
    Execute("DROP TABLE Settings"); // the last step of the change can't work
    const QByteArray before = ContentOf("test.MDB");
    EXPECT_FALSE(ChangeNetConfiguration(4));
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(App().iNetConfIndex, 0);
    EXPECT_EQ(ColumnNames("SampledValues"), "Set,Time,U sum,I sum,f sum,P sum,phi sum,t,Edit");
    EXPECT_EQ(ContentOf("test.MDB"), before);
}

} // namespace
} // namespace korvanel::test
