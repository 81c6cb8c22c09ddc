// Numbers as texts: printing, reading, decimal characters, range checks.
#include "core/NumberText.h"

#include "support/Fixture.h"

#include <array>
#include <bit>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <random>
#include <stdexcept>

namespace korvanel::test {

namespace {

class NumberTextTest : public BlockTest
{
};

struct Printed
{
    double value;
    const char* text;
};

} // namespace

TEST_F(NumberTextTest, NumberText_HasUpToFifteenDigitsAndNoTrailingZeros)
{
    const Printed wholes[] = {{0, "0"}, {-0.0, "0"}, {100, "100"}, {999999999999999, "999999999999999"}};
    for (const Printed& c : wholes)
        EXPECT_EQ(NumberText(c.value), c.text);
    const Printed fractions[] = {{1.5, "1,5"},
                                 {-1.25, "-1,25"},
                                 {0.1 + 0.2, "0,3"},
                                 {1.0 / 3, "0,333333333333333"},
                                 {2.0 / 3, "0,666666666666667"},
                                 {123456789012345.6, "123456789012346"},
                                 {1e-15, "0,000000000000001"}};
    for (const Printed& c : fractions)
        EXPECT_EQ(NumberText(c.value), c.text);
}

TEST_F(NumberTextTest, ExactNumberText_HasTheDigitsThatTheNumberNeeds)
{
    const Printed cases[] = {{0, "0"},
                             {-0.0, "0"},
                             {100, "100"},
                             {-1.25, "-1,25"},
                             {0.1, "0,1"},
                             {0.1 + 0.2, "0,30000000000000004"},
                             {1.0 / 3, "0,3333333333333333"},
                             {999999999999999, "999999999999999"},
                             {123456789012345.6, "123456789012345,6"},
                             {999999999999999.9, "999999999999999,9"},
                             {1e-15, "0,000000000000001"},
                             {-1.25e-14, "-0,0000000000000125"},
                             {1e15, "1E+15"},
                             {-2.5e20, "-2,5E+20"},
                             {9.99e-16, "9,99E-16"},
                             {1e-100, "1E-100"},
                             {5e-324, "5E-324"},
                             {1.7976931348623157e308, "1,7976931348623157E+308"}};
    for (const Printed& c : cases)
        EXPECT_EQ(ExactNumberText(c.value), c.text);
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    for (const double value : {kInfinite, -kInfinite})
        EXPECT_EQ(ExactNumberText(value), NumberText(value));
    App().DecimalChar = u'.';
    EXPECT_EQ(ExactNumberText(-1.25), "-1.25");
}

TEST_F(NumberTextTest, ExactNumberText_OfAnyNumberReadsBackToIt)
{
    std::mt19937_64 random(20260314);
    constexpr int kNumbers = 100'000;
    for (int i = 0; i < kNumbers; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        std::array<char, kLongestNumber> text{};
        char* const last = WriteExactNumber(text.data(), value);
        ASSERT_LT(last, text.data() + text.size());
        ASSERT_EQ(std::strtod(text.data(), nullptr), value) << text.data();
        const double plain = std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 120) - 100);
        *WriteExactNumber(text.data(), plain) = 0;
        ASSERT_EQ(std::strtod(text.data(), nullptr), plain) << text.data();
    }
}

TEST_F(NumberTextTest, NumberText_HasAnExponentOnlyOutsideThePlainRange)
{
    for (const double value : {1e15, -2.5e20, 1e-16, 3e300, 999999999999999.9}) // fifteen digits make the last one 1e15
        EXPECT_TRUE(NumberText(value).contains('E')) << value;
    for (const double value : {9.99e14, 1e-15, -9.5e14, 1.25e-14})
        EXPECT_FALSE(NumberText(value).contains('E')) << value;
}

TEST_F(NumberTextTest, NumberText_FollowsTheLocalDecimalCharacter)
{
    App().DecimalChar = u';';
    EXPECT_EQ(NumberText(1.5), "1;5");
    App().DecimalChar = u'.';
    EXPECT_EQ(NumberText(1.5), "1.5");
}

TEST_F(NumberTextTest, DotNumberText_HasAPointWhateverTheSetting)
{
    EXPECT_EQ(DotNumberText(-1.5), "-1.5");
}

TEST_F(NumberTextTest, LeadingNumber_ReadsTheStartWithAPointOnly)
{
    struct Case
    {
        const char* text;
        double value;
    };
    const Case cases[] = {{"1.5", 1.5}, {"1,5", 1}, {" 3.5kW", 3.5}, {"-2", -2},     {"1e3", 1000},
                          {"1e", 1},    {"abc", 0}, {"", 0},         {".5", 0.5},    {".", 0},
                          {"inf", 0},   {"nan", 0}, {"0x10", 0},     {"1.2.3", 1.2}, {"12 34", 12}};
    for (const Case& c : cases)
        EXPECT_EQ(LeadingNumber(c.text), c.value) << c.text;
}

TEST_F(NumberTextTest, LocalNumber_ReadsAWholeTextInTheLocalFormat)
{
    EXPECT_EQ(LocalNumber("1,5"), 1.5);
    EXPECT_EQ(LocalNumber(" 7 "), 7);
    EXPECT_EQ(LocalNumber("1e3"), 1000);
    for (const char* text : {"", "1.5", "1,2,3", "abc", "1,5 V", "inf", "nan", "1e999"})
        EXPECT_FALSE(LocalNumber(text).has_value()) << text;
}

