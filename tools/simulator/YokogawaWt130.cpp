#include "simulator/YokogawaWt130.h"

#include "simulator/Texts.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr std::size_t kWt130Field = 11;
constexpr std::size_t kSumElement = 3;
// The sign of the angle in the wirings of three phases, one character before where an item has its value.
constexpr std::size_t kSignPosition = 187;

constexpr char kNoAngle[] = "O ";
constexpr char kLagging[] = " G";
constexpr char kLeading[] = " D";

} // namespace

/// The angle is told without a sign; two letters say whether there is one, and its direction.
struct YokogawaWt130::Angle
{
    std::string letters;
    std::string text;
    double degrees; ///< with its sign; of a text that was set the sign alone
};

YokogawaWt130::YokogawaWt130(const InstrumentSetup& setup)
    : Yokogawa(setup, {kMeterVoltage, kMeterCurrent, kMeterActive, kMeterFrequency, kMeterAngle}, kWt130Field)
{}

std::string YokogawaWt130::SetupText() const
{
    return "MODEL253503," + WiringText();
}

YokogawaBlock YokogawaWt130::Block(double now) const
{
    YokogawaBlock block;
    const bool isOnePhase = Wiring() == MeterWiring::OnePhase;
    AddElements(block, {"R", "S", "T", "SUM"}, isOnePhase ? 0 : kSumElement, now);
    const Angle angle = AngleAt(now);
    if (!isOnePhase) {
        block.Replace(kSignPosition, Format(kMeterAngle, angle.degrees));
        block.Name("sign", kSignPosition, FieldLength());
    }
    AddValue(block, "HZ", kMeterFrequency, now);
    const std::size_t position = block.Add("DEG " + angle.letters, angle.text);
    block.Name(MeterName(kMeterAngle), position, FieldLength());
    block.Name("sense", position - angle.letters.size(), angle.letters.size());
    block.EndLine();
    block.Append("END");
    block.EndLine();
    return block;
}

/// There is none while no current flows, or if an empty text was set for it.
YokogawaWt130::Angle YokogawaWt130::AngleAt(double now) const
{
    const auto letters = [](double degrees) { return degrees < 0 ? kLeading : kLagging; };
    if (const std::string* text = SetTextOf(kMeterAngle)) {
        const double direction = std::strtod(text->c_str(), nullptr) < 0 ? -1 : 1;
        return {Trimmed(*text).empty() ? kNoAngle : letters(direction), *text, direction};
    }
    const double degrees = ValueAt(kMeterAngle, now);
    const bool isFlowing = HasValue(kMeterAngle) || ValueAt(kMeterCurrent, now) != 0;
    return {isFlowing ? letters(degrees) : kNoAngle, Format(kMeterAngle, std::abs(degrees)), degrees};
}

std::string YokogawaWt130::Format(int, double value) const
{
    constexpr int kDigits = 5;
    constexpr std::size_t kRoom = 6; // of the digits and their point
    constexpr int kLeastPowerOfTen = -3;
    constexpr int kMostPowerOfTen = 12;
    constexpr double kNextPower = 1000;
    for (int power = value == 0 ? 0 : kLeastPowerOfTen; power <= kMostPowerOfTen; power += 3) {
        const std::string digits = NumberWithin(std::abs(value) / std::pow(10, power), kDigits, kRoom);
        if (std::strtod(digits.c_str(), nullptr) >= kNextPower)
            continue;
        std::array<char, 8> exponent{};
        std::snprintf(exponent.data(), exponent.size(), "E%+03d", power);
        return (value < 0 ? "-" : "+") + digits + exponent.data();
    }
    throw std::invalid_argument("value is too large for its text");
}

} // namespace korvanel::simulator
