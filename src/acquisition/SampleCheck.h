// The tests that every sample passes before it is stored.
#pragma once

#include "core/ValueRow.h"

#include <array>

namespace korvanel {

/// The mask of a sample after the tests: the frequency is bad outside 0 to 1000 Hz; the first sample of a recording is
/// bad as a whole while its voltage or current lies below the start trigger (volts, amperes). A value that is no finite
/// number marks its group.
QString CheckedMask(const QString& mask, const tValueRow& row, const std::array<double, 2>& trigger, qint32 set);

/// Tests `MeasuredRow` with the triggers of the block.
void ValidateSample();

} // namespace korvanel
