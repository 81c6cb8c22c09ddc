#include "tools/LineRequests.h"

#include "simulator/ModbusAscii.h"

namespace korvanel::simulator::test {
namespace {

const std::string kAskAll = ":010302020049AF";
constexpr std::size_t kNanovipReply = 303;

/// A position in the reply, counted from 1.
struct NanovipPlace
{
    int code;
    std::size_t position;
};

constexpr NanovipPlace kNanovipPlaces[] = {{0, 8}, {1, 14}, {3, 20}, {6, 26}, {5, 32}, {4, 38}, {2, 44}};

std::string At(const std::string& reply, std::size_t position, std::size_t length)
{
    return position - 1 < reply.size() ? reply.substr(position - 1, length) : std::string();
}

/// Sign, mantissa and exponent as the protocol has them.
double Decoded(const std::string& field)
{
    const std::string digits{field[3], field[0], field[1]};
    const int power = static_cast<int>(std::strtol(field.substr(4).c_str(), nullptr, 16));
    return (field[2] == '8' ? -1 : 1) * std::stod(digits) * std::pow(10, power > 127 ? power - 256 : power);
}

/// A frame with its check byte: what makes the sum of all bytes a whole number of 256.
std::string Framed(const std::string& digits)
{
    unsigned sum = 0;
    for (std::size_t position = 0; position < digits.size(); position += 2)
        sum += static_cast<unsigned>(std::stoul(digits.substr(position, 2), nullptr, 16));
    char check[3];
    std::snprintf(check, sizeof check, "%02X", (256 - sum % 256) % 256);
    return ':' + digits + check;
}

class SimulatedNanovip : public ::testing::Test
{
protected:
    std::string Field(int code)
    {
        const std::string reply = bench.Ask(kAskAll);
        for (const NanovipPlace& place : kNanovipPlaces)
            if (place.code == code)
                return At(reply, place.position, 6);
        return {};
    }
    std::string Status() { return At(bench.Ask(kAskAll), 296, 2); }

