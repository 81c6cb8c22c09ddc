// The row operations on the open project: they move the row buffers of the block to and from the value tables.
// Each shows its own message when it fails and counts the failure in `iFileErrors`. Callers bracket them with
// OpenDbGuarded and CloseDbGuarded; what is prepared for a row is kept until the closing.
#pragma once

#include "core/ValueRow.h"

#include <QString>
#include <QtGlobal>

#include <functional>

namespace korvanel {

/// Makes the join of measured and computed sets the current write recordset.
void OpenJoinedRecordset();

/// Makes the simulated sets the current write recordset.
void OpenSimulatedRecordset();

/// Adds `MeasuredRow` under its set number and the present moment: when this returns true the row is on disk, or kept
/// because another program uses the file (see `KeptRows`). The load of a valid machine is estimated, and the energies
/// by integration or the relative registers are formed on the way. Without a valid machine the columns of the load
/// estimation stay null. `beside` writes what belongs to the row in the same transaction. Throws ArithmeticFault.
bool AppendMeasuredRow(const std::function<void()>& beside = {});

/// How many measured rows wait for the file.
qint32 KeptRows();

/// Stores the rows that wait, in order, as far as the file takes them now. False after a failure other than a file in
/// use.
bool StoreKeptRows();

/// Adds `CurrentRow` as a set made by hand: marked as corrected, without a time stamp, energies 0.
bool AppendRow(qint32 set);

/// Changes a set from `CurrentRow`. Phase columns are never changed but for the voltages of the voltage measurement.
/// Clears `bEvaluated`.
bool UpdateRow(qint32 set);

/// Fills `CurrentRow`, `sTimeText` and `lLastReadSet` from a set, of the project or of its scratch table. Without such
/// a set nothing changes. Fields that the configuration doesn't store keep their content. False after a failure.
bool ReadRow(qint32 set, bool fromTemp = false);

/// One set as it is shown: fields that the configuration doesn't store are 0, and the time stamp is a text for people.
struct ShownSet
{
    qint32 set;
    const tValueRow& row;
    QString timeText; ///< empty if the set has no time stamp
};

/// Hands the sets from `first` to `last` in order to `visit`, until it returns false. The buffers of the block stay as
/// they are, whoever paints beside an operation that uses them. False after a failure.
bool VisitSets(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit);

/// The same with what the second machine made of the sets; time and mark are those of the sets. There is none without
/// a simulation.
bool VisitSimulatedSets(qint32 first, qint32 last, const std::function<bool(const ShownSet& simulated)>& visit);

/// Adds `SimulatedRow`.
bool AppendSimulatedRow(qint32 set);

/// Fills `SimulatedRow` from a set.
bool ReadSimulatedRow(qint32 set);

} // namespace korvanel
