// A machine that the program works with: what is known of it, what follows from that, and how the load cycle treats it.
// It exists twice, for the measured machine and for that of the simulation; tables, ratings and listings take one of
// the two as a parameter.
#pragma once

#include "core/Evaluation.h"
#include "core/Machine.h"

namespace korvanel {

/// Motor/Generator I, the measured machine, and Motor/Generator II, that of the simulation. The numbers are the keys of
/// their rows in a project.
enum class WhichMachine
{
    I = 1,
    II = 2
};

struct MachineInUse
{
    MachineRecord record;
    MachineStatus status{};
    MachineModel model;
    EvaluationResults evaluation; ///< of the sets that it went through
};

} // namespace korvanel
