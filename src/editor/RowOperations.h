// The operations of the editor on the rows of the open project: sets are duplicated, deleted and interpolated, times
// renumbered, the interval or the method changed, a row entered. Each is one transaction with its progress: it happens
// as a whole or not at all, and can be taken back where a history is kept. A failure of the file is told and counted in
// `iFileErrors`, and false returned. What an operation can't be done on (sets that aren't there, a range without
// neighbours) it leaves alone without a word. All of them throw ArithmeticFault where the estimation of a row does,
// with all rows as they were.
#pragma once

#include <QtGlobal>

namespace korvanel {

struct EntryColumn;

/// Duplicates the `lMarkedSets` sets from `first` on. The copies stand in front of the originals and have no time
/// stamp; all that follows moves up, and the times are renumbered.
bool InsertSets(qint32 first);

/// Deletes them; all that follows moves down, and the times are renumbered.
bool DeleteSets(qint32 first);

/// Lays voltage, current, frequency and power of the marked sets from `iCurrentSet` on straight between the set before
/// and the one behind; the rest of them is computed anew, and what an instrument gives for single phases stays. Needs
/// both neighbours.
bool InterpolateSets();

/// Gives each set the time of its number: set 1 the time 0, each further one the interval more.
bool RenumberTime();

/// Replaces all sets by sets `interval` seconds apart, interpolated between those that there are: voltage, current,
/// frequency, power and angle; anything else is that of the set behind. The interval becomes that of the project. After
/// a failure the former interval stands.
bool ResampleInterval(double interval);

/// Puts a value into a column of a set, and computes what follows from it; `iCurrentSet` is that set then. Of a set
/// that isn't there nothing becomes, which is told.
bool EnterValue(qint32 set, const EntryColumn& column, double value);

/// Computes `CurrentRow` anew and stores it as `iCurrentSet`.
bool ApplyEdit();

/// Makes the first set of a recording without any.
bool MakeFirstSet();

/// Estimates all sets by another method (0 space vector, 1 power balance), which becomes that of the project.
bool ChangeMethod(int method);

/// Forms the energies of all sets anew, as an operation that can be taken back.
bool FormEnergies();

} // namespace korvanel
