// Old projects with a machine: it goes into the project and into the motor database, and its load is estimated.
#include "core/Hooks.h"
#include "core/Machine.h"
#include "language/ConversionFixture.h"
#include "machine/Algorithms_ASM_Start.h"
#include "project/ProjectCommands.h"

namespace korvanel::test {
namespace {

class OldProjectMachine : public ConversionTest
{
protected:
    OldProjectMachine() { MakeMotorDb(); }
    /// What the space vector method needs.
    static OldFileBuilder SpaceVectorFile()
    {
        OldFileBuilder file;
        file.Text("F107", "Werk C").Text("F108", "Halle 2").Number("F109", 180).Short("R104", 2);
        return file.Number("RZ13", 0.56).Number("RZ14", -1).Short("RZ15", -1).Body(SomeRecords(4));
    }
};

TEST_F(OldProjectMachine, AUsableMachine_GoesIntoProjectAndMotorDatabase)
{
    ASSERT_TRUE(Convert(SpaceVectorFile()));
    EXPECT_EQ(Setting("iNetConfIndex"), "2");
    EXPECT_EQ(Setting("iCalcMethod"), "0") << "without a rating plate there is the space vector method alone";
    const QString columns = "SELECT Hersteller || '|' || Polpaarzahl || '|' || Rs || '|' || Schaltungsart || '|' || "
                            "Masse || '|' || Mreib FROM Motor";
    EXPECT_EQ(QueryTarget(columns), "Werk C Halle 2|2|0.56|D|180.0|1");
    EXPECT_EQ(QueryMotors(columns), "Werk C Halle 2|2|0.56|D|180.0|1");
    EXPECT_EQ(QueryTarget("SELECT set_ID FROM Motor"), "1");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(OldProjectMachine, TheLoadOfEachSet_IsEstimatedByTheOrdinaryFormulas)
{
    ASSERT_TRUE(Convert(SpaceVectorFile()));
    EXPECT_EQ(QueryTarget("SELECT group_concat(Method) FROM ComputedValues"), "V,V,V,V");
    const double phi = QueryTarget("SELECT [phi sum] FROM SampledValues WHERE [Set]=2").toDouble();
    ASSERT_TRUE(App().bModelValid);
    EstimateLoad(400, 11, 50, 3001, phi, 0);
    EXPECT_NEAR(QueryTarget("SELECT M FROM ComputedValues WHERE [Set]=2").toDouble(), App().Estimate.M, 1e-9);
    EXPECT_NE(App().Estimate.M, 0);
}

TEST_F(OldProjectMachine, TheProject_OpensWithItsMachine)
{
    ASSERT_TRUE(Convert(SpaceVectorFile()));
    SetHook(Hook::LoadMachines, Done(LoadProjectMachines));
    shell.openPaths = {target};
    OpenProjectFromMenu();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(App().bModelValid);
    EXPECT_EQ(App().MachineI.record.Hersteller, "Werk C Halle 2");
}

TEST_F(OldProjectMachine, AMachineThatCannotBeUsed_LeavesSetsOfThreePhases)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Newer().Short("F201", -1).Number("RZ13", 0.5).Body(SomeRecords(2))));
    EXPECT_EQ(Setting("iNetConfIndex"), "1");
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM sqlite_master WHERE name='Motor'"), "0");
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM pragma_table_info('ComputedValues') WHERE name='Method'"), "0");
    EXPECT_EQ(QueryMotors("SELECT Rs FROM Motor"), "0.5") << "the old file had one";
}

TEST_F(OldProjectMachine, WithoutAnythingKnown_NoMachineIsEntered)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Newer().Short("F201", -1).Body(SomeRecords(2))));
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), "0");
}

TEST_F(OldProjectMachine, DataOfAMachineInAProjectWithoutOne_AreNotEntered)
{
    ASSERT_TRUE(Convert(OldFileBuilder().Number("RZ13", 0.5).Short("R104", 2).Body(SomeRecords(2))));
    EXPECT_EQ(Setting("iNetConfIndex"), "0");
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), "0");
}

TEST_F(OldProjectMachine, TheMachineIsReadBehindTheSetsToo)
{
    OldFileBuilder file;
    file.Body(SomeRecords(3)).Short("R104", 2).Number("RZ13", 0.56).Number("RZ14", 1);
    ASSERT_TRUE(Convert(file));
    EXPECT_EQ(Setting("iNetConfIndex"), "2");
    EXPECT_EQ(QueryTarget("SELECT group_concat(Method) FROM ComputedValues"), "V,V,V");
}

TEST_F(OldProjectMachine, AMissingMotorDatabase_IsToldAndTheProjectStands)
{
    QFile::remove(App().sMotorDbPath);
    ASSERT_TRUE(Convert(SpaceVectorFile()));
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(QueryTarget("SELECT count(*) FROM Motor"), "1");
}

TEST_F(OldProjectMachine, AnIncompleteMachine_IsEnteredWithEachConversion)
{
    for (const char* count : {"1", "2"}) {
        QFile::remove(target);
        ASSERT_TRUE(Convert(SpaceVectorFile()));
        EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), count) << "what is unknown is never the same";
    }
}

TEST_F(OldProjectMachine, AFailedConversion_EntersNoMachine)
{
    OldFileBuilder file = SpaceVectorFile();
    file.Body(SomeRecords(2) + Record(400, 10, 50, 3000, 3e38F));
    EXPECT_FALSE(Convert(file));
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), "0");
    EXPECT_EQ(FilesMade(), QStringList());
}

} // namespace
} // namespace korvanel::test
