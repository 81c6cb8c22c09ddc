// Both estimators as pure functions.
#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"
#include "machine/ExpectClose.h"

#include <gtest/gtest.h>

#include <cmath>

namespace korvanel::test {
namespace {

// Expected values from bc with 30 digits.

constexpr double kPi = 3.14159265358979323846;

/// A motor of about 18.5 kW.
constexpr EstimationConstants kMotor{.rotor = {2, 1.3},
                                     .ratedU = 400,
                                     .ratedF = 50,
                                     .noLoadPower = 1000,
                                     .loadLoss = 0.07,
                                     .resistance = 0.56,
                                     .friction = 1.5,
                                     .factor = 1,
                                     .isFactorFixed = true,
                                     .connection = StatorConnection::Delta};

constexpr LoadSample Drawing(double P)
{
    return {400, 30, 50, P, 30};
}

TEST(NoLoadPowerAt, ScalesWithVoltageAndWithAFrequencyPowerThatIsTheVoltageRatio)
{
    ExpectClose(NoLoadPowerAt(1000, 380, 400, 48, 50), 868.170214780496662913919);
    EXPECT_EQ(NoLoadPowerAt(1000, 400, 400, 50, 50), 1000);
    EXPECT_DOUBLE_EQ(NoLoadPowerAt(1000, 800, 400, 25, 50), 1000) << "four times by voltage, a quarter by frequency";
    EXPECT_EQ(NoLoadPowerAt(1000, 0, 400, 50, 50), 0);
}

TEST(NoLoadPowerAt, WithoutReferenceIsZero)
{
    EXPECT_EQ(NoLoadPowerAt(1000, 400, 0, 50, 50), 0);
    EXPECT_EQ(NoLoadPowerAt(1000, 400, 400, 50, 0), 0);
}

TEST(RotorConstant, IsTheSlipFrequencyForEachUnitOfTorque)
{
    ExpectClose(RotorConstant(400, 50, 1462.5, 120.794520910771844583563, 2), 1.324563389081102014054519);
    EXPECT_EQ(RotorConstant(400, 50, 1462.5, 120, 0), 0);
    EXPECT_EQ(RotorConstant(400, 0, 1462.5, 120, 2), 0);
    EXPECT_EQ(RotorConstant(400, 50, 1462.5, 0, 2), 0);
}

TEST(SpeedFromTorque, IsTheInverseOfTheRotorConstant)
{
    const RotorLaw rotor{2, RotorConstant(400, 50, 1462.5, 120, 2)};
    EXPECT_NEAR(SpeedFromTorque(rotor, 120, 400, 50), 1462.5, 1e-11);
    EXPECT_EQ(SpeedFromTorque(rotor, 0, 400, 50), 1500);
    EXPECT_NEAR(SpeedFromTorque(rotor, -120, 400, 50), 1537.5, 1e-11);
}

TEST(SpeedFromTorque, WithoutSlopeIsSynchronousAndWithoutVoltageOrPolePairsZero)
{
    EXPECT_EQ(SpeedFromTorque({2, 0}, 120, 400, 50), 1500);
    EXPECT_EQ(SpeedFromTorque({2, 1.3}, 120, 0, 50), 0);
    EXPECT_EQ(SpeedFromTorque({0, 1.3}, 120, 400, 50), 0);
}

TEST(ShaftPower, IsTorqueTimesAngularSpeed)
{
    EXPECT_DOUBLE_EQ(ShaftPower(100, 60), 200 * kPi);
    EXPECT_DOUBLE_EQ(ShaftPower(-100, 60), -200 * kPi);
}

TEST(Efficiency, IsOutputOverInputForMotorAndGenerator)
{
    EXPECT_EQ(Efficiency(90, 100, 10), 0.9);
    EXPECT_EQ(Efficiency(-100, -80, 10), 0.8);
}

TEST(Efficiency, IsZeroWithoutPowerBelowTheFloorAndForAMachineThatOnlyLoses)
{
    EXPECT_EQ(Efficiency(0, 100, 0), 0);
    EXPECT_EQ(Efficiency(90, 0, 0), 0);
    EXPECT_EQ(Efficiency(9, 10, 10), 0) << "the floor itself is not above it";
    EXPECT_EQ(Efficiency(9, 10, 9.99), 0.9);
    EXPECT_EQ(Efficiency(-5, 10, 0), 0) << "driven, and drawing power too";
    EXPECT_EQ(Efficiency(5, -10, -20), -0.5) << "no machine does so; the formula decides";
}

TEST(LoadLossConstant, IsWhatTheLossesLeaveOverTheSquareOfTheTorque)
{
    EXPECT_EQ(LoadLossConstant(1000, 800, 100, 1, 10), 1);
    EXPECT_EQ(LoadLossConstant(1000, 800, 100, 0.5, 10), 1.875);
    EXPECT_EQ(LoadLossConstant(1000, 800, 300, 1, 10), -1) << "no room for load losses";
    EXPECT_EQ(LoadLossConstant(1000, 800, 100, 1, 0), 0);
}

TEST(TorqueFromPower, TakesTheRootOfSmallerMagnitude)
{
    ExpectClose(TorqueFromPower(kMotor, 400, 50, 15000, 1000), 87.279409663364844369112);
}

TEST(TorqueFromPower, WithoutVoltagePolePairsOrCurvatureIsZero)
{
    EXPECT_EQ(TorqueFromPower(kMotor, 0, 50, 15000, 1000), 0);
    EstimationConstants machine = kMotor;
    machine.rotor.polePairs = 0;
    EXPECT_EQ(TorqueFromPower(machine, 400, 50, 15000, 1000), 0);
    machine = kMotor;
    machine.loadLoss = machine.rotor.R2 = 0;
    EXPECT_EQ(TorqueFromPower(machine, 400, 50, 15000, 1000), 0);
}

TEST(TorqueFromPower, OfEqualRootsIsTheSecond)
{
    // Without frequency the roots are +- sqrt((P - Pv) / k) = +- 10.
    EstimationConstants machine = kMotor;
    machine.loadLoss = 0.5;
    EXPECT_EQ(TorqueFromPower(machine, 400, 0, 150, 100), -10);
}

TEST(PowerBalance, OfASampleTakesTwoPasses)
{
    const LoadEstimate estimate = EstimateByPowerBalance(kMotor, Drawing(15000));
    ExpectClose(estimate.M, 87.598501743797187096522);
    ExpectClose(estimate.n, 1473.309831499936794556528);
    ExpectClose(estimate.Pmech, 13515.103723931281806464168);
    ExpectClose(estimate.eta, 0.901006914928752120430);
}

TEST(PowerBalance, OfAGeneratorHasTorqueSlipAndShaftPowerNegative)
{
    const LoadEstimate estimate = EstimateByPowerBalance(kMotor, Drawing(-15000));
    ExpectClose(estimate.M, -104.944071217611571670027);
    ExpectClose(estimate.n, 1531.975146699116025743211);
    ExpectClose(estimate.Pmech, -16835.973986051872977725013);
    ExpectClose(estimate.eta, 0.890949345278572813094);
}

TEST(PowerBalance, WithoutPowerTheMachineIsDrivenWithASmallTorque)
{
    const LoadEstimate estimate = EstimateByPowerBalance(kMotor, Drawing(0));
    ExpectClose(estimate.M, -6.400901017699405778680);
    EXPECT_NEAR(estimate.M, -1000 / (2 * kPi * 25), 0.05) << "near no-load power over synchronous angular speed";
    EXPECT_EQ(estimate.eta, 0);
}

TEST(PowerBalance, WithoutARealRootTheMachineStandsAtSynchronousSpeed)
{
    const double A = 0.07 - 2 * kPi * 1.3 * (50.0 / 800) * (50.0 / 800);
    const double B = 2 * kPi * 25;
    const double limit = 1000 - B * B / (4 * A);
    ASSERT_GT(A, 0);
    const LoadEstimate estimate = EstimateByPowerBalance(kMotor, Drawing(limit - 1));
    EXPECT_EQ(estimate.M, 0);
    EXPECT_EQ(estimate.n, 1500);
    EXPECT_EQ(estimate.Pmech, 0);
    EXPECT_EQ(estimate.eta, 0);
    EXPECT_LT(TorqueFromPower(kMotor, 400, 50, limit + 1, 1000), -1000) << "just before that";
}

TEST(PowerBalance, WithoutFrequencyOrVoltageEverythingIsZero)
{
    for (const auto& [U, f] : {std::pair{400.0, 0.0}, std::pair{0.0, 50.0}, std::pair{0.0, 0.0}}) {
        const LoadEstimate estimate = EstimateByPowerBalance(kMotor, {U, 30, f, 15000, 30});
        EXPECT_EQ(estimate.n, 0);
        EXPECT_EQ(estimate.M, 0);
        EXPECT_EQ(estimate.Pmech, 0);
        EXPECT_EQ(estimate.eta, 0);
    }
}

TEST(SpaceVectorTorque, OfStarAndDelta)
{
    ExpectClose(SpaceVectorTorque(400, 32.85, 50, 30, 2, 0.56, StatorConnection::Delta), 121.630609099932565051986);
    ExpectClose(SpaceVectorTorque(400, 32.85, 50, 30, 2, 0.56, StatorConnection::Star), 113.936313032497129715585);
}

TEST(SpaceVectorTorque, OfAGeneratorIsNegativeAndANegativeAngleTurnsTheSign)
{
    ExpectClose(SpaceVectorTorque(400, 32.85, 50, 150, 2, 0.56, StatorConnection::Delta), -129.324905167368000388388);
    ExpectClose(SpaceVectorTorque(400, 32.85, 50, -30, 2, 0.56, StatorConnection::Delta), -121.630609099932565051986);
}

TEST(SpaceVectorTorque, IsZeroWithoutAngleCurrentFrequencyOrResistance)
{
    EXPECT_EQ(SpaceVectorTorque(400, 30, 50, 0, 2, 0.56, StatorConnection::Star), 0);
    EXPECT_EQ(SpaceVectorTorque(400, 0, 50, 30, 2, 0.56, StatorConnection::Star), 0);
    EXPECT_EQ(SpaceVectorTorque(400, 30, 0, 30, 2, 0.56, StatorConnection::Star), 0);
    EXPECT_EQ(SpaceVectorTorque(400, 30, 50, 30, 2, 0, StatorConnection::Star), 0);
}

TEST(SpaceVectorTorque, WithAnUnknownStatorIsThePowerOverTheAngularSpeed)
{
    // Without losses in the stator: M = sqrt(3) U I cos phi / (2 pi f / p).
    const double expected = std::sqrt(3.0) * 400 * 30 * std::cos(kPi / 6) / (2 * kPi * 50 / 2);
    for (const StatorConnection connection : {StatorConnection::Star, StatorConnection::Delta})
        EXPECT_NEAR(SpaceVectorTorque(400, 30, 50, 30, 2, 0.000001, connection), expected, expected * 1e-6);
}

TEST(ConnectionOf, AnyTextButYIsDelta)
{
    EXPECT_EQ(ConnectionOf(u"Y"), StatorConnection::Star);
    for (const std::u16string_view text : {u"D", u"", u"y", u"YY"})
        EXPECT_EQ(ConnectionOf(text), StatorConnection::Delta);
}

TEST(RzmFactor, OfTheModelStandsWhereAnythingIsKnownOfTheFriction)
{
    EstimationConstants machine = kMotor;
    for (const double P : {100.0, 0.0, -100.0})
        EXPECT_EQ(RzmFactor(machine, P), 1);
    machine.isFactorFixed = false;
    EXPECT_EQ(RzmFactor(machine, 100), 0.95);
    EXPECT_EQ(RzmFactor(machine, 0), 1.05);
    EXPECT_EQ(RzmFactor(machine, -100), 1.05);
}

TEST(CorrectedSpaceVectorTorque, SubtractsTheFrictionOfAMachineThatIsOn)
{
    EstimationConstants machine = kMotor;
    const LoadSample sample{400, 32.85, 50, 19000, 30};
    ExpectClose(CorrectedSpaceVectorTorque(machine, sample), 120.130609099932565051986);
    machine.isFactorFixed = false;
    machine.friction = 0;
    ExpectClose(CorrectedSpaceVectorTorque(machine, sample), 115.549078644935936799387);
    ExpectClose(CorrectedSpaceVectorTorque(machine, {400, 32.85, 50, -1, 30}), 127.712139554929193304586);
}

TEST(CorrectedSpaceVectorTorque, UpToAHundredthOfAnAmpereThereIsNoFriction)
{
    EXPECT_GT(CorrectedSpaceVectorTorque(kMotor, {400, 0.01, 50, 1, 30}), 0);
    EXPECT_LT(CorrectedSpaceVectorTorque(kMotor, {400, 0.0101, 50, 1, 30}), -1);
}

TEST(CorrectedSpaceVectorTorque, AnAngleOfExactlyZeroLeavesTheFrictionAlone)
{
    EXPECT_EQ(CorrectedSpaceVectorTorque(kMotor, {400, 30, 50, 20000, 0}), -1.5);
}

TEST(SpaceVector, OfASample)
{
    const LoadEstimate estimate = EstimateBySpaceVector(kMotor, {400, 32.85, 50, 19000, 30});
    ExpectClose(estimate.M, 120.130609099932565051986);
    ExpectClose(estimate.n, 1463.397705039864296585722);
    ExpectClose(estimate.Pmech, 18409.613324668244591402345);
    ExpectClose(estimate.eta, 0.968927017087802346915);
}

TEST(SpaceVector, TheNoLoadPowerIsTheFloorOfTheEfficiencyWithoutTheSpeed)
{
    EXPECT_GT(EstimateBySpaceVector(kMotor, {400, 32.85, 50, 1000.01, 30}).eta, 0);
    EXPECT_EQ(EstimateBySpaceVector(kMotor, {400, 32.85, 50, 1000, 30}).eta, 0);
}

TEST(SpaceVector, WithoutFrequencyEverythingIsZeroTheFrictionToo)
{
    const LoadEstimate estimate = EstimateBySpaceVector(kMotor, {400, 32.85, 0, 19000, 30});
    EXPECT_EQ(estimate.n, 0);
    EXPECT_EQ(estimate.M, 0);
    EXPECT_EQ(estimate.Pmech, 0);
    EXPECT_EQ(estimate.eta, 0);
}

} // namespace
} // namespace korvanel::test
