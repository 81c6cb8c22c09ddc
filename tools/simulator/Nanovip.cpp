#include "simulator/Nanovip.h"

#include "simulator/Modbus.h"
#include "simulator/ModbusAscii.h"
#include "simulator/Texts.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr Byte kNanovipAddress = 1;
constexpr Byte kReadRegisters = 3;
constexpr int kFirstNanovipRegister = 0x0202;
constexpr int kNanovipRegisters = 0x49;
constexpr std::size_t kReadLength = 6; // address, function, two words
constexpr std::size_t kDigitsOfRegister = 4;
constexpr std::size_t kDigitsBefore = 7; // colon, address, function, number of bytes

// Within the digits of the registers, from 0.
constexpr std::size_t kStatusPosition = 288;
constexpr std::size_t kNanovipField = 6;
constexpr int kNanovipOrder[] = {kMeterVoltage,  kMeterCurrent,  kMeterActive,   kMeterPowerFactor,
                                 kMeterReactive, kMeterApparent, kMeterFrequency};

// Of a field: the first digit of the number comes behind the others, and the sign between.
constexpr std::size_t kSecondDigit = 0;
constexpr std::size_t kThirdDigit = 1;
constexpr std::size_t kSignDigit = 2;
constexpr std::size_t kFirstDigit = 3;
constexpr std::size_t kPowerOfTen = 4;
constexpr char kNegative = '8';
constexpr int kLeastPower = -128;
constexpr int kMostPower = 127;

constexpr Byte kOverrange = 0x10;
constexpr Byte kAtOnePhase = 0x20;
constexpr Byte kBatteryLow = 0x40;

struct NanovipState
{
    const char* name;
    const char* state;
    Byte bit;
    bool isSet;
};

constexpr NanovipState kNanovipStates[] = {
    {"switch", "1", kAtOnePhase, true},    {"switch", "3", kAtOnePhase, false},
    {"overrange", "on", kOverrange, true}, {"overrange", "off", kOverrange, false},
    {"battery", "low", kBatteryLow, true}, {"battery", "good", kBatteryLow, false},
};

/// Number and power of ten of a value with three digits.
struct Decimal
{
    int number;
    int power;
};

Decimal ThreeDigits(double magnitude)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.2e", magnitude); // d.dde+dd
    const std::string digits{text[0], text[2], text[3]};
    const int number = std::atoi(digits.c_str());
    return {number, number == 0 ? 0 : std::atoi(text.data() + 5) - 2};
}

/// A field as a person reads it; one that holds no number as it is.
std::string ReadField(const std::string& field)
{
    const std::string digits{field[kFirstDigit], field[kSecondDigit], field[kThirdDigit]};
    const std::optional<Byte> power = HexByte(field, kPowerOfTen);
    if (digits.find_first_not_of("0123456789") != std::string::npos || !power)
        return Trimmed(field);
    const int exponent = *power > kMostPower ? *power - 256 : *power;
    const double number = (field[kSignDigit] == kNegative ? -1 : 1) * std::strtod(digits.c_str(), nullptr);
    constexpr int kPlainPowers = 9;
    if (std::abs(exponent) > kPlainPowers)
        return Fixed(number, 0) + 'E' + std::to_string(exponent);
    return Fixed(number * std::pow(10, exponent), std::max(0, -exponent));
}

std::string ExceptionDigits(Byte function, ModbusException exception)
{
    constexpr Byte kException = 0x80;
    return ToHex(Bytes{kNanovipAddress, static_cast<Byte>(function | kException), static_cast<Byte>(exception)});
}

} // namespace

Nanovip::Nanovip(const InstrumentSetup& setup)
    : LineMeter(setup, std::vector<int>(std::begin(kNanovipOrder), std::end(kNanovipOrder)))
{
    SetState("switch", std::to_string(setup.netSwitch));
}

