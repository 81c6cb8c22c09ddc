// What the power analysers ISKRA MI71XX put into their registers and value texts, as plain conversions: the encodings
// of the transformers, and the reading of a measured value.
#pragma once

#include <QByteArray>
#include <QtGlobal>

namespace korvanel {

/// Voltage primary in volts as register 16 holds it: tenths of a volt, of which the two highest bits are a power of
/// ten. Limited to what the register can hold.
quint16 EncodeVoltagePrimary(double volts);
double DecodeVoltagePrimary(quint16 reg);

/// Voltage secondary in volts as register 17 holds it: whole volts from 10 to 775.
quint16 EncodeVoltageSecondary(double volts);

/// Current primary in amperes as register 18 holds it: the ratio to a secondary current of 5 A, from 1 to 4000.
quint16 EncodeCurrentRatio(double primaryAmperes);

/// How the text of a value is to be read.
enum class IskraValueKind : quint8
{
    Voltage = 0,
    Current = 1,
    Frequency = 2,
    ActivePower = 3,
    ApparentPower = 4,
    ReactivePower = 5,
    PowerFactor = 6,
    PhaseAngle = 11,
    ActiveEnergy = 12,
    ReactiveEnergy = 13,
};

/// Number of characters of a value's text.
int IskraTextLength(IskraValueKind kind);

/// The value of a text, in base units: prefixes of the unit count but for angles, energies become watt seconds and var
/// seconds, and reactive power that ends in "C" is capacitive and negative. A text without a number gives 0.
double ReadIskraText(const QByteArray& text, IskraValueKind kind);

} // namespace korvanel
