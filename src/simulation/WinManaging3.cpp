#include "simulation/WinManaging3.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Units.h"
#include "core/clsProgSettings.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/FormH13Texts.h"
#include "core/texts/FormH14Texts.h"
#include "evaluation/Rating.h"
#include "evaluation/ResultRows.h"

#include <array>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kPlateFactor = 1000;

/// A value of the rating plate in its pattern with the unit.
QString PlateText(const QString& pattern, std::optional<double> value, double divisor = 1)
{
    return value ? FillPlaceholders(pattern, {RoundValue(*value / divisor, kPlateFactor)}) : texts::comparisonNone;
}

/// Percent of the sets that are of a class, with one decimal, a half going to the even digit.
QString ClassShare(const EvaluationResults& results, int rating)
{
    constexpr double kTenthsOfPercent = 1000;
    constexpr double kTenths = 10;
    if (results.lSets == 0)
        return NumberText(0);
    const double count = results.lRowClassCount.at(static_cast<std::size_t>(rating));
    return NumberText(std::nearbyint(count / results.lSets * kTenthsOfPercent) / kTenths);
}

/// "Motor/Generator I   18,5 kW    1462,5 rpm"
QString MachineHead(const QString& name, const MachineRecord& record)
{
    const auto known = [](const QString& text) { return text.isEmpty() ? texts::outcomeNone : text; };
    const std::optional<double> power = record.Pmech ? std::optional(*record.Pmech / kPerKilo) : std::nullopt;
    return FillPlaceholders(texts::outcomeMachine,
                            {name, known(RoundValue(power, kPlateFactor)), known(RoundValue(record.n, kPlateFactor))});
}

bool HasNoSets(const MachineInUse& first, const MachineInUse& second)
{
    return first.evaluation.lSets == 0 && second.evaluation.lSets == 0;
}

/// What a machine can have in a row of the energies. Of the reactive power a simulation knows nothing.
struct EnergyColumns
{
    const EvaluationResults& results;
    bool hasReactive;

    bool Has(int entry) const
    {
        const bool isReactive = entry == kEnergyReactive || entry == kCostsReactive;
        return results.lSets > 0 && (hasReactive || !isReactive);
    }
    QStringList Energies(const EnergyTableRow& row, int offset) const
    {
        if (!Has(row.entry))
            return {texts::outcomeNone, texts::outcomeNone, texts::outcomeNone};
        const EnergyEntry& energy = EnergyOf(results, row.entry + offset);
        return {EnergyText(row, energy.dPlus), EnergyText(row, energy.dMinus), EnergyText(row, energy.dTotal)};
    }
    QStringList ActiveCosts(int offset) const
    {
        if (!Has(kCostsActive))
            return {texts::outcomeNone, texts::outcomeNone, texts::outcomeNone};
        const EnergyEntry& costs = EnergyOf(results, kCostsActive + offset);
        return {CostText(results, costs.dPlus), CostText(results, costs.dMinus), CostText(results, costs.dTotal)};
    }
    QStringList ReactiveCosts(int offset) const
    {
        return {Has(kCostsReactive) ? CostText(results, EnergyOf(results, kCostsReactive + offset).dPlus)
                                    : texts::outcomeNone,
                QString(), QString()};
    }
};
using ColumnsOfBoth = std::array<EnergyColumns, 2>;

void AddCompared(ResultTable& table, ResultRowKind kind, const QStringList& names, const QStringList& first,
                 const QStringList& second)
{
    table.rows.push_back({.kind = kind, .cells = names + first + second});
}

void AddComparedEnergies(ResultTable& table, const ColumnsOfBoth& both, int offset, bool withShaft)
{
    const auto add = [&](const EnergyTableRow& row) {
        AddCompared(table, ResultRowKind::Values, {TextOf(row.name), TextOf(row.group)}, both[0].Energies(row, offset),
                    both[1].Energies(row, offset));
    };
    const auto addSupply = [&add](int entry) {
        for (const EnergyTableRow& row : SupplyEnergyRows())
            if (row.entry == entry)
                add(row);
    };
    addSupply(kEnergyActive);
    if (withShaft)
        for (const EnergyTableRow& row : ShaftEnergyRows())
            add(row);
    addSupply(kEnergyReactive);
}

void AddComparedCosts(ResultTable& table, const ColumnsOfBoth& both, int offset)
{
    const QStringList heads{texts::headCosts, texts::headCredit, texts::headTotal};
    AddCompared(table, ResultRowKind::Head, {QString(), QString()}, heads, heads);
    AddCompared(table, ResultRowKind::Values, {texts::rowActiveEnergy, texts::groupMotorGenerator},
                both[0].ActiveCosts(offset), both[1].ActiveCosts(offset));
    AddCompared(table, ResultRowKind::Values, {texts::rowReactiveEnergy, texts::groupInductiveCapacitive},
                both[0].ReactiveCosts(offset), both[1].ReactiveCosts(offset));
}

