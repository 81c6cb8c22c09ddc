// From the START button to stored rows: every instrument entry of the family, compared with what the line carried.
#include "e2e/RecordingFixture.h"

#include <QRegularExpression>

#include <cmath>
#include <map>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr double kSqrt3 = std::numbers::sqrt3;

struct Entry
{
    const char* name;
    int netConf;
    std::vector<int> codes; ///< value codes of one sample, in order
    int mode;               ///< of the connection
    int interval;           ///< s, the smallest
};

std::vector<int> Concat(std::vector<int> a, std::initializer_list<std::pair<int, int>> ranges)
{
    for (const auto& [first, last] : ranges)
        for (int code = first; code <= last; ++code)
            a.push_back(code);
    return a;
}

std::vector<int> RecorderCodes(int voltage)
{
    std::vector<int> codes = Concat({}, {{voltage, voltage + 3}, {12, 15}});
    codes.push_back(36);
    codes.push_back(28);
    codes = Concat(codes, {{4, 7}, {8, 11}, {20, 23}, {32, 35}, {24, 27}});
    codes.insert(codes.end(), {0, 2, 1, 3});
    return codes;
}

std::vector<Entry> Entries()
{
    return {
        {"ISKRA MI71XX 1Ø2W (1b)", 0, {16, 13, 28, 32}, 1, 1},
        {"ISKRA MI71XX 3Ø3W (3b)", 1, {40, 12, 28, 32}, 9, 1},
        {"ISKRA MI71XX 3Ø4W (4b)", 1, {40, 12, 28, 32}, 25, 1},
        {"ISKRA MI71XX 3Ø3W (3u)", 1, {40, 12, 28, 32}, 5, 1},
        {"ISKRA MI71XX 3Ø4W (4u)", 1, {40, 12, 28, 32}, 7, 1},
        {"ISKRA MI71XX 1Ø2W (1b) Rec", 3, {16, 12, 36, 28, 4, 8, 20, 32, 24, 0, 2, 1, 3}, 1, 1},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-N", 4, RecorderCodes(16), 7, 5},
        {"ISKRA MI71XX 3Ø4W (4u) Rec L-L", 4, RecorderCodes(40), 7, 5},
        {"ISKRA MI71XX 3Ø4W U ", 6, {40, 41, 42, 43, 28}, 25, 1},
    };
}

/// A value text as a person reads it: number, prefix, unit.
double ReadText(const QString& text, int code)
{
    static const QRegularExpression form(QStringLiteral("^\\s*([-+]?[0-9.]+)\\s*([mkM]?)"));
    const QRegularExpressionMatch match = form.match(text);
    double value = match.captured(1).toDouble();
    const QString prefix = match.captured(2);
    value *= prefix == "m" ? 1e-3 : prefix == "k" ? 1e3 : prefix == "M" ? 1e6 : 1;
    if (code >= 8 && code <= 11 && text.endsWith('C'))
        value = -value;
    return code <= 3 ? value * 3600 : value;
}

using Sample = std::map<int, double>;

/// The samples that the line carried, by value code.
std::vector<Sample> Samples(const std::vector<LoggedExchange>& log, const std::vector<int>& codes)
{
    std::vector<Sample> samples;
    std::size_t next = 0;
    for (const LoggedExchange& exchange : log) {
        if (exchange.kind != "query")
            continue;
        EXPECT_EQ(exchange.code, codes[next]) << "order of the queries";
        if (next == 0)
            samples.emplace_back();
        samples.back()[exchange.code] = ReadText(exchange.text, exchange.code);
        next = (next + 1) % codes.size();
    }
    if (next != 0)
        samples.pop_back(); // the last one was not taken to its end
    return samples;
}

