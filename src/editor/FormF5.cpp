#include "editor/FormF5.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF5Texts.h"
#include "core/window/DialogTable.h"
#include "data/FileManaging.h"
#include "data/FormH15.h"
#include "data/ValueTables.h"
#include "editor/EditorGrid.h"
#include "editor/EntryBar.h"
#include "editor/EntryColumns.h"
#include "editor/OverviewDiagram.h"
#include "editor/PastedRows.h"
#include "editor/RecordingBar.h"
#include "editor/RowOperations.h"

#include <QAction>
#include <QApplication>
#include <QBoxLayout>
#include <QClipboard>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QTabWidget>

#include <algorithm>
#include <optional>
#include <utility>

namespace korvanel {

namespace {

constexpr double kLeastInterval = 1;
constexpr double kMostInterval = 60;

} // namespace

FormF5::FormF5(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), grid(new EditorGrid), entryBar(new EntryBar), recordingBar(new RecordingBar),
      overview(new OverviewDiagram), tabs(new QTabWidget), menu(new QMenu(this))
{
    Body().setSpacing(5);
    Body().addWidget(grid);
    Body().addWidget(entryBar);
    Body().addLayout(BuildSetButtons());
    Body().addWidget(recordingBar);
    ConnectRecordingBar();
    BuildOverview();
    Body().addWidget(tabs, 1);
    BuildMenu();
    connect(grid, &EditorGrid::Moved, this, [this] { RunGuarded(windowTitle(), [this] { ShowCursor(); }); });
    connect(grid, &EditorGrid::EditWanted, this, [this](const QString& typed) { BeginEntry(typed); });
    connect(grid, &EditorGrid::MenuWanted, this, [this](QPoint at) {
        if (!QApplication::activeModalWidget())
            menu->popup(at);
    });
    connect(entryBar, &EntryBar::Accepted, this, [this] {
        Guarded([this] {
            if (ApplyEntry())
                grid->setFocus();
        });
    });
    connect(entryBar, &EntryBar::Left, this, [this] { grid->setFocus(); });
    App().RowHistory = &history;
}

FormF5::~FormF5()
{
    if (App().RowHistory == &history) // else another page has begun before this one is gone
        App().RowHistory = nullptr;
}

QPushButton* FormF5::AddButton(QBoxLayout& row, const QString& name, const QString& text,
                               const std::function<void()>& routine)
{
    auto* button = new QPushButton(text);
    button->setObjectName(name);
    connect(button, &QPushButton::clicked, this, [this, routine] { Guarded(routine); });
    row.addWidget(button);
    return button;
}

QBoxLayout* FormF5::BuildSetButtons()
{
    using Operation = bool (*)(qint32);
    const struct
    {
        const QString& text;
        Operation operation;
    } operations[] = {
        {texts::editorDuplicate, InsertSets},
        {texts::editorDelete, DeleteSets},
        {texts::editorInterpolate, [](qint32) { return InterpolateSets(); }},
    };
    auto* row = new QHBoxLayout;
    newButton = AddButton(*row, QStringLiteral("cmdNew"), texts::editorNew, [this] { MakeNew(); });
    int index = 0;
    for (const auto& line : operations)
        forSets.push_back(AddButton(*row, QStringLiteral("cmdInsDel_%1").arg(index++), line.text,
                                    [this, run = line.operation] { Operate([run] { run(App().iCurrentSet); }); }));
    row->addStretch(1);
    AddButton(*row, QStringLiteral("cmdSet_0"), texts::editorFirstSet, [this] { MoveTo(1); });
    AddButton(*row, QStringLiteral("cmdSet_1"), texts::editorLastSet, [this] { MoveTo(App().iSetCount); });
    AddButton(*row, QStringLiteral("cmdSet_2"), texts::editorFindSet, [this] { FindSet(); });
    return row;
}

void FormF5::ConnectRecordingBar()
{
    connect(&recordingBar->IntervalBox(), &QLineEdit::editingFinished, this,
            [this] { Guarded([this] { TakeInterval(); }); });
    connect(&recordingBar->MethodBox(), &QComboBox::activated, this, [this] { Guarded([this] { ChooseMethod(); }); });
    connect(&recordingBar->SimulationButton(), &QPushButton::clicked, this,
            [this] { Guarded([this] { Simulate(); }); });
}

void FormF5::BuildOverview()
{
    tabs->setObjectName(QStringLiteral("tabPage"));
    for (const QString& title : {texts::editorOverview, texts::editorCloseUp}) {
        auto* tab = new QWidget;
        auto* column = new QVBoxLayout(tab);
        column->setContentsMargins(2, 2, 2, 0);
        tabs->addTab(tab, title);
    }
    tabs->widget(0)->layout()->addWidget(overview);
    connect(tabs, &QTabWidget::currentChanged, this, [this](int index) {
        tabs->widget(index)->layout()->addWidget(overview); // both show the same picture box
        overview->SetCloseUp(index == 1);
    });
    connect(overview, &OverviewDiagram::SetsChosen, this,
            [this](qint32 first, qint32 count) { Guarded([this, first, count] { grid->Mark(first, count); }); });
}

QAction* FormF5::AddAction(const char* name, const QString& text, const QList<QKeySequence>& keys, QWidget& where,
                           const std::function<void()>& routine)
{
    auto* action = new QAction(text, this);
    action->setObjectName(QLatin1String(name));
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(action, &QAction::triggered, this, [this, routine] { Guarded(routine); });
    where.addAction(action);
    menu->addAction(action);
    return action;
}

/// The keys of the grid are its own: in a box they belong to the text.
void FormF5::BuildMenu()
{
    const auto press = [this](const char* name) { findChild<QPushButton*>(QLatin1String(name))->click(); };
    editingActions.push_back(AddAction("mnuEdit", texts::editorEdit, {}, *grid, [this] { BeginEntry({}); }));
    AddAction("mnuCopySets", texts::editorCopy, {QKeySequence::Copy}, *grid, [this] { Copy(); });
    editingActions.push_back(AddAction("mnuPasteSets", texts::editorPaste, {QKeySequence::Paste}, *grid,
                                       [this] { Paste(grid->MarkedCount() > 1); }));
    editingActions.push_back(AddAction("mnuPasteOver", texts::editorPasteOver, {}, *grid, [this] { Paste(true); }));
    AddAction("mnuMarkAll", texts::editorMarkAll, {QKeySequence::SelectAll}, *grid, [this] { grid->MarkAll(); });
    menu->addSeparator();
    editingActions.push_back(
        AddAction("mnuDuplicate", texts::editorDuplicate, {}, *grid, [press] { press("cmdInsDel_0"); }));
    editingActions.push_back(AddAction("mnuDeleteSets", texts::editorDelete, {QKeySequence(Qt::Key_Delete)}, *grid,
                                       [press] { press("cmdInsDel_1"); }));
    editingActions.push_back(
        AddAction("mnuInterpolate", texts::editorInterpolate, {}, *grid, [press] { press("cmdInsDel_2"); }));
    menu->addSeparator();
    undoAction =
        AddAction("mnuUndo", texts::editorUndo, {QKeySequence(Qt::CTRL | Qt::Key_Z)}, *this, [this] { TakeBack(); });
    redoAction = AddAction("mnuRedo", texts::editorRedo,
                           {QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z)}, *this,
                           [this] { DoAgain(); });
    menu->addSeparator();
    energiesAction =
        AddAction("mnuEnergies", texts::editorEnergies, {}, *grid, [this] { Operate([] { FormEnergies(); }); });
}

