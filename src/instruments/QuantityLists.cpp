#include "instruments/QuantityLists.h"

#include "core/Common.h"
#include "core/Texts.h"
#include "core/clsSymbols.h"
#include "core/texts/ValueNamesTexts.h"

#include <QStringList>

#include <array>
#include <span>

namespace korvanel {

namespace {

struct ListLine
{
    Quantity quantity;
    TextRef name;
    TextRef suffix = nullptr;
    bool isOptional = false;
};

using Lines = std::span<const ListLine>;

constexpr ListLine kMeasuredSums[] = {
    {kU, &texts::nameVoltage},
    {kI, &texts::nameCurrent},
    {kF, &texts::nameFrequency},
    {kP, &texts::nameActivePower},
    {.quantity = kPhi, .name = &texts::namePhaseAngle, .isOptional = true},
};
constexpr ListLine kRecordedSums[] = {
    {kS, &texts::nameApparentPower}, {kQ, &texts::nameReactivePower},   {kCosPhi, &texts::namePowerFactor},
    {kWp, &texts::nameActiveEnergy}, {kWq, &texts::nameReactiveEnergy},
};
constexpr ListLine kMeasuredPhases[] = {
    {kU, &texts::nameVoltage, &texts::suffixMean},
    {kI, &texts::nameCurrent, &texts::suffixTotal},
    {kINeutral, &texts::nameNeutralCurrent},
    {kF, &texts::nameFrequency},
    {kP, &texts::nameActivePower, &texts::suffixTotal},
    {kPhi, &texts::namePhaseAngle, &texts::suffixMean, true},
    {kS, &texts::nameApparentPower, &texts::suffixTotal},
    {kQ, &texts::nameReactivePower, &texts::suffixTotal},
    {kCosPhi, &texts::namePowerFactor, &texts::suffixMean},
    {kWpPlusAbs, &texts::nameAbsPositiveActive},
    {kWpMinusAbs, &texts::nameAbsNegativeActive},
    {kWqPlusAbs, &texts::nameAbsPositiveReactive},
    {kWqMinusAbs, &texts::nameAbsNegativeReactive},
};
constexpr ListLine kMeasuredVoltage[] = {{kU, &texts::nameVoltage, &texts::suffixMean}, {kF, &texts::nameFrequency}};

constexpr ListLine kCalculatedMachine[] = {{kN, &texts::nameSpeed},
                                           {kM, &texts::nameTorque},
                                           {kPmech, &texts::nameShaftPower},
                                           {kEta, &texts::nameEfficiency}};
constexpr ListLine kCalculatedSums[] = {
    {kS, &texts::nameApparentPower},   {kQ, &texts::nameReactivePower},       {kCosPhi, &texts::namePowerFactor},
    {kWp, &texts::nameActiveEnergy},   {kWpPlus, &texts::namePositiveEnergy}, {kWpMinus, &texts::nameNegativeEnergy},
    {kWq, &texts::nameReactiveEnergy},
};
constexpr ListLine kCalculatedRelative[] = {
    {kWpPlusRel, &texts::nameRelPositiveActive},
    {kWpMinusRel, &texts::nameRelNegativeActive},
    {kWqPlusRel, &texts::nameRelPositiveReactive},
    {kWqMinusRel, &texts::nameRelNegativeReactive},
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
