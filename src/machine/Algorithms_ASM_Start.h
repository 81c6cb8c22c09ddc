// The model of the measured asynchronous machine: built step by step from what is known of it, and used for each
// sample. The formulas stand in `Algorithms_ASM_Leistung` (power balance, law of torque and speed),
// `Algorithms_ASM_RZM` (space vector torque) and `MachineFormulas`; here they take their inputs from the block and put
// their results there.
#pragma once

#include "core/Machine.h"

#include <QtGlobal>

namespace korvanel {

/// Rebuilds status and model of Motor/Generator I. The first step that finds an error tells it and ends the build;
/// `bModelValid` keeps its former value then. A result that is not finite ends in the general error report and leaves
/// the former model.
void BuildMachineModel();

/// Runs one numbered step with `ModelErrors` set to 0 first. Numbers without a step set `ModelErrors` to 1.
void ModelStep(int code);

/// Estimates speed, torque, shaft power and efficiency of a sample: U in V, I in A, f in Hz, P in W, phi in degrees.
/// Method 0 is the space vector method, 1 the power balance. The result stands in `Estimate` of the block.
void EstimateLoad(double U, double I, double f, double P, double phi, int method);

/// Whether the methods can be used with what is known: 0 needs the connection, 1 the rating data.
bool IsMethodUsable(int method);

/// Changes `iCalcMethod` to the other method if its own can't be used and the other can.
void AdjustCalcMethod();

} // namespace korvanel
