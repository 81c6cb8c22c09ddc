// What the simulated net does: an induction machine of 15 kW at 400 V, 50 Hz, whose load follows a profile. A profile
// is a pure function of time, so that a run can be repeated and an energy be checked by integration.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace korvanel::simulator {

/// One phase of the net.
struct PhaseState
{
    double voltage = 0;  ///< V, to neutral
    double active = 0;   ///< W, positive when the machine takes it
    double reactive = 0; ///< var, positive when inductive
};

struct NetState
{
    std::array<PhaseState, 3> phases;
    double frequency = 0; ///< Hz
};

/// The net at a time in seconds, from 0 on.
using LoadProfile = NetState (*)(double seconds);

/// A minute of idling, half load, full load and a pause, over and over, with smooth transitions and a small ripple.
NetState DutyCycle(double seconds);

/// Three quarters of the rated load, for ever the same.
NetState ConstantLoad(double seconds);

/// Throws std::invalid_argument if there is no profile of that name.
LoadProfile ProfileOf(const std::string& name);

std::vector<std::string> ProfileNames();

} // namespace korvanel::simulator
