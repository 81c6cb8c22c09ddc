#include "motors/FormF10.h"

#include "acquisition/PollingGrid.h"
#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/Shell.h"
#include "core/TableDb.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/DialogTable.h"
#include "core/window/PageFrame.h"
#include "core/window/PageTable.h"
#include "core/window/PlainLabel.h"
#include "instruments/DevManaging.h"
#include "motors/BrowseBar.h"
#include "motors/FormH11.h"
#include "motors/FormH6.h"
#include "motors/FormH8.h"
#include "motors/FurtherTab.h"
#include "motors/KnownGroup.h"
#include "motors/MachineGrid.h"
#include "motors/NoLoadPanel.h"
#include "motors/NumberBox.h"
#include "motors/RatingTab.h"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>

namespace korvanel {

FormF10::FormF10(PageFrame& host, const PageEntry& entry)
    : Page(host, entry), measurement(*this), timer(new QTimer(this)), tabs(new QTabWidget),
      grid(new MachineGrid([this](int first, int count) { return browser.Machines(first, count); })),
      ratingTab(new RatingTab), furtherTab(new FurtherTab), browseBar(new BrowseBar)
{
    timer->setObjectName(QStringLiteral("Timer1"));
    timer->setInterval(kTickMilliseconds);
    timer->setTimerType(Qt::PreciseTimer);
    tabs->setObjectName(QStringLiteral("tabAsync"));
    tabs->addTab(BuildList(), texts::machineTabList);
    tabs->addTab(ratingTab, texts::machineTabRating);
    tabs->addTab(furtherTab, texts::machineTabFurther);
    Body().addWidget(tabs, 1);
    Body().addLayout(BuildCommentRow());
    Body().addLayout(BuildButtonRow());
    Connect();
}

QPushButton* FormF10::AddButton(const char* name, const QString& caption, void (FormF10::*routine)())
{
    auto* button = new QPushButton(caption);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, routine] { Guarded([this, routine] { (this->*routine)(); }); });
    return button;
}

QWidget* FormF10::BuildList()
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    noDatabaseLabel = new PlainLabel(texts::machineNoDatabase);
    noDatabaseLabel->setObjectName(QStringLiteral("lblNoDatabase"));
    noDatabaseLabel->setVisible(false);
    column->addWidget(noDatabaseLabel);
    column->addWidget(grid, 1);
    auto* row = new QHBoxLayout;
    row->addWidget(searchButton = AddButton("cmdSearchWin", texts::machineSearch, &FormF10::PressSearch));
    row->addWidget(showAllButton = AddButton("cmdShowAll", texts::machineShowAll, &FormF10::PressShowAll));
    row->addStretch(1);
    row->addWidget(databaseButton = AddButton("cmdDatabase", texts::machineDatabase, &FormF10::PressDatabase));
    column->addLayout(row);
    return content;
}

QBoxLayout* FormF10::BuildCommentRow()
{
    auto* row = new QHBoxLayout;
    commentBox = new QLineEdit;
    commentBox->setObjectName(QStringLiteral("txtComment"));
    commentBox->setMaxLength(kLongestTypedText);
    auto* caption = new PlainLabel(texts::machineComment);
    caption->setBuddy(commentBox);
    row->addWidget(caption);
    row->addWidget(commentBox, 1);
    row->addWidget(browseBar);
    return row;
}

QBoxLayout* FormF10::BuildButtonRow()
{
    auto* row = new QHBoxLayout;
    editButtons = {AddButton("cmdEdit_0", texts::machineNew, &FormF10::PressNew),
                   AddButton("cmdEdit_1", texts::machineEdit, &FormF10::PressEdit),
                   AddButton("cmdEdit_2", texts::machineDelete, &FormF10::PressDelete)};
    insertButtons = {AddButton("cmdInsert_0", texts::machineApply, &FormF10::PressApply),
                     AddButton("cmdInsert_1", texts::machineCancel, &FormF10::PressCancel)};
    insertButtons[1]->setFocusPolicy(Qt::TabFocus); // what is to be thrown away isn't tested before
    infoButton = AddButton("cmdInfo_1", texts::machineInfo, &FormF10::PressInfo);
    for (QPushButton* button : editButtons)
        row->addWidget(button);
    row->addStretch(1);
    for (QPushButton* button : insertButtons)
        row->addWidget(button);
    row->addStretch(1);
    row->addWidget(infoButton);
    return row;
}

