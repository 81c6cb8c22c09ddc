// A run and its file: who else may use it, what is kept when it can't be written, and what its heading tells.
#include "acquisition/RunFixture.h"
#include "core/LocalFormats.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"

#include <QDir>

#include <memory>

namespace korvanel::test {
namespace {

class RunAndFile : public RunTest
{
protected:
    /// Another program on the same file.
    SQLite::Database Other(int patienceMs = 0) const
    {
        return {App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE, patienceMs};
    }
    /// Reads the file and keeps it in use until it goes.
    class Reader
    {
    public:
        explicit Reader(const QString& path)
            : database(path.toStdString(), SQLite::OPEN_READONLY), query(database, "SELECT * FROM SampledValues")
        {
            database.exec("BEGIN");
            query.executeStep();
        }

    private:
        SQLite::Database database;
        SQLite::Statement query;
    };
    QString Heading(const char* key) const
    {
        const QString column =
            QLatin1String(key).contains(QLatin1String("Begin")) || QLatin1String(key).contains(QLatin1String("End"))
                ? "Time"
                : "Text";
        return Query("SELECT [" + column + "] FROM Overview WHERE Name='Measurement " + key + "'");
    }
    QString Interval() const { return Query("SELECT Decimal FROM Overview WHERE Name='Measurement Interval'"); }
};

// Nobody else writes.

TEST_F(RunAndFile, AnotherProgramCanNeitherDeleteNorAddRowsDuringARun)
{
    Open();
    Start();
    Pass(3.2);
    SQLite::Database other = Other();
    for (const char* change : {"DELETE FROM SampledValues", "UPDATE SampledValues SET t=0",
                               "INSERT INTO ComputedValues([Set]) VALUES(99)", "DROP TABLE ComputedValues"}) {
        EXPECT_THROW(other.exec(change), SQLite::Exception) << change;
        Pass(1);
    }
    EXPECT_EQ(Sets(), "1,2,3,4,5,6,7,8");
    run.End();
    EXPECT_NO_THROW(other.exec("UPDATE SampledValues SET t=t")) << "after the run the file is free";
}

TEST_F(RunAndFile, AnotherProgramThatTriesAgainAndAgainNeverGetsInBetweenTwoRows)
{
    Open();
    Start();
    for (int i = 0; i < 200; ++i) {
        Pass(1);
        SQLite::Database other = Other();
        EXPECT_THROW(other.exec("DELETE FROM SampledValues"), SQLite::Exception);
    }
    EXPECT_GE(Count(), 199);
    EXPECT_EQ(Query("SELECT max([Set]) FROM SampledValues").toInt(), Count());
}

TEST_F(RunAndFile, AnotherProgramReadsTheStoredRowsDuringARun)
{
    Open();
    Start();
    Pass(3.2);
    SQLite::Database other = Other();
    EXPECT_EQ(other.execAndGet("SELECT count(*) FROM SampledValues").getInt(), 4);
}

TEST_F(RunAndFile, ARunOnAFileThatAnotherOneRecordsIsRefused)
{
    Open();
    SQLite::Database other = Other();
    other.exec("BEGIN IMMEDIATE");
    Start();
    Pass(0.5);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(shell.BoxTexts(),
              QStringList("Die Datei wird gerade von einem anderen Programm benutzt:\n" + App().sProjectPath));
    EXPECT_FALSE(display.isLocked);
    EXPECT_FALSE(port.isOpen);
}

// A file in use costs no row.

TEST_F(RunAndFile, AReaderThatHoldsTheFileForAWhileCostsNoRow)
{
    Open();
    Start();
    Pass(2.2);
    {
        const Reader reader(App().sProjectPath);
        Pass(5);
        EXPECT_TRUE(run.IsRunning());
        EXPECT_EQ(Count(), 3) << "nothing can be stored at the moment";
        EXPECT_EQ(display.shownKept, 5);
        EXPECT_EQ(App().iSetCount, 3);
    }
    Pass(0.1);
    EXPECT_EQ(Sets(), "1,2,3,4,5,6,7,8") << "in order, before the next poll";
    EXPECT_EQ(display.shownKept, 0);
    EXPECT_GT(display.shownStored, 0);
    Pass(1);
    EXPECT_EQ(Times(), "0,1,2,3,4,5,6,7,8");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(RunAndFile, AReaderAtTheFirstRowCostsNeitherRowNorHeading)
{
    Open();
    {
        const Reader reader(App().sProjectPath);
        Start();
        Pass(2.2);
        EXPECT_EQ(Count(), 0);
    }
    Pass(1);
    EXPECT_EQ(Sets(), "1,2,3,4");
    EXPECT_EQ(Heading("Begin"), StoredDateText(App().dtMeasurementBegin));
}

TEST_F(RunAndFile, StopWhileRowsWaitStoresThemWhenTheReaderIsGone)
{
    Open();
    Start();
    Pass(2.2);
    auto reader = std::make_unique<Reader>(App().sProjectPath);
    Pass(2);
    EXPECT_EQ(display.shownKept, 2);
    reader.reset();
    run.StartOrStop();
    EXPECT_EQ(Sets(), "1,2,3,4,5");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(RunAndFile, AReaderBeyondTheLimitEndsTheRunAndTellsWhatIsLost)
{
    Open();
    Start();
    Pass(2.2);
    const Reader reader(App().sProjectPath);
    Pass(kLongestFileWait + 3);
    EXPECT_FALSE(run.IsTicking());
    const QStringList told = shell.BoxTexts();
    ASSERT_EQ(told.size(), 2);
    EXPECT_EQ(told[0], "Nicht gespeicherte Datensätze, da die Projektdatei benutzt wird: 61");
    EXPECT_EQ(told[1], "Die Projektdatei wurde 60 s lang von einem anderen Programm benutzt.\nDie Messung endete: " +
                           DateTimeText(App().dtMeasurementEnd) + ". Gespeicherte Datensätze: 3");
    EXPECT_EQ(Sets(), "1,2,3");
}

// The heading.

TEST_F(RunAndFile, HeadingIsStoredWithTheFirstRowAndCompletedAtTheEnd)
{
    Open(2);
    Start();
    Pass(0.2);
    EXPECT_EQ(Count(), 1);
    EXPECT_EQ(Heading("Begin"), StoredDateText(App().dtMeasurementBegin));
    EXPECT_EQ(Heading("End"), StoredDateText(ZeroDate()));
    EXPECT_EQ(Heading("Term"), "");
    EXPECT_EQ(Heading("Device"), "ISKRA MI71XX 1Ø2W (1b)");
    EXPECT_EQ(Heading("Device ID"), "MI7140 4711");
    EXPECT_EQ(Interval(), "2.0");
    Pass(4);
    run.End();
    EXPECT_EQ(Heading("End"), StoredDateText(App().dtMeasurementEnd));
    EXPECT_EQ(Heading("Term"), "00:00:04");
}

TEST_F(RunAndFile, HeadingOfTheFirstRecordingGoesWithItsRows)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    ASSERT_NE(Heading("Begin"), StoredDateText(ZeroDate()));
    shell.answers = {Answer::Yes};
    ASSERT_TRUE(run.Drop());
    for (const char* key : {"Begin", "End"})
        EXPECT_EQ(Heading(key), StoredDateText(ZeroDate())) << key;
    EXPECT_EQ(Heading("Term"), "");
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
}

TEST_F(RunAndFile, RowsThatCanNotBeDeletedKeepTheirHeading)
{
    Open();
    Start();
    Pass(2.2);
    run.End();
    const QDateTime begin = App().dtMeasurementBegin;
    SQLite::Database other = Other();
    other.exec("BEGIN IMMEDIATE");
    shell.answers = {Answer::Yes};
    EXPECT_FALSE(run.Drop());
    other.exec("ROLLBACK");
    EXPECT_EQ(App().dtMeasurementBegin, begin);
    EXPECT_EQ(Heading("Begin"), StoredDateText(begin));
    EXPECT_EQ(Count(), 3);
    EXPECT_TRUE(shell.boxes.back().text.contains("Die Datei wird gerade von einem anderen Programm benutzt"));
}

TEST_F(RunAndFile, ARunWithoutAnyRowLeavesNoHeading)
{
    Open();
    App().dTrigger = {1000, 0};
    Start();
    Pass(5);
    run.End();
    EXPECT_EQ(Count(), 0);
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
    EXPECT_EQ(App().sMeasurementTerm, "");
}

TEST_F(RunAndFile, EndIsTheMomentOfTheLossAndNotThatOfTheClick)
{
    Open();
    Start();
    Pass(2.2);
    port.answer = [](const QByteArray&) -> QByteArray { throw PortError("weg"); };
    QDateTime endInBox;
    shell.onBox = [&] {
        endInBox = App().dtMeasurementEnd;
        moving.seconds += 8 * 3600; // the box stands overnight
    };
    const QDateTime expected = After(0.8);
    Pass(1);
    EXPECT_EQ(endInBox, App().dtMeasurementEnd);
    EXPECT_LE(std::abs(expected.secsTo(App().dtMeasurementEnd)), 1);
    EXPECT_TRUE(QStringList({"00:00:03", "00:00:04"}).contains(App().sMeasurementTerm));
    EXPECT_EQ(Heading("End"), StoredDateText(App().dtMeasurementEnd));
}

TEST_F(RunAndFile, DurationIsCountedByTheSteadyClock)
{
    struct Case
    {
        const char* what;
        double shift;
    };
    for (const Case& c : {Case{"autumn night", -3600}, Case{"clock set forward", 9600.0 * 3600}}) {
        Open();
        Start();
        Pass(10.2);
        moving.wallOffset += c.shift;
        Pass(8);
        run.End();
        EXPECT_EQ(App().sMeasurementTerm, "00:00:18") << c.what;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(RunAndFile, OpeningCompletesWhatAPowerCutHasLeft)
{
    Open();
    Start();
    Pass(9.2);
    run.End();
    const QString begin = Heading("Begin");
    Execute("UPDATE Overview SET Time='1899-12-30 00:00:00' WHERE Name='Measurement End'");
    Execute("UPDATE Overview SET Text='' WHERE Name='Measurement Term'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), begin);
    EXPECT_EQ(StoredDateText(App().dtMeasurementEnd), Query("SELECT Time FROM SampledValues WHERE [Set]=10"));
    EXPECT_EQ(App().sMeasurementTerm, "00:00:09");
}

TEST_F(RunAndFile, OpeningReplacesAHeadingOfOtherRows)
{
    Open();
    Start();
    Pass(4.2);
    run.End();
    Execute("UPDATE Overview SET Time='2020-01-01 10:00:00' WHERE Name='Measurement Begin'");
    Execute("UPDATE Overview SET Time='2020-01-01 12:00:00' WHERE Name='Measurement End'");
    Execute("UPDATE Overview SET Text='02:00:00' WHERE Name='Measurement Term'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), Query("SELECT Time FROM SampledValues WHERE [Set]=1"));
    EXPECT_EQ(StoredDateText(App().dtMeasurementEnd), Query("SELECT Time FROM SampledValues WHERE [Set]=5"));
    EXPECT_EQ(App().sMeasurementTerm, "00:00:04");
}

TEST_F(RunAndFile, OpeningLeavesAWholeHeadingAndSetsWithoutTimeStampsAlone)
{
    Open();
    Start();
    Pass(4.2);
    run.End();
    Execute("UPDATE Overview SET Text='00:00:17' WHERE Name='Measurement Term'"); // silent until the end
    OpenProject(App().sProjectPath);
    EXPECT_EQ(App().sMeasurementTerm, "00:00:17");
    Execute("UPDATE SampledValues SET Time=NULL");
    Execute("UPDATE Overview SET Time='2020-01-01 10:00:00' WHERE Name='Measurement Begin'");
    OpenProject(App().sProjectPath);
    EXPECT_EQ(StoredDateText(App().dtMeasurementBegin), "2020-01-01 10:00:00");
}

TEST_F(RunAndFile, RejectedSamplesAreCountedForThePage)
{
    Open();
    Start();
    Pass(2.2);
    isSilent = true;
    Pass(4);
    isSilent = false;
    Pass(1);
    EXPECT_EQ(display.shownRejected, 4);
    run.End();
    shell.answers = {Answer::Yes};
    Start();
    Pass(0.2);
    EXPECT_EQ(display.shownRejected, 0);
}

TEST_F(RunAndFile, StopWaitsForAReaderAndStoresWhatIsKept)
{
    Open();
    Start();
    Pass(2.2);
    auto reader = std::make_unique<Reader>(App().sProjectPath);
    Pass(2);
    const double freed = moving.seconds + 5;
    moving.onWait = [&] {
        if (moving.seconds >= freed)
            reader.reset();
    };
    run.StartOrStop();
    EXPECT_FALSE(reader);
    EXPECT_EQ(Sets(), "1,2,3,4,5");
    EXPECT_EQ(App().sMeasurementTerm, "00:00:04") << "the waiting is none of the recording";
    EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'|').toStdString();
}

TEST_F(RunAndFile, PlannedRecordingsGoOnOverAReaderBetweenThem)
{
    Open();
    schedule.Add({StartMode::Timed, StopMode::Timed, After(1), After(4), 3}, 0);
    schedule.Add({StartMode::Timed, StopMode::Timed, After(10), After(13), 3});
    schedule.SetCurrentSet(0);
    Start();
    Pass(4);
    auto reader = std::make_unique<Reader>(App().sProjectPath);
    const double freed = moving.seconds + 3;
    moving.onWait = [&] {
        if (reader && moving.seconds >= freed)
            reader.reset();
    };
    Pass(14);
    EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'|').toStdString();
    const QStringList copies = QDir(folder.path()).entryList({"test *.MDB"}, QDir::Files);
    ASSERT_EQ(copies.size(), 2);
    for (const QString& copy : copies)
        EXPECT_GE(QueryFile(PathOf(copy), "SELECT count(*) FROM SampledValues").toInt(), 3) << copy.toStdString();
}

TEST_F(RunAndFile, PlannedRecordingWithoutAValidSampleLeavesNoHeading)
{
    Open();
    App().dTrigger = {1000, 0};
    schedule.Add({StartMode::Manual, StopMode::Duration, {}, {}, 5}, 0);
    Start();
    Pass(10);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(App().dtMeasurementBegin, ZeroDate());
    EXPECT_EQ(App().sMeasurementTerm, "");
}

TEST_F(RunAndFile, NothingIsStoredBehindASetThatIsMissing)
{
    Open();
    Execute("INSERT INTO ComputedValues([Set]) VALUES(5)"); // the number is taken
    Start();
    Pass(2.2);
    {
        const Reader reader(App().sProjectPath);
        Pass(4); // 4 to 7 are kept
    }
    Pass(1);
    EXPECT_FALSE(run.IsTicking());
    EXPECT_EQ(Sets(), "1,2,3,4");
    ASSERT_EQ(shell.boxes.size(), 2U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht schreiben!"));
    EXPECT_EQ(shell.boxes[1].text, "Nicht gespeicherte Datensätze, da die Projektdatei benutzt wird: 2");
}

TEST_F(RunAndFile, ErrorOfALostLineIsNotLeftForTheNextUseOfTheInstrument)
{
    Open();
    Start();
    Pass(2.2);
    port.answer = [this](const QByteArray&) -> QByteArray {
        port.isOpen = false;
        throw PortError("weg");
    };
    Pass(1);
    EXPECT_EQ(App().sDevError, "");
}

// Other programs and other operations.

TEST_F(RunAndFile, FileThatIsBeingRecordedIsNeitherReplacedNorDeleted)
{
    Open();
    const QString recorded = App().sProjectPath;
    SQLite::Database recorder(recorded.toStdString(), SQLite::OPEN_READWRITE);
    recorder.exec("BEGIN IMMEDIATE");
    CreateProject(0, "eigenes.MDB");
    const QStringList told{"Die Datei wird gerade von einem anderen Programm benutzt:\n" + recorded};

    shell.answers = {Answer::Yes, Answer::Yes, Answer::Yes};
    shell.savePaths = {recorded};
    SaveProjectAs();
    EXPECT_EQ(App().sProjectPath, PathOf("eigenes.MDB"));
    EXPECT_TRUE(shell.boxes.back().text.contains("Die Datei wird gerade von einem anderen Programm benutzt"));

    shell.openPaths = {recorded};
    DeleteProjectFile();
    EXPECT_EQ(shell.boxes.back().text, told[0]);
    EXPECT_TRUE(QFile::exists(recorded));

    shell.savePaths = {recorded};
    shell.answers = {Answer::Yes};
    App().bProjectDirty = false;
    NewProject();
    EXPECT_FALSE(App().bProjectOpen);
    recorder.exec("ROLLBACK");
    EXPECT_EQ(QueryFile(recorded, "SELECT Text FROM Overview WHERE Name='Measurement Device'"), "");
}

TEST_F(RunAndFile, CopyOfAFileThatIsBeingWrittenIsWhole)
{
    Open();
    Start();
    Pass(3.2);
    run.End();
    SQLite::Database other = Other();
    other.exec("BEGIN IMMEDIATE; DELETE FROM SampledValues");
    EXPECT_TRUE(CopyProject(PathOf("kopie.MDB")));
    EXPECT_EQ(QueryFile(PathOf("kopie.MDB"), "SELECT count(*) FROM SampledValues"), "4");
    EXPECT_EQ(QueryFile(PathOf("kopie.MDB"), "PRAGMA integrity_check"), "ok");
}

TEST_F(RunAndFile, SaveLeavesTheHeadingThatAnotherProgramHasWritten)
{
    Open();
    ASSERT_TRUE(SaveProject());
    Execute("UPDATE Overview SET Decimal=5 WHERE Name='Measurement Interval'");
    Execute("UPDATE Overview SET Text='00:33:00' WHERE Name='Measurement Term'");
    App().sCompany = "Werk";
    App().bProjectDirty = true;
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Interval(), "5.0");
    EXPECT_EQ(App().dInterval, 5);
    EXPECT_EQ(Heading("Term"), "00:33:00");
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    App().dInterval = 7; // what the user has changed here counts
    ASSERT_TRUE(SaveProject());
    EXPECT_EQ(Interval(), "7.0");
}

} // namespace
} // namespace korvanel::test