/// What has to stand in the columns, by the formulas of the net configuration.
std::map<QString, double> Expected(const Entry& entry, Sample& s)
{
    const double phi = s[32] * std::numbers::pi / 180;
    if (entry.netConf == 6)
        return {{"U sum", s[40]}, {"U 1", s[41]}, {"U 2", s[42]}, {"U 3", s[43]}, {"f sum", s[28]}};
    if (entry.netConf == 0 || entry.netConf == 1) {
        const double u = entry.netConf == 0 ? s[16] : s[40];
        const double i = entry.netConf == 0 ? s[13] : s[12] / 3;
        const double apparent = u * i * (entry.netConf == 0 ? 1 : kSqrt3);
        return {{"U sum", u},
                {"I sum", i},
                {"f sum", s[28]},
                {"phi sum", s[32]},
                {"P sum", apparent * std::cos(phi)},
                {"Q sum", apparent * std::sin(phi)},
                {"S sum", apparent},
                {"cosphi sum", std::cos(phi)}};
    }
    const int voltage = s.contains(40) ? 40 : 16;
    std::map<QString, double> columns{{"U sum", s[voltage]},  {"I sum", entry.netConf == 3 ? s[12] : s[12] / 3},
                                      {"I N", s[36]},         {"f sum", s[28]},
                                      {"P sum", s[4]},        {"Q sum", s[8]},
                                      {"S sum", s[20]},       {"phi sum", s[32]},
                                      {"cosphi sum", s[24]},  {"Wp+ abs", s[0]},
                                      {"Wp- abs", s[2]},      {"Wq+ abs", s[1]},
                                      {"Wq- abs", s[3]},      {"Wp abs", s[0] - s[2]},
                                      {"Wq abs", s[1] - s[3]}};
    for (int phase = 1; entry.netConf == 4 && phase <= 3; ++phase) {
        const QString suffix = ' ' + QString::number(phase);
        columns["U" + suffix] = s[voltage + phase];
        columns["I" + suffix] = s[12 + phase];
        columns["P" + suffix] = s[4 + phase];
        columns["Q" + suffix] = s[8 + phase];
        columns["S" + suffix] = s[20 + phase];
        columns["phi" + suffix] = s[32 + phase];
        columns["cosphi" + suffix] = s[24 + phase];
    }
    return columns;
}

class EntryRecordingTest : public RecordingTest, public ::testing::WithParamInterface<std::size_t>
{
};

TEST_P(EntryRecordingTest, StoredRowsAreWhatWasSent)
{
    const Entry entry = Entries()[GetParam()];
    SimulatorProcess simulator(folder.path());
    AssignPort(simulator.Link());
    StartWithInstrument(entry.netConf, entry.name);
    Diagnose();
    EXPECT_EQ(program.Text("cboInterval"), QString::number(entry.interval));
    OpenRun();
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(entry.interval > 1 ? 2 : 3));
    StopRun();

    const std::vector<LoggedExchange> log = simulator.Log();
    const auto configured =
        std::find_if(log.begin(), log.end(), [](const LoggedExchange& e) { return e.kind == "write" && e.code == 19; });
    ASSERT_NE(configured, log.end());
    EXPECT_EQ(configured->request.mid(4, 2).toHex().toInt(nullptr, 16), entry.mode);
    std::vector<Sample> samples = Samples(log, entry.codes);
    const int stored = Count();
    ASSERT_GE(stored, entry.interval > 1 ? 2 : 3);
    ASSERT_EQ(stored, static_cast<int>(samples.size()));
    for (int set = 1; set <= stored; ++set) {
        for (const auto& [column, expected] : Expected(entry, samples[static_cast<std::size_t>(set) - 1])) {
            const QString cell =
                Query(QStringLiteral("SELECT [%1] FROM SampledValues NATURAL JOIN ComputedValues WHERE "
                                     "SampledValues.[Set]=%2")
                          .arg(column)
                          .arg(set));
            ASSERT_FALSE(cell.isEmpty()) << column.toStdString();
            EXPECT_NEAR(cell.toDouble(), expected, 1e-9 * std::max(1.0, std::abs(expected)))
                << column.toStdString() << " of set " << set;
        }
        EXPECT_EQ(Query(QStringLiteral("SELECT t FROM SampledValues WHERE [Set]=%1").arg(set)).toInt(),
                  (set - 1) * entry.interval);
    }
}

