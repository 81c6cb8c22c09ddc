#include "output/ReportSections.h"

#include "core/Common.h"
#include "core/NetConfigurations.h"
#include "core/NumberText.h"
#include "core/clsProgSettings.h"
#include "core/texts/FormH10Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "evaluation/WinManaging2.h"
#include "motors/ModelListing.h"
#include "output/ProjectItems.h"
#include "output/ReportFlow.h"
#include "simulation/WinManaging3.h"

#include <algorithm>
#include <iterator>
#include <optional>

namespace korvanel {

namespace {

// What of the project's items tells of the recording: the instrument and the net first, which have long names.
constexpr std::size_t kFirstOfMeasurement = 6;
constexpr std::size_t kFirstOfNumbers = 9;
constexpr int kMachineColumns = 2;

/// A value of an item; of a number no more digits than its reader can use.
template <typename Item>
QString ValueOf(const Item& item, const QString& value)
{
    double factor = 1000;
    const std::optional<double> number = item.isTyped ? std::nullopt : LocalNumber(value);
    const QString shown = number ? RoundSignificant(*number, factor) : value;
    return shown.isEmpty() || item.unit == nullptr ? shown : shown + u' ' + TextOf(item.unit);
}

std::vector<ReportItem> ItemsOfProject(std::size_t first, std::size_t count)
{
    std::vector<ReportItem> items;
    for (const ProjectItem& item : ProjectItems().subspan(first, count))
        items.push_back({TextOf(item.label), ValueOf(item, item.value())});
    return items;
}

void AddProject(ReportFlow& flow)
{
    constexpr int kLinesOfText = 6; // of the description
    flow.AddHeading(texts::reportProjectBlock);
    flow.AddItems(ItemsOfProject(0, kFirstOfMeasurement), 1, kLinesOfText);
    flow.AddHeading(texts::reportMeasurementBlock);
    flow.AddItems(ItemsOfProject(kFirstOfMeasurement, kFirstOfNumbers - kFirstOfMeasurement));
    flow.AddItems(ItemsOfProject(kFirstOfNumbers, ProjectItems().size() - kFirstOfNumbers), kMachineColumns, 3);
}

void AddMachine(ReportFlow& flow)
{
    std::vector<ReportItem> items;
    for (const MachineItem& item : MachineItems())
        items.push_back({TextOf(item.label), ValueOf(item, item.value(App().MachineI.record))});
    flow.AddHeading(texts::reportMachine);
    flow.AddItems(items, kMachineColumns);
    QStringList lines = ModelListing(App().MachineI.status, App().MachineI.model);
    const auto isRule = [](const QString& line) {
        return std::none_of(line.begin(), line.end(), [](QChar character) { return character.isLetterOrNumber(); });
    };
    lines.removeIf(isRule);
    if (lines.isEmpty())
        return;
    flow.AddHeading(texts::reportMachineModel);
    constexpr int kLineColumns = 3;
    flow.AddLines(lines, kLineColumns);
}

/// Both machines with their items side by side, and how their sets are rated.
ResultTable BothMachines()
{
    ResultTable table{.heads = {texts::reportQuantity, {}, texts::reportMachineI, texts::reportMachineII}, .rows = {}};
    const auto add = [&table](const QString& name, const QString& first, const QString& second) {
        table.rows.push_back({.kind = ResultRowKind::Values, .cells = {name, {}, first, second}});
    };
    for (const MachineItem& item : MachineItems())
        if (item.label != &texts::exportMachineRemark) // it is as long as its writer liked
            add(TextOf(item.label), ValueOf(item, item.value(App().MachineI.record)),
                ValueOf(item, item.value(App().MachineII.record)));
    table.rows.push_back({.kind = ResultRowKind::Heading, .cells = {texts::reportClasses}});
    const QStringList first = ClassesText(App().MachineI.evaluation).split(u'\n');
    const QStringList second = ClassesText(App().MachineII.evaluation).split(u'\n');
    for (qsizetype i = 0; i < first.size(); ++i) // class, a tab, its count and share
        add(first[i].section(u'\t', 0, 0), first[i].section(u'\t', 1), second.value(i).section(u'\t', 1));
    return table;
}

void AddWindow(ReportFlow& flow, const EvaluationResults& results)
{
    flow.AddLines({FillPlaceholders(texts::reportWindow, {results.sWindow})});
}

/// A table of the measured machine, below the time window that its values belong to.
ReportRun WindowPages(const ReportFonts& fonts, ReportSection section, const QString& title, const ResultTable& table)
{
    ReportFlow flow(fonts);
    flow.AddTitle(title);
    AddWindow(flow, App().MachineI.evaluation);
    flow.AddTable(table);
    return flow.Run(section);
}

} // namespace

ReportRun OverviewPages(const ReportFonts& fonts, bool hasOverview, bool hasMachine)
{
    ReportFlow flow(fonts);
    flow.AddTitle(hasOverview ? texts::reportOverview : texts::reportMachine);
    if (hasOverview)
        AddProject(flow);
    if (hasMachine)
        AddMachine(flow);
    return flow.Run(hasOverview ? kReportOverview : kReportMachine);
}

ReportRun BothOverviewPages(const ReportFonts& fonts)
{
    ReportFlow flow(fonts);
    flow.AddTitle(texts::reportBothOverview);
    AddProject(flow);
    flow.AddItems({{texts::reportMachineI + u':', App().MachineI.record.Hersteller},
                   {texts::reportMachineII + u':', App().MachineII.record.Hersteller}});
    flow.AddGap(1);
    flow.AddTable(BothMachines());
    return flow.Run(kReportBothOverview);
}

ReportRun ExtremePages(const ReportFonts& fonts)
{
    return WindowPages(fonts, kReportExtremes, texts::reportExtremes, ExtremTable(App().MachineI));
}

ReportRun EnergyPages(const ReportFonts& fonts)
{
    constexpr double kThousandths = 1000;
    const clsProgSettings& settings = *App().ProgSettings;
    const QString& currency = settings.UsedCurrency();
    std::vector<ReportItem> prices;
    std::size_t index = 0;
    for (const QString& label :
         {texts::optionsDrawnEnergy, texts::optionsDeliveredEnergy, texts::optionsReactiveEnergy})
        prices.push_back({label, RoundValue(settings.EnergyCosts(index++), kThousandths) + u' ' + currency});
    prices.push_back({texts::optionsCycles, QString::number(settings.Cycles())});
    ReportFlow flow(fonts);
    flow.AddTitle(texts::reportEnergy);
    flow.AddItems(prices, kMachineColumns);
    flow.AddGap(2);
    flow.AddTable(EnergyTable(App().MachineI));
    flow.AddLines({GapsText(App().MachineI.evaluation)});
    return flow.Run(kReportEnergy);
}

ReportRun UtilisationPages(const ReportFonts& fonts)
{
    return WindowPages(fonts, kReportUtilisation, texts::reportUtilisation, UtilisationTable(App().MachineI));
}

ReportRun BothUtilisationPages(const ReportFonts& fonts)
{
    ReportFlow flow(fonts);
    flow.AddTitle(texts::reportBothUtilisation);
    AddWindow(flow, App().MachineI.evaluation);
    flow.AddHeading(texts::reportEnergy);
    flow.AddTable(ComparedEnergyTable(App().MachineI, App().MachineII));
    flow.AddHeading(texts::reportUtilisation);
    flow.AddTable(ComparedUtilisationTable(App().MachineI, App().MachineII));
    return flow.Run(kReportBothUtilisation);
}

} // namespace korvanel
