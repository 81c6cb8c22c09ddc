#include "acquisition/clsTimeSchedule.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class TimeSchedule : public BlockTest
{
protected:
    /// A moment of the test's day; its clock stands at 15:09:26.
    static QDateTime At(int hour, int minute = 0) { return {QDate(2026, 3, 14), QTime(hour, minute), Qt::UTC}; }
    static ScheduleEntry Timed(const QDateTime& start, const QDateTime& stop)
    {
        return {StartMode::Timed, StopMode::Timed, start, stop, static_cast<qint32>(start.secsTo(stop))};
    }
    static ScheduleEntry ManualUntil(const QDateTime& stop)
    {
        return {StartMode::Manual, StopMode::Timed, ZeroDate(), stop, 1};
    }
    static ScheduleEntry ManualFor(qint32 seconds)
    {
        return {StartMode::Manual, StopMode::Duration, ZeroDate(), ZeroDate(), seconds};
    }
    /// Start hours of all entries, in order.
    std::vector<int> Hours() const
    {
        std::vector<int> hours;
        for (qint32 i = 0; i < schedule.Count(); ++i)
            hours.push_back(schedule.StartTime(i).time().hour());
        return hours;
    }
    /// A list of one-hour recordings, the first of them in the place of the default entry.
    void Plan(std::initializer_list<int> hours)
    {
        std::optional<qint32> replaced = 0;
        for (const int hour : hours) {
            ASSERT_FALSE(schedule.Add(Timed(At(hour), At(hour + 1)), replaced)) << hour;
            replaced.reset();
        }
    }

    clsTimeSchedule schedule;
};

TEST_F(TimeSchedule, ANewOneHoldsOneManualEntry)
{
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.CurrentSet(), 0);
    EXPECT_EQ(schedule.StartMode(0), StartMode::Manual);
    EXPECT_EQ(schedule.StopMode(0), StopMode::Manual);
    EXPECT_EQ(schedule.StartTime(0), ZeroDate());
    EXPECT_EQ(schedule.StopTime(0), ZeroDate());
    EXPECT_EQ(schedule.Term(0), 1);
}

TEST_F(TimeSchedule, Add_PutsTimedEntriesInTheirOrder)
{
    Plan({18, 16, 20});
    EXPECT_EQ(Hours(), (std::vector<int>{16, 18, 20}));
    EXPECT_EQ(schedule.CurrentSet(), 2) << "the one added last is the current one";
}

TEST_F(TimeSchedule, Add_ExchangesStartAndStopWithoutAMessage)
{
    EXPECT_FALSE(schedule.Add(Timed(At(18), At(17)), 0));
    EXPECT_EQ(schedule.StartTime(0), At(17));
    EXPECT_EQ(schedule.StopTime(0), At(18));
}

TEST_F(TimeSchedule, Add_TwoTimedEntriesThatOverlapCantBothExist)
{
    Plan({16, 18, 20});
    const auto conflict = schedule.Add(Timed(At(18, 30), At(20, 30)));
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->first, 1);
    EXPECT_EQ(conflict->last, 2);
    EXPECT_EQ(Hours(), (std::vector<int>{16, 18, 20}));
    EXPECT_TRUE(schedule.Add(Timed(At(18, 10), At(18, 20)))) << "within another";
    EXPECT_TRUE(schedule.Add(Timed(At(15), At(23)))) << "around all others";
    EXPECT_TRUE(schedule.Add(Timed(At(19), At(19, 30)))) << "touching the end of another";
    EXPECT_FALSE(schedule.Add(Timed(At(19, 1), At(19, 30))));
}

TEST_F(TimeSchedule, Add_ReplacingTheOnlyEntryOverwritesIt)
{
    Plan({16});
    EXPECT_FALSE(schedule.Add(ManualFor(90), 0));
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.Term(0), 90);
}

