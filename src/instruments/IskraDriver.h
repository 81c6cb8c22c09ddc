// The driver of the power analysers ISKRA MI 7130, MI 7131, MI 7140 and MI 7150: MODBUS RTU for configuration,
// transformers and counters, and the instrument's own text query for the measured values.
#pragma once

#include <QString>
#include <QtGlobal>

namespace korvanel {

/// Carries out an operation if the entry is one of this family; false if it is none. Errors go into `sDevError`, a bad
/// sample into the mask of `MeasuredRow`.
bool RunIskraDriver(const QString& entry, quint8 command);

} // namespace korvanel
