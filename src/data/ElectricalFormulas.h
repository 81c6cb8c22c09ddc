// Formulas of sinusoidal quantities: plain numbers in, a number or a struct out. Voltages in volts, currents in
// amperes, powers in W, VA and var, angles in degrees. The drivers of the instruments and the computed quantities form
// what isn't measured by these.
#pragma once

namespace korvanel {

/// k U I with k = sqrt(3) for three phases (voltage between the phases, current of a conductor), else 1.
double ApparentPower(double U, double I, bool isThreePhase);

/// Magnitude of the reactive power: Q^2 = S^2 - P^2. 0 if the active power reaches the apparent one or, as rounding in
/// an instrument gives it, exceeds it.
double ReactivePower(double S, double P);

/// Phase angle, 0 to 180, of a power factor between -1 and 1; 0 for -1, 1 and beyond, which only rounding gives.
double AngleOfPowerFactor(double cosPhi);

struct Powers
{
    double S = 0;
    double P = 0;
    double Q = 0;
    double cosPhi = 0;
};

/// The powers of a voltage and a current with the phase angle between them, which is negative where the current leads.
Powers PowersOfAngle(double U, double I, double phi, bool isThreePhase);

} // namespace korvanel
