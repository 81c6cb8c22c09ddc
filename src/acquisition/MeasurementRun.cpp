#include "acquisition/MeasurementRun.h"

#include "acquisition/MeasurementConfiguration.h"
#include "acquisition/SampleCheck.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/Clock.h"
#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF4Texts.h"
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "instruments/DevManaging.h"
#include "instruments/SerialPort.h"
#include "project/ProjectStore.h"
#include "project/RecordingHeading.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <cmath>
#include <utility>

namespace korvanel {

namespace {

constexpr qint16 kGrace = 5;
constexpr double kRetryPause = 0.05; // s
constexpr double kPatienceAtStart = 5;

/// Tries an operation on a file in use again for some seconds. Throws what it throws in the end.
template <typename Routine>
void TryFor(double seconds, Routine&& routine)
{
    const double end = App().TheClock->Seconds() + seconds;
    for (;;) {
        try {
            routine();
            return;
        } catch (const DbLocked&) {
            if (App().TheClock->Seconds() >= end)
                throw;
        }
        App().TheClock->BusyWait(kRetryPause);
    }
}

} // namespace

MeasurementRun::MeasurementRun(clsTimeSchedule& ofProgram, RunDisplay& ofPage)
    : schedule(ofProgram), display(ofPage), plan(ofProgram, ofPage)
{}

void MeasurementRun::StartOrStop()
{
    if (isTicking) {
        End();
        return;
    }
    CorrectStoredSettings();
    if (!CheckIntervalForRun() || !plan.SelectNextEntry())
        return;
    if (StartsInPast()) {
        ShowError(texts::startInPast);
        return;
    }
    if (RefreshSetCount() && !Drop())
        return;
    ApplicationBlock& app = App();
    app.TheShell->SetBusyMenus(false);
    display.UpdateOnline(OnlineMode::Clear);
    display.LockPage(true);
    for (std::size_t i = 0; i < app.dTransRatio.size(); ++i)
        app.dTransRatio[i] = app.dTransPrimary[i] / app.dTransSecondary[i];
    isRunning = hasBegun = false;
    app.bProjectDirty = true;
    isTicking = true;
    display.EnableTicks(true);
}

bool MeasurementRun::StartsInPast() const
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    return entry.HasStartTime() && entry.startTime.secsTo(PresentMoment()) > 0;
}

void MeasurementRun::Tick()
{
    if (isInTick || !isTicking)
        return;
    const QScopedValueRollback guard(isInTick, true);
    display.ResetStartColour();
    if (!isRunning)
        WaitForStart();
    if (isRunning)
        StoreWaiting();
    if (isRunning)
        PollOnce();
    if (isRunning && plan.StopDue())
        FinishEntry();
}

void MeasurementRun::WaitForStart()
{
    if (!plan.StartDue()) {
        plan.ShowCountdown();
        return;
    }
    if (!PrepareRun() || !OpenFile())
        return;
    display.ShowCountdown({});
    InitRun(true);
    plan.ArmStop();
    isRunning = true;
    display.ShowRunning(true);
}

/// Opens the project for the length of the recording and keeps others from writing it. False if the run had to be ended
/// because somebody else writes it.
bool MeasurementRun::OpenFile()
{
    OpenDbGuarded(); // a failure is told by the first row that can't be written
    isFileOpen = true;
    try {
        if (IsProjectDbOpen())
            TryFor(kPatienceAtStart, [] { ProjectDb().HoldLock(); });
    } catch (const DbLocked&) {
        Finish();
        ShowFileInUse(App().sProjectPath);
        return false;
    } catch (const DbError&) {
        return true; // as above
    }
    return true;
}

/// Opens the line and readies the instrument; an open line is closed. False if the run had to be ended.
bool MeasurementRun::PrepareRun()
{
    ApplicationBlock& app = App();
    app.bShowDevErrors = true;
    if (app.ThePort->IsOpen()) {
        DevCommand(kDevClose);
    } else {
        app.iFileErrors = 0;
        bool isReady = DevCommand(kDevOpen) && DevCommand(kDevPrepare);
        if (isReady && app.bHasDeviceInfo)
            isReady = DevCommand(kDevInfo);
        display.ShowInstrument();
        if (!isReady) {
            End();
            return false;
        }
        app.iGraceLeft = kGrace;
    }
    if (app.iFileErrors > 0) {
        End();
        return false;
    }
    return true;
}

