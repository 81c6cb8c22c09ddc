// What becomes of the rows of a second machine where something is in the way.
#include "core/texts/DefaultTexts.h"
#include "machine/Algorithms_ASM_Start.h"
#include "machine/ExpectClose.h"
#include "simulation/SimulationCases.h"
#include "support/FullDisk.h"

#include <QFileInfo>

#include <stdexcept>

namespace korvanel::test {
namespace {

struct UnfitMachine
{
    const char* name;
    void (*make)(MachineRecord& machine);
    int message;
};

void PrintTo(const UnfitMachine& machine, std::ostream* out)
{
    *out << machine.name;
}

class UnfitSecondMachine : public Simulation, public ::testing::WithParamInterface<UnfitMachine>
{
};

TEST_P(UnfitSecondMachine, IsToldAndLeavesAnEmptyTable)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    ASSERT_FALSE(StoredSets().empty());
    GetParam().make(App().MachineII.record);
    App().ModelErrors = 0;
    EXPECT_FALSE(RunSimulation());
    EXPECT_EQ(shell.BoxTexts(), QStringList{ModelMessages(GetParam().message)});
    EXPECT_EQ(App().ModelErrors, 1);
    EXPECT_TRUE(StoredSets().empty());
    EXPECT_EQ(Query("SELECT count(*) FROM sqlite_master WHERE name='SimulatedValues'"), "1");
}

TEST_P(UnfitSecondMachine, LeavesNoErrorBehindOnceItIsFit)
{
    RecordSome();
    GetParam().make(App().MachineII.record);
    EXPECT_FALSE(PrepareMachine2());
    App().MachineII.record = SecondMotor();
    EXPECT_TRUE(RunSimulation());
    EXPECT_EQ(App().ModelErrors, 0);
    EXPECT_EQ(StoredSets().size(), 7U);
}

INSTANTIATE_TEST_SUITE_P(
    Machines, UnfitSecondMachine,
    ::testing::Values(UnfitMachine{"nothing_known", [](MachineRecord& m) { m = {}; }, 1},
                      UnfitMachine{"no_power", [](MachineRecord& m) { m.Pmech.reset(); }, 1},
                      UnfitMachine{"no_pole_pairs", [](MachineRecord& m) { m.Polpaarzahl = 0; }, 1},
                      UnfitMachine{"no_slip", [](MachineRecord& m) { m.n = 1500; }, 1},
                      UnfitMachine{"half_the_speed", [](MachineRecord& m) { m.n = 750; }, 1},
                      UnfitMachine{"much_no_load_power", [](MachineRecord& m) { m.Po = 25000; }, 4},
                      UnfitMachine{"negative_no_load_power", [](MachineRecord& m) { m.Po = -25000; }, 4},
                      UnfitMachine{"no_load_test_at_53_Hz", [](MachineRecord& m) { m.fo = 53; }, 8}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(Simulation, NoLoadTestAtFivePercentMoreFrequency_IsStillTaken)
{
    App().MachineII.record.fo = 52.5;
    EXPECT_TRUE(PrepareMachine2());
    EXPECT_GT(App().MachineII.model.Po_rech, 0);
}

TEST_F(Simulation, MachineOfInfiniteNumbers_EndsInAFaultWithTheFormerRows)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    App().MachineII.record.Mkipp_Mn = 1e308;
    EXPECT_THROW(RunSimulation(), ArithmeticFault);
    EXPECT_EQ(StoredSets(), before);
}

TEST_F(Simulation, FileThatAnotherProgramWrites_IsToldAndTheFormerRowsStay)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    App().MachineII.record.M = 90;
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE; UPDATE SampledValues SET t=t");
        EXPECT_FALSE(RunSimulation());
        other.exec("ROLLBACK");
    }
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains(App().sProjectPath));
    EXPECT_EQ(StoredSets(), before);
    EXPECT_TRUE(RunSimulation());
    EXPECT_NE(StoredSets(), before);
}