void FormF5::Refresh()
{
    if (isWorking) // the end of an operation asks for it; it shows what has come of it itself
        return;
    if (std::exchange(isSaving, false))
        history.TakeOwnSave();
    RefreshSetCount();
    ShowAll();
    grid->setFocus();
}

void FormF5::Leave()
{
    TakeMarks();
    overview->Stop();
}

void FormF5::ShowAll()
{
    recordingBar->ShowInterval(App().dInterval);
    recordingBar->ShowMethod(App().iCalcMethod);
    {
        const QScopedValueRollback moving(isMoving, true); // until it stands where the block says
        grid->ShowAgain();
    }
    grid->Mark(App().iCurrentSet, App().lMarkedSets);
    overview->ShowRecording();
    ShowStates();
}

void FormF5::ShowStates()
{
    const bool isEditable = AreRowsEditable(App().iNetConfIndex);
    const bool hasSets = App().iSetCount > 0;
    newButton->setEnabled(isEditable && !hasSets);
    recordingBar->SetIntervalEditable(isEditable);
    for (QWidget* part : forSets)
        part->setEnabled(isEditable && hasSets);
    for (QAction* action : editingActions)
        action->setEnabled(isEditable);
    undoAction->setEnabled(history.CanUndo());
    redoAction->setEnabled(history.CanRedo());
    const bool hasEnergies = IntegratesEnergy(App().iNetConfIndex);
    energiesAction->setVisible(hasEnergies);
    energiesAction->setEnabled(hasEnergies && hasSets);
    recordingBar->ShowEnergiesOutdated(App().bEnergiesOutdated && hasSets);
}

