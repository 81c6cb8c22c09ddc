#include "evaluation/FormF6.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/clsProgSettings.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/FormH15Texts.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "data/FormH15.h"
#include "data/SetList.h"
#include "evaluation/FormH10.h"
#include "evaluation/FormH9.h"
#include "evaluation/OverviewSheet.h"
#include "evaluation/ProvideResults.h"
#include "evaluation/Rating.h"
#include "evaluation/ResultGrid.h"
#include "evaluation/SetJudges.h"
#include "evaluation/SimulationSheet.h"
#include "evaluation/TimeWindow.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QVBoxLayout>

namespace korvanel {

namespace {

constexpr std::size_t kResultsPanel = 0;
constexpr std::size_t kSetsPanel = 1;
constexpr int kCostOptions = 1;
constexpr int kWindowOptions = 2;

} // namespace

FormF6::FormF6(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), tabs(new QTabWidget), list(new SetList(JudgeBy(RatingMode::MachineI)))
{
    Body().setSpacing(5);
    Body().addLayout(BuildHead());
    BuildTabs();
    Body().addWidget(tabs, 5);
    Body().addWidget(list, 4);
    Body().addLayout(BuildButtons());
    connect(list, &SetList::SetSelected, this, [](qint32 set) { App().iCurrentSet = set; });
    ShowPanels();
}

QLabel* FormF6::AddLabel(QBoxLayout& row, const char* name)
{
    auto* label = new PlainLabel;
    label->setObjectName(QLatin1String(name));
    row.addWidget(label);
    return label;
}

QBoxLayout* FormF6::BuildHead()
{
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    row->addWidget(AddPanelBox(kResultsPanel, texts::resultsShowTables));
    row->addWidget(AddPanelBox(kSetsPanel, texts::resultsShowSets));
    outdatedLabel = AddLabel(*row, "lblOutdated");
    outdatedLabel->setText(texts::resultsOutdated);
    outdatedLabel->setToolTip(PlainToolTip(texts::resultsOutdatedTip));
    QPalette colours = outdatedLabel->palette();
    colours.setColor(QPalette::WindowText, ColourOf(kRatingColours.back()));
    outdatedLabel->setPalette(colours);
    row->addStretch(1);
    cyclesLabel = AddLabel(*row, "lblCycles");
    windowLabel = AddLabel(*row, "lblTWindow");
    return row;
}

QCheckBox* FormF6::AddPanelBox(std::size_t index, const QString& text)
{
    auto* box = new QCheckBox(text);
    box->setObjectName(QStringLiteral("chkValue_%1").arg(index));
    box->setChecked(App().ResultPage.arePanelsShown.at(index));
    connect(box, &QCheckBox::toggled, this, [this, index](bool isChecked) { ChoosePanel(index, isChecked); });
    return panelBoxes.at(index) = box;
}

void FormF6::BuildTabs()
{
    const int netConf = App().iNetConfIndex;
    tabs->setObjectName(QStringLiteral("TabEvaluation"));
    AddTab(u'A', overview = new OverviewSheet, texts::resultsOverview);
    AddTab(u'B', extremes = new ResultGrid("flxExtrem"), texts::resultsExtremes);
    if (TraitsOf(netConf).hasPower)
        AddTab(u'C', BuildEnergies(), texts::resultsEnergy);
    if (HasMachine(netConf)) {
        AddTab(u'D', utilisation = new ResultGrid("flxASM"), texts::resultsUtilisation);
        AddTab(u'E', BuildSecondMachine(), texts::resultsSecondMachine);
    }
    connect(tabs, &QTabWidget::currentChanged, this,
            [this] { App().ResultPage.tab = tabs->currentWidget()->objectName().back(); });
}

void FormF6::AddTab(QChar key, QWidget* content, const QString& title)
{
    auto* tab = new QWidget;
    tab->setObjectName(QStringLiteral("TabEvaluation_") + key);
    auto* column = new QVBoxLayout(tab);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(content);
    tabs->addTab(tab, title);
    if (App().ResultPage.tab == key)
        tabs->setCurrentWidget(tab);
}

/// The energies are those of the sets: what is lacking stands right below them.
QWidget* FormF6::BuildEnergies()
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    column->addWidget(energies = new ResultGrid("flxEnergy"), 1);
    energyGapsLabel = new PlainLabel;
    energyGapsLabel->setObjectName(QStringLiteral("lblEnergyGaps"));
    column->addWidget(energyGapsLabel);
    return content;
}

