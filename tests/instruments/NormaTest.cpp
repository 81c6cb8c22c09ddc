// The NORMA D4355: what a row is formed of, and the driver with a port in memory.
#include "instruments/NormaDriver.h"

#include "core/Common.h"
#include "instruments/DevManaging.h"
#include "support/Fixture.h"
#include "support/ScriptedPort.h"

#include <cmath>
#include <map>
#include <numbers>
#include <random>

namespace korvanel::test {
namespace {

tMeasuredRow Finished(double U, double I, double P, double Q, bool isFourWire = false,
                      const std::array<double, 2>& ratio = {1, 1})
{
    tMeasuredRow row;
    row.dU[kSum] = U;
    row.dI[kSum] = I;
    row.dP[kSum] = P;
    row.dQ[kSum] = Q;
    FinishNormaRow(row, ratio, isFourWire);
    return row;
}

TEST(NormaRow, IsFormedOfActiveAndReactivePower)
{
    const tMeasuredRow row = Finished(230, 5, 300, 400);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 500);
    EXPECT_DOUBLE_EQ(row.dCosPhi[kSum], 0.6);
    EXPECT_NEAR(row.dPhi[kSum], 53.1301, 1e-4);
    EXPECT_EQ(row.sValidMask, "NNNN");
    EXPECT_NEAR(Finished(230, 5, 300, -400).dPhi[kSum], -53.1301, 1e-4);
    EXPECT_NEAR(Finished(230, 5, -300, 400).dPhi[kSum], 126.8699, 1e-4);
}

TEST(NormaRow, VoltageOfHalfAVoltIsAcceptedAndLessIsNot)
{
    EXPECT_EQ(Finished(0.5, 5, 3, 4).sValidMask, "NNNN");
    const tMeasuredRow row = Finished(0.4999, 5, 3, 4);
    EXPECT_EQ(row.sValidMask, "EEEE");
    EXPECT_EQ(row.dS[kSum], 0) << "nothing is formed";
}

TEST(NormaRow, FourWire_ComparesTheVoltageBeforeItIsScaled)
{
    EXPECT_EQ(Finished(0.4, 5, 3, 4, true, {100, 1}).sValidMask, "EEEE");
    EXPECT_EQ(Finished(0.5, 5, 3, 4, true, {0.001, 1}).sValidMask, "NNNN");
    EXPECT_DOUBLE_EQ(Finished(230, 5, 3, 4, true).dU[kSum], 230 * std::numbers::sqrt3);
}

TEST(NormaRow, WithoutApparentPowerTheAngleIsNinetyDegrees)
{
    const tMeasuredRow row = Finished(230, 0, 0, 0);
    EXPECT_EQ(row.dCosPhi[kSum], 0);
    EXPECT_NEAR(row.dPhi[kSum], 90, 1e-9);
}

TEST(NormaRow, PowerFactorOfOneHasNoAngleThoughTheReactivePowerIsNegative)
{
    const tMeasuredRow row = Finished(230, 5, 1e9, -1e-9);
    EXPECT_EQ(row.dCosPhi[kSum], 1);
    EXPECT_EQ(row.dPhi[kSum], 0);
    EXPECT_FALSE(std::signbit(row.dPhi[kSum]));
}

TEST(NormaRow, TransformersScaleVoltageCurrentAndPowers)
{
    const tMeasuredRow row = Finished(230, 5, 300, 400, false, {10, 20});
    EXPECT_DOUBLE_EQ(row.dU[kSum], 2300);
    EXPECT_DOUBLE_EQ(row.dI[kSum], 100);
    EXPECT_DOUBLE_EQ(row.dP[kSum], 60'000);
    EXPECT_DOUBLE_EQ(row.dQ[kSum], 80'000);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 100'000);
}

class NormaTest : public BlockTest
{
protected:
    NormaTest()
    {
        App().ThePort = &port;
        App().dTransRatio = {1, 1};
        App().bShowDevErrors = false;
        App().bConfigDue = true;
        App().sDevice = QStringLiteral("NORMA D4355 1Ø2W");
        port.answer = [this](const QByteArray& request) {
            EXPECT_TRUE(request.endsWith("\r\n"));
            return answers[request.chopped(2)];
        };
    }
    bool Sample()
    {
        App().MeasuredRow = {};
        port.requests.clear();
        return DevCommand(kDevSample);
    }
    QByteArrayList Sent() const
    {
        QByteArrayList commands;
        for (const QByteArray& request : port.requests)
            commands << request.chopped(2);
        return commands;
    }
    const tMeasuredRow& Row() const { return App().MeasuredRow; }

    std::map<QByteArray, QByteArray> answers{{"*TST?", "0\r\n"},           {"rs232:TERM?", "vbCrLf\r\n"},
                                             {"pow:act?", "300.0\r\n"},    {"pow:rea?", "4.00E+2\r\n"},
                                             {"volt:rms?", "  230.5\r\n"}, {"curr:rms?", "5.01 A\r\n"},
                                             {"freq?", "49.98\r\n"}};
    ScriptedPort port;
};

TEST_F(NormaTest, Identify_WantsTheSelfTestAndTheLineEnd)
{
    for (const char* entry : {"NORMA D4355 1Ø2W", "NORMA D4355 3Ø4W"}) {
        App().sDevice = QString::fromUtf8(entry);
        port.requests.clear();
        EXPECT_TRUE(DevCommand(kDevIdentify));
        EXPECT_EQ(App().sDevFound, QString::fromUtf8(entry));
        EXPECT_TRUE(App().bDevConnected);
        EXPECT_EQ(Sent(), (QByteArrayList{"*TST?", "rs232:TERM vbCrLf", "rs232:TERM?"}));
    }
}

TEST_F(NormaTest, Identify_RefusesWhatHasNotPassed)
{
    const QString refusal = QStringLiteral(
        "Gerät nicht gefunden oder Selbsttest erfolglos.\nBitte prüfen sie Anschluss und Zustand des Gerätes.");
    for (const char* answer : {"1\r\n", "00\r\n", " 0\r\n", "x"}) {
        answers["*TST?"] = answer;
        EXPECT_FALSE(DevCommand(kDevIdentify)) << answer;
        EXPECT_EQ(App().sDevError, refusal);
        EXPECT_FALSE(App().bDevConnected);
    }
    for (const char* answer : {"0", "0\r\n"}) {
        answers["*TST?"] = answer;
        EXPECT_TRUE(DevCommand(kDevIdentify)) << answer;
    }
    for (const char* answer : {"", "CrLf", " vbCrLf", "VBCRLF"}) {
        answers["rs232:TERM?"] = answer;
        EXPECT_FALSE(DevCommand(kDevIdentify)) << answer;
        EXPECT_EQ(App().sDevError, refusal);
    }
    answers["*TST?"] = "";
    EXPECT_FALSE(DevCommand(kDevIdentify));
    EXPECT_TRUE(App().sDevError.startsWith("Zeitüberschreitung!"));
}

TEST_F(NormaTest, Configure_SetsRangesAndPhases)
{
    ASSERT_TRUE(DevCommand(kDevConfigure));
    EXPECT_EQ(Sent(), (QByteArrayList{"acq:ran:volt auto", "acq:ran:curr auto", "form:ph l1"}));
    port.requests.clear();
    App().sDevice = QStringLiteral("NORMA D4355 3Ø4W");
    ASSERT_TRUE(DevCommand(kDevConfigure));
    EXPECT_EQ(Sent().back(), "form:ph all");
    port.requests.clear();
    ASSERT_TRUE(DevCommand(kDevPrepare));
    EXPECT_TRUE(port.requests.empty());
}

TEST_F(NormaTest, SinglePhase_AsksFiveQueries)
{
    ASSERT_TRUE(Sample());
    EXPECT_EQ(Sent(), (QByteArrayList{"pow:act?", "pow:rea?", "volt:rms?", "curr:rms?", "freq?"}));
    EXPECT_DOUBLE_EQ(Row().dP[kSum], 300);
    EXPECT_DOUBLE_EQ(Row().dQ[kSum], 400);
    EXPECT_DOUBLE_EQ(Row().dU[kSum], 230.5);
    EXPECT_DOUBLE_EQ(Row().dI[kSum], 5.01);
    EXPECT_DOUBLE_EQ(Row().df, 49.98);
    EXPECT_DOUBLE_EQ(Row().dS[kSum], 500);
}

TEST_F(NormaTest, FourWire_AsksTheFrequencyOfOnePhase)
{
    App().sDevice = QStringLiteral("NORMA D4355 3Ø4W");
    answers["form:ph l1"] = "77\r\n"; // isn't read
    ASSERT_TRUE(Sample());
    EXPECT_EQ(Sent(),
              (QByteArrayList{"pow:act?", "pow:rea?", "volt:rms?", "curr:rms?", "form:ph l1", "freq?", "form:ph all"}));
    EXPECT_DOUBLE_EQ(Row().dU[kSum], 230.5 * std::numbers::sqrt3);
    EXPECT_DOUBLE_EQ(Row().df, 49.98);
}

TEST_F(NormaTest, EmptyAnswerMakesTheSampleInvalidAndTheOthersAreAsked)
{
    answers["pow:rea?"] = "";
    App().MeasuredRow = {};
    App().MeasuredRow.dQ[kSum] = 7;
    port.requests.clear();
    ASSERT_TRUE(DevCommand(kDevSample));
    EXPECT_EQ(Row().sValidMask, "EEEE");
    EXPECT_EQ(Sent().size(), 5);
    EXPECT_DOUBLE_EQ(Row().dQ[kSum], 7) << "it keeps what it had";
    EXPECT_DOUBLE_EQ(Row().dU[kSum], 230.5);
}

TEST_F(NormaTest, BareLineEndIsAnAnswerThatReadsAsZero)
{
    answers["curr:rms?"] = "\r\n";
    answers["pow:act?"] = "-0\r\n";
    ASSERT_TRUE(Sample());
    EXPECT_EQ(Row().sValidMask, "NNNN");
    EXPECT_EQ(Row().dI[kSum], 0);
    EXPECT_FALSE(std::signbit(Row().dP[kSum]));
}

TEST_F(NormaTest, RandomAnswersDoNoHarm)
{
    std::mt19937 random(6); // NOLINT(cert-msc51-cpp): the same answers in every run
    std::uniform_int_distribution<int> byte(0, 255);
    const int samples = std::max(4'000, qEnvironmentVariableIntValue("KORVANEL_FUZZ_BLOCKS"));
    const char* const likely = "0123456789+-.eE  \r\n";
    int turn = 0;
    port.answer = [&](const QByteArray&) {
        QByteArray answer(byte(random) % 20, ' ');
        for (char& c : answer)
            c = static_cast<char>(turn % 3 == 0 ? byte(random) : likely[byte(random) % 19]);
        return answer;
    };
    for (turn = 0; turn < samples; ++turn) {
        App().MeasuredRow = {};
        port.requests.clear();
        ASSERT_TRUE(DevCommand(kDevSample));
        ASSERT_LE(std::abs(Row().dPhi[kSum]), 180);
    }
}

TEST_F(NormaTest, OperationsThatItLacksAreTold)
{
    EXPECT_FALSE(DevCommand(kDevResetCounters));
    EXPECT_EQ(App().sDevError, "Unbekanntes Gerätekommando: 9");
}

} // namespace
} // namespace korvanel::test
