#include "core/clsSymbols.h"

#include "core/Common.h"
#include "core/QuantityTable.h"
#include "core/texts/FormH3Texts.h"

namespace korvanel {

clsSymbols::clsSymbols()
{
    for (std::size_t i = 0; i < kQuantityTable.size(); ++i) {
        symbols[i] = QString::fromUtf8(kQuantityTable[i].symbol);
        units[i] = QString::fromUtf8(kQuantityTable[i].unit);
    }
}

const QString& clsSymbols::Symbol(int index) const
{
    return symbols.at(static_cast<std::size_t>(index));
}
const QString& clsSymbols::Unit(int index) const
{
    return units.at(static_cast<std::size_t>(index));
}

QString clsSymbols::SymbolWithUnit(int index) const
{
    return Unit(index).isEmpty() ? Symbol(index) : Symbol(index) + QStringLiteral(" [") + Unit(index) + u']';
}

QString ColumnText(int column)
{
    switch (column) {
    case kColumnTime:
        return texts::columnTime;
    case kColumnTimeStamp:
        return texts::columnTimeStamp;
    case kColumnSuitability:
        return texts::columnModel;
    case kColumnMethod:
        return texts::columnMethod;
    default:
        return App().Symbols->Symbol(column);
    }
}

QString ColumnHeading(int column)
{
    return column >= 0 ? App().Symbols->SymbolWithUnit(column) : ColumnText(column);
}

} // namespace korvanel
