#include "diagrams/FormF8.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/clsGraphColours.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF8Texts.h"
#include "core/window/FormH3.h"
#include "core/window/PageFrame.h"
#include "core/window/PendingInput.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "diagrams/DiagramBox.h"
#include "diagrams/DiagramLegend.h"
#include "diagrams/DiagramPanel.h"
#include "diagrams/FormH17.h"
#include "diagrams/PictureOutput.h"
#include "diagrams/PointValues.h"
#include "diagrams/SteppedDrawing.h"
#include "evaluation/Algorithms.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

namespace korvanel {

namespace {

/// U, I and Pel, and of a machine speed, torque and power at its shaft.
DiagramStates FirstStates(int netConf)
{
    DiagramStates states{};
    for (const int quantity : {kU, kI, kP})
        states.at(static_cast<std::size_t>(quantity)) = 1;
    if (HasMachine(netConf))
        for (const int quantity : {kN, kM, kPmech})
            states.at(static_cast<std::size_t>(quantity)) = 1;
    return states;
}

/// Whether the second machine has gone through the sets.
bool HasSimulatedSets()
{
    return HasSecondMachine() && App().MachineII.evaluation.lSets == App().iSetCount;
}

/// The quantities of the column layout, in its order.
std::vector<int> QuantitiesOfLayout()
{
    std::vector<int> quantities;
    std::ranges::copy_if(App().ColumnLayout, std::back_inserter(quantities), [](qint16 column) { return column >= 0; });
    return quantities;
}

} // namespace

FormF8::FormF8(PageFrame& host, const PageEntry& entry) : Page(host, entry)
{
    constexpr int kSpacing = 4;
    constexpr int kLegendWidth = 190;
    Body().setSpacing(kSpacing);
    if (App().DiagramPage.iNetConfIndex != App().iNetConfIndex) {
        App().DiagramPage.iNetConfIndex = App().iNetConfIndex;
        App().DiagramPage.iGraphState = FirstStates(App().iNetConfIndex);
    }
    panel = new DiagramPanel;
    drawing = std::make_unique<SteppedDrawing>(*panel, windowTitle());
    connect(drawing.get(), &SteppedDrawing::Placed, this, [this] { ShowAxes(); });
    connect(drawing.get(), &SteppedDrawing::Locked, this, [this](bool isLocking) { LockButtons(isLocking); });
    BuildLegend();
    splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(panel);
    splitter->addWidget(legendSide);
    splitter->setStretchFactor(0, 1);
    splitter->setSizes({kPageWidth - kLegendWidth, kLegendWidth});
    legendSide->setVisible(App().DiagramPage.isLegendShown);
    BuildTabs();
    Body().addWidget(tabs, 1);
    Body().addLayout(BuildButtons());
    ConnectPicture();
    resized.setSingleShot(true);
    resized.setInterval(0);
    connect(&resized, &QTimer::timeout, this, [this] {
        const DiagramDrawing* shown = drawing->InView();
        if (shown && shown->Mapping().Size() != panel->Picture().Elements())
            RunGuarded(windowTitle(), [this] { DrawView(view); });
    });
}

FormF8::~FormF8() = default;

void FormF8::BuildTabs()
{
    tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("tabPage"));
    for (const QString& title : {texts::diagramSingle, texts::diagramAll}) {
        auto* tab = new QWidget;
        auto* column = new QVBoxLayout(tab);
        column->setContentsMargins(2, 2, 2, 2);
        tabs->addTab(tab, title);
    }
    tabs->setCurrentIndex(App().DiagramPage.isSingle ? 0 : 1);
    tabs->currentWidget()->layout()->addWidget(splitter);
    lockable.push_back(tabs->tabBar());
    connect(tabs, &QTabWidget::currentChanged, this, [this](int index) {
        tabs->widget(index)->layout()->addWidget(splitter); // both show the same picture box
        App().DiagramPage.isSingle = index == 0;
        Guarded([this] { Redraw(); });
    });
}

