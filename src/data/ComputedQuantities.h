// Quantities that are not read but formed: apparent and reactive power, power factor and phase angle from voltage,
// current and active power; energies by integration where the instrument has no registers, and relative to the first
// set where it has. And the row operation that everything goes through which changes a row: derived quantities, then
// the load estimation of the machine.
#pragma once

#include "core/ValueRow.h"

namespace korvanel {

/// What follows from voltage, current, active power and the sign of the phase angle.
struct DerivedQuantities
{
    double S = 0;      ///< VA
    double Q = 0;      ///< var, negative where the current leads
    double cosPhi = 0; ///< negative for a generator
    double phi = 0;    ///< degrees; magnitude above 90 for a generator, negative where the current leads
};

/// Power triangle of sinusoidal quantities: S = k U I, Q^2 = S^2 - P^2, cos phi = P / S. U in volts, I in amperes, P in
/// watts with its sign, phi in degrees for its sign alone. `isThreePhase` takes k = sqrt(3), else k = 1.
/// Without apparent power the angle is 0 before the signs; an active power above the apparent one, as rounding in an
/// instrument gives it, yields no reactive power, a factor above 1 and an angle of 0.
DerivedQuantities DeriveQuantities(double U, double I, double P, double phi, bool isThreePhase);

/// The running energies, Ws and vars. `WpMinus` is negative or 0.
struct Energies
{
    double Wp = 0;
    double WpPlus = 0;
    double WpMinus = 0;
    double Wq = 0;
};

/// The energies after one more step: energy drawn counts as plus, energy fed back as minus.
Energies AfterStep(Energies energies, double stepWp, double stepWq);

/// `DeriveQuantities` for the net configuration of the block, with the results there. The frequency has no influence.
void DeriveFromUIP(double U, double I, double f, double P, double phi);

/// Zeroes the running energies and the time of the last step, and clears `iFileErrors`.
void ResetEnergies();

/// One step of the running energies from `MeasuredRow`, by the rectangle rule over the nominal interval; the first set
/// adds nothing. The running energies go into the row.
void StepEnergyOnline();

/// One step from power P (W) and Q (var) over the time since the last step; t in seconds.
void StepEnergyOffline(double P, double Q, double t);

/// Puts the running energies into a row.
void PutRunningEnergies(tValueRow& row);

/// Relative energies of `MeasuredRow`: its registers less those of the first set, which this routine keeps.
void FormRelativeEnergies();

/// Whether the sets of the project are estimated: a net configuration with a machine, and a valid model of it.
bool IsEstimating();

/// Estimates speed, torque, shaft power and efficiency of a row by the method of the project, with its letter. Without
/// a valid machine the row keeps what it holds. Throws ArithmeticFault; the row is as before then.
void EstimateRow(tValueRow& row);

/// The row operation on `CurrentRow`: `DeriveFromUIP` into the row if `withQuantities` is set, the estimation, and the
/// mark of correction. Throws ArithmeticFault.
void ComputeRow(bool withQuantities);

} // namespace korvanel
