#include "acquisition/ScheduleTab.h"

#include "acquisition/ScheduleGrid.h"
#include "core/Clock.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/Texts.h"
#include "core/texts/FormF3Texts.h"
#include "core/window/ActionName.h"
#include "core/window/PlainLabel.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopedValueRollback>
#include <QTimeEdit>
#include <QVBoxLayout>

#include <algorithm>

namespace korvanel {

namespace {

// Indices of the control arrays.
constexpr int kStart = 0;
constexpr int kStop = 1;
constexpr int kUntil = 2;
constexpr int kTerm = 0;
constexpr int kCyclePeriod = 3;

constexpr int kNarrowSpace = 4;
constexpr int kIndent = 22;

struct PeriodPart
{
    int most;
    TextRef unit;
};

constexpr std::array<PeriodPart, 3> kPeriodParts{{
    {kMostHours, &texts::scheduleHours},
    {kMostMinutes, &texts::scheduleMinutes},
    {kMostSeconds, &texts::scheduleSeconds},
}};

const PeriodPart& PartOf(int index)
{
    return kPeriodParts[static_cast<std::size_t>(index) % kPeriodParts.size()];
}

QString ElementName(const char* name, int index)
{
    return QLatin1String(name) + u'_' + QString::number(index);
}

/// A box for a number of so many digits.
QLineEdit* NumberBox(const QString& name, qsizetype digits)
{
    auto* box = new QLineEdit;
    box->setObjectName(name);
    box->setMaxLength(static_cast<int>(digits));
    box->setAlignment(Qt::AlignRight);
    const int text = box->fontMetrics().horizontalAdvance(QString(digits, u'0'));
    box->setFixedWidth(text + box->fontMetrics().height());
    return box;
}

} // namespace

ScheduleTab::ScheduleTab(QWidget* parent) : QWidget(parent), grid(new ScheduleGrid)
{
    setObjectName(QStringLiteral("ScheduleTab"));
    auto* left = new QVBoxLayout;
    left->addWidget(BuildEntry());
    left->addWidget(grid, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(BuildCycles());
    right->addStretch(1);
    right->addLayout(BuildButtons());
    auto* all = new QHBoxLayout(this);
    all->addLayout(left, 1);
    all->addLayout(right);
    setTabOrder(cycles, grid); // from the fields to what they fill
    connect(grid, &ScheduleGrid::EntryChosen, this, [this](int index) { Guarded([this, index] { Choose(index); }); });
    ShowFields(DefaultFields(PresentMoment()));
    stored = Fields();
}

QFrame* ScheduleTab::BuildEntry()
{
    modes[kStart] = BuildMode(kStart, {texts::scheduleManual, texts::scheduleMoment});
    modes[kStop] = BuildMode(kStop, {texts::scheduleManual, texts::scheduleMoment, texts::scheduleDuration});
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* table = new QGridLayout(frame);
    const auto addRow = [table](int row, QLabel* caption, QComboBox* mode, QHBoxLayout* boxes) {
        caption->setBuddy(mode);
        table->addWidget(caption, row, 0);
        table->addWidget(mode, row, 1);
        table->addLayout(boxes, row, 2);
    };
    addRow(0, new PlainLabel(texts::scheduleStart), modes[kStart], BuildMoment(kStart, texts::scheduleStartTime));
    addRow(1, new PlainLabel(texts::scheduleEnd), modes[kStop], BuildMoment(kStop, texts::scheduleEndTime));
    periodCaptions[0] = new PlainLabel(texts::scheduleTerm);
    periodRows[0] = BuildPeriod(kTerm, texts::scheduleTerm);
    table->addWidget(periodCaptions[0], 2, 0);
    table->addWidget(periodRows[0], 2, 1, 1, 2);
    table->setColumnStretch(2, 1);
    return frame;
}

QFrame* ScheduleTab::BuildCycles()
{
    auto* frame = new QFrame;
    frame->setFrameShape(QFrame::StyledPanel);
    auto* column = new QVBoxLayout(frame);
    repeats = new QCheckBox(texts::scheduleCyclic);
    repeats->setObjectName(QStringLiteral("chkCycle"));
    connect(repeats, &QCheckBox::toggled, this, [this] { TakeEdit(EditedField::Mode); });
    rules = {new QRadioButton(texts::scheduleUntil), new QRadioButton(texts::scheduleCycles)};
    for (int i = 0; i < 2; ++i) {
        QRadioButton* rule = rules[static_cast<std::size_t>(i)];
        rule->setObjectName(ElementName("optCylce", i));
        connect(rule, &QRadioButton::toggled, this, [this] { TakeEdit(EditedField::Mode); });
    }
    cycles = NumberBox(QStringLiteral("txtCycle"), QString::number(kMostCycles).size());
    cycles->setAccessibleName(texts::scheduleCycles);
    connect(cycles, &QLineEdit::editingFinished, this,
            [this] { cycles->setText(QString::number(CyclesOf(cycles->text()))); });

    periodCaptions[1] = new PlainLabel(texts::scheduleCyclePeriod);
    periodRows[1] = BuildPeriod(kCyclePeriod, texts::scheduleCyclePeriod);
    QHBoxLayout* until = BuildMoment(kUntil, texts::scheduleUntil);
    until->insertSpacing(0, kIndent);
    auto* count = new QHBoxLayout;
    count->addWidget(rules[1]);
    count->addWidget(cycles);
    count->addStretch(1);
    column->addWidget(repeats);
    column->addWidget(periodCaptions[1]);
    column->addWidget(periodRows[1]);
    column->addWidget(rules[0]);
    column->addLayout(until);
    column->addLayout(count);
    return frame;
}

QVBoxLayout* ScheduleTab::BuildButtons()
{
    auto* column = new QVBoxLayout;
    AddButton(*column, "cmdSaveDates", texts::scheduleSave, &ScheduleTab::Save);
    AddButton(*column, "cmdNewDates", texts::scheduleSaveNew, &ScheduleTab::SaveAsNew);
    AddButton(*column, "cmdDeleteDates", texts::scheduleDelete, &ScheduleTab::DeleteCurrent);
    return column;
}

void ScheduleTab::AddButton(QVBoxLayout& column, const char* name, const QString& text, void (ScheduleTab::*action)())
{
    auto* button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, [this, action] { Guarded([this, action] { (this->*action)(); }); });
    column.addWidget(button);
}

QComboBox* ScheduleTab::BuildMode(int index, const QStringList& entries)
{
    auto* mode = new QComboBox;
    mode->setObjectName(ElementName("cboMode", index));
    mode->addItems(entries);
    connect(mode, &QComboBox::currentIndexChanged, this, [this] { TakeEdit(EditedField::Mode); });
    return mode;
}

QHBoxLayout* ScheduleTab::BuildMoment(int index, const QString& accessibleName)
{
    auto* date = new QDateEdit;
    date->setObjectName(ElementName("dtpDate", index));
    date->setCalendarPopup(true);
    date->setDisplayFormat(DateFormat());
    auto* time = new QTimeEdit;
    time->setObjectName(ElementName("dtpTime", index));
    time->setDisplayFormat(TimeFormat());
    auto* row = new QHBoxLayout;
    for (QDateTimeEdit* box : {static_cast<QDateTimeEdit*>(date), static_cast<QDateTimeEdit*>(time)}) {
        box->setLocale(FormatLocale());
        box->setTimeSpec(Qt::UTC); // wall time: no hour is skipped
        box->setAccessibleName(accessibleName);
        row->addWidget(box);
    }
    if (index != kUntil) {
        connect(date, &QDateEdit::dateChanged, this, [this] { TakeEdit(EditedField::Moment); });
        connect(time, &QTimeEdit::timeChanged, this, [this] { TakeEdit(EditedField::Moment); });
    }
    row->addStretch(1);
    moments[static_cast<std::size_t>(index)] = {date, time};
    return row;
}

QWidget* ScheduleTab::BuildPeriod(int first, const QString& accessibleName)
{
    auto* content = new QWidget;
    auto* row = new QHBoxLayout(content);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(kNarrowSpace);
    for (int i = first; i < first + 3; ++i) {
        const PeriodPart& part = PartOf(i);
        QLineEdit* box = NumberBox(ElementName("txtPeriod", i), QString::number(part.most).size());
        box->setAccessibleName(accessibleName + u' ' + TextOf(part.unit));
        if (first == kTerm)
            connect(box, &QLineEdit::textEdited, this, [this] { TakeEdit(EditedField::Term); });
        connect(box, &QLineEdit::editingFinished, this, [this, i] { TidyPeriod(i); });
        row->addWidget(box);
        row->addWidget(new PlainLabel(TextOf(part.unit)));
        periods[static_cast<std::size_t>(i)] = box;
    }
    row->addStretch(1);
    return content;
}

QDateTime ScheduleTab::MomentBoxes::Moment() const
{
    return {date->date(), time->time(), Qt::UTC};
}

void ScheduleTab::MomentBoxes::Show(const QDateTime& moment) const
{
    if (Moment() == moment)
        return; // keeps the cursor where the user types
    date->setDate(moment.date());
    time->setTime(moment.time());
}

void ScheduleTab::MomentBoxes::SetEnabled(bool isEnabled) const
{
    date->setEnabled(isEnabled);
    time->setEnabled(isEnabled);
}

PeriodText ScheduleTab::TypedPeriod(int first) const
{
    const auto box = periods.begin() + first;
    return {box[0]->text(), box[1]->text(), box[2]->text()};
}

void ScheduleTab::ShowPeriod(int first, qint32 seconds)
{
    const auto box = periods.begin() + first;
    const PeriodText text = TextOfPeriod(seconds);
    box[0]->setText(text.hours);
    box[1]->setText(text.minutes);
    box[2]->setText(text.seconds);
}

ScheduleFields ScheduleTab::Fields() const
{
    ScheduleFields fields;
    fields.startMode = static_cast<StartMode>(modes[kStart]->currentIndex());
    fields.stopMode = static_cast<StopMode>(modes[kStop]->currentIndex());
    fields.start = moments[kStart].Moment();
    fields.stop = moments[kStop].Moment();
    fields.term = PeriodOf(TypedPeriod(kTerm));
    fields.isRepeating = repeats->isChecked();
    fields.rule = rules[0]->isChecked() ? CycleRule::Until : CycleRule::Count;
    fields.until = moments[kUntil].Moment();
    fields.cycles = CyclesOf(cycles->text());
    fields.cyclePeriod = PeriodOf(TypedPeriod(kCyclePeriod));
    return fields;
}

void ScheduleTab::ShowFields(const ScheduleFields& fields)
{
    const QScopedValueRollback guard(isShowing, true);
    modes[kStart]->setCurrentIndex(static_cast<int>(fields.startMode));
    modes[kStop]->setCurrentIndex(static_cast<int>(fields.stopMode));
    moments[kStart].Show(fields.start);
    moments[kStop].Show(fields.stop);
    moments[kUntil].Show(fields.until);
    ShowPeriod(kTerm, fields.term);
    ShowPeriod(kCyclePeriod, fields.cyclePeriod);
    repeats->setChecked(fields.isRepeating);
    rules[static_cast<std::size_t>(fields.rule)]->setChecked(true);
    cycles->setText(QString::number(fields.cycles));
    EnableFields(fields);
}

void ScheduleTab::EnableFields(const ScheduleFields& fields)
{
    const bool isCyclic = fields.IsCyclic();
    moments[kStart].SetEnabled(fields.startMode == StartMode::Timed);
    moments[kStop].SetEnabled(fields.stopMode == StopMode::Timed);
    moments[kUntil].SetEnabled(isCyclic && fields.rule == CycleRule::Until);
    repeats->setEnabled(fields.startMode == StartMode::Timed);
    for (QRadioButton* rule : rules)
        rule->setEnabled(isCyclic);
    cycles->setEnabled(isCyclic && fields.rule == CycleRule::Count);
    for (std::size_t i = 0; i < periodRows.size(); ++i) {
        const bool isInUse = i == 0 ? fields.HasTerm() : isCyclic;
        periodCaptions[i]->setEnabled(isInUse);
        periodRows[i]->setEnabled(isInUse);
    }
}

/// Brings the other fields into line and leaves alone the one that the user is typing in.
void ScheduleTab::TakeEdit(EditedField edited)
{
    if (isShowing)
        return;
    const QScopedValueRollback guard(isShowing, true);
    const ScheduleFields fields = Reconciled(Fields(), edited);
    moments[kStop].Show(fields.stop);
    if (edited != EditedField::Term)
        ShowPeriod(kTerm, fields.term);
    EnableFields(fields);
}

/// Restores the two digits of a box that is left; what was typed stands, 90 minutes too. The whole duration is raised
/// to a second only when the focus leaves its three boxes, or "00" seconds could not be typed before the minutes.
void ScheduleTab::TidyPeriod(int index)
{
    QLineEdit* box = periods[static_cast<std::size_t>(index)];
    box->setText(PeriodPartText(box->text(), PartOf(index).most));
    const int first = index < kCyclePeriod ? kTerm : kCyclePeriod;
    const auto begin = periods.begin() + first;
    const QWidget* focused = QApplication::focusWidget();
    const bool isStillIn = focused != box && std::find(begin, begin + 3, focused) != begin + 3;
    const bool isEmpty = std::all_of(begin, begin + 3, [](const QLineEdit* part) { return part->text().toInt() == 0; });
    if (!isStillIn && isEmpty)
        ShowPeriod(first, 1);
}

void ScheduleTab::Refresh()
{
    grid->Fill();
    grid->MarkEntry(App().TimeSchedule->CurrentSet());
}

void ScheduleTab::Save()
{
    SaveEntries(App().TimeSchedule->CurrentSet());
}

void ScheduleTab::SaveAsNew()
{
    SaveEntries(std::nullopt);
}

bool ScheduleTab::TakeInput()
{
    if (HasSameEntries(Fields(), stored))
        return true;
    const Answer answer = App().TheShell->ShowBox(
        {texts::tabSchedule, texts::scheduleNotSaved, BoxIcon::Question, BoxButtons::YesNoCancel, Answer::Yes});
    if (answer == Answer::Yes)
        return SaveEntries(App().TimeSchedule->CurrentSet());
    if (answer == Answer::No)
        stored = Fields(); // asked once
    return answer == Answer::No;
}

bool ScheduleTab::SaveEntries(std::optional<qint32> replaced)
{
    const ScheduleFields fields = Fields();
    ShowFields(fields); // as they were understood
    const auto conflict = SaveCycles(*App().TimeSchedule, CycleEntries(fields), replaced);
    Refresh();
    if (!conflict) {
        ShowCurrent();
        return true;
    }
    grid->MarkRange(conflict->first, conflict->last);
    ShowError(texts::scheduleConflict);
    return false;
}

void ScheduleTab::DeleteCurrent()
{
    App().TimeSchedule->Delete(App().TimeSchedule->CurrentSet());
    Refresh();
    ShowCurrent();
}

void ScheduleTab::Choose(int index)
{
    App().TimeSchedule->SetCurrentSet(index);
    grid->MarkEntry(index);
    ShowCurrent();
}

/// Puts the current entry into the fields. It tells no repetition, so saving it again doesn't make a series.
void ScheduleTab::ShowCurrent()
{
    const clsTimeSchedule& schedule = *App().TimeSchedule;
    ShowFields(FieldsOf(schedule.Entry(schedule.CurrentSet()), Fields()));
    stored = Fields();
}

void ScheduleTab::Guarded(const std::function<void()>& routine)
{
    if (!QApplication::activeModalWidget()) // what is asked has to be answered first
        RunGuarded(ActionName(sender()), routine);
}

} // namespace korvanel
