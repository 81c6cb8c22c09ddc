#include "tools/LineRequests.h"

namespace korvanel::simulator::test {
namespace {

/// Queries and the codes of what they ask for.
constexpr std::pair<const char*, int> kAllQueries[] = {
    {"pow:act?", 3}, {"pow:rea?", 5}, {"volt:rms?", 0}, {"curr:rms?", 1}, {"freq?", 2}};

class SimulatedNorma : public ::testing::Test
{
protected:
    double Number(const char* query) { return std::stod(bench.Ask(query)); }

    LineBench bench{"norma"};
    const Readings net = ReadNet(ConstantLoad(0), 3);
};

TEST_F(SimulatedNorma, SelfTest_IsGoodUntilItIsMadeBad)
{
    EXPECT_EQ(bench.Ask("*TST?"), "0\r\n");
    bench.instrument->SetState("selftest", "bad");
    EXPECT_EQ(bench.Ask("*TST?"), "1\r\n");
    for (const auto& [name, state] : {std::pair{"selftest", "none"}, {"battery", "low"}, {"", ""}})
        EXPECT_THROW(bench.instrument->SetState(name, state), std::invalid_argument);
    EXPECT_EQ(bench.Ask("*TST?"), "1\r\n");
    bench.instrument->SetState("selftest", "good");
    EXPECT_EQ(bench.Ask("*TST?"), "0\r\n");
    EXPECT_EQ(bench.Send("*TST?").answer.kind, RequestKind::Read);
}

TEST_F(SimulatedNorma, Terminator_IsKeptUnderItsName)
{
    EXPECT_NE(bench.Ask("rs232:TERM?").substr(0, 6), "vbCrLf"); // nobody has set it
    EXPECT_EQ(bench.Ask("rs232:TERM vbCrLf"), "");
    EXPECT_EQ(bench.Ask("rs232:TERM?"), "vbCrLf\r\n");
    EXPECT_EQ(bench.Send("rs232:TERM ").answer.kind, RequestKind::Bad);
    EXPECT_EQ(bench.Ask("RS232:TERM?"), "vbCrLf\r\n");
    EXPECT_EQ(bench.Ask("RS232:TERM VBCR"), "");
    EXPECT_EQ(bench.Ask("rs232:TERM?"), "VBCR\r\n");
}

TEST_F(SimulatedNorma, PhaseOne_TellsItsValuesAndTheFrequency)
{
    EXPECT_EQ(bench.Ask("form:ph l1"), "");
    const std::pair<const char*, double> truth[] = {{"pow:act?", net.active[1]},
                                                    {"pow:rea?", net.reactive[1]},
                                                    {"volt:rms?", net.voltage[1]},
                                                    {"curr:rms?", net.current[1]},
                                                    {"freq?", net.frequency}};
    for (const auto& [query, value] : truth)
        EXPECT_NEAR(Number(query), value, 1e-4 * value) << query;
}

TEST_F(SimulatedNorma, AllPhases_TellPowersAndMeansButNoFrequency)
{
    const auto expectAll = [this] {
        EXPECT_NEAR(Number("pow:act?"), net.active[0], 1);
        EXPECT_NEAR(Number("pow:rea?"), net.reactive[0], 1);
        EXPECT_NEAR(Number("volt:rms?"), net.voltage[0], 0.01);
        EXPECT_NEAR(Number("curr:rms?"), net.current[0] / 3, 0.001);
        bench.instrument->SetValue(2, 60);
        EXPECT_EQ(bench.Ask("freq?"), "0.0000E+00\r\n");
    };
    expectAll();
    bench.Send("form:ph l1");
    EXPECT_EQ(bench.Ask("freq?"), "6.0000E+01\r\n");
    bench.Send("FORM:PH ALL");
    expectAll();
}

TEST_F(SimulatedNorma, Settings_AreTakenWithoutAWord)
{
    for (const char* line : {"acq:ran:volt auto", "acq:ran:curr auto", "form:ph l1", "form:ph all", "rs232:TERM vbCrLf",
                             "ACQ:RAN:VOLT AUTO"}) {
        const Exchange exchange = bench.Send(line);
        EXPECT_TRUE(exchange.answer.reply.empty()) << line;
        EXPECT_EQ(exchange.answer.kind, RequestKind::Write) << line;
    }
}

TEST_F(SimulatedNorma, UnknownCommands_GetNoReply)
{
    for (const char* line : {"", "*IDN?", "Pow:act?", "pow:act", "freq? ", "form:ph l2", "acq:ran:volt 300",
                             "rs232:term vbCrLf", "rs232:TERMvbCrLf", "*tst?"}) {
        const Exchange exchange = bench.Send(line);
        EXPECT_TRUE(exchange.answer.reply.empty()) << line;
        EXPECT_EQ(exchange.answer.kind, RequestKind::Bad) << line;
    }
    EXPECT_EQ(bench.Ask("*TST?"), "0\r\n");
}

TEST_F(SimulatedNorma, Format_HasFiveDigitsAndAPowerOfTen)
{
    const std::pair<double, const char*> cases[] = {{230.104, "2.3010E+02"},
                                                    {-1500, "-1.5000E+03"},
                                                    {0, "0.0000E+00"},
                                                    {0.5, "5.0000E-01"},
                                                    {1e100, "1.0000E+100"}};
    bench.Send("form:ph l1");
    for (const auto& [query, code] : kAllQueries)
        for (const auto& [value, text] : cases) {
            bench.instrument->SetValue(code, value);
            const Exchange exchange = bench.Send(query);
            EXPECT_EQ(PlainText(exchange.answer.reply), std::string(text) + "\r\n") << query;
            EXPECT_EQ(exchange.answer.kind, RequestKind::Query);
            EXPECT_EQ(exchange.answer.code, code);
            EXPECT_EQ(LoggedText(exchange), text);
        }
    for (const int code : {4, 6, 11, -1})
        EXPECT_THROW(bench.instrument->SetValue(code, 1), std::invalid_argument) << code;
}

TEST_F(SimulatedNorma, SetTexts_AreTheAnswerAndAnEmptyOneIsNone)
{
    bench.instrument->SetText(0, "  x 1,5");
    EXPECT_EQ(bench.Ask("volt:rms?"), "  x 1,5\r\n");
    bench.instrument->SetText(0, " ");
    EXPECT_EQ(bench.Ask("volt:rms?"), " \r\n");
    bench.instrument->SetText(0, "");
    const Exchange silent = bench.Send("volt:rms?");
    EXPECT_TRUE(silent.answer.reply.empty());
    EXPECT_EQ(silent.answer.kind, RequestKind::Query);
    EXPECT_EQ(silent.answer.code, 0);
    EXPECT_EQ(LoggedText(silent), "");
    EXPECT_FALSE(bench.Ask("curr:rms?").empty());
    EXPECT_THROW(bench.instrument->SetText(0, std::string(33, '1')), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(0, "1\t2"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(4, "1"), std::invalid_argument);
}

TEST_F(SimulatedNorma, Faults_AreSeenInEveryAnswer)
{
    bench.Send("rs232:TERM vbCrLf");
    bench.station.SetFault(FaultKind::Crc);
    EXPECT_EQ(bench.Ask("*TST?"), "1\r\n");
    EXPECT_EQ(bench.Ask("rs232:TERM?"), "?bCrLf\r\n");
    bench.instrument->SetValue(0, 90);
    EXPECT_EQ(bench.Ask("volt:rms?"), "0.0000E+01\r\n");
    bench.station.SetFault(FaultKind::Head);
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(bench.Ask("*TST?"), "?\r\n");
        const std::string name = bench.Ask("rs232:TERM?");
        EXPECT_TRUE(name == "?bCrLf\r\n" || name == "v?CrLf\r\n") << name;
    }
    bench.station.SetFault(FaultKind::Truncated);
    EXPECT_EQ(bench.Ask("*TST?"), "0");
    EXPECT_EQ(bench.Ask("rs232:TERM?"), "vbCr");
}

} // namespace
} // namespace korvanel::simulator::test
