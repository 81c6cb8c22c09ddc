// The columns of the value tables: which table holds a quantity in which net configuration, under which name, and where
// it stands in the row. Creating, appending, updating and reading all go by this one table; a new column is one line.
#pragma once

#include "core/NetConfigurations.h"
#include "core/RowFields.h"

#include <QString>
#include <QtGlobal>

#include <span>
#include <string>
#include <vector>

namespace korvanel {

enum class ColumnType
{
    Key,      ///< number of the set
    DateTime, ///< moment at which the set was written
    Real,     ///< a double of the row
    Whole,    ///< a double of the row, stored as the nearest whole number, a half going to the even one
    Mark,     ///< mark of correction, 0 or 255
    Letter,   ///< letter of the estimation method
};

/// Of the columns that the numbering of the quantities doesn't know.
inline constexpr int kNoQuantity = -100;

/// Mark of a set that is not as it was measured.
inline constexpr quint8 kCorrected = 255;

enum class ValueTable
{
    Sampled,
    Computed,
    Simulated
};

struct ValueColumn
{
    const char* name;
    int quantity = kNoQuantity; ///< that it holds, or the number of a column without one
    ColumnType type = ColumnType::Real;
    RowField field = nullptr;  ///< of the types Real and Whole
    ConfigMask sampled = 0;    ///< configurations in which `SampledValues` has the column
    ConfigMask computed = 0;   ///< configurations in which `ComputedValues` has it
    ConfigMask appended = 0;   ///< configurations in which a row made by hand writes it
    ConfigMask updated = 0;    ///< configurations in which a change of a row writes it
    bool isEstimate = false;   ///< result of the load estimation; null in a set without one
    int simulatedPosition = 0; ///< place within `SimulatedValues`, from 1; 0: none
    int since = 1;             ///< version of the schema of the project file that brought it
};

std::span<const ValueColumn> ValueColumns();

const char* TableName(ValueTable table);

/// Whether a table has a column in a net configuration.
bool IsHeld(const ValueColumn& column, ValueTable table, int netConf);

/// Columns of one table in a net configuration, in the order of creation.
std::vector<const ValueColumn*> ColumnsOf(ValueTable table, int netConf);

/// Statement that adds a column to a table that was made without it.
QString AddStatement(ValueTable table, const ValueColumn& column);

/// Statement that creates a table for a net configuration.
QString CreateStatement(ValueTable table, int netConf);

/// "SampledValues INNER JOIN ComputedValues ON equal sets".
extern const char* const kMeasuredJoin;
/// "SampledValues INNER JOIN SimulatedValues ON equal sets".
extern const char* const kSimulatedJoin;

/// Qualified name, such as SampledValues.[U sum]. A column that neither table has in this configuration is named as
/// one of `ComputedValues`, so that the engine refuses it.
std::string QualifiedName(const ValueColumn& column, int netConf);

/// Seconds as the whole-number column `t` takes them: the nearest whole number, a half going to the even one. Throws
/// DbError for what no whole number can hold.
qint64 WholeSeconds(double seconds);

} // namespace korvanel