void FormF8::BuildLegend()
{
    legendSide = new QWidget;
    auto* column = new QVBoxLayout(legendSide);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* caption = new PlainLabel(texts::diagramLegend);
    caption->setObjectName(QStringLiteral("lblLegend"));
    column->addWidget(caption);
    legend = new DiagramLegend;
    caption->setBuddy(legend);
    column->addWidget(legend, 1);
    lockable.push_back(legend);
    connect(legend, &DiagramLegend::CurveClicked, this,
            [this](int quantity) { Guarded([this, quantity] { SwitchCurve(quantity); }); });
    connect(legend, &DiagramLegend::ColourWanted, this,
            [this](int quantity) { Guarded([this, quantity] { ChooseColour(quantity); }); });
    connect(legend, &DiagramLegend::OrderWanted, this, [this] { Guarded([this] { ChangeOrder(); }); });
}

QBoxLayout* FormF8::BuildButtons()
{
    auto* row = new QHBoxLayout;
    AddTool(*row, "cmdInfo", QStringLiteral("i"), texts::diagramInfoTip, [this] { ShowInfo(); });
    AddTool(*row, "cmdHide", QStringLiteral("▤"), texts::diagramHideTip, [this] { HideTable(); });
    undoButton = AddTool(*row, "cmdUndo", QStringLiteral("↶"), texts::diagramUndoTip, [this] {
        if (const auto record = history.Undo())
            DrawView(*record);
    });
    redoButton = AddTool(*row, "cmdRedo", QStringLiteral("↷"), texts::diagramRedoTip, [this] {
        if (const auto record = history.Redo())
            DrawView(*record);
    });
    AddTool(*row, "cmdRedraw", QStringLiteral("⟳"), texts::diagramRedrawTip, [this] { Redraw(); });
    AddTool(*row, "cmdFullScreen", QStringLiteral("⤢"), texts::diagramFullTip, [this] { ShowFullView(); });
    row->addStretch(1);
    secondMachineBox = new QCheckBox(texts::diagramSecondMachine);
    secondMachineBox->setObjectName(QStringLiteral("chkSecondMachine"));
    secondMachineBox->setToolTip(PlainToolTip(texts::diagramSecondMachineTip));
    secondMachineBox->setChecked(App().DiagramPage.isSecondMachineShown);
    connect(secondMachineBox, &QCheckBox::clicked, this,
            [this](bool isChecked) { Guarded([this, isChecked] { ShowSecondMachine(isChecked); }); });
    row->addWidget(secondMachineBox);
    lockable.push_back(secondMachineBox);

    pictureMenu = new QMenu(this);
    pictureMenu->addAction(
        AddKeys("mnuSavePicture", {}, [this] { SavePicture(drawing->Values(), Sheet(), panel->size()); }));
    pictureMenu->addAction(AddKeys("mnuCopyPicture", {QKeySequence::Copy},
                                   [this] { CopyPicture(drawing->Values(), Sheet(), panel->size()); }));
    pictureMenu->addAction(AddKeys("mnuWholeScreen", {QKeySequence(Qt::Key_F11)}, [this] { ToggleWholeScreen(); }));
    pictureMenu->actions().at(0)->setText(texts::diagramSave);
    pictureMenu->actions().at(1)->setText(texts::diagramCopy);
    pictureMenu->actions().at(2)->setText(texts::diagramWholeScreen);
    QToolButton* button = AddTool(*row, "cmdPicture", texts::diagramPicture, texts::diagramPictureTip, [] {});
    button->setMenu(pictureMenu);
    button->setPopupMode(QToolButton::InstantPopup);
    return row;
}

QToolButton* FormF8::AddTool(QBoxLayout& row, const char* name, const QString& sign, const QString& tip,
                             const std::function<void()>& routine)
{
    auto* button = new QToolButton;
    button->setObjectName(QLatin1String(name));
    button->setText(sign);
    button->setToolTip(PlainToolTip(tip));
    button->setAccessibleName(tip);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setMinimumSize(30, 26);
    connect(button, &QToolButton::clicked, this, [this, routine] { Guarded(routine); });
    row.addWidget(button);
    lockable.push_back(button);
    return button;
}

/// A key or a menu entry of the diagram; the same where the diagram has the whole screen.
QAction* FormF8::AddKeys(const char* name, const QList<QKeySequence>& keys, const std::function<void()>& routine)
{
    auto* action = new QAction(this);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, routine] {
        if (!areLocked)
            Guarded(routine);
    });
    addAction(action);
    panel->addAction(action);
    return action;
}

