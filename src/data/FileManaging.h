// The row operations on the open project: they move the row buffers of the block to and from the value tables.
// Each shows its own message when it fails and counts the failure in `iFileErrors`. Callers bracket them with
// OpenDbGuarded and CloseDbGuarded; what is prepared for a row is kept until the closing.
#pragma once

#include <QtGlobal>

namespace korvanel {

/// Makes the join of measured and computed sets the current write recordset.
void OpenJoinedRecordset();

/// Makes the simulated sets the current write recordset.
void OpenSimulatedRecordset();

/// Adds `MeasuredRow` under its set number and the present moment: the row is on disk when this returns true.
/// The load of a valid machine is estimated, and the energies by integration or the relative registers are formed on
/// the way. Without a valid machine the columns of the load estimation stay null. Throws ArithmeticFault.
bool AppendMeasuredRow();

/// Adds `CurrentRow` as a set made by hand: marked as corrected, without a time stamp, energies 0.
bool AppendRow(qint32 set);

/// Changes a set from `CurrentRow`. Phase columns are never changed but for the voltages of the voltage measurement.
/// Clears `bEvaluated`.
bool UpdateRow(qint32 set);

/// Fills `CurrentRow`, `sTimeText` and `lLastReadSet` from a set, of the project or of its scratch table. Without such
/// a set nothing changes. Fields that the configuration doesn't store keep their content. False after a failure.
bool ReadRow(qint32 set, bool fromTemp = false);

/// Adds `SimulatedRow`.
bool AppendSimulatedRow(qint32 set);

/// Fills `SimulatedRow` from a set.
bool ReadSimulatedRow(qint32 set);

} // namespace korvanel
