#include "diagrams/DiagramGrid.h"

#include <array>
#include <cmath>

namespace korvanel {

namespace {

constexpr std::size_t kMostLinesLabelledEach = 5;
constexpr double kRounding = 1e-9; // share of a step or of a set by which a line may miss its place

double SetStep(double span)
{
    const double power = std::pow(10, std::floor(std::log10(span)));
    const double ratio = span / power;
    if (ratio < 2.5)
        return power * 0.25;
    if (ratio < 5)
        return power * 0.5;
    return power;
}

double FractionStep(double span)
{
    struct Step
    {
        double above;
        double step;
    };
    static constexpr std::array<Step, 7> kSteps{{{.above = 1, .step = 0.2},
                                                 {.above = 0.5, .step = 0.1},
                                                 {.above = 0.25, .step = 0.05},
                                                 {.above = 0.2, .step = 0.04},
                                                 {.above = 0.1, .step = 0.02},
                                                 {.above = 0.05, .step = 0.01},
                                                 {.above = 0.01, .step = 0.005}}};
    for (const Step& step : kSteps)
        if (span > step.above)
            return step.step;
    return 0.001;
}

/// The first multiple of the step behind the lower end, or the lower end if that is one.
double FirstMultiple(double low, double step)
{
    const double start = std::floor((low + step) / step) * step;
    return std::abs(start - step - low) < kRounding * step ? low : start;
}

std::vector<double> Multiples(double low, double high, double step)
{
    std::vector<double> multiples;
    const double start = FirstMultiple(low, step);
    double before = start - step;
    for (qint32 i = 0;; ++i) {
        const double at = start + i * step;
        if (!(at <= high + kRounding * step) || !(at > before))
            return multiples;
        multiples.push_back(at);
        before = at;
    }
}

} // namespace

DiagramGrid GridOf(const DiagramView& view)
{
    DiagramGrid grid;
    grid.setStep = SetStep(view.x2 - view.x1);
    for (const double multiple : Multiples(view.x1, view.x2, grid.setStep)) {
        // Ten steps of a tenth end beside the set that they belong to; its line is that of a set all the same.
        const double whole = std::round(multiple);
        const bool isSet = std::abs(multiple - whole) < kRounding * whole;
        grid.sets.push_back(
            {.at = isSet ? whole : multiple, .colour = isSet ? GridColour::Main : GridColour::BetweenSets});
    }
    const std::size_t linesPerLabel = grid.sets.size() > kMostLinesLabelledEach ? 2 : 1;
    grid.labelStep = grid.setStep * static_cast<double>(linesPerLabel);
    for (std::size_t i = 0; i < grid.sets.size(); i += linesPerLabel)
        grid.setLabels.push_back(grid.sets[i].at);

    grid.fractionStep = FractionStep(view.y2 - view.y1);
    for (const double fraction : Multiples(view.y1, view.y2, grid.fractionStep))
        grid.fractions.push_back(
            {.at = fraction,
             .colour = std::floor(fraction * 1000 + 0.5) / 1000 == 0 ? GridColour::Zero : GridColour::Main});
    return grid;
}

} // namespace korvanel
