// From the START button to stored rows with each entry of the families that send one value of each quantity: what is
// stored is what the line carried, by the formulas of the entry.
#include "e2e/MachineFixture.h"

#include <cmath>
#include <map>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr double kSqrt3 = std::numbers::sqrt3;
constexpr double kRadian = std::numbers::pi / 180;

/// Values of one sample by their names: U, I, P, Q, S, f, cosphi, phi.
using Sample = std::map<QString, double>;

double AngleOf(double cosPhi)
{
    return std::abs(cosPhi) < 1 ? std::acos(cosPhi) / kRadian : 0;
}

Sample OfNanovip(Sample sent)
{
    const double sign = sent["P"] > 0 ? 1 : sent["P"] < 0 ? -1 : 0;
    const double factor = std::abs(sent["cosphi"]) * sign;
    const double phi = AngleOf(factor) * (sent["cosphi"] < 0 ? -1 : 1);
    sent["cosphi"] = factor;
    sent["phi"] = phi;
    return sent;
}

Sample OfWt130(Sample sent, double voltageFactor, double powerFactor, bool isThreePhase)
{
    const double S = sent["U"] * sent["I"] * (isThreePhase ? kSqrt3 : 1) * powerFactor;
    const double phi = sent["phi"] * sent["sense"];
    return {{"U", sent["U"] * voltageFactor},
            {"I", sent["I"]},
            {"f", sent["f"]},
            {"P", sent["P"] * (isThreePhase ? 1 : powerFactor)},
            {"S", S},
            {"Q", S * std::sin(phi * kRadian)},
            {"cosphi", std::cos(phi * kRadian)},
            {"phi", phi}};
}

Sample Of2535(Sample sent, double voltageFactor, double powerFactor, bool isThreePhase)
{
    const double S = sent["U"] * sent["I"] * (isThreePhase ? kSqrt3 : 1) * powerFactor;
    const double P = sent["P"] * (isThreePhase ? 1 : powerFactor);
    const double cosPhi = S == 0 ? 0 : P / S;
    return {{"U", sent["U"] * voltageFactor},
            {"I", sent["I"]},
            {"f", sent["f"]},
            {"P", P},
            {"S", S},
            {"Q", std::abs(P) >= std::abs(S) ? 0 : std::sqrt(S * S - P * P)},
            {"cosphi", cosPhi},
            {"phi", AngleOf(cosPhi)}};
}

Sample OfNorma(Sample sent, double voltageFactor)
{
    const double S = std::hypot(sent["P"], sent["Q"]);
    const double cosPhi = S == 0 ? 0 : sent["P"] / S;
    return {{"U", sent["U"] * voltageFactor},
            {"I", sent["I"]},
            {"f", sent["f"]},
            {"P", sent["P"]},
            {"Q", sent["Q"]},
            {"S", S},
            {"cosphi", cosPhi},
            {"phi", AngleOf(cosPhi) * (sent["Q"] < 0 ? -1 : 1)}};
}

struct FamilyEntry
{
    const char* name;
    int netConf;
    const char* family;
    QStringList options;
    int interval; ///< s, the smallest
    Sample (*expected)(Sample sent);
    int queries = 1; ///< of a sample that read a value
};

