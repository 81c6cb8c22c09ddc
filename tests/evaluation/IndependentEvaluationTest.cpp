// The evaluation against a table that another program has calculated: see independent_evaluation.py, which shares
// nothing with this one. Only the seeds of the recordings stand in the table; both make the same sets from them. All
// numbers have to agree in every bit. A larger table of its making is compared too if the environment names one in
// KORVANEL_EVALUATION_TABLE.
#include "core/clsProgSettings.h"
#include "data/RowQuantities.h"
#include "evaluation/Algorithms.h"
#include "evaluation/EvaluationPass.h"
#include "evaluation/ExpectedEvaluation.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"
#include "support/TestPaths.h"

#include <cstdlib>
#include <fstream>
#include <iostream>

namespace korvanel::test {
namespace {

/// Steele, Lea and Flood's generator: integers alone, the same everywhere.
class SplitMix
{
public:
    explicit SplitMix(quint64 seed) : state(seed) {}
    quint64 Next()
    {
        quint64 z = state += 0x9E3779B97F4A7C15U;
        z = (z ^ (z >> 30U)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27U)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31U);
    }

private:
    quint64 state;
};

enum Profile
{
    kMotor = 0,
    kMixed = 1,
    kCoarse = 2, ///< few different values: ties
    kWild = 3,   ///< now and then far outside what is plausible
    kGenerator = 4,
    kConstant = 5
};

/// Full value of a kind of quantity, and its range in thousandths of it: of a motor, and with both signs.
struct Shape
{
    double full;
    int lowMotor, highMotor;
    int lowMixed, highMixed;
};

constexpr Shape kVoltage{400, 880, 1120, 880, 1120};
constexpr Shape kCurrent{33, 0, 1300, 0, 1300};
constexpr Shape kPower{20000, -50, 1700, -1700, 1700};
constexpr Shape kApparent{22000, 0, 1500, 0, 1500};
constexpr Shape kReactive{10000, 0, 1200, -1200, 1200};
constexpr Shape kFactor{1, 0, 1000, -1000, 1000};
constexpr Shape kAngle{180, 0, 1000, -1000, 1000};
constexpr Shape kEnergy{1e7, 0, 4000, -4000, 4000};

const Shape& ShapeOf(int quantity)
{
    static constexpr Shape kSums[] = {
        kVoltage,
        kCurrent,
        {50, 940, 1060, 940, 1060},
        kPower,
        kApparent,
        kReactive,
        kFactor,
        {1500, 900, 1100, 900, 1100},
        {120, -20, 1500, -1500, 1500},
        {18500, -20, 1500, -1500, 1500},
        {1, 0, 1010, 0, 1010},
        kAngle,
    };
    static constexpr Shape kPhaseGroups[] = {kVoltage, kCurrent, kPower, kReactive, kApparent, kAngle, kFactor};
    if (quantity <= kPhi)
        return kSums[quantity];
    if (quantity >= kU1 && quantity < kINeutral)
        return kPhaseGroups[(quantity - kU1) / 3];
    return quantity == kINeutral ? kCurrent : kEnergy;
}

/// One value. Each is formed by products of one rounding, without a sum, so that no compiler can form it otherwise.
double Draw(SplitMix& generator, int quantity, int profile)
{
    const quint64 x = generator.Next();
    const Shape& shape = ShapeOf(quantity);
    if ((x & 31U) == 0)
        return 0;
    if (profile == kCoarse)
        return static_cast<double>(static_cast<int>(x / 32 % 5) - 2) * (shape.full * 0.25);
    constexpr qint64 kUnit = qint64(1) << 40;
    const bool isMotor = profile == kMotor || profile == kConstant;
    const qint64 low = isMotor ? shape.lowMotor : shape.lowMixed;
    const qint64 high = isMotor ? shape.highMotor : shape.highMixed;
    const auto offset = static_cast<qint64>((x >> 9U) % static_cast<quint64>((high - low) * kUnit));
    double value = static_cast<double>(low * kUnit + offset) * (shape.full / (1000.0 * static_cast<double>(kUnit)));
    const bool isPower = quantity == kP || quantity == kM || quantity == kPmech;
    if (profile == kGenerator && isPower && value > 0)
        value = -value;
    if (profile == kWild && ((x >> 5U) & 15U) == 0)
        value *= 16777216;
    return value;
}

std::vector<tValueRow> MakeRecording(quint64 seed, int profile, int count)
{
    SplitMix generator(seed);
    std::vector<tValueRow> rows(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        for (int quantity = 0; quantity < kQuantityCount; ++quantity)
            QuantityField(rows[i], quantity) = Draw(generator, quantity, profile);
        const quint8 mark = generator.Next() % 8 == 0 ? 255 : 0;
        if (profile == kConstant)
            rows[i] = rows[0];
        rows[i].bEdit = mark;
        rows[i].sMethod = QStringLiteral("P");
    }
    return rows;
}

class IndependentEvaluation : public ProjectTest
{
protected:
    void CompareTable(const std::string& path)
    {
        std::ifstream table(path);
        ASSERT_TRUE(table) << path;
        for (std::string line; std::getline(table, line) && !HasFailure();) {
            LineWords words(line);
            ASSERT_EQ(words.Next(), "case");
            SCOPED_TRACE(line);
            ++cases;
            ASSERT_NO_FATAL_FAILURE(SetUpCase(words));
            const ExpectedEvaluation expected = ExpectedEvaluation::Read(table);
            CompareProject(expected);
            CompareShortMemory();
            QFile::remove(App().sProjectPath);
        }
        std::cout << path << ": " << cases << " recordings, " << sets << " sets\n";
        EXPECT_GE(cases, 100);
    }

private:
    void SetUpCase(LineWords& words)
    {
        const quint64 seed = std::stoull(words.Next());
        const int profile = words.NextWhole();
        const int count = words.NextWhole();
        CreateProject(words.NextWhole(), QStringLiteral("case.MDB"));
        App().dInterval = words.NextNumber();
        settings.SetTWindowSize(words.NextNumber());
        settings.SetTWindowFactor(words.NextNumber());
        settings.SetTWindowSelection(static_cast<qint16>(words.NextWhole()));
        for (std::size_t i = 0; i < 3; ++i)
            settings.SetEnergyCosts(i, words.NextNumber());
        settings.SetCycles(words.NextWhole());
        App().ProgSettings = &settings;
        SetMachine(words);
        std::vector<tValueRow> rows = MakeRecording(seed, profile, count);
        sets += count;
        StoreRows(rows);
        ASSERT_EQ(App().iSetCount, count);
    }
    static void SetMachine(LineWords& words)
    {
        App().bModelValid = words.NextWhole() != 0;
        App().MachineI.model.Tth = words.NextNumber();
        MachineRecord& machine = App().MachineI.record;
        for (std::optional<double>* value :
             {&machine.U, &machine.I, &machine.f, &machine.n, &machine.M, &machine.Pmech, &machine.Mkipp_Mn})
            *value = words.NextOptional();
        App().MachineI.model.Pelec_n = words.NextNumber();
        App().MachineI.model.Kippmoment = words.NextNumber();
    }
    void CompareProject(const ExpectedEvaluation& expected)
    {
        if (expected.isFault) {
            EXPECT_THROW(EvaluateProject(), ArithmeticFault);
            EXPECT_EQ(App().bEvaluated, 0);
            return;
        }
        EvaluateProject();
        EXPECT_NE(App().bEvaluated, 0);
        EXPECT_FALSE(IsProjectDbOpen());
        EXPECT_EQ(App().dTWindow, expected.window);
        EXPECT_EQ(settings.TWindowSelection(), expected.selection);
        expected.Compare(App().MachineI.evaluation);
    }
    /// A window that doesn't fit into memory is read a second time, with the same results.
    void CompareShortMemory()
    {
        PassConditions conditions;
        conditions.netConf = App().iNetConfIndex;
        conditions.window = App().dTWindow;
        conditions.rated = RatedDataOf(WhichMachine::I);
        conditions.energy = {App().dInterval,
                             App().bModelValid,
                             {settings.EnergyCosts(0), settings.EnergyCosts(1), settings.EnergyCosts(2)},
                             static_cast<double>(settings.Cycles())};
        const ProjectDbScope scope;
        for (const qint32 mostInMemory : {0, 1, 10, 1000000}) {
            SCOPED_TRACE(mostInMemory);
            const EvaluationResults results = EvaluateSets(
                ProjectDb(), SetSource::Measured, conditions, App().iSetCount, [](qint32) {}, mostInMemory);
            ExpectSameResults(results, App().MachineI.evaluation);
        }
    }

    clsProgSettings settings{QStringLiteral("/opt/korvanel")};
    int cases = 0;
    int sets = 0;
};

TEST_F(IndependentEvaluation, EveryFigureAgreesInEveryBit)
{
    const char* const other = std::getenv("KORVANEL_EVALUATION_TABLE");
    CompareTable(other == nullptr ? KORVANEL_EVALUATION_DATA "/random_evaluations.txt" : other);
}

} // namespace
} // namespace korvanel::test
