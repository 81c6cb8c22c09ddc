// Requests to the simulated ISKRA analyser and the reading of its value texts, as the tests of the simulator use them.
#pragma once

#include "simulator/IskraValues.h"
#include "simulator/Modbus.h"
#include "simulator/Station.h"

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace korvanel::simulator::test {

inline Bytes Frame(Byte function, std::uint16_t first, std::uint16_t second, Byte address = 33)
{
    Bytes frame = {address, function};
    AppendWord(frame, first);
    AppendWord(frame, second);
    return WithCrc(frame);
}

inline Bytes QueryOf(int code, Byte address = 33)
{
    return WithCrc({address, 'M', static_cast<Byte>(code)});
}

/// Reads a value text as the program does: a leading number, then the first of m, k and M behind the second character.
inline double ValueOf(const std::string& text)
{
    double value = std::strtod(text.c_str(), nullptr);
    const std::string tail = text.substr(2);
    if (tail.find('m') != std::string::npos)
        value *= 1e-3;
    else if (tail.find('k') != std::string::npos)
        value *= 1e3;
    else if (tail.find('M') != std::string::npos)
        value *= 1e6;
    return text.back() == 'C' ? -value : value;
}

/// What the last digit of a value text is worth.
inline double LastDigit(const std::string& text)
{
    const std::size_t begin = text.find_first_of("0123456789");
    const std::size_t end = text.find_first_not_of("0123456789.", begin);
    const std::string number = text.substr(begin, end == std::string::npos ? end : end - begin);
    const std::size_t point = number.find('.');
    const double decimals = point == std::string::npos ? 0 : static_cast<double>(number.size() - point - 1);
    return std::abs(ValueOf("  1" + text.substr(begin + number.size()))) * std::pow(10, -decimals);
}

/// A kind of value text and the codes it is used for, with the length that the protocol gives it.
struct CodeRange
{
    int first;
    int last;
    std::size_t length;
};

inline constexpr CodeRange kAllCodes[] = {
    {0, 3, 15},  {4, 7, 8},   {8, 11, 12}, {12, 15, 7}, {16, 19, 7}, {20, 23, 7},
    {24, 27, 8}, {28, 28, 7}, {32, 35, 7}, {36, 36, 7}, {40, 43, 7},
};

/// An instrument on a line in memory, at a time that moves only when told.
class Bench
{
public:
    explicit Bench(const InstrumentSetup& setup = {}) : Bench("iskra", setup) {}
    Bench(const std::string& family, const InstrumentSetup& setup)
        : instrument(MakeFamily(family, setup)), station(*instrument)
    {}

    /// Exchanges that come of these bytes alone, after the line was silent for a second.
    std::vector<Exchange> Exchanges(const Bytes& bytes)
    {
        now += 1;
        station.Idle(now);
        station.TakeDue(now);
        station.Receive(bytes, now);
        station.Idle(now + 0.021);
        return station.TakeDue(now + 0.021);
    }
    /// The reply to one request; empty if there is none.
    Bytes Reply(const Bytes& request)
    {
        const std::vector<Exchange> exchanges = Exchanges(request);
        return exchanges.size() == 1 ? exchanges.front().answer.reply : Bytes();
    }
    /// The value text between the third byte and the checksum.
    std::string Text(int code)
    {
        const Bytes reply = Reply(QueryOf(code));
        return reply.size() < 5 ? std::string() : std::string(reply.begin() + 3, reply.end() - 2);
    }
    std::uint16_t Register(Byte function, std::uint16_t number)
    {
        const Bytes reply = Reply(Frame(function, number, 1));
        return reply.size() == 7 ? WordAt(reply, 3) : 0;
    }

    std::unique_ptr<InstrumentFamily> instrument;
    Station station;
    double now = 0;
};

} // namespace korvanel::simulator::test
