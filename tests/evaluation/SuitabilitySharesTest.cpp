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

TEST_F(SuitabilitySharesTest, Percentages_RoundHalfToEvenWithOneDecimal)
{
    EXPECT_EQ(SuitabilityText(1.0 / 3), "33,3%");
    EXPECT_EQ(SuitabilityText(1), "100%");
    EXPECT_EQ(SuitabilityText(0.0625), "6,2%");  // 62.5 tenths
    EXPECT_EQ(SuitabilityText(0.1875), "18,8%"); // 187.5 tenths
}

} // namespace
} // namespace korvanel::test
