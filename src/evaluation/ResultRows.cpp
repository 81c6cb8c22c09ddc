#include "evaluation/ResultRows.h"

#include "core/NumberText.h"
#include "core/Units.h"
#include "core/texts/FormF3Texts.h"
#include "core/texts/FormF6Texts.h"

namespace korvanel {

namespace {

constexpr double kTwoDecimals = 100;

constexpr EnergyTableRow kEnergyRows[] = {
    {&texts::rowActiveEnergy, &texts::groupMotorGenerator, &texts::unitWattHour, kEnergyActive, kSecondsPerHour, 1000,
     true},
    {&texts::rowReactiveEnergy, &texts::groupInductiveCapacitive, &texts::unitVarHour, kEnergyReactive, kSecondsPerHour,
     1000, true},
    {&texts::rowCurrent, &texts::groupMotorGenerator, &texts::unitAmpereHour, kEnergyCurrent, kSecondsPerHour, 1000,
     false},
    {&texts::rowApparentEnergy, &texts::groupMotorGenerator, &texts::unitVoltAmpereHour, kEnergyApparent,
     kSecondsPerHour, 1000, true},
};
constexpr EnergyTableRow kMechanicalRows[] = {
    {&texts::rowMechanicalEnergy, &texts::groupMotorGenerator, &texts::unitWattHour, kEnergyMechanical, kSecondsPerHour,
     1000, true},
    {&texts::rowEfficiency, &texts::groupMotorGenerator, nullptr, kEnergyEfficiency, 1, 100, false},
};

constexpr UtilisationTableRow kMostTorqueRows[] = {
    {&texts::rowTorque, nullptr, &texts::unitNewtonMetre, kMostTorque, 1, 100, &texts::ratedStallTorque},
};
constexpr UtilisationTableRow kMeanRows[] = {
    {&texts::rowCurrent, &texts::kindRms, &texts::unitAmpere, kWindowCurrent, 1, 1000, &texts::ratedCurrent},
    {&texts::rowTorque, &texts::kindRms, &texts::unitNewtonMetre, kWindowTorque, 1, 100, &texts::ratedTorque},
    {&texts::rowPower, &texts::kindRms, &texts::unitKilowatt, kWindowPower, kPerKilo, 1000, &texts::ratedPower},
    {&texts::rowPowerOfTorque, nullptr, &texts::unitKilowatt, kWindowPowerOfTorque, kPerKilo, 1000, &texts::ratedPower,
     true},
    {&texts::rowLoss, &texts::kindAvg, &texts::unitKilowatt, kWindowLoss, kPerKilo, 1000, &texts::ratedLoss},
};

constexpr UtilisationBlock kUtilisationBlocks[] = {
    {&texts::blockMostTorque, kMostTorqueRows, 0, Reach::OneSet},
    {&texts::blockWindow, kMeanRows, 0, Reach::Window},
    {&texts::blockWhole, kMeanRows, kWholeCurrent - kWindowCurrent, Reach::WholeRecording},
};

} // namespace

std::span<const EnergyTableRow> SupplyEnergyRows()
{
    return kEnergyRows;
}

std::span<const EnergyTableRow> ShaftEnergyRows()
{
    return kMechanicalRows;
}

const EnergyEntry& EnergyOf(const EvaluationResults& results, int entry)
{
    return results.tEnergy.at(static_cast<std::size_t>(entry));
}

QString EnergyText(const EnergyTableRow& row, double energy)
{
    double value = energy / row.divisor;
    return FormatValueUnit(value, row.unit ? TextOf(row.unit) : QString(), row.factor, row.asKilo);
}

QString CostText(const EvaluationResults& results, double amount)
{
    return FormatValueUnit(amount, results.sCurrency, kTwoDecimals, false);
}

std::span<const UtilisationBlock> UtilisationBlocks()
{
    return kUtilisationBlocks;
}

const UtilisationEntry& UtilisationOf(const EvaluationResults& results, int entry)
{
    return results.tAsm.at(static_cast<std::size_t>(entry));
}

QString UtilisationText(const UtilisationTableRow& row, const UtilisationEntry& entry)
{
    double value = entry.dValue / row.divisor;
    return FormatValueUnit(value, TextOf(row.unit), row.factor, false);
}

QString PercentText(double share)
{
    constexpr double kPercent = 100;
    return RoundValue(share * kPercent, kTwoDecimals);
}

} // namespace korvanel
