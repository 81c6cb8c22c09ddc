// Operations that change more than can be noted to be taken back, and the memory that the notes of the others take.
#include "editor/EditHistoryFixture.h"

namespace korvanel::test {
namespace {

class EditOfTooManySets : public EditHistoryOfProject
{
protected:
    /// A recording with an operation that is kept, and one set more than can be noted.
    void RecordTooMany()
    {
        Record(0, 1);
        const qint64 sets = TooMany();
        RecordLong(0, sets);
        ASSERT_TRUE(EnterCurrent(3, 13));
        ASSERT_TRUE(shell.boxes.empty()) << "one set can be noted, however many there are";
        ASSERT_TRUE(history.CanUndo());
    }
};

TEST_F(EditOfTooManySets, NoLeavesRowsAndHistory)
{
    RecordTooMany();
    shell.onBox = [this] { EXPECT_EQ(Query("SELECT t FROM SampledValues WHERE \"Set\"=3"), "0") << "asked first"; };
    EXPECT_FALSE(RenumberTime());
    EXPECT_EQ(Questions().size(), 1);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Query("SELECT max(t) FROM SampledValues"), "0");
    ASSERT_TRUE(history.Undo());
    EXPECT_NE(Query("SELECT \"I sum\" FROM SampledValues WHERE \"Set\"=3"), "13.0");
}

TEST_F(EditOfTooManySets, YesDoesItAndEmptiesTheHistory)
{
    RecordTooMany();
    shell.answers = {Answer::Yes};
    EXPECT_TRUE(RenumberTime());
    EXPECT_EQ(Questions().size(), 1);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Query("SELECT max(t) FROM SampledValues").toLongLong(), 5LL * (App().iSetCount - 1));
    EXPECT_FALSE(history.CanUndo());
    EXPECT_FALSE(history.CanRedo());
}

TEST_F(EditOfTooManySets, IntervalThatWouldMakeTooManyIsAskedAbout)
{
    Record(0, 2);
    Execute(QStringLiteral("UPDATE SampledValues SET t=%1 WHERE \"Set\"=2").arg(TooMany()));
    EXPECT_FALSE(ResampleInterval(1));
    EXPECT_EQ(Questions().size(), 1);
    EXPECT_EQ(App().iSetCount, 2);
    EXPECT_EQ(App().dInterval, 5);
}

TEST_F(EditHistoryOfProject, TableWithoutKeyIsAskedAboutLikeTooManySets)
{
    for (const QString table : {"SampledValues", "ComputedValues"}) {
        Record(0, 6);
        ASSERT_TRUE(EnterCurrent(3, 13));
        RemoveKey(table);
        const EditedState before = PresentState();
        shell.boxes.clear();
        EXPECT_FALSE(Delete(2));
        EXPECT_EQ(Questions().size(), 1);
        EXPECT_EQ(PresentState(), before);
        shell.answers = {Answer::Yes};
        EXPECT_TRUE(Delete(2));
        EXPECT_EQ(Questions().size(), 2);
        EXPECT_EQ(App().iSetCount, 5);
        EXPECT_FALSE(history.CanUndo());
    }
}

TEST_F(EditHistoryOfProject, NothingToDoIsNotAskedAbout)
{
    Record(0, 6);
    ASSERT_TRUE(EnterCurrent(3, 13));
    RemoveKey("SampledValues"); // nothing can be noted
    EXPECT_TRUE(Duplicate(6, 2));
    EXPECT_TRUE(Delete(7));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(history.CanUndo());
}

class MemoryOfEdit : public EditHistoryOfProject, public ::testing::WithParamInterface<int>
{
protected:
    /// Memory that the notes of an operation take of what is granted for it, from 0 to 1.
    double ShareUsed(qint64 sets, const std::function<bool()>& operation)
    {
        const ProjectDbScope scope;
        const EditRecording recording;
        EXPECT_TRUE(operation());
        EXPECT_GT(recording.MemoryUsed(), 0);
        return static_cast<double>(recording.MemoryUsed()) / static_cast<double>(EditHistory::MemoryFor(sets));
    }
};

TEST_P(MemoryOfEdit, StaysBelowWhatIsGrantedForSoManySets)
{
    constexpr int kSets = 8'200; // the engine's table of the notes has just grown for them
    RecordLong(GetParam(), kSets);
    App().RowHistory = nullptr;
    EXPECT_LT(ShareUsed(kSets, [] { return RenumberTime(); }), 1);
    EXPECT_LT(ShareUsed(kSets + 1, [] { return Duplicate(1); }), 1);
    EXPECT_LT(ShareUsed(kSets + 1, [] { return Delete(2); }), 1);
    EXPECT_LT(ShareUsed(kSets, [] { return ChangeMethod(0); }), 1);
    EXPECT_LT(ShareUsed(kSets, [] { return ResampleInterval(6); }), 1);
}

INSTANTIATE_TEST_SUITE_P(InConfiguration, MemoryOfEdit, ::testing::Values(0, 2, 6),
                         ::testing::PrintToStringParamName());

// A stranger's file may hold more in a column than this program ever writes there.
TEST_F(EditHistoryOfProject, LongTextsOfAForeignFileDoNotExceedTheMemory)
{
    RecordLong(0, 700);
    Execute("UPDATE SampledValues SET Time=printf('%.*c', 100000, 'x')");
    App().RowHistory = nullptr;
    const ProjectDbScope scope;
    if (!EditHistory::CanNote(App().iSetCount))
        return;
    const EditRecording recording;
    ASSERT_TRUE(Delete(1));
    EXPECT_LT(recording.MemoryUsed(), EditHistory::kMostMemory);
}

} // namespace
} // namespace korvanel::test