TEST_F(Simulation, UnfitMachineWhileAnotherProgramWrites_LeavesTheFormerRows)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    App().MachineII.record.Pmech.reset();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE; UPDATE SampledValues SET t=t");
    EXPECT_FALSE(RunSimulation());
    other.exec("ROLLBACK");
    EXPECT_EQ(shell.boxes.size(), 2U) << "the machine and the file";
    EXPECT_EQ(StoredSets(), before);
}

TEST_F(Simulation, FullDisk_IsToldAndTheFormerRowsStay)
{
    constexpr int kManySets = 3000;
    RecordSome(5);
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    Execute("DELETE FROM SampledValues; DELETE FROM ComputedValues; VACUUM");
    RecordSome(kManySets);
    {
        const FullDisk disk(static_cast<rlim_t>(QFileInfo(App().sProjectPath).size()) + 4096);
        EXPECT_FALSE(RunSimulation());
    }
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith(texts::cannotWriteFile));
    EXPECT_EQ(StoredSets(), before);
    EXPECT_TRUE(RunSimulation());
    EXPECT_EQ(StoredSets().size(), static_cast<std::size_t>(kManySets));
}

TEST_F(Simulation, MissingFile_IsTold)
{
    RecordSome();
    App().sProjectPath = PathOf(QStringLiteral("elsewhere.MDB"));
    EXPECT_FALSE(RunSimulation());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_FALSE(QFile::exists(App().sProjectPath));
}

struct HostileSet
{
    const char* name;
    const char* sql;
};

void PrintTo(const HostileSet& set, std::ostream* out)
{
    *out << set.name;
}

class HostileSets : public Simulation, public ::testing::WithParamInterface<HostileSet>
{
};

TEST_P(HostileSets, EndInAFaultWithTheFormerRows)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    Execute(QLatin1String(GetParam().sql));
    EXPECT_THROW(RunSimulation(), ArithmeticFault);
    EXPECT_EQ(StoredSets(), before);
    EXPECT_FALSE(IsProjectDbOpen());
    EXPECT_FALSE(QFile::exists(App().sProjectPath + "-journal"));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(shell.calls.last(), QStringLiteral("ShowProgress %1").arg(static_cast<int>(Progress::End)));
}

INSTANTIATE_TEST_SUITE_P(
    Sets, HostileSets,
    ::testing::Values(HostileSet{"infinite_torque", "UPDATE ComputedValues SET M=9e999 WHERE [Set]=6"},
                      HostileSet{"huge_torque", "UPDATE ComputedValues SET M=1e308 WHERE [Set]=6"},
                      HostileSet{"huge_negative_torque", "UPDATE ComputedValues SET M=-1e308 WHERE [Set]=6"},
                      HostileSet{"infinite_voltage", "UPDATE SampledValues SET [U sum]=9e999 WHERE [Set]=6"},
                      HostileSet{"huge_voltage", "UPDATE SampledValues SET [U sum]=1e308 WHERE [Set]=6"},
                      HostileSet{"infinite_frequency", "UPDATE SampledValues SET [f sum]=9e999 WHERE [Set]=6"},
                      HostileSet{"negative_frequency", "UPDATE SampledValues SET [f sum]=-50 WHERE [Set]=6"},
                      HostileSet{"infinite_time", "UPDATE SampledValues SET t=9e999 WHERE [Set]=7"},
                      HostileSet{"huge_time", "UPDATE SampledValues SET t=1e308 WHERE [Set]=7"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(Simulation, HostileMachine_EndsInAFaultWithTheFormerRows)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> before = StoredSets();
    for (const double value : {1e308, kInfinity}) {
        App().MachineII.record = SecondMotor();
        App().MachineII.record.I = value;
        EXPECT_THROW(RunSimulation(), ArithmeticFault) << value;
        EXPECT_EQ(StoredSets(), before);
    }
}

} // namespace
} // namespace korvanel::test
