#include "acquisition/ScheduleEditing.h"

#include "core/NumberText.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace korvanel {

namespace {

int WholeNumber(const QString& typed, int least, int most)
{
    return static_cast<int>(Clamp(LocalNumber(ToLocalDecimal(typed)).value_or(0), least, most));
}

int PeriodPart(const QString& typed, int most)
{
    return WholeNumber(typed, 0, most);
}

QString TwoDigits(qint64 number)
{
    return QStringLiteral("%1").arg(number, 2, 10, QLatin1Char('0'));
}

qint32 LimitedPeriod(qint64 seconds)
{
    return static_cast<qint32>(std::clamp<qint64>(seconds, 1, kLongestPeriod));
}

} // namespace

QString PeriodPartText(const QString& typed, int most)
{
    return TwoDigits(PeriodPart(typed, most));
}

qint32 PeriodOf(const PeriodText& typed)
{
    return LimitedPeriod(PeriodPart(typed.hours, kMostHours) * 3600 + PeriodPart(typed.minutes, kMostMinutes) * 60 +
                         PeriodPart(typed.seconds, kMostSeconds));
}

PeriodText TextOfPeriod(qint64 seconds)
{
    const qint32 period = LimitedPeriod(seconds);
    return {TwoDigits(period / 3600), TwoDigits(period / 60 % 60), TwoDigits(period % 60)};
}

int CyclesOf(const QString& typed)
{
    return WholeNumber(typed, 1, kMostCycles);
}

ScheduleFields Reconciled(ScheduleFields fields, EditedField edited)
{
    if (fields.startMode != StartMode::Timed || !fields.HasTerm())
        return fields;
    if (fields.stopMode == StopMode::Duration || edited == EditedField::Term)
        fields.stop = fields.start.addSecs(fields.term);
    else
        fields.term = LimitedPeriod(std::abs(fields.start.secsTo(fields.stop)));
    return fields;
}

ScheduleFields DefaultFields(const QDateTime& now)
{
    ScheduleFields fields;
    fields.start = now;
    fields.stop = now.addSecs(fields.term);
    fields.until = fields.stop;
    return fields;
}

ScheduleFields FieldsOf(const ScheduleEntry& entry, ScheduleFields fields)
{
    fields.startMode = entry.startMode;
    fields.stopMode = entry.stopMode;
    fields.isRepeating = false;
    if (entry.HasStartTime())
        fields.start = entry.startTime;
    if (entry.HasStopTime())
        fields.stop = entry.stopTime;
    if (fields.HasTerm())
        fields.term = LimitedPeriod(entry.term);
    return Reconciled(fields, EditedField::Mode);
}

ScheduleEntry EntryOf(const ScheduleFields& fields)
{
    ScheduleEntry entry;
    entry.startMode = fields.startMode;
    entry.stopMode = fields.stopMode;
    if (entry.HasStartTime())
        entry.startTime = fields.start;
    if (fields.stopMode == StopMode::Timed)
        entry.stopTime = fields.stop;
    if (fields.stopMode == StopMode::Duration) {
        entry.term = fields.term;
        if (entry.HasStartTime())
            entry.stopTime = entry.startTime.addSecs(entry.term);
    }
    if (fields.HasTimedEnds()) {
        entry.startTime = std::min(fields.start, fields.stop);
        entry.stopTime = std::max(std::max(fields.start, fields.stop), entry.startTime.addSecs(1));
        entry.term = static_cast<qint32>(
            std::min<qint64>(entry.startTime.secsTo(entry.stopTime), std::numeric_limits<qint32>::max()));
    }
    return entry;
}

std::vector<ScheduleEntry> CycleEntries(const ScheduleFields& fields)
{
    ScheduleEntry entry = EntryOf(fields);
    std::vector<ScheduleEntry> entries{entry};
    if (!fields.IsCyclic())
        return entries;
    const int most = fields.rule == CycleRule::Count ? std::min(fields.cycles, kMostCycles) : kMostCycles;
    while (static_cast<int>(entries.size()) < most) {
        entry.startTime = entry.startTime.addSecs(fields.cyclePeriod);
        if (entry.HasStopTime())
            entry.stopTime = entry.stopTime.addSecs(fields.cyclePeriod);
        if (fields.rule == CycleRule::Until && entry.startTime >= fields.until)
            break;
        entries.push_back(entry);
    }
    return entries;
}

bool HasSameEntries(const ScheduleFields& a, const ScheduleFields& b)
{
    const std::vector<ScheduleEntry> first = CycleEntries(a);
    const std::vector<ScheduleEntry> second = CycleEntries(b);
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](const ScheduleEntry& x, const ScheduleEntry& y) {
                          return x.startMode == y.startMode && x.stopMode == y.stopMode &&
                                 (!x.HasStartTime() || x.startTime == y.startTime) &&
                                 (!x.HasStopTime() || x.stopTime == y.stopTime) &&
                                 (x.stopMode != StopMode::Duration || x.term == y.term);
                      });
}

std::optional<ScheduleConflict> SaveCycles(clsTimeSchedule& schedule, std::span<const ScheduleEntry> entries,
                                           std::optional<qint32> replaced)
{
    std::optional<qint32> first;
    std::optional<ScheduleConflict> conflict;
    for (const ScheduleEntry& entry : entries) {
        conflict = schedule.Add(entry, replaced);
        if (conflict)
            break;
        replaced.reset();
        if (!first)
            first = schedule.CurrentSet(); // the later ones go behind it
    }
    if (first)
        schedule.SetCurrentSet(*first);
    return conflict;
}

} // namespace korvanel
