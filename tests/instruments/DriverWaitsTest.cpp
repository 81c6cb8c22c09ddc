// The fixed waits of the instruments: they belong to their protocols, and nothing waits longer or shorter.
#include "core/Common.h"
#include "instruments/DevManaging.h"
#include "support/BlockInstruments.h"
#include "support/Fixture.h"
#include "support/MovingClock.h"
#include "support/ScriptedPort.h"

#include <vector>

namespace korvanel::test {
namespace {

class DriverWaits : public BlockTest
{
protected:
    DriverWaits()
    {
        App().ThePort = &port;
        App().TheClock = &clock;
        App().bShowDevErrors = false;
        App().bConfigDue = true;
        App().dTransRatio = {1, 1};
        port.answer = [this](const QByteArray& request) {
            asked.push_back(clock.seconds);
            return request == "*TST?\r\n"         ? QByteArray("0\r\n")
                   : request == "rs232:TERM?\r\n" ? QByteArray("vbCrLf\r\n")
                                                  : reply;
        };
    }
    /// The waits behind each request of an operation.
    std::vector<double> WaitsOf(const char* entry, quint8 command)
    {
        App().sDevice = QString::fromUtf8(entry);
        App().bConfigDue = true;
        asked.clear();
        DevCommand(command);
        std::vector<double> waits;
        for (std::size_t i = 0; i < asked.size(); ++i)
            waits.push_back((i + 1 < asked.size() ? asked[i + 1] : clock.seconds) - asked[i]);
        return waits;
    }
    static void ExpectWaits(const std::vector<double>& waits, const std::vector<double>& expected, const char* entry)
    {
        ASSERT_EQ(waits.size(), expected.size()) << entry;
        for (std::size_t i = 0; i < waits.size(); ++i)
            EXPECT_NEAR(waits[i], expected[i], 1e-9) << entry << ", request " << i + 1;
    }
    static std::vector<double> Times(std::size_t count, double wait) { return std::vector<double>(count, wait); }

    QByteArray reply = NanovipBlock();
    MovingClock clock;
    ScriptedPort port;
    std::vector<double> asked;
};

TEST_F(DriverWaits, Nanovip_WaitsOneAndAHalfSecondsForItsBlock)
{
    for (const char* entry : {"NANOVIP-PLUS 1Ø2W", "NANOVIP-PLUS 3Ø3W"})
        for (const quint8 command : {kDevIdentify, kDevConfigure, kDevSample})
            ExpectWaits(WaitsOf(entry, command), {1.5}, entry);
}

TEST_F(DriverWaits, Wt130_WaitsAQuarterOfASecondAndLongerForItsBlock)
{
    const std::pair<const char*, std::size_t> entries[] = {
        {"YOKOGAWA WT130 1Ø2W", 12}, {"YOKOGAWA WT130 3Ø3W", 13}, {"YOKOGAWA WT130 3Ø4W", 13}};
    for (const auto& [entry, commands] : entries) {
        ExpectWaits(WaitsOf(entry, kDevIdentify), {0.25}, entry);
        ExpectWaits(WaitsOf(entry, kDevConfigure), Times(commands, 0.25), entry);
        ExpectWaits(WaitsOf(entry, kDevPrepare), {}, entry);
        ExpectWaits(WaitsOf(entry, kDevSample), {0.5}, entry);
    }
}

TEST_F(DriverWaits, Y2535_WaitsTheSameForEverything)
{
    for (const char* entry : {"YOKOGAWA 2535 1Ø2W", "YOKOGAWA 2535 3Ø3W", "YOKOGAWA 2535 3Ø4W"}) {
        ExpectWaits(WaitsOf(entry, kDevIdentify), {0.8}, entry);
        ExpectWaits(WaitsOf(entry, kDevConfigure), Times(9, 0.8), entry);
        ExpectWaits(WaitsOf(entry, kDevPrepare), {0.8}, entry);
        ExpectWaits(WaitsOf(entry, kDevSample), {0.8}, entry);
    }
}

TEST_F(DriverWaits, Norma_WaitsForEachQueryAndLessWhereItConfigures)
{
    ExpectWaits(WaitsOf("NORMA D4355 1Ø2W", kDevIdentify), Times(3, 0.2), "identify");
    ExpectWaits(WaitsOf("NORMA D4355 1Ø2W", kDevConfigure), Times(3, 0.15), "configure");
    ExpectWaits(WaitsOf("NORMA D4355 1Ø2W", kDevSample), Times(5, 0.2), "one phase");
    ExpectWaits(WaitsOf("NORMA D4355 3Ø4W", kDevSample), Times(7, 0.2), "three phases");
}

TEST_F(DriverWaits, AreKeptWithoutAnyReply)
{
    reply.clear();
    ExpectWaits(WaitsOf("NANOVIP-PLUS 1Ø2W", kDevSample), {1.5}, "NANOVIP");
    ExpectWaits(WaitsOf("YOKOGAWA WT130 3Ø3W", kDevSample), {0.5}, "WT130");
    ExpectWaits(WaitsOf("NORMA D4355 3Ø4W", kDevSample), Times(7, 0.2), "NORMA");
}

} // namespace
} // namespace korvanel::test