void FormF10::Connect()
{
    connect(timer, &QTimer::timeout, this, [this] { Tick(); });
    const auto moveTo = [this](int row) { Guarded([this, row] { MoveTo(row); }); };
    connect(grid, &MachineGrid::RowChosen, this, moveTo);
    connect(browseBar, &BrowseBar::RowWanted, this, moveTo);
    for (const auto* ofTab : {&ratingTab->Boxes(), &furtherTab->Boxes()})
        boxes.insert(boxes.end(), ofTab->begin(), ofTab->end());
    for (const NumberBox* box : boxes)
        connect(box, &NumberBox::Refused, this, [this, box] { ShowTabOf(*box); });
    NoLoadPanel& panel = ratingTab->Panel();
    connect(&panel, &NoLoadPanel::MeasurementWanted, this, [this] { Guarded([this] { PressNoLoad(); }); });
    connect(&panel, &NoLoadPanel::DiagnosisWanted, this, [this] { Guarded([this] { Diagnose(); }); });
    connect(&panel, &NoLoadPanel::WiringWanted, this,
            [this] { Guarded([] { App().TheShell->ShowDialog(kDialogWiring); }); });
}

void FormF10::ShowTabOf(const NumberBox& box)
{
    for (int i = 0; i < tabs->count(); ++i)
        if (tabs->widget(i)->isAncestorOf(&box))
            tabs->setCurrentIndex(i);
}

// What is shown.

void FormF10::Refresh()
{
    if (measurement.IsMeasuring() || isLeft)
        return;
    ratingTab->Panel().Refresh();
    if (isLoaded && shownDatabase == App().sMotorDbPath)
        return;
    const bool wasLoaded = std::exchange(isLoaded, true);
    isEdited = false; // of a row that the other database doesn't have
    RunGuarded(windowTitle(), [this, wasLoaded] {
        Change([this, wasLoaded] {
            if (wasLoaded)
                browser.Reload();
            else
                browser.Load();
        });
    });
}

void FormF10::Change(const std::function<void()>& routine)
{
    const auto atEnd = qScopeGuard([this] {
        shownDatabase = App().sMotorDbPath;
        grid->Fill(browser.Count());
        ShowMachine();
    });
    routine();
}

void FormF10::MoveTo(int row)
{
    const auto atEnd = qScopeGuard([this] { ShowMachine(); });
    browser.MoveTo(row);
}

void FormF10::ShowMachine()
{
    ShowEntry(EntryOfMachine(App().MachineI.record));
    grid->ShowRow(browser.Row());
    browseBar->ShowPlace(browser.Row(), browser.Count());
    noDatabaseLabel->setVisible(!browser.HasDatabase());
    Frame().ShowDatabase(browser.HasDatabase() ? FileNameOf(App().sMotorDbPath) : QString());
    ShowState();
}

void FormF10::ShowEntry(const MachineEntry& entry)
{
    comment = entry.comment;
    commentBox->setText(comment);
    commentBox->setCursorPosition(0);
    shownComment = commentBox->text();
    ratingTab->Show(entry);
    furtherTab->Show(entry);
}

/// Which controls can be used: browsing, editing or measuring.
void FormF10::ShowState()
{
    const bool isMeasuring = measurement.IsMeasuring();
    const bool isBrowsing = !isEdited && !isMeasuring;
    const bool hasRow = browser.Row() >= 0;
    const bool hasDatabase = browser.HasDatabase();
    grid->setEnabled(isBrowsing);
    browseBar->EnableButtons(isBrowsing && browser.Count() > 0);
    editButtons[0]->setEnabled(isBrowsing && hasDatabase);
    editButtons[1]->setEnabled(isBrowsing && hasRow);
    editButtons[2]->setEnabled(isBrowsing && hasRow);
    for (QPushButton* button : insertButtons)
        button->setEnabled(isEdited && !isMeasuring);
    searchButton->setEnabled(isBrowsing && hasDatabase);
    showAllButton->setEnabled(isBrowsing && browser.IsFiltered());
    databaseButton->setEnabled(isBrowsing);
    infoButton->setEnabled(!isMeasuring);
    SetReadOnly(*commentBox, !isEdited);
    commentBox->setEnabled(!isMeasuring);
    tabs->tabBar()->setEnabled(!isMeasuring);
    ratingTab->SetEditing(isEdited);
    furtherTab->SetEditing(isEdited);
    ratingTab->SetMeasuring(isMeasuring);
    Frame().SetPageButtons(isBrowsing);
}

