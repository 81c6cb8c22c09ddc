// A project file of the predecessor, VELDRIK, for the demo to convert: a few fields and a load cycle of a pump.
#pragma once

#include <QByteArray>

namespace korvanel {

inline constexpr int kOldSets = 60;

/// The bytes of the file; its set n was taken after n - 1 seconds.
QByteArray OldProjectFile();

} // namespace korvanel
