// What the editor's operations leave to be taken back and done again.
#include "editor/EditHistoryFixture.h"

namespace korvanel::test {
namespace {

TEST_F(EditHistoryOfProject, EveryStateComesBackToTheLastBitAndAgain)
{
    for (const int netConf : {0, 2, 6}) {
        for (unsigned seed = 1; seed <= 2; ++seed) {
            SCOPED_TRACE(::testing::Message() << "configuration " << netConf << ", seed " << seed);
            Record(netConf, 8 + static_cast<int>(seed), seed);
            std::mt19937 random(seed + 100U * static_cast<unsigned>(netConf));
            std::vector<EditedState> states{PresentState()};
            while (states.size() < 12) {
                ASSERT_TRUE(RunAny(random));
                const EditedState state = PresentState();
                if (state != states.back()) // else there is nothing to take back
                    states.push_back(state);
            }
            for (std::size_t i = states.size() - 1; i-- > 0;) {
                ASSERT_TRUE(history.Undo());
                ASSERT_EQ(PresentState(), states[i]) << "undone to step " << i;
            }
            EXPECT_FALSE(history.CanUndo());
            for (std::size_t i = 1; i < states.size(); ++i) {
                ASSERT_TRUE(history.Redo());
                ASSERT_EQ(PresentState(), states[i]) << "step " << i << " done again";
            }
            EXPECT_FALSE(history.CanRedo());
            EXPECT_EQ(shell.BoxTexts(), QStringList());
        }
    }
}

TEST_F(EditHistoryOfProject, CursorAndMarksComeBackToo)
{
    Record(0, 10);
    ASSERT_TRUE(Delete(4, 3));
    const MarkedPlace after;
    Mark(1, 1);
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(MarkedPlace(), (MarkedPlace{4, 3}));
    Mark(1, 1);
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(MarkedPlace(), after);
}

TEST_F(EditHistoryOfProject, WithoutAnythingToTakeBackNothingHappens)
{
    Record(0, 3);
    const EditedState before = PresentState();
    EXPECT_FALSE(history.Undo());
    EXPECT_FALSE(history.Redo());
    EXPECT_EQ(PresentState(), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(EditHistoryOfProject, FirstSetCanBeTakenBack)
{
    Record(0, 0);
    const EditedState before = PresentState();
    ASSERT_TRUE(MakeFirstSet());
    ASSERT_TRUE(history.Undo());
    EXPECT_EQ(PresentState(), before);
    EXPECT_EQ(App().iSetCount, 0);
}

TEST_F(EditHistoryOfProject, NewOperationDropsWhatCouldBeDoneAgain)
{
    Record(0, 6);
    ASSERT_TRUE(EnterCurrent(1, 11));
    ASSERT_TRUE(EnterCurrent(2, 12));
    ASSERT_TRUE(history.Undo());
    ASSERT_TRUE(EnterCurrent(3, 13));
    EXPECT_FALSE(history.CanRedo());
    const EditedState after = PresentState();
    ASSERT_TRUE(history.Undo());
    ASSERT_TRUE(history.Redo());
    EXPECT_EQ(PresentState(), after);
}

TEST_F(EditHistoryOfProject, OldestOfTooManyOperationsGoesFirst)
{
    static_assert(EditHistory::kMostKept >= 10);
    Record(0, 2);
    ASSERT_TRUE(EnterCurrent(1, 1));
    const EditedState afterFirst = PresentState();
    for (std::size_t i = 0; i < EditHistory::kMostKept; ++i)
        ASSERT_TRUE(EnterCurrent(1, 2 + static_cast<double>(i)));
    for (std::size_t i = 0; i < EditHistory::kMostKept; ++i)
        ASSERT_TRUE(history.Undo()) << i;
    EXPECT_FALSE(history.CanUndo());
    EXPECT_EQ(PresentState(), afterFirst);
}

TEST_F(EditHistoryOfProject, OperationThatChangesNothingAddsNothing)
{
    const struct
    {
        const char* name;
        std::function<bool()> operation; ///< changes nothing the second time
    } operations[] = {
        {"duplicate beyond the end", [] { return Duplicate(6, 2); }},
        {"delete beyond the end", [] { return Delete(7, 1); }},
        {"interpolate from the first set", [] { return Interpolate(1, 2); }},
        {"interpolate what is straight", [] { return Interpolate(2, 1); }},
        {"renumber", [] { return RenumberTime(); }},
        {"the same interval", [] { return ResampleInterval(5); }},
        {"the same method", [] { return ChangeMethod(0); }},
        {"the same energies", [] { return FormEnergies(); }},
        {"a row as it is", [] { return EnterNothing(3); }},
    };
    for (const auto& [name, operation] : operations) {
        SCOPED_TRACE(name);
        Record(0, 6);
        ASSERT_TRUE(operation());
        const EditedState before = PresentState();
        history.Clear();
        ASSERT_TRUE(operation());
        ASSERT_EQ(PresentState(), before);
        EXPECT_FALSE(history.CanUndo());
    }
}

TEST_F(EditHistoryOfProject, OperationThatChangesNothingLeavesWhatCanBeDoneAgain)
{
    Record(0, 6);
    ASSERT_TRUE(EnterCurrent(1, 11));
    ASSERT_TRUE(history.Undo());
    ASSERT_TRUE(Duplicate(6, 2));
    EXPECT_TRUE(history.CanRedo());
}

TEST_F(EditHistoryOfProject, FaultInArithmeticLeavesRowsAndHistory)
{
    Record(2, 6);
    Execute("UPDATE SampledValues SET \"I sum\"=1e308 WHERE \"Set\"=5");
    ASSERT_TRUE(EnterCurrent(2, 12));
    const EditedState before = PresentState();
    EXPECT_THROW(ChangeMethod(0), ArithmeticFault);
    EXPECT_EQ(PresentState(), before);
    ASSERT_TRUE(history.Undo());
    EXPECT_FALSE(history.CanUndo());
}

} // namespace
} // namespace korvanel::test
