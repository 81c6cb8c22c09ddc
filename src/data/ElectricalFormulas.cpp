#include "data/ElectricalFormulas.h"

#include "machine/MachineFormulas.h"

#include <cmath>
#include <numbers>

namespace korvanel {

double ApparentPower(double U, double I, bool isThreePhase)
{
    return U * I * (isThreePhase ? std::numbers::sqrt3 : 1);
}

double ReactivePower(double S, double P)
{
    return std::abs(P) >= std::abs(S) ? 0 : std::sqrt(S * S - P * P);
}

double AngleOfPowerFactor(double cosPhi)
{
    constexpr double kDegreesPerRadian = 180 / std::numbers::pi;
    return std::abs(cosPhi) < 1 ? std::acos(cosPhi) * kDegreesPerRadian : 0;
}

Powers PowersOfAngle(double U, double I, double phi, bool isThreePhase)
{
    const double S = ApparentPower(U, I, isThreePhase);
    const double cosPhi = std::cos(RadiansOf(phi));
    return {.S = S, .P = S * cosPhi, .Q = S * std::sin(RadiansOf(phi)), .cosPhi = cosPhi};
}

} // namespace korvanel
