// What makes the results of an evaluation out of date: every way by which the sets of a project change.
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
        EXPECT_TRUE(App().Evaluation.tExtremMax[kU].dValue == 3) << "until the next entry they stay in hand";
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

TEST_F(OutdatedResults, ByAnotherProject)
{
    CreateProject(0, QStringLiteral("other.MDB"));
    EXPECT_EQ(App().bEvaluated, 0);
}

} // namespace
} // namespace korvanel::test