const std::vector<FamilyEntry>& FamilyEntries()
{
    static const std::vector<FamilyEntry> entries{
        {"NANOVIP-PLUS 1Ø2W", 0, "nanovip", {"--switch", "1"}, 2, OfNanovip},
        {"NANOVIP-PLUS 3Ø3W", 1, "nanovip", {"--switch", "3"}, 2, OfNanovip},
        {"NORMA D4355 1Ø2W", 0, "norma", {}, 2, [](Sample s) { return OfNorma(s, 1); }, 5},
        {"NORMA D4355 3Ø4W", 1, "norma", {}, 2, [](Sample s) { return OfNorma(s, kSqrt3); }, 5},
        {"YOKOGAWA WT130 1Ø2W", 0, "wt130", {}, 1, [](Sample s) { return OfWt130(s, 1, 1, false); }},
        {"YOKOGAWA WT130 1Ø2W", 1, "wt130", {}, 1, [](Sample s) { return OfWt130(s, kSqrt3, 3, false); }},
        {"YOKOGAWA WT130 3Ø3W", 1, "wt130", {}, 1, [](Sample s) { return OfWt130(s, 1, 1, true); }},
        {"YOKOGAWA WT130 3Ø4W", 1, "wt130", {}, 1, [](Sample s) { return OfWt130(s, kSqrt3, kSqrt3, true); }},
        {"YOKOGAWA 2535 1Ø2W", 0, "2535", {}, 1, [](Sample s) { return Of2535(s, 1, 1, false); }},
        {"YOKOGAWA 2535 1Ø2W", 1, "2535", {}, 1, [](Sample s) { return Of2535(s, kSqrt3, 3, false); }},
        {"YOKOGAWA 2535 3Ø3W", 1, "2535", {}, 1, [](Sample s) { return Of2535(s, 1, 1, true); }},
        {"YOKOGAWA 2535 3Ø4W", 1, "2535", {}, 1, [](Sample s) { return Of2535(s, kSqrt3, kSqrt3, true); }},
    };
    return entries;
}

/// A number, or the letter that tells whether the current lags or leads.
double ValueOf(const QString& text)
{
    return text == "G" ? 1 : text == "D" ? -1 : text.toDouble();
}

/// The values of all samples that the line carried: a block has all in one reply, else each has a query of its own.
std::vector<Sample> SentSamples(const std::vector<LoggedExchange>& log, int queries)
{
    static const std::map<int, QString> names{{0, "U"}, {1, "I"}, {2, "f"}, {3, "P"}, {5, "Q"}};
    std::vector<Sample> samples;
    int taken = 0;
    for (const LoggedExchange& exchange : log) {
        if (exchange.kind != "query")
            continue;
        if (taken % queries == 0)
            samples.emplace_back();
        ++taken;
        if (exchange.code >= 0)
            samples.back()[names.at(exchange.code)] = exchange.text.trimmed().toDouble();
        else
            for (const QString& pair : exchange.text.split(u' ', Qt::SkipEmptyParts))
                samples.back()[pair.section(u'=', 0, 0)] = ValueOf(pair.section(u'=', 1));
    }
    if (taken % queries != 0)
        samples.pop_back(); // the last one was not taken to its end
    return samples;
}

class FamilyRecordingTest : public RecordingTest, public ::testing::WithParamInterface<std::size_t>
{
};

TEST_P(FamilyRecordingTest, StoredRowsAreWhatWasSent)
{
    const FamilyEntry& entry = FamilyEntries()[GetParam()];
    SimulatorProcess simulator(folder.path(), QStringList{"--family", entry.family} + entry.options);
    AssignPort(simulator.Link());
    StartWithInstrument(entry.netConf, entry.name);
    Diagnose();
    EXPECT_EQ(program.Text("cboInterval"), QString::number(entry.interval));
    OpenRun();
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(2));
    // Fed back, and capacitive where the family tells it.
    simulator.Tell("value 3 -1230");
    if (QLatin1String(entry.family) == "norma")
        simulator.Tell("value 5 -456");
    if (QLatin1String(entry.family) == "nanovip")
        simulator.Tell("value 6 -0.75");
    if (QLatin1String(entry.family) == "wt130")
        simulator.Tell("value 11 -33.5");
    ASSERT_TRUE(WaitForSamples(program.Text("lblCount_3").toInt() + 3));
    StopRun();

    const std::vector<LoggedExchange> log = simulator.Log();
    // The block with which the NANOVIP is identified and configured is none of the run.
    std::vector<Sample> samples = SentSamples(log, entry.queries);
    const int stored = Count();
    ASSERT_GE(stored, 5);
    ASSERT_GE(static_cast<int>(samples.size()), stored);
    samples.erase(samples.begin(), samples.end() - stored);
    for (int set = 1; set <= stored; ++set) {
        const Sample sent = samples[static_cast<std::size_t>(set) - 1];
        for (const auto& [name, expected] : entry.expected(sent)) {
            const QString cell = Query(QStringLiteral("SELECT [%1 sum] FROM SampledValues NATURAL JOIN ComputedValues "
                                                      "WHERE SampledValues.[Set]=%2")
                                           .arg(name)
                                           .arg(set));
            ASSERT_FALSE(cell.isEmpty()) << name.toStdString();
            const double near = QLatin1String(entry.family) == "nanovip" ? 2e-7 : 1e-9; // single precision
            EXPECT_NEAR(cell.toDouble(), expected, near * std::max(1.0, std::abs(expected)) * (name == "phi" ? 100 : 1))
                << name.toStdString() << " of set " << set;
        }
        EXPECT_EQ(Query(QStringLiteral("SELECT t FROM SampledValues WHERE [Set]=%1").arg(set)).toInt(),
                  (set - 1) * entry.interval);
    }
    EXPECT_LT(Query("SELECT min([P sum]) FROM SampledValues").toDouble(), -1000);
}

