// Full scale of the curves of a diagram. Each curve is drawn as a fraction of its full scale, which is 1 or 5 times a
// power of ten; what is to be compared by eye has one full scale in common.
#pragma once

#include "core/Evaluation.h"
#include "core/Quantities.h"

#include <array>
#include <span>

namespace korvanel {

/// Full scale by the number of the quantity, in the unit in which the diagram draws it.
using DiagramScaleEnds = std::array<double, kQuantityCount>;

/// Full scale of values between two extremes: the least of 1 and 5 times a power of ten that reaches the greater of
/// |minimum| and maximum over the divisor; 1 if that is 0 or no number. Never infinite.
double ScaleEndOf(double minimum, double maximum, double divisor);

/// Full scale of each quantity by the extremes of an evaluation. Voltages have one in common, currents, and powers with
/// the energies.
DiagramScaleEnds ScaleEndsOf(const EvaluationResults& results);

/// Whether some of the quantities goes below 0 in the diagram. The parts of the energies that are stored negative are
/// drawn upward, so they do if their maximum is above 0.
bool HasNegativeValues(const EvaluationResults& results, std::span<const int> quantities);

/// By what the stored value of a quantity is divided before it is drawn: 3600 for the energies of a set, -3600 for
/// those of them that are stored negative, and 1 for all else, the absolute energies included.
double DivisorInDiagram(int quantity);

/// What a fraction of full scale is worth, in the unit in which tables show the quantity: watt hours where the diagram
/// draws watt seconds, and negative where it draws upward what is stored negative.
double ShownValueAt(int quantity, double fraction, double scaleEnd);

} // namespace korvanel
