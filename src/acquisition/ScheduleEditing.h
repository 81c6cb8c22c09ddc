// What the user types into the schedule as planned recordings: how the time fields of one recording follow each other,
// what typed durations and cycle counts are taken for, and how a recording that repeats becomes a series of entries.
#pragma once

#include "acquisition/clsTimeSchedule.h"

#include <QDateTime>
#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace korvanel {

inline constexpr int kMostCycles = 400;
/// Largest duration: four digits of hours, more than a year. Longer runs are planned by their end.
inline constexpr int kMostHours = 9999;
inline constexpr int kMostMinutes = 99; ///< 90 minutes are as good as an hour and a half
inline constexpr int kMostSeconds = 99;
inline constexpr qint32 kLongestPeriod = kMostHours * 3600 + 59 * 60 + 59;

enum class CycleRule
{
    Until = 0,
    Count = 1
};

/// The fields of the schedule. Moments are wall time without a zone; durations are in seconds, 1 to `kLongestPeriod`.
struct ScheduleFields
{
    StartMode startMode = StartMode::Manual;
    StopMode stopMode = StopMode::Manual;
    QDateTime start;
    QDateTime stop;
    qint32 term = 1;
    bool isRepeating = false; ///< in force with a timed start only
    CycleRule rule = CycleRule::Count;
    QDateTime until;
    int cycles = 1;
    qint32 cyclePeriod = 2; ///< from one start to the next

    bool HasTimedEnds() const { return startMode == StartMode::Timed && stopMode == StopMode::Timed; }
    /// A duration is shown and may be typed.
    bool HasTerm() const { return stopMode == StopMode::Duration || HasTimedEnds(); }
    /// It becomes a series of entries.
    bool IsCyclic() const { return isRepeating && startMode == StartMode::Timed; }
};

/// Whether two sets of fields yield the same planned recordings; what has no effect in the chosen modes doesn't count.
bool HasSameEntries(const ScheduleFields& a, const ScheduleFields& b);

/// A duration as it stands in three boxes.
struct PeriodText
{
    QString hours;
    QString minutes;
    QString seconds;
    bool operator==(const PeriodText&) const = default;
};

/// One box of a duration: a whole number from 0 to `most` with at least two digits. A fraction is cut, what is no
/// number counts as 0, what lies outside the range as its nearer end.
QString PeriodPartText(const QString& typed, int most);

/// The duration in seconds. Every box is taken as by `PeriodPartText`; a total below one second is one second.
qint32 PeriodOf(const PeriodText& typed);

/// A duration for the three boxes, limited to 1 s to `kLongestPeriod`.
PeriodText TextOfPeriod(qint64 seconds);

/// Number of cycles that a typed text means, 1 to `kMostCycles`. A fraction is cut; what is no number counts as 0 and
/// so as 1.
int CyclesOf(const QString& typed);

enum class EditedField
{
    Mode,
    Moment,
    Term
};

/// Makes start, stop and duration agree after one of them was edited. Between two moments the duration follows, unless
/// it is the one edited: then the stop does. A told duration from a told start moves the stop. Ends that are the wrong
/// way round lie as far apart as exchanged ones.
ScheduleFields Reconciled(ScheduleFields fields, EditedField edited);

/// Fields as they stand before anybody has typed: everything by hand, from now for one second, one cycle of two.
ScheduleFields DefaultFields(const QDateTime& now);

/// Fields with the values of an entry, once; what the entry doesn't tell stays as it is.
ScheduleFields FieldsOf(const ScheduleEntry& entry, ScheduleFields fields);

/// The entry, first of its series if there is one, that the fields tell. A told start with a duration has its stop, and
/// two moments stand in their order, at least a second apart. Fields that the modes leave out keep their defaults.
ScheduleEntry EntryOf(const ScheduleFields& fields);

/// All entries that the fields tell: one, or a series with a cycle period from start to start. The series has as many
/// as told, or all that start before the moment told; at least one and at most `kMostCycles` either way.
std::vector<ScheduleEntry> CycleEntries(const ScheduleFields& fields);

/// Adds entries one by one, the first of them in the place of `replaced`, up to the first that collides; its conflict
/// is returned and those added before stay. The first one added is the current one then, so that a run which is started
/// next works through all of them.
std::optional<ScheduleConflict> SaveCycles(clsTimeSchedule& schedule, std::span<const ScheduleEntry> entries,
                                           std::optional<qint32> replaced);

} // namespace korvanel
