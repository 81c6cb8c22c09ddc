// The model and both estimators against a table that another program has calculated: see independent_model.py, which
// shares nothing with this one and works with 50 digits. A larger table of its making is compared too if the
// environment names one in KORVANEL_MODEL_TABLE.
#include "core/Common.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Fixture.h"
#include "support/TestPaths.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace korvanel::test {
namespace {

constexpr double kTolerance = 1e-12;

const std::map<std::string, double MachineModel::*> kModelFields{
    {"Pelec_n", &MachineModel::Pelec_n},
    {"n_syn_n", &MachineModel::n_syn_n},
    {"phi_n", &MachineModel::phi_n},
    {"Nennschlupf", &MachineModel::Nennschlupf},
    {"Kippschlupf", &MachineModel::Kippschlupf},
    {"Kippmoment", &MachineModel::Kippmoment},
    {"Mreib_rech", &MachineModel::Mreib_rech},
    {"cosphi_o", &MachineModel::cosphi_o},
    {"phi_o", &MachineModel::phi_o},
    {"n_syn_o", &MachineModel::n_syn_o},
    {"Po_rech", &MachineModel::Po_rech},
    {"Po_regress", &MachineModel::Po_regress},
    {"Po_polynom", &MachineModel::Po_polynom},
    {"Po_RZM", &MachineModel::Po_RZM},
    {"Po_D_n", &MachineModel::Po_D_n},
    {"Po_Y_n", &MachineModel::Po_Y_n},
    {"Po_D_o", &MachineModel::Po_D_o},
    {"Po_Y_o", &MachineModel::Po_Y_o},
    {"M_RZM_D_n", &MachineModel::M_RZM_D_n},
    {"M_RZM_Y_n", &MachineModel::M_RZM_Y_n},
    {"M_RZM_D_o", &MachineModel::M_RZM_D_o},
    {"M_RZM_Y_o", &MachineModel::M_RZM_Y_o},
    {"Mreib_D_n", &MachineModel::Mreib_D_n},
    {"Mreib_Y_n", &MachineModel::Mreib_Y_n},
    {"k_RZM", &MachineModel::k_RZM},
    {"Tth_ICL", &MachineModel::Tth_ICL},
    {"Tth", &MachineModel::Tth},
    {"R2", &MachineModel::R2},
    {"Rs_rech", &MachineModel::Rs_rech},
    {"Rs_polynom", &MachineModel::Rs_polynom},
    {"k_maschine", &MachineModel::k_maschine},
};

std::optional<double> Number(const std::string& word)
{
    return word == "-" ? std::nullopt : std::optional(std::stod(word));
}

std::optional<QString> Text(const std::string& word)
{
    return word == "-" ? std::nullopt : std::optional(QString::fromStdString(word));
}

/// Reads the words of a line one by one.
class Words
{
public:
    explicit Words(const std::string& line) : stream(line) {}
    std::string Next()
    {
        std::string word;
        stream >> word;
        return word;
    }
    double NextNumber() { return std::stod(Next()); }
    bool IsAtEnd() { return (stream >> std::ws).eof(); }

private:
    std::istringstream stream;
};

class IndependentModel : public BlockTest
{
protected:
    void CompareTable(const std::string& path, int leastMachines, int leastSamples)
    {
        std::ifstream table(path);
        ASSERT_TRUE(table) << path;
        for (std::string line; std::getline(table, line);) {
            ++lineNumber;
            Words words(line);
            const std::string kind = words.Next();
            if (kind == "machine")
                BuildFrom(words);
            else if (kind == "status")
                CompareStatus(words);
            else if (kind == "model")
                CompareModel(words);
            else if (kind == "limits")
                CompareLimits(words);
            else if (kind == "sample")
                CompareSample(words);
            else
                FAIL() << "line " << lineNumber << ": " << line;
        }
        std::cout << path << ": " << machines << " machines, " << samples << " samples, greatest difference "
                  << greatest << '\n';
        EXPECT_GE(machines, leastMachines);
        EXPECT_GE(samples, leastSamples);
    }

private:
    void BuildFrom(Words& words)
    {
        ++machines;
        MachineRecord r;
        r.Polpaarzahl = static_cast<qint16>(words.NextNumber());
        for (std::optional<double>* field : {&r.Pmech, &r.U, &r.n, &r.I, &r.f, &r.cosphi, &r.Po, &r.Uo, &r.Io, &r.fo})
            *field = Number(words.Next());
        r.Schaltungsart = Text(words.Next());
        for (std::optional<double>* field : {&r.Rs, &r.Mkipp_Mn, &r.Tth})
            *field = Number(words.Next());
        r.I_CL = Text(words.Next());
        r.Masse = Number(words.Next());
        r.Mreib = words.Next() == "1";
        App().MachineI.record = r;
        App().MachineI.model = {};
        App().bModelValid = false;
        shell.boxes.clear();
        BuildMachineModel();
    }
    void CompareStatus(Words& words)
    {
        const int message = static_cast<int>(words.NextNumber());
        const QStringList told = message == 0 ? QStringList() : QStringList{ModelMessages(message)};
        EXPECT_EQ(shell.BoxTexts(), told) << "line " << lineNumber;
        EXPECT_EQ(App().ModelErrors, message == 0 ? 0 : 1) << "line " << lineNumber;
        EXPECT_EQ(App().bModelValid, words.NextNumber() != 0) << "line " << lineNumber;
        EXPECT_EQ(App().MachineI.record.Polpaarzahl, words.NextNumber()) << "line " << lineNumber;
        std::string known;
        for (const bool isKnown : App().MachineI.status)
            known += isKnown ? '1' : '0';
        EXPECT_EQ(known, words.Next()) << "line " << lineNumber;
    }
    void CompareModel(Words& words)
    {
        while (!words.IsAtEnd()) {
            const std::string word = words.Next();
            const std::string name = word.substr(0, word.find('='));
            const double expected = std::stod(word.substr(name.size() + 1));
            if (name == "M")
                Compare(name, *App().MachineI.record.M, expected);
            else if (name == "eta")
                Compare(name, *App().MachineI.record.eta, expected);
            else
                Compare(name, App().MachineI.model.*kModelFields.at(name), expected);
        }
    }
    void CompareLimits(Words& words)
    {
        for (const double limit : App().DiagramLimits)
            Compare("limit", limit, words.NextNumber());
    }
    void CompareSample(Words& words)
    {
        ++samples;
        double input[5];
        for (double& value : input)
            value = words.NextNumber();
        for (const int method : {0, 1}) {
            EstimateLoad(input[0], input[1], input[2], input[3], input[4], method);
            const LoadEstimate& estimate = App().Estimate;
            const std::string suffix = method == 0 ? " (V)" : " (P)";
            Compare("n" + suffix, estimate.n, words.NextNumber());
            Compare("M" + suffix, estimate.M, words.NextNumber());
            Compare("Pmech" + suffix, estimate.Pmech, words.NextNumber());
            Compare("eta" + suffix, estimate.eta, words.NextNumber());
        }
    }
    void Compare(const std::string& name, double value, double expected)
    {
        const double difference = std::abs(value - expected);
        const double relative = expected == 0 ? difference : difference / std::abs(expected);
        greatest = std::max(greatest, relative);
        EXPECT_LE(relative, kTolerance) << "line " << lineNumber << ", " << name << ": " << value << " for "
                                        << expected;
    }

    int lineNumber = 0;
    int machines = 0;
    int samples = 0;
    double greatest = 0;
};

// A larger table of the script beside this file is compared when KORVANEL_MODEL_TABLE names it.
TEST_F(IndependentModel, EveryDerivedValueAndEstimateAgrees)
{
    const char* const other = std::getenv("KORVANEL_MODEL_TABLE");
    CompareTable(other == nullptr ? KORVANEL_MODEL_DATA "/random_machines.txt" : other, 100, 300);
}

// What docs/maschinenmodell.md shows of the measured motor is what the formulas give, not only what this program does.
TEST_F(IndependentModel, EstimatesOfTheMeasuredMotorAgree)
{
    CompareTable(KORVANEL_MODEL_DATA "/measured_motor.txt", 4, 4 * 12);
}

} // namespace
} // namespace korvanel::test
