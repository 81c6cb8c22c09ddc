// The measured load cycle on Motor/Generator II: the rows of `SimulatedValues`, and their evaluation. Each set keeps
// the torque that was estimated for the measured machine, and its voltage and frequency.
#pragma once

namespace korvanel {

/// Computes the working values of Motor/Generator II from its record into its model: electrical power (its magnitude),
/// stall torque, synchronous speed, slip, no-load powers, load-loss constant. Pole pairs and torque are those of the
/// record. The first step that finds an error tells it, counts it in `ModelErrors` and ends: false then.
bool PrepareMachine2();

/// Simulates one set of torque M (Nm), voltage U (V) and frequency f (Hz) into `SimulatedRow`. Throws ArithmeticFault.
void SimulateRow(double M, double U, double f);

/// Fills `SimulatedValues` anew from all sets, in one transaction with its progress. A machine that can't be prepared
/// leaves no rows. A failure of the file is told, and what was there before stays. False in both cases. Throws
/// ArithmeticFault, with the rows as before.
bool RunSimulation();

/// Evaluates `SimulatedValues` with the rated data of Motor/Generator II. Without rows of a recording that has sets, or
/// after a failure, which is told, the results are empty: false then. Throws ArithmeticFault, and std::invalid_argument
/// for an interval that is no time.
bool EvaluateSimulation();

/// Brings the results of the second machine up to date where the project has one: runs it over the sets if its rows are
/// not those of the recording, and evaluates them if that has not been done since. False after a failure.
bool ProvideSimulation();

} // namespace korvanel
