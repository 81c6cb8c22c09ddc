// The simulation against tables that another program has calculated: see independent_simulation.py, which shares
// nothing with this one. Points and working values have to agree to 1e-12; figures of an evaluation whose rows are
// given, and energies over the powers that are stored, in every bit. Larger tables of its making are compared too if
// the environment names them in KORVANEL_SIMULATION_POINTS, _RECORDINGS and _EVALUATIONS.
#include "core/Common.h"
#include "evaluation/ExpectedEvaluation.h"
#include "evaluation/RatedData.h"
#include "machine/Algorithms_ASM_Start.h"
#include "simulation/Algorithms_ASM_Simulation.h"
#include "simulation/SimulatedRow.h"
#include "simulation/SimulationFixture.h"
#include "support/TestPaths.h"

#include <bit>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace korvanel::test {
namespace {

constexpr double kTolerance = 1e-12;

std::string TableOr(const char* variable, const char* path)
{
    const char* const other = std::getenv(variable);
    return other == nullptr ? path : other;
}

class IndependentSimulation : public SimulationTest
{
protected:
    /// `tolerance` is relative; 0 wants the same bits. A figure that sums both signs is close by the scale of its
    /// parts.
    void Compare(const std::string& name, double value, double expected, double tolerance = kTolerance,
                 double scale = 0)
    {
        ++figures;
        const bool isSame = std::bit_cast<quint64>(value) == std::bit_cast<quint64>(expected);
        const double difference = std::abs(value - expected);
        scale = std::max(scale, std::abs(expected));
        if (!isSame && scale > 0)
            greatest = std::max(greatest, difference / scale);
        const bool isZero = value == 0 && expected == 0;
        EXPECT_TRUE(isSame || (tolerance > 0 && (isZero || difference <= tolerance * scale)))
            << name << " is " << Hex(value) << ", expected " << Hex(expected);
    }
    static MachineRecord ReadMachine(LineWords& words)
    {
        MachineRecord machine;
        machine.Polpaarzahl = static_cast<qint16>(words.NextWhole());
        for (std::optional<double>* value : {&machine.Pmech, &machine.U, &machine.M, &machine.n, &machine.I, &machine.f,
                                             &machine.cosphi, &machine.Po, &machine.Uo, &machine.fo, &machine.Mkipp_Mn})
            *value = words.NextOptional();
        return machine;
    }
    void Report(const char* what, int count) const
    {
        std::cout << count << ' ' << what << ", " << figures << " figures, greatest difference " << greatest << '\n';
    }