INSTANTIATE_TEST_SUITE_P(Families, FamilyRecordingTest, ::testing::Range<std::size_t>(0, 12));

const QString kTimeout =
    QStringLiteral("COM1: Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!");
const QString kNotFound = QStringLiteral("COM1: Kann eingestelltes Messgerät nicht finden!");
const QString kSelfTest = QStringLiteral("COM1: Gerät nicht gefunden oder Selbsttest erfolglos.\n"
                                         "Bitte prüfen sie Anschluss und Zustand des Gerätes.");

struct FamilyFault
{
    const char* entry;
    int netConf;
    const char* family;
    QString stranger; ///< told of a reply that is none
};

class FamilyFaultTest : public RecordingTest, public ::testing::WithParamInterface<FamilyFault>
{
};

TEST_P(FamilyFaultTest, OnConnecting_IsToldAndTheNextTryWorks)
{
    SimulatorProcess simulator(folder.path(), {"--family", GetParam().family});
    AssignPort(simulator.Link());
    StartWithInstrument(GetParam().netConf, QString::fromUtf8(GetParam().entry));
    for (const char* fault : {"silent", "garbage", "late"}) {
        simulator.Tell(QStringLiteral("delay 3"));
        simulator.Tell(QStringLiteral("fault ") + QLatin1String(fault));
        program.Trigger("cmdDiag");
        EXPECT_EQ(program.AnswerBox("OK"), QLatin1String(fault) == "garbage" ? GetParam().stranger : kTimeout) << fault;
        program.WaitForQuiet();
        ASSERT_TRUE(WaitForLamp("shpLED_0", kRed));
        simulator.Tell("fault none");
        QThread::sleep(4); // what is late goes by
    }
    Diagnose();
}

TEST_P(FamilyFaultTest, DuringARun_StoresNothingWrongAndGoesOn)
{
    SimulatorProcess simulator(folder.path(), {"--family", GetParam().family});
    AssignPort(simulator.Link());
    StartWithInstrument(GetParam().netConf, QString::fromUtf8(GetParam().entry));
    Diagnose(); // it configures the instrument
    OpenRun();
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(2));
    for (const char* fault : {"silent", "truncated"}) {
        simulator.Tell(QStringLiteral("fault ") + QLatin1String(fault));
        if (QLatin1String(GetParam().family) == "norma" && QLatin1String(fault) == "truncated")
            simulator.Tell("set 0 0.1"); // half a number is one all the same; a voltage below half a volt is none
        ASSERT_TRUE(WaitForLamp("shpLamp", kRed)) << fault;
        simulator.Tell("fault none");
        if (QLatin1String(GetParam().family) == "norma")
            simulator.Tell("value 0 231");
        ASSERT_TRUE(WaitForSamples(program.Text("lblCount_3").toInt() + 1));
    }
    simulator.Tell("close");
    EXPECT_TRUE(program.AnswerBox("OK").startsWith("COM1:"));
    program.WaitForText("cmdSTART", "START Messung");
    const int stored = Count();
    EXPECT_GE(stored, 4);
    EXPECT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), stored);
    EXPECT_GT(Query("SELECT min([U sum]) FROM SampledValues").toDouble(), 100);
    simulator.Tell("open");
    program.Trigger("cmdSTART");
    program.AnswerBox("Ja");
    program.WaitForText("cmdSTART", "STOP Messung");
    ASSERT_TRUE(WaitForSamples(1)) << "without a start of the program anew";
    StopRun();
}

