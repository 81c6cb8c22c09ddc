// What goes wrong on a line, while the program connects, while it records and while it searches.
#include "e2e/RecordingFixture.h"

#include <QFile>

#include <unistd.h>

namespace korvanel::test {
namespace {

const QString kEntry = QStringLiteral("ISKRA MI71XX 1Ø2W (1b)");
const QString kTimeout =
    QStringLiteral("COM1: Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!");
const QString kNotFound = QStringLiteral("COM1: Kann eingestelltes Messgerät nicht finden!");

class LineFaultTest : public RecordingTest
{
protected:
    void Prepare(int netConf = 0)
    {
        AssignPort(simulator.Link());
        StartWithInstrument(netConf, kEntry);
    }
    /// Processor time of the program in seconds.
    double ProcessorTime()
    {
        QFile stat(QStringLiteral("/proc/%1/stat").arg(program.ProcessId()));
        EXPECT_TRUE(stat.open(QIODevice::ReadOnly));
        const QList<QByteArray> fields = stat.readAll().split(' ');
        return (fields[13].toDouble() + fields[14].toDouble()) / static_cast<double>(sysconf(_SC_CLK_TCK));
    }
    SimulatorProcess simulator{folder.path()};
};

struct Fault
{
    const char* kind;
    QString complaint; ///< of the self-diagnosis
};

class FaultKindTest : public LineFaultTest, public ::testing::WithParamInterface<Fault>
{
};

TEST_P(FaultKindTest, DuringConnect_IsToldAndTheNextTryWorks)
{
    Prepare();
    simulator.Tell(QStringLiteral("fault ") + QLatin1String(GetParam().kind));
    QElapsedTimer timer;
    timer.start();
    program.Trigger("cmdDiag");
    EXPECT_EQ(program.AnswerBox("OK"), GetParam().complaint);
    EXPECT_LT(timer.elapsed(), 5000);
    program.WaitForQuiet();
    // A wrong head passes the identification, which looks at checksum and model; only the mode is not accepted then.
    const bool isIdentified = GetParam().kind == std::string("head");
    ASSERT_TRUE(isIdentified ? WaitForLamp("shpLED_2", kGreen) : WaitForLamp("shpLED_0", kRed));
    EXPECT_TRUE(program.IsEnabled("cmdForw"));
    EXPECT_TRUE(program.IsEnabled("mnuFile"));
    simulator.Tell("fault none");
    QThread::msleep(700); // what is late goes by
    Diagnose();
}

TEST_P(FaultKindTest, DuringARun_GivesARedLampAndStoresNothingWrong)
{
    Prepare();
    OpenRun();
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(2));
    const QString kind = QLatin1String(GetParam().kind);
    simulator.Tell("fault " + kind);
    const bool isHarmless =
        kind == "overlong" || kind == "crc"; // a value text has neither length nor checksum of its own
    if (isHarmless) {
        const int before = program.Text("lblCount_3").toInt();
        ASSERT_TRUE(WaitForSamples(before + 2));
        EXPECT_EQ(Lamp("shpLamp"), kGreen);
    } else {
        ASSERT_TRUE(WaitForLamp("shpLamp", kRed));
        QThread::msleep(2500);
        EXPECT_EQ(program.Text("cmdSTART"), "STOP Messung") << "bad samples don't end a run";
    }
    simulator.Tell("fault none");
    ASSERT_TRUE(WaitForLamp("shpLamp", kGreen));
    ASSERT_TRUE(WaitForSamples(program.Text("lblCount_3").toInt() + 2));
    StopRun();
    const int count = Count();
    EXPECT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), count) << "numbers without a gap";
    if (!isHarmless) {
        EXPECT_GT(Query("SELECT max(t) FROM SampledValues").toInt(), count - 1) << "the time went on";
    }
    EXPECT_EQ(
        Query("SELECT count(*) FROM SampledValues WHERE [U sum] NOT BETWEEN 200 AND 260 OR [f sum] NOT BETWEEN 49 "
              "AND 51")
            .toInt(),
        0)
        << "no late or broken reply counts as a value";
}

TEST_P(FaultKindTest, DuringTheSearch_IsAMissOrAHitAndNeverHangs)
{
    AssignPort(simulator.Link());
    StartProgram();
    simulator.Tell("address 12");
    simulator.Tell(QStringLiteral("fault ") + QLatin1String(GetParam().kind));
    program.Trigger("mnuModbus");
    program.WaitForControl("FormH5");
    program.Choose("tabMODBUS", "Suchintervall");
    program.Type("txtAddress_1", "11");
    program.Type("txtAddress_2", "13");
    QElapsedTimer timer;
    timer.start();
    program.Trigger("cmdSearch_1");
    QThread::msleep(100);
    while (!program.IsEnabled("cmdSearch_1"))
        QThread::msleep(20);
    EXPECT_LT(timer.elapsed(), 3 * 300 + 2500);
    // The device info knows its instrument by the head of the reply alone.
    const QString kind = QLatin1String(GetParam().kind);
    const bool isHit = kind == "overlong" || kind == "crc";
    EXPECT_EQ(program.IsEnabled("cmdOK"), isHit) << program.Text("lblInfo_1").toStdString();
    EXPECT_TRUE(program.Read("message")["ok"] != true) << "no box";
    simulator.Tell("fault none");
    QThread::msleep(700);
    program.Trigger("cmdSearch_1");
    QThread::msleep(100);
    while (!program.IsEnabled("cmdOK") && timer.elapsed() < 20000)
        QThread::msleep(20);
    EXPECT_TRUE(program.Text("lblInfo_1").startsWith("1. gefundene Geräteadresse ist: 12"));
}

