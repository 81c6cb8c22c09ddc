#include "data/ElectricalFormulas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace korvanel::test {
namespace {

// Expected values by hand from right triangles: 3-4-5 and 5-12-13, and from the angles 30, 45, 60 and 90 degrees.

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

TEST(ElectricalFormulas, ApparentPower_OfThreePhasesHasTheSquareRootOfThree)
{
    EXPECT_EQ(ApparentPower(230, 10, false), 2300);
    EXPECT_NEAR(ApparentPower(400, 10, true), 6928.203230275509, 1e-9);
}

TEST(ElectricalFormulas, ReactivePower_IsTheThirdSideOfTheTriangleWhateverTheSigns)
{
    for (const double S : {13.0, -13.0})
        for (const double P : {5.0, -5.0})
            EXPECT_DOUBLE_EQ(ReactivePower(S, P), 12);
}

TEST(ElectricalFormulas, ReactivePower_IsZeroWhereTheActivePowerReachesTheApparentOne)
{
    for (const double P : {100.0, -100.0, 100.1, -1e9})
        EXPECT_EQ(ReactivePower(100, P), 0) << P;
    EXPECT_EQ(ReactivePower(0, 0), 0);
}

TEST(ElectricalFormulas, AngleOfPowerFactor_IsTheArcCosineInDegrees)
{
    EXPECT_NEAR(AngleOfPowerFactor(0.5), 60, 1e-12);
    EXPECT_NEAR(AngleOfPowerFactor(0), 90, 1e-12);
    EXPECT_NEAR(AngleOfPowerFactor(-0.5), 120, 1e-12);
    EXPECT_NEAR(AngleOfPowerFactor(0.6), 53.13010235415598, 1e-12);
    EXPECT_GT(AngleOfPowerFactor(std::nextafter(1.0, 0.0)), 0);
    EXPECT_NEAR(AngleOfPowerFactor(std::nextafter(-1.0, 0.0)), 180, 1e-5);
}

TEST(ElectricalFormulas, AngleOfPowerFactor_OfOneAndBeyondIsZero)
{
    for (const double cosPhi : {1.0, -1.0, 1.1, -1.1, 1e300, kNotANumber})
        EXPECT_EQ(AngleOfPowerFactor(cosPhi), 0) << cosPhi;
}

TEST(ElectricalFormulas, PowersOfAngle_FollowSineAndCosine)
{
    struct Case
    {
        double phi;
        double cosPhi;
        double sinPhi;
    };
    const double half = std::sqrt(0.5);
    for (const Case& c : {Case{0, 1, 0}, Case{60, 0.5, 0.8660254037844386}, Case{-60, 0.5, -0.8660254037844386},
                          Case{90, 0, 1}, Case{135, -half, half}, Case{-180, -1, 0}}) {
        const Powers powers = PowersOfAngle(200, 5, c.phi, false);
        EXPECT_EQ(powers.S, 1000);
        EXPECT_NEAR(powers.cosPhi, c.cosPhi, 1e-15) << c.phi;
        EXPECT_NEAR(powers.P, 1000 * c.cosPhi, 1e-12) << c.phi;
        EXPECT_NEAR(powers.Q, 1000 * c.sinPhi, 1e-12) << c.phi;
    }
}

TEST(ElectricalFormulas, PowersOfAngle_OfThreePhasesAllHaveTheSquareRootOfThree)
{
    const Powers powers = PowersOfAngle(400, 10, 30, true);
    EXPECT_NEAR(powers.S, 6928.203230275509, 1e-9);
    EXPECT_NEAR(powers.P, 6000, 1e-9);
    EXPECT_NEAR(powers.Q, 3464.1016151377544, 1e-9);
    EXPECT_NEAR(powers.cosPhi, 0.8660254037844386, 1e-15);
}

} // namespace
} // namespace korvanel::test
