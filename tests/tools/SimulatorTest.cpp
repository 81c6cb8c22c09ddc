#include "tools/SimulatorRequests.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvanel::simulator::test {
namespace {

InstrumentSetup Constant()
{
    InstrumentSetup setup;
    setup.profile = "constant";
    return setup;
}

TEST(SimulatorModbus, Crc_IsThatOfTheStandard)
{
    const std::string check = "123456789";
    EXPECT_EQ(Crc16(Bytes(check.begin(), check.end())), 0x4B37);
    EXPECT_EQ(WithCrc({0x01, 0x03, 0x00, 0x00, 0x00, 0x0A}), (Bytes{0x01, 0x03, 0x00, 0x00, 0x00, 0x0A, 0xC5, 0xCD}));
}

TEST(SimulatorModbus, HasValidCrc_SeesEveryWrongBitAndEveryShortFrame)
{
    const Bytes frame = Frame(3, 16, 1);
    EXPECT_TRUE(HasValidCrc(frame));
    for (std::size_t bit = 0; bit < 8 * frame.size(); ++bit) {
        Bytes wrong = frame;
        wrong[bit / 8] = static_cast<Byte>(wrong[bit / 8] ^ (1U << bit % 8));
        EXPECT_FALSE(HasValidCrc(wrong)) << bit;
    }
    EXPECT_FALSE(HasValidCrc({}));
    EXPECT_FALSE(HasValidCrc(WithCrc({0x21})));
}

TEST(SimulatedIskra, Identity_TellsModelAndNumber)
{
    InstrumentSetup setup;
    setup.model = "MI7131";
    setup.number = 54321;
    Bench bench(setup);
    EXPECT_EQ(bench.Reply(Frame(4, 1, 3)), WithCrc({33, 4, 6, 'M', 'I', '7', '1', '3', '1'}));
    EXPECT_EQ(bench.Register(4, 4), 54321);
    EXPECT_EQ(bench.Reply(Frame(4, 1, 4)).size(), 13U);
}

TEST(SimulatedIskra, Transformers_AreEncodedAsTheRegistersWantThem)
{
    struct Case
    {
        Transformers transformers;
        std::uint16_t primary, secondary, current, ratio;
    };
    const Case cases[] = {
        {{400, 400, 5, 5}, 4000, 400, 50, 1},
        {{1599.9, 10, 100, 5}, 15999, 10, 50, 20},
        {{1600, 775, 100, 1}, 0x4000 | 1600, 775, 10, 100},
        {{20000, 100, 20000, 5}, 0x8000 | 2000, 100, 50, 4000},
        {{400000, 100, 2.5, 2.5}, 0xC000 | 4000, 100, 25, 1},
    };
    for (const Case& each : cases) {
        InstrumentSetup setup;
        setup.transformers = each.transformers;
        Bench bench(setup);
        EXPECT_EQ(bench.Register(3, 16), each.primary);
        EXPECT_EQ(bench.Register(3, 17), each.secondary);
        EXPECT_EQ(bench.Register(3, 15), each.current);
        EXPECT_EQ(bench.Register(3, 18), each.ratio);
    }
}

TEST(SimulatedIskra, Setup_RefusesWhatTheInstrumentCannotHold)
{
    const auto refuses = [](auto change) {
        InstrumentSetup setup;
        change(setup);
        EXPECT_THROW(MakeFamily("iskra", setup), std::invalid_argument);
    };
    refuses([](InstrumentSetup& setup) { setup.address = 0; });
    refuses([](InstrumentSetup& setup) { setup.address = 248; });
    refuses([](InstrumentSetup& setup) { setup.number = 65536; });
    refuses([](InstrumentSetup& setup) { setup.model = "MI715"; });
    refuses([](InstrumentSetup& setup) { setup.model = "MI71\t0"; });
    refuses([](InstrumentSetup& setup) { setup.profile = "unknown"; });
    refuses([](InstrumentSetup& setup) { setup.transformers.voltagePrimary = 0; });
    refuses([](InstrumentSetup& setup) { setup.transformers.voltagePrimary = 2e6; });
    refuses([](InstrumentSetup& setup) { setup.transformers.voltageSecondary = 776; });
    refuses([](InstrumentSetup& setup) { setup.transformers.currentPrimary = 12.5; });
    refuses([](InstrumentSetup& setup) { setup.transformers.currentSecondary = 0; });
    EXPECT_THROW(MakeFamily("unknown", {}), std::invalid_argument);
}

TEST(SimulatedIskra, Write_IsEchoedAndReadBack)
{
    Bench bench;
    struct Case
    {
        std::uint16_t number, value;
    };
    for (const Case& each : {Case{16, 0x8000 | 2000}, Case{17, 10}, Case{17, 775}, Case{18, 4000}, Case{19, 1},
                             Case{19, 5}, Case{19, 7}, Case{19, 9}, Case{19, 25}}) {
        const Bytes request = Frame(6, each.number, each.value);
        EXPECT_EQ(bench.Reply(request), request) << each.number;
        EXPECT_EQ(bench.Register(3, each.number), each.value) << each.number;
    }
}

TEST(SimulatedIskra, UnknownFunctionsRegistersAndValues_GetAnException)
{
    struct Case
    {
        Bytes request;
        Byte exception;
    };
    const Case cases[] = {
        {Frame(5, 16, 1), 1},      {WithCrc({33, 17}), 1},  {Frame(3, 1, 1), 2},   {Frame(4, 16, 1), 2},
        {Frame(3, 13, 1), 2},      {Frame(3, 14, 2), 2},    {Frame(4, 4, 2), 2},   {Frame(3, 0xFFFF, 2), 2},
        {Frame(3, 16, 0), 3},      {Frame(3, 16, 126), 3},  {Frame(6, 15, 10), 2}, {Frame(6, 1, 1), 2},
        {Frame(6, 14, 0xFFFF), 2}, {Frame(6, 13, 1), 3},    {Frame(6, 19, 2), 3},  {Frame(6, 16, 0), 3},
        {Frame(6, 17, 776), 3},    {Frame(6, 18, 4001), 3}, {QueryOf(29), 2},      {QueryOf(37), 2},
        {QueryOf(44), 2},          {QueryOf(255), 2},
    };
    Bench bench;
    for (const Case& each : cases)
        EXPECT_EQ(bench.Reply(each.request), WithCrc({33, static_cast<Byte>(each.request[1] | 0x80U), each.exception}))
            << ToHex(each.request);
}

TEST(SimulatedIskra, OtherAddressesAndWrongChecksums_GetNoAnswerAndChangeNothing)
{
    Bench bench;
    const std::uint16_t before = bench.Register(3, 17);
    for (const Bytes& request :
         {Frame(4, 1, 3, 34), Frame(6, 17, 300, 34), Frame(6, 17, 300, 0), QueryOf(16, 32), Frame(5, 16, 1, 34)})
        EXPECT_TRUE(bench.Reply(request).empty()) << ToHex(request);
    for (Bytes request : {Frame(4, 1, 3), Frame(6, 17, 300), QueryOf(16), Frame(5, 16, 1)}) {
        request.back() = static_cast<Byte>(request.back() + 1);
        EXPECT_TRUE(bench.Reply(request).empty()) << ToHex(request);
    }
    EXPECT_EQ(bench.Register(3, 17), before);
}

TEST(SimulatedIskra, SetAddress_MovesTheInstrumentOnTheBus)
{
    Bench bench;
    bench.instrument->SetAddress(247);
    EXPECT_TRUE(bench.Reply(QueryOf(16, 33)).empty());
    EXPECT_EQ(bench.Reply(QueryOf(16, 247)).front(), 247);
    EXPECT_THROW(bench.instrument->SetAddress(248), std::invalid_argument);
    EXPECT_EQ(bench.Reply(QueryOf(16, 247)).front(), 247);
}

TEST(SimulatedValues, EveryText_HasItsLengthAndReadsBackWithinItsLastDigit)
{
    for (const char* profile : {"duty", "constant"}) {
        InstrumentSetup setup;
        setup.profile = profile;
        Bench bench(setup);
        EnergyCounters counters;
        for (int step = 0; step < 150; ++step)
            for (const CodeRange& range : kAllCodes)
                for (int code = range.first; code <= range.last; ++code) {
                    const std::string text = bench.Text(code);
                    ASSERT_EQ(text.size(), range.length) << code;
                    const LoadProfile load = ProfileOf(profile);
                    counters.Advance(load, 3, bench.now);
                    const IskraValue& value = *FindIskraValue(code);
                    const double truth =
                        value.read(ReadNet(load(bench.now), 3), counters, static_cast<std::size_t>(code - range.first));
                    ASSERT_NEAR(ValueOf(text), truth, 0.51 * LastDigit(text)) << code << ": " << text;
                    ASSERT_LE(LastDigit(text), std::max(std::abs(truth) * 1e-3, 0.011)) << code << ": " << text;
                }
    }
}

TEST(SimulatedValues, Reply_HasAddressLetterBlankTextAndChecksum)
{
    Bench bench;
    const Bytes reply = bench.Reply(QueryOf(28));
    ASSERT_EQ(reply.size(), 3U + 7U + 2U);
    EXPECT_EQ(Bytes(reply.begin(), reply.begin() + 3), (Bytes{33, 'M', ' '}));
    EXPECT_TRUE(HasValidCrc(reply));
}

TEST(SimulatedValues, Format_GivesDigitsBeforeUnits)
{
    struct Case
    {
        IskraKind kind;
        double value;
        const char* text;
    };
    const Case cases[] = {
        {IskraKind::Voltage, 230.412, "230.41V"},
        {IskraKind::Voltage, 20123.4, "20.123k"},
        {IskraKind::Voltage, 0, "0.0000V"},
        {IskraKind::Voltage, -230.412, "-230.41"},
        {IskraKind::Voltage, -20123.4, "-20.12k"},
        {IskraKind::Current, 12.3454, "12.345A"},
        {IskraKind::Current, 0.12345, "123.45m"},
        {IskraKind::Current, 0.00001, "0.0100m"},
        {IskraKind::Current, 9.99996, "10.000A"},
        {IskraKind::Current, 999.996, "1000.0A"},
        {IskraKind::Frequency, 50.0021, "50.002H"},
        {IskraKind::Frequency, 0.5, "0.5000H"},
        {IskraKind::ActivePower, 12345.4, "12.345kW"},
        {IskraKind::ActivePower, -12345.4, "-12.345k"},
        {IskraKind::ActivePower, 1.5e6, "1.5000MW"},
        {IskraKind::ApparentPower, 19876, "19.876k"},
        {IskraKind::ReactivePower, 8120, "  8.1200kvaL"},
        {IskraKind::ReactivePower, -8120, "  8.1200kvaC"},
        {IskraKind::ReactivePower, 0, "   0.0000vaL"},
        {IskraKind::PowerFactor, 0.846612, " 0.84661"},
        {IskraKind::PowerFactor, -1, "-1.00000"},
        {IskraKind::Angle, 32.154, "  32.15"},
        {IskraKind::Angle, -179.994, "-179.99"},
        {IskraKind::ActiveEnergy, 1234567, "  1.2345670 MWh"},
        {IskraKind::ActiveEnergy, 0.25, "   0.2500000 Wh"},
        {IskraKind::ReactiveEnergy, 123456789, "123.45679 Mvarh"},
    };
    for (const Case& each : cases)
        EXPECT_EQ(FormatValue(each.kind, each.value), each.text) << each.value;
}

TEST(SimulatedValues, Format_RefusesWhatHasNoText)
{
    EXPECT_THROW(FormatValue(IskraKind::Voltage, 1e13), std::invalid_argument);
    EXPECT_THROW(FormatValue(IskraKind::Angle, 123456), std::invalid_argument);
    EXPECT_THROW(FormatValue(IskraKind::ReactivePower, -1e300), std::invalid_argument);
    EXPECT_THROW(FormatValue(IskraKind::Current, std::numeric_limits<double>::quiet_NaN()), std::invalid_argument);
    EXPECT_THROW(FormatValue(IskraKind::Current, std::numeric_limits<double>::infinity()), std::invalid_argument);
}

TEST(SimulatedValues, Overall_IsConsistentWithThePhases)
{
    Bench bench(Constant());
    const auto sum = [&bench](int first) {
        return ValueOf(bench.Text(first + 1)) + ValueOf(bench.Text(first + 2)) + ValueOf(bench.Text(first + 3));
    };
    const auto value = [&bench](int code) { return ValueOf(bench.Text(code)); };
    EXPECT_NEAR(value(4), sum(4), 2);
    EXPECT_NEAR(value(8), sum(8), 2);
    EXPECT_NEAR(value(12), sum(12), 0.003);
    EXPECT_NEAR(value(16), sum(16) / 3, 0.02);
    EXPECT_NEAR(value(40), sum(40) / 3, 0.02);
    EXPECT_NEAR(value(20), std::hypot(value(4), value(8)), 2);
    EXPECT_NEAR(value(24), value(4) / value(20), 1e-4);
    EXPECT_NEAR(value(24), std::cos(value(32) * std::acos(-1) / 180), 1e-4);
    EXPECT_NEAR(value(40), std::sqrt(3) * value(16), 0.2);
    for (int phase = 1; phase <= 3; ++phase)
        EXPECT_NEAR(value(20 + phase), value(16 + phase) * value(12 + phase), 2);
    EXPECT_LT(value(36), 0.05 * value(12));
    EXPECT_GT(value(4), 10000);
}

TEST(SimulatedValues, OnePhaseConnection_ReadsPhaseOneAlone)
{
    Bench bench(Constant());
    const double power = ValueOf(bench.Text(5));
    bench.Reply(Frame(6, 19, 1));
    EXPECT_DOUBLE_EQ(ValueOf(bench.Text(4)), power);
    EXPECT_DOUBLE_EQ(ValueOf(bench.Text(5)), power);
    EXPECT_EQ(bench.Text(12), bench.Text(13));
    EXPECT_EQ(bench.Text(16), bench.Text(17));
    EXPECT_EQ(ValueOf(bench.Text(18)), 0);
    EXPECT_EQ(ValueOf(bench.Text(40)), 0);
}

TEST(SimulatedValues, Energies_GrowByPowerTimesTimeAndEndWithAReset)
{
    Bench bench(Constant());
    const double active = ValueOf(bench.Text(4));
    const double reactive = ValueOf(bench.Text(8));
    const double activeBefore = ValueOf(bench.Text(0));
    const double before = bench.now;
    bench.now += 7200;
    const double activeCounted = ValueOf(bench.Text(0)) - activeBefore;
    EXPECT_NEAR(activeCounted, active * (bench.now - before) / 3600, 1.1); // half a watt over two hours
    const double reactiveCounted = ValueOf(bench.Text(1));
    EXPECT_NEAR(reactiveCounted, reactive * bench.now / 3600, 1.1);
    EXPECT_EQ(ValueOf(bench.Text(2)), 0);
    EXPECT_EQ(ValueOf(bench.Text(3)), 0);

    const Bytes reset = Frame(6, 13, 0xFFFF);
    EXPECT_EQ(bench.Reply(reset), reset);
    EXPECT_NEAR(ValueOf(bench.Text(0)), active / 3600, 0.01); // of the second between
    EXPECT_NEAR(ValueOf(bench.Text(1)), reactive * 2 / 3600, 0.01);
}

TEST(SimulatedValues, SetTexts_StandUntilTheyAreSetAnew)
{
    Bench bench;
    bench.instrument->SetText(8, "1.5kvaC");
    EXPECT_EQ(bench.Text(8), "     1.5kvaC");
    bench.instrument->SetText(28, "");
    EXPECT_EQ(bench.Text(28), "       ");
    bench.instrument->SetValue(28, 49.5);
    EXPECT_EQ(bench.Text(28), "49.500H");
    EXPECT_THROW(bench.instrument->SetText(28, "12345678"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(28, "1\t2"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetText(29, "1"), std::invalid_argument);
    EXPECT_THROW(bench.instrument->SetValue(-1, 1), std::invalid_argument);
    EXPECT_EQ(bench.Text(28), "49.500H");
}

TEST(SimulatedLoad, DutyCycle_IdlesHalvesFillsAndPauses)
{
    const auto power = [](double seconds) { return ReadNet(DutyCycle(seconds), 3).active[0]; };
    EXPECT_NEAR(power(10), 600, 10);
    EXPECT_NEAR(power(25), 8750, 60);
    EXPECT_NEAR(power(45), 17200, 120);
    EXPECT_EQ(power(55), 0);
    EXPECT_NEAR(power(70), power(10), 10);
    for (double seconds = 0; seconds < 180; seconds += 0.05) {
        const double slope = (power(seconds + 0.05) - power(seconds)) / 0.05;
        ASSERT_LT(std::abs(slope), 20000) << seconds; // nothing jumps
    }
}

} // namespace
} // namespace korvanel::simulator::test
