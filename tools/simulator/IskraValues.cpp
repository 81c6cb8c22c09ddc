#include "simulator/IskraValues.h"

#include "simulator/Texts.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

struct TextFormat
{
    IskraKind kind;
    std::size_t length;
    int digits;         ///< at most
    int fixedDecimals;  ///< of a number without prefix and unit; negative: as many as there is room for
    const char* gap;    ///< between number and prefix
    double leastPrefix; ///< smallest prefix in use
    const char* unit;
};

constexpr TextFormat kFormats[] = {
    {IskraKind::Voltage, 7, 5, -1, "", 1e-3, "V"},         {IskraKind::Current, 7, 5, -1, "", 1e-3, "A"},
    {IskraKind::Frequency, 7, 5, -1, "", 1, "Hz"},         {IskraKind::ActivePower, 8, 5, -1, "", 1e-3, "W"},
    {IskraKind::ReactivePower, 12, 5, -1, "", 1e-3, "va"}, {IskraKind::ApparentPower, 7, 5, -1, "", 1e-3, "VA"},
    {IskraKind::PowerFactor, 8, 6, 5, "", 1, ""},          {IskraKind::Angle, 7, 5, 2, "", 1, ""},
    {IskraKind::ActiveEnergy, 15, 8, -1, " ", 1, "Wh"},    {IskraKind::ReactiveEnergy, 15, 8, -1, " ", 1, "varh"},
};

const TextFormat& FormatOf(IskraKind kind)
{
    const auto* format = std::find_if(std::begin(kFormats), std::end(kFormats),
                                      [kind](const TextFormat& candidate) { return candidate.kind == kind; });
    return *format;
}

struct Prefix
{
    double factor;
    const char* letter;
};

constexpr Prefix kPrefixes[] = {{1e-3, "m"}, {1, ""}, {1e3, "k"}, {1e6, "M"}};

/// The largest prefix that leaves at least one digit before the point.
const Prefix& PrefixFor(double magnitude, double least)
{
    const Prefix* best = nullptr;
    for (const Prefix& prefix : kPrefixes)
        if (prefix.factor >= least && (best == nullptr || magnitude >= prefix.factor))
            best = &prefix;
    if (magnitude == 0) // nothing is small about a zero
        best = &kPrefixes[1];
    return *best;
}

std::string PrefixedText(const TextFormat& format, double value)
{
    const Prefix& prefix = PrefixFor(std::abs(value), format.leastPrefix);
    const std::string mark = std::string(format.gap) + prefix.letter;
    const std::size_t point = 1;
    const std::size_t sign = value < 0 ? 1 : 0;
    const std::size_t room =
        std::min(static_cast<std::size_t>(format.digits) + point + sign, format.length - mark.size());
    const std::string number = NumberWithin(value / prefix.factor, format.digits, room);
    if (number.size() > room)
        throw std::invalid_argument("value is too large for its text");
    return (number + mark + format.unit).substr(0, format.length);
}

/// Quantities of all phases read alike.
template <Quantity Readings::*member>
double Phases(const Readings& readings, const EnergyCounters&, std::size_t element)
{
    return (readings.*member)[element];
}

template <double Readings::*member>
double Single(const Readings& readings, const EnergyCounters&, std::size_t)
{
    return readings.*member;
}

template <double (EnergyCounters::*member)() const>
double Energy(const Readings&, const EnergyCounters& counters, std::size_t)
{
    return (counters.*member)();
}

constexpr IskraValue kValues[] = {
    {0, 1, IskraKind::ActiveEnergy, Energy<&EnergyCounters::ActiveIn>},
    {1, 1, IskraKind::ReactiveEnergy, Energy<&EnergyCounters::ReactiveIn>},
    {2, 1, IskraKind::ActiveEnergy, Energy<&EnergyCounters::ActiveOut>},
    {3, 1, IskraKind::ReactiveEnergy, Energy<&EnergyCounters::ReactiveOut>},
    {4, 4, IskraKind::ActivePower, Phases<&Readings::active>},
    {8, 4, IskraKind::ReactivePower, Phases<&Readings::reactive>},
    {12, 4, IskraKind::Current, Phases<&Readings::current>},
    {16, 4, IskraKind::Voltage, Phases<&Readings::voltage>},
    {20, 4, IskraKind::ApparentPower, Phases<&Readings::apparent>},
    {24, 4, IskraKind::PowerFactor, Phases<&Readings::powerFactor>},
    {28, 1, IskraKind::Frequency, Single<&Readings::frequency>},
    {32, 4, IskraKind::Angle, Phases<&Readings::angle>},
    {36, 1, IskraKind::Current, Single<&Readings::neutralCurrent>},
    {40, 4, IskraKind::Voltage, Phases<&Readings::lineVoltage>},
};

} // namespace

const IskraValue* FindIskraValue(int code)
{
    for (const IskraValue& value : kValues)
        if (code >= value.first && code < value.first + value.count)
            return &value;
    return nullptr;
}

std::size_t TextLength(IskraKind kind)
{
    return FormatOf(kind).length;
}

std::string FormatValue(IskraKind kind, double value)
{
    if (!std::isfinite(value))
        throw std::invalid_argument("not a number");
    const TextFormat& format = FormatOf(kind);
    std::string text;
    if (format.fixedDecimals >= 0)
        text = Fixed(value, format.fixedDecimals);
    else if (kind == IskraKind::ReactivePower) // the instrument tells the direction by a letter, not by a sign
        text = PrefixedText(format, std::abs(value)) + (value < 0 ? 'C' : 'L');
    else
        text = PrefixedText(format, value);
    if (text.size() > format.length)
        throw std::invalid_argument("value is too large for its text");
    return std::string(format.length - text.size(), ' ') + text;
}

} // namespace korvanel::simulator
