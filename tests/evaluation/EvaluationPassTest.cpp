// Extremes and the sliding window, by recordings so small that they can be worked out by hand.
#include "evaluation/EvaluationPass.h"
#include "data/RowQuantities.h"
#include "evaluation/EvaluationFixture.h"
#include "evaluation/TimeWindow.h"

#include <cmath>

namespace korvanel::test {
namespace {

class EvaluationPassTest : public EvaluationTest
{
};

TEST_F(EvaluationPassTest, UpdateExtrem_TheFirstSetBeginsBothWhateverStoodThere)
{
    ExtremEntry smallest{-5, 7};
    ExtremEntry largest{5, 7};
    UpdateExtrem(0, 1, smallest, largest);
    ExpectEntry(smallest, 0, 1);
    ExpectEntry(largest, 0, 1);
}

TEST_F(EvaluationPassTest, UpdateExtrem_ATieKeepsTheEarlierSet)
{
    ExtremEntry smallest{2, 3};
    ExtremEntry largest{2, 4};
    UpdateExtrem(2, 9, smallest, largest);
    ExpectEntry(smallest, 2, 3);
    ExpectEntry(largest, 2, 4);
    UpdateExtrem(1, 10, smallest, largest);
    UpdateExtrem(3, 11, smallest, largest);
    ExpectEntry(smallest, 1, 10);
    ExpectEntry(largest, 3, 11);
}

TEST_F(EvaluationPassTest, LossPower_AddsMagnitudesOnlyWhileADrivenShaftDrawsPower)
{
    EXPECT_EQ(LossPower(5, -3), 8);
    EXPECT_EQ(LossPower(5, 3), 2);
    EXPECT_EQ(LossPower(3, 5), 2);
    EXPECT_EQ(LossPower(-5, -3), 2);
    EXPECT_EQ(LossPower(-5, 3), 2);
    EXPECT_EQ(LossPower(0, -3), 3);
    EXPECT_EQ(LossPower(5, 0), 5);
    EXPECT_EQ(LossPower(0, 0), 0);
}

TEST_F(EvaluationPassTest, EachQuantityHasItsOwnExtremes)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        std::vector<tValueRow> rows(3);
        for (int quantity = 0; quantity < kQuantityCount; ++quantity) {
            QuantityField(rows[0], quantity) = 100 + quantity;
            QuantityField(rows[1], quantity) = 300 + quantity;
            QuantityField(rows[2], quantity) = -100 - quantity;
        }
        const EvaluationResults& results = Evaluate(netConf, rows);
        for (const int quantity : StoredQuantities(netConf)) {
            SCOPED_TRACE(quantity);
            const auto index = static_cast<std::size_t>(quantity);
            ExpectEntry(results.tExtremMin[index], -100 - quantity, 3);
            ExpectEntry(results.tExtremMax[index], 300 + quantity, 2);
        }
    }
}

TEST_F(EvaluationPassTest, ExtremeOfAQuantityThatIsAlways0IsThatOfTheFirstSet)
{
    const EvaluationResults& results = Evaluate(0, Rows({1, 2}, PutU));
    ExpectEntry(results.tExtremMin[kQ], 0, 1);
    ExpectEntry(results.tExtremMax[kQ], 0, 1);
}

TEST_F(EvaluationPassTest, WindowLongerThanTheRecording_HasOnePosition)
{
    const EvaluationResults& results = Evaluate(0, Rows({1, 2, 4, 5}, PutU));
    const double rms = std::sqrt((1.0 + 4 + 16 + 25) / 4);
    const double mean = (1.0 + 2 + 4 + 5) / 4;
    EXPECT_EQ(results.dWindowRows, 4);
    ExpectEntry(results.tRmsMin[kU], rms, 4);
    ExpectEntry(results.tRmsMax[kU], rms, 4);
    ExpectEntry(results.tAvgMin[kU], mean, 4);
    ExpectEntry(results.tAvgMax[kU], mean, 4);
    EXPECT_EQ(FirstOfWindow(4, results.dWindowSpan), 1);
}

TEST_F(EvaluationPassTest, WindowShorterThanTheInterval_IsOneSet)
{
    const EvaluationResults& results = Evaluate(0, Rows({3, -7, 2}, PutQ), 1, 0.5);
    EXPECT_EQ(results.dWindowRows, 1);
    ExpectEntry(results.tRmsMin[kQ], 2, 3);
    ExpectEntry(results.tRmsMax[kQ], 7, 2);
    ExpectEntry(results.tAvgMin[kQ], -7, 2);
    ExpectEntry(results.tAvgMax[kQ], 3, 1);
    EXPECT_EQ(FirstOfWindow(2, results.dWindowSpan), 2);
}

