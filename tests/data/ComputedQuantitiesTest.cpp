#include "data/ComputedQuantities.h"

#include "data/FileManaging.h"
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
protected:
    /// Sets of 10 s with the given powers; the reactive power is a tenth of each.
    void AppendSets(std::initializer_list<double> powers)
    {
        OpenDbGuarded();
        App().MeasuredRow.lSet = 0;
        for (const double power : powers) {
            ++App().MeasuredRow.lSet;
            App().MeasuredRow.dt = 10 * (App().MeasuredRow.lSet - 1);
            App().MeasuredRow.dP[kSum] = power;
            App().MeasuredRow.dQ[kSum] = power / 10;
            ASSERT_TRUE(AppendMeasuredRow());
        }
        CloseDbGuarded();
    }
    QString Energies() const
    {
        return Query("SELECT group_concat(Wp || ' ' || [Wp+] || ' ' || [Wp-] || ' ' || Wq, '; ') FROM ComputedValues");
    }
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

TEST_F(ComputedQuantities, RecomputeEnergies_IntegratesOverTheTimesOfTheSets)
{
    CreateProject(0);
    AppendSets({700, 100, -50});
    Execute("UPDATE ComputedValues SET Wp=-1, [Wp+]=-1, [Wp-]=-1, Wq=-1");
    EXPECT_TRUE(RecomputeEnergies());
    EXPECT_EQ(Energies(), "0.0 0.0 0.0 0.0; 1000.0 1000.0 0.0 100.0; 500.0 1000.0 -500.0 50.0");
    EXPECT_TRUE(shell.calls.contains("ShowProgress 0"));
    EXPECT_TRUE(shell.calls.contains("ShowProgress 2"));
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(ComputedQuantities, RecomputeEnergies_WithoutSetsDoesNothing)
{
    CreateProject(0);
    shell.calls.clear();
    EXPECT_TRUE(RecomputeEnergies());
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(ComputedQuantities, RecomputeEnergies_ThatFailsHalfwayTellsOnceAndChangesNothing)
{
    CreateProject(0);
    AppendSets({700, 100, 50});
    Execute("UPDATE ComputedValues SET Wp=-1");
    Execute("UPDATE SampledValues SET t=9e18 WHERE [Set]=3"); // no time that could be written back
    const QString before = Energies();
    EXPECT_FALSE(RecomputeEnergies());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Energies(), before);
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2") << "the menus are free again";
}

} // namespace
} // namespace korvanel::test
