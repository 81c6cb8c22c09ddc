// Formulas that turn a rating plate and a no-load test into the parameters of the machine model, and the fits that
// stand in for what nobody knows of a machine. Plain numbers in, a number out; which of them apply to a machine is
// decided in `ModelSteps`.
#pragma once

#include <numbers>
#include <string_view>

namespace korvanel {

/// What stands in for a resistance or a speed that is not known or zero, so that it can be divided by.
inline constexpr double kNearlyZero = 0.000001;

inline constexpr int kMostPolePairs = 10;

constexpr double DegreesOf(double radians)
{
    return radians * 180 / std::numbers::pi;
}

constexpr double RadiansOf(double degrees)
{
    return degrees * std::numbers::pi / 180;
}

/// Torque in Nm that carries `Pmech` (W) at `n` (rpm): M = P / omega. A speed of 0 yields 0.
double RatedTorque(double Pmech, double n);

/// Active power of a symmetric three-phase load, W: P = sqrt(3) U I cos phi, with line voltage (V) and line current
/// (A).
double ElectricalPower(double U, double I, double cosphi);

/// Pole pairs of the machine whose rated speed `n` (rpm) lies next to a synchronous speed of `f` (Hz): below it for a
/// motor, above for a generator (`Pmech` negative). The result is a whole number that may lie outside the range of
/// any machine; infinite or not a number if `n` is 0.
double PolePairsFromSpeed(double n, double f, double Pmech);

/// Speed of the rotating field, rpm: 60 f / p. Without pole pairs `kNearlyZero`.
double SynchronousSpeed(double f, int polePairs);

/// Slip against the synchronous speed; definition. `synchronousSpeed` is not 0.
double Slip(double synchronousSpeed, double n);

/// Phase angle in degrees, 0 to 180, of a power factor between -1 and 1. Not a number for -1, 1 and beyond, which no
/// induction machine has.
double PhaseAngle(double cosphi);

/// Power factor of the no-load test: P / (sqrt(3) U I). The divisors are not 0.
double NoLoadPowerFactor(double Po, double Uo, double Io);

/// No-load power in W of an average machine of rated power `Pmech` (W); regression over catalogue machines.
double NoLoadPowerByRegression(double Pmech);

/// No-load power in W of an average machine of rated power `Pmech` (W) by fits for 1 to 4 pole pairs. 0 outside the
/// range of powers that a fit covers, and for other pole pairs.
double NoLoadPowerByPolynomial(double Pmech, int polePairs);

/// Stator resistance in Ohm of an average machine of rated power `Pmech` (W); fit. 0 for a power of 0; a fit that
/// happens to give exactly 0 yields `kNearlyZero`.
double StatorResistanceByPolynomial(double Pmech);

/// Slip at stall from the rated slip and the ratio of stall to rated torque: Kloss's relation. Not a number for a ratio
/// between -1 and 1.
double StallSlip(double ratedSlip, double stallRatio);

/// Temperature rise in K that an insulation class ("A", "B", "F", "H") allows; 0 for any other text.
double TemperatureRise(std::u16string_view insulationClass);

/// Thermal time constant in s of a body of `mass` (kg) with the specific heat of a machine, which its rated losses
/// heat by `rise` (K): stored heat over loss power. 0 without efficiency or power; infinite without losses.
double ThermalTimeConstant(double rise, double mass, double eta, double Pmech);

} // namespace korvanel
