#include "data/RowQuantities.h"

#include "core/NetConfigurations.h"
#include "core/NumberText.h"
#include "core/QuantityTable.h"
#include "data/ValueColumns.h"
#include "data/ValueTables.h"

#include <algorithm>

namespace korvanel {

double DisplayDivisor(int quantity)
{
    return QuantityOf(quantity).divisor;
}

double GridFactor(int quantity)
{
    return QuantityOf(quantity).gridFactor;
}

QString GridText(const tValueRow& row, int quantity)
{
    return RoundValue(QuantityValue(row, quantity) / DisplayDivisor(quantity), GridFactor(quantity));
}

QString SetText(const tValueRow& row, const QString& timeText, int column)
{
    switch (column) {
    case kColumnTimeStamp:
        return timeText;
    case kColumnTime:
        return SecondsToTime(row.dt, false);
    case kColumnMethod:
        return row.sMethod;
    case kColumnSuitability:
        return {};
    default:
        return GridText(row, column);
    }
}

std::vector<int> StoredQuantities(int netConf)
{
    std::vector<int> stored;
    for (const ValueColumn& column : ValueColumns())
        if (column.quantity >= 0 && (IsIn(column.sampled, netConf) || IsIn(column.computed, netConf)))
            stored.push_back(column.quantity);
    std::sort(stored.begin(), stored.end());
    return stored;
}

std::vector<int> ExtraQuantities(int netConf)
{
    if (!TraitsOf(netConf).hasPhases)
        return {};
    std::vector<int> extra = StoredQuantities(netConf);
    const std::vector<qint16> layout = ColumnLayoutOf(netConf);
    std::erase_if(extra,
                  [&](int quantity) { return std::find(layout.begin(), layout.end(), quantity) != layout.end(); });
    return extra;
}

} // namespace korvanel
