#include "output/FormF9.h"

#include "core/Clock.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF9Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "evaluation/ProvideResults.h"
#include "output/PrintRun.h"
#include "output/PrinterChoice.h"
#include "output/ReportContent.h"
#include "output/ReportPreview.h"
#include "output/SetRangeBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace korvanel {

namespace {

// What a row of the grids stands for.
constexpr int kSectionRole = Qt::UserRole;
constexpr int kColumnRole = Qt::UserRole + 1;

struct SectionName
{
    int section;
    TextRef title;
};

constexpr SectionName kNames[] = {
    {kReportOverview, &texts::reportOverview},
    {kReportMachine, &texts::reportMachine},
    {kReportBothOverview, &texts::reportBothOverview},
    {kReportExtremes, &texts::reportExtremes},
    {kReportEnergy, &texts::reportEnergy},
    {kReportUtilisation, &texts::reportUtilisation},
    {kReportBothUtilisation, &texts::reportBothUtilisation},
    {kReportSets, &texts::reportSets},
    {kReportMachineSets, &texts::reportMachineSets},
    {kReportSecondMachineSets, &texts::reportMachineSetsII},
    {kReportRegisters, &texts::reportRegisters},
    {kReportAllCurves, &texts::reportAllCurves},
    {kReportOneCurve, &texts::reportOneCurve},
};

QString TitleOf(int section)
{
    if (section >= kReportPhase1 && section <= kReportPhase3)
        return FillPlaceholders(texts::reportPhase, {QString::number(section - kReportPhase1 + 1)});
    return TextOf(std::ranges::find(kNames, section, &SectionName::section)->title);
}

bool IsDiagram(int section)
{
    return section == kReportAllCurves || section == kReportOneCurve;
}

bool WantsSecondMachine(int section)
{
    return section == kReportBothOverview || section == kReportBothUtilisation || section == kReportSecondMachineSets;
}

bool IsSetTable(int section)
{
    return section == kReportSets || (section >= kReportMachineSets && section <= kReportPhase3);
}

} // namespace

FormF9::FormF9(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), printers(new PrinterChoice("cmdSetup", texts::printSetup)),
      range(new SetRangeBar(QStringLiteral("txtTable"))), preview(new ReportPreview)
{
    auto* halves = new QHBoxLayout;
    halves->setSpacing(8);
    halves->addWidget(BuildChoice(), 1);
    halves->addWidget(BuildPreview(), 1);
    Body().addLayout(halves, 1);
    changed.setSingleShot(true);
    changed.setInterval(0);
    connect(&changed, &QTimer::timeout, this, [this] { RunGuarded(windowTitle(), [this] { ShowReport(); }); });
    connect(range, &SetRangeBar::Changed, &changed, qOverload<>(&QTimer::start));
    connect(&printers->SetupButton(), &QPushButton::clicked, this, [this] { Guarded([this] { printers->SetUp(); }); });
    connect(preview, &ReportPreview::Moved, this, [this] { ShowPlace(); });
}

QWidget* FormF9::BuildChoice()
{
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(printers);
    column->addWidget(BuildTabs(), 1);
    column->addWidget(range);
    printButton = new QPushButton(texts::printPrint);
    printButton->setObjectName(QStringLiteral("cmdPrint"));
    printButton->installEventFilter(this);
    connect(printButton, &QPushButton::clicked, this, [this] { Guarded([this] { Print(); }); });
    auto* row = new QHBoxLayout;
    row->addStretch(1);
    row->addWidget(printButton);
    column->addLayout(row);
    return side;
}

QWidget* FormF9::BuildTabs()
{
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("tabEvaluation"));
    tabs->addTab(sections = BuildGrid("flxPrint", texts::printSections), texts::printSections);
    tabs->addTab(diagrams = BuildGrid("flxPrintDiagrams", texts::printDiagrams), texts::printDiagrams);
    isFilling = true;
    for (const int section : ReportSections(App().iNetConfIndex))
        AddSection(IsDiagram(section) ? *diagrams : *sections, section);
    if (sections->rowCount() > 0)
        AddColumns();
    isFilling = false;
    return tabs;
}

QTableWidget* FormF9::BuildGrid(const char* name, const QString& title)
{
    constexpr int kRowHeight = 20;
    auto* grid = new QTableWidget(0, 2);
    grid->setObjectName(QLatin1String(name));
    grid->setAccessibleName(title);
    grid->setHorizontalHeaderLabels({texts::printHeadSection, texts::printHeadPages});
    grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    grid->horizontalHeader()->setSectionResizeMode(1, QHeaderView::ResizeToContents);
    grid->horizontalHeader()->setHighlightSections(false);
    grid->verticalHeader()->hide();
    grid->verticalHeader()->setMinimumSectionSize(kRowHeight);
    grid->verticalHeader()->setDefaultSectionSize(kRowHeight);
    grid->setSelectionMode(QAbstractItemView::SingleSelection);
    grid->setSelectionBehavior(QAbstractItemView::SelectRows);
    grid->setEditTriggers(QAbstractItemView::NoEditTriggers);
    grid->setTabKeyNavigation(false);
    grid->setShowGrid(false);
    connect(grid, &QTableWidget::itemChanged, this, [this](QTableWidgetItem* item) {
        if (!isFilling)
            RunGuarded(windowTitle(), [this, item] { Switch(*item); });
    });
    return grid;
}

void FormF9::AddSection(QTableWidget& grid, int section)
{
    const int row = grid.rowCount();
    grid.setRowCount(row + 1);
    auto* item = new QTableWidgetItem(TitleOf(section));
    item->setData(kSectionRole, section);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    item->setCheckState(App().PrintIt.at(static_cast<std::size_t>(section)) > 0 ? Qt::Checked : Qt::Unchecked);
    auto* pages = new QTableWidgetItem;
    pages->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    pages->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.setItem(row, 0, item);
    grid.setItem(row, 1, pages);
}

