#include "output/ReportContent.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/NumberText.h"
#include "core/Quantities.h"
#include "core/texts/PrintExportTexts.h"
#include "output/ReportSections.h"
#include "output/ReportSets.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace korvanel {

namespace {

// The columns of the tables of sets, as far as they are switched on and a net configuration has them.
constexpr int kGeneral[] = {kU,  kI,      kF,      kP,  kQ,  kS,      kPhi,     kCosPhi,
                            kU1, kU1 + 1, kU1 + 2, kWp, kWq, kWpPlus, kWpMinus, kINeutral};
constexpr int kOfMachine[] = {kN, kM, kPmech, kEta, kColumnMethod};
constexpr int kRegisters[] = {kWpPlusAbs, kWpMinusAbs, kWqPlusAbs, kWqMinusAbs, kWpAbs, kWqAbs,
                              kWpPlusRel, kWpMinusRel, kWqPlusRel, kWqMinusRel, kWpRel, kWqRel};
/// Of a phase, counted from that of the first.
constexpr int kOfPhase[] = {kU1, kI1, kP1, kQ1, kS1, kPhi1, kCosPhi1};
/// What the tables of both machines begin with.
constexpr int kOfBoth[] = {kU, kI, kF, kP, kQ, kPhi, kCosPhi, kN, kM, kPmech, kEta, kWp};

bool IsSwitchedOn(int column)
{
    return column >= 0 && App().PrChecks.at(static_cast<std::size_t>(column)) > 0;
}

bool IsOn(int section)
{
    return App().PrintIt.at(static_cast<std::size_t>(section)) > 0;
}

/// Whether a column of the layout belongs to a section's table.
bool BelongsTo(int section, int column)
{
    const auto isIn = [column](std::span<const int> columns) {
        return std::ranges::find(columns, column) != columns.end();
    };
    switch (section) {
    case kReportSets: // the voltages of phases have no other table where nothing else is recorded of them
        return isIn(kGeneral) && (column < kU1 || column > kU1 + 2 || !TraitsOf(App().iNetConfIndex).hasPhases);
    case kReportMachineSets:
        return isIn(kOfMachine);
    case kReportRegisters:
        return isIn(kRegisters);
    default:
        break;
    }
    if (section < kReportPhase1 || section > kReportPhase3)
        return false;
    const int phase = section - kReportPhase1;
    return std::ranges::any_of(kOfPhase, [=](int first) { return first + phase == column; });
}

std::vector<int> ColumnsOfBoth()
{
    std::vector<int> columns = ColumnsOfBothMachines();
    std::erase_if(columns, [](int column) { return !IsSwitchedOn(column); });
    return columns;
}

constexpr int kWithoutMachine[] = {kReportOverview, kReportExtremes,  kReportEnergy,
                                   kReportSets,     kReportAllCurves, kReportOneCurve};
constexpr int kWithMachine[] = {kReportOverview,    kReportMachine,           kReportBothOverview,    kReportExtremes,
                                kReportEnergy,      kReportUtilisation,       kReportBothUtilisation, kReportSets,
                                kReportMachineSets, kReportSecondMachineSets, kReportAllCurves,       kReportOneCurve};
constexpr int kRecorder[] = {kReportOverview,  kReportExtremes,  kReportEnergy,  kReportSets,
                             kReportRegisters, kReportAllCurves, kReportOneCurve};
constexpr int kPhaseRecorder[] = {kReportOverview, kReportExtremes,   kReportEnergy, kReportSets,      kReportRegisters,
                                  kReportPhase1,   kReportPhase1 + 1, kReportPhase3, kReportAllCurves, kReportOneCurve};
constexpr int kMachineRecorder[] = {
    kReportOverview,    kReportMachine,         kReportBothOverview, kReportExtremes,    kReportEnergy,
    kReportUtilisation, kReportBothUtilisation, kReportSets,         kReportMachineSets, kReportSecondMachineSets,
    kReportRegisters,   kReportPhase1,          kReportPhase1 + 1,   kReportPhase3,      kReportAllCurves,
    kReportOneCurve};

/// By net configuration. Of the voltages alone nothing is reported.
constexpr std::array<std::span<const int>, kNetConfCount> kSections{
    kWithoutMachine, kWithoutMachine, kWithMachine, kRecorder, kPhaseRecorder, kMachineRecorder, {}};

QString TitleOfSets(int section)
{
    if (section >= kReportPhase1 && section <= kReportPhase3)
        return FillPlaceholders(texts::reportPhase, {QString::number(section - kReportPhase1 + 1)});
    return section == kReportMachineSets ? texts::reportMachineSets
           : section == kReportRegisters ? texts::reportRegisters
                                         : texts::reportSets;
}

} // namespace