    LineBench bench{"nanovip"};
};

TEST_F(SimulatedNanovip, Reply_HoldsAllValuesAtTheirPlaces)
{
    struct Case
    {
        int code;
        double value;
        const char* field;
    };
    const Case cases[] = {{0, 230, "300200"},   {1, 5.02, "0205FE"}, {3, -1150, "158101"}, {6, 0.847, "4708FD"},
                          {5, 720.4, "200700"}, {4, 1360, "360101"}, {2, 50, "0005FF"}};
    std::string digits = "010392";
    for (const Case& each : cases) {
        bench.instrument->SetValue(each.code, each.value);
        digits += each.field;
    }
    digits.resize(6 + 288, '0');
    digits += "2000"; // the status at the 145th byte, and the last one
    const std::string reply = bench.Ask(kAskAll);
    EXPECT_EQ(reply, Framed(digits) + "\r\n");
    EXPECT_EQ(reply.size(), kNanovipReply);
    for (std::size_t index = 0; index < std::size(cases); ++index) {
        EXPECT_EQ(kNanovipPlaces[index].code, cases[index].code);
        EXPECT_EQ(At(reply, kNanovipPlaces[index].position, 6), cases[index].field);
    }
}

TEST_F(SimulatedNanovip, Format_HasThreeDigitsAndAPowerOfTen)
{
    struct Case
    {
        double value;
        const char* field;
    };
    for (const Case& each : {Case{0, "000000"}, Case{-0.0, "000000"}, Case{999.4, "990900"}, Case{999.6, "000101"},
                             Case{-999.6, "008101"}, Case{1e-5, "0001F9"}, Case{1.23e-126, "230180"},
                             Case{1e-200, "000000"}, Case{-1e-200, "000000"}, Case{9.87e129, "87097F"}}) {
        bench.instrument->SetValue(0, each.value);
        EXPECT_EQ(Field(0), each.field) << each.value;
    }
    EXPECT_THROW(bench.instrument->SetValue(0, 1e130), std::invalid_argument);
    EXPECT_EQ(Field(0), "87097F");
}

TEST_F(SimulatedNanovip, Switch_DecidesWhatIsMeasured)
{
    const Readings net = ReadNet(ConstantLoad(0), 3);
    const auto expect = [this](double voltage, double current, double power, double reactive, double apparent) {
        const double truth[] = {voltage, current, power, power / apparent, reactive, apparent, 50};
        for (std::size_t index = 0; index < std::size(truth); ++index) {
            const double told = Decoded(Field(kNanovipPlaces[index].code));
            EXPECT_NEAR(told, truth[index], 0.0051 * truth[index]) << index;
        }
    };
    expect(net.voltage[1], net.current[1], net.active[1], net.reactive[1], net.apparent[1]);
    bench.instrument->SetState("switch", "3");
    expect(net.lineVoltage[0], net.current[0] / 3, net.active[0], net.reactive[0], net.apparent[0]);
    EXPECT_GT(Decoded(Field(0)), 390);
    bench.instrument->SetState("switch", "1");
    EXPECT_LT(Decoded(Field(0)), 235);
}

TEST_F(SimulatedNanovip, States_AreBitsOfTheStatusByte)
{
    EXPECT_EQ(Status(), "20");
    bench.instrument->SetState("overrange", "on");
    EXPECT_EQ(Status(), "30");
    bench.instrument->SetState("battery", "low");
    EXPECT_EQ(Status(), "70");
    bench.instrument->SetState("switch", "3");
    EXPECT_EQ(Status(), "50");
    bench.instrument->SetState("overrange", "off");
    bench.instrument->SetState("battery", "good");
    EXPECT_EQ(Status(), "00");
    for (const auto& [name, state] : {std::pair{"switch", "2"}, {"battery", ""}, {"selftest", "bad"}, {"", "on"}})
        EXPECT_THROW(bench.instrument->SetState(name, state), std::invalid_argument) << name;
    EXPECT_EQ(Status(), "00");
}

TEST_F(SimulatedNanovip, Setup_KnowsTheSwitchAlone)
{
    InstrumentSetup setup;
    setup.netSwitch = 3;
    setup.address = 999; // of the other family
    setup.model.clear();
    LineBench other("nanovip", setup);
    EXPECT_EQ(At(other.Ask(kAskAll), 296, 2), "00");
    setup.netSwitch = 2;
    EXPECT_THROW(MakeFamily("nanovip", setup), std::invalid_argument);
}

TEST_F(SimulatedNanovip, SetTexts_StandInTheFieldAsTheyAre)
{
    bench.instrument->SetText(3, "xyz");
    EXPECT_EQ(Field(3), "   xyz");
    bench.instrument->SetText(3, "");
    EXPECT_EQ(Field(3), "      ");
    EXPECT_EQ(bench.Ask(kAskAll).size(), kNanovipReply);
    bench.instrument->SetText(3, "3082FE");
    EXPECT_EQ(Field(3), "3082FE");
    EXPECT_THROW(bench.instrument->SetText(3, "1234567"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(3, "1\n"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(11, "1"), std::invalid_argument);
    EXPECT_EQ(Field(3), "3082FE");
}

TEST_F(SimulatedNanovip, OtherRequests_GetAnExceptionOrNothing)
{
    EXPECT_EQ(Framed("010302020049"), kAskAll);
    for (const char* digits : {"010602020049", "0103020200", "01030202004900", "0101"}) // functions and lengths
        EXPECT_EQ(bench.Ask(Framed(digits)), Framed(std::string("018") + digits[3] + "01") + "\r\n") << digits;
    for (const char* digits : {"010302010049", "010302020048", "01030202004A", "010300000000"})
        EXPECT_EQ(bench.Ask(Framed(digits)), Framed("018302") + "\r\n") << digits;
    for (const char* digits : {"020302020049", "000302020049", "FF0302020049", "1103"}) {
        const Exchange stranger = bench.Send(Framed(digits));
        EXPECT_TRUE(stranger.answer.reply.empty()) << digits;
        EXPECT_EQ(stranger.answer.kind, RequestKind::Read) << digits;
    }
    for (const char* line : {":010302020049AE", ":010302020049af", ":010302020049A", "010302020049AF", "", ":", ":01FF",
                             ":0103020200 9AF", ":010302020049AF ", "?010302020049AF"}) {
        const Exchange bad = bench.Send(line);
        EXPECT_TRUE(bad.answer.reply.empty()) << line;
        EXPECT_EQ(bad.answer.kind, RequestKind::Bad) << line;
    }
}

TEST_F(SimulatedNanovip, Colon_BeginsAFrameAnew)
{
    EXPECT_EQ(bench.Ask("\x81:0103" + kAskAll).size(), kNanovipReply);
}

TEST_F(SimulatedNanovip, Log_TellsTheNumbersOfTheBlock)
{
    const struct
    {
        int code;
        const char* field;
    } texts[] = {{0, "300200"}, {1, "0205FE"}, {3, "158101"}, {6, "4788FD"}, {5, "x 1"}, {4, ""}, {2, "00050A"}};
    for (const auto& each : texts)
        bench.instrument->SetText(each.code, each.field);
    EXPECT_EQ(LoggedText(bench.Send(kAskAll)), "U=230 I=5.02 P=-1150 cosphi=-0.847 Q=x 1 S= f=500E10");
}

TEST_F(SimulatedNanovip, FaultCrc_SpoilsTheCheckByteAlone)
{
    const std::string sound = bench.Ask(kAskAll);
    bench.station.SetFault(FaultKind::Crc);
    std::string wrong = bench.Ask(kAskAll);
    EXPECT_FALSE(ParseAsciiFrame(wrong.substr(0, wrong.size() - 2)).has_value());
    wrong[300] = sound[300];
    EXPECT_EQ(wrong, sound);
}

TEST_F(SimulatedNanovip, FaultHead_SpoilsAddressOrFunctionUnderAValidCheckByte)
{
    const std::string sound = bench.Ask(kAskAll);
    bool isAddressHit = false;
    bool isFunctionHit = false;
    bench.station.SetFault(FaultKind::Head);
    for (int round = 0; round < 20; ++round) {
        const std::string wrong = bench.Ask(kAskAll);
        EXPECT_EQ(wrong, Framed(wrong.substr(1, 298)) + "\r\n");
        EXPECT_EQ(wrong.substr(5, 294), sound.substr(5, 294));
        EXPECT_NE(wrong.substr(1, 2) == "01", wrong.substr(3, 2) == "03");
        isAddressHit = isAddressHit || wrong.substr(1, 2) != "01";
        isFunctionHit = isFunctionHit || wrong.substr(3, 2) != "03";
    }
    EXPECT_TRUE(isAddressHit && isFunctionHit);
}

} // namespace
} // namespace korvanel::simulator::test
