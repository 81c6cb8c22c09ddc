#include "diagrams/DiagramScale.h"

#include "diagrams/NumberTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>

namespace korvanel {
namespace {

constexpr double kMost = std::numeric_limits<double>::max();

class DiagramScale : public testing::Test
{
protected:
    void Range(int quantity, double minimum, double maximum)
    {
        results.tExtremMin.at(static_cast<std::size_t>(quantity)).dValue = minimum;
        results.tExtremMax.at(static_cast<std::size_t>(quantity)).dValue = maximum;
    }
    double End(int quantity) const { return ScaleEndsOf(results).at(static_cast<std::size_t>(quantity)); }

    EvaluationResults results;
};

TEST_F(DiagramScale, EndIsTheNextOneOrFiveTimesAPowerOfTen)
{
    EXPECT_EQ(ScaleEndOf(0, 400, 1), 500);
    EXPECT_EQ(ScaleEndOf(0, 500, 1), 500);
    EXPECT_EQ(ScaleEndOf(0, 501, 1), 1000);
    EXPECT_EQ(ScaleEndOf(0, 1000, 1), 1000);
    EXPECT_EQ(ScaleEndOf(0, 1001, 1), 5000);
    EXPECT_EQ(ScaleEndOf(0, 0.04, 1), 0.05);
    EXPECT_EQ(ScaleEndOf(0, 0.06, 1), 0.1);
}

TEST_F(DiagramScale, NegativeValuesCountByTheirAmount)
{
    EXPECT_EQ(ScaleEndOf(-700, 20, 1), 1000);
    EXPECT_EQ(ScaleEndOf(-700, -200, 1), 1000);
}

TEST_F(DiagramScale, QuantityThatNeverLeavesZeroHasEndOne)
{
    EXPECT_EQ(ScaleEndOf(0, 0, 1), 1);
    EXPECT_EQ(ScaleEndOf(0, 0, 3600), 1);
}

TEST_F(DiagramScale, ExtremeValuesHaveAFiniteEnd)
{
    EXPECT_EQ(ScaleEndOf(0, 1e308, 1), 1e308);
    EXPECT_EQ(ScaleEndOf(-kMost, kMost, 1), kMost);
    EXPECT_EQ(ScaleEndOf(0, std::numeric_limits<double>::infinity(), 1), kMost);
    EXPECT_EQ(ScaleEndOf(std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN(), 1), 1);
    EXPECT_GT(ScaleEndOf(0, std::numeric_limits<double>::denorm_min(), 1), 0);
}

TEST_F(DiagramScale, VoltagesHaveOneEnd)
{
    Range(kU, 0, 400);
    Range(kU1 + 2, 0, 700);
    for (const int quantity : {+kU, kU1 + 0, kU1 + 1, kU1 + 2})
        EXPECT_EQ(End(quantity), 1000) << quantity;
    EXPECT_EQ(End(kI), 1);
}

TEST_F(DiagramScale, CurrentsHaveOneEndWithoutTheNeutral)
{
    Range(kI1 + 1, 0, 30);
    for (const int quantity : {+kI, kI1 + 0, kI1 + 1, kI1 + 2})
        EXPECT_EQ(End(quantity), 50) << quantity;
    EXPECT_EQ(End(kINeutral), 1);
}

TEST_F(DiagramScale, PowersAndEnergiesHaveOneEnd)
{
    Range(kQ1, -20'000, 0);
    const std::array members{3,  22, 23, 24, 9,  4,  28, 29, 30, 5,  25, 26, 27, 12,
                             13, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49};
    for (int quantity = 0; quantity < kQuantityCount; ++quantity) {
        const bool isMember = std::ranges::find(members, quantity) != members.end();
        EXPECT_EQ(End(quantity), isMember ? 50'000 : 1) << quantity;
    }
}

TEST_F(DiagramScale, PartsOfTheEnergyOfASetKeepTheirOwnEnd)
{
    Range(kWpPlus, 0, 7200);
    EXPECT_EQ(End(kWpPlus), 10'000);
    EXPECT_EQ(End(kWpMinus), 1);
}

TEST_F(DiagramScale, EnergiesOfASetAreScaledInHours)
{
    for (const int quantity : {12, 13, 44, 45, 46, 47, 48, 49}) {
        results = {};
        Range(quantity, 0, 7200);
        EXPECT_EQ(End(quantity), 5) << quantity;
    }
}

TEST_F(DiagramScale, AbsoluteEnergiesAreScaledAsStored)
{
    for (int quantity = kWpAbs; quantity <= kWqMinusAbs; ++quantity) {
        results = {};
        Range(quantity, 0, 7200);
        EXPECT_EQ(End(quantity), 10'000) << quantity;
    }
}

TEST_F(DiagramScale, DivisorsOfTheDiagram)
{
    for (int quantity = 0; quantity < kQuantityCount; ++quantity) {
        double expected = 1;
        if (quantity == 12 || quantity == 13 || quantity == 44 || quantity == 45 || quantity == 47 || quantity == 48)
            expected = 3600;
        if (quantity == 46 || quantity == 49)
            expected = -3600;
        EXPECT_EQ(DivisorInDiagram(quantity), expected) << quantity;
    }
}

TEST_F(DiagramScale, ValuesBelowZeroCountAmongTheListedQuantitiesAlone)
{
    Range(kP, -5, 10);
    EXPECT_TRUE(HasNegativeValues(results, std::array{+kU, +kP}));
    EXPECT_FALSE(HasNegativeValues(results, std::array{+kU, +kI}));
    EXPECT_FALSE(HasNegativeValues(results, {}));
}

TEST_F(DiagramScale, PartStoredNegativeGoesUpward)
{
    const std::array parts{+kWpMinusRel, +kWqMinusRel};
    Range(kWpMinusRel, -7200, 0);
    EXPECT_FALSE(HasNegativeValues(results, parts));
    EXPECT_GT(-7200 / DivisorInDiagram(kWpMinusRel), 0);
    Range(kWqMinusRel, -7200, 1);
    EXPECT_TRUE(HasNegativeValues(results, parts));
}

TEST_F(DiagramScale, AgreesWithASecondCalculation)
{
    const std::vector<test::NumberLine> table = test::NumberTable("random_scales.txt");
    EXPECT_EQ(table.size(), 2000u);
    for (const auto& [line, numbers] : table) {
        ASSERT_EQ(numbers.size(), 4u) << line;
        EXPECT_DOUBLE_EQ(ScaleEndOf(numbers[0], numbers[1], numbers[2]), numbers[3]) << line;
    }
}

} // namespace
} // namespace korvanel
