#include "simulator/Yokogawa2535.h"

#include "simulator/Texts.h"

#include <cstdlib>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr std::size_t k2535Field = 10;
constexpr char kNoFrequency[] = "888888";

/// A factor in the five characters that the setup has for it.
std::string FactorText(double factor)
{
    constexpr std::size_t kFactorLength = 5;
    constexpr double kLeastFactor = 0.01; // below, powers would have no room in the block
    constexpr double kMostFactor = 99999;
    if (!(factor >= kLeastFactor && factor <= kMostFactor))
        throw std::invalid_argument("scale: a factor is beyond 0.01 to 99999");
    return FieldText(NumberWithin(factor, static_cast<int>(kFactorLength) - 1, kFactorLength), kFactorLength);
}

/// The elements that a wiring has; the last of them stands for all.
std::vector<std::string> ElementsOf(MeterWiring wiring)
{
    switch (wiring) {
    case MeterWiring::OnePhase:
        return {"R"};
    case MeterWiring::ThreeWire:
        return {"R", "T", "SUM"};
    case MeterWiring::FourWire:
        break;
    }
    return {"R", "S", "T", "SUM"};
}

} // namespace

Yokogawa2535::Yokogawa2535(const InstrumentSetup& setup)
    : Yokogawa(setup, {kMeterVoltage, kMeterCurrent, kMeterActive, kMeterFrequency}, k2535Field)
{
    if (!setup.scaling) {
        scalingText = "SC0";
        return;
    }
    const std::string voltage = FactorText(setup.scaling->voltage);
    const std::string current = FactorText(setup.scaling->current);
    scalingText = "SC1,KV" + voltage + ",KA" + current;
    scaling = {std::strtod(voltage.c_str(), nullptr), std::strtod(current.c_str(), nullptr)};
}

std::string Yokogawa2535::SetupText() const
{
    return "MDL2535," + WiringText() + ',' + scalingText;
}

YokogawaBlock Yokogawa2535::Block(double now) const
{
    YokogawaBlock block;
    const std::vector<std::string> elements = ElementsOf(Wiring());
    AddElements(block, elements, elements.size() - 1, now);
    block.Add("AH", Format(kMeterCurrent, 0)); // of the integrator, which stands still
    AddValue(block, "HZ", kMeterFrequency, now);
    block.EndLine();
    return block;
}

std::string Yokogawa2535::Format(int code, double value) const
{
    constexpr int kDigits = 5;
    if (code == kMeterFrequency && value == 0)
        return FieldText(kNoFrequency, k2535Field);
    const std::string number = NumberWithin(value, kDigits, k2535Field);
    if (number.size() > k2535Field)
        throw std::invalid_argument("value is too large for its text");
    return FieldText(number, k2535Field);
}

double Yokogawa2535::Measure(int code, const Readings& readings) const
{
    const double value = Yokogawa::Measure(code, readings);
    switch (code) {
    case kMeterVoltage:
        return value / scaling.voltage;
    case kMeterCurrent:
        return value / scaling.current;
    case kMeterActive:
        return value / (scaling.voltage * scaling.current);
    default:
        return value;
    }
}

} // namespace korvanel::simulator
