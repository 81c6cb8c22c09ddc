// The planned recordings: an ordered list of entries, each with its own start and stop rule, that the run works
// through. It is not stored; it lasts as long as the program runs and always holds at least one entry.
#pragma once

#include "core/LocalFormats.h"

#include <QDateTime>
#include <QtGlobal>

#include <optional>
#include <vector>

namespace korvanel {

enum class StartMode : quint8
{
    Manual = 0,
    Timed = 1
};
enum class StopMode : quint8
{
    Manual = 0,
    Timed = 1,
    Duration = 2
};

/// One planned recording.
struct ScheduleEntry
{
    StartMode startMode = StartMode::Manual;
    StopMode stopMode = StopMode::Manual;
    QDateTime startTime = ZeroDate();
    QDateTime stopTime = ZeroDate();
    qint32 term = 1; ///< duration in seconds

    /// The start is a moment.
    bool HasStartTime() const { return startMode == StartMode::Timed; }
    /// The stop is a moment: told as one, or as a duration from a told start.
    bool HasStopTime() const
    {
        return stopMode == StopMode::Timed || (stopMode == StopMode::Duration && HasStartTime());
    }
    /// It starts by hand and ends after its duration.
    bool IsManualWithDuration() const { return startMode == StartMode::Manual && stopMode == StopMode::Duration; }
};

/// Entries that stand in the way of a new one, both ends included.
struct ScheduleConflict
{
    qint32 first;
    qint32 last;
};

class clsTimeSchedule
{
public:
    clsTimeSchedule();

    qint32 Count() const { return static_cast<qint32>(entries.size()); }
    qint32 CurrentSet() const { return current; }
    /// Each of the following throws std::out_of_range for an index outside the list.
    void SetCurrentSet(qint32 index);
    korvanel::StartMode StartMode(qint32 index) const { return Entry(index).startMode; }
    korvanel::StopMode StopMode(qint32 index) const { return Entry(index).stopMode; }
    const QDateTime& StartTime(qint32 index) const { return Entry(index).startTime; }
    const QDateTime& StopTime(qint32 index) const { return Entry(index).stopTime; }
    qint32 Term(qint32 index) const { return Entry(index).term; }
    const ScheduleEntry& Entry(qint32 index) const;

    /// Removes an entry; the first one is current then. The last entry that is left becomes that of a new list.
    void Delete(qint32 index);
    /// Inserts an entry where its times fit, or puts it in the place of `replaced`, and makes it the current one. Timed
    /// ends that are the wrong way round are exchanged. Nothing on success; on a collision the list stays as it was.
    std::optional<ScheduleConflict> Add(ScheduleEntry entry, std::optional<qint32> replaced = std::nullopt);
    /// The first entry from the current one on that can still be recorded; -1 without one.
    qint32 NextValidIndex() const;

private:
    qint32 PlaceForStart(const ScheduleEntry& entry) const;
    qint32 PlaceForStop(const ScheduleEntry& entry) const;
    void Write(qint32 index, const ScheduleEntry& entry);

    std::vector<ScheduleEntry> entries;
    qint32 current = 0;
};

} // namespace korvanel
