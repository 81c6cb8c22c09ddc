// Energies and costs of a recording: powers summed over the sets, split by sign, then turned into energies, efficiency
// and money for one cycle and for many.
#pragma once

#include "core/Evaluation.h"
#include "core/ValueRow.h"

#include <array>

namespace korvanel {

using EnergyTableValues = std::array<EnergyEntry, kEnergyRowCount>;

/// What turns sums into energies and money.
struct EnergyTerms
{
    double dt = 0;                  ///< s between two sets
    bool isMachineValid = false;    ///< the efficiency of the energies is formed
    std::array<double, 3> prices{}; ///< per kWh drawn, per kWh delivered, per kvarh drawn
    double cycles = 0;
};

/// Efficiency of two energies or powers, `a` mechanical and `b` electrical: a / b for a motor whose `b` is above `c`,
/// b / a for a generator, 0 for anything else.
double EnergyRatio(double a, double b, double c);

/// Adds one set to the sums. Current, apparent and shaft power go with the sign of the active power, not with their
/// own.
void AccumulateEnergy(EnergyTableValues& tEnergy, const tValueRow& row);

/// Turns the sums into energies (Ws, vars, As, VAs), efficiency and costs. Delivered energy is a credit; capacitive
/// reactive energy costs nothing.
void FinishEnergy(EnergyTableValues& tEnergy, const EnergyTerms& terms);

} // namespace korvanel
