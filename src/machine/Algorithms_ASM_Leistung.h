// The power balance of an asynchronous machine: the power drawn is the no-load power, the power at the shaft and the
// load losses, which go with the square of the torque; speed falls in a straight line with torque.
#pragma once

#include "machine/EstimationConstants.h"

namespace korvanel {

/// No-load power `P` (W), known at voltage `Ub` and frequency `fb`, carried to `Ua` and `fa`: P (Ua/Ub)^2
/// (fa/fb)^(Ua/Ub). The exponent of the frequency ratio is the voltage ratio itself; empirical. 0 if `Ub` or `fb` is 0.
double NoLoadPowerAt(double P, double Ua, double Ub, double fa, double fb);

/// Rotor constant of a machine with rated values `U` (V), `f` (Hz), `n` (rpm) and `M` (Nm): the slip frequency for each
/// unit of torque, scaled by (U/f)^2. It defines the straight line of `SpeedFromTorque`. 0 without pole pairs,
/// frequency or torque.
double RotorConstant(double U, double f, double n, double M, int polePairs);

/// Speed in rpm at torque `M` (Nm), voltage `U` (V) and frequency `f` (Hz): the synchronous speed less a slip in
/// proportion to the torque, as for small slips. 0 without voltage or pole pairs.
double SpeedFromTorque(const RotorLaw& rotor, double M, double U, double f);

/// Power in W at the shaft: torque (Nm) times angular speed (`n` in rpm).
double ShaftPower(double M, double n);

/// Efficiency, 0 to 1: output over input, whichever of the two (W) that is. 0 without power, for a motor that draws no
/// more than `floorPower`, and for a machine that is driven and delivers nothing.
double Efficiency(double Pmech, double Pel, double floorPower);

/// Constant of the load losses in W/Nm2: what the rated losses leave beside the no-load power, which goes with the cube
/// of `speedRatio` (rated to synchronous speed), over the square of the torque. 0 without torque, and negative for a
/// no-load power that is greater than the losses.
double LoadLossConstant(double Pel, double Pmech, double noLoadPower, double speedRatio, double M);

/// Torque in Nm at which no-load power, shaft power and load losses add up to `P` (W) at `U` (V) and `f` (Hz):
/// of the two roots of the quadratic equation the one of smaller magnitude. 0 without a real root.
double TorqueFromPower(const EstimationConstants& machine, double U, double f, double P, double noLoadPower);

/// Estimates a sample by the power balance. Two passes: the no-load power is first that of the supply, then also that
/// of the speed which the first pass has found. Without frequency everything is 0.
LoadEstimate EstimateByPowerBalance(const EstimationConstants& machine, const LoadSample& sample);

} // namespace korvanel
