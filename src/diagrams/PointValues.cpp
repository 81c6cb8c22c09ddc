#include "diagrams/PointValues.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/clsSymbols.h"
#include "data/RowQuantities.h"

#include <QScopeGuard>

namespace korvanel {

QString PointText(const tValueRow& row, int quantity)
{
    constexpr double kFactor = 1000; // three decimals
    const double value = QuantityValue(row, quantity) / DisplayDivisor(quantity);
    return (FormatPrefixed(value, kFactor, true) + App().Symbols->Unit(quantity)).trimmed();
}

bool VisitPoints(qint32 first, qint32 last, const std::function<void(const ShownSet&)>& visit)
{
    OpenDbGuarded();
    const auto closed = qScopeGuard(CloseDbGuarded);
    return VisitSets(first, last, [&](const ShownSet& shown) {
        visit(shown);
        return true;
    });
}

} // namespace korvanel