QWidget* FormF6::BuildSecondMachine()
{
    simulation = new SimulationSheet([this](const std::function<void()>& routine) { Guarded(routine); });
    connect(simulation, &SimulationSheet::MachineChosen, this, [this] { ShowResults(list->FirstShown()); });
    return simulation;
}

QBoxLayout* FormF6::BuildButtons()
{
    auto* row = new QHBoxLayout;
    AddButton(*row, "cmdOptions_1", texts::resultsOptions, [this] { ChangeOptions(kCostOptions); });
    AddButton(*row, "cmdOptions_2", texts::resultsWindowSize, [this] { ChangeOptions(kWindowOptions); });
    AddButton(*row, "cmdExcel", texts::resultsExport, [this] {
        Locked([] { CallHook(Hook::ExportEvaluation); });
    })->setEnabled(HasHook(Hook::ExportEvaluation));
    row->addStretch(1);
    correctedLabel = AddLabel(*row, "lblCorrected");
    row->addSpacing(14);
    AddButton(*row, "cmdSet", texts::findSetTitle, [this] { FindSet(); });
    return row;
}

QPushButton* FormF6::AddButton(QBoxLayout& row, const char* name, const QString& text,
                               const std::function<void()>& routine)
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, routine] { Guarded(routine); });
    row.addWidget(button);
    return button;
}

void FormF6::Refresh()
{
    if (isEvaluating) // the end of the pass asks for it; the results are shown right after
        return;
    if (isEntered) {
        ShowResults(list->FirstShown());
        return;
    }
    isEntered = true;
    ShowEvaluationPage();
}

void FormF6::Leave()
{
    App().ResultPage.firstSet = list->FirstShown();
}

void FormF6::ShowEvaluationPage()
{
    {
        const QScopedValueRollback evaluating(isEvaluating, true);
        ProvideResults(windowTitle());
    }
    ShowResults(App().ResultPage.firstSet);
}

void FormF6::ShowResults(qint32 firstSet)
{
    overview->Refresh();
    extremes->Show(ExtremTable(App().MachineI));
    if (energies) {
        energies->Show(EnergyTable(App().MachineI));
        energyGapsLabel->setText(GapsText(App().MachineI.evaluation));
    }
    if (utilisation)
        utilisation->Show(UtilisationTable(App().MachineI));
    if (simulation)
        simulation->Refresh();
    outdatedLabel->setVisible(App().bEvaluated == 0);
    windowLabel->setText(FillPlaceholders(texts::resultsWindow, {TimeWindowText()}));
    cyclesLabel->setText(FillPlaceholders(texts::resultsCycles, {QString::number(App().ProgSettings->Cycles())}));
    correctedLabel->setText(
        FillPlaceholders(texts::resultsCorrected, {QString::number(App().MachineI.evaluation.lCorrectedRows)}));
    list->Select(App().iCurrentSet);
    list->Rebuild(firstSet);
}

void FormF6::ShowPanels()
{
    tabs->setVisible(App().ResultPage.arePanelsShown.at(kResultsPanel));
    list->setVisible(App().ResultPage.arePanelsShown.at(kSetsPanel));
}

void FormF6::ChoosePanel(std::size_t index, bool isShown)
{
    if (!isShown && !panelBoxes.at(1 - index)->isChecked()) {
        panelBoxes.at(index)->setChecked(true);
        return;
    }
    App().ResultPage.arePanelsShown.at(index) = isShown;
    ShowPanels();
}

void FormF6::ChangeOptions(int index)
{
    const int result = index == kCostOptions ? FormH10(this).exec() : FormH9(this).exec();
    if (result == QDialog::Accepted)
        ShowResults(list->FirstShown());
}

void FormF6::FindSet()
{
    if (!FormH15::ChooseSet(this))
        return;
    panelBoxes.at(kSetsPanel)->setChecked(true);
    list->ShowSet(App().iCurrentSet);
}

} // namespace korvanel