void MeasurementRun::InitRun(bool isFull)
{
    ApplicationBlock& app = App();
    app.MeasuredRow = {};
    ResetEnergies();
    app.dStepWp = app.dStepWq = 0;
    ClearRecordingHeading();
    app.dtMeasurementBegin = PresentMoment();
    begun = app.TheClock->Seconds();
    hasBegun = true;
    rejected = 0;
    display.ShowRejected(rejected);
    display.ShowBegin(DateTimeText(app.dtMeasurementBegin));
    if (isFull)
        grid.Start(app.dInterval);
    else
        grid.Restart();
}

void MeasurementRun::PollOnce()
{
    ApplicationBlock& app = App();
    tMeasuredRow& row = app.MeasuredRow;
    if (!grid.TakeDuePoll(app.dInterval))
        return;
    ++row.lSet;
    row.sValidMask = kGoodSample;
    // A poll may come a little early; its time is that of the grid all the same.
    display.ShowElapsed(SecondsToTime(std::round(grid.Elapsed()), false));
    // A failure is told here, when the recording has ended.
    const bool isSampled = [&app] {
        const QScopedValueRollback quiet(app.bShowDevErrors, false);
        return DevCommand(kDevSample);
    }();
    NoteMoment();
    if (!isSampled) {
        EndWith(DevErrorText());
        return;
    }
    if (app.iFileErrors > 0) {
        Finish();
        return;
    }
    ValidateSample();
    if (app.lSound == 1)
        app.TheShell->Beep();
    if (row.sValidMask == kGoodSample)
        StoreSample();
    else
        RejectSample();
    row.dt += app.dInterval; // over rejected samples too: a set keeps its distance from the beginning
}

void MeasurementRun::StoreSample()
{
    ApplicationBlock& app = App();
    display.ShowLamp(kLampGood);
    const qint32 wereKept = KeptRows();
    const bool isFirst = app.MeasuredRow.lSet == 1;
    AppendMeasuredRow(isFirst ? WriteRecordingKeys : std::function<void()>());
    if (wereKept == 0 && KeptRows() > 0)
        keptSince = lastSeconds;
    if (app.iFileErrors == 0)
        app.iSetCount = app.MeasuredRow.lSet - KeptRows();
    display.ShowKept(KeptRows());
    display.UpdateOnline(OnlineMode::Sample);
    if (app.iFileErrors > 0)
        Finish();
    else
        app.iGraceLeft = kGrace;
}

/// Between the polls: the sets that wait for the file, and the end of waiting.
void MeasurementRun::StoreWaiting()
{
    if (KeptRows() == 0)
        return;
    NoteMoment();
    StoreKeptRows();
    display.ShowKept(KeptRows());
    if (App().iFileErrors > 0) {
        Finish();
        return;
    }
    App().iSetCount = App().MeasuredRow.lSet - KeptRows();
    if (KeptRows() == 0)
        display.ShowStored();
    else if (lastSeconds - keptSince >= kLongestFileWait)
        EndWith(FillPlaceholders(texts::fileTooLongInUse, {QString::number(kLongestFileWait)}));
}

void MeasurementRun::RejectSample()
{
    ApplicationBlock& app = App();
    display.ShowLamp(kLampBad);
    display.ShowBadSample();
    if (app.MeasuredRow.lSet == 1) {
        InitRun(false); // the recording doesn't begin before its first good sample
        return;
    }
    --app.MeasuredRow.lSet;
    display.ShowRejected(++rejected);
    // Nothing counts the grace down: an instrument that has gone silent for a while must not end a long recording.
    if (app.iGraceLeft <= 0) {
        Finish();
        ShowError(FillPlaceholders(texts::runAborted, {QString::number(kGrace)}));
    }
}

void MeasurementRun::NoteMoment()
{
    lastMoment = PresentMoment();
    lastSeconds = App().TheClock->Seconds();
}

/// End and duration. The duration is that between the two moments, unless the wall clock was moved meanwhile, by
/// daylight saving or by hand: then the steady clock has counted it.
void MeasurementRun::SetEnd()
{
    constexpr double kOfWholeSeconds = 1.5; // both moments are cut to seconds
    ApplicationBlock& app = App();
    app.dtMeasurementEnd = lastMoment;
    const double counted = lastSeconds - begun;
    const auto shown = static_cast<double>(app.dtMeasurementBegin.secsTo(lastMoment));
    const double term = std::abs(shown - counted) <= kOfWholeSeconds ? shown : std::round(counted);
    app.sMeasurementTerm = SecondsToTime(std::max(0.0, term), false);
    app.bProjectDirty = true;
}

