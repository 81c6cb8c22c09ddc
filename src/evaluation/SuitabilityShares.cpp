#include "evaluation/SuitabilityShares.h"

#include "core/NumberText.h"
#include "core/Texts.h"

#include <cmath>

namespace korvanel {

std::vector<SuitabilityShare> SuitabilityShares(const std::array<qint32, kRatingCount>& counts, qint32 sets)
{
    std::vector<SuitabilityShare> shares;
    double from = 0;
    for (int rating = 1; rating < kRatingCount; ++rating) {
        const qint32 count = counts.at(static_cast<std::size_t>(rating));
        if (sets <= 0 || count <= 0)
            continue;
        const double width = static_cast<double>(count) / sets;
        shares.push_back({rating, from, width});
        from += width;
    }
    return shares;
}

QString SuitabilityText(double share)
{
    constexpr double kTenthsOfPercent = 1000;
    constexpr double kTenths = 10;
    return FillPlaceholders(Texts().percentPanel, {NumberText(std::nearbyint(share * kTenthsOfPercent) / kTenths)});
}

} // namespace korvanel
