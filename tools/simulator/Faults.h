// What can go wrong between an instrument and the program. A fault in force spoils every reply in its way.
#pragma once

#include "simulator/InstrumentFamily.h"

#include <random>

namespace korvanel::simulator {

enum class FaultKind
{
    None,
    Silent,    ///< no reply
    Truncated, ///< the last half is missing
    Overlong,  ///< 40 bytes too many
    Garbage,   ///< as many bytes, at random
    Crc,       ///< wrong checksum; a wrong character where there is none
    Head,      ///< wrong address or function, with a checksum that fits it; a wrong beginning where there is none
    Late,      ///< the whole reply, but after a delay
    Closed     ///< the line breaks off in place of the reply
};

/// Throws std::invalid_argument if there is no fault of that name.
FaultKind FaultOf(const std::string& name);

std::vector<std::string> FaultNames();

/// The reply as it reaches the line. What a fault makes at random comes from `random`, so that it can be repeated.
/// An empty reply stays empty.
Bytes Spoil(Bytes reply, FaultKind fault, const InstrumentFamily& family, std::mt19937& random);

} // namespace korvanel::simulator
