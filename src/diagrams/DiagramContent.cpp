#include "diagrams/DiagramContent.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace korvanel {

namespace {

/// U, I and Pel, and of a machine speed, torque and power at its shaft.
DiagramStates FirstStates(int netConf)
{
    DiagramStates states{};
    for (const int quantity : {kU, kI, kP})
        states.at(static_cast<std::size_t>(quantity)) = 1;
    if (HasMachine(netConf))
        for (const int quantity : {kN, kM, kPmech})
            states.at(static_cast<std::size_t>(quantity)) = 1;
    return states;
}

bool IsSecondMachineShown()
{
    return DiagramContent::HasSimulatedSets() && App().DiagramPage.isSecondMachineShown;
}

} // namespace

DiagramContent::DiagramContent()
{
    DiagramPageChoice& choice = App().DiagramPage;
    if (choice.iNetConfIndex == App().iNetConfIndex)
        return;
    choice.iNetConfIndex = App().iNetConfIndex;
    choice.iGraphState = FirstStates(App().iNetConfIndex);
}

bool DiagramContent::HasSimulatedSets()
{
    return HasSecondMachine() && App().MachineII.evaluation.lSets == App().iSetCount;
}

bool DiagramContent::IsOn(int quantity)
{
    return App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity)) == 1;
}

void DiagramContent::TakeList()
{
    iGraphList.clear();
    std::ranges::copy_if(App().ColumnLayout, std::back_inserter(iGraphList), [](qint16 column) { return column >= 0; });
    int& chosen = App().DiagramPage.quantity;
    if (std::ranges::find(iGraphList, chosen) == iGraphList.end())
        chosen = iGraphList.empty() ? -1 : iGraphList.front();
}

void DiagramContent::ComputeScaleEnds()
{
    const EvaluationResults& results = App().MachineI.evaluation;
    TakeList();
    GraphScaleEnds = ScaleEndsOf(results);
    bNegativeValues = HasNegativeValues(results, iGraphList);
    if (!IsSecondMachineShown())
        return;
    const EvaluationResults& simulated = App().MachineII.evaluation;
    const DiagramScaleEnds ends = ScaleEndsOf(simulated);
    for (std::size_t i = 0; i < ends.size(); ++i)
        GraphScaleEnds.at(i) = std::max(GraphScaleEnds.at(i), ends.at(i));
    bNegativeValues = bNegativeValues || HasNegativeValues(simulated, iGraphList);
}

DiagramView DiagramContent::WholeView() const
{
    return NormalisedView(FullView(App().iSetCount, bNegativeValues), App().iSetCount);
}

DiagramCurve DiagramContent::CurveOf(int quantity) const
{
    DiagramStates alone{};
    alone.at(static_cast<std::size_t>(quantity)) = 1;
    return CurvesOf({&quantity, 1}, alone, GraphScaleEnds).front();
}

std::vector<DiagramCurve> DiagramContent::CurvesOn() const
{
    return CurvesOf(iGraphList, App().DiagramPage.iGraphState, GraphScaleEnds);
}

std::vector<DiagramCurve> DiagramContent::ChosenCurve() const
{
    if (App().DiagramPage.quantity < 0)
        return {};
    return {CurveOf(App().DiagramPage.quantity)};
}

std::vector<DiagramCurve> DiagramContent::CurvesShown() const
{
    return App().DiagramPage.isSingle ? ChosenCurve() : CurvesOn();
}

std::vector<DiagramCurve> DiagramContent::CurvesOfSecondMachine(const std::vector<DiagramCurve>& curves)
{
    constexpr std::array kSimulated{kU, kF, kP, kN, kM, kPmech, kEta, kWp, kWpPlus, kWpMinus};
    std::vector<DiagramCurve> simulated;
    if (IsSecondMachineShown())
        std::ranges::copy_if(curves, std::back_inserter(simulated), [&](const DiagramCurve& curve) {
            return std::ranges::find(kSimulated, curve.quantity) != kSimulated.end();
        });
    return simulated;
}

} // namespace korvanel
