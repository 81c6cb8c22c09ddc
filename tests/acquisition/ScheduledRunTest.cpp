#include "acquisition/RunFixture.h"

namespace korvanel::test {
namespace {

class ScheduledRunTest : public RunTest
{
protected:
    void Plan(const ScheduleEntry& entry)
    {
        ASSERT_FALSE(schedule.Add(entry, isFirst ? std::optional<qint32>(0) : std::nullopt));
        isFirst = false;
    }
    /// Selects the first entry, as a click in the list does.
    void StartFromTheFirst()
    {
        schedule.SetCurrentSet(0);
        Start();
    }
    QStringList Snapshots() const { return QDir(folder.path()).entryList({"test *.MDB"}, QDir::Files, QDir::Name); }
    bool isFirst = true;
};

TEST_F(ScheduledRunTest, TimedStart_CountsDownAndBeginsAtItsTime)
{
    Open();
    Plan(Timed(After(10), After(15)));
    StartFromTheFirst();
    EXPECT_TRUE(display.isTimerShown);
    EXPECT_EQ(display.marked, 0);
    Pass(3);
    EXPECT_EQ(display.countdown, "Auto-START in: 00:00:07");
    EXPECT_FALSE(display.isRunning);
    EXPECT_FALSE(port.isOpen);
    Pass(6);
    EXPECT_EQ(Count(), 0);
    Pass(2);
    EXPECT_TRUE(display.isRunning);
    EXPECT_EQ(display.countdown, "");
    EXPECT_EQ(Query("SELECT Time FROM SampledValues WHERE [Set]=1"), "2026-03-14 15:09:36");
    Pass(10);
    EXPECT_FALSE(run.IsTicking()) << "its end has come and there is no other entry";
    EXPECT_EQ(Count(), 5);
    EXPECT_EQ(App().sMeasurementTerm, "00:00:05");
}

TEST_F(ScheduledRunTest, OneEntry_LeavesNoCopyAndItsRows)
{
    Open();
    Plan(Timed(After(2), After(5)));
    StartFromTheFirst();
    Pass(10);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Snapshots(), QStringList());
    EXPECT_EQ(Count(), 3);
}

TEST_F(ScheduledRunTest, StartButtonWhileWaiting_EndsTheWaiting)
{
    Open();
    Plan(Timed(After(100), After(105)));
    StartFromTheFirst();
    Pass(3);
    run.StartOrStop();
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(display.isLocked);
    EXPECT_EQ(display.countdown, "");
    EXPECT_EQ(App().dtMeasurementEnd, ZeroDate()) << "nothing had begun";
    Pass(200);
    EXPECT_EQ(Count(), 0);
}

TEST_F(ScheduledRunTest, StartInThePast_IsTold)
{
    Open();
    Plan(Timed(After(-5), After(60)));
    schedule.SetCurrentSet(0);
    run.StartOrStop();
    EXPECT_EQ(shell.BoxTexts(), QStringList("Startzeitpunkt liegt in Vergangenheit"));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_FALSE(display.isLocked);
}

TEST_F(ScheduledRunTest, WithoutAValidEntry_StartDoesNothing)
{
    Open();
    Plan(Timed(After(-60), After(-5)));
    schedule.SetCurrentSet(0);
    run.StartOrStop();
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(display.marked, -1);
}

TEST_F(ScheduledRunTest, ManualStartWithDuration_EndsAfterIt)
{
    Open();
    Plan({StartMode::Manual, StopMode::Duration, ZeroDate(), ZeroDate(), 4});
    StartFromTheFirst();
    Pass(20);
    EXPECT_FALSE(run.IsTicking()) << "it leads on to no entry, not even to itself";
    EXPECT_EQ(Count(), 4);
    EXPECT_EQ(App().sMeasurementTerm, "00:00:04");
}

TEST_F(ScheduledRunTest, CopyOfAManualStart_CarriesTheMomentAtWhichItBegan)
{
    Open();
    Plan(Timed(After(1000), After(1005)));
    Plan({StartMode::Manual, StopMode::Timed, ZeroDate(), After(5), 1});
    StartFromTheFirst();
    Pass(10);
    EXPECT_EQ(Snapshots(), QStringList("test 14-03-2026 15-09-26.MDB"));
    EXPECT_TRUE(run.IsTicking());
    EXPECT_EQ(display.countdown.left(20), "Auto-START in: 00:16");
}

TEST_F(ScheduledRunTest, ManualStartWithTimedStop_EndsAtThatTime)
{
    Open();
    Plan({StartMode::Manual, StopMode::Timed, ZeroDate(), After(3), 1});
    StartFromTheFirst();
    Pass(10);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Count(), 3);
}

TEST_F(ScheduledRunTest, Series_KeepsEachRecordingInAFileOfItsOwnAndEmptiesTheProject)
{
    Open();
    for (const int begin : {10, 30, 50})
        Plan(Timed(After(begin), After(begin + 5)));
    StartFromTheFirst();
    Pass(25);
    EXPECT_TRUE(run.IsTicking()) << "the next entry is waited for";
    EXPECT_FALSE(display.isRunning);
    EXPECT_EQ(display.marked, 1);
    EXPECT_EQ(Count(), 0);
    Pass(40);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(display.marked, -1);
    const QStringList files = Snapshots();
    ASSERT_EQ(files.size(), 3);
    EXPECT_EQ(files[0], "test 14-03-2026 15-09-36.MDB");
    for (const QString& file : files) {
        EXPECT_EQ(QueryFile(PathOf(file), "SELECT count(*) FROM SampledValues"), "5") << file.toStdString();
        EXPECT_EQ(QueryFile(PathOf(file), "SELECT Text FROM Overview WHERE Name='Measurement Term'"), "00:00:05");
        EXPECT_EQ(QueryFile(PathOf(file), "PRAGMA integrity_check"), "ok");
    }
    EXPECT_EQ(QueryFile(PathOf(files[1]), "SELECT Time FROM Overview WHERE Name='Measurement Begin'"),
              "2026-03-14 15:09:56");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ScheduledRunTest, CopyThatCannotBeWritten_KeepsTheRows)
{
    Open();
    Plan(Timed(After(2), After(5)));
    Plan(Timed(After(20), After(25)));
    ASSERT_TRUE(QDir(folder.path()).mkpath("test 14-03-2026 15-09-28.MDB/x")); // stands where the copy would go
    StartFromTheFirst();
    Pass(10);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht kopieren:"));
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Count(), 3);
}

TEST_F(ScheduledRunTest, FourHundredCycles_EndWithFourHundredFiles)
{
    Open();
    for (int cycle = 0; cycle < 400; ++cycle)
        Plan(Timed(After(5 + 4 * cycle), After(7 + 4 * cycle)));
    StartFromTheFirst();
    Pass(1620);
    EXPECT_FALSE(run.IsTicking());
    const QStringList files = Snapshots();
    ASSERT_EQ(files.size(), 400);
    for (const QString& file : files)
        EXPECT_EQ(QueryFile(PathOf(file), "SELECT count(*) FROM SampledValues"), "2") << file.toStdString();
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ScheduledRunTest, EntryThatIsStoppedByHand_GoesOnForEver)
{
    Open(60);
    Plan({StartMode::Timed, StopMode::Manual, After(5), ZeroDate(), 1});
    StartFromTheFirst();
    Pass(3600);
    EXPECT_TRUE(run.IsRunning());
    EXPECT_FALSE(display.isTimerShown);
    EXPECT_EQ(Count(), 60);
}

} // namespace
} // namespace korvanel::test
