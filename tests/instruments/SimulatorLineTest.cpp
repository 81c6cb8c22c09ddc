// The driver over the system's serial port against the simulated instrument: what the row holds is what the simulator
// says it has sent.
#include "remote/SimulatorProcess.h"
#include "support/Fixture.h"
#include "tools/SimulatorRequests.h"

#include "instruments/DevManaging.h"
#include "instruments/SystemPort.h"

#include <QCoreApplication>
#include <QThread>

#include <gmock/gmock.h>

#include <algorithm>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr double kRadian = std::numbers::pi / 180;
constexpr double kSecondsPerHour = 3600;

class SimulatorLineTest : public BlockTest
{
protected:
    SimulatorLineTest()
    {
        App().TheClock = &realClock;
        App().ThePort = &port;
        App().lModbusAddress = 33;
        App().dTransRatio = {1, 1};
        UseEntry("ISKRA MI71XX 1Ø2W (1b)");
    }
    ~SimulatorLineTest() override
    {
        port.Close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static void UseEntry(const char* entry) { App().sDevice = QString::fromUtf8(entry); }
    /// One sample on a line that is opened and closed for it; the log has its queries alone.
    void Sample()
    {
        ASSERT_TRUE(DevConnect()) << shell.BoxTexts().join('\n').toStdString();
        const std::size_t before = simulator.Log().size();
        App().MeasuredRow = tMeasuredRow();
        ASSERT_TRUE(DevCommand(kDevOpen) && DevCommand(kDevPrepare) && DevCommand(kDevSample) && DevCommand(kDevClose));
        queries = simulator.Log();
        queries.erase(queries.begin(), queries.begin() + static_cast<std::ptrdiff_t>(before));
    }
    /// The value that the last query of a code was answered with.
    double Sent(int code) const
    {
        for (auto query = queries.rbegin(); query != queries.rend(); ++query)
            if (query->kind == QStringLiteral("query") && query->code == code)
                return simulator::test::ValueOf(query->text.toStdString());
        ADD_FAILURE() << "code " << code << " was not asked for";
        return 0;
    }

    SimulatorProcess simulator{folder.path()};
    SystemClock realClock;
    SystemPort port{[this](int) { return simulator.Link(); }};
    std::vector<LoggedExchange> queries;
};

TEST_F(SimulatorLineTest, Connect_FindsModelNumberAndTransformers)
{
    ASSERT_TRUE(DevConnect()) << shell.BoxTexts().join('\n').toStdString();
    EXPECT_EQ(App().sDeviceId, "MI7150 4711");
    EXPECT_DOUBLE_EQ(App().dDevTransPrimary[0], 230);
    EXPECT_DOUBLE_EQ(App().dDevTransSecondary[0], 230);
    EXPECT_DOUBLE_EQ(App().dDevTransPrimary[1], 5);
    EXPECT_DOUBLE_EQ(App().dDevTransSecondary[1], 5);
}

TEST_F(SimulatorLineTest, OnePhaseSample_IsFormedFromFourValues)
{
    Sample();
    const tMeasuredRow& row = App().MeasuredRow;
    EXPECT_EQ(row.sValidMask, "NNNN");
    EXPECT_EQ(queries.size(), 4U);
    EXPECT_DOUBLE_EQ(row.dU[0], Sent(16));
    EXPECT_DOUBLE_EQ(row.dI[0], Sent(13));
    EXPECT_DOUBLE_EQ(row.df, Sent(28));
    EXPECT_NEAR(row.dP[0], Sent(16) * Sent(13) * std::cos(Sent(32) * kRadian), 1e-6);
    EXPECT_NEAR(row.dQ[0], Sent(16) * Sent(13) * std::sin(Sent(32) * kRadian), 1e-6);
}

TEST_F(SimulatorLineTest, ThreePhaseSample_AgreesWithThePowerOfTheInstrument)
{
    simulator.Tell("profile constant");
    for (const char* entry :
         {"ISKRA MI71XX 3Ø3W (3u)", "ISKRA MI71XX 3Ø4W (4u)", "ISKRA MI71XX 3Ø3W (3b)", "ISKRA MI71XX 3Ø4W (4b)"}) {
        UseEntry(entry);
        Sample();
        const tMeasuredRow& row = App().MeasuredRow;
        EXPECT_EQ(row.sValidMask, "NNNN") << entry;
        EXPECT_DOUBLE_EQ(row.dU[0], Sent(40)) << entry;
        EXPECT_DOUBLE_EQ(row.dI[0], Sent(12) / 3) << entry;
        EXPECT_NEAR(row.dP[0], 12937.5, 30) << entry; // of the constant profile
        EXPECT_NEAR(row.dQ[0], 8775, 30) << entry;
    }
}

TEST_F(SimulatorLineTest, PhaseRecorderSample_HoldsEveryValueThatWasSent)
{
    for (const bool isLineToLine : {false, true}) {
        UseEntry(isLineToLine ? "ISKRA MI71XX 3Ø4W (4u) Rec L-L" : "ISKRA MI71XX 3Ø4W (4u) Rec L-N");
        Sample();
        const tMeasuredRow& row = App().MeasuredRow;
        EXPECT_EQ(row.sValidMask, "NNNN");
        EXPECT_EQ(queries.size(), 34U);
        for (int position = 0; position < 4; ++position) {
            const auto index = static_cast<std::size_t>(position);
            EXPECT_DOUBLE_EQ(row.dU[index], Sent((isLineToLine ? 40 : 16) + position));
            EXPECT_DOUBLE_EQ(row.dI[index], Sent(12 + position) / (position == 0 ? 3 : 1));
            EXPECT_DOUBLE_EQ(row.dP[index], Sent(4 + position));
            EXPECT_DOUBLE_EQ(row.dQ[index], Sent(8 + position));
            EXPECT_DOUBLE_EQ(row.dS[index], Sent(20 + position));
            EXPECT_DOUBLE_EQ(row.dPhi[index], Sent(32 + position));
            EXPECT_DOUBLE_EQ(row.dCosPhi[index], Sent(24 + position));
        }
        EXPECT_DOUBLE_EQ(row.dI[kNeutral], Sent(36));
        EXPECT_DOUBLE_EQ(row.df, Sent(28));
    }
}

TEST_F(SimulatorLineTest, RecorderSample_CountsEnergyInWattSeconds)
{
    UseEntry("ISKRA MI71XX 1Ø2W (1b) Rec");
    simulator.Tell("value 0 1234567");
    simulator.Tell("value 2 567");
    simulator.Tell("value 8 -8120");
    Sample();
    const tMeasuredRow& row = App().MeasuredRow;
    std::vector<int> codes;
    for (const LoggedExchange& query : queries)
        codes.push_back(query.code);
    EXPECT_THAT(codes, ::testing::UnorderedElementsAre(16, 12, 36, 28, 4, 8, 20, 32, 24, 0, 2, 1, 3));
    EXPECT_DOUBLE_EQ(row.dU[0], Sent(16));
    EXPECT_DOUBLE_EQ(row.dP[0], Sent(4));
    EXPECT_DOUBLE_EQ(row.dQ[0], -8120);
    EXPECT_DOUBLE_EQ(row.dWpPlusAbs, 1234567 * kSecondsPerHour);
    EXPECT_DOUBLE_EQ(row.dWpMinusAbs, 567 * kSecondsPerHour);
    EXPECT_DOUBLE_EQ(row.dWpAbs, 1234000 * kSecondsPerHour);
    EXPECT_DOUBLE_EQ(row.dWqPlusAbs, Sent(1) * kSecondsPerHour);
}

TEST_F(SimulatorLineTest, VoltageSample_HasThreeLinesAndTheirMean)
{
    UseEntry("ISKRA MI71XX 3Ø4W U ");
    Sample();
    EXPECT_EQ(queries.size(), 5U);
    for (int position = 0; position < 4; ++position)
        EXPECT_DOUBLE_EQ(App().MeasuredRow.dU[static_cast<std::size_t>(position)], Sent(40 + position));
}

TEST_F(SimulatorLineTest, SpoiltReplies_FindNoInstrument)
{
    for (const char* fault : {"silent", "truncated", "overlong", "garbage", "crc", "late"}) {
        simulator.Tell(QStringLiteral("fault ") + QLatin1String(fault));
        shell.boxes.clear();
        EXPECT_FALSE(DevConnect()) << fault;
        EXPECT_FALSE(App().bDevConnected) << fault;
        EXPECT_EQ(shell.boxes.size(), 1U) << fault;
        EXPECT_FALSE(port.IsOpen()) << fault;
    }
    simulator.Tell("fault none");
    EXPECT_TRUE(DevConnect());
}

TEST_F(SimulatorLineTest, SpoiltHeads_ShowOnlyOnceAnEchoIsCompared)
{
    simulator.Tell("fault head");
    EXPECT_FALSE(DevConnect());
    EXPECT_TRUE(App().bDevConnected); // checksum and model are what identifies
    EXPECT_EQ(shell.BoxTexts(), QStringList("COM1: Konnte 1Ø2W nicht konfigurieren."));
}

TEST_F(SimulatorLineTest, SpoiltHeads_MarkTheSampleAsBad)
{
    ASSERT_TRUE(DevConnect());
    for (const char* fault : {"silent", "head", "late"}) {
        simulator.Tell(QStringLiteral("fault ") + QLatin1String(fault));
        App().MeasuredRow = tMeasuredRow();
        ASSERT_TRUE(DevCommand(kDevOpen));
        DevCommand(kDevSample);
        DevCommand(kDevClose);
        EXPECT_EQ(App().MeasuredRow.sValidMask, "EEEE") << fault;
    }
}

TEST_F(SimulatorLineTest, LineThatBreaksOff_IsToldAndWorksAgainOnceItIsBack)
{
    simulator.Tell("fault closed");
    EXPECT_FALSE(DevConnect());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_FALSE(port.IsOpen());
    simulator.Tell("fault none");
    EXPECT_FALSE(DevConnect()); // there is no device
    EXPECT_EQ(shell.boxes.size(), 2U);
    simulator.Tell("open");
    EXPECT_TRUE(DevConnect());
    EXPECT_EQ(shell.boxes.size(), 2U);
}

TEST_F(SimulatorLineTest, Reset_EmptiesTheCounters)
{
    UseEntry("ISKRA MI71XX 1Ø2W (1b) Rec");
    simulator.Tell("profile constant");
    QThread::sleep(2);
    Sample();
    const double before = App().MeasuredRow.dWpPlusAbs;
    ASSERT_TRUE(DevResetCounters());
    const double resetAt = simulator.Log().back().seconds;
    QThread::sleep(6); // of which the counter shows some hundredths
    Sample();
    constexpr int kEnergyCode = 0;
    constexpr double kDigit = kSecondsPerHour; // the counter shows whole watt hours
    const auto asked = std::find_if(queries.begin(), queries.end(), [](const LoggedExchange& query) {
        return query.kind == QStringLiteral("query") && query.code == kEnergyCode;
    });
    ASSERT_NE(asked, queries.end());
    const double expected = App().MeasuredRow.dP[0] * (asked->seconds - resetAt);
    EXPECT_GT(before, App().MeasuredRow.dWpPlusAbs);
    EXPECT_NEAR(App().MeasuredRow.dWpPlusAbs, expected, kDigit + 0.05 * App().MeasuredRow.dP[0]);
}

} // namespace
} // namespace korvanel::test
