// The quantities of the meters that tell one value of each: their value codes, the same in all such families, their
// names in the log, and what a meter reads of the net.
#pragma once

#include "simulator/Readings.h"

namespace korvanel::simulator {

enum MeterCode : int
{
    kMeterVoltage = 0,
    kMeterCurrent = 1,
    kMeterFrequency = 2,
    kMeterActive = 3,
    kMeterApparent = 4,
    kMeterReactive = 5,
    kMeterPowerFactor = 6,
    kMeterAngle = 11,
};

/// How a meter is connected, which decides what its one voltage, current and power are.
enum class MeterWiring
{
    OnePhase,  ///< voltage to neutral, current and power of phase 1
    ThreeWire, ///< voltage between the lines and current as means of the phases, power of all
    FourWire   ///< the same with the voltage to neutral
};

/// Null if there is no such value code.
const char* MeterName(int code);

/// Of a known code, in V, A, Hz, W, VA, var and degrees. Reactive power and angle are positive when inductive, the
/// power factor has the sign of the active power.
double ReadMeter(int code, const Readings& readings, MeterWiring wiring);

} // namespace korvanel::simulator
