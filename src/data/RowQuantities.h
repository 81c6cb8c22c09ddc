// The quantities of a row by their number, and their texts as grids show them.
#pragma once

#include "core/QuantityTable.h"
#include "core/ValueRow.h"

#include <QString>

#include <vector>

namespace korvanel {

/// Field of a quantity, 0 to 49, in base units. Throws std::out_of_range for any other number.
inline double& QuantityField(tValueRow& row, int quantity)
{
    return QuantityOf(quantity).field(row);
}
inline double QuantityValue(const tValueRow& row, int quantity)
{
    return QuantityField(const_cast<tValueRow&>(row), quantity); // the accessors only look
}

/// By what a stored value is divided for showing: 3600 for energies, held in watt seconds and shown in watt hours;
/// else 1.
double DisplayDivisor(int quantity);

/// Rounding factor of a quantity in grids: 1000 is three decimals.
double GridFactor(int quantity);

/// Text of a quantity in a grid, rounded as its column tells.
QString GridText(const tValueRow& row, int quantity);

/// Text of a column of the grids, with or without a quantity, for a set with its time stamp. The grade of suitability
/// is for others to tell.
QString SetText(const tValueRow& row, const QString& timeText, int column);

/// Quantities that the value tables hold in a net configuration, in ascending order.
std::vector<int> StoredQuantities(int netConf);

/// Those among them that a recorder of phases stores and the grids have no column for.
std::vector<int> ExtraQuantities(int netConf);

} // namespace korvanel
