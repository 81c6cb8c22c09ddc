#include "simulator/ModbusAscii.h"

namespace korvanel::simulator {

namespace {

constexpr char kFrameStart = ':';
constexpr std::size_t kShortestAsciiFrame = 7; // colon, address, function, check byte

std::optional<unsigned> HexDigit(char letter)
{
    if (letter >= '0' && letter <= '9')
        return static_cast<unsigned>(letter - '0');
    if (letter >= 'A' && letter <= 'F')
        return static_cast<unsigned>(letter - 'A') + 10U;
    return std::nullopt;
}

} // namespace

Byte Lrc(ByteView bytes)
{
    unsigned sum = 0;
    for (const Byte byte : bytes)
        sum += byte;
    return static_cast<Byte>(0U - sum);
}

std::optional<Byte> HexByte(const std::string& text, std::size_t position)
{
    if (position + 2 > text.size())
        return std::nullopt;
    const std::optional<unsigned> high = HexDigit(text[position]);
    const std::optional<unsigned> low = HexDigit(text[position + 1]);
    if (!high || !low)
        return std::nullopt;
    return static_cast<Byte>(*high << 4U | *low);
}

std::string AsciiFrame(const std::string& digits)
{
    Bytes bytes;
    for (std::size_t position = 0; position < digits.size(); position += 2)
        bytes.push_back(HexByte(digits, position).value_or(0));
    const Byte check = Lrc(bytes);
    return kFrameStart + digits + ToHex({&check, 1});
}

std::optional<Bytes> ParseAsciiFrame(const std::string& text)
{
    if (text.size() < kShortestAsciiFrame || text.size() % 2 == 0 || text.front() != kFrameStart)
        return std::nullopt;
    Bytes bytes;
    for (std::size_t position = 1; position < text.size(); position += 2) {
        const std::optional<Byte> byte = HexByte(text, position);
        if (!byte)
            return std::nullopt;
        bytes.push_back(*byte);
    }
    if (Lrc(bytes) != 0) // with the check byte the sum is a whole number of 256
        return std::nullopt;
    bytes.pop_back();
    return bytes;
}

} // namespace korvanel::simulator
