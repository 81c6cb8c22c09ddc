#include "simulator/LoadProfile.h"

#include <cmath>
#include <numbers>
#include <stdexcept>

namespace korvanel::simulator {

namespace {

constexpr double kRatedVoltage = 230.94;   // V, line to neutral
constexpr double kRatedFrequency = 50;     // Hz
constexpr double kRatedApparent = 19900;   // VA
constexpr double kVoltageDrop = 0.012;     // of the net, at the rated apparent power
constexpr double kTransitionSeconds = 2.0; // from one phase of the duty cycle to the next

// What makes the phases differ, as in any real net.
constexpr std::array<double, 3> kVoltageSpread = {0.002, -0.003, 0.001};
constexpr std::array<double, 3> kPowerSpread = {0.01, -0.015, 0.005};

/// How the machine runs: its shaft load as a part of the rated one, and how much of it is switched on.
struct Operation
{
    double load;
    double on;
};

struct DutyPhase
{
    double seconds;
    Operation operation;
};

constexpr DutyPhase kDuty[] = {
    {15, {0.0, 1}},
    {15, {0.5, 1}},
    {20, {1.0, 1}},
    {10, {0.0, 0}},
};

/// 0 at 0, 1 at 1, level at both ends.
double SmoothStep(double part)
{
    return part >= 1 ? 1 : part * part * (3 - 2 * part);
}

Operation DutyAt(double seconds)
{
    double length = 0;
    for (const DutyPhase& phase : kDuty)
        length += phase.seconds;
    double within = std::fmod(seconds, length);
    // The first phase of all has no predecessor to come from.
    Operation before = seconds < length ? std::begin(kDuty)->operation : std::rbegin(kDuty)->operation;
    for (const DutyPhase& phase : kDuty) {
        if (within < phase.seconds) {
            const double part = SmoothStep(within / kTransitionSeconds);
            const Operation& after = phase.operation;
            return {before.load + part * (after.load - before.load), before.on + part * (after.on - before.on)};
        }
        within -= phase.seconds;
        before = phase.operation;
    }
    return before;
}

double Wave(double seconds, double period)
{
    return std::sin(2 * std::numbers::pi * seconds / period);
}

/// Slow sines of periods without a common multiple: looks like noise, and is the same at every run.
double Ripple(double seconds, std::size_t phase)
{
    const double shifted = seconds + 3.7 * static_cast<double>(phase);
    return 0.5 * Wave(shifted, 1.31) + 0.3 * Wave(shifted, 4.77) + 0.2 * Wave(shifted, 0.53);
}

/// `ripple` scales what isn't steady; 0 gives a net at perfect rest.
NetState NetOf(const Operation& machine, double seconds, double ripple)
{
    const double active = machine.on * (600 + 16000 * machine.load + 600 * machine.load * machine.load);
    const double reactive = machine.on * (7200 + 2800 * machine.load * machine.load);
    const double drop = kVoltageDrop * std::hypot(active, reactive) / kRatedApparent;
    NetState net;
    net.frequency = kRatedFrequency + ripple * 0.02 * Wave(seconds, 37);
    for (std::size_t phase = 0; phase < net.phases.size(); ++phase) {
        const double unrest = ripple * Ripple(seconds, phase);
        const double share = (1 + kPowerSpread[phase]) * (1 + 0.004 * unrest) / 3;
        net.phases[phase].voltage = kRatedVoltage * (1 + kVoltageSpread[phase]) * (1 - drop + 0.0008 * unrest);
        net.phases[phase].active = active * share;
        net.phases[phase].reactive = reactive * share;
    }
    return net;
}

struct NamedProfile
{
    const char* name;
    LoadProfile profile;
};

constexpr NamedProfile kProfiles[] = {{"duty", DutyCycle}, {"constant", ConstantLoad}};

} // namespace

NetState DutyCycle(double seconds)
{
    return NetOf(DutyAt(seconds), seconds, 1);
}

NetState ConstantLoad(double seconds)
{
    return NetOf({0.75, 1}, seconds, 0);
}

LoadProfile ProfileOf(const std::string& name)
{
    for (const NamedProfile& entry : kProfiles)
        if (name == entry.name)
            return entry.profile;
    throw std::invalid_argument("unknown profile: " + name);
}

std::vector<std::string> ProfileNames()
{
    std::vector<std::string> names;
    for (const NamedProfile& entry : kProfiles)
        names.emplace_back(entry.name);
    return names;
}

} // namespace korvanel::simulator
