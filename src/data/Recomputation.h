// What is formed anew for all sets of the project at once: the energies from powers and times, and the estimation of
// the load after a change of machine or method.
#pragma once

#include "core/ValueRow.h"

namespace korvanel {

/// The energies up to and with a set go into its row, from its powers and time. To be called for the sets in order,
/// after `ResetEnergies`. Throws ArithmeticFault for an energy that isn't finite, DbError for a time that can't be
/// stored.
void IntegrateRow(tValueRow& row);

/// Forms the energies of all sets anew from their powers and times. All sets change or none: a failure is told, counted
/// in `iFileErrors` and takes everything back. False then.
bool RecomputeEnergies();

/// The same for an operation of which it is a part: throws DbError instead of telling it.
void IntegrateAllRows();

/// Estimates all sets anew, as after a change of machine or method, and marks every one as corrected. All sets change
/// or none. A failure of the file is told and counted in `iFileErrors`: false then. Throws ArithmeticFault.
bool RecomputeAllRows();

/// The same for an operation of which it is a part: throws DbError instead of telling it, and ArithmeticFault.
void EstimateAllRows();

} // namespace korvanel
