#include "simulator/Modbus.h"

namespace korvanel::simulator {

namespace {

constexpr std::size_t kCrcLength = 2;
constexpr std::size_t kShortestFrame = 4;
constexpr Byte kExceptionBit = 0x80;

Byte LowByte(std::uint16_t word)
{
    return static_cast<Byte>(word & 0xFFU);
}

Byte HighByte(std::uint16_t word)
{
    return static_cast<Byte>(word >> 8U);
}

} // namespace

std::uint16_t Crc16(ByteView bytes)
{
    unsigned crc = 0xFFFF;
    for (const Byte byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1U) != 0 ? (crc >> 1U) ^ 0xA001U : crc >> 1U;
    }
    return static_cast<std::uint16_t>(crc);
}

Bytes WithCrc(Bytes bytes)
{
    const std::uint16_t crc = Crc16(bytes);
    bytes.push_back(LowByte(crc));
    bytes.push_back(HighByte(crc));
    return bytes;
}

bool HasValidCrc(ByteView frame)
{
    if (frame.size() < kShortestFrame)
        return false;
    const std::uint16_t crc = Crc16(frame.first(frame.size() - kCrcLength));
    return frame[frame.size() - 2] == LowByte(crc) && frame[frame.size() - 1] == HighByte(crc);
}

Bytes ExceptionReply(Byte address, Byte function, ModbusException exception)
{
    return WithCrc({address, static_cast<Byte>(function | kExceptionBit), static_cast<Byte>(exception)});
}

std::uint16_t WordAt(ByteView frame, std::size_t position)
{
    return static_cast<std::uint16_t>((frame[position] << 8U) | frame[position + 1]);
}

void AppendWord(Bytes& frame, std::uint16_t word)
{
    frame.push_back(HighByte(word));
    frame.push_back(LowByte(word));
}

} // namespace korvanel::simulator
