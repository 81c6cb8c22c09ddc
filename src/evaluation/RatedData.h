// What a machine is rated for, as far as a load cycle is judged by it, and the power that it loses.
#pragma once

#include "core/MachineInUse.h"

#include <cmath>
#include <optional>

namespace korvanel {

/// Power lost in the machine for one set, W. Both in watts, signed: electrical power positive when drawn, shaft power
/// positive when delivered. A machine that draws power while its shaft is driven loses both, so their magnitudes add.
inline double LossPower(double P, double Pmech)
{
    if (P > 0 && Pmech < 0)
        return std::abs(Pmech) + P;
    return std::abs(std::abs(P) - std::abs(Pmech));
}

/// What is not there is not known.
struct RatedData
{
    std::optional<double> U;     ///< V
    std::optional<double> I;     ///< A
    std::optional<double> f;     ///< Hz
    std::optional<double> n;     ///< rpm
    std::optional<double> M;     ///< Nm
    std::optional<double> Pmech; ///< W, negative for a generator
    double Pel = 0;              ///< W, calculated, with the sign of the flow
    std::optional<double> Mkipp; ///< Nm, stall torque; known with its ratio to the rated torque

    /// Rated loss, W; nothing without the rated power.
    std::optional<double> Pth() const { return Pmech ? std::optional(LossPower(Pel, *Pmech)) : std::nullopt; }
};

/// Of a record, with the electrical power (W) and the stall torque (Nm) that were calculated for it.
RatedData RatedDataOf(const MachineRecord& record, double Pel, double stallTorque);

/// Of a machine of the block.
RatedData RatedDataOf(WhichMachine which);

} // namespace korvanel
