#include "machine/Algorithms_ASM_RZM.h"

#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/MachineFormulas.h"

#include <cmath>

namespace korvanel {

double SpaceVectorTorque(double U, double I, double f, double phi, int polePairs, double Rs,
                         StatorConnection connection)
{
    if (phi == 0 || I == 0 || f == 0 || Rs == 0)
        return 0;
    const bool isStar = connection == StatorConnection::Star;
    const double u = std::numbers::sqrt2 * U / (isStar ? std::numbers::sqrt3 : 1);
    const double i = std::numbers::sqrt2 * I / (isStar ? 1 : std::numbers::sqrt3);
    const double ix = i * std::cos(RadiansOf(phi));
    const double iy = i * std::sin(RadiansOf(phi));
    const double omega = 2 * std::numbers::pi * f;
    const double psiX = (u - ix * Rs) / omega;
    const double psiY = iy * Rs / omega;
    const double psi = std::sqrt(psiX * psiX + psiY * psiY);
    const double theta = DegreesOf(std::atan(psiX / psiY));
    const double iq = i * std::sin(RadiansOf(theta - phi));
    return 1.5 * psi * iq * polePairs;
}

double RzmFactor(const EstimationConstants& machine, double P)
{
    constexpr double kMotor = 0.95;
    constexpr double kGenerator = 1.05;
    if (machine.isFactorFixed)
        return machine.factor;
    return P > 0 ? kMotor : kGenerator;
}

double CorrectedSpaceVectorTorque(const EstimationConstants& machine, const LoadSample& sample)
{
    constexpr double kLeastCurrent = 0.01;
    const double torque = SpaceVectorTorque(sample.U, sample.I, sample.f, sample.phi, machine.rotor.polePairs,
                                            machine.resistance, machine.connection);
    const double friction = sample.I > kLeastCurrent ? machine.friction : 0;
    return (torque - friction) * RzmFactor(machine, sample.P);
}

LoadEstimate EstimateBySpaceVector(const EstimationConstants& machine, const LoadSample& sample)
{
    const auto& [U, I, f, P, phi] = sample;
    if (f == 0)
        return {};
    // The no-load power is only the floor of the efficiency here.
    const double noLoadPower = NoLoadPowerAt(machine.noLoadPower, U, machine.ratedU, f, machine.ratedF);
    if (!std::isfinite(noLoadPower))
        return kNoEstimate;
    LoadEstimate estimate;
    estimate.M = CorrectedSpaceVectorTorque(machine, sample);
    estimate.n = SpeedFromTorque(machine.rotor, estimate.M, U, f);
    estimate.Pmech = ShaftPower(estimate.M, estimate.n);
    estimate.eta = Efficiency(estimate.Pmech, P, noLoadPower);
    return estimate;
}

} // namespace korvanel
