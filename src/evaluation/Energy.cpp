#include "evaluation/Energy.h"

#include <cmath>

namespace korvanel {

namespace {

constexpr double kWattSecondsPerKilowattHour = 3'600'000;

void AddBySign(EnergyEntry& entry, double deciding, double value)
{
    if (deciding > 0)
        entry.dPlus += value;
    else if (deciding < 0)
        entry.dMinus += value;
    entry.dTotal += value;
}

EnergyEntry Scaled(const EnergyEntry& entry, double factor)
{
    return {factor * entry.dPlus, factor * entry.dMinus, factor * entry.dTotal};
}

/// Efficiency of each field by itself.
EnergyEntry Efficiency(const EnergyEntry& mechanical, const EnergyEntry& electrical)
{
    return {EnergyRatio(mechanical.dPlus, electrical.dPlus, 0), EnergyRatio(mechanical.dMinus, electrical.dMinus, 0),
            EnergyRatio(mechanical.dTotal, electrical.dTotal, 0)};
}

/// A negative price is taken by its magnitude.
double Costs(double energy, double price)
{
    return std::abs(energy / kWattSecondsPerKilowattHour * price);
}

} // namespace

double EnergyRatio(double a, double b, double c)
{
    if (a == 0 || b == 0)
        return 0;
    if (a > 0)
        return b > c ? a / b : 0;
    return b < 0 ? b / a : 0;
}

void AccumulateEnergy(EnergyTableValues& tEnergy, const tValueRow& row)
{
    const double Pel = row.dP[kSum];
    AddBySign(tEnergy[kEnergyActive], Pel, Pel);
    AddBySign(tEnergy[kEnergyCurrent], Pel, row.dI[kSum]);
    AddBySign(tEnergy[kEnergyApparent], Pel, row.dS[kSum]);
    AddBySign(tEnergy[kEnergyMechanical], Pel, row.dPmech);
    AddBySign(tEnergy[kEnergyReactive], row.dQ[kSum], row.dQ[kSum]);
}

void FinishEnergy(EnergyTableValues& tEnergy, const EnergyTerms& terms)
{
    for (int row = kEnergyActive; row <= kEnergyMechanical; ++row)
        tEnergy[static_cast<std::size_t>(row)] = Scaled(tEnergy[static_cast<std::size_t>(row)], terms.dt);
    if (terms.isMachineValid)
        tEnergy[kEnergyEfficiency] = Efficiency(tEnergy[kEnergyMechanical], tEnergy[kEnergyActive]);

    EnergyEntry& costs = tEnergy[kCostsActive];
    costs.dPlus = Costs(tEnergy[kEnergyActive].dPlus, terms.prices[0]);
    costs.dMinus = Costs(tEnergy[kEnergyActive].dMinus, terms.prices[1]);
    costs.dTotal = costs.dPlus - costs.dMinus;
    tEnergy[kCostsReactive].dPlus = Costs(tEnergy[kEnergyReactive].dPlus, terms.prices[2]);

    for (std::size_t row = 0; row < kEnergyOfCycles; ++row)
        tEnergy[kEnergyOfCycles + row] = Scaled(tEnergy[row], terms.cycles);
    if (terms.isMachineValid) // an efficiency isn't multiplied
        tEnergy[kEnergyOfCycles + kEnergyEfficiency] =
            Efficiency(tEnergy[kEnergyOfCycles + kEnergyMechanical], tEnergy[kEnergyOfCycles + kEnergyActive]);
}

} // namespace korvanel
