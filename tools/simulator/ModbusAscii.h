// Frames of MODBUS ASCII: a colon, two hexadecimal digits for each byte of address, function and data, and a check byte
// over all of them in the same way. The end of the line isn't part of them here.
#pragma once

#include "simulator/Bytes.h"

#include <optional>
#include <string>

namespace korvanel::simulator {

/// Two's complement of the sum of the bytes.
Byte Lrc(ByteView bytes);

/// A number of two hexadecimal digits in capital letters, as the protocol wants them; nothing if it isn't one.
std::optional<Byte> HexByte(const std::string& text, std::size_t position);

/// The frame of what stands between colon and check byte, in digits. Pairs that are no digits count as 0.
std::string AsciiFrame(const std::string& digits);

/// The bytes between colon and check byte; nothing if the text isn't a frame, or its check byte is wrong.
std::optional<Bytes> ParseAsciiFrame(const std::string& text);

} // namespace korvanel::simulator