void FormF5::TakeMarks()
{
    App().iCurrentSet = grid->FirstMarked();
    App().lMarkedSets = grid->MarkedCount();
}

void FormF5::Operate(const std::function<void()>& operation)
{
    if (!TakePendingEntry())
        return;
    TakeMarks();
    App().bProjectDirty = true;
    overview->Stop();
    LockedAndBusy(
        [&] {
            const QScopedValueRollback working(isWorking, true);
            operation();
        },
        [this] { ShowAll(); });
}

// The cursor and the value under it.

void FormF5::ShowCursor()
{
    if (isMoving)
        return;
    const QScopedValueRollback moving(isMoving, true);
    bool isTaken = true;
    if (entryBar->HasPendingText()) {
        isTaken = false; // nor after a failure, which is told
        RunGuarded(windowTitle(), [&] { isTaken = ApplyEntry(); });
    }
    if (!isTaken) {
        grid->ReturnTo(shownSet, shownColumn);
        entryBar->LookAt();
        return;
    }
    shownSet = grid->CursorSet();
    shownColumn = grid->CursorColumn();
    App().iCurrentSet = shownSet;
    App().lMarkedSets = std::max(1, grid->MarkedCount());
    overview->ShowMarks(grid->FirstMarked(), grid->MarkedCount());
    ShowCell();
}

void FormF5::ShowCell()
{
    const EntryColumn* column = EntryColumnOf(shownColumn, App().iNetConfIndex);
    QString value;
    bool isThere = false;
    if (App().iSetCount > 0) {
        OpenDbGuarded();
        VisitSets(shownSet, shownSet, [&](const ShownSet& shown) {
            isThere = true;
            grid->ShowCursorRow(&shown);
            if (column)
                value = EntryText(shown.row, *column);
            return false;
        });
        CloseDbGuarded();
    }
    if (!isThere)
        grid->ShowCursorRow(nullptr);
    const QString name = FillPlaceholders(texts::editorCell, {QString::number(shownSet), ColumnHeading(shownColumn)});
    entryBar->Show(isThere ? name : QString(), value, isThere && column);
}

void FormF5::BeginEntry(const QString& typed)
{
    if (!QApplication::activeModalWidget())
        entryBar->Begin(typed);
}

/// The value goes to the cell that it was shown for, wherever the cursor is by now.
bool FormF5::ApplyEntry()
{
    const EntryColumn* column = EntryColumnOf(shownColumn, App().iNetConfIndex);
    if (!column || App().iSetCount < 1)
        return true;
    QString text = entryBar->Text();
    const std::optional<double> value = TypedValue(text, *column);
    entryBar->SetText(text);
    if (!value) {
        entryBar->LookAt();
        return false;
    }
    bool isDone = false;
    overview->Stop();
    LockedAndBusy(
        [&] {
            const QScopedValueRollback working(isWorking, true);
            isDone = EnterValue(shownSet, *column, *value);
        },
        [&] {
            if (isDone)
                ShowCell();
            grid->Reload();
            overview->ShowRecording();
            ShowStates();
        });
    return isDone;
}

