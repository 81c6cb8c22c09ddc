// Numbers as tables and messages show them: rounding, prefixes, units, times.
#include "core/NumberText.h"

#include "support/Fixture.h"

#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>

namespace korvanel::test {

namespace {

struct FormattedNumber
{
    double value;
    const char* text;
};

class NumberFormatTest : public BlockTest
{
};

} // namespace

TEST_F(NumberFormatTest, RoundTo_RoundsHalfUpAndDownwards)
{
    EXPECT_EQ(RoundTo(2.5, 1), 3);
    EXPECT_EQ(RoundTo(-2.5, 1), -2);
    EXPECT_EQ(RoundTo(-2.6, 1), -3);
    EXPECT_EQ(RoundTo(1.25, 10), 1.3);
    EXPECT_EQ(RoundTo(1234, 0.01), 1200);
}

TEST_F(NumberFormatTest, RoundValue_PrintsTheRoundedValue)
{
    EXPECT_EQ(RoundValue(-2.5, 1), "-2");
    EXPECT_EQ(RoundValue(1.236, 100), "1,24");
    EXPECT_EQ(RoundValue(0, 100), "0");
}

TEST_F(NumberFormatTest, RoundValue_OfANullIsTheEmptyText)
{
    EXPECT_EQ(RoundValue(std::nullopt, 100), "");
}

TEST_F(NumberFormatTest, RoundText_NormalisesInPlaceAndRounds)
{
    QString text = "1.256";
    EXPECT_EQ(RoundText(text, 100, true), 1.26);
    EXPECT_EQ(text, "1,256");
}

TEST_F(NumberFormatTest, RoundText_WithoutFractionTruncatesTowardZero)
{
    QString positive = "1,96";
    EXPECT_EQ(RoundText(positive, 10, false), 2); // rounds to 2,0 before it is cut
    QString small = "1,75";
    EXPECT_EQ(RoundText(small, 100, false), 1);
    QString negative = "-1,75";
    EXPECT_EQ(RoundText(negative, 100, false), -1);
}

TEST_F(NumberFormatTest, RoundText_OfNoNumberIsAnErrorOfTheCaller)
{
    QString text = "abc";
    EXPECT_THROW(RoundText(text, 1, true), std::invalid_argument);
}

TEST_F(NumberFormatTest, RoundSignificant_RaisesTheFactorForSmallValues)
{
    double factor = 100;
    EXPECT_EQ(RoundSignificant(0.00123, factor), "0,00123"); // log10 is -2.9, so three more digits
    EXPECT_DOUBLE_EQ(factor, 100000);
    factor = 10;
    EXPECT_EQ(RoundSignificant(-0.05, factor), "-0,05");
    EXPECT_DOUBLE_EQ(factor, 1000);
}

TEST_F(NumberFormatTest, RoundSignificant_LeavesTheFactorForZeroAndFromOneOn)
{
    for (const FormattedNumber& c : {FormattedNumber{0, "0"}, FormattedNumber{1, "1"}, FormattedNumber{-1.236, "-1,24"},
                                     FormattedNumber{123.456, "123,46"}}) {
        double factor = 100;
        EXPECT_EQ(RoundSignificant(c.value, factor), c.text);
        EXPECT_EQ(factor, 100);
    }
}

TEST_F(NumberFormatTest, Pad_PutsABlankOnBothSides)
{
    EXPECT_EQ(Pad("x"), " x ");
}

TEST_F(NumberFormatTest, Clamp_LimitsToBothEnds)
{
    EXPECT_EQ(Clamp(-1, 0, 10), 0);
    EXPECT_EQ(Clamp(11, 0, 10), 10);
    EXPECT_EQ(Clamp(5, 0, 10), 5);
    EXPECT_EQ(Clamp(0, 0, 10), 0);
}

TEST_F(NumberFormatTest, FormatPrefixed_ChangesThePrefixAtItsThresholds)
{
    const FormattedNumber cases[] = {
        {0, "0"},           {0.001, "1m"},     {0.005, "5m"},           {0.0099, "9,9m"},       {0.01, "0,01"},
        {5, "5"},           {9999, "9999"},    {10000, "10k"},          {-20000, "-20k"},       {1234567, "1234,57k"},
        {9999000, "9999k"}, {10000000, "10M"}, {9999000000.0, "9999M"}, {10000000000.0, "10G"}, {-2.5e13, "-25000G"}};
    for (const FormattedNumber& c : cases)
        EXPECT_EQ(FormatPrefixed(c.value, 100, false), c.text) << c.value;
}

TEST_F(NumberFormatTest, FormatPrefixed_BelowAThousandthHasNoPrefix)
{
    EXPECT_EQ(FormatPrefixed(0.0005, 10000, false), "0,0005");
    EXPECT_EQ(FormatPrefixed(-0.0009, 10000, false), "-0,0009");
    EXPECT_EQ(FormatPrefixed(0.0005, 100, false), "0"); // rounded as in every other range
}

TEST_F(NumberFormatTest, FormatPrefixed_ThresholdsLookAtTheUnroundedValue)
{
    EXPECT_EQ(FormatPrefixed(9999.7, 1, false), "10000");
    EXPECT_EQ(FormatPrefixed(0.00999, 1, false), "10m");
}

TEST_F(NumberFormatTest, FormatPrefixed_BlankStandsWithAndWithoutAPrefix)
{
    EXPECT_EQ(FormatPrefixed(20000, 1, true), "20 k");
    EXPECT_EQ(FormatPrefixed(5, 1, true), "5 ");
    EXPECT_EQ(FormatPrefixed(0, 1, true), "0 ");
}

TEST_F(NumberFormatTest, FormatValueUnit_OfExactlyTenStaysUnscaled)
{
    double value = 10;
    EXPECT_EQ(FormatValueUnit(value, "W", 100, true), "10 W");
    EXPECT_EQ(value, 10);
}

TEST_F(NumberFormatTest, FormatValueUnit_AboveTenIsScaledInPlace)
{
    double value = 10.5;
    EXPECT_EQ(FormatValueUnit(value, "W", 10000, true), "0,0105 kW");
    EXPECT_DOUBLE_EQ(value, 0.0105);
    double negative = -2000;
    EXPECT_EQ(FormatValueUnit(negative, "W", 100, true), "-2 kW");
    EXPECT_DOUBLE_EQ(negative, -2);
}

TEST_F(NumberFormatTest, FormatValueUnit_WithoutTheFlagStaysUnscaled)
{
    double value = 2000;
    EXPECT_EQ(FormatValueUnit(value, "W", 100, false), "2000 W");
    EXPECT_EQ(value, 2000);
}

TEST_F(NumberFormatTest, Log10_IsExactForPowersOfTen)
{
    EXPECT_EQ(Log10(1000), 3);
    EXPECT_EQ(Log10(1), 0);
    EXPECT_EQ(Log10(0.01), -2);
    EXPECT_NEAR(Log10(2), 0.301029995663981, 1e-15);
}

TEST_F(NumberFormatTest, NullToText_OfANullIsTheEmptyText)
{
    EXPECT_EQ(NullToText(QVariant()), "");
    EXPECT_EQ(NullToText(1.5), "1,5");
    EXPECT_EQ(NullToText(42), "42");
    EXPECT_EQ(NullToText(QString("Text")), "Text");
}

TEST_F(NumberFormatTest, SqlLiteral_WritesNullsTextsAndNumbers)
{
    EXPECT_EQ(SqlLiteral(QVariant(), true), "Null");
    EXPECT_EQ(SqlLiteral(QString(), true), "Null");
    EXPECT_EQ(SqlLiteral(QString(), false), "Null");
    EXPECT_EQ(SqlLiteral(QString("ABC"), true), "'ABC'");
    EXPECT_EQ(SqlLiteral(QString("O'Neill"), true), "'O'Neill'");
    EXPECT_EQ(SqlLiteral(QString("1,5"), true), "'1,5'");
    EXPECT_EQ(SqlLiteral(1.5, false), "1.5");
    EXPECT_EQ(SqlLiteral(QString("1,2,3"), false), "1.2.3");
}

TEST_F(NumberFormatTest, BoolText_IsEnglish)
{
    EXPECT_EQ(BoolText(true), "True");
    EXPECT_EQ(BoolText(false), "False");
}

TEST_F(NumberFormatTest, IsBetween_IncludesTheEndsInEitherOrder)
{
    for (const double x : {1.0, 2.0, 3.0}) {
        EXPECT_TRUE(IsBetween(x, 1, 3)) << x;
        EXPECT_TRUE(IsBetween(x, 3, 1)) << x;
    }
    EXPECT_FALSE(IsBetween(0.9, 1, 3));
    EXPECT_FALSE(IsBetween(3.1, 3, 1));
}

TEST_F(NumberFormatTest, NiceStep_IsFiveOrTenTimesAPowerOfTen)
{
    struct Case
    {
        double x;
        double step;
    };
    const Case cases[] = {{0.5, 5},  {2.5, 5},   {2.6, 10}, {5, 10},    {-5, 10},     {5.1, 50},
                          {50, 100}, {0.2, 0.5}, {0.3, 1},  {123, 500}, {0.004, 0.01}};
    for (const Case& c : cases)
        EXPECT_DOUBLE_EQ(NiceStep(c.x, 0, 1e6), c.step) << c.x;
}

TEST_F(NumberFormatTest, NiceStep_IsLimitedToHighThenToLow)
{
    EXPECT_EQ(NiceStep(50, 1, 20), 20);
    EXPECT_EQ(NiceStep(0.2, 1, 20), 1);
    EXPECT_EQ(NiceStep(50, 30, 20), 30); // the lower limit has the last word
}

TEST_F(NumberFormatTest, NiceStep_OfZeroGivesLowerLimit)
{
    EXPECT_EQ(NiceStep(0, 0.25, 20), 0.25);
}

TEST_F(NumberFormatTest, SecondsToTime_HasTwoDigitsAndUncappedHours)
{
    const FormattedNumber cases[] = {{0, "00:00:00"},       {59, "00:00:59"},    {60, "00:01:00"},
                                     {3599, "00:59:59"},    {86400, "24:00:00"}, {360000, "100:00:00"},
                                     {90061.25, "25:01:01"}};
    for (const FormattedNumber& c : cases)
        EXPECT_EQ(SecondsToTime(c.value, false), c.text);
}

TEST_F(NumberFormatTest, SecondsToTime_AddsTheFractionInTwoDigits)
{
    EXPECT_EQ(SecondsToTime(90061.25, true), "25:01:01,25");
    EXPECT_EQ(SecondsToTime(0.0625, true), "00:00:00,06");
    EXPECT_EQ(SecondsToTime(3599.9999, true), "00:59:59,99"); // cut, not rounded
    App().DecimalChar = u'.';
    EXPECT_EQ(SecondsToTime(1.5, true), "00:00:01.50");
}

TEST_F(NumberFormatTest, WriteTime_IsSecondsToTimeWithoutTheFraction)
{
    for (const double seconds : {0.0, 59.99, 60.0, 3600.0, 359999.0, 360000.5, -1.0, -0.5, 1e12, 1e300, -1e300}) {
        std::array<char, kLongestNumber> text{};
        const char* const last = WriteTime(text.data(), seconds);
        EXPECT_EQ(QString::fromLatin1(text.data(), last - text.data()), SecondsToTime(seconds, false)) << seconds;
    }
}

TEST_F(NumberFormatTest, SecondsToTime_WithoutHundredthsHasNoFraction)
{
    EXPECT_EQ(SecondsToTime(5, true), "00:00:05");
    EXPECT_EQ(SecondsToTime(5.005, true), "00:00:05");
}

TEST_F(NumberFormatTest, MotorDbConnection_NamesTheMotorDatabase)
{
    App().sMotorDbPath = "C:\\M\\MOTOR_DB.MDB";
    const QString reading = "Provider=Microsoft.Jet.OLEDB.4.0;Persist Security Info=False;"
                            "Data Source=C:\\M\\MOTOR_DB.MDB; Mode=Read";
    EXPECT_EQ(MotorDbConnection(false), reading);
    EXPECT_EQ(MotorDbConnection(true), reading + "|Write");
}

} // namespace korvanel::test
