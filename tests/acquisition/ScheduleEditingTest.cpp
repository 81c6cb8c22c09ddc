#include "acquisition/ScheduleEditing.h"

#include "support/Fixture.h"

#include <limits>

namespace korvanel::test {
namespace {

class ScheduleEditing : public BlockTest
{
protected:
    /// A moment of the test's day; its clock stands at 15:09:26.
    static QDateTime At(int hour, int minute = 0, int second = 0)
    {
        return {QDate(2026, 3, 14), QTime(hour, minute, second), Qt::UTC};
    }
    static ScheduleFields Fields(StartMode startMode, StopMode stopMode)
    {
        ScheduleFields fields = DefaultFields(At(15));
        fields.startMode = startMode;
        fields.stopMode = stopMode;
        return fields;
    }
    static ScheduleFields Timed(const QDateTime& start, const QDateTime& stop)
    {
        ScheduleFields fields = Fields(StartMode::Timed, StopMode::Timed);
        fields.start = start;
        fields.stop = stop;
        return Reconciled(fields, EditedField::Moment);
    }
    /// Recordings of an hour from 16:00 on, every two hours.
    static ScheduleFields Cycle(int count)
    {
        ScheduleFields fields = Timed(At(16), At(17));
        fields.isRepeating = true;
        fields.cyclePeriod = 2 * 3600;
        fields.cycles = count;
        return fields;
    }
    static ScheduleFields CycleUntil(const QDateTime& until)
    {
        ScheduleFields fields = Cycle(1);
        fields.rule = CycleRule::Until;
        fields.until = until;
        return fields;
    }
    static std::vector<QDateTime> Starts(const std::vector<ScheduleEntry>& entries)
    {
        std::vector<QDateTime> starts;
        starts.reserve(entries.size());
        for (const ScheduleEntry& entry : entries)
            starts.push_back(entry.startTime);
        return starts;
    }