INSTANTIATE_TEST_SUITE_P(Entries, EntryRecordingTest, ::testing::Range<std::size_t>(0, 9));

TEST_F(RecordingTest, PageOfTheRunShowsWhatIsStored)
{
    SimulatorProcess simulator(folder.path());
    AssignPort(simulator.Link());
    StartWithInstrument(0, "ISKRA MI71XX 1Ø2W (1b)");
    Diagnose();
    OpenRun();
    EXPECT_EQ(program.Text("lblDevice"), "MI7150 4711");
    EXPECT_FALSE(program.IsEnabled("cmdDrop"));
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(2));
    EXPECT_EQ(program.Text("cmdSTART"), "STOP Messung");
    EXPECT_FALSE(program.IsEnabled("cmdBack"));
    EXPECT_FALSE(program.IsEnabled("cmdForw"));
    EXPECT_FALSE(program.IsEnabled("mnuFile"));
    EXPECT_EQ(Lamp("shpLamp"), kGreen);
    program.Trigger("cmdInfo"); // the run goes on behind the dialog
    program.WaitForControl("FormH7");
    QThread::msleep(2500);
    program.Trigger("cmdOK");
    program.WaitUntilGone("FormH7");
    ASSERT_TRUE(WaitForSamples(5));
    StopRun();
    EXPECT_TRUE(program.IsEnabled("cmdForw"));
    EXPECT_TRUE(program.IsEnabled("cmdDrop"));
    EXPECT_TRUE(program.IsEnabled("mnuFile"));
    const QJsonArray rows = program.Read("flxvalues")["cells"].toArray();
    ASSERT_EQ(rows.size(), 5);
    EXPECT_EQ(program.Read("flxHeader")["headings"].toArray()[0].toString(), "U [V]");
    const int first = Count() - 4;
    for (int row = 0; row < 5; ++row) {
        const double shown = rows[row].toArray()[0].toString().replace(',', '.').toDouble();
        const double stored =
            Query(QStringLiteral("SELECT [U sum] FROM SampledValues WHERE [Set]=%1").arg(first + row)).toDouble();
        EXPECT_NEAR(shown, stored, 0.0005);
    }
    program.Trigger("mnuEnd");
    program.WaitForEnd();
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Measurement Device ID'"), "MI7150 4711");
    EXPECT_NE(Query("SELECT Text FROM Overview WHERE Name='Measurement Term'"), "");
}

TEST_F(RecordingTest, DroppedRowsAreGoneAfterTheQuestion)
{
    SimulatorProcess simulator(folder.path());
    AssignPort(simulator.Link());
    StartWithInstrument(0, "ISKRA MI71XX 1Ø2W (1b)");
    OpenRun();
    program.Trigger("cmdSTART"); // without a self-diagnosis before
    ASSERT_TRUE(WaitForSamples(2));
    StopRun();
    const QString question = "Sollen die bereits aufgezeichneten Messwerte wirklich gelöscht werden?";
    program.Trigger("cmdDrop");
    EXPECT_EQ(program.AnswerBox("Nein"), question);
    program.WaitForQuiet();
    EXPECT_GE(Count(), 2);
    program.Trigger("cmdSTART");
    EXPECT_EQ(program.AnswerBox("Nein"), question);
    program.WaitForQuiet();
    EXPECT_EQ(program.Text("cmdSTART"), "START Messung");
    program.Trigger("cmdDrop");
    program.AnswerBox("Ja");
    program.WaitForQuiet();
    EXPECT_EQ(Count(), 0);
    EXPECT_FALSE(program.IsEnabled("cmdDrop"));
}

