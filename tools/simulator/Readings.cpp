#include "simulator/Readings.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <numbers>

namespace korvanel::simulator {

namespace {

constexpr double kRadian = std::numbers::pi / 180;
constexpr double kSecondsPerHour = 3600;
constexpr double kCountingStep = 0.02; // s

std::complex<double> Phasor(double magnitude, double degrees)
{
    return std::polar(magnitude, degrees * kRadian);
}

/// Angle of the voltage of a phase from 1 to 3.
double VoltageAngle(std::size_t phase)
{
    return -120 * (static_cast<double>(phase) - 1);
}

/// Apparent power, power factor and angle from active and reactive power.
void Derive(Readings& readings, std::size_t index)
{
    const double active = readings.active[index];
    const double reactive = readings.reactive[index];
    const double apparent = std::hypot(active, reactive);
    readings.apparent[index] = apparent;
    readings.powerFactor[index] = apparent > 0 ? active / apparent : 1;
    readings.angle[index] = apparent > 0 ? std::atan2(reactive, active) / kRadian : 0;
}

void ReadLineVoltages(Readings& readings)
{
    for (std::size_t phase = 1; phase <= 3; ++phase) {
        const std::size_t next = phase % 3 + 1;
        readings.lineVoltage[phase] = std::abs(Phasor(readings.voltage[phase], VoltageAngle(phase)) -
                                               Phasor(readings.voltage[next], VoltageAngle(next)));
        readings.lineVoltage[0] += readings.lineVoltage[phase] / 3;
    }
}

} // namespace

Readings ReadNet(const NetState& net, int connectedPhases)
{
    Readings readings;
    readings.frequency = net.frequency;
    std::complex<double> neutral;
    for (std::size_t phase = 1; phase <= static_cast<std::size_t>(connectedPhases); ++phase) {
        const PhaseState& state = net.phases[phase - 1];
        readings.voltage[phase] = state.voltage;
        readings.active[phase] = state.active;
        readings.reactive[phase] = state.reactive;
        Derive(readings, phase);
        readings.current[phase] = readings.apparent[phase] / state.voltage;
        readings.voltage[0] += state.voltage / connectedPhases;
        readings.current[0] += readings.current[phase];
        readings.active[0] += state.active;
        readings.reactive[0] += state.reactive;
        neutral += Phasor(readings.current[phase], VoltageAngle(phase) - readings.angle[phase]);
    }
    Derive(readings, 0);
    readings.neutralCurrent = std::abs(neutral);
    if (connectedPhases == 3)
        ReadLineVoltages(readings);
    return readings;
}

void EnergyCounters::Advance(LoadProfile profile, int connectedPhases, double now)
{
    while (countedUntil < now) {
        const double step = std::min(kCountingStep, now - countedUntil);
        const NetState net = profile(countedUntil + step / 2);
        double active = 0;
        double reactive = 0;
        for (std::size_t phase = 0; phase < static_cast<std::size_t>(connectedPhases); ++phase) {
            active += net.phases[phase].active;
            reactive += net.phases[phase].reactive;
        }
        (active >= 0 ? activeIn : activeOut) += std::abs(active) * step / kSecondsPerHour;
        (reactive >= 0 ? reactiveIn : reactiveOut) += std::abs(reactive) * step / kSecondsPerHour;
        countedUntil = step < kCountingStep ? now : countedUntil + step;
    }
}

void EnergyCounters::Reset()
{
    activeIn = activeOut = reactiveIn = reactiveOut = 0;
}

} // namespace korvanel::simulator
