// The same pass over the sets of a second machine: their table as the source, and that machine's rating as the judge.
#include "core/ProjectDb.h"
#include "evaluation/EvaluationPass.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

namespace korvanel::test {
namespace {

class SimulatedPass : public ProjectTest
{
protected:
    /// What both machines do: supply, shaft and power of each set.
    static std::vector<tValueRow> Rows()
    {
        constexpr int kCount = 40;
        std::vector<tValueRow> rows;
        for (int i = 0; i < kCount; ++i) {
            tValueRow row;
            row.dU[kSum] = 400 - i % 7;
            row.df = 50 - 0.1 * (i % 3);
            row.dP[kSum] = i % 9 == 0 ? -2000 : 3000.0 + 450 * (i % 40);
            row.dn = 1500 - i;
            row.dM = 3.5 * i - 10;
            row.dPmech = 0.9 * row.dP[kSum];
            row.deta = 0.9;
            rows.push_back(row);
        }
        return rows;
    }
    static EvaluationResults Evaluate(SetSource source, const RatedData& rated)
    {
        const ProjectDbScope scope;
        const PassConditions conditions{
            .netConf = 2, .window = 5, .windowText = {}, .rated = rated, .energy = {.dt = 1}, .currency = {}};
        return EvaluateSets(ProjectDb(), source, conditions, App().iSetCount, [](qint32) {});
    }
};

TEST_F(SimulatedPass, SetsOfTheSecondMachine_EvaluateAsThoseOfTheFirst)
{
    CreateProject(2);
    std::vector<tValueRow> rows = Rows();
    StoreRows(rows);
    StoreSimulated(rows);
    const RatedData rated = RatedDataOf(Generator(), -17000, 300);
    const EvaluationResults measured = Evaluate(SetSource::Measured, rated);
    Execute("UPDATE SampledValues SET [U sum]=1, [P sum]=1, [f sum]=1");
    const EvaluationResults simulated = Evaluate(SetSource::Simulated, rated);

    ASSERT_EQ(simulated.lSets, measured.lSets);
    for (const int quantity : {kU, kF, kP, kN, kM, kPmech, kEta}) {
        const auto q = static_cast<std::size_t>(quantity);
        EXPECT_EQ(simulated.tExtremMin[q].dValue, measured.tExtremMin[q].dValue) << quantity;
        EXPECT_EQ(simulated.tExtremMin[q].lSet, measured.tExtremMin[q].lSet) << quantity;
        EXPECT_EQ(simulated.tExtremMax[q].dValue, measured.tExtremMax[q].dValue) << quantity;
        EXPECT_EQ(simulated.tRmsMax[q].dValue, measured.tRmsMax[q].dValue) << quantity;
        EXPECT_EQ(simulated.tAvgMin[q].lSet, measured.tAvgMin[q].lSet) << quantity;
    }
    EXPECT_EQ(simulated.tAvgMax[kLossChannel].dValue, measured.tAvgMax[kLossChannel].dValue);
    EXPECT_EQ(simulated.tEnergy[kEnergyMechanical].dPlus, measured.tEnergy[kEnergyMechanical].dPlus);
    EXPECT_EQ(simulated.lRowClassCount, measured.lRowClassCount);
}

TEST_F(SimulatedPass, ClassesOfTheSets_FollowTheMachineThatJudges)
{
    CreateProject(2);
    std::vector<tValueRow> rows = Rows();
    StoreRows(rows);
    StoreSimulated(rows);
    const EvaluationResults strong = Evaluate(SetSource::Simulated, RatedDataOf(Motor(), 30000, 300));
    const EvaluationResults weak = Evaluate(SetSource::Simulated, RatedDataOf(Motor(), 5000, 300));
    EXPECT_EQ(strong.lRowClassCount[1], 40);
    EXPECT_LT(weak.lRowClassCount[1], 10);
    EXPECT_GT(weak.lRowClassCount[3], 20);
}

TEST_F(SimulatedPass, LongWindow_IsReadASecondTimeFromTheSameSource)
{
    CreateProject(2);
    std::vector<tValueRow> rows = Rows();
    StoreRows(rows);
    StoreSimulated(rows);
    Execute("UPDATE SampledValues SET [P sum]=1");
    const ProjectDbScope scope;
    const PassConditions conditions{.netConf = 2,
                                    .window = 5,
                                    .windowText = {},
                                    .rated = RatedDataOf(Motor(), 20000, 300),
                                    .energy = {.dt = 1},
                                    .currency = {}};
    const auto evaluate = [&](qint32 most) {
        return EvaluateSets(
            ProjectDb(), SetSource::Simulated, conditions, App().iSetCount, [](qint32) {}, most);
    };
    const EvaluationResults kept = evaluate(100);
    const EvaluationResults reread = evaluate(0);
    EXPECT_GT(kept.tRmsMax[kP].dValue, 1000);
    EXPECT_EQ(kept.tRmsMax[kP].dValue, reread.tRmsMax[kP].dValue);
    EXPECT_EQ(kept.tRmsMin[kP].lSet, reread.tRmsMin[kP].lSet);
}

} // namespace
} // namespace korvanel::test
