// What makes the results of an evaluation out of date: every way by which the sets of a project or what they are
// evaluated with change.
#include "acquisition/MeasurementConfiguration.h"
#include "core/ProjectDb.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "evaluation/EvaluationFixture.h"

namespace korvanel::test {
namespace {

class OutdatedResults : public EvaluationTest
{
protected:
    OutdatedResults() { Evaluate(0, Rows({1, 2, 3}, PutU)); }

    /// Whether the results are out of date after a change of the open file.
    template <typename Change>
    static bool AreOutdatedBy(Change&& change)
    {
        const ProjectDbScope scope;
        App().bEvaluated = 1;
        change();
        EXPECT_TRUE(App().MachineI.evaluation.tExtremMax[kU].dValue == 3) << "until the next entry they stay in hand";
        return App().bEvaluated == 0;
    }
};

TEST_F(OutdatedResults, ByASetThatIsMeasured)
{
    EXPECT_TRUE(AreOutdatedBy([] {
        App().MeasuredRow.sValidMask = QStringLiteral("NNNN");
        App().MeasuredRow.lSet = 4;
        EXPECT_TRUE(AppendMeasuredRow());
    }));
}

TEST_F(OutdatedResults, ByASetThatIsAddedByHand)
{
    EXPECT_TRUE(AreOutdatedBy([] { EXPECT_TRUE(AppendRow(4)); }));
}

TEST_F(OutdatedResults, ByASetThatIsChanged)
{
    EXPECT_TRUE(AreOutdatedBy([] { EXPECT_TRUE(UpdateRow(2)); }));
}

TEST_F(OutdatedResults, ByDeletingTheSets)
{
    EXPECT_TRUE(AreOutdatedBy(ClearValues));
}

TEST_F(OutdatedResults, NotByReading)
{
    EXPECT_FALSE(AreOutdatedBy([] { EXPECT_TRUE(ReadRow(2)); }));
}

TEST_F(OutdatedResults, ByAnotherIntervalThatIsTyped)
{
    App().iMinInterval = 1;
    EXPECT_FALSE(AreOutdatedBy([] { EXPECT_TRUE(EnterInterval(QStringLiteral("1")).isAccepted); }));
    EXPECT_TRUE(AreOutdatedBy([] { EXPECT_TRUE(EnterInterval(QStringLiteral("5")).isAccepted); }));
    EXPECT_FALSE(AreOutdatedBy([] { EXPECT_FALSE(EnterInterval(QStringLiteral("1e9")).isAccepted); }));
}

TEST_F(OutdatedResults, ByAnInstrumentThatNeedsALongerInterval)
{
    ChooseInstrument(QStringLiteral("YOKOGAWA 2535 1Ø2W"));
    App().dInterval = 1;
    EXPECT_TRUE(AreOutdatedBy([] { ChooseInstrument(QStringLiteral("NANOVIP-PLUS 1Ø2W")); }));
    EXPECT_EQ(App().dInterval, 2);
}

TEST_F(OutdatedResults, ByAStoredIntervalThatIsCorrected)
{
    App().dInterval = 0;
    EXPECT_TRUE(AreOutdatedBy(CorrectStoredSettings));
    EXPECT_GT(App().dInterval, 0);
}

TEST_F(OutdatedResults, ByAnotherProject)
{
    CreateProject(0, QStringLiteral("other.MDB"));
    EXPECT_EQ(App().bEvaluated, 0);
}

} // namespace
} // namespace korvanel::test