void FormF8::ConnectPicture()
{
    DiagramBox& box = panel->Picture();
    const QStringList hint{texts::diagramHint, texts::diagramHintPoint, texts::diagramHintLegend,
                           texts::diagramHintZoom};
    box.setToolTip(PlainToolTip(hint.join(u'\n')));
    connect(&box, &DiagramBox::RectangleDrawn, this, [this](const DiagramCorners& corners) {
        Guarded([this, corners] {
            DrawView(ViewOfRectangle(corners, App().iSetCount, bNegativeValues));
            AddToHistory();
        });
    });
    connect(&box, &DiagramBox::PointChosen, this,
            [this](double x, double y) { Guarded([this, x, y] { ShowPointInfo(x, y); }); });
    connect(&box, &DiagramBox::ViewWanted, this, [this](const DiagramView& wanted, bool isFinal) {
        Guarded([this, wanted, isFinal] {
            DrawView(wanted);
            if (isFinal)
                AddToHistory();
        });
    });
    connect(panel, &DiagramPanel::MenuWanted, this, [this](QPoint global) {
        if (!areLocked && !QApplication::activeModalWidget())
            pictureMenu->popup(global);
    });
    connect(panel, &DiagramPanel::Resized, this, [this] { resized.start(); });
    AddKeys("keyUndo", QKeySequence::keyBindings(QKeySequence::Undo), [this] { undoButton->click(); });
    AddKeys("keyRedo", {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)},
            [this] { redoButton->click(); });
    AddKeys("keyEscape", {QKeySequence(Qt::Key_Escape)}, [this] { Escape(); });
}

void FormF8::Refresh()
{
    if (isEvaluating || drawing->IsGoingOn()) // the end of a pass asks for it
        return;
    if (isEntered) {
        FillLegend();
        return;
    }
    isEntered = true;
    ShowEvaluationPage();
}

/// The page has no size yet; what it shows is drawn as soon as it has.
void FormF8::ShowEvaluationPage()
{
    if (!App().bEvaluated) {
        const QScopedValueRollback evaluating(isEvaluating, true);
        RunGuarded(windowTitle(), EvaluateProject);
        DropPendingInput(); // a second click on what led here would lead on
    }
    {
        const QScopedValueRollback evaluating(isEvaluating, true);
        RunGuarded(windowTitle(), [] { CallHook(Hook::ProvideSimulation); });
    }
    secondMachineBox->setVisible(HasSimulatedSets());
    ComputeScaleEnds();
    FillLegend();
    QTimer::singleShot(0, this, [this] {
        panel->Picture().setFocus();
        RunGuarded(windowTitle(), [this] { ShowFullView(); });
    });
}

void FormF8::Leave()
{
    StopWork();
}

bool FormF8::StopWork()
{
    const bool wasDrawing = drawing->IsGoingOn();
    drawing->End();
    return wasDrawing;
}

void FormF8::ComputeScaleEnds()
{
    const EvaluationResults& results = App().MachineI.evaluation;
    iGraphList = QuantitiesOfLayout();
    GraphScaleEnds = ScaleEndsOf(results);
    bNegativeValues = HasNegativeValues(results, iGraphList);
    if (!HasSimulatedSets() || !App().DiagramPage.isSecondMachineShown)
        return;
    const EvaluationResults& simulated = App().MachineII.evaluation;
    const DiagramScaleEnds ends = ScaleEndsOf(simulated);
    for (std::size_t i = 0; i < ends.size(); ++i) // both have room
        GraphScaleEnds.at(i) = std::max(GraphScaleEnds.at(i), ends.at(i));
    bNegativeValues = bNegativeValues || HasNegativeValues(simulated, iGraphList);
}

void FormF8::ShowSecondMachine(bool isShown)
{
    App().DiagramPage.isSecondMachineShown = isShown;
    ComputeScaleEnds();
    FillLegend();
    ShowFullView();
}

