// Symbols and units of the quantities. They are never translated.
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

} // namespace korvanel
