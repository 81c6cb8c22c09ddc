// Both estimators against the measured load curve of a real motor; docs/maschinenmodell.md shows the same errors.
#include "core/Common.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Fixture.h"
#include "support/Machines.h"

#include <cmath>
#include <cstdio>
#include <numbers>

namespace korvanel::test {
namespace {

/// One measured point. The electrical power is the quotient of shaft power and efficiency.
struct Point
{
    double P2; ///< W at the shaft
    double I;  ///< A
    double n;  ///< rpm
    double cosphi;
    double eta;
};

/// Load curve of a motor of 18.5 kW, 400 V, delta, 50 Hz, 1462.5 rpm, 32.85 A, cos phi 0.898, as the example
/// IMC_withLosses of the Modelica Standard Library tabulates it.
constexpr Point kCurve[] = {
    {1845, 11.20, 1496, 0.327, 0.7250},  {3549, 12.27, 1493, 0.506, 0.8268},  {5325, 13.87, 1490, 0.636, 0.8698},
    {7521, 16.41, 1486, 0.741, 0.8929},  {9372, 18.78, 1482, 0.797, 0.9028},  {11010, 21.07, 1479, 0.831, 0.9064},
    {12930, 23.92, 1475, 0.857, 0.9088}, {14950, 27.05, 1471, 0.875, 0.9089}, {16360, 29.40, 1467, 0.887, 0.9070},
    {18500, 32.85, 1462, 0.896, 0.9044}, {20180, 35.92, 1458, 0.902, 0.9008}, {22170, 39.35, 1453, 0.906, 0.8972},
};
constexpr double kRatedPower = 18500;

struct Errors
{
    double power = 0;      ///< percent of the measured shaft power
    double speed = 0;      ///< rpm
    double efficiency = 0; ///< points
};

class RealMotor : public BlockTest
{
protected:
    static void Build(bool hasNoLoadData, bool hasResistance)
    {
        App().MachineI = hasNoLoadData ? MotorWithNoLoadData() : Motor();
        if (!hasResistance)
            App().MachineI.Rs.reset();
        BuildMachineModel();
    }
    static Errors ErrorsAt(const Point& point, int method)
    {
        EstimateLoad(400, point.I, 50, std::numbers::sqrt3 * 400 * point.I * point.cosphi, std::acos(point.cosphi) * 180 / std::numbers::pi, method);
        const LoadEstimate& estimate = App().Estimate;
        return {(estimate.Pmech / point.P2 - 1) * 100, estimate.n - point.n, (estimate.eta - point.eta) * 100};
    }
    /// Greatest magnitudes from a load on, as a share of the rated power.
    static Errors Greatest(int method, double leastLoad)
    {
        Errors greatest;
        for (const Point& point : kCurve) {
            if (point.P2 < leastLoad * kRatedPower * 0.99) // the first point is a tenth but for 5 W
                continue;
            const Errors errors = ErrorsAt(point, method);
            greatest.power = std::max(greatest.power, std::abs(errors.power));
            greatest.speed = std::max(greatest.speed, std::abs(errors.speed));
            greatest.efficiency = std::max(greatest.efficiency, std::abs(errors.efficiency));
        }
        return greatest;
    }
};

TEST_F(RealMotor, PowerBalanceWithNoLoadData)
{
    for (const bool hasResistance : {false, true}) {
        Build(true, hasResistance);
        ASSERT_TRUE(App().bModelValid);
        EXPECT_LE(Greatest(1, 0.10).power, 2.1);
        EXPECT_LE(Greatest(1, 0.25).power, 1);
        EXPECT_LE(Greatest(1, 0.10).speed, 2);
        EXPECT_LE(Greatest(1, 0.25).efficiency, 1);
    }
}

TEST_F(RealMotor, PrintsTheErrorsOfEveryCase)
{
    for (const int method : {1, 0})
        for (const bool hasNoLoadData : {true, false})
            for (const bool hasResistance : {true, false}) {
                Build(hasNoLoadData, hasResistance);
                std::printf("method %s, no-load data %s, resistance %s\n", method == 0 ? "V" : "P",
                            hasNoLoadData ? "yes" : "no", hasResistance ? "yes" : "no");
                for (const Point& point : kCurve) {
                    const Errors errors = ErrorsAt(point, method);
                    std::printf("| %5.0f | %+.2f | %+.2f | %+.2f |\n", point.P2, errors.power, errors.speed,
                                errors.efficiency);
                }
            }
}

} // namespace
} // namespace korvanel::test