TEST_F(TimeSchedule, Add_ReplacingOneOfSeveralMovesItToItsPlace)
{
    Plan({16, 18, 20});
    EXPECT_FALSE(schedule.Add(Timed(At(22), At(23)), 0));
    EXPECT_EQ(Hours(), (std::vector<int>{18, 20, 22}));
    EXPECT_EQ(schedule.CurrentSet(), 2);
}

TEST_F(TimeSchedule, Add_AReplacementThatCollidesPutsTheOldEntryBack)
{
    Plan({16, 18, 20});
    const auto conflict = schedule.Add(Timed(At(20, 10), At(21, 10)), 0);
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->first, 2) << "counted in the list with the old entry";
    EXPECT_EQ(conflict->last, 2);
    EXPECT_EQ(Hours(), (std::vector<int>{16, 18, 20}));
}

TEST_F(TimeSchedule, Add_AManualStartAlwaysIsAtThePlaceZero)
{
    Plan({18, 20});
    EXPECT_FALSE(schedule.Add(ManualUntil(At(17))));
    EXPECT_EQ(schedule.StartMode(0), StartMode::Manual);
    EXPECT_EQ(schedule.Count(), 3);
    const auto conflict = schedule.Add(ManualUntil(At(19, 30)));
    ASSERT_TRUE(conflict);
    EXPECT_EQ(conflict->first, 0);
    EXPECT_EQ(conflict->last, 1);
}

TEST_F(TimeSchedule, Add_BesideAnEntryWithoutTimesNothingFits)
{
    EXPECT_TRUE(schedule.Add(Timed(At(16), At(17))));
    EXPECT_TRUE(schedule.Add({}));
    EXPECT_EQ(schedule.Count(), 1);
}

TEST_F(TimeSchedule, Delete_MovesTheLaterOnesDownAndGoesToTheFirst)
{
    Plan({16, 18, 20});
    schedule.Delete(1);
    EXPECT_EQ(Hours(), (std::vector<int>{16, 20}));
    EXPECT_EQ(schedule.CurrentSet(), 0);
}

TEST_F(TimeSchedule, Delete_TheOnlyEntryGivesTheDefaultOne)
{
    Plan({16});
    schedule.Delete(0);
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.StartMode(0), StartMode::Manual);
    EXPECT_EQ(schedule.StartTime(0), ZeroDate());
}

TEST_F(TimeSchedule, NextValidIndex_SkipsWhatIsOver)
{
    Plan({13, 16, 18});
    schedule.SetCurrentSet(0);
    EXPECT_EQ(schedule.NextValidIndex(), 1);
    schedule.SetCurrentSet(2);
    EXPECT_EQ(schedule.NextValidIndex(), 2) << "it looks from the current one on";
    clock.now = At(19);
    EXPECT_EQ(schedule.NextValidIndex(), -1) << "a stop at this very moment is over";
    clock.now = At(18, 59);
    EXPECT_EQ(schedule.NextValidIndex(), 2);
}

TEST_F(TimeSchedule, NextValidIndex_AManualStopOrADurationByHandIsValidForEver)
{
    clock.now = clock.now.addYears(10);
    EXPECT_EQ(schedule.NextValidIndex(), 0);
    schedule.Add(ManualFor(60), 0);
    EXPECT_EQ(schedule.NextValidIndex(), 0);
    schedule.Add(ManualUntil(At(23)), 0);
    EXPECT_EQ(schedule.NextValidIndex(), -1);
}

TEST_F(TimeSchedule, AnIndexOutsideTheListIsAnError)
{
    EXPECT_THROW(schedule.StartMode(1), std::out_of_range);
    EXPECT_THROW(schedule.SetCurrentSet(-1), std::out_of_range);
    EXPECT_THROW(schedule.Delete(1), std::out_of_range);
    EXPECT_THROW(schedule.Add({}, 1), std::out_of_range);
    EXPECT_EQ(schedule.Count(), 1);
}

} // namespace
} // namespace korvanel::test