void FormF8::FillLegend()
{
    iGraphList = QuantitiesOfLayout();
    int& chosen = App().DiagramPage.quantity;
    if (std::ranges::find(iGraphList, chosen) == iGraphList.end())
        chosen = iGraphList.empty() ? -1 : iGraphList.front();
    legend->Fill(iGraphList, GraphScaleEnds);
    for (const int quantity : iGraphList)
        legend->ShowState(quantity, App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity)) == 1);
    legend->ShowChosen(chosen);
    if (pointSet)
        ShowPointInfo(*pointSet, 0);
}

DiagramCurve FormF8::CurveOf(int quantity) const
{
    DiagramStates alone{};
    alone.at(static_cast<std::size_t>(quantity)) = 1;
    return CurvesOf({&quantity, 1}, alone, GraphScaleEnds).front();
}

std::vector<DiagramCurve> FormF8::CurvesShown() const
{
    if (!App().DiagramPage.isSingle)
        return CurvesOf(iGraphList, App().DiagramPage.iGraphState, GraphScaleEnds);
    if (App().DiagramPage.quantity < 0)
        return {};
    return {CurveOf(App().DiagramPage.quantity)};
}

/// Of the curves that are drawn those that the second machine has too.
std::vector<DiagramCurve> FormF8::CurvesOfSecondMachine() const
{
    constexpr std::array kSimulated{kU, kF, kP, kN, kM, kPmech, kEta, kWp, kWpPlus, kWpMinus};
    std::vector<DiagramCurve> curves;
    if (HasSimulatedSets() && App().DiagramPage.isSecondMachineShown)
        std::ranges::copy_if(CurvesShown(), std::back_inserter(curves), [&](const DiagramCurve& curve) {
            return std::ranges::find(kSimulated, curve.quantity) != kSimulated.end();
        });
    return curves;
}

DiagramView FormF8::WholeView() const
{
    return NormalisedView(FullView(App().iSetCount, bNegativeValues), App().iSetCount);
}

// Drawing.

void FormF8::DrawDiagram(double x1, double x2, double y1, double y2)
{
    drawing->Begin(CurvesShown(), CurvesOfSecondMachine(), DiagramView{.x1 = x1, .x2 = x2, .y1 = y1, .y2 = y2},
                   App().iSetCount);
    F8UndoRedoButtons();
}

void FormF8::LockButtons(bool isLocking)
{
    areLocked = isLocking;
    panel->Picture().SetLocked(isLocking);
    App().TheShell->SetBusyMenus(!isLocking);
    Frame().SetPageButtons(!isLocking);
    for (QWidget* widget : lockable)
        widget->setEnabled(!isLocking);
    F8UndoRedoButtons();
}

/// What stands around a drawing that begins.
void FormF8::ShowAxes()
{
    view = drawing->InView()->Mapping().View();
    panel->Picture().SetFullView(WholeView());
    panel->ShowAxes(*drawing->InView());
    ShowValuesOfQuantity();
}

/// The right axis tells the values of the quantity that was clicked last.
void FormF8::ShowValuesOfQuantity()
{
    const DiagramDrawing* shown = drawing->InView();
    if (shown && App().DiagramPage.quantity >= 0)
        panel->ShowValues(shown->Grid(), shown->Mapping(), CurveOf(App().DiagramPage.quantity));
}

void FormF8::AddToHistory()
{
    history.Add(view.x1, view.x2, view.y1, view.y2);
    F8UndoRedoButtons();
}

void FormF8::F8UndoRedoButtons()
{
    if (areLocked)
        return;
    undoButton->setEnabled(history.HasUndo());
    redoButton->setEnabled(history.HasRedo());
}

void FormF8::ShowFullView()
{
    if (App().iSetCount != 1)
        DrawView(WholeView());
    else
        view = WholeView();
    AddToHistory();
}

void FormF8::Redraw()
{
    if (const auto record = history.CurrentZoom())
        DrawView(*record);
}

// What the user does.

void FormF8::ShowPointInfo(double x, double /*y*/)
{
    if (App().iSetCount < 1)
        return;
    const auto set = static_cast<qint32>(std::lround(std::clamp<double>(x, 1, App().iSetCount)));
    std::vector<QString> texts;
    VisitPoints(set, set, [&](const ShownSet& shown) {
        for (const int quantity : iGraphList)
            texts.push_back(PointText(shown.row, quantity));
    });
    if (texts.empty())
        return;
    pointSet = set;
    legend->ShowValues(set, texts);
    if (pointWindow && pointWindow->isVisible() && App().DiagramPage.quantity >= 0)
        pointWindow->H17ShowValue(App().DiagramPage.quantity, set);
}

