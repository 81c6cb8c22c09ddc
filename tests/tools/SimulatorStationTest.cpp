#include "tools/SimulatorRequests.h"

#include <gtest/gtest.h>

namespace korvanel::simulator::test {
namespace {

TEST(SimulatorStation, SplitRequest_IsAnsweredWithItsLastByte)
{
    Bench bench;
    const Bytes request = Frame(4, 1, 3);
    for (std::size_t index = 0; index < request.size(); ++index) {
        EXPECT_TRUE(bench.station.TakeDue(bench.now).empty()) << index;
        bench.now += 0.005;
        bench.station.Receive(ByteView(&request[index], 1), bench.now);
    }
    const std::vector<Exchange> due = bench.station.TakeDue(bench.now);
    ASSERT_EQ(due.size(), 1U);
    EXPECT_EQ(due[0].request, request);
    EXPECT_EQ(due[0].answer.reply.size(), 11U);
}

TEST(SimulatorStation, RequestsWithoutPause_AreAnsweredInTurn)
{
    Bench bench;
    Bytes both = QueryOf(16);
    const Bytes second = Frame(3, 17, 1);
    both.insert(both.end(), second.begin(), second.end());
    const std::vector<Exchange> exchanges = bench.Exchanges(both);
    ASSERT_EQ(exchanges.size(), 2U);
    EXPECT_EQ(exchanges[0].answer.kind, RequestKind::Query);
    EXPECT_EQ(exchanges[0].answer.code, 16);
    EXPECT_EQ(exchanges[1].answer.kind, RequestKind::Read);
    EXPECT_EQ(exchanges[1].answer.code, 17);
}

TEST(SimulatorStation, Garbage_IsForgottenAfterASilence)
{
    for (const Bytes& garbage : {Bytes{33}, Bytes{33, 3, 0}, Bytes{1, 2, 3, 4, 5, 6, 7, 8, 9}, Bytes(300, 0xFF),
                                 Bytes(8, 3), Bytes(1000, 'M')}) {
        Bench bench;
        const std::vector<Exchange> exchanges = bench.Exchanges(garbage);
        ASSERT_FALSE(exchanges.empty());
        Bytes seen;
        for (const Exchange& exchange : exchanges) {
            EXPECT_EQ(exchange.answer.kind, RequestKind::Bad);
            EXPECT_TRUE(exchange.answer.reply.empty());
            seen.insert(seen.end(), exchange.request.begin(), exchange.request.end());
        }
        EXPECT_EQ(seen, garbage);
        EXPECT_EQ(bench.Reply(Frame(3, 17, 1)).size(), 7U);
    }
}

TEST(SimulatorStation, RequestWithinGarbage_IsNoneBeforeTheSilence)
{
    Bench bench;
    Bytes bytes(8, 3);
    const Bytes request = Frame(3, 17, 1);
    bytes.insert(bytes.end(), request.begin(), request.end());
    EXPECT_TRUE(bench.Reply(bytes).empty());
    EXPECT_FALSE(bench.Reply(request).empty());
}

TEST(SimulatorStation, HostileBytes_LeaveTheInstrumentAnswering)
{
    Bench bench;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> length(1, 40);
    std::uniform_int_distribution<int> any(0, 255);
    for (int burst = 0; burst < 20000; ++burst) {
        Bytes bytes(static_cast<std::size_t>(length(random)));
        for (Byte& byte : bytes)
            byte = static_cast<Byte>(any(random));
        if (burst % 3 == 0)
            bytes[0] = 33;
        if (burst % 5 == 0) // past the checksum
            bytes = WithCrc(bytes);
        bench.now += burst % 2 == 0 ? 0.001 : 0.03;
        bench.station.Receive(bytes, bench.now);
        bench.station.TakeDue(bench.now);
    }
    EXPECT_EQ(bench.Reply(Frame(4, 1, 3)).size(), 11U);
}

TEST(SimulatorStation, FloodOfRequestsWithLateReplies_StaysBounded)
{
    Bench bench;
    bench.station.SetFault(FaultKind::Late);
    bench.station.SetDelay(60);
    for (int request = 0; request < 5000; ++request)
        bench.station.Receive(QueryOf(16), 0.001 * request);
    EXPECT_EQ(bench.station.TakeDue(100).size(), 256U);
}

class SimulatorFaults : public ::testing::Test
{
protected:
    Bytes Spoiled(FaultKind kind, const Bytes& request)
    {
        bench.station.SetFault(kind);
        return bench.Reply(request);
    }

    Bench bench;
    const std::vector<Bytes> requests = {Frame(4, 1, 3), Frame(3, 17, 1), Frame(6, 17, 100), QueryOf(28)};

