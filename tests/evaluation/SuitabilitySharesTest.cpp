// Shares of the classes of sets, and their texts.
#include "evaluation/SuitabilityShares.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class SuitabilitySharesTest : public BlockTest
{
};

TEST_F(SuitabilitySharesTest, ClassesFollowEachOtherFromTheLeftAndTheUnratedStayEmpty)
{
    const auto shares = SuitabilityShares({2, 5, 2, 1}, 10);
    ASSERT_EQ(shares.size(), 3U);
    const SuitabilityShare expected[] = {{1, 0, 0.5}, {2, 0.5, 0.2}, {3, 0.7, 0.1}};
    for (std::size_t i = 0; i < shares.size(); ++i) {
        EXPECT_EQ(shares[i].rating, expected[i].rating);
        EXPECT_DOUBLE_EQ(shares[i].from, expected[i].from);
        EXPECT_DOUBLE_EQ(shares[i].width, expected[i].width);
    }
}

TEST_F(SuitabilitySharesTest, ClassWithoutSets_HasNoPlace)
{
    const auto shares = SuitabilityShares({0, 0, 0, 4}, 4);
    ASSERT_EQ(shares.size(), 1U);
    EXPECT_EQ(shares[0].rating, 3);
    EXPECT_EQ(shares[0].from, 0);
    EXPECT_EQ(shares[0].width, 1);
}

TEST_F(SuitabilitySharesTest, NoSets_DrawNothing)
{
    EXPECT_TRUE(SuitabilityShares({0, 0, 0, 0}, 0).empty());
}

TEST_F(SuitabilitySharesTest, Labels_AreCentredOnTheirShares)
{
    const int widths[] = {40, 30, 21};
    EXPECT_EQ(LabelPlaces(SuitabilityShares({0, 5, 3, 2}, 10), widths, 200, 6), (std::vector<int>{30, 115, 170}));
    EXPECT_EQ(LabelPlaces(SuitabilityShares({5, 5, 0, 0}, 10), std::span(widths).first(1), 200, 6),
              (std::vector<int>{30}));
    EXPECT_TRUE(LabelPlaces({}, {}, 200, 6).empty());
}

TEST_F(SuitabilitySharesTest, Labels_GiveWayToEachOtherAndStayWithinTheStrip)
{
    const int widths[] = {40, 30, 30};
    for (qint32 good = 0; good <= 100; ++good)
        for (qint32 medium = 0; medium <= 100 - good; ++medium) {
            const auto shares = SuitabilityShares({0, good, medium, 100 - good - medium}, 100);
            const std::vector<int> places = LabelPlaces(shares, std::span(widths).first(shares.size()), 200, 6);
            int least = 0;
            for (std::size_t i = 0; i < places.size(); ++i) {
                ASSERT_GE(places[i], least) << good << ' ' << medium;
                least = places[i] + widths[i] + 6;
            }
            ASSERT_LE(least - 6, 200) << good << ' ' << medium;
        }
}

TEST_F(SuitabilitySharesTest, Percentages_RoundHalfToEvenWithOneDecimal)
{
    EXPECT_EQ(SuitabilityText(1.0 / 3), "33,3%");
    EXPECT_EQ(SuitabilityText(1), "100%");
    EXPECT_EQ(SuitabilityText(0.0625), "6,2%");  // 62.5 tenths
    EXPECT_EQ(SuitabilityText(0.1875), "18,8%"); // 187.5 tenths
}

} // namespace
} // namespace korvanel::test
