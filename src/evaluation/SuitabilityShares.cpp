#include "evaluation/SuitabilityShares.h"

#include "core/NumberText.h"
#include "core/texts/MainTexts.h"

#include <algorithm>
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

std::vector<int> LabelPlaces(const std::vector<SuitabilityShare>& shares, std::span<const int> widths, int strip,
                             int gap)
{
    std::vector<int> places(shares.size());
    int least = 0;
    for (std::size_t i = 0; i < shares.size(); ++i) {
        const double middle = (shares[i].from + shares[i].width / 2) * strip;
        places[i] = std::max(least, static_cast<int>(middle) - widths[i] / 2);
        least = places[i] + widths[i] + gap;
    }
    int end = strip;
    for (std::size_t i = shares.size(); i-- > 0;) {
        places[i] = std::min(places[i], end - widths[i]);
        end = places[i] - gap;
    }
    return places;
}

QString SuitabilityText(double share)
{
    constexpr double kTenthsOfPercent = 1000;
    constexpr double kTenths = 10;
    return FillPlaceholders(texts::percentPanel, {NumberText(std::nearbyint(share * kTenthsOfPercent) / kTenths)});
}

} // namespace korvanel
