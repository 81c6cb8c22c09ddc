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

    /// Takes the quantities of the column layout again; the chosen one is always among them.
    void TakeList();
    /// Full scales by the results in hand, with room for both machines where both are shown.
    void ComputeScaleEnds();

    const std::vector<int>& GraphList() const { return iGraphList; }
    const DiagramScaleEnds& ScaleEnds() const { return GraphScaleEnds; }
    bool HasNegative() const { return bNegativeValues; }
    /// All sets, over the height that the values need.
    DiagramView WholeView() const;

    /// The curves that are on.
    std::vector<DiagramCurve> CurvesOn() const;
    /// The one that is chosen, if there is one.
    std::vector<DiagramCurve> ChosenCurve() const;
    /// Those of the two that the page draws.
    std::vector<DiagramCurve> CurvesShown() const;
    /// Of some curves the ones that the second machine has too; none where it isn't shown.
    static std::vector<DiagramCurve> CurvesOfSecondMachine(const std::vector<DiagramCurve>& curves);
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
