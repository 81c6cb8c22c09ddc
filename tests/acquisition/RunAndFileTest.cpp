// A run and its file: who else may use it and what is kept when it can't be written.
#include "acquisition/RunAndFileFixture.h"
#include "core/LocalFormats.h"
#include "project/ProjectCommands.h"
#include "project/ProjectStore.h"

#include <QDir>

#include <memory>

namespace korvanel::test {
namespace {

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

} // namespace
} // namespace korvanel::test
