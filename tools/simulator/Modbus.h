// Frames of MODBUS RTU: address, function, data and a checksum over all of them, low byte first. Any family of
// instruments that speaks it builds its replies with these.
#pragma once

#include "simulator/Bytes.h"

namespace korvanel::simulator {

/// Codes of an exception reply.
enum class ModbusException : Byte
{
    IllegalFunction = 1,
    IllegalAddress = 2,
    IllegalValue = 3
};

/// CRC-16 of MODBUS: start value 0xFFFF, polynomial 0xA001, lowest bit first.
std::uint16_t Crc16(ByteView bytes);

/// The bytes with their checksum behind them.
Bytes WithCrc(Bytes bytes);

/// False also for a frame that is too short to hold address, function and checksum.
bool HasValidCrc(ByteView frame);

Bytes ExceptionReply(Byte address, Byte function, ModbusException exception);

/// High byte first, as registers travel. `position` is that of the high byte.
std::uint16_t WordAt(ByteView frame, std::size_t position);
void AppendWord(Bytes& frame, std::uint16_t word);

} // namespace korvanel::simulator