    double greatest = 0;
    int figures = 0;
};

// ---- single points

class IndependentPoints : public IndependentSimulation
{
protected:
    void CompareWorkingValues(LineWords& words)
    {
        static const std::map<std::string, double MachineModel::*> kFields{
            {"Pel", &MachineModel::Pelec_n},        {"stall", &MachineModel::Kippmoment},
            {"n_syn", &MachineModel::n_syn_n},      {"slip", &MachineModel::Nennschlupf},
            {"regress", &MachineModel::Po_regress}, {"polynom", &MachineModel::Po_polynom},
            {"rech", &MachineModel::Po_rech},       {"k", &MachineModel::k_maschine},
        };
        shell.boxes.clear();
        App().ModelErrors = 7;
        const bool isPrepared = PrepareMachine2();
        const int message = words.NextWhole();
        const QStringList told = message == 0 ? QStringList() : QStringList{ModelMessages(message)};
        EXPECT_EQ(isPrepared, message == 0);
        EXPECT_EQ(shell.BoxTexts(), told);
        EXPECT_EQ(App().ModelErrors, message == 0 ? 0 : 1);
        for (std::string word = words.Next(); !word.empty(); word = words.Next()) {
            const std::string name = word.substr(0, word.find('='));
            Compare(name, App().MachineII.model.*kFields.at(name), LineWords::NumberOf(word.substr(name.size() + 1)));
        }
    }
    void ComparePoint(const SimulatedPoint& point, LineWords& words)
    {
        const std::pair<const char*, double> values[] = {
            {"n", point.n}, {"Pmech", point.Pmech}, {"P", point.P}, {"eta", point.eta}, {"loss", point.loss}};
        for (const auto& [name, value] : values)
            Compare(name, value, words.NextNumber());
    }
    /// A set at a point of the machine in the block.
    void CompareRow(LineWords& words)
    {
        const double M = words.NextNumber();
        const double U = words.NextNumber();
        const double f = words.NextNumber();
        const SimulatedPoint point =
            SimulatedPointAt(SecondMachineOf(App().MachineII.record, App().MachineII.model), M, U, f);
        ComparePoint(point, words);
        App().SimulatedRow = {};
        SimulateRow(M, U, f);
        const tValueRow& row = App().SimulatedRow;
        EXPECT_EQ(row.dM, M);
        EXPECT_EQ(row.dU[kSum], U);
        EXPECT_EQ(row.df, f);
        EXPECT_EQ(row.dn, point.n);
        EXPECT_EQ(row.dPmech, point.Pmech);
        EXPECT_EQ(row.dP[kSum], point.P);
        EXPECT_EQ(row.deta, point.eta);
        EXPECT_EQ(row.sMethod, "P");
    }
    void CompareLoosePoint(LineWords& words)
    {
        SecondMachine machine;
        machine.U = words.NextNumber();
        machine.f = words.NextNumber();
        machine.M = words.NextNumber();
        machine.polePairs = words.NextWhole();
        machine.slip = words.NextNumber();
        machine.Po = words.NextNumber();
        machine.k = words.NextNumber();
        const double M = words.NextNumber();
        const double U = words.NextNumber();
        const double f = words.NextNumber();
        ComparePoint(SimulatedPointAt(machine, M, U, f), words);
    }
};

TEST_F(IndependentPoints, WorkingValuesAndPointsAgree)
{
    std::ifstream table(TableOr("KORVANEL_SIMULATION_POINTS", KORVANEL_SIMULATION_DATA "/points.txt"));
    ASSERT_TRUE(table);
    // The measured machine has no part in it.
    App().MachineI.record = Generator();
    App().MachineI.model.Po_rech = App().MachineI.model.k_maschine = App().MachineI.model.R2 = 12345;
    int machines = 0;
    int points = 0;
    std::map<int, int> outcomes;
    for (std::string line; std::getline(table, line) && !HasFailure();) {
        SCOPED_TRACE(line);
        LineWords words(line);
        const std::string kind = words.Next();
        points += kind == "row" || kind == "loose";
        if (kind == "machine") {
            ++machines;
            App().MachineII.record = ReadMachine(words);
        } else if (kind == "working") {
            CompareWorkingValues(words);
            ++outcomes[shell.boxes.empty() ? 0 : static_cast<int>(shell.boxes.front().text.size())];
        } else if (kind == "row") {
            CompareRow(words);
        } else if (kind == "loose") {
            CompareLoosePoint(words);
        } else {
            FAIL() << "unknown line";
        }
    }
    Report("machines", machines);
    EXPECT_GE(machines, 400);
    EXPECT_GE(points, 1200);
    EXPECT_EQ(outcomes.size(), 4U) << "no machine for one of the three messages";
}

// ---- recordings

class IndependentRecordings : public IndependentSimulation
{
protected:
    /// The project of a case, with the machine in its next line; how many sets it has.
    int BeginCase(std::istream& table, LineWords& words)
    {
        EXPECT_EQ(words.Next(), "case");
        const int netConf = words.NextWhole();
        const double interval = words.NextNumber();
        const double window = words.NextNumber();
        CreateProject(netConf, QStringLiteral("case.MDB"));
        App().dInterval = interval;
        App().dTWindow = window;
        App().bModelValid = true;
        for (std::size_t i = 0; i < 3; ++i)
            settings.SetEnergyCosts(i, words.NextNumber());
        settings.SetCycles(words.NextWhole());
        const int count = words.NextWhole();
        LineWords machine = NextLine(table, "machine");
        App().MachineII.record = ReadMachine(machine);
        App().bASMSim = true;
        return count;
    }
    static LineWords NextLine(std::istream& table, const std::string& kind)
    {
        std::string line;
        std::getline(table, line);
        LineWords words(line);
        EXPECT_EQ(words.Next(), kind) << line;
        return words;
    }
    /// Where great values have left the window, its sums are what rounding has left of them; only against the largest
    /// is the smallest to be trusted then, and a set isn't any more.
    void CompareEntries(std::istream& table, const std::string& kind, std::initializer_list<int> numbers,
                        std::span<const ExtremEntry> smallest, std::span<const ExtremEntry> largest, double tolerance)
    {
        constexpr double kNoise = 1e-5;
        LineWords words = NextLine(table, kind);
        const auto squared = [&](double x) { return kind == "rms" && tolerance > 0 ? x * x : x; };
        for (const int number : numbers) {
            const auto index = static_cast<std::size_t>(number);
            const double most = std::max(std::abs(smallest[index].dValue), std::abs(largest[index].dValue));
            for (const auto& [name, entry] :
                 {std::pair{" smallest of ", smallest[index]}, {" largest of ", largest[index]}}) {
                const std::string what = kind + name + std::to_string(number);
                Compare(what, squared(entry.dValue), squared(words.NextNumber()), tolerance, squared(most));
                const int set = words.NextWhole();
                if (tolerance == 0 || std::abs(entry.dValue) > kNoise * most) {
                    EXPECT_EQ(entry.lSet, set) << what;
                }
            }
        }
    }
    void CompareEnergies(std::istream& table, double tolerance)
    {
        LineWords words = NextLine(table, "energy");
        for (const std::size_t row : {0U, 4U, 5U, 6U, 8U, 12U, 13U, 14U}) {
            const EnergyEntry& entry = App().MachineII.evaluation.tEnergy.at(row);
            const double scale = row % 8 == 5 ? 0 : std::abs(entry.dPlus) + std::abs(entry.dMinus);
            const std::string name = "energy " + std::to_string(row);
            Compare(name + " plus", entry.dPlus, words.NextNumber(), tolerance);
            Compare(name + " minus", entry.dMinus, words.NextNumber(), tolerance);
            Compare(name + " total", entry.dTotal, words.NextNumber(), tolerance, scale);
        }
    }
    void CompareUtilisation(std::istream& table, double tolerance)
    {
        static const QString kWords[] = {"-", "gut", "mittel", "schlecht"};
        LineWords words = NextLine(table, "use");
        for (const std::size_t row : {0U, 2U, 3U, 4U, 5U, 7U, 8U, 9U, 10U}) {
            const UtilisationEntry& entry = App().MachineII.evaluation.tAsm.at(row);
            const std::string name = "utilisation " + std::to_string(row);
            Compare(name, entry.dValue, words.NextNumber(), tolerance);
            const std::optional<double> ratio = words.NextOptional();
            EXPECT_EQ(entry.vRatio.has_value(), ratio.has_value()) << name;
            if (entry.vRatio && ratio)
                Compare(name + " ratio", *entry.vRatio, *ratio, tolerance);
            EXPECT_EQ(entry.dSet, words.NextNumber()) << name;
            const int rating = words.NextWhole();
            EXPECT_EQ(entry.sVerdict, kWords[rating]) << name;
            EXPECT_EQ(entry.lColour, kRatingColours.at(static_cast<std::size_t>(rating))) << name;
        }
    }
    void CompareEvaluation(std::istream& table, double tolerance)
    {
        const EvaluationResults& results = App().MachineII.evaluation;
        CompareEntries(table, "extremes", {kU, kF, kP, kN, kM, kPmech, kEta}, results.tExtremMin, results.tExtremMax,
                       tolerance);
        CompareEntries(table, "rms", {kP, kM, kPmech}, results.tRmsMin, results.tRmsMax, tolerance);
        CompareEntries(table, "means", {kP, kM, kPmech, kLossChannel}, results.tAvgMin, results.tAvgMax, tolerance);
        CompareEnergies(table, tolerance);
        CompareUtilisation(table, tolerance);
        LineWords words = NextLine(table, "classes");
        for (const qint32 count : results.lRowClassCount)
            EXPECT_EQ(count, words.NextWhole());
        EXPECT_EQ(results.dWindowRows, words.NextNumber());
    }
    /// The stored powers added up once more, and what the table has.
    void CompareStoredEnergies(const std::vector<StoredSet>& stored, const std::vector<double>& times,
                               const std::vector<std::array<double, 3>>& expected)
    {
        double plus = 0;
        double minus = 0;
        double total = 0;
        double last = 0;
        for (std::size_t i = 0; i < stored.size(); ++i) {
            const double step = (times[i] - last) * stored[i].P;
            last = times[i];
            (step >= 0 ? plus : minus) += step;
            total += step;
            Compare("Wp", stored[i].Wp, total, 0);
            Compare("Wp+", stored[i].WpPlus, plus, 0);
            Compare("Wp-", stored[i].WpMinus, minus, 0);
            Compare("Wp of the table", stored[i].Wp, expected[i][0], kTolerance, plus - minus);
            Compare("Wp+ of the table", stored[i].WpPlus, expected[i][1]);
            Compare("Wp- of the table", stored[i].WpMinus, expected[i][2]);
        }
    }
    void RunCase(std::istream& table, int count)
    {
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        std::vector<std::array<double, 4>> points; // n, Pmech, P, eta
        std::vector<std::array<double, 3>> energies;
        std::vector<double> times;
        for (tValueRow& row : rows) {
            LineWords words = NextLine(table, "set");
            row.dM = words.NextNumber();
            row.dU[kSum] = words.NextNumber();
            row.df = words.NextNumber();
            row.dt = words.NextNumber();
            row.dP[kSum] = row.dI[kSum] = row.dn = row.dPmech = row.deta = 7777; // of the first machine: no matter
            times.push_back(row.dt);
            for (double& value : points.emplace_back())
                value = words.NextNumber();
            for (double& value : energies.emplace_back())
                value = words.NextNumber();
        }
        StoreRows(rows);
        ASSERT_TRUE(RunSimulation());
        const std::vector<StoredSet> stored = StoredSets();
        ASSERT_EQ(stored.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            SCOPED_TRACE("set " + std::to_string(i + 1));
            EXPECT_EQ(stored[i].set, static_cast<int>(i) + 1);
            EXPECT_EQ(stored[i].U, rows[i].dU[kSum]);
            EXPECT_EQ(stored[i].f, rows[i].df);
            EXPECT_EQ(stored[i].M, rows[i].dM);
            Compare("n", stored[i].n, points[i][0]);
            Compare("Pmech", stored[i].Pmech, points[i][1]);
            Compare("P", stored[i].P, points[i][2]);
            Compare("eta", stored[i].eta, points[i][3]);
            EXPECT_EQ(stored[i].method, "P");
        }
        CompareStoredEnergies(stored, times, energies);
        EXPECT_TRUE(EvaluateSimulation());
        CompareEvaluation(table, kTolerance);
    }
    /// Rows that no machine has made, so that every bit of their evaluation is known.
    void EvaluateCase(std::istream& table, int count)
    {
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        StoreRows(rows);
        for (tValueRow& row : rows) {
            LineWords words = NextLine(table, "set");
            for (double* value : {&row.dM, &row.dU[kSum], &row.df, &row.dn, &row.dPmech, &row.dP[kSum], &row.deta})
                *value = words.NextNumber();
        }
        StoreSimulated(rows);
        ASSERT_TRUE(PrepareMachine2());
        EXPECT_TRUE(EvaluateSimulation());
        CompareEvaluation(table, 0);
    }
};

TEST_F(IndependentRecordings, RowsEnergiesAndEvaluationAgree)
{
    std::ifstream table(TableOr("KORVANEL_SIMULATION_RECORDINGS", KORVANEL_SIMULATION_DATA "/recordings.txt"));
    ASSERT_TRUE(table);
    int cases = 0;
    for (std::string line; std::getline(table, line) && !HasFailure(); ++cases) {
        SCOPED_TRACE(line);
        LineWords words(line);
        RunCase(table, BeginCase(table, words));
        QFile::remove(App().sProjectPath);
    }
    Report("recordings", cases);
    EXPECT_GE(cases, 15);
}

TEST_F(IndependentRecordings, EvaluationOfGivenRowsAgreesInEveryBit)
{
    std::ifstream table(TableOr("KORVANEL_SIMULATION_EVALUATIONS", KORVANEL_SIMULATION_DATA "/evaluations.txt"));
    ASSERT_TRUE(table);
    int cases = 0;
    for (std::string line; std::getline(table, line) && !HasFailure(); ++cases) {
        SCOPED_TRACE(line);
        LineWords words(line);
        EvaluateCase(table, BeginCase(table, words));
        QFile::remove(App().sProjectPath);
    }
    Report("evaluations", cases);
    EXPECT_GE(cases, 30);
}

} // namespace
} // namespace korvanel::test
