#include "acquisition/RunFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

class MeasurementRunTest : public RunTest
{
};

TEST_F(MeasurementRunTest, Start_StoresTheFirstSampleAtTheFirstTickAndOneEachInterval)
{
    Open();
    Start();
    EXPECT_TRUE(display.isLocked);
    EXPECT_TRUE(App().bProjectDirty);
    const double begin = moving.seconds;
    Pass(4.2);
    EXPECT_EQ(Sets(), "1,2,3,4,5");
    EXPECT_EQ(Times(), "0,1,2,3,4");
    ASSERT_EQ(pollTimes.size(), 5U);
    // Opening reads the identity, twice 0.15 s; then the grid begins.
    for (std::size_t i = 0; i < pollTimes.size(); ++i)
        EXPECT_NEAR(pollTimes[i] - pollTimes[0], static_cast<double>(i), 0.0275 + 1e-9);
    EXPECT_NEAR(pollTimes[0] - begin, 0.3, 0.001);
    EXPECT_TRUE(display.isRunning);
    EXPECT_EQ(display.stored, 5);
    EXPECT_EQ(display.lamps, std::vector<int>(5, kLampGood));
    EXPECT_EQ(display.elapsed, "00:00:04");
}

TEST_F(MeasurementRunTest, SampleIsStoredWithItsTransformersAndDerivedValues)
{
    Open();
    App().dTransPrimary = {1000, 50};
    App().dTransSecondary = {100, 5};
    Start();
    Pass(1.2);
    EXPECT_EQ(Query("SELECT [U sum] FROM SampledValues WHERE [Set]=1").toDouble(), 2300);
    EXPECT_EQ(Query("SELECT [I sum] FROM SampledValues WHERE [Set]=1").toDouble(), 20);
    EXPECT_NEAR(Query("SELECT [P sum] FROM SampledValues WHERE [Set]=1").toDouble(), 2300 * 20 * 0.5, 1e-6);
    EXPECT_NEAR(Query("SELECT [Q sum] FROM ComputedValues WHERE [Set]=1").toDouble(), 2300 * 20 * std::sqrt(0.75),
                1e-6);
    EXPECT_EQ(Query("SELECT Wp FROM ComputedValues WHERE [Set]=1").toDouble(), 0) << "the first set adds nothing";
    EXPECT_NEAR(Query("SELECT Wp FROM ComputedValues WHERE [Set]=2").toDouble(), 23000, 1e-6);
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues WHERE [Set]=1"), "0");
}

TEST_F(MeasurementRunTest, EachRowIsOnDiskBeforeTheNextTick)
{
    Open();
    Start();
    for (int set = 1; set <= 3; ++set) {
        Pass(set == 1 ? kTick : 1);
        EXPECT_EQ(Count(), set); // read through a connection of its own
    }
}

TEST_F(MeasurementRunTest, Stop_ClosesLineAndFileAndWritesTheHeaderFields)
{
    Open();
    Start();
    Pass(3.2);
    run.StartOrStop();
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(display.isTicking);
    EXPECT_FALSE(display.isRunning);
    EXPECT_FALSE(display.isLocked);
    EXPECT_FALSE(port.isOpen);
    EXPECT_FALSE(IsProjectDbOpen());
    EXPECT_EQ(App().dtMeasurementBegin, QDateTime(QDate(2026, 3, 14), QTime(15, 9, 26), Qt::UTC));
    EXPECT_EQ(App().sMeasurementTerm, "00:00:03");
    EXPECT_EQ(App().sDeviceId, "MI7140 4711");
    EXPECT_EQ(App().iSetCount, 4);
    EXPECT_EQ(shell.calls.filter("SetBusyMenus"), QStringList({"SetBusyMenus 0", "SetBusyMenus 1"}));
}

TEST_F(MeasurementRunTest, Midnight_KeepsTheGridAndTheElapsedTime)
{
    moving.start = QDateTime(QDate(2026, 3, 14), QTime(23, 59, 55, 800), Qt::UTC);
    StartDayClock();
    Open();
    Start();
    Pass(10.2);
    EXPECT_EQ(Times(), "0,1,2,3,4,5,6,7,8,9,10");
    for (std::size_t i = 0; i < pollTimes.size(); ++i)
        EXPECT_NEAR(pollTimes[i] - pollTimes[0], static_cast<double>(i), 0.0275 + 0.008);
    EXPECT_EQ(display.elapsed, "00:00:10");
    EXPECT_EQ(Query("SELECT Time FROM SampledValues WHERE [Set]=11").left(10), "2026-03-15");
}

TEST_F(MeasurementRunTest, PollSlowerThanTheInterval_IsMadeUpWithoutAPauseUntilTheGridIsReached)
{
    Open();
    double poll = 1.3;
    port.answer = [&](const QByteArray& request) {
        if (request[1] == 'M' && request[2] == 16) {
            pollTimes.push_back(moving.seconds);
            moving.seconds += poll - 0.4; // the four waits of 0.1 s come on top
        }
        return instrument.Reply(request);
    };
    Start();
    Pass(13);
    const auto slow = static_cast<int>(pollTimes.size());
    EXPECT_EQ(slow, 10) << "one poll follows the other";
    poll = 0.4;
    Pass(7);
    // 20 s of grid have passed since the first poll, and every place of the grid has its set.
    EXPECT_NEAR(Count(), 20, 1);
    EXPECT_NEAR(pollTimes.back() - pollTimes.front(), Count() - 1, 0.03) << "the grid is reached again";
    EXPECT_EQ(Query("SELECT max(t) FROM SampledValues").toInt(), Count() - 1) << "the stored time is nominal";
}

