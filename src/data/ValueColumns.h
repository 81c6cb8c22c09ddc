// The columns of the value tables: which table holds a quantity in which net configuration, under which name, and where
// it stands in the row. Creating, appending, updating and reading all go by this one table; a new column is one line.
#pragma once

#include "core/ValueRow.h"

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

/// Mark of a set that is not as it was measured.
inline constexpr quint8 kCorrected = 255;

enum class ValueTable
{
    Sampled,
    Computed,
    Simulated
};

/// Net configurations as bits: bit n is configuration n.
using ConfigMask = quint8;

struct ValueColumn
{
    const char* name;
    ColumnType type = ColumnType::Real;
    double& (*field)(tValueRow&) = nullptr; ///< of the types Real and Whole
    ConfigMask sampled = 0;                 ///< configurations in which `SampledValues` has the column
    ConfigMask computed = 0;                ///< configurations in which `ComputedValues` has it
    ConfigMask appended = 0;                ///< configurations in which a row made by hand writes it
    ConfigMask updated = 0;                 ///< configurations in which a change of a row writes it
    bool isEstimate = false;                ///< result of the load estimation; null in a set without one
    int simulatedPosition = 0;              ///< place within `SimulatedValues`, from 1; 0: none
};

std::span<const ValueColumn> ValueColumns();

constexpr bool IsIn(ConfigMask mask, int netConf)
{
    return (mask >> netConf & 1) != 0;
}

const char* TableName(ValueTable table);

/// Columns of one table in a net configuration, in the order of creation.
std::vector<const ValueColumn*> ColumnsOf(ValueTable table, int netConf);

/// Statement that creates a table for a net configuration.
QString CreateStatement(ValueTable table, int netConf);

/// "SampledValues INNER JOIN ComputedValues ON equal sets".
extern const char* const kMeasuredJoin;
/// "SampledValues INNER JOIN SimulatedValues ON equal sets".
extern const char* const kSimulatedJoin;

/// Qualified name, such as SampledValues.[U sum]. A column that neither table has in this configuration is named as
/// one of `ComputedValues`, so that the engine refuses it.
std::string QualifiedName(const ValueColumn& column, int netConf);

} // namespace korvanel
