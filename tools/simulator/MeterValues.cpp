#include "simulator/MeterValues.h"

#include <algorithm>

namespace korvanel::simulator {

namespace {

struct MeterQuantity
{
    int code;
    const char* name;
    double (*read)(const Readings&, MeterWiring);
};

double MeterVoltage(const Readings& readings, MeterWiring wiring)
{
    if (wiring == MeterWiring::ThreeWire)
        return readings.lineVoltage[0];
    return readings.voltage[wiring == MeterWiring::OnePhase ? 1 : 0];
}

double MeterCurrent(const Readings& readings, MeterWiring wiring)
{
    return wiring == MeterWiring::OnePhase ? readings.current[1] : readings.current[0] / 3;
}

double MeterFrequency(const Readings& readings, MeterWiring)
{
    return readings.frequency;
}

/// What a phase has and all of them have together.
template <Quantity Readings::*member>
double PhaseOrAll(const Readings& readings, MeterWiring wiring)
{
    return (readings.*member)[wiring == MeterWiring::OnePhase ? 1 : 0];
}

constexpr MeterQuantity kMeterQuantities[] = {
    {kMeterVoltage, "U", MeterVoltage},
    {kMeterCurrent, "I", MeterCurrent},
    {kMeterFrequency, "f", MeterFrequency},
    {kMeterActive, "P", PhaseOrAll<&Readings::active>},
    {kMeterApparent, "S", PhaseOrAll<&Readings::apparent>},
    {kMeterReactive, "Q", PhaseOrAll<&Readings::reactive>},
    {kMeterPowerFactor, "cosphi", PhaseOrAll<&Readings::powerFactor>},
    {kMeterAngle, "phi", PhaseOrAll<&Readings::angle>},
};

const MeterQuantity* FindMeterQuantity(int code)
{
    const auto* found = std::find_if(std::begin(kMeterQuantities), std::end(kMeterQuantities),
                                     [code](const MeterQuantity& quantity) { return quantity.code == code; });
    return found == std::end(kMeterQuantities) ? nullptr : found;
}

} // namespace

const char* MeterName(int code)
{
    const MeterQuantity* quantity = FindMeterQuantity(code);
    return quantity == nullptr ? nullptr : quantity->name;
}

double ReadMeter(int code, const Readings& readings, MeterWiring wiring)
{
    return FindMeterQuantity(code)->read(readings, wiring);
}

} // namespace korvanel::simulator
