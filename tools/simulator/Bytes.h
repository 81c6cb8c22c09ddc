// Byte strings as they travel on the line.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace korvanel::simulator {

using Byte = std::uint8_t;
using Bytes = std::vector<Byte>;
using ByteView = std::span<const Byte>;

/// Two capital hexadecimal digits a byte, without gaps.
inline std::string ToHex(ByteView bytes)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const Byte byte : bytes) {
        text += kDigits[byte >> 4U];
        text += kDigits[byte & 0x0FU];
    }
    return text;
}

} // namespace korvanel::simulator