    /// The reply without a fault; of a quantity that keeps still from one second to the next.
    Bytes Sound(const Bytes& request)
    {
        bench.instrument->SetText(28, "50.002H");
        return Spoiled(FaultKind::None, request);
    }
};

TEST_F(SimulatorFaults, Silent_SaysNothing)
{
    for (const Bytes& request : requests)
        EXPECT_TRUE(Spoiled(FaultKind::Silent, request).empty());
}

TEST_F(SimulatorFaults, Truncated_LacksTheLastHalf)
{
    for (const Bytes& request : requests) {
        const Bytes sound = Sound(request);
        EXPECT_EQ(Spoiled(FaultKind::Truncated, request),
                  Bytes(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(sound.size() / 2)));
    }
}

TEST_F(SimulatorFaults, Overlong_HasFortyBytesMore)
{
    for (const Bytes& request : requests) {
        const Bytes sound = Sound(request);
        Bytes overlong = Spoiled(FaultKind::Overlong, request);
        ASSERT_EQ(overlong.size(), sound.size() + 40);
        overlong.resize(sound.size());
        EXPECT_EQ(overlong, sound);
    }
}

TEST_F(SimulatorFaults, Garbage_IsAsLongAndTheSameInEveryRun)
{
    Bench other;
    other.station.SetFault(FaultKind::Garbage);
    for (const Bytes& request : requests) {
        const Bytes garbage = Spoiled(FaultKind::Garbage, request);
        EXPECT_EQ(garbage, other.Reply(request));
        const Bytes sound = Sound(request);
        EXPECT_EQ(garbage.size(), sound.size());
        EXPECT_NE(garbage, sound);
    }
}

TEST_F(SimulatorFaults, Crc_IsWrongInItsLastByte)
{
    for (const Bytes& request : requests) {
        const Bytes sound = Sound(request);
        Bytes wrong = Spoiled(FaultKind::Crc, request);
        EXPECT_FALSE(HasValidCrc(wrong));
        wrong.back() = sound.back();
        EXPECT_EQ(wrong, sound);
    }
}

TEST_F(SimulatorFaults, Head_IsWrongInAddressOrFunctionUnderAValidChecksum)
{
    bool isAddressHit = false;
    bool isFunctionHit = false;
    for (int round = 0; round < 10; ++round)
        for (const Bytes& request : requests) {
            const Bytes sound = Sound(request);
            const Bytes wrong = Spoiled(FaultKind::Head, request);
            ASSERT_EQ(wrong.size(), sound.size());
            EXPECT_TRUE(HasValidCrc(wrong));
            EXPECT_NE(wrong[0] == sound[0], wrong[1] == sound[1]);
            EXPECT_TRUE(std::equal(wrong.begin() + 2, wrong.end() - 2, sound.begin() + 2));
            isAddressHit = isAddressHit || wrong[0] != sound[0];
            isFunctionHit = isFunctionHit || wrong[1] != sound[1];
        }
    EXPECT_TRUE(isAddressHit && isFunctionHit);
}

TEST_F(SimulatorFaults, Late_ComesWholeAfterTheDelay)
{
    const Bytes sound = Sound(QueryOf(28));
    bench.station.SetFault(FaultKind::Late);
    bench.station.SetDelay(0.3);
    bench.station.Receive(QueryOf(28), 100);
    EXPECT_TRUE(bench.station.TakeDue(100.29).empty());
    EXPECT_DOUBLE_EQ(bench.station.NextEvent().value_or(0), 100.3);
    const std::vector<Exchange> due = bench.station.TakeDue(100.3);
    ASSERT_EQ(due.size(), 1U);
    EXPECT_EQ(due[0].answer.reply, sound);
    EXPECT_FALSE(bench.station.NextEvent().has_value());
}

TEST_F(SimulatorFaults, Delay_HasLimits)
{
    for (const double delay : {-0.1, 60.1, std::nan("")})
        EXPECT_THROW(bench.station.SetDelay(delay), std::invalid_argument);
}

TEST_F(SimulatorFaults, Closed_BreaksTheLineInPlaceOfTheReply)
{
    bench.station.SetFault(FaultKind::Closed);
    const std::vector<Exchange> exchanges = bench.Exchanges(QueryOf(28));
    ASSERT_EQ(exchanges.size(), 1U);
    EXPECT_TRUE(exchanges[0].breaksLine);
    EXPECT_TRUE(exchanges[0].answer.reply.empty());
    EXPECT_FALSE(bench.Exchanges(QueryOf(28, 1)).at(0).breaksLine); // what gets no reply breaks nothing
}

TEST_F(SimulatorFaults, HangUp_LosesWhatWasOnItsWay)
{
    bench.station.SetFault(FaultKind::Late);
    bench.station.Receive(QueryOf(28), 100);
    bench.station.Receive(Bytes{33, 'M'}, 100);
    const std::vector<Exchange> lost = bench.station.HangUp();
    ASSERT_EQ(lost.size(), 1U);
    EXPECT_TRUE(lost[0].answer.reply.empty());
    EXPECT_FALSE(bench.station.NextEvent().has_value());
    EXPECT_TRUE(bench.station.TakeDue(200).empty());
}

TEST(SimulatorFaultNames, Names_AreKnownBothWays)
{
    EXPECT_EQ(FaultNames().size(), 9U);
    EXPECT_EQ(FaultOf("truncated"), FaultKind::Truncated);
    EXPECT_THROW(FaultOf("Truncated"), std::invalid_argument);
}

} // namespace
} // namespace korvanel::simulator::test
