#include "core/Clock.h"

#include "support/Fixture.h"

#include <QCoreApplication>
#include <QTimer>

#include <ctime>

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

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

TEST(SystemClockTest, BusyWait_IsExactAndLeavesTheProcessorToOthers)
{
    constexpr double kWait = 0.1;
    const SystemClock clock;
    for (int i = 0; i < 5; ++i) {
        const double before = clock.Seconds();
        const double processor = ProcessorSeconds();
        clock.BusyWait(kWait);
        const double waited = clock.Seconds() - before;
        EXPECT_GE(waited, kWait);
        EXPECT_LT(ProcessorSeconds() - processor, kWait / 4);
    }
}

TEST(SystemClockTest, BusyWait_ServesNothingElseMeanwhile)
{
    bool isServed = false;
    QTimer::singleShot(0, [&isServed] { isServed = true; });
    SystemClock().BusyWait(0.02);
    EXPECT_FALSE(isServed);
    QCoreApplication::processEvents();
    EXPECT_TRUE(isServed);
}

TEST(SystemClockTest, BusyWait_OfNoTimeOrLessReturnsAtOnce)
{
    const SystemClock clock;
    const double before = clock.Seconds();
    clock.BusyWait(0);
    clock.BusyWait(-5);
    EXPECT_LT(clock.Seconds() - before, 1);
}

} // namespace
} // namespace korvanel::test
