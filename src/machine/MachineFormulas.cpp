#include "machine/MachineFormulas.h"

#include "core/Units.h"

#include <cmath>
#include <iterator>
#include <limits>
#include <span>

namespace korvanel {

namespace {

/// A fit of the no-load power over the rated power in W: coefficients from the highest power of x down to the constant.
struct NoLoadFit
{
    double lowest;
    double highest;
    double coefficients[7];
};

/// By pole pairs, from 1.
constexpr NoLoadFit kNoLoadFits[] = {
    {180, 110000, {0, -8e-22, 2e-16, -1e-11, 2e-8, 0.0531, 117.38}},
    {100, 132000, {0, 2e-21, -7e-16, 9e-11, -5e-6, 0.1156, 97.811}},
    {90, 110000, {-1e-25, 5e-20, -7e-15, 4e-10, -1e-5, 0.1836, 81.774}},
    {90, 110000, {0, 0, 2e-16, -2e-11, 6e-8, 0.0624, 202.26}},
};

/// Fit of the stator resistance over the rated power x in kW: coefficients of 1/x, 1/x2, ... and a constant.
constexpr double kResistanceFit[] = {6.0, 4.4, -0.9, 0.083, -0.00235};
constexpr double kResistanceConstant = -0.01;

struct RiseOfClass
{
    char16_t letter;
    double rise;
};
constexpr RiseOfClass kRises[] = {{u'A', 60}, {u'B', 80}, {u'F', 105}, {u'H', 125}};

double Polynomial(std::span<const double> coefficients, double x)
{
    double sum = 0;
    for (const double coefficient : coefficients)
        sum = sum * x + coefficient;
    return sum;
}

} // namespace

double RatedTorque(double Pmech, double n)
{
    return n == 0 ? 0 : 60 * Pmech / (2 * std::numbers::pi * n);
}

double ElectricalPower(double U, double I, double cosphi)
{
    return std::numbers::sqrt3 * U * I * cosphi;
}

double PolePairsFromSpeed(double n, double f, double Pmech)
{
    const double pairs = std::floor(60 * f / n);
    return Pmech < 0 ? pairs + 1 : pairs;
}

double SynchronousSpeed(double f, int polePairs)
{
    return polePairs == 0 ? kNearlyZero : 60 * f / polePairs;
}

double Slip(double synchronousSpeed, double n)
{
    return (synchronousSpeed - n) / synchronousSpeed;
}

double PhaseAngle(double cosphi)
{
    if (!(std::abs(cosphi) < 1))
        return std::numeric_limits<double>::quiet_NaN();
    return DegreesOf(std::atan(-cosphi / std::sqrt(1 - cosphi * cosphi)) + 2 * std::atan(1.0));
}

double NoLoadPowerFactor(double Po, double Uo, double Io)
{
    return Po / (std::numbers::sqrt3 * Uo * Io);
}

double NoLoadPowerByRegression(double Pmech)
{
    return 169 * std::pow(std::abs(Pmech) / kPerKilo, 0.75);
}

double NoLoadPowerByPolynomial(double Pmech, int polePairs)
{
    if (polePairs < 1 || polePairs > static_cast<int>(std::size(kNoLoadFits)))
        return 0;
    const NoLoadFit& fit = kNoLoadFits[polePairs - 1];
    const double x = std::abs(Pmech);
    return x >= fit.lowest && x <= fit.highest ? Polynomial(fit.coefficients, x) : 0;
}

double StatorResistanceByPolynomial(double Pmech)
{
    if (Pmech == 0)
        return 0;
    const double x = std::abs(Pmech) / kPerKilo;
    double sum = 0;
    double power = 1;
    for (const double coefficient : kResistanceFit) {
        power *= x;
        sum += coefficient / power;
    }
    sum += kResistanceConstant;
    return sum == 0 ? kNearlyZero : sum;
}

double StallSlip(double ratedSlip, double stallRatio)
{
    return ratedSlip * (stallRatio + std::sqrt(stallRatio * stallRatio - 1));
}

double TemperatureRise(std::u16string_view insulationClass)
{
    for (const RiseOfClass& entry : kRises)
        if (insulationClass.size() == 1 && insulationClass.front() == entry.letter)
            return entry.rise;
    return 0;
}

double ThermalTimeConstant(double rise, double mass, double eta, double Pmech)
{
    constexpr double kSpecificHeat = 445; // J/(kg K)
    if (eta == 0 || Pmech == 0)
        return 0;
    return rise * mass * kSpecificHeat / ((1 - eta) * std::abs(Pmech) / eta);
}

} // namespace korvanel