TEST_F(EvaluationPassTest, WindowOfExactlyTheRecording_GivesWhatALongerOneGives)
{
    const std::vector<tValueRow> rows = Rows({1, 2, 4, 5}, PutU);
    const EvaluationResults exact = Evaluate(0, rows, 2, 6); // 6 s are three intervals: four sets
    const EvaluationResults& longer = Evaluate(0, rows, 2, 7.9);
    EXPECT_EQ(exact.dWindowRows, 4);
    for (std::size_t channel = 0; channel < exact.tRmsMin.size(); ++channel) {
        ExpectEntry(exact.tRmsMin[channel], longer.tRmsMin[channel].dValue, 4);
        ExpectEntry(exact.tRmsMax[channel], longer.tRmsMax[channel].dValue, 4);
        ExpectEntry(exact.tAvgMin[channel], longer.tAvgMin[channel].dValue, 4);
        ExpectEntry(exact.tAvgMax[channel], longer.tAvgMax[channel].dValue, 4);
    }
}

TEST_F(EvaluationPassTest, WindowOfOneSetLess_HasTwoPositions)
{
    const EvaluationResults& results = Evaluate(0, Rows({1, 2, 4, 5}, PutU), 2, 5.9);
    EXPECT_EQ(results.dWindowRows, 3);
    ExpectEntry(results.tAvgMin[kU], (1.0 + 2 + 4) / 3, 3);
    ExpectEntry(results.tAvgMax[kU], (2.0 + 4 + 5) / 3, 4);
    ExpectEntry(results.tRmsMin[kU], std::sqrt((1.0 + 4 + 16) / 3), 3);
    ExpectEntry(results.tRmsMax[kU], std::sqrt((4.0 + 16 + 25) / 3), 4);
}

TEST_F(EvaluationPassTest, PartialWindowsAreNoPositions)
{
    // The largest mean of two sets would be in the first, half-filled window.
    const EvaluationResults& results = Evaluate(0, Rows({100, 1, 2, 3}, PutU), 1, 2);
    ExpectEntry(results.tAvgMax[kU], 103.0 / 3, 3);
    ExpectEntry(results.tAvgMin[kU], 6.0 / 3, 4);
}

TEST_F(EvaluationPassTest, OneSet_IsItsOwnExtremeAndWindowAndHasNoEnergy)
{
    tValueRow row;
    PutU(row, 230);
    PutI(row, 4);
    PutP(row, -900);
    PutQ(row, 50);
    const EvaluationResults& results = Evaluate(0, {row});
    for (const auto& [channel, value] : {std::pair<std::size_t, double>{kU, 230}, {kI, 4}, {kP, -900}, {kQ, 50}}) {
        ExpectEntry(results.tExtremMin[channel], value, 1);
        ExpectEntry(results.tExtremMax[channel], value, 1);
        ExpectEntry(results.tRmsMin[channel], std::abs(value), 1);
        ExpectEntry(results.tRmsMax[channel], std::abs(value), 1);
        ExpectEntry(results.tAvgMin[channel], value, 1);
        ExpectEntry(results.tAvgMax[channel], value, 1);
    }
    for (const EnergyEntry& entry : results.tEnergy)
        EXPECT_TRUE(entry.dPlus == 0 && entry.dMinus == 0 && entry.dTotal == 0);
}

TEST_F(EvaluationPassTest, EqualValues_ReportTheFirstSetAndTheFirstFullWindow)
{
    const EvaluationResults& results = Evaluate(0, Rows({400, 400, 400, 400, 400}, PutU), 1, 2);
    ExpectEntry(results.tExtremMin[kU], 400, 1);
    ExpectEntry(results.tExtremMax[kU], 400, 1);
    ExpectEntry(results.tRmsMin[kU], 400, 3);
    ExpectEntry(results.tRmsMax[kU], 400, 3);
    ExpectEntry(results.tAvgMin[kU], 400, 3);
    ExpectEntry(results.tAvgMax[kU], 400, 3);
}

TEST_F(EvaluationPassTest, NegativeMean_TheSmallestIsTheMoreNegativeWindow)
{
    const EvaluationResults& results = Evaluate(0, Rows({-10, -30, -20}, PutP), 1, 1);
    ExpectEntry(results.tAvgMin[kP], -25, 3);
    ExpectEntry(results.tAvgMax[kP], -20, 2);
    ExpectEntry(results.tRmsMin[kP], std::sqrt((100.0 + 900) / 2), 2);
    ExpectEntry(results.tRmsMax[kP], std::sqrt((900.0 + 400) / 2), 3);
}

