// A month of real measurement: one-minute values of a household, on the way that a run takes, against figures that
// independent_evaluation.py has formed from the same file. See data/README.md for its origin.
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "evaluation/EvaluationFixture.h"
#include "evaluation/ExpectedEvaluation.h"
#include "support/TestPaths.h"

#include <QProcess>

#include <cmath>
#include <fstream>

namespace korvanel::test {
namespace {

constexpr double kMinute = 60;

struct Sample
{
    double U; ///< V
    double I; ///< A
    double P; ///< W
    double Q; ///< var
};

std::vector<Sample> ReadSamples()
{
    QProcess unpacker;
    unpacker.start(QStringLiteral("gzip"),
                   {QStringLiteral("-dc"), QStringLiteral(KORVANEL_EVALUATION_DATA "/data/household.csv.gz")});
    EXPECT_TRUE(unpacker.waitForFinished());
    EXPECT_EQ(unpacker.exitCode(), 0);
    std::vector<Sample> samples;
    const QList<QByteArray> lines = unpacker.readAllStandardOutput().split('\n');
    EXPECT_EQ(lines.value(0).trimmed(), "set,U_V,I_A,P_W,Q_var");
    for (const QByteArray& line : lines.mid(1)) {
        const QList<QByteArray> cells = line.split(',');
        if (cells.size() == 5)
            samples.push_back({cells[1].toDouble(), cells[2].toDouble(), cells[3].toDouble(), cells[4].toDouble()});
    }
    return samples;
}

void AppendSamples(const std::vector<Sample>& samples)
{
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb()); // one for all: the disk is not what is tested
    ResetEnergies();
    tMeasuredRow& row = App().MeasuredRow;
    row = {};
    for (const auto& [U, I, P, Q] : samples) {
        const DerivedQuantities derived = DeriveQuantities(U, I, P, 0, false);
        row.dt = row.lSet * kMinute;
        ++row.lSet;
        row.dU[kSum] = U;
        row.dI[kSum] = I;
        row.df = 50;
        row.dP[kSum] = P;
        row.dQ[kSum] = Q;
        row.dS[kSum] = derived.S;
        row.dCosPhi[kSum] = derived.cosPhi;
        row.dPhi[kSum] = derived.phi;
        ASSERT_TRUE(AppendMeasuredRow());
    }
    transaction.Commit();
}

/// The arc cosine is not rounded in the same way everywhere: the angle is compared within its last digits, and taken
/// over then.
void CompareAngle(EvaluationResults& results, const ExpectedEvaluation& expected)
{
    const auto takeOver = [](ExtremEntry& entry, const ExtremEntry& other) {
        constexpr double kResidual = 1e-5; // degrees: what subtraction leaves where the angle is 0
        EXPECT_NEAR(entry.dValue, other.dValue, kResidual);
        entry = other;
    };
    takeOver(results.tExtremMin[kPhi], expected.extremMin[kPhi]);
    takeOver(results.tExtremMax[kPhi], expected.extremMax[kPhi]);
    takeOver(results.tRmsMin[kPhi], expected.rmsMin[kPhi]);
    takeOver(results.tRmsMax[kPhi], expected.rmsMax[kPhi]);
    takeOver(results.tAvgMin[kPhi], expected.avgMin[kPhi]);
    takeOver(results.tAvgMax[kPhi], expected.avgMax[kPhi]);
}

class Household : public EvaluationTest
{
};

TEST_F(Household, EveryFigureOfAMonthAgrees)
{
    std::ifstream table(KORVANEL_EVALUATION_DATA "/data/household_expected.txt");
    std::string line;
    ASSERT_TRUE(std::getline(table, line)); // the conditions: those set here
    ASSERT_TRUE(std::getline(table, line));
    LineWords words(line);
    ASSERT_EQ(words.Next(), "above");
    const int aboveApparent = words.NextWhole();
    const ExpectedEvaluation expected = ExpectedEvaluation::Read(table);

    const std::vector<Sample> samples = ReadSamples();
    ASSERT_EQ(samples.size(), 47955U);
    EXPECT_EQ(std::count_if(samples.begin(), samples.end(), [](const Sample& s) { return s.P > s.U * s.I; }),
              aboveApparent);
    EXPECT_EQ(aboveApparent, 20024) << "two of five";

    CreateProject(0);
    App().dInterval = kMinute;
    ASSERT_NO_FATAL_FAILURE(AppendSamples(samples));
    EvaluateProject();
    EXPECT_NE(App().bEvaluated, 0);
    EXPECT_EQ(App().MachineI.evaluation.lSets, 47955);
    EvaluationResults results = App().MachineI.evaluation;
    CompareAngle(results, expected);
    expected.Compare(results);
}

TEST_F(Household, PowerAboveTheApparentOneIsStoredWithAFactorAbove1AndNoAngle)
{
    const std::vector<Sample> samples = ReadSamples();
    CreateProject(0);
    App().dInterval = kMinute;
    ASSERT_NO_FATAL_FAILURE(AppendSamples(samples));
    EXPECT_EQ(Query("SELECT count(*) FROM ComputedValues WHERE [cosphi sum]>1"), "20024");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues INNER JOIN ComputedValues ON SampledValues.[Set]="
                    "ComputedValues.[Set] WHERE [cosphi sum]>=1 AND [phi sum]<>0"),
              "0");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE [phi sum]<0 OR [phi sum]>90"), "0");
}

} // namespace
} // namespace korvanel::test