TEST_F(MeasurementRunTest, SystemClockSetByAnHour_MovesNeitherGridNorNumbers)
{
    for (const double shift : {3600.0, -3600.0, -7200.0}) {
        Open();
        pollTimes.clear();
        Start();
        Pass(5.2);
        moving.wallOffset += shift;
        Pass(5);
        run.End();
        EXPECT_EQ(Times(), "0,1,2,3,4,5,6,7,8,9,10") << shift;
        for (std::size_t i = 0; i < pollTimes.size(); ++i)
            EXPECT_NEAR(pollTimes[i] - pollTimes[0], static_cast<double>(i), 0.036);
        const auto stamp = [this](int set) {
            return QDateTime::fromString(
                Query(QStringLiteral("SELECT Time FROM SampledValues WHERE [Set]=%1").arg(set)), "yyyy-MM-dd hh:mm:ss");
        };
        EXPECT_NEAR(static_cast<double>(stamp(6).secsTo(stamp(7))), shift + 1, 1) << "the time stamps show it";
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(MeasurementRunTest, SuspendedMachine_StartsNoBurstOfPolls)
{
    Open();
    Start();
    Pass(2.2);
    moving.wallOffset += 8 * 3600; // the steady clock stood still meanwhile
    Pass(0.4);
    EXPECT_EQ(Count(), 3);
    Pass(0.8);
    EXPECT_EQ(Count(), 4);
}

TEST_F(MeasurementRunTest, Sound_BeepsAtEachSample)
{
    Open();
    App().lSound = 1;
    Start();
    Pass(2.2);
    EXPECT_EQ(shell.calls.count("Beep"), 3);
    run.End();
    shell.answers = {Answer::Yes};
    App().lSound = 0;
    Start();
    Pass(2.2);
    EXPECT_EQ(shell.calls.count("Beep"), 3);
}

TEST_F(MeasurementRunTest, TickDuringABoxOfAnEarlierOne_DoesNothing)
{
    Open();
    Start();
    Pass(1.2);
    display.onSample = [this] {
        moving.seconds += 5;
        run.Tick(); // as from the event loop of a box
    };
    Pass(1);
    EXPECT_EQ(display.stored, 3);
}

TEST_F(MeasurementRunTest, RowsInTheProject_AreDroppedOnlyAfterTheQuestion)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    shell.answers = {Answer::No};
    run.StartOrStop();
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Count(), 3);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text, "Sollen die bereits aufgezeichneten Messwerte wirklich gelöscht werden?");
    EXPECT_EQ(shell.boxes[0].buttons, BoxButtons::YesNo);
    shell.answers = {Answer::Yes};
    Start();
    EXPECT_EQ(Count(), 0);
    Pass(0.2);
    EXPECT_EQ(Sets(), "1");
}

TEST_F(MeasurementRunTest, Drop_EmptiesTablesAndDisplayAfterYes)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    shell.answers = {Answer::No, Answer::Yes};
    EXPECT_FALSE(run.Drop());
    EXPECT_EQ(Count(), 3);
    EXPECT_TRUE(run.Drop());
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_EQ(display.dropped, 1);
}

TEST_F(MeasurementRunTest, BadIntervals_AreCorrectedOrRefused)
{
    for (const double interval : {0.0, -5.0, std::nan(""), HUGE_VAL}) {
        Open(interval);
        Start();
        EXPECT_EQ(App().dInterval, 1) << interval;
        run.End();
        QFile::remove(App().sProjectPath);
    }
    for (const double interval : {86401.0, 1e9}) {
        Open(interval);
        run.StartOrStop();
        ASSERT_FALSE(run.IsTicking()) << interval;
        ASSERT_FALSE(shell.boxes.empty());
        EXPECT_EQ(shell.boxes.back().text, "Der eingegebene Wert muss sich\nzwischen 1 und 86400  befinden.");
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(MeasurementRunTest, TransformersThatCannotDivide_CountAsOne)
{
    Open();
    App().dTransPrimary = {0, -3};
    App().dTransSecondary = {0, 0};
    Start();
    EXPECT_EQ(App().dTransRatio, (std::array<double, 2>{1, 1}));
    Pass(0.2);
    EXPECT_EQ(Query("SELECT [U sum] FROM SampledValues").toDouble(), 230);
}

// A day at one second: every place of the grid once, across midnight.
TEST_F(MeasurementRunTest, ADayOfPollsAcrossMidnight_LosesAndDoublesNone)
{
    const QTemporaryDir memory(QDir("/dev/shm").exists() ? QStringLiteral("/dev/shm/korvanel-XXXXXX")
                                                         : folder.filePath("day-XXXXXX"));
    Open();
    App().sProjectPath = memory.filePath("day.MDB");
    CreateProjectFile(App().sProjectPath);
    moving.start = QDateTime(QDate(2026, 3, 14), QTime(18, 0, 0, 250), Qt::UTC);
    StartDayClock();
    Start();
    Pass(86399.2);
    run.End();
    EXPECT_EQ(Count(), 86400);
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE t = [Set] - 1"), "86400");
    double latest = 0;
    double earliest = 0;
    for (std::size_t i = 0; i < pollTimes.size(); ++i) {
        latest = std::max(latest, pollTimes[i] - pollTimes[0] - static_cast<double>(i));
        earliest = std::min(earliest, pollTimes[i] - pollTimes[0] - static_cast<double>(i));
    }
    EXPECT_LE(latest, 0.05);
    EXPECT_GE(earliest, -0.05);
    EXPECT_EQ(App().sMeasurementTerm, "23:59:59");
    EXPECT_EQ(display.elapsed, "23:59:59");
}

} // namespace
} // namespace korvanel::test