std::span<const int> ReportSections(int netConf)
{
    return kSections.at(static_cast<std::size_t>(netConf));
}

std::vector<int> ColumnsOfBothMachines()
{
    std::vector<int> columns(std::begin(kOfBoth), std::end(kOfBoth));
    for (const int column : App().ColumnLayout) // what else a second machine has
        if (column >= 0 && HasColumn(SetSource::Simulated, column) &&
            std::ranges::find(columns, column) == columns.end())
            columns.push_back(column);
    return columns;
}

std::vector<int> ReportColumns(int section)
{
    if (section == kReportSecondMachineSets)
        return ColumnsOfBoth();
    std::vector<int> columns;
    for (const int column : App().ColumnLayout)
        if (BelongsTo(section, column) && IsSwitchedOn(column))
            columns.push_back(column);
    if (section == kReportMachineSets && !columns.empty())
        columns.push_back(kColumnMethod);
    return columns;
}

ReportSets SetsOfReport()
{
    const qint32 count = App().iSetCount;
    if (App().PrintSetsOpt == 1 || count < 1)
        return {.first = 1, .last = count};
    const auto [first, last] = std::minmax(App().StartAtSet, App().StopAtSet);
    return {.first = std::clamp(first, 1, count), .last = std::clamp(last, 1, count)};
}

namespace {

/// Whether a section of both machines is wanted, and there are two.
bool HasBoth(int section)
{
    return IsOn(section) && HasMachine(App().iNetConfIndex) && App().bASMSim;
}

void AddTable(Report& report, int section, SetTable table)
{
    const ReportSets sets = SetsOfReport();
    table.firstSet = sets.first;
    table.lastSet = sets.last;
    if (!table.columns.empty())
        report.Add(SetPages(section, table, report.Fonts()));
}

void AddOverview(Report& report)
{
    const bool hasMachineData = HasMachine(App().iNetConfIndex) && IsOn(kReportMachine);
    if (HasBoth(kReportBothOverview))
        PrintSection(report, kReportBothOverview);
    else if (IsOn(kReportOverview) || hasMachineData)
        report.Add(OverviewPages(report.Fonts(), IsOn(kReportOverview), hasMachineData));
}

void AddResults(Report& report)
{
    if (IsOn(kReportExtremes))
        report.Add(ExtremePages(report.Fonts()));
    if (IsOn(kReportEnergy))
        report.Add(EnergyPages(report.Fonts()));
    if (HasBoth(kReportBothUtilisation))
        PrintSection(report, kReportBothUtilisation);
    else if (HasMachine(App().iNetConfIndex) && IsOn(kReportUtilisation))
        report.Add(UtilisationPages(report.Fonts()));
}

void AddSets(Report& report)
{
    for (const int section : ReportSections(App().iNetConfIndex)) {
        if (section == kReportMachineSets && IsOn(section) && HasBoth(kReportSecondMachineSets)) {
            PrintSection(report, kReportMachineSets);
            PrintSection(report, kReportSecondMachineSets);
        } else if (IsOn(section) && section != kReportSecondMachineSets) {
            AddTable(report, section, {.title = TitleOfSets(section), .columns = ReportColumns(section)});
        }
    }
}

} // namespace

bool ReportShowsResults()
{
    const auto showsResults = [](int section) {
        return IsOn(section) && section != kReportSets && section != kReportMachineSets &&
               (section < kReportRegisters || section > kReportPhase3);
    };
    return std::ranges::any_of(ReportSections(App().iNetConfIndex), showsResults);
}

Report ReportOfProject()
{
    Report report;
    if (ReportSections(App().iNetConfIndex).empty())
        return report;
    AddOverview(report);
    AddResults(report);
    AddSets(report);
    report.Add(DiagramPages(report.Sources(), IsOn(kReportAllCurves), IsOn(kReportOneCurve)));
    return report;
}

void PrintSection(Report& report, int section)
{
    switch (section) {
    case kReportBothOverview:
        report.Add(BothOverviewPages(report.Fonts()));
        return;
    case kReportBothUtilisation:
        report.Add(BothUtilisationPages(report.Fonts()));
        return;
    case kReportMachineSets:
        AddTable(report, section, {.title = texts::reportMachineSetsI, .columns = ColumnsOfBoth()});
        return;
    case kReportSecondMachineSets:
        if (App().MachineII.evaluation.lSets == 0) // what the file may hold then are rows of another machine
            return;
        AddTable(report, section,
                 {.title = texts::reportMachineSetsII, .columns = ColumnsOfBoth(), .source = SetSource::Simulated});
        return;
    default:
        return;
    }
}

} // namespace korvanel