TEST_F(NumberTextTest, ToDotDecimal_ReplacesEveryDecimalCharacter)
{
    EXPECT_EQ(ToDotDecimal("1,5"), "1.5");
    EXPECT_EQ(ToDotDecimal("1,2,3"), "1.2.3");
    EXPECT_EQ(ToDotDecimal("abc"), "abc");
    App().DecimalChar = u';';
    EXPECT_EQ(ToDotDecimal("1;5,2"), "1.5,2");
}

TEST_F(NumberTextTest, ToLocalDecimal_ReplacesTheFirstOccurrenceOnly)
{
    EXPECT_EQ(ToLocalDecimal("1.5"), "1,5");
    EXPECT_EQ(ToLocalDecimal("1.2.3"), "1,2.3");
    EXPECT_EQ(ToLocalDecimal("1,5"), "1,5");
    EXPECT_EQ(ToLocalDecimal(""), "");
    App().DecimalChar = u';';
    App().OtherDecimalChar = u',';
    EXPECT_EQ(ToLocalDecimal("1,5"), "1;5");
    EXPECT_EQ(ToLocalDecimal("1.5"), "1.5");
}

TEST_F(NumberTextTest, ReplaceCharAt_ReplacesOneCharacterByAnyText)
{
    EXPECT_EQ(ReplaceCharAt("a#c", "bbb", 2), "abbbc");
    EXPECT_EQ(ReplaceCharAt("#bc", "", 1), "bc");
    EXPECT_EQ(ReplaceCharAt("ab#", "c", 3), "abc");
}

TEST_F(NumberTextTest, ReplaceCharAt_OutsideTheTextChangesNothing)
{
    for (const qsizetype position : {-1, 0, 4})
        EXPECT_EQ(ReplaceCharAt("abc", "x", position), "abc") << position;
}

TEST_F(NumberTextTest, FillPlaceholders_GoesFromLeftToRight)
{
    EXPECT_EQ(FillPlaceholders("zwischen # und #", {"1", "10"}), "zwischen 1 und 10");
    EXPECT_EQ(FillPlaceholders("# und #", {"1"}), "1 und #");
    EXPECT_EQ(FillPlaceholders("nichts", {"1"}), "nichts");
}

TEST_F(NumberTextTest, FillPlaceholders_LeavesTheSignWithinAValue)
{
    EXPECT_EQ(FillPlaceholders("# / #", {"Nr. #1", "zwei"}), "Nr. #1 / zwei");
}

TEST_F(NumberTextTest, TestNumberRange_TakesPointAndComma)
{
    for (const char* text : {"1.5", "1,5"}) {
        const RangeCheck check = TestNumberRange(text, 0, 10);
        EXPECT_TRUE(check.isAccepted) << text;
        EXPECT_EQ(check.text, "1,5") << text;
    }
}

TEST_F(NumberTextTest, TestNumberRange_ReplacesTheFirstPointOnlyAndFailsOnTheSecond)
{
    const RangeCheck check = TestNumberRange("1.2.3", 0, 10);
    EXPECT_FALSE(check.isAccepted);
    EXPECT_EQ(check.text, "1,2.3");
}

TEST_F(NumberTextTest, TestNumberRange_AcceptsNumbersHoweverTheyAreWritten)
{
    for (const char* text : {"1,50", "1e3", ",5", "007", " 5", "+5", "-0,25", "1000", "0"})
        EXPECT_TRUE(TestNumberRange(text, -1, 1000).isAccepted) << text;
}

TEST_F(NumberTextTest, TestNumberRange_RefusesWhatIsNoNumber)
{
    for (const char* text : {"abc", "5 V", "1,2,3", "nan", "inf", "1e999", "0x10", "-", ",", " ", "1,0e3"})
        EXPECT_FALSE(TestNumberRange(text, -1e308, 1e308).isAccepted) << text;
}

TEST_F(NumberTextTest, TestNumberRange_IncludesBothEnds)
{
    EXPECT_TRUE(TestNumberRange("0,5", 0.5, 10).isAccepted);
    EXPECT_TRUE(TestNumberRange("10", 0.5, 10).isAccepted);
    EXPECT_FALSE(TestNumberRange("0,49", 0.5, 10).isAccepted);
    EXPECT_FALSE(TestNumberRange("10,01", 0.5, 10).isAccepted);
}

TEST_F(NumberTextTest, TypedNumber_TakesBothDecimalCharactersWhateverTheLocalOne)
{
    for (const char16_t point : {u',', u'.'}) {
        App().DecimalChar = point;
        App().OtherDecimalChar = point == u',' ? u'.' : u',';
        for (const char* typed : {"12,5", "12.5", " 12,5 V"})
            EXPECT_EQ(TypedNumber(typed), 12.5) << typed << " where the local one is " << static_cast<char>(point);
        EXPECT_EQ(TypedWholeNumber("12,9", 0), 12);
        EXPECT_EQ(TypedNumber("1,2,3"), 1.2);
    }
}

} // namespace korvanel::test
