// What the run asks of the schedule: which entry comes next, whether its start or its stop is due, and what the page is
// to show of it.
#pragma once

#include <QDateTime>
#include <QString>

namespace korvanel {

class clsTimeSchedule;

/// What a page shows of the schedule.
class ScheduleDisplay
{
public:
    virtual ~ScheduleDisplay() = default;
    /// Marks an entry in the list; -1 marks none.
    virtual void MarkEntry(int index) = 0;
    /// The picture that tells a recording which starts or stops by time.
    virtual void ShowTimerPicture(bool isShown) = 0;
    /// Empty when nothing is waited for.
    virtual void ShowCountdown(const QString& text) = 0;
};

class TimeManaging
{
public:
    TimeManaging(clsTimeSchedule& schedule, ScheduleDisplay& display);

    /// Makes the next entry that can still be recorded the current one; false without one.
    bool SelectNextEntry();
    /// A manual entry is due at once, a timed one from its start time on.
    bool StartDue() const;
    /// Shows the time until the start of a timed entry.
    void ShowCountdown();
    /// Finds the end of the run that starts now.
    void ArmStop();
    /// Whether the end has come; never for an entry that is stopped by hand.
    bool StopDue();
    /// An entry that starts by hand and ends after its duration. It leads on to no other.
    bool IsManualWithDuration() const;
    /// Whether each recording has to go into a file of its own.
    bool HasSeveral() const;

private:
    clsTimeSchedule& schedule;
    ScheduleDisplay& display;
    QDateTime end; ///< of the run that goes on
};

} // namespace korvanel
