// What all instruments do alike that are spoken to in lines.
#include "tools/LineRequests.h"

namespace korvanel::simulator::test {
namespace {

/// A request of a family and the length of the reply, with the end of the line.
struct LineFamily
{
    const char* name;
    const char* query;
    std::size_t length;
};

constexpr LineFamily kLineFamilies[] = {
    {"nanovip", ":010302020049AF", 303}, {"wt130", "OD", 261}, {"2535", "OD", 89}, {"norma", "volt:rms?", 12}};

TEST(SimulatedLines, SplitRequest_IsAnsweredWithItsLastByte)
{
    for (const LineFamily& each : kLineFamilies) {
        LineBench bench(each.name);
        const Bytes request = BytesOf(each.query + std::string("\r\n"));
        for (const Byte byte : request) {
            EXPECT_TRUE(bench.station.TakeDue(bench.now).empty()) << each.name;
            bench.now += 0.005;
            bench.station.Receive({&byte, 1}, bench.now);
        }
        const std::vector<Exchange> due = bench.station.TakeDue(bench.now);
        ASSERT_EQ(due.size(), 1U) << each.name;
        EXPECT_EQ(due[0].request, request);
        EXPECT_EQ(due[0].answer.reply.size(), each.length);
    }
}

TEST(SimulatedLines, OneCharacterOfTheEnd_EndsNothing)
{
    for (const LineFamily& each : kLineFamilies)
        for (const char* end : {"", "\r", "\n", "\n\r", "\r\r\n"}) {
            LineBench bench(each.name);
            EXPECT_TRUE(bench.Reply(BytesOf(std::string(each.query) + end)).empty()) << each.name;
            EXPECT_EQ(bench.Ask(each.query).size(), each.length) << each.name;
        }
}

TEST(SimulatedLines, RequestsWithoutPause_AreAnsweredInTurnEvenBehindABadOne)
{
    for (const LineFamily& each : kLineFamilies) {
        LineBench bench(each.name);
        const std::string line = each.query + std::string("\r\n");
        const std::vector<Exchange> exchanges = bench.Exchanges(BytesOf(line + "bad\r\n" + line));
        ASSERT_EQ(exchanges.size(), 3U) << each.name;
        EXPECT_EQ(exchanges[0].answer.reply.size(), each.length);
        EXPECT_EQ(exchanges[1].answer.kind, RequestKind::Bad);
        EXPECT_EQ(exchanges[2].answer.reply.size(), each.length);
    }
}

TEST(SimulatedLines, Faults_TouchEveryFamily)
{
    for (const LineFamily& each : kLineFamilies) {
        LineBench bench(each.name);
        const std::string sound = bench.Ask(each.query);
        ASSERT_EQ(sound.size(), each.length) << each.name;
        const auto spoiled = [&](const char* fault) {
            bench.station.SetFault(FaultOf(fault));
            return bench.Ask(each.query);
        };
        EXPECT_EQ(spoiled("none"), sound);
        EXPECT_EQ(spoiled("silent"), "");
        EXPECT_EQ(spoiled("truncated"), sound.substr(0, each.length / 2));
        const std::string overlong = spoiled("overlong");
        EXPECT_EQ(overlong.size(), each.length + 40);
        EXPECT_EQ(overlong.substr(0, each.length), sound);
        for (const char* fault : {"garbage", "crc", "head"}) {
            const std::string wrong = spoiled(fault);
            EXPECT_EQ(wrong.size(), each.length) << fault;
            EXPECT_NE(wrong, sound) << fault;
        }
        bench.station.SetDelay(0.01);
        EXPECT_EQ(spoiled("late"), sound);
        bench.station.SetFault(FaultKind::Closed);
        EXPECT_TRUE(bench.Send(each.query).breaksLine);
    }
}

TEST(SimulatedLines, HostileBytes_LeaveTheInstrumentAnswering)
{
    for (const LineFamily& each : kLineFamilies) {
        LineBench bench(each.name);
        std::mt19937 random(13);
        std::uniform_int_distribution<int> length(1, 300);
        std::uniform_int_distribution<int> any(0, 255);
        std::uniform_int_distribution<int> fault(0, 8);
        const std::string words[] = {each.query, "OS", "WR3", "OF1,", ":01", "form:ph l1", "rs232:TERM ", "\r\n"};
        for (int burst = 0; burst < 5000; ++burst) {
            Bytes bytes(static_cast<std::size_t>(length(random)));
            for (Byte& byte : bytes)
                byte = static_cast<Byte>(any(random));
            const std::string& word = words[static_cast<std::size_t>(burst) % std::size(words)];
            bytes.insert(bytes.begin() + static_cast<std::ptrdiff_t>(bytes.size() / 2), word.begin(), word.end());
            if (burst % 2 == 0)
                bytes.insert(bytes.end(), {'\r', '\n'});
            bench.station.SetFault(FaultOf(FaultNames()[static_cast<std::size_t>(fault(random))]));
            bench.now += burst % 2 == 0 ? 0.001 : 0.03;
            bench.station.Receive(bytes, bench.now);
            bench.station.TakeDue(bench.now);
        }
        bench.station.SetFault(FaultKind::None);
        bench.station.HangUp();
        EXPECT_FALSE(bench.Ask(each.query).empty()) << each.name;
    }
}

TEST(SimulatedLines, ProfileAndAddress)
{
    for (const LineFamily& each : kLineFamilies) {
        InstrumentSetup setup; // the duty cycle
        LineBench bench(each.name, setup);
        const std::string first = bench.Ask(each.query);
        bench.now = 40;
        EXPECT_NE(bench.Ask(each.query), first) << each.name;
        bench.instrument->SetProfile("constant", bench.now);
        const std::string steady = bench.Ask(each.query);
        EXPECT_EQ(bench.Ask(each.query), steady) << each.name;
        EXPECT_THROW(bench.instrument->SetProfile("bogus", bench.now), std::invalid_argument);
        EXPECT_THROW(bench.instrument->SetAddress(1), std::invalid_argument);
        EXPECT_EQ(bench.Ask(each.query), steady) << each.name;
    }
}

TEST(SimulatedLines, ValueAndText_ReplaceEachOther)
{
    for (const LineFamily& each : kLineFamilies) {
        LineBench bench(each.name);
        bench.instrument->SetValue(0, 100);
        const std::string hundred = bench.Ask(each.query);
        bench.instrument->SetText(0, "7");
        EXPECT_NE(bench.Ask(each.query), hundred);
        bench.instrument->SetValue(0, 100);
        EXPECT_EQ(bench.Ask(each.query), hundred);
        EXPECT_THROW(bench.instrument->SetValue(0, std::nan("")), std::invalid_argument);
        EXPECT_THROW(bench.instrument->SetValue(0, INFINITY), std::invalid_argument);
        EXPECT_EQ(bench.Ask(each.query), hundred);
    }
}

TEST(SimulatedLines, FamiliesWithoutStates_RefuseThem)
{
    for (const char* name : {"iskra", "wt130", "2535"})
        EXPECT_THROW(MakeFamily(name, {})->SetState("switch", "3"), std::invalid_argument) << name;
}

} // namespace
} // namespace korvanel::simulator::test