INSTANTIATE_TEST_SUITE_P(Families, FamilyFaultTest,
                         ::testing::Values(FamilyFault{"NANOVIP-PLUS 1Ø2W", 0, "nanovip", kNotFound},
                                           FamilyFault{"YOKOGAWA WT130 3Ø3W", 1, "wt130", kNotFound},
                                           FamilyFault{"YOKOGAWA 2535 3Ø4W", 1, "2535", kNotFound},
                                           FamilyFault{"NORMA D4355 3Ø4W", 1, "norma", kSelfTest}));

struct FamilyNoLoad
{
    const char* entry;
    const char* family;
    QStringList options;
    QStringList commands; ///< that hold the line at 400 V, 11 A, 50 Hz, 648 W
    double voltage;       ///< V that is found
};

class FamilyNoLoadTest : public MachineProgramTest, public ::testing::WithParamInterface<FamilyNoLoad>
{
};

TEST_P(FamilyNoLoadTest, TakesTheMeanOfSevenSteadySamples)
{
    SimulatorProcess simulator(folder.path(), QStringList{"--family", GetParam().family} + GetParam().options);
    OpenMachinePage(simulator.Link());
    program.Trigger("mnuDeviceConf");
    program.WaitForControl("FormF3");
    program.Choose("cboSelect", QString::fromUtf8(GetParam().entry));
    Diagnose(); // it configures the instrument
    program.Trigger("mnuDatabase");
    program.WaitForControl("FormF10");
    for (const QString& command : GetParam().commands)
        simulator.Tell(command);
    TypePlate(false);
    Check("chkstatus_1", true);
    Check("chkOnline", true);
    program.Choose("cboSelect", QString::fromUtf8(GetParam().entry));
    program.Trigger("cmdNoLoad");
    program.WaitForText("cmdNoLoad", "Messung beenden");
    program.WaitForText("cmdNoLoad", "Leerlaufdaten ermitteln");
    const auto number = [this](const char* box) { return program.Text(box).replace(',', '.').toDouble(); };
    EXPECT_NEAR(number("txtLeerlauf_1"), GetParam().voltage, 0.01);
    EXPECT_NEAR(number("txtLeerlauf_2"), 11, 0.001);
    EXPECT_NEAR(number("txtLeerlauf_3"), 50, 0.001);
    EXPECT_NEAR(number("txtLeerlauf_0"), 0.648, 0.0005);
}

const QStringList kNoLoadValues{"value 0 400", "value 1 11", "value 2 50", "value 3 648"};

INSTANTIATE_TEST_SUITE_P(
    Families, FamilyNoLoadTest,
    ::testing::Values(
        FamilyNoLoad{"NANOVIP-PLUS 3Ø3W", "nanovip", {}, kNoLoadValues + QStringList{"value 6 0.085"}, 400},
        FamilyNoLoad{"YOKOGAWA WT130 3Ø3W", "wt130", {}, kNoLoadValues + QStringList{"value 11 85"}, 400},
        FamilyNoLoad{"YOKOGAWA 2535 3Ø4W", "2535", {}, kNoLoadValues, 400 * kSqrt3},
        FamilyNoLoad{"NORMA D4355 3Ø4W", "norma", {}, kNoLoadValues + QStringList{"value 5 7500"}, 400 * kSqrt3}));

} // namespace
} // namespace korvanel::test
