// What a quantity is worth at a point of a diagram, as text.
#pragma once

#include "data/FileManaging.h"

#include <QString>

#include <functional>

namespace korvanel {

/// The value as tables show it, with prefix and unit: energies in watt hours and var hours.
QString PointText(const tValueRow& row, int quantity);

/// Hands the sets from `first` to `last` to `visit`; false after a failure, which has been told.
bool VisitPoints(qint32 first, qint32 last, const std::function<void(const ShownSet&)>& visit);

} // namespace korvanel
