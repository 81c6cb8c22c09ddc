// What stands at the axes of a diagram.
#pragma once

#include "diagrams/DiagramGrid.h"

#include <QString>

#include <vector>

namespace korvanel {

struct AxisLabel
{
    double at = 0; ///< set, or fraction of full scale
    QString text;
};

/// Fractions of full scale at the horizontal lines, with as many decimals as their step has. At most eleven.
std::vector<AxisLabel> FractionLabels(const DiagramGrid& grid);

/// What a quantity is worth at these lines: its full scale times the fraction, with unit.
std::vector<AxisLabel> ValueLabels(const DiagramGrid& grid, int quantity, double scaleEnd);

/// Numbers of the labelled sets, and below each the time at which it was taken, counted from the first set; nothing
/// there where the file doesn't tell it.
std::vector<AxisLabel> SetLabels(const DiagramGrid& grid);

} // namespace korvanel
