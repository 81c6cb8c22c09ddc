#include "data/RowQuantities.h"

#include "core/NumberText.h"
#include "data/RowFields.h"
#include "data/ValueColumns.h"
#include "data/ValueTables.h"

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

using Row = tValueRow;

/// By the numbers of the quantities.
constexpr std::array<RowField, kQuantityCount> kFields{
    Element<&Row::dU, kSum>,
    Element<&Row::dI, kSum>,
    Single<&Row::df>,
    Element<&Row::dP, kSum>,
    Element<&Row::dS, kSum>,
    Element<&Row::dQ, kSum>,
    Element<&Row::dCosPhi, kSum>,
    Single<&Row::dn>,
    Single<&Row::dM>,
    Single<&Row::dPmech>,
    Single<&Row::deta>,
    Element<&Row::dPhi, kSum>,
    Single<&Row::dWp>,
    Single<&Row::dWq>,
    Single<&Row::dWpPlus>,
    Single<&Row::dWpMinus>,
    Element<&Row::dU, kPhase1>,
    Element<&Row::dU, kPhase2>,
    Element<&Row::dU, kPhase3>,
    Element<&Row::dI, kPhase1>,
    Element<&Row::dI, kPhase2>,
    Element<&Row::dI, kPhase3>,
    Element<&Row::dP, kPhase1>,
    Element<&Row::dP, kPhase2>,
    Element<&Row::dP, kPhase3>,
    Element<&Row::dQ, kPhase1>,
    Element<&Row::dQ, kPhase2>,
    Element<&Row::dQ, kPhase3>,
    Element<&Row::dS, kPhase1>,
    Element<&Row::dS, kPhase2>,
    Element<&Row::dS, kPhase3>,
    Element<&Row::dPhi, kPhase1>,
    Element<&Row::dPhi, kPhase2>,
    Element<&Row::dPhi, kPhase3>,
    Element<&Row::dCosPhi, kPhase1>,
    Element<&Row::dCosPhi, kPhase2>,
    Element<&Row::dCosPhi, kPhase3>,
    Element<&Row::dI, kNeutral>,
    Single<&Row::dWpAbs>,
    Single<&Row::dWpPlusAbs>,
    Single<&Row::dWpMinusAbs>,
    Single<&Row::dWqAbs>,
    Single<&Row::dWqPlusAbs>,
    Single<&Row::dWqMinusAbs>,
    Single<&Row::dWpRel>,
    Single<&Row::dWpPlusRel>,
    Single<&Row::dWpMinusRel>,
    Single<&Row::dWqRel>,
    Single<&Row::dWqPlusRel>,
    Single<&Row::dWqMinusRel>,
};

constexpr bool IsEnergy(int quantity)
{
    return (quantity >= kWp && quantity <= kWpMinus) || quantity >= kWpAbs;
}

} // namespace

double& QuantityField(tValueRow& row, int quantity)
{
    return kFields.at(static_cast<std::size_t>(quantity))(row);
}

double QuantityValue(const tValueRow& row, int quantity)
{
    return QuantityField(const_cast<tValueRow&>(row), quantity); // the accessors only look
}

double DisplayDivisor(int quantity)
{
    constexpr double kSecondsPerHour = 3600;
    return IsEnergy(quantity) ? kSecondsPerHour : 1;
}

QString GridText(const tValueRow& row, int quantity)
{
    return RoundValue(QuantityValue(row, quantity) / DisplayDivisor(quantity), GridFactor(quantity));
}

std::vector<int> StoredQuantities(int netConf)
{
    std::vector<int> stored;
    tValueRow row;
    for (int quantity = 0; quantity < kQuantityCount; ++quantity)
        for (const ValueColumn& column : ValueColumns())
            if (column.field && &column.field(row) == &QuantityField(row, quantity) &&
                (IsIn(column.sampled, netConf) || IsIn(column.computed, netConf)))
                stored.push_back(quantity);
    return stored;
}

std::vector<int> ExtraQuantities(int netConf)
{
    if (netConf != 4 && netConf != 5)
        return {};
    std::vector<int> extra = StoredQuantities(netConf);
    const std::vector<qint16> layout = ColumnLayoutOf(netConf);
    std::erase_if(extra,
                  [&](int quantity) { return std::find(layout.begin(), layout.end(), quantity) != layout.end(); });
    return extra;
}

} // namespace korvanel
