// The measured load cycle on a second machine: what it does at the edges of its range, and which rows are stored of it.
#include "core/texts/DefaultTexts.h"
#include "machine/Algorithms_ASM_Start.h"
#include "machine/ExpectClose.h"
#include "simulation/SimulationCases.h"
#include "support/FullDisk.h"

#include <QFileInfo>

#include <stdexcept>

namespace korvanel::test {
namespace {

TEST_F(Simulation, RatedPoint_HasTheRatedSpeed)
{
    const SimulatedPoint point = PointOf(120.8, 400, 50);
    ExpectClose(point.n, 1462.5);
    ExpectClose(point.Pmech, 120.8 * 1462.5 * std::numbers::pi / 30);
}

TEST_F(Simulation, Speed_FallsInAStraightLineFromTheSynchronousOne)
{
    EXPECT_EQ(PointOf(0, 400, 50).n, 1500);
    ExpectClose(PointOf(60.4, 400, 50).n, 1481.25);
    ExpectClose(PointOf(-60.4, 400, 50).n, 1518.75);
    ExpectClose(PointOf(120.8, 200, 50).n, 1350); // a quarter of the torque at the same slip
    ExpectClose(PointOf(120.8, 200, 25).n, 712.5);
}

// The estimator's law knows the torque that follows from power and speed, the line here that of the record.
TEST_F(Simulation, SameMachine_HasNotTheSpeedThatWasEstimated)
{
    App().MachineI.record = SecondMotor();
    BuildMachineModel();
    App().MachineII.record.M = 100;
    EstimateLoad(400, 32.85, 50, App().MachineI.model.Pelec_n, 26, 1);
    const LoadEstimate estimate = App().Estimate;
    EXPECT_NEAR(estimate.n, 1462.5, 1);
    EXPECT_LT(PointOf(estimate.M, 400, 50).n, estimate.n - 5);
}

TEST_F(Simulation, WithoutFrequency_OnlyTheLoadLossesAreDrawn)
{
    const SimulatedPoint point = PointOf(80, 400, 0);
    const double k = SecondMachineOf(App().MachineII.record, App().MachineII.model).k;
    EXPECT_GT(k, 0);
    EXPECT_EQ(point.n, 0);
    EXPECT_EQ(point.Pmech, 0);
    ExpectClose(point.P, 80 * 80 * k);
    EXPECT_EQ(point.eta, 0);
    EXPECT_EQ(point.loss, point.P);
}

TEST_F(Simulation, WithoutVoltage_TheMachineStands)
{
    const SimulatedPoint point = PointOf(80, 0, 50);
    EXPECT_EQ(point.n, 0);
    EXPECT_EQ(point.Pmech, 0);
    EXPECT_GT(point.P, 0);
}

TEST_F(Simulation, SetOfZeros_StaysZero)
{
    const SimulatedPoint point = PointOf(0, 0, 0);
    EXPECT_EQ(point.n, 0);
    EXPECT_EQ(point.Pmech, 0);
    EXPECT_EQ(point.P, 0);
    EXPECT_EQ(point.eta, 0);
    EXPECT_EQ(point.loss, 0);
}

// Gains of a negative k are no work of the shaft.
TEST_F(Simulation, PowerBelowTheNoLoadPower_HasNoEfficiency)
{
    const SecondMachine machine{.U = 400, .f = 50, .M = 120, .polePairs = 2, .slip = 0.025, .Po = 5000, .k = -1};
    const SimulatedPoint point = SimulatedPointAt(machine, 160, 400, 50);
    ASSERT_GT(point.Pmech, 0);
    ASSERT_GT(point.P, 0);
    ASSERT_LT(point.P, 5000 * std::pow(point.n / 1500, 3));
    EXPECT_EQ(point.eta, 0);
}

// The no-load power fits beside the load losses at rated speed, but not at the synchronous one.
TEST_F(Simulation, NegativeK_DrawsLessThanShaftAndNoLoadPower)
{
    App().MachineII.record.Po = 2000;
    const SimulatedPoint point = PointOf(240, 400, 50);
    EXPECT_GT(App().MachineII.model.k_maschine, 0);
    EXPECT_EQ(App().MachineII.model.Po_rech, 2000);
    const SecondMachine machine = SecondMachineOf(App().MachineII.record, App().MachineII.model);
    EXPECT_LT(machine.k, 0);
    const double noLoad = 2000 * std::pow(point.n / 1500, 3);
    EXPECT_LT(point.P, point.Pmech + noLoad);
    ExpectClose(point.P, point.Pmech + noLoad + 240 * 240 * machine.k);
}

TEST_F(Simulation, NoLoadPowerWithoutRoom_IsDroppedBeforeTheRows)
{
    App().MachineII.record.Po = 2500;
    const SimulatedPoint point = PointOf(0, 400, 50);
    EXPECT_EQ(App().MachineII.model.Po_rech, 0);
    EXPECT_EQ(point.P, 0);
    EXPECT_GT(SecondMachineOf(App().MachineII.record, App().MachineII.model).k, 0);
}

TEST_F(Simulation, Generator_DeliversWhatItDoesNotLose)
{
    App().MachineII.record = Generator();
    App().MachineII.record.Polpaarzahl = 2;
    App().MachineII.record.M = -115.466;
    const SimulatedPoint point = PointOf(-115.466, 400, 50);
    EXPECT_GT(App().MachineII.model.Pelec_n, 0) << "its magnitude";
    ExpectClose(point.n, 1530);
    EXPECT_LT(point.P, 0);
    EXPECT_GT(point.P, point.Pmech);
    EXPECT_GT(point.eta, 0.8);
    EXPECT_LT(point.eta, 1);
    ExpectClose(point.loss, point.P - point.Pmech);
}

TEST_F(Simulation, TorqueThatIsNotKnown_CountsAsNone)
{
    App().MachineII.record.M.reset();
    const SimulatedPoint point = PointOf(50, 400, 50);
    EXPECT_EQ(App().MachineII.model.Kippmoment, 0);
    EXPECT_EQ(App().MachineII.model.k_maschine, 0);
    EXPECT_EQ(point.n, 0);
    EXPECT_EQ(point.P, 0);
}

TEST_F(Simulation, EnteredTorqueAndPolePairs_AreTakenAsTheyAre)
{
    App().MachineII.record.M = 77;
    App().MachineII.record.Polpaarzahl = 2;
    ASSERT_TRUE(PrepareMachine2());
    EXPECT_EQ(App().MachineII.record.M, 77);
    EXPECT_EQ(App().MachineII.record.Polpaarzahl, 2);
    ExpectClose(App().MachineII.model.Kippmoment, 77 * 2.8);
}

TEST_F(Simulation, Rows_BearTheNumbersOfTheSetsAndTheLetterOfTheBalance)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> sets = StoredSets();
    ASSERT_EQ(sets.size(), 7U);
    for (std::size_t i = 0; i < sets.size(); ++i) {
        const double number = static_cast<double>(i);
        EXPECT_EQ(sets[i].set, static_cast<int>(i) + 1);
        EXPECT_EQ(sets[i].M, 20 + 15 * static_cast<int>(i) % 90);
        EXPECT_EQ(sets[i].U, 400 - number);
        EXPECT_EQ(sets[i].n, PointOf(sets[i].M, sets[i].U, sets[i].f).n);
        EXPECT_EQ(sets[i].method, "P");
    }
    EXPECT_EQ(ColumnNames("SimulatedValues"), "Set,U sum,f sum,P sum,n,M,Pmech,eta,Method,Wp,Wp+,Wp-");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(Simulation, Method_IsTheBalanceWhateverTheSetsWereEstimatedBy)
{
    App().iCalcMethod = 0;
    std::vector<tValueRow> rows{Set(10), Set(20)};
    for (tValueRow& row : rows)
        row.sMethod = QStringLiteral("V");
    Record(rows);
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(Query("SELECT group_concat(Method) FROM SimulatedValues"), "P,P");
}

TEST_F(Simulation, OverloadedMachine_TurnsBackwardsInItsRow)
{
    Record({Set(120.8 * 50)});
    ASSERT_TRUE(RunSimulation());
    ASSERT_EQ(StoredSets().size(), 1U);
    ExpectClose(StoredSets()[0].n, 1500 - 50 * 37.5);
    EXPECT_LT(StoredSets()[0].Pmech, 0);
}

TEST_F(Simulation, EnergiesOfTheRows_GoWithTheTimesOfTheSets)
{
    Record({Set(100, 400, 50, 4), Set(100, 400, 50, 5), Set(-100, 400, 50, 15), Set(100, 400, 50, 15)});
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> sets = StoredSets();
    ASSERT_EQ(sets.size(), 4U);
    ASSERT_GT(sets[0].P, 0);
    ASSERT_LT(sets[2].P, 0);
    EXPECT_EQ(sets[0].Wp, 4 * sets[0].P);
    EXPECT_EQ(sets[1].WpPlus, 4 * sets[0].P + sets[1].P);
    EXPECT_EQ(sets[2].WpPlus, sets[1].WpPlus);
    EXPECT_EQ(sets[2].WpMinus, 10 * sets[2].P);
    EXPECT_EQ(sets[3].Wp, sets[1].Wp + 10 * sets[2].P);
    EXPECT_EQ(sets[3].WpPlus, sets[1].WpPlus) << "no time has passed";
}

TEST_F(Simulation, AcceptingTheSameMachineAgain_ReplacesAllRows)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> first = StoredSets();
    Execute("UPDATE SimulatedValues SET [P sum]=1, n=2 WHERE [Set]<4; DELETE FROM SimulatedValues WHERE [Set]=5; "
            "INSERT INTO SimulatedValues ([Set], n) VALUES (99, 99)");
    ASSERT_NE(StoredSets(), first);
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(StoredSets(), first);
}

TEST_F(Simulation, AnotherMachine_LeavesNoRowOfTheFormerOne)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> motor = StoredSets();
    App().MachineII.record.n = 1440;
    App().MachineII.record.M = 90;
    ASSERT_TRUE(RunSimulation());
    const std::vector<StoredSet> other = StoredSets();
    ASSERT_EQ(other.size(), motor.size());
    for (std::size_t i = 0; i < other.size(); ++i) {
        EXPECT_LT(other[i].n, motor[i].n);
        EXPECT_EQ(other[i].M, motor[i].M);
    }
}