void FormF9::AddColumns()
{
    const auto addRow = [this](QTableWidgetItem* item, Qt::ItemFlags flags) {
        const int row = sections->rowCount();
        sections->setRowCount(row + 1);
        item->setFlags(flags);
        sections->setItem(row, 0, item);
        sections->setSpan(row, 0, 1, 2);
    };
    auto* heading = new QTableWidgetItem(texts::printHeadColumns);
    QFont bold = sections->font();
    bold.setBold(true);
    heading->setFont(bold);
    heading->setBackground(palette().brush(QPalette::Button));
    addRow(heading, Qt::ItemIsEnabled);
    for (const qint16 column : App().ColumnLayout) {
        if (column < 0)
            continue;
        auto* item = new QTableWidgetItem(ColumnHeading(column));
        item->setData(kColumnRole, static_cast<int>(column));
        item->setCheckState(App().PrChecks.at(static_cast<std::size_t>(column)) > 0 ? Qt::Checked : Qt::Unchecked);
        addRow(item, Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    }
}

QWidget* FormF9::BuildPreview()
{
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(preview, 1);
    auto* row = new QHBoxLayout;
    pageLabel = new PlainLabel;
    pageLabel->setObjectName(QStringLiteral("lblPage"));
    row->addWidget(pageLabel, 1);
    const struct
    {
        const char* name;
        QString sign;
        const QString& tip;
        int step;
    } buttons[] = {
        {"cmdSmaller", QStringLiteral("−"), texts::printSmaller, -1},
        {"cmdLarger", QStringLiteral("+"), texts::printLarger, 1},
    };
    for (const auto& line : buttons) {
        auto* button = new QToolButton;
        button->setObjectName(QLatin1String(line.name));
        button->setText(line.sign);
        button->setToolTip(PlainToolTip(line.tip));
        button->setAccessibleName(line.tip);
        connect(button, &QToolButton::clicked, preview, [this, step = line.step] { preview->Zoom(step); });
        row->addWidget(button);
    }
    column->addLayout(row);
    return side;
}

void FormF9::Refresh()
{
    if (isEvaluating) // the end of a pass asks for it
        return;
    range->Refresh();
    changed.start();
}

/// Nothing is shown any more.
void FormF9::Leave()
{
    changed.stop();
}

/// Results that a section shows are formed first, as on the pages that show them.
void FormF9::ShowReport()
{
    if (isEvaluating) // what was changed meanwhile is shown at its end
        return;
    if (ReportShowsResults()) {
        const QScopedValueRollback evaluating(isEvaluating, true);
        ProvideResults(windowTitle());
    }
    if (!App().dtPrinted.isValid())
        App().dtPrinted = PresentMoment();
    const Report report = ReportOfProject();
    ShowPagesOfSections(report);
    preview->Show(report, ReportSections(App().iNetConfIndex).empty() ? texts::printNoReport : texts::printNoPages);
}

/// What each section takes, or why there is nothing of it.
void FormF9::ShowPagesOfSections(const Report& report)
{
    const QScopedValueRollback filling(isFilling, true);
    constexpr qint32 kLeastSets = 2;
    for (const QTableWidget* grid : {sections, diagrams}) {
        for (int row = 0; row < grid->rowCount(); ++row) {
            const QVariant number = grid->item(row, 0)->data(kSectionRole);
            if (!number.isValid())
                continue;
            const int section = number.toInt();
            QString text;
            if (WantsSecondMachine(section) && !App().bASMSim)
                text = texts::printNoSecondMachine;
            else if (IsDiagram(section) && App().iSetCount < kLeastSets)
                text = texts::printTooFewSets;
            else if (IsSetTable(section) && ReportColumns(section).empty())
                text = texts::printNoColumn;
            else if (const int pages = report.PagesOf(section); pages > 0)
                text = QString::number(pages);
            else if (grid->item(row, 0)->checkState() == Qt::Checked)
                text = texts::printReplaced; // the machine beside the overview, the first machine beside the second
            grid->item(row, 1)->setText(text);
        }
    }
}

void FormF9::Switch(const QTableWidgetItem& item)
{
    const qint32 isOn = item.checkState() == Qt::Checked ? 1 : 0;
    if (const QVariant section = item.data(kSectionRole); section.isValid())
        App().PrintIt.at(section.toUInt()) = isOn;
    else if (const QVariant column = item.data(kColumnRole); column.isValid())
        App().PrChecks.at(column.toUInt()) = isOn;
    else
        return;
    App().bProjectDirty = true;
    changed.start();
}

void FormF9::ShowPlace()
{
    const int page = preview->PageInView();
    pageLabel->setText(page == 0 ? QString()
                                 : FillPlaceholders(texts::printPages,
                                                    {QString::number(page), QString::number(preview->PageCount())}));
}

bool FormF9::TakeInput(InputUse /*use*/)
{
    return range->Take();
}

/// The hint of the button tells where the report would go at this moment.
bool FormF9::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == printButton && event->type() == QEvent::ToolTip)
        printButton->setToolTip(PlainToolTip(printers->Target()));
    return Page::eventFilter(watched, event);
}

void FormF9::Print()
{
    if (isEvaluating || !range->Take())
        return;
    if (ReportOfProject().PageCount() < 1) { // before anybody is asked for a file
        ShowInformation(texts::reportNothing);
        return;
    }
    if (const std::unique_ptr<ReportOutput> output = printers->AskOutput())
        LockedAndBusy([&] { RunPrint(*this, *output, PrintReport); }, [this] { ShowReport(); });
}

} // namespace korvanel
