// The rows of the second machine are stored as a whole or not at all, also when the program is killed in the middle of
// it.
#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/KilledOperation.h"
#include "support/Machines.h"
#include "support/TestPaths.h"

namespace korvanel::test {
namespace {

enum class FormerRows
{
    None,
    OfAnotherMachine
};

class SimulationDurability : public KilledOperation, public ::testing::WithParamInterface<FormerRows>
{
protected:
    QString Program() const override { return QStringLiteral(KORVANEL_SIMULATION); }
    /// Rows where none were are written behind the end of the file.
    bool IsPartlyWritten() const override
    {
        return KilledOperation::IsPartlyWritten() ||
               (!HasFormerRows() && ContentOf("test.MDB").size() > ContentOf("original.MDB").size());
    }
    bool HasFormerRows() const { return GetParam() == FormerRows::OfAnotherMachine; }
    /// The new rows alone have to be more than the engine keeps in memory.
    int Sets() const { return HasFormerRows() ? kSets : 2 * kSets; }
    std::string Name() const { return HasFormerRows() ? "over_rows_of_another_machine" : "without_former_rows"; }
    /// How many sets of the second machine turn with that speed or faster.
    int FasterThan(double n) const
    {
        return Query(QStringLiteral("SELECT count(*) FROM SimulatedValues WHERE n>%1").arg(n)).toInt();
    }
};

TEST_P(SimulationDurability, AKilledSimulationLeavesTheFormerRows)
{
    constexpr double kSlowestOfTheFormer = 1455;
    MakeRecording(Sets());
    if (HasFormerRows()) {
        App().MachineII.record = SecondMotor();
        ASSERT_TRUE(RunSimulation());
        ASSERT_EQ(FasterThan(kSlowestOfTheFormer), Sets());
    }
    KeepOriginal();
    if (HasFatalFailure())
        return;
    std::array<QByteArray, 3> states;
    states[0] = Digest();
    RunUndisturbed();
    states[1] = Digest();
    ASSERT_NE(states[0], states[1]);
    ASSERT_EQ(Query("SELECT count(*) FROM SimulatedValues").toInt(), Sets());
    ASSERT_LT(FasterThan(kSlowestOfTheFormer), Sets());
    RunUndisturbed();
    states[2] = Digest();
    if (HasFatalFailure())
        return;
    EXPECT_EQ(states[2], states[1]) << "the same machine makes the same rows";
    KillAgainAndAgain(Name(), states);
}

INSTANTIATE_TEST_SUITE_P(Rows, SimulationDurability, ::testing::Values(FormerRows::None, FormerRows::OfAnotherMachine),
                         [](const auto& test) {
                             return std::string(test.param == FormerRows::None ? "none" : "of_another_machine");
                         });

} // namespace
} // namespace korvanel::test
