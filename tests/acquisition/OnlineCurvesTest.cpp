#include "acquisition/OnlineCurves.h"

#include "acquisition/SampleCheck.h"
#include "support/Fixture.h"

#include <cmath>
#include <limits>

namespace korvanel::test {
namespace {

TEST(OnlineColumn, RunsFromOneToTheWidthLessOneAgainAndAgain)
{
    EXPECT_EQ(OnlineColumn(1, 500), 1);
    EXPECT_EQ(OnlineColumn(499, 500), 499);
    EXPECT_EQ(OnlineColumn(500, 500), 1);
    EXPECT_EQ(OnlineColumn(999, 500), 1);
    EXPECT_EQ(OnlineColumn(1000, 500), 2);
    EXPECT_EQ(OnlineColumn(2147483647, 500), (2147483647 - 1) % 499 + 1);
}

TEST(OnlineColumn, GraphWithoutWidthDividesByNothing)
{
    for (const int width : {-1, 0, 1})
        EXPECT_EQ(OnlineColumn(7, width), 1);
}

TEST(OnlineHeight, IsTheShareOfFullScaleFromBelow)
{
    EXPECT_EQ(OnlineHeight(0, 1, 500, 200), 200);
    EXPECT_EQ(OnlineHeight(250, 1, 500, 200), 100);
    EXPECT_EQ(OnlineHeight(-250, 1, 500, 200), 100) << "the magnitude counts";
    EXPECT_EQ(OnlineHeight(3600 * 25, 3600, 50, 200), 100);
}

TEST(OnlineHeight, BeyondFullScaleIsClippedToTheEdge)
{
    EXPECT_EQ(OnlineHeight(501, 1, 500, 200), 0);
    EXPECT_EQ(OnlineHeight(1e300, 1, 1e-5, 200), 0);
}

TEST(OnlineHeight, ScaleOfZeroOrNoNumberGivesNoPoint)
{
    EXPECT_EQ(OnlineHeight(1, 1, 0, 200), std::nullopt);
    EXPECT_EQ(OnlineHeight(0, 1, 0, 200), std::nullopt);
    EXPECT_EQ(OnlineHeight(std::nan(""), 1, 500, 200), std::nullopt);
    EXPECT_EQ(OnlineHeight(1, 1, std::nan(""), 200), std::nullopt);
    EXPECT_EQ(OnlineHeight(std::numeric_limits<double>::infinity(), 1, 500, 200), std::nullopt);
}

TEST(MatchesMask, QuestionMarkIsAnyMark)
{
    EXPECT_TRUE(MatchesMask("NEEE", "N???"));
    EXPECT_FALSE(MatchesMask("ENNN", "N???"));
    EXPECT_TRUE(MatchesMask("ENEE", "?N??"));
    EXPECT_TRUE(MatchesMask("NNNE", "NNN?"));
    EXPECT_FALSE(MatchesMask("NNNE", "NNNN"));
    EXPECT_FALSE(MatchesMask("NNN", "NNN?"));
    EXPECT_FALSE(MatchesMask("", "NNN?"));
}

class OnlineCurvesTest : public BlockTest
{
protected:
    static std::vector<int> Quantities(int netConf)
    {
        std::vector<int> quantities;
        for (const OnlineCurve& curve : OnlineCurvesOf(netConf))
            quantities.push_back(curve.quantity);
        return quantities;
    }
};

TEST_F(OnlineCurvesTest, AreThoseThatTheConfigurationStores)
{
    EXPECT_EQ(Quantities(6), (std::vector<int>{kU, kU1, kU1 + 1, kU1 + 2, kF}));
    EXPECT_EQ(Quantities(0), (std::vector<int>{kU, kI, kF, kP, kQ, kS, kPhi, kCosPhi, kWp, kWpPlus, kWpMinus, kWq}));
    const std::vector<int> machine = Quantities(2);
    for (const int quantity : {kN, kM, kPmech, kEta})
        EXPECT_EQ(std::count(machine.begin(), machine.end(), quantity), 1) << quantity;
}

TEST_F(OnlineCurvesTest, ScaleEndsFollowTheProject)
{
    App().ScaleEnds = {500, 10, 50000, 100, 60, 3000};
    const std::vector<std::pair<int, double>> expected{{kU, 500},       {kI, 10},     {kP, 50000}, {kF, 100},
                                                       {kM, 60},        {kN, 3000},   {kQ, 50000}, {kS, 50000},
                                                       {kPmech, 50000}, {kCosPhi, 1}, {kEta, 1},   {kPhi, 180}};
    for (const OnlineCurve& curve : OnlineCurvesOf(2))
        for (const auto& [quantity, end] : expected)
            if (curve.quantity == quantity) {
                EXPECT_EQ(ScaleEndOf(curve), end) << quantity;
            }
}

tValueRow Row(double U, double I, double f)
{
    tValueRow row;
    row.dU[kSum] = U;
    row.dI[kSum] = I;
    row.df = f;
    return row;
}

TEST(SampleCheck, DefaultTriggersLetEveryNonNegativeValuePass)
{
    EXPECT_EQ(CheckedMask("NNNN", Row(0, 0, 0), {0, 0}, 1), "NNNN");
    EXPECT_EQ(CheckedMask("NNNN", Row(230, 0.01, 1000), {0, 0}, 1), "NNNN");
}

TEST(SampleCheck, FrequencyMarkKeepsTheOthers)
{
    EXPECT_EQ(CheckedMask("NNNN", Row(230, 1, 1000.001), {0, 0}, 5), "NNNE");
    EXPECT_EQ(CheckedMask("NENN", Row(230, 1, -0.001), {0, 0}, 5), "NENE");
}

TEST(SampleCheck, TriggersCountForTheFirstSampleOnly)
{
    for (const auto& [U, I] : {std::pair(99.9, 5.0), std::pair(100.0, 4.9), std::pair(0.0, 0.0)}) {
        EXPECT_EQ(CheckedMask("NNNN", Row(U, I, 50), {100, 5}, 1), "EEEE");
        EXPECT_EQ(CheckedMask("NNNN", Row(U, I, 50), {100, 5}, 2), "NNNN");
    }
    EXPECT_EQ(CheckedMask("NNNN", Row(100, 5, 50), {100, 5}, 1), "NNNN");
}

TEST(SampleCheck, ValuesThatAreNoNumbersMarkTheirGroup)
{
    tValueRow row = Row(std::nan(""), HUGE_VAL, std::nan(""));
    EXPECT_EQ(CheckedMask("NNNN", row, {0, 0}, 2), "EENE");
    row = Row(230, 1, 50);
    row.dP[kPhase2] = -HUGE_VAL;
    EXPECT_EQ(CheckedMask("NNNN", row, {0, 0}, 2), "NNEN");
}

} // namespace
} // namespace korvanel::test
