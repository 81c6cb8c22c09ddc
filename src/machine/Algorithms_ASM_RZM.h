// The space vector torque of an asynchronous machine: the amplitude of the stator flux, from voltage, current and phase
// angle less the drop at the stator resistance, times the current across it; and the load estimation that builds on it.
#pragma once

#include "machine/EstimationConstants.h"

namespace korvanel {

/// Torque in Nm in the air gap, steady state of a symmetric supply: M = 3/2 psi i_q p. Line voltage `U` (V), line
/// current `I` (A), `f` in Hz, phase angle `phi` in degrees, stator resistance `Rs` (Ohm) of a phase. 0 if phi, I, f or
/// Rs is 0; that of an angle of exactly 0 is no physical value.
double SpaceVectorTorque(double U, double I, double f, double phi, int polePairs, double Rs,
                         StatorConnection connection);

/// Factor by which the space vector torque is corrected for a sample of power `P` (W): that of the model, unless
/// nothing is known that the friction torque could come from; then what a machine keeps or takes of its torque on
/// average.
double RzmFactor(const EstimationConstants& machine, double P);

/// Torque in Nm at the shaft: the space vector torque less the friction torque, corrected. Below a current of 0.01 A
/// the machine is off and has no friction.
double CorrectedSpaceVectorTorque(const EstimationConstants& machine, const LoadSample& sample);

/// Estimates a sample by the space vector method. Without frequency everything is 0.
LoadEstimate EstimateBySpaceVector(const EstimationConstants& machine, const LoadSample& sample);

} // namespace korvanel
