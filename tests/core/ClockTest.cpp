#include "core/Clock.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class DayClockTest : public BlockTest
{
};

TEST_F(DayClockTest, BeginsWithTheSecondsSinceMidnight)
{
    clock.now = QDateTime(QDate(2026, 3, 29), QTime(13, 1, 2, 500));
    StartDayClock();
    EXPECT_EQ(DayClock(), 46862.5F);
}

TEST_F(DayClockTest, FallsToZeroAtMidnight)
{
    clock.now = QDateTime(QDate(2026, 3, 14), QTime(23, 59, 59, 750));
    StartDayClock();
    EXPECT_EQ(DayClock(), 86399.75F);
    clock.seconds += 0.5;
    EXPECT_EQ(DayClock(), 0.25F);
    clock.seconds += 3 * kSecondsPerDay;
    EXPECT_EQ(DayClock(), 0.25F);
}

TEST_F(DayClockTest, IsMovedByNobodyWhoSetsTheSystemClock)
{
    const float before = DayClock();
    clock.now = clock.now.addSecs(3600);
    EXPECT_EQ(DayClock(), before);
    clock.seconds += 1;
    EXPECT_EQ(DayClock(), before + 1);
}

TEST_F(DayClockTest, HasSinglePrecision)
{
    clock.now = QDateTime(QDate(2026, 3, 14), QTime(23, 0));
    StartDayClock();
    clock.seconds += 0.003; // below half of the step of 1/128 s
    EXPECT_EQ(DayClock(), 82800.0F);
}

} // namespace
} // namespace korvanel::test