    clsTimeSchedule schedule;
};

TEST_F(ScheduleEditing, PeriodPartText_RestoresDigitsAndLimits)
{
    struct Case
    {
        const char* typed;
        const char* text;
    };
    const Case cases[] = {{"", "00"},   {"7", "07"},   {"07", "07"},   {"59", "59"},  {"60", "60"},    {"90", "90"},
                          {"99", "99"}, {"100", "99"}, {" 5 ", "05"},  {"-1", "00"},  {"-0", "00"},    {"x", "00"},
                          {"1x", "00"}, {"1:", "00"},  {"0x1F", "00"}, {"1e", "00"},  {"inf", "00"},   {"nan", "00"},
                          {"٣", "00"},  {"1'", "00"},  {"7,9", "07"},  {"7.9", "07"}, {"1,2,3", "00"}, {"1e99", "99"},
                          {"--", "00"}, {"%1", "00"}};
    for (const Case& c : cases)
        EXPECT_EQ(PeriodPartText(QString::fromUtf8(c.typed), kMostMinutes), c.text) << c.typed;
}

TEST_F(ScheduleEditing, PeriodPartText_HoursHaveTwoDigitsOrMore)
{
    EXPECT_EQ(PeriodPartText("5", kMostHours), "05");
    EXPECT_EQ(PeriodPartText("100", kMostHours), "100");
    EXPECT_EQ(PeriodPartText("9999", kMostHours), "9999");
    EXPECT_EQ(PeriodPartText("10000", kMostHours), "9999");
    EXPECT_EQ(PeriodPartText("0012", kMostHours), "12");
}

TEST_F(ScheduleEditing, PeriodOf_AddsTheThreeBoxes)
{
    EXPECT_EQ(PeriodOf({"01", "02", "03"}), 3723);
    EXPECT_EQ(PeriodOf({"100", "00", "00"}), 360000);
    EXPECT_EQ(PeriodOf({"9999", "59", "59"}), 35999999);
    EXPECT_EQ(PeriodOf({"00", "90", "00"}), 5400) << "ninety minutes are an hour and a half";
    EXPECT_EQ(PeriodOf({"00", "00", "75"}), 75);
    EXPECT_EQ(PeriodOf({"99999999999", "99", "99"}), 35999999);
    EXPECT_EQ(PeriodOf({"x", "", "5"}), 5);
}

TEST_F(ScheduleEditing, PeriodOf_BelowOneSecondIsOneSecond)
{
    EXPECT_EQ(PeriodOf({"00", "00", "00"}), 1);
    EXPECT_EQ(PeriodOf({"", "", ""}), 1);
    EXPECT_EQ(PeriodOf({"-5", "-1", "-9"}), 1);
    EXPECT_EQ(PeriodOf({"0", "0", "0,9"}), 1);
}

TEST_F(ScheduleEditing, TextOfPeriod_FillsThreeBoxesWithinTheirLimits)
{
    EXPECT_EQ(TextOfPeriod(3723), (PeriodText{"01", "02", "03"}));
    EXPECT_EQ(TextOfPeriod(360059), (PeriodText{"100", "00", "59"}));
    EXPECT_EQ(TextOfPeriod(0), (PeriodText{"00", "00", "01"}));
    EXPECT_EQ(TextOfPeriod(-7), (PeriodText{"00", "00", "01"}));
    EXPECT_EQ(TextOfPeriod(std::numeric_limits<qint64>::max()), (PeriodText{"9999", "59", "59"}));
}

TEST_F(ScheduleEditing, CyclesOf_IsOneToFourHundred)
{
    struct Case
    {
        const char* typed;
        int cycles;
    };
    const Case cases[] = {
        {"1", 1},        {"7", 7},    {"400", 400}, {"401", 400}, {"500", 400}, {"99999999999999999999", 400},
        {"0", 1},        {"-3", 1},   {"", 1},      {"abc", 1},   {"3x", 1},    {"0,5", 1},
        {"2,9", 2},      {"2.9", 2},  {" 12 ", 12}, {"inf", 1},   {"nan", 1},   {"1e2", 100},
        {"399,99", 399}, {"0x10", 1}, {"-inf", 1},  {"1e999", 1}};
    for (const Case& c : cases)
        EXPECT_EQ(CyclesOf(c.typed), c.cycles) << c.typed;
}

TEST_F(ScheduleEditing, DefaultFields_AreByHandFromNowForOneSecond)
{
    const ScheduleFields fields = DefaultFields({QDate(2026, 12, 31), QTime(23, 59, 59), Qt::UTC});
    EXPECT_EQ(fields.startMode, StartMode::Manual);
    EXPECT_EQ(fields.stopMode, StopMode::Manual);
    EXPECT_EQ(fields.stop, QDateTime(QDate(2027, 1, 1), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(fields.term, 1);
    EXPECT_EQ(fields.cyclePeriod, 2);
    EXPECT_EQ(fields.cycles, 1);
    EXPECT_FALSE(fields.isRepeating);
}

TEST_F(ScheduleEditing, Reconciled_BetweenTwoMomentsTheDurationFollows)
{
    EXPECT_EQ(Timed(At(16), At(17, 30)).term, 5400);
    EXPECT_EQ(Timed(At(17, 30), At(16)).term, 5400) << "the ends will be exchanged";
    EXPECT_EQ(Timed(At(16), At(16)).term, 1);
    EXPECT_EQ(Timed(At(16), At(16).addYears(5)).term, kLongestPeriod);
}

TEST_F(ScheduleEditing, Reconciled_AnEditedDurationMovesTheEnd)
{
    ScheduleFields fields = Timed(At(16), At(17));
    fields.term = 90;
    fields = Reconciled(fields, EditedField::Term);
    EXPECT_EQ(fields.start, At(16));
    EXPECT_EQ(fields.stop, At(16, 1, 30));
    EXPECT_EQ(fields.term, 90);
}

TEST_F(ScheduleEditing, Reconciled_ATimedStartWithADurationMovesTheEndWhicheverIsEdited)
{
    ScheduleFields fields = Fields(StartMode::Timed, StopMode::Duration);
    fields.start = At(18);
    fields.term = 60;
    for (const EditedField edited : {EditedField::Mode, EditedField::Moment, EditedField::Term}) {
        fields.stop = At(3);
        EXPECT_EQ(Reconciled(fields, edited).stop, At(18, 1));
        EXPECT_EQ(Reconciled(fields, edited).term, 60);
    }
}

TEST_F(ScheduleEditing, Reconciled_WithoutATimedStartNothingFollows)
{
    for (const StopMode stopMode : {StopMode::Manual, StopMode::Timed, StopMode::Duration}) {
        ScheduleFields fields = Fields(StartMode::Manual, stopMode);
        fields.stop = At(20);
        fields.term = 77;
        for (const EditedField edited : {EditedField::Mode, EditedField::Moment, EditedField::Term}) {
            EXPECT_EQ(Reconciled(fields, edited).stop, At(20));
            EXPECT_EQ(Reconciled(fields, edited).term, 77);
        }
    }
}

TEST_F(ScheduleEditing, EntryOf_HoldsWhatItsModesTell)
{
    ScheduleEntry entry = EntryOf(Fields(StartMode::Manual, StopMode::Manual));
    EXPECT_EQ(entry.startTime, ZeroDate());
    EXPECT_EQ(entry.stopTime, ZeroDate());
    EXPECT_EQ(entry.term, 1);

    ScheduleFields fields = Fields(StartMode::Manual, StopMode::Timed);
    fields.stop = At(20);
    entry = EntryOf(fields);
    EXPECT_EQ(entry.startTime, ZeroDate());
    EXPECT_EQ(entry.stopTime, At(20));

    fields = Fields(StartMode::Manual, StopMode::Duration);
    fields.term = 90;
    entry = EntryOf(fields);
    EXPECT_EQ(entry.stopTime, ZeroDate());
    EXPECT_EQ(entry.term, 90);

    fields = Fields(StartMode::Timed, StopMode::Manual);
    fields.start = At(16);
    entry = EntryOf(fields);
    EXPECT_EQ(entry.startTime, At(16));
    EXPECT_EQ(entry.stopTime, ZeroDate());
}

TEST_F(ScheduleEditing, EntryOf_ATimedStartWithADurationHasItsStop)
{
    ScheduleFields fields = Fields(StartMode::Timed, StopMode::Duration);
    fields.start = At(23, 59, 30);
    fields.stop = At(1);
    fields.term = 60;
    const ScheduleEntry entry = EntryOf(fields);
    EXPECT_EQ(entry.stopTime, QDateTime(QDate(2026, 3, 15), QTime(0, 0, 30), Qt::UTC));
    EXPECT_EQ(entry.term, 60);
}

TEST_F(ScheduleEditing, EntryOf_TwoMomentsStandInTheirOrderAndASecondApart)
{
    const ScheduleEntry exchanged = EntryOf(Timed(At(17), At(16)));
    EXPECT_EQ(exchanged.startTime, At(16));
    EXPECT_EQ(exchanged.stopTime, At(17));
    EXPECT_EQ(exchanged.term, 3600);
    const ScheduleEntry shortest = EntryOf(Timed(At(16), At(16)));
    EXPECT_EQ(shortest.stopTime, At(16, 0, 1));
    EXPECT_EQ(shortest.term, 1);
}

TEST_F(ScheduleEditing, EntryOf_TwoMomentsMayLieFurtherApartThanADurationCanBeTyped)
{
    EXPECT_EQ(EntryOf(Timed(At(16), At(16).addYears(5))).term, At(16).secsTo(At(16).addYears(5)));
    const ScheduleEntry longest = EntryOf(Timed(At(16), At(16).addYears(5000)));
    EXPECT_EQ(longest.stopTime, At(16).addYears(5000));
    EXPECT_EQ(longest.term, std::numeric_limits<qint32>::max());
}

TEST_F(ScheduleEditing, FieldsOf_GivesBackTheEntryForEachCombinationOfModes)
{
    for (const StartMode startMode : {StartMode::Manual, StartMode::Timed})
        for (const StopMode stopMode : {StopMode::Manual, StopMode::Timed, StopMode::Duration}) {
            ScheduleFields typed = Fields(startMode, stopMode);
            typed.start = At(16);
            typed.stop = At(17);
            typed.term = 3600;
            const ScheduleEntry entry = EntryOf(typed);
            const ScheduleEntry again = EntryOf(FieldsOf(entry, DefaultFields(At(3))));
            EXPECT_EQ(again.startMode, entry.startMode);
            EXPECT_EQ(again.stopMode, entry.stopMode);
            EXPECT_EQ(again.startTime, entry.startTime);
            EXPECT_EQ(again.stopTime, entry.stopTime);
            EXPECT_EQ(again.term, entry.term);
        }
}

TEST_F(ScheduleEditing, FieldsOf_LeavesAloneWhatTheEntryDoesNotTell)
{
    const ScheduleFields fields = FieldsOf(ScheduleEntry(), Cycle(7));
    EXPECT_EQ(fields.startMode, StartMode::Manual);
    EXPECT_EQ(fields.start, At(16)) << "and not the zero date";
    EXPECT_EQ(fields.stop, At(17));
    EXPECT_EQ(fields.cycles, 7);
    EXPECT_EQ(fields.cyclePeriod, 7200);
    EXPECT_FALSE(fields.isRepeating);
}

TEST_F(ScheduleEditing, CycleEntries_EachStartIsThePreviousOnePlusThePeriod)
{
    const auto entries = CycleEntries(Cycle(3));
    EXPECT_EQ(Starts(entries), (std::vector<QDateTime>{At(16), At(18), At(20)}));
    for (const ScheduleEntry& entry : entries) {
        EXPECT_EQ(entry.startMode, StartMode::Timed);
        EXPECT_EQ(entry.stopMode, StopMode::Timed);
        EXPECT_EQ(entry.startTime.secsTo(entry.stopTime), 3600);
        EXPECT_EQ(entry.term, 3600);
    }
}

TEST_F(ScheduleEditing, CycleEntries_WithADurationHaveTheirStops)
{
    ScheduleFields fields = Cycle(2);
    fields.stopMode = StopMode::Duration;
    fields.term = 600;
    const auto entries = CycleEntries(fields);
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries[1].stopMode, StopMode::Duration);
    EXPECT_EQ(entries[1].stopTime, At(18, 10));
}

TEST_F(ScheduleEditing, CycleEntries_ExchangedEndsRepeatFromTheEarlierOne)
{
    ScheduleFields fields = Cycle(2);
    std::swap(fields.start, fields.stop);
    EXPECT_EQ(Starts(CycleEntries(fields)), (std::vector<QDateTime>{At(16), At(18)}));
}

TEST_F(ScheduleEditing, CycleEntries_RunAcrossMidnightAndTheEndOfTheYear)
{
    ScheduleFields fields = Cycle(3);
    fields.start = {QDate(2027, 12, 31), QTime(22, 0), Qt::UTC};
    fields.stop = {QDate(2027, 12, 31), QTime(23, 30), Qt::UTC};
    const auto entries = CycleEntries(fields);
    EXPECT_EQ(Starts(entries), (std::vector<QDateTime>{{QDate(2027, 12, 31), QTime(22, 0), Qt::UTC},
                                                       {QDate(2028, 1, 1), QTime(0, 0), Qt::UTC},
                                                       {QDate(2028, 1, 1), QTime(2, 0), Qt::UTC}}));
    EXPECT_EQ(entries[1].stopTime, QDateTime(QDate(2028, 1, 1), QTime(1, 30), Qt::UTC));
}

TEST_F(ScheduleEditing, CycleEntries_OfADayKeepTheirTimeWhereDaylightSavingBegins)
{
    ScheduleFields fields = Cycle(3);
    fields.start = {QDate(2026, 3, 28), QTime(2, 30), Qt::UTC};
    fields.stop = fields.start.addSecs(60);
    fields.cyclePeriod = 86400;
    for (const QDateTime& start : Starts(CycleEntries(fields)))
        EXPECT_EQ(start.time(), QTime(2, 30)) << start.date().day();
}

TEST_F(ScheduleEditing, CycleEntries_UntilTakesAllThatStartBeforeTheMoment)
{
    EXPECT_EQ(CycleEntries(CycleUntil(At(20, 0, 1))).size(), 3U);
    EXPECT_EQ(CycleEntries(CycleUntil(At(20))).size(), 2U) << "the series is over at that moment";
    EXPECT_EQ(CycleEntries(CycleUntil(At(16, 0, 1))).size(), 1U);
}

TEST_F(ScheduleEditing, CycleEntries_UntilAMomentBeforeTheStartIsOneEntry)
{
    EXPECT_EQ(Starts(CycleEntries(CycleUntil(At(3)))), (std::vector<QDateTime>{At(16)}));
    EXPECT_EQ(CycleEntries(CycleUntil(At(16))).size(), 1U);
}

TEST_F(ScheduleEditing, CycleEntries_AreAtMostFourHundredEitherWay)
{
    EXPECT_EQ(CycleEntries(Cycle(400)).size(), 400U);
    EXPECT_EQ(CycleEntries(Cycle(CyclesOf("500"))).size(), 400U);
    EXPECT_EQ(CycleEntries(Cycle(500)).size(), 400U);
    EXPECT_EQ(CycleEntries(CycleUntil(At(16).addYears(50))).size(), 400U);
    EXPECT_EQ(CycleEntries(CycleUntil(At(16).addSecs(399LL * 7200 + 1))).size(), 400U);
    EXPECT_EQ(CycleEntries(CycleUntil(At(16).addSecs(399LL * 7200))).size(), 399U);
}

TEST_F(ScheduleEditing, CycleEntries_NeedATimedStart)
{
    ScheduleFields fields = Cycle(5);
    fields.startMode = StartMode::Manual;
    EXPECT_EQ(CycleEntries(fields).size(), 1U);
    fields = Cycle(5);
    fields.isRepeating = false;
    EXPECT_EQ(CycleEntries(fields).size(), 1U);
}

TEST_F(ScheduleEditing, SaveCycles_TheFirstReplacesTheCurrentEntryAndTheOthersFollow)
{
    EXPECT_FALSE(SaveCycles(schedule, CycleEntries(Cycle(3)), 0));
    ASSERT_EQ(schedule.Count(), 3);
    EXPECT_EQ(schedule.StartTime(0), At(16));
    EXPECT_EQ(schedule.StartTime(2), At(20));
}

TEST_F(ScheduleEditing, SaveCycles_ARunStartedNextBeginsWithTheFirstOfTheSeries)
{
    SaveCycles(schedule, CycleEntries(Timed(At(15, 30), At(15, 40))), 0);
    EXPECT_FALSE(SaveCycles(schedule, CycleEntries(Cycle(3)), std::nullopt));
    EXPECT_EQ(schedule.CurrentSet(), 1);
    EXPECT_EQ(schedule.NextValidIndex(), 1);
}

TEST_F(ScheduleEditing, SaveCycles_FourHundredFitAfterEachOther)
{
    EXPECT_FALSE(SaveCycles(schedule, CycleEntries(Cycle(400)), 0));
    ASSERT_EQ(schedule.Count(), 400);
    EXPECT_EQ(schedule.StartTime(399), At(16).addSecs(399LL * 7200));
}

TEST_F(ScheduleEditing, SaveCycles_TheFirstCollisionStopsTheSeries)
{
    SaveCycles(schedule, CycleEntries(Timed(At(20, 30), At(21, 30))), 0);
    const auto conflict = SaveCycles(schedule, CycleEntries(Cycle(5)), std::nullopt);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->first, 2) << "behind the two that fit";
    EXPECT_EQ(conflict->last, 2);
    ASSERT_EQ(schedule.Count(), 3) << "and none of the later ones, which would fit";
    EXPECT_EQ(schedule.StartTime(0), At(16));
    EXPECT_EQ(schedule.StartTime(1), At(18));
    EXPECT_EQ(schedule.CurrentSet(), 0);
}

TEST_F(ScheduleEditing, SaveCycles_ThatCollideAtOnceChangeNothing)
{
    SaveCycles(schedule, CycleEntries(Cycle(3)), 0);
    schedule.SetCurrentSet(2);
    const auto conflict = SaveCycles(schedule, CycleEntries(Cycle(3)), std::nullopt);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->first, 0);
    EXPECT_EQ(schedule.Count(), 3);
    EXPECT_EQ(schedule.CurrentSet(), 2);
}

TEST_F(ScheduleEditing, SaveCycles_APeriodNotLongerThanTheDurationCollidesByItself)
{
    for (const qint32 period : {1, 3599, 3600}) {
        clsTimeSchedule fresh;
        ScheduleFields fields = Cycle(3);
        fields.cyclePeriod = period;
        const auto conflict = SaveCycles(fresh, CycleEntries(fields), 0);
        ASSERT_TRUE(conflict) << period;
        EXPECT_EQ(conflict->first, 0);
        EXPECT_EQ(conflict->last, 0);
        EXPECT_EQ(fresh.Count(), 1) << "the first one stays";
    }
    ScheduleFields fields = Cycle(3);
    fields.cyclePeriod = 3601;
    EXPECT_FALSE(SaveCycles(schedule, CycleEntries(fields), 0));
}

TEST_F(ScheduleEditing, SaveCycles_BehindAnOpenEndNothingFits)
{
    ScheduleFields fields = Cycle(3);
    fields.stopMode = StopMode::Manual;
    EXPECT_TRUE(SaveCycles(schedule, CycleEntries(fields), 0));
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.StartTime(0), At(16));
}

TEST_F(ScheduleEditing, SaveCycles_AManualEntryGoesToThePlaceZero)
{
    SaveCycles(schedule, CycleEntries(Cycle(2)), 0);
    ScheduleFields fields = Fields(StartMode::Manual, StopMode::Timed);
    fields.stop = At(15, 30);
    EXPECT_FALSE(SaveCycles(schedule, CycleEntries(fields), std::nullopt));
    EXPECT_EQ(schedule.StartMode(0), StartMode::Manual);
    EXPECT_EQ(schedule.Count(), 3);
    const auto conflict = SaveCycles(schedule, CycleEntries(Fields(StartMode::Manual, StopMode::Manual)), std::nullopt);
    ASSERT_TRUE(conflict) << "by hand at both ends it would last over all others";
    EXPECT_EQ(conflict->first, 0);
    EXPECT_EQ(conflict->last, 2);
}

} // namespace
} // namespace korvanel::test
