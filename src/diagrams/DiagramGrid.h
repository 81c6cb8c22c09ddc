// The grid of a diagram: where its lines stand, how they look and what the axes tell.
#pragma once

#include "diagrams/DiagramView.h"

#include <QtGlobal>

#include <vector>

namespace korvanel {

/// How a line of the grid looks; the value is its colour: blue, green, red from the high to the low byte.
enum class GridColour : qint32
{
    Main = 12632256,
    BetweenSets = 13684944,
    Zero = 6316128
};

struct GridLine
{
    double at = 0; ///< set, or fraction of full scale
    GridColour colour = GridColour::Main;

    bool operator==(const GridLine&) const = default;
};

struct DiagramGrid
{
    double setStep = 1;              ///< between the vertical lines, in sets
    double labelStep = 1;            ///< between the numbers of sets below them
    double fractionStep = 0.2;       ///< between the horizontal lines
    std::vector<GridLine> sets;      ///< from left to right
    std::vector<double> setLabels;   ///< sets that are labelled
    std::vector<GridLine> fractions; ///< upward
};

/// The grid of a normalised view. Lines are found by their index, so that none is lost to rounding at the edge, and a
/// step that the numbers of the view no longer resolve ends it.
DiagramGrid GridOf(const DiagramView& view);

} // namespace korvanel
