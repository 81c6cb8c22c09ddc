#include "machine/Algorithms_ASM_Leistung.h"

#include "machine/MachineFormulas.h"

#include <cmath>

namespace korvanel {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

double Square(double x)
{
    return x * x;
}

double Cube(double x)
{
    return x * x * x;
}

} // namespace

double NoLoadPowerAt(double P, double Ua, double Ub, double fa, double fb)
{
    if (Ub == 0 || fb == 0)
        return 0;
    const double voltageRatio = Ua / Ub;
    return P * Square(voltageRatio) * std::pow(fa / fb, voltageRatio);
}

double RotorConstant(double U, double f, double n, double M, int polePairs)
{
    if (polePairs == 0 || f == 0 || M == 0)
        return 0;
    const double p = polePairs;
    return Square(U / f) * Square(p) * (f / p - n / 60) / M;
}

double SpeedFromTorque(const RotorLaw& rotor, double M, double U, double f)
{
    if (U == 0 || rotor.polePairs == 0)
        return 0;
    const double p = rotor.polePairs;
    return 60 * (f / p - rotor.R2 * M * Square(f) / Square(p * U));
}

double ShaftPower(double M, double n)
{
    return kTwoPi * M * n / 60;
}

double Efficiency(double Pmech, double Pel, double floorPower)
{
    if (Pel == 0 || Pmech == 0)
        return 0;
    if (Pmech >= 0)
        return Pel > floorPower ? Pmech / Pel : 0;
    return Pel < 0 ? Pel / Pmech : 0;
}

double LoadLossConstant(double Pel, double Pmech, double noLoadPower, double speedRatio, double M)
{
    return M == 0 ? 0 : (Pel - Pmech - noLoadPower * Cube(speedRatio)) / Square(M);
}

double TorqueFromPower(const EstimationConstants& machine, double U, double f, double P, double noLoadPower)
{
    const double p = machine.rotor.polePairs;
    if (U == 0 || p == 0)
        return 0;
    const double A = machine.loadLoss - kTwoPi * machine.rotor.R2 * Square(f / (p * U));
    if (A == 0)
        return 0;
    const double B = kTwoPi * f / p;
    const double D = Square(B / (2 * A)) - (noLoadPower - P) / A;
    if (D < 0)
        return 0;
    const double root1 = -B / A / 2 + std::sqrt(D);
    const double root2 = -B / A / 2 - std::sqrt(D);
    return std::abs(root1) < std::abs(root2) ? root1 : root2;
}

LoadEstimate EstimateByPowerBalance(const EstimationConstants& machine, const LoadSample& sample)
{
    const auto& [U, I, f, P, phi] = sample;
    if (f == 0)
        return {};
    double noLoadPower = NoLoadPowerAt(machine.noLoadPower, U, machine.ratedU, f, machine.ratedF);
    if (!std::isfinite(noLoadPower))
        return kNoEstimate;
    LoadEstimate estimate;
    estimate.M = TorqueFromPower(machine, U, f, P, noLoadPower);
    estimate.n = SpeedFromTorque(machine.rotor, estimate.M, U, f);
    // Iron and friction losses go with the cube of the speed.
    noLoadPower *= Cube(estimate.n / SynchronousSpeed(f, machine.rotor.polePairs));
    estimate.M = TorqueFromPower(machine, U, f, P, noLoadPower);
    estimate.n = SpeedFromTorque(machine.rotor, estimate.M, U, f);
    estimate.Pmech = ShaftPower(estimate.M, estimate.n);
    estimate.eta = Efficiency(estimate.Pmech, P, noLoadPower);
    return estimate;
}

} // namespace korvanel