MachineEntry FormF10::Entry() const
{
    MachineEntry entry;
    // The box shows one line, so what it has not changed comes from the record.
    entry.comment = commentBox->text() == shownComment ? comment : commentBox->text();
    ratingTab->Collect(entry);
    furtherTab->Collect(entry);
    return entry;
}

bool FormF10::AreNumbersAccepted()
{
    return std::all_of(boxes.begin(), boxes.end(), [](NumberBox* box) { return box->Check(); });
}

void FormF10::SetEditing(bool isEditing)
{
    isEdited = isEditing;
    ShowState();
}

// What the buttons do.

void FormF10::PressNew()
{
    browser.BeginEdit();
    bNew = true;
    ShowEntry(NewMachineEntry());
    SetEditing(true);
    tabs->setCurrentWidget(ratingTab);
    ratingTab->Boxes().front()->setFocus();
}

void FormF10::PressEdit()
{
    browser.BeginEdit();
    bNew = false;
    SetEditing(true);
    if (tabs->currentIndex() == 0)
        tabs->setCurrentWidget(ratingTab);
}

void FormF10::PressDelete()
{
    Change([this] { browser.DeleteCurrent(); });
}

void FormF10::PressApply()
{
    if (!AreNumbersAccepted() || !browser.Apply(Entry(), bNew))
        return;
    isEdited = false;
    Change([] {});
}

void FormF10::PressCancel()
{
    isEdited = false;
    Change([this] { browser.CancelEdit(); });
}

void FormF10::PressSearch()
{
    if (const std::optional<MachineFilter> filter = FormH6::AskForFilter(this))
        Change([this, &filter] { browser.Search(filter); });
}

void FormF10::PressShowAll()
{
    Change([this] { browser.Search(std::nullopt); });
}

void FormF10::PressDatabase()
{
    if (FormH11::ChangeDatabase(this))
        Change([this] { browser.Reload(); });
}

void FormF10::PressInfo()
{
    FormH8(this, MachineInfo::MachineI).exec();
}

void FormF10::Diagnose()
{
    NoLoadPanel& panel = ratingTab->Panel();
    panel.Commit();
    App().iCurrentPage = kPageMachine;
    LockedAndBusy(
        [] {
            App().bDevConnected = false; // also where the port can't be opened
            DevConnect();
        },
        [&panel] { panel.Refresh(); });
}

// The no-load test.

void FormF10::PressNoLoad()
{
    ratingTab->Panel().Commit();
    try {
        measurement.StartOrStop(ratingTab->Panel().Interval());
    } catch (...) {
        measurement.Stop();
        throw;
    }
}

void FormF10::Tick()
{
    RunGuarded(windowTitle(), [this] {
        try {
            measurement.Tick();
        } catch (...) {
            measurement.Stop(); // before anybody is told: the ticks go on while a box is on show
            throw;
        }
    });
}

void FormF10::EnableTicks(bool areEnabled)
{
    areEnabled ? timer->start() : timer->stop();
}

void FormF10::ShowMeasuring(bool isMeasuring)
{
    if (isMeasuring)
        formerNoLoad = ratingTab->NoLoad();
    App().TheShell->SetBusyMenus(!isMeasuring);
    ShowState();
}

void FormF10::ShowNoLoad(const NoLoadTexts& texts)
{
    ratingTab->ShowNoLoad(texts);
}

void FormF10::RestoreNoLoad()
{
    ratingTab->ShowNoLoad(formerNoLoad);
}

// The end.

/// An edit that is under way stays while the page stays.
bool FormF10::TakeInput(InputUse use)
{
    ratingTab->Panel().Commit();
    if (!isEdited || use == InputUse::Saving)
        return true;
    measurement.Stop(); // what its last sample shows is nothing to store
    const Answer answer = App().TheShell->ShowBox(
        {windowTitle(), texts::machineNotSaved, BoxIcon::Question, BoxButtons::YesNoCancel, Answer::Yes});
    if (answer == Answer::Yes)
        PressApply();
    else if (answer == Answer::No)
        PressCancel();
    return !isEdited;
}

void FormF10::Leave()
{
    measurement.Stop();
    if (std::exchange(isLeft, true))
        return;
    Frame().ShowDatabase({});
    if (isEdited)
        RunGuarded(windowTitle(), [this] { browser.CancelEdit(); });
    RunGuarded(windowTitle(), [this] { browser.PassOn(); });
}

} // namespace korvanel