void AddBlockHeading(ResultTable& table, const QString& text)
{
    table.rows.push_back({.kind = ResultRowKind::Heading, .cells = {text}});
}

/// A cell of the utilisation: value and share of the rated one.
struct SharedCell
{
    QString text;
    qint32 colour = 0;
};

SharedCell SharedCellOf(const UtilisationTableRow& row, const MachineInUse& machine, int index, bool isKnown)
{
    if (!isKnown || machine.evaluation.lSets == 0 || (row.needsRatedSpeed && !machine.record.n))
        return {texts::outcomeNone};
    const UtilisationEntry& entry = UtilisationOf(machine.evaluation, index);
    const QString value = UtilisationText(row, entry);
    return {entry.vRatio ? FillPlaceholders(texts::outcomeShare, {value, PercentText(*entry.vRatio)})
                         : FillPlaceholders(texts::outcomeNoShare, {value}),
            entry.lColour};
}

} // namespace

QString RatedPowerText(const MachineRecord& record)
{
    return PlateText(texts::comparisonKilowatts, record.Pmech, kPerKilo);
}

QString RatedSpeedText(const MachineRecord& record)
{
    return PlateText(texts::comparisonRpm, record.n);
}

QString RatedVoltageText(const MachineRecord& record)
{
    return PlateText(texts::comparisonVolts, record.U);
}

QString GoodShareText(const EvaluationResults& results)
{
    return FillPlaceholders(texts::comparisonPercent, {ClassShare(results, 1)});
}

QString ClassesText(const EvaluationResults& results)
{
    QStringList lines;
    for (int rating = 1; rating < kRatingCount; ++rating)
        lines << FillPlaceholders(texts::comparisonClass,
                                  {RatingWord(rating),
                                   QString::number(results.lRowClassCount.at(static_cast<std::size_t>(rating))),
                                   ClassShare(results, rating)});
    return lines.join(u'\n');
}

ResultTable ComparedEnergyTable(const MachineInUse& first, const MachineInUse& second)
{
    ResultTable table{{texts::headQuantity,
                       {},
                       texts::headPlus,
                       texts::headMinus,
                       texts::headTotal,
                       texts::headPlus,
                       texts::headMinus,
                       texts::headTotal},
                      {}};
    if (HasNoSets(first, second))
        return table;
    const ColumnsOfBoth both{{{first.evaluation, true}, {second.evaluation, false}}};
    const QString cycles = QString::number(App().ProgSettings->Cycles());
    AddCompared(table, ResultRowKind::Spanned, {QString(), QString()},
                {MachineHead(texts::outcomeFirst, first.record), QString(), QString()},
                {MachineHead(texts::outcomeSecond, second.record), QString(), QString()});
    AddBlockHeading(table, texts::blockEnergy);
    AddComparedEnergies(table, both, 0, true);
    AddBlockHeading(table, texts::blockCosts);
    AddComparedCosts(table, both, 0);
    AddBlockHeading(table, FillPlaceholders(texts::blockEnergyOfCycles, {cycles}));
    AddComparedEnergies(table, both, kEnergyOfCycles, App().iNetConfIndex == kNetMachine); // as for one machine
    AddBlockHeading(table, FillPlaceholders(texts::blockCostsOfCycles, {cycles}));
    AddComparedCosts(table, both, kEnergyOfCycles);
    return table;
}

ResultTable ComparedUtilisationTable(const MachineInUse& first, const MachineInUse& second)
{
    ResultTable table{{texts::headQuantity,
                       {},
                       texts::outcomeReference,
                       MachineHead(texts::outcomeFirst, first.record),
                       MachineHead(texts::outcomeSecond, second.record)},
                      {}};
    if (HasNoSets(first, second))
        return table;
    for (const UtilisationBlock& block : UtilisationBlocks()) {
        AddBlockHeading(table, TextOf(block.heading));
        for (const UtilisationTableRow& row : block.rows) {
            if (row.needsRatedSpeed && !first.record.n && !second.record.n)
                continue;
            const int index = row.entry + block.offset;
            const bool isCurrent = row.entry == kWindowCurrent; // which a simulation doesn't have
            const SharedCell ofFirst = SharedCellOf(row, first, index, true);
            const SharedCell ofSecond = SharedCellOf(row, second, index, !isCurrent);
            table.rows.push_back({.kind = ResultRowKind::Values,
                                  .cells = {TextOf(row.name), row.kind ? TextOf(row.kind) : QString(),
                                            TextOf(row.reference), ofFirst.text, ofSecond.text},
                                  .colours = {0, 0, 0, ofFirst.colour, ofSecond.colour}});
        }
    }
    return table;
}

} // namespace korvanel