TEST_F(EvaluationPassTest, Rms_TakesTheMagnitudeOfAResidualBelow0)
{
    // 1e16 + 1 rounds to 1e16, so that taking 1e16 away leaves 0, and the 1 that leaves with the next set is missing.
    const EvaluationResults& results = Evaluate(0, Rows({1e8, 1, 0}, PutU), 1, 0);
    EXPECT_EQ(results.dWindowSumSq[kU], -1);
    ExpectEntry(results.tRmsMin[kU], 1, 3);
    ExpectEntry(results.tRmsMax[kU], 1e8, 1);
}

TEST_F(EvaluationPassTest, WithoutAMachineItsChannelsStay0)
{
    tValueRow row;
    for (int quantity = 0; quantity < kQuantityCount; ++quantity)
        QuantityField(row, quantity) = 7;
    for (const int netConf : {0, 1, 3, 4, 6}) {
        SCOPED_TRACE(netConf);
        const EvaluationResults& results = Evaluate(netConf, {row, row, row}, 1, 1);
        for (const std::size_t channel : {7U, 8U, 9U, 10U, 12U}) {
            ExpectEntry(results.tRmsMin[channel], 0, 2);
            ExpectEntry(results.tRmsMax[channel], 0, 2);
            ExpectEntry(results.tAvgMin[channel], 0, 2);
            ExpectEntry(results.tAvgMax[channel], 0, 2);
        }
        for (const qint32 count : results.lRowClassCount)
            EXPECT_EQ(count, 0);
        EXPECT_EQ(results.tRmsMax[kU].dValue, 7);
    }
}

TEST_F(EvaluationPassTest, TheLossHasAMeanAndNoRms)
{
    SetRoundMachine();
    std::vector<tValueRow> rows(3);
    rows[0].dP[kSum] = 1000;
    rows[0].dPmech = 800;
    rows[1].dP[kSum] = -700;
    rows[1].dPmech = -1000;
    rows[2].dP[kSum] = 100;
    rows[2].dPmech = -400;
    for (const int netConf : {2, 5}) {
        const EvaluationResults& results = Evaluate(netConf, rows, 1, 1);
        ExpectEntry(results.tAvgMin[kLossChannel], (200.0 + 300) / 2, 2);
        ExpectEntry(results.tAvgMax[kLossChannel], (300.0 + 500) / 2, 3);
        ExpectEntry(results.tRmsMin[kLossChannel], 0, 2);
        ExpectEntry(results.tRmsMax[kLossChannel], 0, 2);
    }
}

TEST_F(EvaluationPassTest, CorrectedSetsAreCountedAndTakePart)
{
    std::vector<tValueRow> rows = Rows({1, 9, 2}, PutU);
    rows[1].bEdit = 255;
    const EvaluationResults& results = Evaluate(0, rows);
    EXPECT_EQ(results.lCorrectedRows, 1);
    ExpectEntry(results.tExtremMax[kU], 9, 2);
    EXPECT_EQ(results.tAvgMax[kU].dValue, 4);
}

TEST_F(EvaluationPassTest, ASecondPassBeginsAnew)
{
    std::vector<tValueRow> rows = Rows({1, 9, 2}, PutU);
    rows[2].bEdit = 255;
    Evaluate(0, rows, 1, 1);
    EvaluateProject();
    EXPECT_EQ(App().MachineI.evaluation.lCorrectedRows, 1);
    EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 2);
    ExpectEntry(App().MachineI.evaluation.tExtremMax[kU], 9, 2);
    const EvaluationResults& other = Evaluate(0, Rows({3}, PutU));
    EXPECT_EQ(other.lCorrectedRows, 0);
    ExpectEntry(other.tExtremMax[kU], 3, 1);
    ExpectEntry(other.tRmsMin[kU], 3, 1);
}

TEST_F(EvaluationPassTest, WithoutSetsEverythingIs0AndEvaluated)
{
    SetRoundMachine();
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        const EvaluationResults& results = Evaluate(netConf, {});
        for (const auto& table : {results.tExtremMin, results.tExtremMax})
            for (const ExtremEntry& entry : table)
                ExpectEntry(entry, 0, 0);
        for (const auto& table : {results.tRmsMin, results.tRmsMax, results.tAvgMin, results.tAvgMax})
            for (const ExtremEntry& entry : table)
                ExpectEntry(entry, 0, 0);
        for (const EnergyEntry& entry : results.tEnergy)
            EXPECT_TRUE(entry.dPlus == 0 && entry.dMinus == 0 && entry.dTotal == 0);
        for (const UtilisationEntry& entry : results.tAsm)
            EXPECT_EQ(entry.dValue, 0);
        EXPECT_EQ(results.dWindowRows, 0);
    }
}