Answer Nanovip::Obey(const std::string& line, double now)
{
    // A colon begins a frame anew, whatever came before it.
    const std::size_t start = line.rfind(':');
    const std::optional<Bytes> frame = start == std::string::npos ? std::nullopt : ParseAsciiFrame(line.substr(start));
    if (!frame)
        return {};
    const Byte function = frame->at(1);
    Answer answer{RequestKind::Read, std::nullopt, {}, {}};
    if (frame->front() != kNanovipAddress)
        return answer;
    if (function != kReadRegisters || frame->size() != kReadLength)
        answer.reply = Line(AsciiFrame(ExceptionDigits(function, ModbusException::IllegalFunction)));
    else if (WordAt(*frame, 2) != kFirstNanovipRegister || WordAt(*frame, 4) != kNanovipRegisters)
        answer.reply = Line(AsciiFrame(ExceptionDigits(function, ModbusException::IllegalAddress)));
    else
        answer = TellAll(now);
    return answer;
}

Answer Nanovip::TellAll(double now) const
{
    std::string registers(kNanovipRegisters * kDigitsOfRegister, '0');
    Answer answer{RequestKind::Query, std::nullopt, {}, {}};
    std::size_t position = 0;
    for (const int code : kNanovipOrder) {
        const std::string field = TextAt(code, now);
        registers.replace(position, kNanovipField, field);
        answer.values.push_back({MeterName(code), kDigitsBefore + position, field, ReadField(field)});
        position += kNanovipField;
    }
    registers.replace(kStatusPosition, 2, ToHex({&status, 1}));
    const Byte head[] = {kNanovipAddress, kReadRegisters, static_cast<Byte>(2 * kNanovipRegisters)};
    answer.reply = Line(AsciiFrame(ToHex(head) + registers));
    return answer;
}

void Nanovip::SpoilCheck(Bytes& reply) const
{
    Byte& digit = reply[reply.size() - 3]; // the last one before the end of the line
    digit = digit == '0' ? '1' : '0';
}

void Nanovip::SpoilHead(Bytes& reply, std::size_t part) const
{
    const std::string frame(reply.begin(), reply.end());
    std::string digits = frame.substr(1, frame.size() - 5); // without colon, check byte and the end of the line
    char& victim = digits[2 * part + 1];
    victim = victim == '4' ? '5' : '4';
    reply = Line(AsciiFrame(digits));
}

void Nanovip::SetState(const std::string& name, const std::string& state)
{
    for (const NanovipState& each : kNanovipStates)
        if (name == each.name && state == each.state) {
            status = static_cast<Byte>(each.isSet ? status | each.bit : status & ~each.bit);
            return;
        }
    LineMeter::SetState(name, state);
}

MeterWiring Nanovip::Wiring() const
{
    return (status & kAtOnePhase) != 0 ? MeterWiring::OnePhase : MeterWiring::ThreeWire;
}

double Nanovip::Measure(int code, const Readings& readings) const
{
    const double value = LineMeter::Measure(code, readings);
    if (code != kMeterPowerFactor)
        return value;
    const bool isCapacitive = LineMeter::Measure(kMeterReactive, readings) < 0;
    return isCapacitive ? -std::abs(value) : std::abs(value);
}

std::string Nanovip::Format(int, double value) const
{
    Decimal decimal = ThreeDigits(std::abs(value));
    if (decimal.power > kMostPower)
        throw std::invalid_argument("value is too large for its text");
    if (decimal.power < kLeastPower)
        decimal = {0, 0};
    const std::string digits = std::to_string(decimal.number + 1000).substr(1); // with its leading zeros
    const auto power = static_cast<Byte>(decimal.power);
    std::string field(kPowerOfTen, '0');
    field[kFirstDigit] = digits[0];
    field[kSecondDigit] = digits[1];
    field[kThirdDigit] = digits[2];
    if (value < 0 && decimal.number != 0)
        field[kSignDigit] = kNegative;
    return field + ToHex({&power, 1});
}

std::string Nanovip::Fit(const std::string& text) const
{
    return FieldText(text, kNanovipField);
}

} // namespace korvanel::simulator
