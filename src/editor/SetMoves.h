// What operations on the rows are made of: sets that get other numbers, sets that are copied or deleted, and the times
// of all. Each is to be called within a transaction on the current database, and throws DbError.
#pragma once

#include "data/ValueColumns.h"

#include <array>

namespace korvanel {

/// The tables that hold the rows of a recording.
inline constexpr std::array kRowTables{ValueTable::Sampled, ValueTable::Computed};

/// Whether the recording has all of the sets.
bool AreThere(qint32 first, qint32 count);

/// Gives the sets `first` to `last` numbers that are `by` higher.
void MoveSets(qint32 first, qint32 last, qint32 by);

/// Puts copies of the sets, whose numbers are `by` higher, in front of them, without their time stamps.
void CopySets(qint32 first, qint32 count, qint32 by);

void DeleteRows(qint32 first, qint32 count);

/// Gives each set the time of its number.
void RenumberAll();

/// All columns of a table but its key and the time stamp, in brackets, each with a comma before it.
std::string ColumnsWithoutStamp(ValueTable table);

} // namespace korvanel
