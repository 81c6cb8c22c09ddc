// The command line of the simulator.
#pragma once

#include "simulator/Faults.h"
#include "simulator/InstrumentFamily.h"

#include <stdexcept>

namespace korvanel::simulator {

struct Options
{
    bool isHelpWanted = false;
    std::string family = "iskra";
    InstrumentSetup setup;
    std::string link; ///< empty: none
    std::string log;  ///< empty: none
    FaultKind fault = FaultKind::None;
    double delay = 0.5; ///< s
};

/// Throws std::invalid_argument with what is wrong. Limits of a family are checked by the family.
Options ParseOptions(int count, char* const values[]);

std::string HelpText();

/// The whole text as a number with a decimal point; throws std::invalid_argument if it isn't one.
double ParseNumber(const std::string& text);
/// The whole text as an integer; throws std::invalid_argument if it isn't one.
int ParseInteger(const std::string& text);

} // namespace korvanel::simulator