void MeasurementRun::FinishEntry()
{
    NoteMoment();
    SetEnd();
    if (!PrepareRun()) // closes the line
        return;
    isRunning = false;
    CloseRun();
    const bool isKept = !plan.HasSeveral() || KeepEntry();
    if (isKept && !plan.IsManualWithDuration() && plan.SelectNextEntry())
        display.ShowRunning(false);
    else
        Finish();
    hasBegun = false;
}

/// Puts the recording into a file of its own and empties the tables for the next one. False leaves the sets.
bool MeasurementRun::KeepEntry()
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    // An entry that starts by hand has no start time; the name takes the moment at which it did start.
    const QDateTime& start = entry.HasStartTime() ? entry.startTime : App().dtMeasurementBegin;
    return SnapshotProject(DateTimeText(start)) && ClearRows();
}

/// Waits for a file in use until it takes the sets that wait, as long as a recording would.
void MeasurementRun::WaitForFile() const
{
    clsWaitCursor cursor;
    cursor.Show();
    while (KeptRows() > 0 && App().iFileErrors == 0 && App().TheClock->Seconds() - keptSince < kLongestFileWait) {
        App().TheClock->BusyWait(kRetryPause);
        StoreKeptRows();
    }
}

/// Stores what still waits, completes the heading in the file and closes it.
void MeasurementRun::CloseRun()
{
    if (!isFileOpen)
        return;
    isFileOpen = false;
    if (IsProjectDbOpen())
        ProjectDb().ReleaseLock();
    if (App().iFileErrors == 0 && StoreKeptRows() && KeptRows() > 0)
        WaitForFile();
    lostSets += KeptRows();
    if (hasBegun && !RefreshSetCount())
        ClearRecordingHeading();
    if (hasBegun && App().iFileErrors == 0) {
        try {
            WriteRecordingKeys();
        } catch (const DbError&) {
            // The fields stay changed in the block, and the next save tells a file that can't be written.
        }
    }
    CloseDbGuarded();
    display.ShowKept(0);
}

void MeasurementRun::TellLostSets()
{
    if (const qint32 lost = std::exchange(lostSets, 0); lost > 0)
        ShowError(FillPlaceholders(texts::setsLost, {QString::number(lost)}));
}

void MeasurementRun::End()
{
    NoteMoment();
    Finish();
}

/// Ends at the moment that was noted last.
void MeasurementRun::Finish()
{
    if (!isTicking)
        return;
    isTicking = false;
    const bool wasRunning = isRunning;
    isRunning = false;
    display.EnableTicks(false);
    if (wasRunning && hasBegun)
        SetEnd();
    CloseRun();
    if (App().ThePort->IsOpen())
        DevCommand(kDevClose);
    display.ShowRunning(false);
    display.ShowCountdown({});
    RefreshSetCount();
    display.LockPage(false);
    App().TheShell->SetBusyMenus(true);
    TellLostSets();
}

/// Ends the recording and then tells why, since when, and what there is of it.
void MeasurementRun::EndWith(const QString& reason)
{
    const bool hasRun = isRunning && hasBegun;
    Finish();
    App().sDevError.clear(); // it is part of the reason
    ShowError(hasRun
                  ? reason + u'\n' +
                        FillPlaceholders(texts::runEnded, {DateTimeText(lastMoment), QString::number(App().iSetCount)})
                  : reason);
}

bool MeasurementRun::Drop()
{
    const Answer answer = App().TheShell->ShowBox(
        {texts::titleAttention, texts::reallyDrop, BoxIcon::Question, BoxButtons::YesNo, Answer::No});
    return answer == Answer::Yes && ClearRows();
}

bool MeasurementRun::ClearRows()
{
    try {
        TryFor(isTicking ? kLongestFileWait : 0, ClearRecording); // nobody waits for it between planned recordings
    } catch (const DbError& error) {
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
    RefreshSetCount();
    display.ShowDropped();
    return true;
}

} // namespace korvanel
