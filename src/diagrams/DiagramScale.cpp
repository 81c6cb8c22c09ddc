#include "diagrams/DiagramScale.h"

#include "core/QuantityTable.h"
#include "core/Units.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace korvanel {

namespace {

constexpr std::array<int, 4> kVoltages{kU, kU1, kU1 + 1, kU1 + 2};
constexpr std::array<int, 4> kCurrents{kI, kI1, kI1 + 1, kI1 + 2};
constexpr std::array<int, 27> kPowersAndEnergies{
    kP,     kP1,        kP1 + 1,     kP1 + 2, kPmech,     kS,          kS1,    kS1 + 1,    kS1 + 2,
    kQ,     kQ1,        kQ1 + 1,     kQ1 + 2, kWp,        kWq,         kWpAbs, kWpPlusAbs, kWpMinusAbs,
    kWqAbs, kWqPlusAbs, kWqMinusAbs, kWpRel,  kWpPlusRel, kWpMinusRel, kWqRel, kWqPlusRel, kWqMinusRel};

std::size_t At(int quantity)
{
    return static_cast<std::size_t>(quantity);
}

bool IsStoredNegative(int quantity)
{
    return quantity == kWpMinusRel || quantity == kWqMinusRel;
}

void GiveTheGreatest(DiagramScaleEnds& ends, std::span<const int> group)
{
    double greatest = 0;
    for (const int quantity : group)
        greatest = std::max(greatest, ends.at(At(quantity)));
    for (const int quantity : group)
        ends.at(At(quantity)) = greatest;
}

} // namespace

double DivisorInDiagram(int quantity)
{
    if (IsStoredNegative(quantity))
        return -kSecondsPerHour;
    if (quantity == kWp || quantity == kWq || (quantity >= kWpRel && quantity <= kWqMinusRel))
        return kSecondsPerHour;
    return 1;
}

double ScaleEndOf(double minimum, double maximum, double divisor)
{
    const double most = std::max(std::abs(minimum), maximum) / divisor;
    if (most == 0 || std::isnan(most))
        return 1;
    const double power = std::pow(10, std::ceil(std::log10(most)));
    const double end = power / 2 < most ? power : power / 2;
    // Beyond the greatest power of ten there is none that reaches the value.
    return std::min(end, std::numeric_limits<double>::max());
}

DiagramScaleEnds ScaleEndsOf(const EvaluationResults& results)
{
    DiagramScaleEnds ends{};
    for (int quantity = 0; quantity < kQuantityCount; ++quantity)
        ends.at(At(quantity)) =
            ScaleEndOf(results.tExtremMin.at(At(quantity)).dValue, results.tExtremMax.at(At(quantity)).dValue,
                       std::abs(DivisorInDiagram(quantity)));
    GiveTheGreatest(ends, kVoltages);
    GiveTheGreatest(ends, kCurrents);
    GiveTheGreatest(ends, kPowersAndEnergies);
    return ends;
}

bool HasNegativeValues(const EvaluationResults& results, std::span<const int> quantities)
{
    return std::ranges::any_of(quantities, [&results](int quantity) {
        return IsStoredNegative(quantity) ? results.tExtremMax.at(At(quantity)).dValue > 0
                                          : results.tExtremMin.at(At(quantity)).dValue < 0;
    });
}

double ShownValueAt(int quantity, double fraction, double scaleEnd)
{
    return fraction * scaleEnd * DivisorInDiagram(quantity) / QuantityOf(quantity).divisor;
}

} // namespace korvanel
