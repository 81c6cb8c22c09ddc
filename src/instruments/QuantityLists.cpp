#include "instruments/QuantityLists.h"

#include "core/Common.h"
#include "core/Texts.h"
#include "diagrams/clsSymbols.h"

#include <QStringList>

#include <array>
#include <span>

namespace korvanel {

namespace {

using T = TextTable;

struct ListLine
{
    Quantity quantity;
    TextMember name;
    TextMember suffix = nullptr;
    bool isOptional = false;
};

using Lines = std::span<const ListLine>;

constexpr ListLine kMeasuredSums[] = {
    {kU, &T::nameVoltage},
    {kI, &T::nameCurrent},
    {kF, &T::nameFrequency},
    {kP, &T::nameActivePower},
    {.quantity = kPhi, .name = &T::namePhaseAngle, .isOptional = true},
};
constexpr ListLine kRecordedSums[] = {
    {kS, &T::nameApparentPower}, {kQ, &T::nameReactivePower},   {kCosPhi, &T::namePowerFactor},
    {kWp, &T::nameActiveEnergy}, {kWq, &T::nameReactiveEnergy},
};
constexpr ListLine kMeasuredPhases[] = {
    {kU, &T::nameVoltage, &T::suffixMean},
    {kI, &T::nameCurrent, &T::suffixTotal},
    {kINeutral, &T::nameNeutralCurrent},
    {kF, &T::nameFrequency},
    {kP, &T::nameActivePower, &T::suffixTotal},
    {kPhi, &T::namePhaseAngle, &T::suffixMean, true},
    {kS, &T::nameApparentPower, &T::suffixTotal},
    {kQ, &T::nameReactivePower, &T::suffixTotal},
    {kCosPhi, &T::namePowerFactor, &T::suffixMean},
    {kWpPlusAbs, &T::nameAbsPositiveActive},
    {kWpMinusAbs, &T::nameAbsNegativeActive},
    {kWqPlusAbs, &T::nameAbsPositiveReactive},
    {kWqMinusAbs, &T::nameAbsNegativeReactive},
};
constexpr ListLine kMeasuredVoltage[] = {{kU, &T::nameVoltage, &T::suffixMean}, {kF, &T::nameFrequency}};

constexpr ListLine kCalculatedMachine[] = {
    {kN, &T::nameSpeed}, {kM, &T::nameTorque}, {kPmech, &T::nameShaftPower}, {kEta, &T::nameEfficiency}};
constexpr ListLine kCalculatedSums[] = {
    {kS, &T::nameApparentPower},   {kQ, &T::nameReactivePower},       {kCosPhi, &T::namePowerFactor},
    {kWp, &T::nameActiveEnergy},   {kWpPlus, &T::namePositiveEnergy}, {kWpMinus, &T::nameNegativeEnergy},
    {kWq, &T::nameReactiveEnergy},
};
constexpr ListLine kCalculatedRelative[] = {
    {kWpPlusRel, &T::nameRelPositiveActive},
    {kWpMinusRel, &T::nameRelNegativeActive},
    {kWqPlusRel, &T::nameRelPositiveReactive},
    {kWqMinusRel, &T::nameRelNegativeReactive},
};

struct Lists
{
    std::array<Lines, 2> measured;
    std::array<Lines, 2> calculated;
};

constexpr std::array<Lists, kNetConfCount> kLists{{
    {{kMeasuredSums}, {kCalculatedSums}},
    {{kMeasuredSums}, {kCalculatedSums}},
    {{kMeasuredSums}, {kCalculatedMachine, kCalculatedSums}},
    {{kMeasuredSums, kRecordedSums}, {kCalculatedRelative}},
    {{kMeasuredPhases}, {kCalculatedRelative}},
    {{kMeasuredPhases}, {kCalculatedMachine, kCalculatedRelative}},
    {{kMeasuredVoltage}, {}},
}};

QString Joined(const std::array<Lines, 2>& groups)
{
    QStringList texts;
    for (const Lines group : groups)
        for (const ListLine& line : group)
            texts << TextOf(line.name) + (line.suffix ? TextOf(line.suffix) : QString()) + QStringLiteral(" - ") +
                         App().Symbols->Symbol(line.quantity) + (line.isOptional ? QStringLiteral("*") : QString());
    return texts.join(u'\n');
}

} // namespace

QString MeasuredList(int netConf)
{
    return Joined(kLists.at(static_cast<std::size_t>(netConf)).measured);
}
QString CalculatedList(int netConf)
{
    return Joined(kLists.at(static_cast<std::size_t>(netConf)).calculated);
}

} // namespace korvanel
