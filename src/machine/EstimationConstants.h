// What the load estimation takes beside a sample: the constants of a machine, which are drawn from its record and model
// once for any number of samples.
#pragma once

#include "core/Machine.h"

#include <limits>
#include <string_view>

namespace korvanel {

/// How the stator is connected. Whatever is not star counts as delta.
enum class StatorConnection
{
    Star,
    Delta
};

constexpr StatorConnection ConnectionOf(std::u16string_view text)
{
    return text == u"Y" ? StatorConnection::Star : StatorConnection::Delta;
}

/// The rotor of a machine as the linear law of torque and speed sees it.
struct RotorLaw
{
    int polePairs = 0;
    double R2 = 0; ///< 0: no slope, the speed is synchronous
};

/// Constants of a machine. What is not known is 0.
struct EstimationConstants
{
    RotorLaw rotor;
    double ratedU = 0;
    double ratedF = 0;
    double noLoadPower = 0; ///< W at rated voltage and frequency
    double loadLoss = 0;    ///< W/Nm2
    double resistance = 0;  ///< Ohm, of the stator
    double friction = 0;    ///< Nm
    double factor = 0;      ///< of the space vector torque
    bool isFactorFixed = false;
    StatorConnection connection = StatorConnection::Delta;
};

/// Result of an estimation in which a number has left the range of a double, so that no guard may hide it.
inline constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr LoadEstimate kNoEstimate{kNoNumber, kNoNumber, kNoNumber, kNoNumber};

EstimationConstants ConstantsOf(const MachineRecord& record, const MachineModel& model);

} // namespace korvanel
