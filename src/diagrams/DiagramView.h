// The part of a diagram that is in view.
#pragma once

#include <QtGlobal>

namespace korvanel {

struct DiagramView
{
    double x1 = 1; ///< left end, in sets
    double x2 = 1; ///< right end, in sets
    double y1 = 0; ///< lower end, as a fraction of full scale
    double y2 = 1; ///< upper end, as a fraction of full scale

    bool operator==(const DiagramView&) const = default;
};

/// Two corners of a rectangle in sets and fractions of full scale, in any order: a drag may begin at each of the four.
struct DiagramCorners
{
    double xStart = 0;
    double yStart = 0;
    double xEnd = 0;
    double yEnd = 0;
};

/// All sets, over the whole height: from 0 or, if some curve goes below it, from -1 to 1.
DiagramView FullView(qint32 count, bool hasNegativeValues);

/// A view that can be drawn: ends in order, within the sets 1 to count and the fractions -1 to 1, and never without
/// width or height. An end that is no number becomes that of the full extent.
DiagramView NormalisedView(DiagramView view, qint32 count);

/// The view that a rectangle asks for: its part within the diagram, or the full view if it lies wholly outside.
DiagramView ViewOfRectangle(const DiagramCorners& corners, qint32 count, bool hasNegativeValues);

} // namespace korvanel
