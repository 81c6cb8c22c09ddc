// A run whose samples, instrument, line or file are not as they should be.
#include "acquisition/RunFixture.h"
#include "core/LocalFormats.h"

#include <cmath>

namespace korvanel::test {
namespace {

class MeasurementRunFaultTest : public RunTest
{
};

TEST_F(MeasurementRunFaultTest, FirstSampleInvalid_WaitsWithRedLampAndBeginFollowsTheClock)
{
    Open();
    App().dTrigger = {200, 1};
    instrument.texts[13] = " 0.500A"; // below the trigger
    Start();
    Pass(2.2);
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(App().MeasuredRow.lSet, 0);
    EXPECT_EQ(display.lamps.back(), kLampBad);
    const QString begin = display.begin;
    Pass(1);
    EXPECT_NE(display.begin, begin);
    instrument.texts[13] = " 1.500A";
    Pass(2);
    EXPECT_EQ(Sets(), "1,2");
    EXPECT_EQ(Times(), "1,2") << "the restart zeroes the time before the interval is added";
    instrument.texts[13] = " 0.100A"; // after the first good sample the trigger no longer matters
    Pass(1);
    EXPECT_EQ(Sets(), "1,2,3");
}

TEST_F(MeasurementRunFaultTest, TriggerWaitsForVoltageAndCurrentTogether)
{
    Open();
    App().dTrigger = {200, 1};
    instrument.texts[16] = " 100.0V";
    Start();
    Pass(1.2);
    instrument.texts[16] = " 230.0V";
    instrument.texts[13] = " 0.100A";
    Pass(1);
    EXPECT_EQ(Count(), 0);
    instrument.texts[13] = " 1.000A";
    Pass(1);
    EXPECT_EQ(Count(), 1);
}

TEST_F(MeasurementRunFaultTest, EnergiesBeginAtZeroAfterATriggerWait)
{
    Open();
    App().dEnergyWp = 12345;
    App().dTrigger = {0, 3};
    Start();
    Pass(2.2);
    instrument.texts[13] = " 4.000A";
    Pass(2);
    EXPECT_EQ(Query("SELECT Wp FROM ComputedValues WHERE [Set]=1").toDouble(), 0);
    EXPECT_NEAR(Query("SELECT Wp FROM ComputedValues WHERE [Set]=2").toDouble(), 230 * 4 * 0.5, 1e-6);
}

TEST_F(MeasurementRunFaultTest, LaterSampleInvalid_ReusesTheNumberAndTheTimeGoesOn)
{
    Open();
    Start();
    Pass(1.2);
    isSilent = true;
    Pass(3);
    EXPECT_EQ(display.lamps.back(), kLampBad);
    EXPECT_EQ(Sets(), "1,2");
    isSilent = false;
    Pass(2);
    EXPECT_EQ(Sets(), "1,2,3,4");
    EXPECT_EQ(Times(), "0,1,5,6");
}

TEST_F(MeasurementRunFaultTest, FrequencyOutsideZeroToThousand_RejectsTheSample)
{
    Open();
    Start();
    Pass(0.2);
    for (const char* frequency : {"1000.1H", "-1.00Hz"}) {
        instrument.texts[28] = frequency;
        Pass(1);
        EXPECT_EQ(Count(), 1) << frequency;
        EXPECT_EQ(display.lamps.back(), kLampBad);
    }
    instrument.texts[28] = "1000.0H";
    Pass(1);
    EXPECT_EQ(Count(), 2);
}

TEST_F(MeasurementRunFaultTest, SilentInstrument_NeverEndsTheRun)
{
    Open();
    Start();
    Pass(1.2);
    isSilent = true;
    Pass(600);
    EXPECT_TRUE(run.IsRunning());
    EXPECT_EQ(App().iGraceLeft, 5);
    EXPECT_TRUE(shell.boxes.empty());
    isSilent = false;
    Pass(1);
    EXPECT_EQ(Times(), "0,1,602");
}

TEST_F(MeasurementRunFaultTest, ExhaustedGrace_IsToldAndEndsTheRun)
{
    Open();
    Start();
    Pass(1.2);
    App().iGraceLeft = 0; // nothing in the program counts it down
    isSilent = true;
    Pass(1);
    EXPECT_EQ(shell.BoxTexts(), QStringList("Abbruch der Messung durch 5 ungültige\nin Folge gesendete Messwerte"));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Count(), 2);
}

TEST_F(MeasurementRunFaultTest, PortThatCannotBeOpened_IsToldAndEndsTheRun)
{
    Open();
    port.openError = "Der Anschluss /dev/x ist nicht vorhanden.";
    Start();
    Pass(kTick);
    EXPECT_EQ(shell.BoxTexts(), QStringList("COM1: Der Anschluss /dev/x ist nicht vorhanden."));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(display.isLocked);
    port.openError.clear();
    Start();
    Pass(1.2);
    EXPECT_EQ(Count(), 2) << "the next start needs nothing but a port";
}

TEST_F(MeasurementRunFaultTest, InstrumentThatDoesNotAnswerAtTheStart_IsToldAndEndsTheRun)
{
    Open();
    isSilent = true;
    Start();
    Pass(kTick);
    EXPECT_EQ(
        shell.BoxTexts(),
        QStringList("COM1: Bitte überprüfen Sie ob das Gerät richtig angeschlossen, eingeschalten und die richtige "
                    "MODBUS Adresse gewählt ist."));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(port.isOpen);
    EXPECT_EQ(Count(), 0);
}

TEST_F(MeasurementRunFaultTest, UnknownInstrument_IsTold)
{
    Open();
    App().sDevice = "Amperemeter";
    Start();
    Pass(kTick);
    EXPECT_EQ(shell.BoxTexts(), QStringList("COM1: Unbekanntes Messgerät: Amperemeter"));
    EXPECT_FALSE(run.IsTicking());
}

TEST_F(MeasurementRunFaultTest, LineThatBreaksInMidRun_IsToldAndKeepsTheRows)
{
    Open();
    Start();
    Pass(2.2);
    port.answer = [](const QByteArray&) -> QByteArray { throw PortError("Die Verbindung ist abgebrochen."); };
    Pass(5);
    EXPECT_EQ(shell.BoxTexts(), QStringList("COM1: Die Verbindung ist abgebrochen.\nDie Messung endete: " +
                                            DateTimeText(App().dtMeasurementEnd) + ". Gespeicherte Datensätze: 3"));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(display.isLocked);
    EXPECT_EQ(Sets(), "1,2,3");
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
    port.answer = [this](const QByteArray& request) { return instrument.Reply(request); };
    shell.answers = {Answer::Yes};
    Start();
    Pass(1.2);
    EXPECT_EQ(Sets(), "1,2");
}

TEST_F(MeasurementRunFaultTest, RowThatCannotBeWritten_IsToldOnceAndEndsTheRun)
{
    Open();
    Execute("INSERT INTO ComputedValues([Set]) VALUES(4)"); // the number is taken
    Start();
    Pass(5);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes.front().text.startsWith("Kann Datei nicht schreiben!"));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "3");
}

} // namespace
} // namespace korvanel::test