TEST_F(EvaluationPassTest, ProgressBeginsAdvancesAndEnds)
{
    Evaluate(0, Rows({1, 2, 3}, PutU));
    const QStringList calls = shell.calls.filter("ShowProgress");
    ASSERT_GE(calls.size(), 2);
    EXPECT_EQ(calls.front(), "ShowProgress 0");
    EXPECT_EQ(calls.back(), "ShowProgress 2");
    EXPECT_EQ(calls.count("ShowProgress 2"), 1);
    EXPECT_EQ(shell.progress, (std::vector<double>{1.0 / 3, 2.0 / 3, 1}));
}

TEST_F(EvaluationPassTest, ProgressOfALongRecordingIsTheShareOfItsSets)
{
    constexpr int kLongRecording = 4000;
    Evaluate(0, std::vector<tValueRow>(kLongRecording));
    ASSERT_GE(shell.progress.size(), 100U) << "at least once per percent";
    for (std::size_t i = 0; i < shell.progress.size(); ++i) {
        const double sets = shell.progress[i] * kLongRecording;
        EXPECT_DOUBLE_EQ(sets, std::round(sets));
        EXPECT_GT(shell.progress[i], i == 0 ? 0 : shell.progress[i - 1]);
    }
    EXPECT_LE(shell.progress.back(), 1);
    EXPECT_GT(shell.progress.back(), 0.99);
}

TEST_F(EvaluationPassTest, AnyMarkThatIsNot0IsACorrection)
{
    Evaluate(0, Rows({1, 2, 3, 4, 5}, PutU));
    Execute("UPDATE SampledValues SET Edit=CASE [Set] WHEN 1 THEN 1 WHEN 2 THEN 255 WHEN 3 THEN 256 WHEN 4 THEN -1 "
            "ELSE 0 END");
    EvaluateProject();
    EXPECT_EQ(App().MachineI.evaluation.lCorrectedRows, 4);
}

// Gaps.

class Gaps : public EvaluationPassTest
{
protected:
    /// Sets at these times, s.
    const EvaluationResults& At(const std::vector<double>& times, double interval = 1, const QString& term = {})
    {
        std::vector<tValueRow> rows;
        for (const double t : times)
            rows.emplace_back().dt = t;
        MakeProject(0, rows, interval);
        App().sMeasurementTerm = term;
        EvaluateProject();
        return App().MachineI.evaluation;
    }
    static void ExpectGaps(const EvaluationResults& results, int gaps, double missing, double coverage)
    {
        EXPECT_EQ(results.lGaps, gaps);
        EXPECT_EQ(results.dMissing, missing);
        EXPECT_NEAR(results.dCoverage, coverage, 1e-12);
    }
};

TEST_F(Gaps, AreNoneInARecordingWithoutHoles)
{
    ExpectGaps(At({0, 1, 2, 3}, 1, "00:00:03"), 0, 0, 1);
    ExpectGaps(At({0, 60, 120}, 60, "00:02:00"), 0, 0, 1);
    ExpectGaps(At({1, 2, 3}), 0, 0, 1); // after a wait for the trigger
    ExpectGaps(At({0}), 0, 0, 1);
    ExpectGaps(At({}), 0, 0, 0);
}

TEST_F(Gaps, AreCountedWithTheSetsThatTheyLack)
{
    ExpectGaps(At({0, 1, 5, 6, 9}, 1, "00:00:09"), 2, 5, 0.5);
    ExpectGaps(At({0, 5, 20}, 5), 1, 2, 0.6);
}

TEST_F(Gaps, EndOfTheRecordingBelongsToIt)
{
    ExpectGaps(At({0, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 1, "00:01:40"), 1, 90, 0.1); // silent from the tenth second on
}

TEST_F(Gaps, TermThatIsShorterOrUnreadableLeavesTheTimesOfTheSets)
{
    for (const char* term : {"", "00:00:01", "-", "1:2:3", "99999999999:00:00"})
        ExpectGaps(At({0, 1, 2, 7}, 1, term), 1, 4, 0.5);
}

TEST_F(Gaps, TimesThatGoBackAreNone)
{
    const EvaluationResults& results = At({0, 10, 5, 6});
    EXPECT_EQ(results.lGaps, 1);
    EXPECT_GE(results.dCoverage, 0);
    EXPECT_LE(results.dCoverage, 1);
}

} // namespace
} // namespace korvanel::test
