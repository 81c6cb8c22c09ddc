#include "diagrams/FormF8.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Shell.h"
#include "core/clsGraphColours.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF8Texts.h"
#include "core/window/FormH3.h"
#include "core/window/PageFrame.h"
#include "core/window/PlainLabel.h"
#include "core/window/PlainToolTip.h"
#include "diagrams/DiagramBox.h"
#include "diagrams/DiagramLegend.h"
#include "diagrams/DiagramPanel.h"
#include "diagrams/FormH17.h"
#include "diagrams/PictureOutput.h"
#include "diagrams/PointValues.h"
#include "diagrams/SteppedDrawing.h"
#include "diagrams/WholeScreen.h"
#include "evaluation/ProvideResults.h"

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
#include <cmath>

namespace korvanel {

FormF8::FormF8(PageFrame& host, const PageEntry& entry) : Page(host, entry)
{
    constexpr int kSpacing = 4;
    constexpr int kLegendWidth = 190;
    Body().setSpacing(kSpacing);
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
    wholeScreen = std::make_unique<WholeScreen>(*panel, [this] {
        splitter->insertWidget(0, panel);
        splitter->setStretchFactor(0, 1);
        panel->Picture().setFocus();
    });
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
    pictureMenu->addAction(AddKeys("mnuWholeScreen", {QKeySequence(Qt::Key_F11)}, [this] { ShowWholeScreen(); }));
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
            DrawView(ViewOfRectangle(corners, App().iSetCount, content.HasNegative()));
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
    {
        const QScopedValueRollback evaluating(isEvaluating, true);
        ProvideResults(windowTitle());
    }
    secondMachineBox->setVisible(DiagramContent::HasSimulatedSets());
    content.ComputeScaleEnds();
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

void FormF8::ShowSecondMachine(bool isShown)
{
    App().DiagramPage.isSecondMachineShown = isShown;
    content.ComputeScaleEnds();
    FillLegend();
    ShowFullView();
}

void FormF8::FillLegend()
{
    content.TakeList();
    const std::vector<int>& quantities = content.GraphList();
    legend->Fill(quantities, content.ScaleEnds());
    for (const int quantity : quantities)
        legend->ShowState(quantity, DiagramContent::IsOn(quantity));
    legend->ShowChosen(App().DiagramPage.quantity);
    if (pointSet)
        ShowPointInfo(*pointSet, 0);
}

// Drawing.

void FormF8::DrawDiagram(double x1, double x2, double y1, double y2)
{
    drawing->Begin(content.CurvesShown(), DiagramContent::CurvesOfSecondMachine(content.CurvesShown()),
                   DiagramView{.x1 = x1, .x2 = x2, .y1 = y1, .y2 = y2}, App().iSetCount);
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
    panel->Picture().SetFullView(content.WholeView());
    panel->ShowAxes(*drawing->InView());
    ShowValuesOfQuantity();
}

/// The right axis tells the values of the quantity that was clicked last.
void FormF8::ShowValuesOfQuantity()
{
    const DiagramDrawing* shown = drawing->InView();
    if (shown && App().DiagramPage.quantity >= 0)
        panel->ShowValues(shown->Grid(), shown->Mapping(), content.CurveOf(App().DiagramPage.quantity));
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
        DrawView(content.WholeView());
    else
        view = content.WholeView();
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
        for (const int quantity : content.GraphList())
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
    legend->ShowState(quantity, DiagramContent::IsOn(quantity));
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

void FormF8::ShowWholeScreen()
{
    wholeScreen->Toggle(windowTitle());
    panel->Picture().setFocus();
}

void FormF8::Escape()
{
    if (!panel->Picture().DropRectangle() && wholeScreen->IsShown())
        ShowWholeScreen();
}

DiagramSheet FormF8::Sheet() const
{
    DiagramSheet sheet;
    sheet.view = view;
    sheet.curves = content.CurvesShown();
    sheet.overlay = {&drawing->SimulatedValues(), DiagramContent::CurvesOfSecondMachine(content.CurvesShown())};
    if (App().DiagramPage.quantity >= 0)
        sheet.axisCurve = content.CurveOf(App().DiagramPage.quantity);
    sheet.count = App().iSetCount;
    sheet.title = App().sProjectName;
    return sheet;
}

} // namespace korvanel