TEST_F(RecordingTest, ClosingTheWindowInMidRunKeepsTheRows)
{
    SimulatorProcess simulator(folder.path());
    ASSERT_TRUE(Record(simulator));
    program.CloseMainWindow();
    EXPECT_TRUE(program.AnswerBox("Nein").startsWith("Messung läuft ..."));
    const int before = Count();
    ASSERT_TRUE(WaitForSamples(before + 2)) << "the recording goes on";
    program.CloseMainWindow();
    program.AnswerBox("Ja");
    program.AnswerBox("Nein"); // header and settings may go; the rows are none of this question's business
    EXPECT_EQ(program.WaitForEnd(), 0);
    EXPECT_GE(Count(), 3);
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(RecordingTest, SecondProgramOnTheSameProjectChangesNothingDuringARun)
{
    SimulatorProcess simulator(folder.path());
    ASSERT_TRUE(Record(simulator));
    ProgramDriver other(folder.filePath("other settings"));
    other.Start();
    other.WaitForWindow("MainForm");
    other.Trigger("mnuOpen");
    other.GivePath(project);
    other.WaitForControl("FormF1");
    other.Trigger("mnuOnlineDevice");
    other.WaitForControl("FormF4");
    other.Trigger("cmdDrop");
    other.AnswerBox("Ja");
    EXPECT_EQ(other.AnswerBox("OK"),
              "Kann Datei nicht schreiben!\nDie Datei wird gerade von einem anderen Programm benutzt.");
    other.WaitForQuiet();
    const int before = Count();
    ASSERT_TRUE(WaitForSamples(before + 2));
    StopRun();
    EXPECT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), Count());
    EXPECT_GE(Count(), before + 2);
    other.Trigger("cmdDrop");
    other.AnswerBox("Ja");
    other.WaitForQuiet();
    EXPECT_EQ(Count(), 0) << "after the run the file is free";
}

TEST_F(RecordingTest, ReaderThatHoldsTheFileCostsNoRowAndIsShown)
{
    SimulatorProcess simulator(folder.path());
    ASSERT_TRUE(Record(simulator));
    {
        SQLite::Database reader(project.toStdString(), SQLite::OPEN_READONLY);
        SQLite::Statement held(reader, "SELECT * FROM SampledValues");
        reader.exec("BEGIN");
        held.executeStep();
        QElapsedTimer timer;
        timer.start();
        while (!program.Text("lblKept").contains("warten") && timer.elapsed() < 20000)
            QThread::msleep(20);
        EXPECT_TRUE(program.Text("lblKept").endsWith(" Sätze warten auf die Datei"));
        QThread::sleep(3);
    }
    program.WaitForText("lblKept", "");
    StopRun();
    EXPECT_GE(Count(), 6);
    EXPECT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), Count());
    EXPECT_EQ(Query("SELECT max(t) FROM SampledValues").toInt(), Count() - 1) << "none is missing";
}

TEST_F(RecordingTest, KilledInTheSecondRecording_HeadingTellsTheSecond)
{
    SimulatorProcess simulator(folder.path());
    ASSERT_TRUE(Record(simulator));
    StopRun();
    const auto begin = [this] { return Query("SELECT Time FROM Overview WHERE Name='Measurement Begin'"); };
    const QString first = begin();
    QThread::sleep(2);
    program.Trigger("cmdSTART");
    program.AnswerBox("Ja");
    program.WaitForText("cmdSTART", "STOP Messung");
    ASSERT_TRUE(WaitForSamples(2));
    program.Kill();
    EXPECT_NE(begin(), first);
    EXPECT_LE(std::abs(QDateTime::fromString(begin(), Qt::ISODate)
                           .secsTo(QDateTime::fromString(Query("SELECT Time FROM SampledValues WHERE [Set]=1"),
                                                         Qt::ISODate))),
              2);
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Measurement Term'"), "");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Measurement Device ID'"), "MI7150 4711");
}

} // namespace
} // namespace korvanel::test
