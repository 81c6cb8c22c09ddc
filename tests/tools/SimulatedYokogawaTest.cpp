#include "tools/LineRequests.h"

#include <cstring>
#include <sstream>
#include <tuple>

namespace korvanel::simulator::test {
namespace {

/// Where a block has its values, counted from 1, and how long it is with the end of its last line.
struct BlockCase
{
    const char* family;
    const char* setup; ///< commands with "#" between
    std::size_t length;
    std::size_t field;
    std::size_t voltage, current, power, frequency;
    int wiring; ///< of the command WR
};

constexpr BlockCase kBlocks[] = {
    {"wt130", "RC#WR1#FL1#DB11#DC2#OF13,7,1#EA1#EB1#EC1#AV1#AA1#OF14,11,1", 261, 11, 7, 80, 153, 226, 1},
    {"wt130", "RC#WR3#FL1#DB11#DC2#OF13,7,1#EA4#EB1#EC4#AV1#AA1#OF14,11,1#OF11,4,4", 261, 11, 61, 134, 207, 226, 3},
    {"wt130", "RC#WR4#FL1#DB11#DC2#OF13,7,1#EA4#EB1#EC4#AV1#AA1#OF14,11,4#OF11,4,4", 261, 11, 61, 134, 207, 226, 4},
    {"2535", "RC#WR1#FL1#DC8#EA1#EB1#EC1#AV1#AA1", 89, 10, 7, 25, 43, 78, 1},
    {"2535", "RC#WR3#FL1#DC8#EA4#EB4#EC1#AV1#AA1", 191, 10, 41, 93, 145, 180, 3},
    {"2535", "RC#WR4#FL1#DC8#EA4#EB4#EC1#AV1#AA1", 242, 10, 58, 127, 196, 231, 4},
};

std::string FieldAt(const std::string& block, std::size_t position, std::size_t length)
{
    return position - 1 < block.size() ? block.substr(position - 1, length) : std::string();
}

/// Every command of a setup, none of which is answered.
void GiveSetup(LineBench& bench, const std::string& commands)
{
    std::istringstream parts(commands);
    for (std::string command; std::getline(parts, command, '#');) {
        const Exchange exchange = bench.Send(command);
        EXPECT_TRUE(exchange.answer.reply.empty()) << command;
        EXPECT_EQ(exchange.answer.kind, RequestKind::Write) << command;
    }
}

TEST(SimulatedYokogawa, Block_HasTheLengthAndThePlacesOfItsWiring)
{
    for (const BlockCase& each : kBlocks) {
        LineBench bench(each.family);
        GiveSetup(bench, each.setup);
        const std::string block = bench.Ask("OD");
        ASSERT_EQ(block.size(), each.length) << each.setup;
        EXPECT_EQ(block.substr(each.length - 2), "\r\n");
        const Readings net = ReadNet(ConstantLoad(0), 3);
        const std::size_t element = each.wiring == 1 ? 1 : 0;
        const double voltage = each.wiring == 3 ? net.lineVoltage[0] : net.voltage[element];
        const double current = element == 1 ? net.current[1] : net.current[0] / 3;
        const std::pair<std::size_t, double> truth[] = {{each.voltage, voltage},
                                                        {each.current, current},
                                                        {each.power, net.active[element]},
                                                        {each.frequency, net.frequency}};
        for (const auto& [position, value] : truth)
            EXPECT_NEAR(std::stod(FieldAt(block, position, each.field)), value, 1e-4 * value) << each.setup << position;
    }
}

TEST(SimulatedYokogawa, OtherPlaces_ReadZero)
{
    for (const BlockCase& each : kBlocks) {
        LineBench bench(each.family);
        GiveSetup(bench, each.setup);
        for (const int code : {0, 1, 2, 3})
            bench.instrument->SetText(code, "x");
        if (each.field == 11)
            bench.instrument->SetText(11, "");
        const std::string block = bench.Ask("OD");
        EXPECT_EQ(std::count(block.begin(), block.end(), 'x'), 4) << each.setup;
        EXPECT_EQ(block.find_first_of("23456789"), std::string::npos) << each.setup << '\n' << block;
    }
}

TEST(SimulatedYokogawa, Setup_TellsTheModelAndTheWiring)
{
    LineBench small("wt130");
    EXPECT_EQ(small.Ask("OS"), "MODEL253503,WR1\r\n");
    small.Send("WR4");
    EXPECT_EQ(small.Ask("OS"), "MODEL253503,WR4\r\n");
    small.Send("RC");
    EXPECT_EQ(small.Ask("OS"), "MODEL253503,WR1\r\n");
    LineBench large("2535");
    EXPECT_EQ(large.Ask("OS"), "MDL2535,WR1,SC0\r\n");
    EXPECT_EQ(large.Send("OS").answer.kind, RequestKind::Read);
}

TEST(SimulatedYokogawa, UnknownCommands_GetNoReplyAndSpoilNothing)
{
    for (const char* family : {"wt130", "2535"}) {
        LineBench bench(family);
        for (const char* line :
             {"", "O", "OX", "od", "OD ", " OD", "WR2", "WR", "WR1,", "RC1", "FL", "FLx", "XX1", "*IDN?"}) {
            const Exchange exchange = bench.Send(line);
            EXPECT_TRUE(exchange.answer.reply.empty()) << line;
            EXPECT_EQ(exchange.answer.kind, RequestKind::Bad) << line;
        }
        const std::vector<Exchange> both = bench.Exchanges(BytesOf("XX1\r\nOS\r\n"));
        ASSERT_EQ(both.size(), 2U);
        EXPECT_FALSE(both[1].answer.reply.empty());
    }
}

TEST(SimulatedYokogawa, SetTexts_StandAtTheRightOfTheirFields)
{
    for (const BlockCase& each : kBlocks) {
        LineBench bench(each.family);
        GiveSetup(bench, each.setup);
        bench.instrument->SetText(0, "1.5E2");
        bench.instrument->SetText(1, "");
        bench.instrument->SetText(3, std::string(each.field, '#'));
        bench.instrument->SetText(2, "4 9");
        const std::string block = bench.Ask("OD");
        EXPECT_EQ(block.size(), each.length);
        EXPECT_EQ(FieldAt(block, each.voltage, each.field), std::string(each.field - 5, ' ') + "1.5E2");
        EXPECT_EQ(FieldAt(block, each.current, each.field), std::string(each.field, ' '));
        EXPECT_EQ(FieldAt(block, each.power, each.field), std::string(each.field, '#'));
        EXPECT_EQ(FieldAt(block, each.frequency, each.field), std::string(each.field - 3, ' ') + "4 9");
        EXPECT_THROW(bench.instrument->SetText(0, std::string(each.field + 1, '1')), std::invalid_argument);
        for (const int code : {4, 5, 6, 7, -1})
            EXPECT_THROW(bench.instrument->SetValue(code, 1), std::invalid_argument) << code;
    }
}

TEST(SimulatedYokogawa, Log_TellsTheTextsOfTheBlock)
{
    for (const BlockCase& each : kBlocks) {
        LineBench bench(each.family);
        GiveSetup(bench, each.setup);
        bench.instrument->SetText(0, "230.1");
        bench.instrument->SetText(1, "x");
        bench.instrument->SetText(3, "");
        bench.instrument->SetText(2, "-49");
        std::string expected = "U=230.1 I=x P= f=-49";
        if (each.field == 11) {
            bench.instrument->SetText(11, "-12.5");
            expected = each.wiring == 1 ? "U=230.1 I=x P= f=-49 phi=-12.5 sense=D"
                                        : "U=230.1 I=x P= sign=-1.0000E+00 f=-49 phi=-12.5 sense=D";
        }
        const Exchange exchange = bench.Send("OD");
        EXPECT_EQ(exchange.answer.kind, RequestKind::Query);
        EXPECT_FALSE(exchange.answer.code.has_value());
        EXPECT_EQ(LoggedText(exchange), expected);
        for (const FaultKind fault :
             {FaultKind::Truncated, FaultKind::Overlong, FaultKind::Garbage, FaultKind::Silent}) {
            bench.station.SetFault(fault);
            EXPECT_EQ(LoggedText(bench.Send("OD")), "") << static_cast<int>(fault);
        }
    }
}

TEST(SimulatedYokogawa, FaultCrc_ChangesADigitThatCounts)
{
    for (const BlockCase& each : kBlocks) {
        LineBench bench(each.family);
        GiveSetup(bench, each.setup);
        const std::string sound = bench.Ask("OD");
        const std::string setup = bench.Ask("OS");
        bench.station.SetFault(FaultKind::Crc);
        const std::string wrong = bench.Ask("OD");
        ASSERT_EQ(wrong.size(), sound.size());
        EXPECT_NE(FieldAt(wrong, each.voltage, each.field), FieldAt(sound, each.voltage, each.field));
        std::size_t changed = 0;
        for (std::size_t index = 0; index < sound.size(); ++index)
            changed += wrong[index] != sound[index] ? 1 : 0;
        EXPECT_EQ(changed, 1U);
        EXPECT_EQ(bench.Ask("OS").find(setup.substr(0, setup.find(','))), std::string::npos);
    }
}

TEST(SimulatedWt130, Format_HasFiveDigitsAndAPowerOfTenInThrees)
{
    LineBench bench("wt130");
    const std::pair<double, const char*> cases[] = {
        {0, "+0.0000E+00"},        {230.1, "+230.10E+00"},   {5.0213, "+5.0213E+00"},    {17432.4, "+17.432E+03"},
        {-17432.4, "-17.432E+03"}, {999.994, "+999.99E+00"}, {999.996, "+1.0000E+03"},   {0.0123, "+12.300E-03"},
        {0.00001, "+0.0100E-03"},  {-0.5, "-500.00E-03"},    {123456789, "+123.46E+06"}, {9.9e14, "+990.00E+12"},
    };
    for (const auto& [value, text] : cases) {
        bench.instrument->SetValue(3, value);
        EXPECT_EQ(FieldAt(bench.Ask("OD"), 153, 11), text);
    }
    EXPECT_THROW(bench.instrument->SetValue(3, 1e15), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetValue(3, std::nan("")), std::invalid_argument);
    EXPECT_EQ(FieldAt(bench.Ask("OD"), 153, 11), "+990.00E+12");
}

TEST(SimulatedWt130, Angle_IsUnsignedWithItsLetterBefore)
{
    struct Case
    {
        double degrees;
        const char* letters;
        const char* text;
        const char* sign;
    };
    for (const Case& each :
         {Case{30.5, " G", "+30.500E+00", "+30.500E+00"}, Case{-30.5, " D", "+30.500E+00", "-30.500E+00"},
          Case{0, " G", "+0.0000E+00", "+0.0000E+00"}, Case{-150, " D", "+150.00E+00", "-150.00E+00"}}) {
        LineBench bench("wt130");
        bench.instrument->SetValue(11, each.degrees);
        for (const char* wiring : {"WR1", "WR3", "WR4"}) {
            bench.Send(wiring);
            const std::string block = bench.Ask("OD");
            EXPECT_EQ(FieldAt(block, 242, 2), each.letters) << wiring;
            EXPECT_EQ(FieldAt(block, 244, 11), each.text) << wiring;
            if (wiring != std::string("WR1")) {
                EXPECT_EQ(FieldAt(block, 188, 11), each.sign) << wiring;
            }
        }
    }
}

TEST(SimulatedWt130, Angle_OfTheNetIsThatOfThePhaseOrOfAll)
{
    const Readings net = ReadNet(ConstantLoad(0), 3);
    LineBench bench("wt130");
    EXPECT_NEAR(std::stod(FieldAt(bench.Ask("OD"), 244, 11)), net.angle[1], 1e-3);
    EXPECT_EQ(FieldAt(bench.Ask("OD"), 242, 2), " G");
    bench.Send("WR3");
    EXPECT_NEAR(std::stod(FieldAt(bench.Ask("OD"), 244, 11)), net.angle[0], 1e-3);
    EXPECT_NEAR(std::stod(FieldAt(bench.Ask("OD"), 188, 11)), net.angle[0], 1e-3);
}

TEST(SimulatedWt130, Angle_IsMissingWithoutACurrentOrWithAnEmptyText)
{
    InstrumentSetup setup;
    LineBench resting("wt130", setup);
    resting.now = 54; // in the pause of the duty cycle
    EXPECT_EQ(FieldAt(resting.Ask("OD"), 242, 1), "O");
    resting.instrument->SetValue(11, 20);
    EXPECT_EQ(FieldAt(resting.Ask("OD"), 242, 1), " ");
    LineBench bench("wt130");
    bench.instrument->SetText(11, "");
    std::string block = bench.Ask("OD");
    EXPECT_EQ(FieldAt(block, 242, 1), "O");
    EXPECT_EQ(FieldAt(block, 244, 11), std::string(11, ' '));
    for (const char* text : {"garbage", "1E300", "inf", "nan"}) {
        bench.Send("WR4");
        bench.instrument->SetText(11, text);
        block = bench.Ask("OD");
        EXPECT_EQ(FieldAt(block, 242, 2), " G") << text;
        EXPECT_EQ(FieldAt(block, 188, 11), "+1.0000E+00") << text;
        EXPECT_EQ(FieldAt(block, 244, 11), std::string(11 - std::strlen(text), ' ') + text);
    }
}

TEST(Simulated2535, Format_IsANumberAtTheRightOfItsField)
{
    LineBench bench("2535");
    const std::pair<double, const char*> cases[] = {
        {0, "    0.0000"},     {230.1, "  230.1000"},     {17432.4, "17432.4000"},    {-17432.4, "-17432.400"},
        {-0.05, "   -0.0500"}, {1234567.8, "1234567.80"}, {9999999999, "9999999999"}, {-999999999, "-999999999"},
    };
    for (const auto& [value, text] : cases) {
        bench.instrument->SetValue(3, value);
        EXPECT_EQ(FieldAt(bench.Ask("OD"), 43, 10), text);
    }
    EXPECT_THROW(bench.instrument->SetValue(3, 1e10), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetValue(3, -1e9), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetValue(11, 1), std::invalid_argument); // it tells no angle
    EXPECT_EQ(FieldAt(bench.Ask("OD"), 43, 10), "-999999999");
}

TEST(Simulated2535, FrequencyOfZero_HasACodeOfItsOwn)
{
    LineBench bench("2535");
    bench.instrument->SetValue(2, 0);
    for (const auto& [wiring, position] : {std::pair{"WR1", 78}, {"WR3", 180}, {"WR4", 231}}) {
        bench.Send(wiring);
        EXPECT_EQ(FieldAt(bench.Ask("OD"), static_cast<std::size_t>(position), 10), "    888888");
    }
}

TEST(Simulated2535, Scaling_IsToldAndLeftToTheReader)
{
    const std::tuple<double, double, const char*> cases[] = {
        {2, 0.05, "SC1,KV2.000,KA0.050"},      {100, 1.5, "SC1,KV100.0,KA1.500"},
        {20.0, 1234, "SC1,KV20.00,KA 1234"},   {99999, 12345.4, "SC1,KV99999,KA12345"},
        {0.01, 0.1234, "SC1,KV0.010,KA0.123"},
    };
    for (const auto& [voltage, current, text] : cases) {
        InstrumentSetup setup = AtConstantLoad();
        setup.scaling = Scaling{voltage, current};
        LineBench bench("2535", setup);
        const std::string told = bench.Ask("OS");
        EXPECT_EQ(told, std::string("MDL2535,WR1,") + text + "\r\n");
        const double factorU = std::stod(told.substr(told.find("KV") + 2, 5));
        const double factorI = std::stod(told.substr(told.find("KA") + 2, 5));
        const std::string block = bench.Ask("OD");
        ASSERT_EQ(block.size(), 89U);
        const Readings net = ReadNet(ConstantLoad(0), 3);
        EXPECT_NEAR(std::stod(FieldAt(block, 7, 10)) * factorU, net.voltage[1], 0.51e-4 * factorU);
        EXPECT_NEAR(std::stod(FieldAt(block, 25, 10)) * factorI, net.current[1], 0.51e-4 * factorI);
        EXPECT_NEAR(std::stod(FieldAt(block, 43, 10)) * factorU * factorI, net.active[1],
                    0.51e-4 * factorU * factorI + 1e-8 * net.active[1]); // large numbers have fewer decimals
        EXPECT_NEAR(std::stod(FieldAt(block, 78, 10)), 50, 1e-4);
        bench.instrument->SetValue(0, 115); // what the block says
        EXPECT_EQ(FieldAt(bench.Ask("OD"), 7, 10), "  115.0000");
    }
    for (const double factor : {0.0, -1.0, 0.009, 100000.0, std::nan("")}) {
        InstrumentSetup setup;
        setup.scaling = Scaling{1, factor};
        EXPECT_THROW(MakeFamily("2535", setup), std::invalid_argument) << factor;
        setup.scaling = Scaling{factor, 1};
        EXPECT_THROW(MakeFamily("2535", setup), std::invalid_argument) << factor;
        EXPECT_NO_THROW(MakeFamily("wt130", setup));
    }
}

} // namespace
} // namespace korvanel::simulator::test
