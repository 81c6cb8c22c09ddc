// What a power analyser NANOVIP PLUS puts into its one block, as plain conversions: from the text of the reply to
// values in base units.
#pragma once

#include "core/ValueRow.h"

#include <QByteArray>
#include <QtGlobal>

#include <array>

namespace korvanel {

/// Characters of a whole reply, its line end included.
inline constexpr qsizetype kNanovipReplyLength = 303;

/// Bits of the status byte that the program looks at.
enum NanovipStatus : unsigned
{
    kNanovipOverrange = 0x10,
    kNanovipSwitchSinglePhase = 0x20, ///< the net-type switch of the instrument stands at 1-phase
    kNanovipBatteryLow = 0x40,
};

/// A value of six characters at a position, counted from 1: two digits of the mantissa, the sign ("8" is negative), the
/// first digit of the mantissa, and the decimal exponent as a byte in two's complement. In single precision, infinite
/// beyond that. Digits that are none end the number before them; without a digit it is 0.
double DecodeNanovipValue(const QByteArray& reply, qsizetype position);

/// The status byte; 0 if the reply is too short to have one.
unsigned NanovipStatusOf(const QByteArray& reply);

/// Fills voltage, current, powers, power factor, angle and frequency of a row from a whole reply, with the program's
/// transformers (voltage, current). The instrument gives the power factor a sign where the current leads; here it has
/// that of the active power, and the angle is negative instead.
void FillFromNanovip(tMeasuredRow& row, const QByteArray& reply, const std::array<double, 2>& ratio);

} // namespace korvanel
