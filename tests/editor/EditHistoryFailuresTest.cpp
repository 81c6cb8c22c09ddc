// What becomes of operations and their history where another program or the disk is in the way.
#include "editor/EditHistoryFixture.h"
#include "support/FullDisk.h"

#include <QFileInfo>

namespace korvanel::test {
namespace {

TEST_F(EditHistoryOfProject, RowsChangedElsewhereAreToldAndEmptyTheHistory)
{
    for (const char* change :
         {"UPDATE SampledValues SET \"I sum\"=77 WHERE \"Set\"=2",
          "UPDATE ComputedValues SET \"S sum\"=1 WHERE \"Set\"=2", "DELETE FROM SampledValues WHERE \"Set\"=2"}) {
        SCOPED_TRACE(change);
        Record(0, 6);
        shell.boxes.clear();
        ASSERT_TRUE(EnterCurrent(1, 11));
        ASSERT_TRUE(EnterCurrent(2, 12));
        Execute(QLatin1String(change));
        const std::vector<std::string> before = PresentState().content;
        EXPECT_FALSE(history.Undo());
        EXPECT_EQ(shell.boxes.size(), 1U);
        EXPECT_FALSE(history.CanUndo());
        EXPECT_FALSE(history.CanRedo());
        EXPECT_EQ(PresentState().content, before);
    }
}

TEST_F(EditHistoryOfProject, RowsChangedElsewhereAreNotDoneAgainEither)
{
    Record(0, 6);
    ASSERT_TRUE(Delete(2, 2));
    ASSERT_TRUE(history.Undo());
    Execute("UPDATE SampledValues SET \"P sum\"=77 WHERE \"Set\"=6");
    const EditedState before = PresentState();
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(PresentState(), before);
}

// A deletion shifts what stands below; what it finds alike in the sets before and after, it doesn't look at.
TEST_F(EditHistoryOfProject, ChangeElsewhereIsNotLeftToAnotherSet)
{
    Record(0, 6);
    Execute("UPDATE SampledValues SET \"f sum\"=50");
    ASSERT_TRUE(Delete(1));
    Execute("UPDATE SampledValues SET \"f sum\"=60 WHERE \"Set\"=4");
    const EditedState before = PresentState();
    EXPECT_FALSE(history.Undo());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(PresentState(), before);
}

// Taken back, the duplicate would leave a gap in the numbers below the set that came later.
TEST_F(EditHistoryOfProject, SetsAppendedElsewhereLeaveNoGapInTheNumbers)
{
    Record(0, 6);
    ASSERT_TRUE(Duplicate(2));
    Execute("INSERT INTO SampledValues (\"Set\", t) VALUES (8, 99)");
    Execute("INSERT INTO ComputedValues (\"Set\") VALUES (8)");
    history.Undo();
    EXPECT_EQ(Query("SELECT max(\"Set\") FROM SampledValues"), Query("SELECT count(*) FROM SampledValues"));
}

TEST_F(EditHistoryOfProject, FileThatAnotherProgramWritesIsToldAndTheHistoryStays)
{
    Record(0, 6);
    const EditedState before = PresentState();
    ASSERT_TRUE(Delete(2, 2));
    const EditedState after = PresentState();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE; UPDATE SampledValues SET t=t");
        EXPECT_FALSE(history.Undo());
        EXPECT_EQ(shell.boxes.size(), 1U);
        EXPECT_TRUE(history.CanUndo());
    }
    EXPECT_EQ(PresentState(), after);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(PresentState(), before);
}

// The writing succeeds up to its end, which a reader refuses.
TEST_F(EditHistoryOfProject, FileThatAnotherProgramReadsIsToldAndTheHeaderStaysWithTheRows)
{
    Record(2, 6);
    const EditedState before = PresentState();
    ASSERT_TRUE(ResampleInterval(3));
    ASSERT_TRUE(ChangeMethod(0));
    const EditedState after = PresentState();
    for (int step = 0; step < 2; ++step) {
        const EditedState present = PresentState();
        {
            SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READONLY);
            SQLite::Statement reading(other, "SELECT * FROM SampledValues");
            ASSERT_TRUE(reading.executeStep());
            shell.boxes.clear();
            EXPECT_FALSE(history.Undo());
            EXPECT_EQ(shell.boxes.size(), 1U);
        }
        EXPECT_EQ(PresentState(), present);
        ASSERT_TRUE(history.Undo());
    }
    EXPECT_EQ(PresentState(), before);
    EXPECT_NE(before, after);
}

TEST_F(EditHistoryOfProject, OperationThatAReaderRefusesLeavesEverything)
{
    Record(2, 6);
    ASSERT_TRUE(EnterCurrent(2, 12));
    const EditedState before = PresentState();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READONLY);
    SQLite::Statement reading(other, "SELECT * FROM SampledValues");
    ASSERT_TRUE(reading.executeStep());
    for (const auto& operation : std::initializer_list<std::function<bool()>>{[] { return ResampleInterval(3); },
                                                                              [] { return ChangeMethod(0); }}) {
        shell.boxes.clear();
        Mark(2, 3);
        EXPECT_FALSE(operation());
        EXPECT_EQ(shell.boxes.size(), 1U);
        EXPECT_EQ(PresentState(), before);
        EXPECT_EQ(MarkedPlace(), (MarkedPlace{2, 3}));
    }
    reading.reset();
    EXPECT_TRUE(history.Undo());
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(EditHistoryOfProject, FullDiskDuringAnOperationLeavesRowsAndHistory)
{
    Record(0, 300);
    const EditedState before = PresentState();
    ASSERT_TRUE(EnterCurrent(2, 12));
    const EditedState after = PresentState();
    {
        const FullDisk disk(static_cast<rlim_t>(QFileInfo(App().sProjectPath).size()));
        Mark(1, 300);
        EXPECT_FALSE(InsertSets(1));
    }
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(PresentState(), after);
    EXPECT_EQ(MarkedPlace(), (MarkedPlace{1, 300}));
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(PresentState(), before);
    EXPECT_FALSE(history.CanUndo());
}

TEST_F(EditHistoryOfProject, FullDiskDuringUndoLeavesRowsAndHistory)
{
    Record(0, 300);
    const EditedState before = PresentState();
    ASSERT_TRUE(ResampleInterval(7));
    const EditedState after = PresentState();
    {
        const FullDisk disk(2048);
        EXPECT_FALSE(history.Undo());
    }
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(PresentState(), after);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(PresentState(), before);
}

/// The notes of an operation have no place, though the rows have one.
TEST_F(EditHistoryOfProject, NotesThatCanNotBeKeptTakeTheOperationBack)
{
    Record(0, 300);
    const EditedState before = PresentState();
    qputenv("TMPDIR", "/proc"); // where nobody creates a file
    EXPECT_FALSE(Delete(1, 10));
    qunsetenv("TMPDIR");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(PresentState(), before);
    EXPECT_FALSE(history.CanUndo());
}

} // namespace
} // namespace korvanel::test
