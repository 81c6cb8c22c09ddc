// The main loop of the program: from START to stored rows. A tick every 50 ms looks whether a poll is due on the
// nominal time grid, takes the sample, tests it, stores it and has it shown. Everything runs in the ticks, on the
// thread of the user interface.
#pragma once

#include "acquisition/PollingGrid.h"
#include "acquisition/TimeManaging.h"

#include <QDateTime>
#include <QString>
#include <QtGlobal>

namespace korvanel {

/// How long another program may hold the project's file before a recording ends over it, in seconds. The sets are kept
/// meanwhile.
inline constexpr int kLongestFileWait = 60;

/// Colours of the lamp: blue, green, red from the high to the low byte.
inline constexpr int kLampGood = 65280;
inline constexpr int kLampBad = 255;

/// What `UpdateOnline` does with the online table and graph.
enum class OnlineMode
{
    Sample = 1, ///< shows the sample in `MeasuredRow` that has just been stored
    Clear = 2,  ///< empties them for a new recording
};

/// What the page shows of the run.
class RunDisplay : public ScheduleDisplay
{
public:
    /// Starts or stops the ticks.
    virtual void EnableTicks(bool areEnabled) = 0;
    /// Locks the page and its buttons for the length of a run, the button START apart.
    virtual void LockPage(bool isLocked) = 0;
    /// Caption of the button: STOP while samples are taken, START else.
    virtual void ShowRunning(bool isRunning) = 0;
    virtual void ResetStartColour() = 0;
    virtual void UpdateOnline(OnlineMode mode) = 0;
    /// Shows a sample that is not stored, with the marks of its mask.
    virtual void ShowBadSample() = 0;
    virtual void ShowBegin(const QString& begin) = 0;
    virtual void ShowElapsed(const QString& elapsed) = 0;
    virtual void ShowLamp(int colour) = 0;
    /// Identity and transformers of the instrument may have changed.
    virtual void ShowInstrument() = 0;
    /// All sets are gone.
    virtual void ShowDropped() = 0;
    /// How many samples of the recording were not stored because they were not valid.
    virtual void ShowRejected(qint32 count) = 0;
    /// Sets that waited are stored now.
    virtual void ShowStored() = 0;
    /// How many sets wait because another program uses the file; 0 when all are stored.
    virtual void ShowKept(qint32 count) = 0;
};

class MeasurementRun
{
public:
    MeasurementRun(clsTimeSchedule& schedule, RunDisplay& display);

    /// The button: starts a recording or the waiting for one, or ends either.
    void StartOrStop();
    /// Every 50 ms while a recording goes on or is waited for. A tick that comes while a box of an earlier one is on
    /// show does nothing.
    void Tick();
    /// Ends the recording or the waiting; nothing without either.
    void End();
    /// Asks whether the sets may go and deletes them; false if they stay.
    bool Drop();

    bool IsTicking() const { return isTicking; }
    bool IsRunning() const { return isRunning; }

private:
    bool StartsInPast() const;
    void WaitForStart();
    bool PrepareRun();
    void InitRun(bool isFull);
    void PollOnce();
    bool OpenFile();
    void StoreSample();
    void RejectSample();
    void StoreWaiting();
    void FinishEntry();
    bool KeepEntry();
    bool ClearRows();
    void Finish();
    void WaitForFile() const;
    void CloseRun();
    void TellLostSets();
    void NoteMoment();
    void SetEnd();
    void EndWith(const QString& reason);

    clsTimeSchedule& schedule;
    RunDisplay& display;
    TimeManaging plan;
    bool isTicking = false;
    bool isRunning = false; ///< from the first poll to the end
    bool isInTick = false;
    bool hasBegun = false;   ///< since the button was pressed
    bool isFileOpen = false; ///< the project stays open for the length of a recording
    PollingGrid grid;
    double begun = 0;     ///< steady clock at the beginning, in seconds
    double keptSince = 0; ///< steady clock at the first set that the file didn't take
    qint32 rejected = 0;  ///< samples of this recording
    qint32 lostSets = 0;  ///< that the file did not take, not yet told
    /// The present moment on both clocks, taken before anything is told: a box may stand for hours.
    QDateTime lastMoment;
    double lastSeconds = 0;
};

} // namespace korvanel
