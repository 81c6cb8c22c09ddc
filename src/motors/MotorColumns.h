// The columns of the table `Motor`, which the motor database and every project with a machine hold. Creating, reading,
// writing and comparing go by this one table; a new column is one line in it and a member of the record.
#pragma once

#include "core/Machine.h"
#include "core/TableDb.h"

#include <span>
#include <string>
#include <variant>

namespace korvanel {

inline constexpr const char* kMotorTable = "Motor";

/// Marks a file as a motor database; stands in its header, as that of projects does.
inline constexpr int kMotorApplicationId = 0x4B564D44;
inline constexpr int kMotorSchemaVersion = 1;

/// A member of the record; its type decides on that of the column.
using MotorMember = std::variant<std::optional<qint32> MachineRecord::*, QString MachineRecord::*,
                                 qint16 MachineRecord::*, std::optional<double> MachineRecord::*,
                                 std::optional<QString> MachineRecord::*, bool MachineRecord::*>;

struct MotorColumn
{
    const char* name;
    MotorMember member;
    double factor = 1; ///< from the unit of the table to that of the record
    int since = 1;     ///< version of the schema that brought it; a table from before is read without it
};

/// All columns in the order of the table; the first one is the key.
std::span<const MotorColumn> MotorColumns();

/// The columns without the key.
std::span<const MotorColumn> MotorDataColumns();

/// Statement that creates the empty table.
QString CreateMotorStatement();

/// Names of the columns, each in brackets, joined with commas.
std::string MotorColumnNames(std::span<const MotorColumn> columns);

/// The same for reading a table that may be older than the newest columns: Null stands for one that it lacks, which is
/// "not known" to the record.
std::string MotorReadNames(TableDb& db, std::span<const MotorColumn> columns);

/// Adds the columns that came after the first version to a table that lacks them. Throws DbError.
void AddLaterMotorColumns(TableDb& db, std::span<const MotorColumn> columns);

/// Takes a value of a row into the record. False, with the record as it was, for a value that is of another type, not
/// finite, outside the range of the member, or longer than any box shows. A Null is "not known"; where the record can't
/// say so it is 0, an empty text or false.
bool TakeValue(const SQLite::Column& value, const MotorColumn& column, MachineRecord& record);

/// Binds the record's value in the unit of the table; what isn't known, or is an empty text in its place, is Null.
/// Throws DbError for a number that is not finite.
void BindValue(SQLite::Statement& statement, int position, const MotorColumn& column, const MachineRecord& record);

/// Condition that a row holds the record's value, with one place for the factor where there is one, and one for the
/// value. It is never true where either of the two is Null.
std::string ComparisonOf(TableDb& db, const MotorColumn& column);

/// Binds the places of `ComparisonOf` from `position` on; returns the position behind them.
int BindComparison(TableDb& db, SQLite::Statement& statement, int position, const MotorColumn& column,
                   const MachineRecord& record);

} // namespace korvanel