/// Shows the values around the point that was clicked last, or tells how to choose one.
void FormF8::ShowInfo()
{
    if (!pointSet || App().DiagramPage.quantity < 0) {
        ShowInformation(QStringList{texts::diagramHint, texts::diagramHintPoint, texts::diagramHintLegend}.join(u'\n'));
        return;
    }
    if (!pointWindow)
        pointWindow = new FormH17(this);
    pointWindow->H17ShowForm(App().DiagramPage.quantity, *pointSet);
}

void FormF8::Choose(int quantity)
{
    App().DiagramPage.quantity = quantity;
    legend->ShowChosen(quantity);
    ShowValuesOfQuantity();
    if (pointWindow && pointWindow->isVisible() && pointSet)
        pointWindow->H17ShowValue(quantity, *pointSet);
}

void FormF8::SwitchCurve(int quantity)
{
    qint16& state = App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity));
    state = state == 1 ? 0 : 1;
    legend->ShowState(quantity, state == 1);
    Choose(quantity);
    if (App().DiagramPage.isSingle) // the one that is drawn is chosen by the click
        Redraw();
}

void FormF8::ChooseColour(int quantity)
{
    Choose(quantity);
    QColorDialog dialog(ColourOf(App().GraphColours->colour(quantity)), this);
    dialog.setObjectName(QStringLiteral("dlgColour"));
    dialog.setOption(QColorDialog::DontUseNativeDialog);
    dialog.setWindowTitle(App().Symbols->SymbolWithUnit(quantity));
    if (dialog.exec() != QDialog::Accepted)
        return;
    App().GraphColours->SetColour(quantity, ColourNumber(dialog.selectedColor()));
    legend->ShowState(quantity, App().DiagramPage.iGraphState.at(static_cast<std::size_t>(quantity)) == 1);
    Redraw();
}

void FormF8::ChangeOrder()
{
    if (FormH3::ChangeOrder(this))
        FillLegend();
}

void FormF8::HideTable()
{
    App().DiagramPage.isLegendShown = legendSide->isHidden();
    legendSide->setVisible(App().DiagramPage.isLegendShown);
}

void FormF8::ToggleWholeScreen()
{
    if (wholeScreen) {
        splitter->insertWidget(0, panel);
        splitter->setStretchFactor(0, 1);
        wholeScreen->hide();
        wholeScreen.release()->deleteLater(); // it may be the one whose key is being answered
    } else {
        // A window of its own around the panel: what was a window once stays one for the window system.
        wholeScreen = std::make_unique<QWidget>();
        wholeScreen->setObjectName(QStringLiteral("WholeScreen"));
        wholeScreen->setWindowTitle(windowTitle());
        auto* all = new QVBoxLayout(wholeScreen.get());
        all->setContentsMargins(0, 0, 0, 0);
        all->addWidget(panel);
        wholeScreen->installEventFilter(this);
        wholeScreen->showFullScreen();
    }
    panel->Picture().setFocus();
}

/// Whoever closes the whole screen wants the page back.
bool FormF8::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == wholeScreen.get() && event->type() == QEvent::Close) {
        event->ignore();
        ToggleWholeScreen();
        return true;
    }
    return Page::eventFilter(watched, event);
}

void FormF8::Escape()
{
    if (!panel->Picture().DropRectangle() && wholeScreen)
        ToggleWholeScreen();
}

DiagramSheet FormF8::Sheet() const
{
    DiagramSheet sheet;
    sheet.view = view;
    sheet.curves = CurvesShown();
    sheet.overlay = {&drawing->SimulatedValues(), CurvesOfSecondMachine()};
    if (App().DiagramPage.quantity >= 0)
        sheet.axisCurve = CurveOf(App().DiagramPage.quantity);
    sheet.count = App().iSetCount;
    sheet.title = App().sProjectName;
    return sheet;
}

} // namespace korvanel
