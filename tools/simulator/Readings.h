// What a power analyser makes of the net: the quantities of each phase and of all, and the energies counted since the
// last reset.
#pragma once

#include "simulator/LoadProfile.h"

#include <array>

namespace korvanel::simulator {

/// Overall value first, then the phases 1 to 3.
using Quantity = std::array<double, 4>;

struct Readings
{
    Quantity voltage{};     ///< V, line to neutral; overall: the mean
    Quantity lineVoltage{}; ///< V, lines 1-2, 2-3, 3-1; overall: the mean
    Quantity current{};     ///< A; overall: the sum
    Quantity active{};      ///< W
    Quantity reactive{};    ///< var
    Quantity apparent{};    ///< VA; overall: of the summed active and reactive power
    Quantity powerFactor{}; ///< 1 where nothing flows
    Quantity angle{};       ///< degrees, positive when inductive
    double neutralCurrent = 0;
    double frequency = 0;
};

/// Readings of an instrument that `connectedPhases` (1 or 3) of the net are wired to; the others read zero.
Readings ReadNet(const NetState& net, int connectedPhases);

class EnergyCounters
{
public:
    /// Counts what flows up to `now` (seconds); a time before the last one counts nothing.
    void Advance(LoadProfile profile, int connectedPhases, double now);
    void Reset();

    /// Wh and varh, of each direction.
    double ActiveIn() const { return activeIn; }
    double ActiveOut() const { return activeOut; }
    double ReactiveIn() const { return reactiveIn; }
    double ReactiveOut() const { return reactiveOut; }

private:
    double countedUntil = 0;
    double activeIn = 0;
    double activeOut = 0;
    double reactiveIn = 0;
    double reactiveOut = 0;
};

} // namespace korvanel::simulator
