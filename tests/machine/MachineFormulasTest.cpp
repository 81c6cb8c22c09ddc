#include "machine/MachineFormulas.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvanel::test {
namespace {

// Expected values from bc with 30 digits, unless a formula is plain enough to be worked out by hand.

void ExpectDigits(double value, double expected)
{
    EXPECT_NEAR(value, expected, std::abs(expected) * 1e-14);
}

TEST(MachineFormulas, RatedTorque_IsPowerOverAngularSpeed)
{
    ExpectDigits(RatedTorque(18500, 1462.5), 120.794520910771844583563);
    EXPECT_LT(RatedTorque(-18500, 1530), 0);
    EXPECT_EQ(RatedTorque(18500, 0), 0);
}

TEST(MachineFormulas, ElectricalPower_OfThreePhases)
{
    ExpectDigits(ElectricalPower(400, 32.85, 0.898), 20437.714555086632777981679);
    EXPECT_LT(ElectricalPower(400, 32.85, -0.898), 0);
}

TEST(MachineFormulas, PolePairsFromSpeed_AMotorRunsBelowAGeneratorAboveItsSynchronousSpeed)
{
    EXPECT_EQ(PolePairsFromSpeed(1470, 50, 4000), 2);
    EXPECT_EQ(PolePairsFromSpeed(1530, 50, -4000), 2);
    EXPECT_EQ(PolePairsFromSpeed(2990, 50, 4000), 1);
    EXPECT_EQ(PolePairsFromSpeed(3010, 50, -4000), 1);
    EXPECT_EQ(PolePairsFromSpeed(3100, 50, 4000), 0) << "no machine";
    EXPECT_EQ(PolePairsFromSpeed(200, 50, 4000), 15) << "no machine either";
}

TEST(MachineFormulas, SynchronousSpeed_WithoutPolePairsCanStillBeDividedBy)
{
    EXPECT_EQ(SynchronousSpeed(50, 2), 1500);
    EXPECT_EQ(SynchronousSpeed(50, 0), 0.000001);
}

TEST(MachineFormulas, Slip_IsNegativeForAGenerator)
{
    EXPECT_DOUBLE_EQ(Slip(1500, 1462.5), 0.025);
    EXPECT_DOUBLE_EQ(Slip(1500, 1530), -0.02);
}

TEST(MachineFormulas, PhaseAngle_IsTheArcCosineInDegrees)
{
    ExpectDigits(PhaseAngle(0.898), 26.103591118375955562752883);
    EXPECT_NEAR(PhaseAngle(0.5), 60, 1e-13);
    EXPECT_NEAR(PhaseAngle(0), 90, 1e-13);
    EXPECT_NEAR(PhaseAngle(-0.5), 120, 1e-13);
}

TEST(MachineFormulas, PhaseAngle_OfOneAndBeyondIsNoNumber)
{
    for (const double cosphi : {1.0, -1.0, 1.5, -7.0})
        EXPECT_TRUE(std::isnan(PhaseAngle(cosphi))) << cosphi;
}

TEST(MachineFormulas, NoLoadPowerFactor_IsActiveOverApparentPower)
{
    EXPECT_NEAR(NoLoadPowerFactor(std::sqrt(3.0) * 400 * 11 * 0.085, 400, 11), 0.085, 1e-16);
}

TEST(MachineFormulas, NoLoadPowerByRegression_TakesTheMagnitudeOfThePower)
{
    ExpectDigits(NoLoadPowerByRegression(18500), 1507.528394610211408223987);
    ExpectDigits(NoLoadPowerByRegression(-18500), 1507.528394610211408223987);
    EXPECT_EQ(NoLoadPowerByRegression(1000), 169);
}

TEST(MachineFormulas, NoLoadPowerByPolynomial_HasItsOwnFitForEachNumberOfPolePairs)
{
    ExpectDigits(NoLoadPowerByPolynomial(1000, 1), 170.4901992);
    ExpectDigits(NoLoadPowerByPolynomial(1000, 2), 208.500302);
    ExpectDigits(NoLoadPowerByPolynomial(1000, 3), 255.7670499);
    ExpectDigits(NoLoadPowerByPolynomial(1000, 4), 264.7002);
    ExpectDigits(NoLoadPowerByPolynomial(-18500, 2), 1017.3467035625);
    ExpectDigits(NoLoadPowerByPolynomial(110000, 1), 9288.3);
    ExpectDigits(NoLoadPowerByPolynomial(132000, 2), 2866.372664);
    ExpectDigits(NoLoadPowerByPolynomial(110000, 3), 34906.674);
    ExpectDigits(NoLoadPowerByPolynomial(110000, 4), 10454.26);
}

TEST(MachineFormulas, NoLoadPowerByPolynomial_EndsWithItsRange)
{
    struct Range
    {
        int polePairs;
        double lowest;
        double highest;
    };
    for (const auto& [polePairs, lowest, highest] :
         {Range{1, 180, 110000}, Range{2, 100, 132000}, Range{3, 90, 110000}, Range{4, 90, 110000}}) {
        EXPECT_GT(NoLoadPowerByPolynomial(lowest, polePairs), 0) << polePairs;
        EXPECT_GT(NoLoadPowerByPolynomial(highest, polePairs), 0) << polePairs;
        EXPECT_EQ(NoLoadPowerByPolynomial(std::nextafter(lowest, 0), polePairs), 0) << polePairs;
        EXPECT_EQ(NoLoadPowerByPolynomial(std::nextafter(highest, 1e9), polePairs), 0) << polePairs;
    }
    for (const int polePairs : {-1, 0, 5, 10})
        EXPECT_EQ(NoLoadPowerByPolynomial(5000, polePairs), 0) << polePairs;
}

TEST(MachineFormulas, StatorResistanceByPolynomial_GoesByTheMagnitudeInKilowatts)
{
    ExpectDigits(StatorResistanceByPolynomial(18500), 0.327038987561670298105428);
    ExpectDigits(StatorResistanceByPolynomial(-18500), 0.327038987561670298105428);
    ExpectDigits(StatorResistanceByPolynomial(2000), 3.9826140625);
    ExpectDigits(StatorResistanceByPolynomial(500), 23.6428);
    EXPECT_EQ(StatorResistanceByPolynomial(0), 0);
}

TEST(MachineFormulas, StatorResistanceByPolynomial_OfAVeryGreatMachineIsNegativeAsTheFitGivesIt)
{
    EXPECT_NEAR(StatorResistanceByPolynomial(1e12), -0.01, 1e-7);
}

TEST(MachineFormulas, StallSlip_FollowsKloss)
{
    ExpectDigits(StallSlip(0.025, 2.5), 0.119782196186948000082350589);
    EXPECT_DOUBLE_EQ(StallSlip(0.025, 1), 0.025);
    EXPECT_TRUE(std::isnan(StallSlip(0.025, 0.5)));
}

TEST(MachineFormulas, TemperatureRise_OfTheFourClassesOnly)
{
    EXPECT_EQ(TemperatureRise(u"A"), 60);
    EXPECT_EQ(TemperatureRise(u"B"), 80);
    EXPECT_EQ(TemperatureRise(u"F"), 105);
    EXPECT_EQ(TemperatureRise(u"H"), 125);
    for (const std::u16string_view other : {u"", u"C", u"a", u"FF", u" F"})
        EXPECT_EQ(TemperatureRise(other), 0);
}

TEST(MachineFormulas, ThermalTimeConstant_IsStoredHeatOverLosses)
{
    ExpectDigits(ThermalTimeConstant(105, 150, 18500 / 20437.714555086632777981679, 18500), 3617.018813014307781889255);
    EXPECT_EQ(ThermalTimeConstant(105, 150, 0, 18500), 0);
    EXPECT_EQ(ThermalTimeConstant(105, 150, 0.9, 0), 0);
    EXPECT_TRUE(std::isinf(ThermalTimeConstant(105, 150, 1, 18500)));
}

} // namespace
} // namespace korvanel::test
