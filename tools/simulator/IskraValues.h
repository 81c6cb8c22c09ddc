// The measured values of the ISKRA family as its text query tells them: which quantity a value code asks for, and how
// a text of that kind of quantity looks.
#pragma once

#include "simulator/Readings.h"

#include <string>

namespace korvanel::simulator {

enum class IskraKind
{
    Voltage,
    Current,
    Frequency,
    ActivePower,
    ReactivePower,
    ApparentPower,
    PowerFactor,
    Angle,
    ActiveEnergy,
    ReactiveEnergy
};

/// Value codes from `first` on, one for each element of the quantity.
struct IskraValue
{
    int first;
    int count;
    IskraKind kind;
    double (*read)(const Readings&, const EnergyCounters&, std::size_t element);
};

/// Null if there is no such value code.
const IskraValue* FindIskraValue(int code);

/// Characters of a value text, without which the program could not cut it out of the reply.
std::size_t TextLength(IskraKind kind);

/// The text of a value in its base unit (V, A, Hz, W, var, VA, degrees, Wh, varh): as many digits as there is room
/// for, at most five (eight in energies), then a prefix, then as much of the unit as is left. Throws
/// std::invalid_argument if the value is too large for its text, or not a number.
std::string FormatValue(IskraKind kind, double value);

} // namespace korvanel::simulator