bool FormF5::TakePendingEntry()
{
    if (!entryBar->HasPendingText())
        return true;
    const bool isTaken = ApplyEntry();
    if (!isTaken)
        entryBar->LookAt();
    return isTaken;
}

bool FormF5::TakeInput(InputUse use)
{
    if (!TakePendingEntry())
        return false;
    if (recordingBar->HasPendingInterval()) {
        TakeInterval();
        if (recordingBar->HasPendingInterval())
            return false;
    }
    if (use == InputUse::Saving) { // which wants the file for itself
        overview->Stop();
        isSaving = history.IsUpToDate();
        QMetaObject::invokeMethod(overview, &OverviewDiagram::ShowRecording, Qt::QueuedConnection);
    }
    return true;
}

// The interval, the method, the simulation.

void FormF5::TakeInterval()
{
    if (!recordingBar->HasPendingInterval() || isWorking)
        return;
    QString text = recordingBar->IntervalText();
    const std::optional<double> typed = LocalNumber(ToLocalDecimal(text));
    if (typed && *typed <= 0)
        text = QString::number(1);
    if (!CheckNumberRange(text, kLeastInterval, kMostInterval)) {
        recordingBar->LookAtInterval();
        return;
    }
    const double interval = LocalNumber(text).value_or(App().dInterval);
    recordingBar->ShowInterval(App().dInterval); // until the sets are made
    if (interval != App().dInterval)
        Operate([interval] { ResampleInterval(interval); });
}

void FormF5::ChooseMethod()
{
    const int method = recordingBar->Method();
    if (method != App().iCalcMethod)
        Operate([method] { ChangeMethod(method); });
    recordingBar->ShowMethod(App().iCalcMethod);
}

void FormF5::Simulate()
{
    if (!TakePendingEntry())
        return;
    overview->Stop();
    if (!HasSecondMachine()) {
        history.Beside([] { App().TheShell->ShowDialog(kDialogSecondMachine); });
        ShowAll();
        return;
    }
    LockedAndBusy(
        [this] {
            const QScopedValueRollback working(isWorking, true);
            history.RunSimulation();
        },
        [this] { ShowAll(); });
    if (App().lSound == 1)
        App().TheShell->Beep();
}

// Sets.

void FormF5::MakeNew()
{
    if (App().iSetCount == 0)
        Operate([] { MakeFirstSet(); });
}

void FormF5::MoveTo(qint32 set)
{
    if (App().iSetCount > 0)
        grid->Mark(set, 1);
    grid->setFocus();
}

void FormF5::FindSet()
{
    if (App().iSetCount > 0 && FormH15::ChooseSet(this))
        MoveTo(App().iCurrentSet);
}

void FormF5::Copy()
{
    const qint32 count = grid->MarkedCount();
    if (count > kMostCopied) {
        ShowInformation(
            FillPlaceholders(texts::editorTooManyCopied, {QString::number(count), QString::number(kMostCopied)}));
        return;
    }
    const QString text = count > 0 ? CopiedRows(grid->FirstMarked(), count) : QString();
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void FormF5::Paste(bool isOver)
{
    if (!TakePendingEntry())
        return;
    const PastedRows pasted = ReadPastedRows(QApplication::clipboard()->text(),
                                             isOver ? std::optional<qint32>(grid->MarkedCount()) : std::nullopt);
    if (!pasted.complaint.isEmpty()) {
        ShowError(pasted.complaint);
        return;
    }
    const qint32 behind = std::min(grid->CursorSet(), App().iSetCount);
    const qint32 first = grid->FirstMarked();
    Operate([&] { isOver ? OverwriteWithPasted(pasted, first) : InsertPasted(pasted, behind); });
}

void FormF5::TakeBack()
{
    Operate([this] { history.Undo(); });
}

void FormF5::DoAgain()
{
    Operate([this] { history.Redo(); });
}

} // namespace korvanel