INSTANTIATE_TEST_SUITE_P(Kinds, FaultKindTest,
                         ::testing::Values(Fault{"silent", kTimeout}, Fault{"truncated", kNotFound},
                                           Fault{"overlong", kNotFound}, Fault{"garbage", kNotFound},
                                           Fault{"crc", kNotFound},
                                           Fault{"head", "COM1: Konnte 1Ø2W nicht konfigurieren."},
                                           Fault{"late", kTimeout}),
                         [](const auto& kind) { return std::string(kind.param.kind); });

TEST_F(LineFaultTest, LineClosedInMidRun_IsToldKeepsTheRowsAndTheNextRunWorks)
{
    Prepare();
    OpenRun();
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(3));
    simulator.Tell("close");
    const QStringList told = program.AnswerBox("OK").split(u'\n');
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0], "COM1: Die Verbindung über den Anschluss " + simulator.Link() + " ist abgebrochen.");
    EXPECT_TRUE(told[1].startsWith("Die Messung endete: "));
    EXPECT_TRUE(told[1].endsWith(QStringLiteral(". Gespeicherte Datensätze: %1").arg(Count())));
    program.WaitForQuiet();
    program.WaitForText("cmdSTART", "START Messung");
    EXPECT_TRUE(program.IsEnabled("cmdForw"));
    EXPECT_TRUE(program.IsEnabled("mnuFile"));
    const double before = ProcessorTime();
    QThread::msleep(2000);
    EXPECT_LT(ProcessorTime() - before, 0.5) << "it doesn't spin on a line that is gone";
    const int count = Count();
    EXPECT_GE(count, 3);
    program.Trigger("cmdSTART"); // the line is still gone
    program.AnswerBox("Ja");
    EXPECT_EQ(program.AnswerBox("OK"), "COM1: Der Anschluss " + simulator.Link() + " ist nicht vorhanden.");
    program.WaitForQuiet();
    simulator.Tell("open");
    program.Trigger("cmdSTART");
    ASSERT_TRUE(WaitForSamples(2));
    StopRun();
    EXPECT_GE(Count(), 2);
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(LineFaultTest, PortThatIsMissing_IsToldAtConnectAndRun)
{
    AssignPort("/dev/korvanel-nowhere");
    StartWithInstrument(0, kEntry);
    EXPECT_EQ(program.Text("lblPort"), "/dev/korvanel-nowhere");
    program.Trigger("cmdDiag");
    EXPECT_EQ(program.AnswerBox("OK"), "COM1: Der Anschluss /dev/korvanel-nowhere ist nicht vorhanden.");
    program.WaitForQuiet();
    OpenRun();
    program.Trigger("cmdSTART");
    EXPECT_EQ(program.AnswerBox("OK"), "COM1: Der Anschluss /dev/korvanel-nowhere ist nicht vorhanden.");
    program.WaitForQuiet();
    EXPECT_EQ(program.Text("cmdSTART"), "START Messung");
    program.Trigger("mnuModbus");
    program.WaitForControl("FormH5");
    program.Trigger("cmdSearch_0");
    program.WaitForText("lblInfo_0", "Messgerät nicht gefunden!\nBitte versuchen Sie eine andere Adresse.");
}

TEST_F(LineFaultTest, PortThatAnotherProgramHas_IsTold)
{
    Prepare();
    ProgramDriver other(folder.filePath("settings"));
    other.Start();
    other.WaitForWindow("MainForm");
    other.Trigger("mnuNew");
    other.GivePath(PathOf("andere.MDB"));
    other.WaitForControl("FormF1");
    other.Trigger("mnuDeviceConf");
    other.WaitForControl("FormF3");
    other.Choose("cboSelect", kEntry);
    other.Trigger("mnuOnlineDevice");
    other.WaitForControl("FormF4");
    other.Trigger("cmdSTART");
    other.WaitForText("cmdSTART", "STOP Messung");
    program.Trigger("cmdDiag");
    EXPECT_EQ(program.AnswerBox("OK"),
              "COM1: Der Anschluss " + simulator.Link() + " ist durch ein anderes Programm belegt.");
    program.WaitForQuiet();
}

TEST_F(LineFaultTest, SilentLineBeforeTheFirstSample_EndsTheStartWithItsReason)
{
    Prepare();
    OpenRun();
    simulator.Tell("fault silent");
    program.Trigger("cmdSTART");
    EXPECT_EQ(program.AnswerBox("OK"),
              "COM1: Bitte überprüfen Sie ob das Gerät richtig angeschlossen, eingeschalten und die richtige MODBUS "
              "Adresse gewählt ist.");
    program.WaitForQuiet();
    EXPECT_EQ(program.Text("cmdSTART"), "START Messung");
    EXPECT_TRUE(program.IsEnabled("cmdBack"));
}

TEST_F(LineFaultTest, AddressOfTheBusEndIsFoundBySearch)
{
    AssignPort(simulator.Link());
    StartProgram();
    simulator.Tell("address 247");
    program.Trigger("mnuModbus");
    program.WaitForControl("FormH5");
    program.Choose("tabMODBUS", "Suchintervall");
    program.Type("txtAddress_1", "240");
    program.Type("txtAddress_2", "247");
    program.Trigger("cmdSearch_1");
    QElapsedTimer timer;
    timer.start();
    while (!program.IsEnabled("cmdOK") && timer.elapsed() < 20000)
        QThread::msleep(50);
    EXPECT_TRUE(program.Text("lblInfo_1").startsWith("1. gefundene Geräteadresse ist: 247"));
}

} // namespace
} // namespace korvanel::test
