// Energies that are not read but formed: by integration where the instrument has no registers, and relative to the
// first set where it has.
#pragma once

namespace korvanel {

/// Net configurations whose energies are the program's own: 0, 1 and 2.
constexpr bool IntegratesEnergy(int netConf)
{
    return netConf >= 0 && netConf <= 2;
}

/// Net configurations whose energies come from registers of the instrument: 3, 4 and 5.
constexpr bool HasRegisters(int netConf)
{
    return netConf >= 3 && netConf <= 5;
}

/// Zeroes the running energies and the time of the last step, and clears `iFileErrors`.
void ResetEnergies();

/// One step of the running energies from `MeasuredRow`, by the rectangle rule over the nominal interval; the first set
/// adds nothing. The running energies go into the row.
void StepEnergyOnline();

/// One step from power P (W) and Q (var) over the time since the last step; t in seconds.
void StepEnergyOffline(double P, double Q, double t);

/// Relative energies of `MeasuredRow`: its registers less those of the first set, which this routine keeps.
void FormRelativeEnergies();

} // namespace korvanel
