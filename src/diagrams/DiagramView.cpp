#include "diagrams/DiagramView.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kLeastExtent = 0.01; // of a view whose ends fall together

} // namespace

DiagramView FullView(qint32 count, bool hasNegativeValues)
{
    return {.x1 = 1, .x2 = static_cast<double>(count), .y1 = hasNegativeValues ? -1.0 : 0.0, .y2 = 1};
}

DiagramView NormalisedView(DiagramView view, qint32 count)
{
    if (std::isnan(view.x1))
        view.x1 = 1;
    if (std::isnan(view.x2))
        view.x2 = count;
    if (std::isnan(view.y1))
        view.y1 = -1;
    if (std::isnan(view.y2))
        view.y2 = 1;

    if (view.x2 < view.x1)
        std::swap(view.x1, view.x2);
    view.x2 = std::min(view.x2, static_cast<double>(count));
    view.x1 = std::max(view.x1, 1.0);
    if (view.y2 < view.y1)
        std::swap(view.y1, view.y2);
    view.y1 = std::max(view.y1, -1.0);
    view.y2 = std::min(view.y2, 1.0);

    // A view beside the sets has its ends the wrong way round by now; it shrinks to the edge that it passed.
    if (view.x2 < view.x1) {
        const double edge = std::clamp(view.x2, 1.0, std::max(1.0, static_cast<double>(count)));
        view.x1 = edge;
        view.x2 = edge;
    }
    if (view.y2 < view.y1) {
        const double edge = std::clamp(view.y2, -1.0, 1.0);
        view.y1 = edge;
        view.y2 = edge;
    }
    if (view.x2 == view.x1)
        view.x2 = view.x1 + kLeastExtent;
    if (view.y2 == view.y1)
        view.y2 = view.y1 + kLeastExtent;
    return view;
}

DiagramView ViewOfRectangle(const DiagramCorners& corners, qint32 count, bool hasNegativeValues)
{
    const auto [left, right] = std::minmax(corners.xStart, corners.xEnd);
    const auto [down, top] = std::minmax(corners.yStart, corners.yEnd);
    const DiagramView full = FullView(count, hasNegativeValues);
    const bool isOutside = right < full.x1 || left > full.x2 || top < full.y1 || down > full.y2;
    if (isOutside)
        return full;
    return NormalisedView({.x1 = left, .x2 = right, .y1 = std::max(down, full.y1), .y2 = top}, count);
}

} // namespace korvanel
