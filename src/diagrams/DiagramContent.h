// What the page of the diagrams draws: the quantities of its legend with their full scales, and the curves among them
// that are on, of the measured machine and of the second one.
#pragma once

#include "diagrams/DiagramDrawing.h"

#include <vector>

namespace korvanel {

class DiagramContent
{
public:
    /// Begins with the curves that a net configuration starts with, if the block has a choice for another one.
    DiagramContent();

    /// Takes the quantities of the column layout again.
    void TakeList();
    /// Full scales by the results in hand, with room for both machines where both are shown.
    void ComputeScaleEnds();

    const std::vector<int>& GraphList() const { return iGraphList; }
    const DiagramScaleEnds& ScaleEnds() const { return GraphScaleEnds; }
    bool HasNegative() const { return bNegativeValues; }
    /// All sets, over the height that the values need.
    DiagramView WholeView() const;

    /// The curves that are drawn: those that are on, or the chosen one alone.
    std::vector<DiagramCurve> CurvesShown() const;
    /// Of these the ones that the second machine has too; none where it isn't shown.
    std::vector<DiagramCurve> CurvesOfSecondMachine() const;
    DiagramCurve CurveOf(int quantity) const;

    /// Whether the second machine has gone through the sets.
    static bool HasSimulatedSets();
    /// Whether the curve of a quantity is on.
    static bool IsOn(int quantity);

private:
    std::vector<int> iGraphList; ///< in the order of the legend
    DiagramScaleEnds GraphScaleEnds{};
    bool bNegativeValues = false;
};

} // namespace korvanel
