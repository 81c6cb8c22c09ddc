// Symbols and units of the quantities, which are never translated, and the names of the grid columns.
#pragma once

#include "core/Quantities.h"

#include <QString>

#include <array>

namespace korvanel {

class clsSymbols
{
public:
    clsSymbols();
    /// Each throws std::out_of_range for an index outside 0 to 49.
    const QString& Symbol(int index) const;
    const QString& Unit(int index) const;
    /// "Pel [W]"; the symbol alone where there is no unit.
    QString SymbolWithUnit(int index) const;

private:
    std::array<QString, kQuantityCount> symbols;
    std::array<QString, kQuantityCount> units;
};

/// Text by which a list names a grid column: the symbol, or the name of a column without a quantity.
QString ColumnText(int column);

/// Text over a grid column: symbol and unit, or the name of a column without a quantity.
QString ColumnHeading(int column);

} // namespace korvanel
