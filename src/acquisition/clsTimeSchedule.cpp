#include "acquisition/clsTimeSchedule.h"

#include "core/Clock.h"

#include <algorithm>

namespace korvanel {

clsTimeSchedule::clsTimeSchedule() : entries(1) {}

const ScheduleEntry& clsTimeSchedule::Entry(qint32 index) const
{
    return entries.at(static_cast<std::size_t>(index));
}

void clsTimeSchedule::SetCurrentSet(qint32 index)
{
    Entry(index); // throws outside the list
    current = index;
}

void clsTimeSchedule::Delete(qint32 index)
{
    Entry(index);
    if (Count() == 1)
        entries.front() = {};
    else
        entries.erase(entries.begin() + index);
    current = 0;
}

std::optional<ScheduleConflict> clsTimeSchedule::Add(ScheduleEntry entry, std::optional<qint32> replaced)
{
    const bool isTimed = entry.startMode == StartMode::Timed && entry.stopMode == StopMode::Timed;
    if (isTimed && entry.startTime.secsTo(entry.stopTime) <= 0)
        std::swap(entry.startTime, entry.stopTime);

    std::optional<ScheduleEntry> saved;
    if (replaced) {
        saved = Entry(*replaced);
        if (Count() == 1) {
            entries.front() = entry;
            current = 0;
            return std::nullopt;
        }
        entries.erase(entries.begin() + *replaced);
    }
    const qint32 start = PlaceForStart(entry);
    const qint32 stop = PlaceForStop(entry);
    if (start == stop) {
        Write(start, entry);
        return std::nullopt;
    }
    ScheduleConflict conflict{std::min(start, stop), std::max(start, stop) - 1};
    if (saved) {
        entries.insert(entries.begin() + *replaced, *saved);
        // The range was found in the list without the saved entry.
        conflict.first += conflict.first >= *replaced ? 1 : 0;
        conflict.last += conflict.last >= *replaced ? 1 : 0;
    }
    return conflict;
}

qint32 clsTimeSchedule::PlaceForStart(const ScheduleEntry& entry) const
{
    if (!entry.HasStartTime())
        return 0;
    for (qint32 i = Count(); i > 0; --i)
        if (Entry(i - 1).HasStopTime() && Entry(i - 1).stopTime < entry.startTime)
            return i;
    return 0;
}

qint32 clsTimeSchedule::PlaceForStop(const ScheduleEntry& entry) const
{
    if (entry.HasStopTime())
        for (qint32 i = 0; i < Count(); ++i)
            if (Entry(i).HasStartTime() && Entry(i).startTime > entry.stopTime)
                return i;
    return Count();
}

void clsTimeSchedule::Write(qint32 index, const ScheduleEntry& entry)
{
    entries.insert(entries.begin() + index, entry);
    current = index;
}

qint32 clsTimeSchedule::NextValidIndex() const
{
    const QDateTime now = PresentMoment();
    for (qint32 i = current; i < Count(); ++i) {
        const ScheduleEntry& entry = Entry(i);
        const bool isValid =
            entry.stopMode == StopMode::Manual || entry.IsManualWithDuration() || now.secsTo(entry.stopTime) > 0;
        if (isValid)
            return i;
    }
    return -1;
}

} // namespace korvanel