TEST_F(Simulation, WithoutSets_ThereAreNoRowsAndNoError)
{
    EXPECT_TRUE(RunSimulation());
    EXPECT_TRUE(StoredSets().empty());
    EXPECT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
    EXPECT_EQ(App().MachineII.evaluation.lRowClassCount, (std::array<qint32, kRatingCount>{}));
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(Simulation, RowsOfSetsThatAreNoMore_GoWithTheNextRun)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    Execute("DELETE FROM SampledValues; DELETE FROM ComputedValues");
    EXPECT_TRUE(RunSimulation());
    EXPECT_TRUE(StoredSets().empty());
    EXPECT_EQ(App().iSetCount, 0);
}

TEST_F(Simulation, GapsInTheNumbers_AreGapsInTheRows)
{
    RecordSome();
    Execute("DELETE FROM SampledValues WHERE [Set] IN (1, 4, 5); DELETE FROM ComputedValues WHERE [Set] IN (1, 4, 5)");
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(StoredNumbers(), (std::vector<int>{2, 3, 6, 7}));
    EXPECT_EQ(StoredSets()[2].M, 20 + 15 * 5 % 90);
    EXPECT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 4);
}

TEST_F(Simulation, SetThatOneTableLacks_IsNoSet)
{
    RecordSome();
    Execute("DELETE FROM ComputedValues WHERE [Set]=3; DELETE FROM SampledValues WHERE [Set]=6");
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(StoredNumbers(), (std::vector<int>{1, 2, 4, 5, 7}));
}

