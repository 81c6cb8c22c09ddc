#include "acquisition/PollingGrid.h"

#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class PollingGridTest : public BlockTest
{
protected:
    /// Begins at a time of day, given in seconds since midnight.
    void StartAt(double secondsOfDay, double interval)
    {
        clock.now = QDateTime(QDate(2026, 3, 14), QTime(0, 0)).addMSecs(static_cast<qint64>(secondsOfDay * 1000));
        StartDayClock();
        grid.Start(interval);
    }
    void Pass(double seconds) { clock.seconds += seconds; }

    PollingGrid grid;
};

TEST_F(PollingGridTest, FirstPoll_IsDueAtOnceAndTheNextAfterAnInterval)
{
    StartAt(1000, 2);
    EXPECT_TRUE(grid.TakeDuePoll(2));
    EXPECT_FALSE(grid.TakeDuePoll(2));
    Pass(1.9);
    EXPECT_FALSE(grid.TakeDuePoll(2));
    Pass(0.1);
    EXPECT_TRUE(grid.TakeDuePoll(2));
}

TEST_F(PollingGridTest, APoll_MayBeEarlyByHalfATick)
{
    StartAt(1000, 1);
    ASSERT_TRUE(grid.TakeDuePoll(1));
    Pass(0.96);
    EXPECT_FALSE(grid.TakeDuePoll(1));
    Pass(0.02);
    EXPECT_TRUE(grid.TakeDuePoll(1));
}

TEST_F(PollingGridTest, ALatePoll_DoesNotShiftTheNext)
{
    StartAt(1000, 1);
    ASSERT_TRUE(grid.TakeDuePoll(1));
    Pass(1.6);
    EXPECT_TRUE(grid.TakeDuePoll(1));
    Pass(0.4);
    EXPECT_TRUE(grid.TakeDuePoll(1)) << "two intervals after the first one";
}

TEST_F(PollingGridTest, MissedPolls_FollowUntilTheGridIsReached)
{
    StartAt(1000, 1);
    ASSERT_TRUE(grid.TakeDuePoll(1));
    Pass(3.2);
    for (int missed = 0; missed < 3; ++missed)
        EXPECT_TRUE(grid.TakeDuePoll(1)) << missed;
    EXPECT_FALSE(grid.TakeDuePoll(1));
}

TEST_F(PollingGridTest, Midnight_LeavesTheGridIntact)
{
    StartAt(86398.5, 1);
    int polls = 0;
    for (int tick = 0; tick < 200; ++tick) { // ten seconds
        polls += grid.TakeDuePoll(1) ? 1 : 0;
        Pass(0.05);
    }
    EXPECT_EQ(polls, 10);
    EXPECT_NEAR(grid.Elapsed(), 10, 0.01);
}

TEST_F(PollingGridTest, Restart_BeginsTheTimeButNotTheGrid)
{
    StartAt(1000, 1);
    ASSERT_TRUE(grid.TakeDuePoll(1));
    Pass(0.5);
    grid.Restart();
    EXPECT_NEAR(grid.Elapsed(), 0, 0.001);
    EXPECT_FALSE(grid.TakeDuePoll(1));
    Pass(0.5);
    EXPECT_TRUE(grid.TakeDuePoll(1));
}

} // namespace
} // namespace korvanel::test
