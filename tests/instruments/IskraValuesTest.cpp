#include "instruments/IskraValues.h"

#include "instruments/Frames.h"

#include <gtest/gtest.h>

#include <limits>

namespace korvanel::test {
namespace {

TEST(Frames, Crc16Append_OfPublishedFrames)
{
    // The example of the MODBUS guide for serial lines: slave 2, function 7 has the CRC 0x1241, low byte first.
    EXPECT_EQ(Crc16Append(QByteArray::fromHex("0207")), QByteArray::fromHex("02074112"));
    EXPECT_EQ(Crc16Append(QByteArray::fromHex("010300000001")), QByteArray::fromHex("010300000001840A"));
    EXPECT_EQ(Crc16Append({}), QByteArray::fromHex("FFFF"));
}

TEST(Frames, HasValidCrc_RefusesDamageAndWhatIsTooShort)
{
    const QByteArray good = Crc16Append(QByteArray::fromHex("01040600004D493731"));
    EXPECT_TRUE(HasValidCrc(good));
    for (qsizetype i = 0; i < good.size(); ++i) {
        QByteArray bad = good;
        bad[i] = static_cast<char>(bad[i] ^ 0x10);
        EXPECT_FALSE(HasValidCrc(bad)) << i;
        EXPECT_FALSE(HasValidCrc(good.left(i))) << i;
    }
    EXPECT_FALSE(HasValidCrc(good + 'x'));
    EXPECT_FALSE(HasValidCrc(QByteArray::fromHex("FFFF"))) << "a CRC of nothing is no reply";
}

TEST(Frames, IsAnswerTo_NeedsTheAddressAndTheFunctionOfTheRequest)
{
    const QByteArray request = QByteArray::fromHex("210400040001");
    EXPECT_TRUE(IsAnswerTo(request, QByteArray::fromHex("2104021267"), 5));
    EXPECT_TRUE(IsAnswerTo(request, QByteArray::fromHex("210402126700"), 5)) << "more than that is no fault";
    for (const char* reply : {"2204021267", "2184021267", "0421021267", "002104021267"})
        EXPECT_FALSE(IsAnswerTo(request, QByteArray::fromHex(reply), 5)) << reply;
}

TEST(Frames, IsAnswerTo_NeedsTheWholeLength)
{
    const QByteArray request = QByteArray::fromHex("210400040001");
    for (const char* reply : {"", "21", "2104", "21040212"})
        EXPECT_FALSE(IsAnswerTo(request, QByteArray::fromHex(reply), 5)) << reply;
}

TEST(Frames, IsBusAddress_FromOneTo247)
{
    for (const int address : {1, 33, 247})
        EXPECT_TRUE(IsBusAddress(address)) << address;
    for (const int address : {0, -1, 248, 256 + 33, 2147483647})
        EXPECT_FALSE(IsBusAddress(address)) << address;
}

TEST(Frames, UnitPrefixFactor_CountsFromTheThirdCharacterOn)
{
    EXPECT_EQ(UnitPrefixFactor("12.5mA"), 0.001);
    EXPECT_EQ(UnitPrefixFactor("1.5 kW"), 1000);
    EXPECT_EQ(UnitPrefixFactor("3.2MW"), 1000000);
    EXPECT_EQ(UnitPrefixFactor("230.1V"), 1);
    EXPECT_EQ(UnitPrefixFactor("km 5 V"), 1) << "at the first two places stand digits";
    EXPECT_EQ(UnitPrefixFactor("12k m"), 0.001) << "m is looked for first";
    EXPECT_EQ(UnitPrefixFactor(""), 1);
}

struct Encoded
{
    double volts;
    quint16 reg;
};

TEST(IskraValues, VoltagePrimary_CarriesAPowerOfTenInItsTopBits)
{
    // By hand: tenths of a volt, divided by ten until they are below 16000; the number of divisions in the top bits.
    for (const Encoded& c : {Encoded{1, 10}, Encoded{230, 2300}, Encoded{1599.9, 15999}, Encoded{1600, 0x4000 | 1600},
                             Encoded{20000, 0x8000 | 2000}, Encoded{160000, 0xC000 | 1600}}) {
        EXPECT_EQ(EncodeVoltagePrimary(c.volts), c.reg) << c.volts;
        EXPECT_DOUBLE_EQ(DecodeVoltagePrimary(c.reg), c.volts);
    }
}

TEST(IskraValues, VoltagePrimary_IsLimitedToTheRegister)
{
    EXPECT_EQ(EncodeVoltagePrimary(0), 1);
    EXPECT_EQ(EncodeVoltagePrimary(-5), 1);
    EXPECT_EQ(EncodeVoltagePrimary(1e300), 0xC000 | 15999);
    EXPECT_EQ(EncodeVoltagePrimary(std::numeric_limits<double>::infinity()), 0xC000 | 15999);
    EXPECT_EQ(EncodeVoltagePrimary(std::numeric_limits<double>::quiet_NaN()), 1);
}

TEST(IskraValues, VoltageSecondary_LiesBetweenTenAnd775)
{
    for (const Encoded& c : {Encoded{100, 100}, Encoded{9.9, 10}, Encoded{10, 10}, Encoded{775, 775}, Encoded{776, 775},
                             Encoded{110.6, 111}, Encoded{-1, 10}})
        EXPECT_EQ(EncodeVoltageSecondary(c.volts), c.reg) << c.volts;
}

TEST(IskraValues, CurrentRatio_IsThePrimaryOverFiveAmperes)
{
    for (const Encoded& c :
         {Encoded{5, 1}, Encoded{100, 20}, Encoded{104, 20}, Encoded{1, 1}, Encoded{20000, 4000}, Encoded{1e9, 4000}})
        EXPECT_EQ(EncodeCurrentRatio(c.volts), c.reg) << c.volts;
}

struct Text
{
    const char* text;
    IskraValueKind kind;
    double value;
};

TEST(IskraValues, ReadIskraText_TreatsEachKindInItsWay)
{
    using K = IskraValueKind;
    for (const Text& c : {
             Text{"230.12V", K::Voltage, 230.12},
             Text{" 1.25kV", K::Voltage, 1250},
             Text{"512.0mA", K::Current, 0.512},
             Text{"50.01Hz", K::Frequency, 50.01},
             Text{"-1.50 kW", K::ActivePower, -1500},
             Text{"2.10MVA", K::ApparentPower, 2.1e6},
             Text{"0.85  kvar L", K::ReactivePower, 850},
             Text{"0.85  kvar C", K::ReactivePower, -850},
             Text{"C0.85 kvar L", K::ReactivePower, 0}, // no number at the start, and the letter counts at the end only
             Text{"0.85C kvar L", K::ReactivePower, 850},
             Text{"-0.987 L", K::PowerFactor, -0.987},
             Text{"-31.5 m", K::PhaseAngle, -31.5}, // an angle has no prefix
             Text{"      12.5 kWh", K::ActiveEnergy, 45e6},
             Text{"         2 varh", K::ReactiveEnergy, 7200},
             Text{"1.5E2 V", K::Voltage, 150},
             Text{"", K::Voltage, 0},
             Text{"\xFF\xFE garbage", K::Current, 0},
         })
        EXPECT_DOUBLE_EQ(ReadIskraText(c.text, c.kind), c.value) << c.text;
}

TEST(IskraValues, ReadIskraText_LooksAtItsLengthAlone)
{
    EXPECT_EQ(ReadIskraText("230.1 Vk", IskraValueKind::Voltage), 230.1) << "the eighth character is another's";
    EXPECT_EQ(IskraTextLength(IskraValueKind::ReactivePower), 12);
    EXPECT_EQ(IskraTextLength(IskraValueKind::ActiveEnergy), 15);
    EXPECT_EQ(IskraTextLength(IskraValueKind::PhaseAngle), 7);
    EXPECT_EQ(IskraTextLength(IskraValueKind::PowerFactor), 8);
}

} // namespace
} // namespace korvanel::test
