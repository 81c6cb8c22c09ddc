#include "acquisition/TimeManaging.h"

#include "acquisition/clsTimeSchedule.h"
#include "core/Clock.h"
#include "core/NumberText.h"
#include "core/texts/FormF4Texts.h"

#include <algorithm>

namespace korvanel {

TimeManaging::TimeManaging(clsTimeSchedule& ofProgram, ScheduleDisplay& ofPage) : schedule(ofProgram), display(ofPage)
{}

bool TimeManaging::SelectNextEntry()
{
    const qint32 next = schedule.NextValidIndex();
    if (next >= 0)
        schedule.SetCurrentSet(next);
    display.MarkEntry(next);
    display.ShowTimerPicture(next >= 0 && schedule.Entry(next).HasStartTime());
    return next >= 0;
}

bool TimeManaging::StartDue() const
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    return !entry.HasStartTime() || PresentMoment().secsTo(entry.startTime) <= 0;
}

void TimeManaging::ShowCountdown()
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    if (!entry.HasStartTime())
        return;
    const qint64 seconds = std::max<qint64>(0, PresentMoment().secsTo(entry.startTime));
    display.ShowCountdown(texts::countdown + SecondsToTime(static_cast<double>(seconds), false));
}

void TimeManaging::ArmStop()
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    if (entry.HasStopTime())
        end = entry.stopTime;
    else if (entry.IsManualWithDuration())
        end = PresentMoment().addSecs(entry.term);
}

bool TimeManaging::StopDue()
{
    const ScheduleEntry& entry = schedule.Entry(schedule.CurrentSet());
    const bool isByHand = entry.stopMode == StopMode::Manual;
    display.ShowTimerPicture(!isByHand);
    return !isByHand && PresentMoment().secsTo(end) <= 0;
}

bool TimeManaging::IsManualWithDuration() const
{
    return schedule.Entry(schedule.CurrentSet()).IsManualWithDuration();
}

bool TimeManaging::HasSeveral() const
{
    return schedule.Count() >= 2;
}

} // namespace korvanel
