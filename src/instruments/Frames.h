// Frames and number texts that several instruments share.
#pragma once

#include <QByteArray>
#include <QString>

namespace korvanel {

inline constexpr int kLeastBusAddress = 1;
inline constexpr int kGreatestBusAddress = 247;

constexpr bool IsBusAddress(int address)
{
    return address >= kLeastBusAddress && address <= kGreatestBusAddress;
}

/// The bytes with the CRC-16 of MODBUS RTU behind them, low byte first: start value 0xFFFF, reflected polynomial
/// 0xA001.
QByteArray Crc16Append(const QByteArray& frame);

/// True if the last two bytes are the CRC-16 of those before them. A reply of two bytes or less has none. A zero byte
/// behind a sound frame is not noticed, as with every such sum: the length has to be looked at besides.
bool HasValidCrc(const QByteArray& reply);

/// True if a reply has the head of the request, which is address and function, and at least this many bytes.
bool IsAnswerTo(const QByteArray& request, const QByteArray& reply, qsizetype leastLength);

/// A text as an instrument that is spoken to in lines takes it: with its line end.
QByteArray Line(const char* command);

/// The number at a place of a reply, counted from 1, of a field of so many characters, as `LeadingNumber` reads it: 0
/// if there is none, or if the reply ends before.
double NumberAt(const QByteArray& reply, qsizetype position, qsizetype length);

/// Factor of a unit prefix within a reply: 0.001 for "m", 1000 for "k", 1000000 for "M", else 1, looked for in this
/// order and from the third character on, since the digits of the value stand before it. Upper and lower case differ.
double UnitPrefixFactor(const QString& text);

} // namespace korvanel
