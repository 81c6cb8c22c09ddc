// The length of the sliding window of the evaluation: chosen by hand, or as a multiple of the machine's thermal time
// constant.
#pragma once

#include <QString>

namespace korvanel {

/// Whether the thermal time constant of the measured machine can size the window.
bool IsThermalWindowUsable();

/// Sets `dTWindow` (s) from the options. A choice of the time constant where there is none falls back to the length by
/// hand, and that is stored.
void ResolveTimeWindow();

/// The window for headings: its length in hours, minutes and seconds, or the factor of the time constant.
QString TimeWindowText();

/// Sets that a window reaches back from its last one: Int(window / dt), both in seconds. Infinite or not a number for a
/// `dt` of 0.
double WindowSpan(double window, double dt);

/// First set of a window by its last one; 1 where the window reaches beyond the beginning.
double FirstOfWindow(double last, double span);

} // namespace korvanel
