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
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF4Texts.h"
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "instruments/DevManaging.h"
#include "instruments/SerialPort.h"
#include "project/ProjectStore.h"

#include <QScopedValueRollback>

#include <cmath>

namespace korvanel {

namespace {

constexpr qint16 kGrace = 5;

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
    if (!PrepareRun())
        return;
    display.ShowCountdown({});
    OpenDbGuarded(); // a failure is told by the first row that can't be written
    isFileOpen = true;
    InitRun(true);
    plan.ArmStop();
    isRunning = true;
    display.ShowRunning(true);
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
    app.dtMeasurementBegin = PresentMoment();
    hasBegun = true;
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
    if (!DevCommand(kDevSample) || app.iFileErrors > 0) {
        End();
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
    if (AppendMeasuredRow())
        app.iSetCount = app.MeasuredRow.lSet;
    display.UpdateOnline(OnlineMode::Sample);
    if (app.iFileErrors > 0)
        End();
    else
        app.iGraceLeft = kGrace;
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
    // Nothing counts the grace down: an instrument that has gone silent for a while must not end a long recording.
    if (app.iGraceLeft <= 0) {
        ShowError(FillPlaceholders(texts::runAborted, {QString::number(kGrace)}));
        End();
    }
}

void MeasurementRun::SetEnd()
{
    ApplicationBlock& app = App();
    app.dtMeasurementEnd = PresentMoment();
    const qint64 seconds = app.dtMeasurementBegin.secsTo(app.dtMeasurementEnd);
    app.sMeasurementTerm = SecondsToTime(static_cast<double>(std::max<qint64>(0, seconds)), false);
    app.bProjectDirty = true;
}

void MeasurementRun::FinishEntry()
{
    SetEnd();
    if (!PrepareRun()) // closes the line
        return;
    isRunning = false;
    CloseRun();
    const bool isKept = !plan.HasSeveral() || KeepEntry();
    if (isKept && !plan.IsManualWithDuration() && plan.SelectNextEntry())
        display.ShowRunning(false);
    else
        End();
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

void MeasurementRun::CloseRun()
{
    if (isFileOpen)
        CloseDbGuarded();
    isFileOpen = false;
}

void MeasurementRun::End()
{
    if (!isTicking)
        return;
    isTicking = false;
    const bool wasRunning = isRunning;
    isRunning = false;
    display.EnableTicks(false);
    if (App().ThePort->IsOpen())
        DevCommand(kDevClose);
    CloseRun();
    display.ShowRunning(false);
    display.ShowCountdown({});
    if (wasRunning && hasBegun)
        SetEnd();
    RefreshSetCount();
    display.LockPage(false);
    App().TheShell->SetBusyMenus(true);
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
        const ProjectDbScope scope;
        ClearValues();
    } catch (const DbError& error) {
        ShowError(texts::cannotWriteFile + u'\n' + QString::fromUtf8(error.what()) + u'.');
        return false;
    }
    RefreshSetCount();
    display.ShowDropped();
    return true;
}

} // namespace korvanel
