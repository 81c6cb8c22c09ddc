#include "evaluation/WinManaging2.h"

#include "core/Common.h"
#include "core/NumberText.h"
#include "core/QuantityTable.h"
#include "core/Texts.h"
#include "core/clsProgSettings.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF6Texts.h"
#include "evaluation/ResultRows.h"
#include "evaluation/TimeWindow.h"

#include <span>

namespace korvanel {

namespace {

void AddHeading(ResultTable& table, const QString& text)
{
    table.rows.push_back({.kind = ResultRowKind::Heading, .cells = {text}});
}

void AddRow(ResultTable& table, const QStringList& cells, qint32 lastColour = 0)
{
    table.rows.push_back({.kind = ResultRowKind::Values, .cells = cells, .lastColour = lastColour});
}

bool IsMachineShown()
{
    return HasMachine(App().iNetConfIndex);
}

/// "12 - 45": first and last set of a window that reaches back over `span` sets.
QString WindowSets(double last, double span)
{
    return NumberText(FirstOfWindow(last, span)) + QStringLiteral(" - ") + NumberText(last);
}

// Extremes.

struct ExtremRow
{
    int quantity;
    bool isPrefixed;
    bool hasRms = true;
};

constexpr ExtremRow kElectricalRows[] = {
    {.quantity = kU, .isPrefixed = true},
    {.quantity = kI, .isPrefixed = true},
    {.quantity = kF, .isPrefixed = false, .hasRms = false},
    {.quantity = kP, .isPrefixed = true, .hasRms = false},
    {.quantity = kS, .isPrefixed = true, .hasRms = false},
    {.quantity = kQ, .isPrefixed = true},
    {.quantity = kCosPhi, .isPrefixed = false},
    {.quantity = kPhi, .isPrefixed = false},
};
constexpr ExtremRow kMachineRows[] = {
    {.quantity = kN, .isPrefixed = false},
    {.quantity = kM, .isPrefixed = false},
    {.quantity = kPmech, .isPrefixed = true},
    {.quantity = kEta, .isPrefixed = false},
};

/// A block of the table: where its values stand, and how its sets are written.
struct ExtremBlock
{
    TextRef heading;
    TextRef kind; ///< of the mean; none of single sets
    const ExtremEntry& (*minimum)(const EvaluationResults& results, int quantity);
    const ExtremEntry& (*maximum)(const EvaluationResults& results, int quantity);
    bool isOfWindow;
    bool isRms;
};

template <auto table>
const ExtremEntry& EntryOf(const EvaluationResults& results, int quantity)
{
    return (results.*table).at(static_cast<std::size_t>(quantity));
}

using R = EvaluationResults;
constexpr ExtremBlock kExtremBlocks[] = {
    {&texts::blockExtremes, nullptr, EntryOf<&R::tExtremMin>, EntryOf<&R::tExtremMax>, false, false},
    {&texts::blockRms, &texts::kindRms, EntryOf<&R::tRmsMin>, EntryOf<&R::tRmsMax>, true, true},
    {&texts::blockAvg, &texts::kindAvg, EntryOf<&R::tAvgMin>, EntryOf<&R::tAvgMax>, true, false},
};

QString ExtremText(const ExtremRow& row, double value)
{
    const QString& unit = App().Symbols->Unit(row.quantity);
    const double factor = QuantityOf(row.quantity).gridFactor;
    return row.isPrefixed ? FormatPrefixed(value, factor, true) + unit : FormatValueUnit(value, unit, factor, false);
}

QString ExtremSet(const EvaluationResults& results, const ExtremBlock& block, qint32 set)
{
    return block.isOfWindow ? WindowSets(set, results.dWindowSpan) : QString::number(set);
}

void AddExtremRows(ResultTable& table, const EvaluationResults& results, const ExtremBlock& block,
                   std::span<const ExtremRow> rows)
{
    for (const ExtremRow& row : rows) {
        if (block.isRms && !row.hasRms)
            continue;
        const ExtremEntry& minimum = block.minimum(results, row.quantity);
        const ExtremEntry& maximum = block.maximum(results, row.quantity);
        AddRow(table, {App().Symbols->Symbol(row.quantity), block.kind ? TextOf(block.kind) : QString(),
                       ExtremText(row, minimum.dValue), ExtremSet(results, block, minimum.lSet),
                       ExtremText(row, maximum.dValue), ExtremSet(results, block, maximum.lSet)});
    }
}

// Energies and costs.

/// `offset` is that of the rows of one cycle or of all of them.
void AddEnergyRows(ResultTable& table, const EvaluationResults& results, std::span<const EnergyTableRow> rows,
                   int offset)
{
    for (const EnergyTableRow& row : rows) {
        const EnergyEntry& energy = EnergyOf(results, row.entry + offset);
        AddRow(table, {TextOf(row.name), TextOf(row.group), EnergyText(row, energy.dPlus),
                       EnergyText(row, energy.dMinus), EnergyText(row, energy.dTotal)});
    }
}

void AddCostRows(ResultTable& table, const EvaluationResults& results, int offset)
{
    const EnergyEntry& active = EnergyOf(results, kCostsActive + offset);
    const EnergyEntry& reactive = EnergyOf(results, kCostsReactive + offset);
    table.rows.push_back(
        {.kind = ResultRowKind::Head, .cells = {{}, {}, texts::headCosts, texts::headCredit, texts::headTotal}});
    AddRow(table, {texts::rowActiveEnergy, texts::groupMotorGenerator, CostText(results, active.dPlus),
                   CostText(results, active.dMinus), CostText(results, active.dTotal)});
    AddRow(table,
           {texts::rowReactiveEnergy, texts::groupInductiveCapacitive, CostText(results, reactive.dPlus), {}, {}});
}

// Utilisation.

QString UtilisationSet(const EvaluationResults& results, double set, Reach reach)
{
    switch (reach) {
    case Reach::OneSet:
        break;
    case Reach::Window:
        return WindowSets(set, results.dWindowSpan);
    case Reach::WholeRecording:
        return WindowSets(set, results.lSets);
    }
    return NumberText(set);
}

QString ShareText(const UtilisationTableRow& row, std::optional<double> share)
{
    if (!share)
        return texts::resultNone;
    return FillPlaceholders(texts::resultShare, {PercentText(*share), TextOf(row.reference)});
}

void AddUtilisationRows(ResultTable& table, const MachineInUse& machine, const UtilisationBlock& block)
{
    for (const UtilisationTableRow& row : block.rows) {
        if (row.needsRatedSpeed && !machine.record.n)
            continue;
        const UtilisationEntry& entry = UtilisationOf(machine.evaluation, row.entry + block.offset);
        AddRow(table,
               {TextOf(row.name), row.kind ? TextOf(row.kind) : QString(), UtilisationText(row, entry),
                ShareText(row, entry.vRatio), UtilisationSet(machine.evaluation, entry.dSet, block.reach),
                entry.sVerdict},
               entry.lColour);
    }
}

} // namespace

ResultTable ExtremTable(const MachineInUse& machine)
{
    ResultTable table{{texts::headQuantity, {}, texts::headMinimum, texts::headSet, texts::headMaximum, texts::headSet},
                      {}};
    if (machine.evaluation.lSets == 0)
        return table;
    for (const ExtremBlock& block : kExtremBlocks) {
        AddHeading(table, TextOf(block.heading));
        AddExtremRows(table, machine.evaluation, block, kElectricalRows);
        if (IsMachineShown())
            AddExtremRows(table, machine.evaluation, block, kMachineRows);
    }
    return table;
}

ResultTable EnergyTable(const MachineInUse& machine)
{
    ResultTable table{{texts::headQuantity, {}, texts::headPlus, texts::headMinus, texts::headTotal}, {}};
    if (machine.evaluation.lSets == 0)
        return table;
    const QString cycles = QString::number(App().ProgSettings->Cycles());
    AddHeading(table, texts::blockEnergy);
    AddEnergyRows(table, machine.evaluation, SupplyEnergyRows(), 0);
    if (IsMachineShown())
        AddEnergyRows(table, machine.evaluation, ShaftEnergyRows(), 0);
    AddHeading(table, texts::blockCosts);
    AddCostRows(table, machine.evaluation, 0);
    AddHeading(table, FillPlaceholders(texts::blockEnergyOfCycles, {cycles}));
    AddEnergyRows(table, machine.evaluation, SupplyEnergyRows(), kEnergyOfCycles);
    if (App().iNetConfIndex == kNetMachine) // of many cycles the shaft is told for the symmetric load alone
        AddEnergyRows(table, machine.evaluation, ShaftEnergyRows(), kEnergyOfCycles);
    AddHeading(table, FillPlaceholders(texts::blockCostsOfCycles, {cycles}));
    AddCostRows(table, machine.evaluation, kEnergyOfCycles);
    return table;
}

ResultTable UtilisationTable(const MachineInUse& machine)
{
    ResultTable table{
        {texts::headQuantity, {}, texts::headMaximum, texts::headRelative, texts::headSet, texts::headSuitability}, {}};
    if (machine.evaluation.lSets == 0 || !IsMachineShown())
        return table;
    for (const UtilisationBlock& block : UtilisationBlocks()) {
        AddHeading(table, TextOf(block.heading));
        AddUtilisationRows(table, machine, block);
    }
    return table;
}

QString GapsText(const EvaluationResults& results)
{
    return FillPlaceholders(texts::resultsGaps, {QString::number(results.lGaps), PercentText(results.dCoverage)});
}

} // namespace korvanel
