#include "data/ComputedQuantities.h"

#include "support/ProjectFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

// Expected values by hand from right triangles: 3-4-5 and 5-12-13, and angles looked up in a table of cosines.

TEST(DeriveQuantities, PowerTriangleOfALoad)
{
    const DerivedQuantities derived = DeriveQuantities(50, 10, 300, 20, false);
    EXPECT_DOUBLE_EQ(derived.S, 500);
    EXPECT_DOUBLE_EQ(derived.Q, 400);
    EXPECT_DOUBLE_EQ(derived.cosPhi, 0.6);
    EXPECT_NEAR(derived.phi, 53.13010235415598, 1e-12);
}

TEST(DeriveQuantities, ThreePhasesTakeTheSquareRootOfThree)
{
    const DerivedQuantities derived = DeriveQuantities(400, 10, 3464.1016151377544, 1, true);
    EXPECT_NEAR(derived.S, 6928.203230275509, 1e-9);
    EXPECT_NEAR(derived.cosPhi, 0.5, 1e-15);
    EXPECT_NEAR(derived.phi, 60, 1e-12);
    EXPECT_NEAR(derived.Q, 6000, 1e-9);
}

TEST(DeriveQuantities, WithoutVoltageOrCurrentAllIsZero)
{
    for (const auto& [U, I] : {std::pair{0.0, 10.0}, std::pair{230.0, 0.0}, std::pair{0.0, 0.0}}) {
        const DerivedQuantities derived = DeriveQuantities(U, I, 5, 30, false);
        EXPECT_EQ(derived.S, 0);
        EXPECT_EQ(derived.cosPhi, 0);
        EXPECT_EQ(derived.Q, 0);
        EXPECT_EQ(derived.phi, 0);
    }
}

TEST(DeriveQuantities, MoreActiveThanApparentPowerLeavesNoReactivePowerAndNoAngle)
{
    const DerivedQuantities derived = DeriveQuantities(230, 1, 253, 30, false);
    EXPECT_DOUBLE_EQ(derived.cosPhi, 1.1);
    EXPECT_EQ(derived.Q, 0);
    EXPECT_EQ(derived.phi, 0);
}

TEST(DeriveQuantities, AGeneratorHasANegativeFactorAndTheSupplementOfTheAngle)
{
    const DerivedQuantities derived = DeriveQuantities(50, 10, -300, 30, false);
    EXPECT_DOUBLE_EQ(derived.cosPhi, -0.6);
    EXPECT_NEAR(derived.phi, 126.86989764584402, 1e-12);
    EXPECT_DOUBLE_EQ(derived.Q, 400);
}

TEST(DeriveQuantities, ALeadingCurrentTurnsTheSignsOfAngleAndReactivePower)
{
    const DerivedQuantities motor = DeriveQuantities(13, 1, 5, -0.1, false);
    EXPECT_DOUBLE_EQ(motor.Q, -12);
    EXPECT_NEAR(motor.phi, -67.38013505195957, 1e-12);
    EXPECT_GT(motor.cosPhi, 0);
    const DerivedQuantities generator = DeriveQuantities(13, 1, -5, -170, false);
    EXPECT_DOUBLE_EQ(generator.Q, -12);
    EXPECT_NEAR(generator.phi, -112.61986494804043, 1e-12);
    EXPECT_EQ(DeriveQuantities(13, 1, 5, 0, false).Q, 12) << "an angle of 0 leaves the signs";
}

TEST(AfterStep, MinusGrowsTowardNegativeValuesAndTheSumHoldsBothParts)
{
    Energies energies;
    for (const double step : {100.0, -30.0, 0.0, -20.0})
        energies = AfterStep(energies, step, step / 2);
    EXPECT_EQ(energies.WpPlus, 100);
    EXPECT_EQ(energies.WpMinus, -50);
    EXPECT_EQ(energies.Wp, 50);
    EXPECT_EQ(energies.Wq, 25);
}

class ComputedQuantities : public ProjectTest
{
};

TEST_F(ComputedQuantities, DeriveFromUIP_TakesTheNetConfigurationOfTheBlock)
{
    App().iNetConfIndex = 0;
    DeriveFromUIP(50, 10, 50, 300, 1);
    EXPECT_DOUBLE_EQ(App().dCalcS, 500);
    EXPECT_DOUBLE_EQ(App().dCalcQ, 400);
    EXPECT_DOUBLE_EQ(App().dCalcCosPhi, 0.6);
    EXPECT_NEAR(App().dCalcPhi, 53.13010235415598, 1e-12);
    App().iNetConfIndex = 1;
    DeriveFromUIP(50, 10, 50, 300, 1);
    EXPECT_NEAR(App().dCalcS, 866.0254037844386, 1e-9);
}

// The step of a set that was measured: a group that is not valid leaves its former step in force.

class EnergyStep : public ComputedQuantities
{
protected:
    EnergyStep()
    {
        ResetEnergies();
        App().dInterval = 2;
        Step("NNNN", 100, 30); // adds 200 Ws and 60 vars
    }
    static void Step(const char* mask, double P, double Q, qint32 set = 2)
    {
        tMeasuredRow& row = App().MeasuredRow;
        row.sValidMask = QLatin1String(mask);
        row.lSet = set;
        row.dP[kSum] = P;
        row.dQ[kSum] = Q;
        StepEnergyOnline();
    }
    static void ExpectEnergies(double Wp, double Wq)
    {
        EXPECT_EQ(App().MeasuredRow.dWp, Wp);
        EXPECT_EQ(App().MeasuredRow.dWq, Wq);
    }
};

TEST_F(EnergyStep, AddsPowerTimesTheNominalInterval)
{
    ExpectEnergies(200, 60);
    Step("NNNN", -50, 10);
    ExpectEnergies(100, 80);
    EXPECT_EQ(App().MeasuredRow.dWpPlus, 200);
    EXPECT_EQ(App().MeasuredRow.dWpMinus, -100);
}

TEST_F(EnergyStep, OfReactiveEnergyNeedsVoltageCurrentAndPower)
{
    for (const char* mask : {"ENNN", "NENN", "NNEN", "EEEE"}) {
        Step("NNNN", 100, 30);
        const double before = App().MeasuredRow.dWq;
        Step(mask, 100, 1000);
        EXPECT_EQ(App().MeasuredRow.dWq - before, 60) << mask << ": the former step again";
    }
    const double before = App().MeasuredRow.dWq;
    Step("NNNE", 100, 1000);
    EXPECT_EQ(App().MeasuredRow.dWq - before, 2000) << "the frequency is free";
}

TEST_F(EnergyStep, OfActiveEnergyNeedsPowerAlone)
{
    for (const char* mask : {"NNEN", "EEEE"}) {
        Step("NNNN", 100, 30);
        const double before = App().MeasuredRow.dWp;
        Step(mask, 1000, 30);
        EXPECT_EQ(App().MeasuredRow.dWp - before, 200) << mask << ": the former step again";
    }
    for (const char* mask : {"ENNN", "NENN", "NNNE", "EENE"}) {
        const double before = App().MeasuredRow.dWp;
        Step(mask, 1000, 30);
        EXPECT_EQ(App().MeasuredRow.dWp - before, 2000) << mask;
    }
}

TEST_F(EnergyStep, OfTheFirstSetIsNothing)
{
    ResetEnergies();
    Step("NNNN", 100, 30, 1);
    ExpectEnergies(0, 0);
}

} // namespace
} // namespace korvanel::test
