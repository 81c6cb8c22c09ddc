#include "evaluation/TimeWindow.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsProgSettings.h"
#include "core/texts/ValueNamesTexts.h"

#include <cmath>

namespace korvanel {

namespace {

constexpr qint16 kByHand = 0;
constexpr qint16 kThermal = 1;

} // namespace

bool IsThermalWindowUsable()
{
    return App().MachineI.model.Tth != 0 && App().bModelValid;
}

void ResolveTimeWindow()
{
    clsProgSettings& options = *App().ProgSettings;
    if (options.TWindowSelection() == kThermal && !IsThermalWindowUsable())
        options.SetTWindowSelection(kByHand);
    App().dTWindow = options.TWindowSelection() == kThermal
                         ? std::floor(App().MachineI.model.Tth * options.TWindowFactor())
                         : options.TWindowSize();
}

QString TimeWindowText()
{
    const clsProgSettings& options = *App().ProgSettings;
    return options.TWindowSelection() == kThermal
               ? NumberText(options.TWindowFactor()) + u' ' + texts::timesTimeConstant
               : SecondsToTime(options.TWindowSize(), false);
}

double WindowSpan(double window, double dt)
{
    return std::floor(window / dt);
}

double FirstOfWindow(double last, double span)
{
    const double first = last - span;
    return first < 1 ? 1 : first;
}

} // namespace korvanel
