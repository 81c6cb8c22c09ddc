// How many of the sets stayed inside the rating: the shares of the three classes, as a bar and as texts show them.
#pragma once

#include "core/Evaluation.h"

#include <QString>

#include <span>
#include <vector>

namespace korvanel {

/// One class of sets within the bar, from the left. Places and widths are shares of the whole, 0 to 1.
struct SuitabilityShare
{
    int rating = 0;
    double from = 0;
    double width = 0;
};

/// Classes that have sets, in the order good, medium, bad. Sets without a rating leave their share at the right empty;
/// without sets there is nothing.
std::vector<SuitabilityShare> SuitabilityShares(const std::array<qint32, kRatingCount>& counts, qint32 sets);

/// Left edges of labels of these widths under a strip, in pixels: each centred on its share, or as near to that as the
/// others and the ends of the strip leave room. Labels that are wider together than the strip reach beyond its left
/// end.
std::vector<int> LabelPlaces(const std::vector<SuitabilityShare>& shares, std::span<const int> widths, int strip,
                             int gap);

/// A share as percent with one decimal, a half going to the even digit: "33.3%" in the local format.
QString SuitabilityText(double share);

} // namespace korvanel
