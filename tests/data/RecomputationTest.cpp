#include "data/Recomputation.h"

#include "data/FileManaging.h"
#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

class Recomputation : public ProjectTest
{
protected:
    /// Sets of 10 s with the given powers; the reactive power is a tenth of each.
    void AppendSets(std::initializer_list<double> powers)
    {
        OpenDbGuarded();
        App().MeasuredRow.lSet = 0;
        for (const double power : powers) {
            ++App().MeasuredRow.lSet;
            App().MeasuredRow.dt = 10 * (App().MeasuredRow.lSet - 1);
            App().MeasuredRow.dP[kSum] = power;
            App().MeasuredRow.dQ[kSum] = power / 10;
            ASSERT_TRUE(AppendMeasuredRow());
        }
        CloseDbGuarded();
    }
    QString Energies() const
    {
        return Query("SELECT group_concat(Wp || ' ' || [Wp+] || ' ' || [Wp-] || ' ' || Wq, '; ') FROM ComputedValues");
    }
};

TEST_F(Recomputation, RecomputeEnergies_IntegratesOverTheTimesOfTheSets)
{
    CreateProject(0);
    AppendSets({700, 100, -50});
    Execute("UPDATE ComputedValues SET Wp=-1, [Wp+]=-1, [Wp-]=-1, Wq=-1");
    EXPECT_TRUE(RecomputeEnergies());
    EXPECT_EQ(Energies(), "0.0 0.0 0.0 0.0; 1000.0 1000.0 0.0 100.0; 500.0 1000.0 -500.0 50.0");
    EXPECT_TRUE(shell.calls.contains("ShowProgress 0"));
    EXPECT_TRUE(shell.calls.contains("ShowProgress 2"));
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(Recomputation, RecomputeEnergies_WithoutSetsDoesNothing)
{
    CreateProject(0);
    shell.calls.clear();
    EXPECT_TRUE(RecomputeEnergies());
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(Recomputation, RecomputeEnergies_ThatFailsHalfwayTellsOnceAndChangesNothing)
{
    CreateProject(0);
    AppendSets({700, 100, 50});
    Execute("UPDATE ComputedValues SET Wp=-1");
    Execute("UPDATE SampledValues SET t=9e18 WHERE [Set]=3"); // no time that could be written back
    const QString before = Energies();
    EXPECT_FALSE(RecomputeEnergies());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Energies(), before);
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2") << "the menus are free again";
}

TEST_F(Recomputation, RecomputeEnergies_LeavesTheBuffersOfTheBlock)
{
    CreateProject(0);
    AppendSets({700, 100});
    App().CurrentRow.dU[kSum] = 7;
    App().lLastReadSet = 9;
    EXPECT_TRUE(RecomputeEnergies());
    EXPECT_EQ(App().CurrentRow.dU[kSum], 7);
    EXPECT_EQ(App().lLastReadSet, 9);
}

/// A page that fails while the end is shown must not end the program, and the failure of the work is what is told.
TEST_F(Recomputation, PageThatFailsAtTheEnd_DoesNotHideWhyTheWorkFailed)
{
    CreateProject(0);
    AppendSets({700, 100});
    Execute("ALTER TABLE ComputedValues RENAME COLUMN [Wp-] TO Gone");
    shell.failsAtEndOfProgress = true;
    EXPECT_FALSE(RecomputeEnergies());
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains("Wp-")) << shell.boxes[0].text.toStdString();
    EXPECT_FALSE(IsProjectDbOpen());
    EXPECT_EQ(App().iFileErrors, 1);
}

} // namespace
} // namespace korvanel::test