TEST_F(Simulation, SetWithoutAnEstimatedTorque_RunsIdle)
{
    RecordSome(2);
    Execute("UPDATE ComputedValues SET M=NULL WHERE [Set]=2");
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(StoredSets()[1].M, 0);
    EXPECT_EQ(StoredSets()[1].Pmech, 0);
    EXPECT_GT(StoredSets()[1].P, 0);
}

TEST_F(Simulation, MissingTable_IsMade)
{
    RecordSome();
    Execute("DROP TABLE IF EXISTS SimulatedValues");
    EXPECT_TRUE(RunSimulation());
    EXPECT_EQ(StoredSets().size(), 7U);
}

TEST_F(Simulation, Progress_RisesToItsEnd)
{
    constexpr int kSeveralBlocks = 3000;
    RecordSome(kSeveralBlocks);
    shell.calls.clear();
    shell.progress.clear();
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(shell.calls.first(), QStringLiteral("ShowProgress %1").arg(static_cast<int>(Progress::Begin)));
    EXPECT_EQ(shell.calls.last(), QStringLiteral("ShowProgress %1").arg(static_cast<int>(Progress::End)));
    ASSERT_GT(shell.progress.size(), 1U);
    EXPECT_TRUE(std::is_sorted(shell.progress.begin(), shell.progress.end()));
    EXPECT_EQ(shell.progress.back(), 1);
}

TEST_F(Simulation, MeasuredSetsAndTheirEnergies_StayAsTheyAre)
{
    RecordSome();
    const QString all = QStringLiteral("SELECT group_concat([Set]||[P sum]||[f sum]||t||Edit||Wp||M||eta||Method) FROM "
                                       "SampledValues NATURAL JOIN ComputedValues");
    const QString before = Query(all);
    ASSERT_GT(before.size(), 100);
    ASSERT_TRUE(RunSimulation());
    EXPECT_EQ(Query(all), before);
}

} // namespace
} // namespace korvanel::test
