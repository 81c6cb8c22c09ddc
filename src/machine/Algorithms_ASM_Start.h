// The model of the measured asynchronous machine: built step by step from what is known of it, and used for each
// sample. The formulas stand in `Algorithms_ASM_Leistung` (power balance, law of torque and speed),
// `Algorithms_ASM_RZM` (space vector torque) and `MachineFormulas`, the steps in `ModelSteps`; here they take their
// inputs from the block and put their results there.
#pragma once

#include "core/Machine.h"

#include <QString>

#include <stdexcept>

namespace korvanel {

/// A calculation has yielded no finite number. It ends the running operation in the general error report.
class ArithmeticFault : public std::runtime_error
{
public:
    ArithmeticFault();
};

/// Text of a message about the machine's data, by its number from 1 to 8; empty for any other number.
QString ModelMessages(int number);

/// Rebuilds status and model of Motor/Generator I and clears `bEvaluated`. The first step that finds an error tells it
/// and ends the build; `bModelValid` keeps its former value then, and what the steps have found so far stays. Throws
/// ArithmeticFault for a result that is not finite; status, record and model are those from before then.
void BuildMachineModel();

/// Runs one numbered step with `ModelErrors` set to 0 first: 1 to 8 of the build, 10 and 20 for the present sample.
/// Numbers without a step set `ModelErrors` to 1. Throws ArithmeticFault, and nothing has changed then.
void ModelStep(int code);

/// Estimates speed, torque, shaft power and efficiency of a sample: U in V, I in A, f in Hz, P in W, phi in degrees.
/// Method 0 is the space vector method, 1 the power balance. The sample is kept in `Sample` of the block, the result
/// in `Estimate`. Throws ArithmeticFault.
void EstimateLoad(double U, double I, double f, double P, double phi, int method);

/// The estimate, if it is finite. Throws ArithmeticFault.
const LoadEstimate& RequireFinite(const LoadEstimate& estimate);

/// Whether the methods can be used with what is known: 0 needs the connection, 1 the rating data.
bool IsMethodUsable(int method);

/// Name of a method with its letter behind it: "Raumvektor (V)".
QString MethodName(int method);

/// Changes `iCalcMethod` to the other method if its own can't be used and the other can. The project is dirty then.
void AdjustCalcMethod();

} // namespace korvanel
