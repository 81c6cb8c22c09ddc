#include "data/FileManaging.h"

#include "core/LocalFormats.h"

#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

namespace korvanel::test {
namespace {

class VisitSetsTest : public ProjectTest
{
protected:
    void Store(int netConf)
    {
        CreateProject(netConf);
        std::vector<tValueRow> rows(5);
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i].dU[kSum] = 10 * static_cast<double>(i + 1);
        StoreRows(rows);
    }
    /// Numbers and voltages of the sets of a range, up to a set at which the visit ends.
    QString Visit(qint32 first, qint32 last, qint32 end = 0)
    {
        QStringList seen;
        OpenDbGuarded();
        isRead = VisitSets(first, last, [&](const ShownSet& shown) {
            seen << QStringLiteral("%1:%2").arg(shown.set).arg(shown.row.dU[kSum]);
            time = shown.timeText;
            return shown.set != end;
        });
        CloseDbGuarded();
        return seen.join(u' ');
    }
    bool isRead = false;
    QString time;
};

TEST_F(VisitSetsTest, Range_IsHandedOverInOrderWithItsEnds)
{
    Store(0);
    EXPECT_EQ(Visit(2, 4), "2:20 3:30 4:40");
    EXPECT_TRUE(isRead);
    EXPECT_EQ(time, DateTimeTextOfStored("2026-03-14 15:09:26"));
    EXPECT_EQ(Visit(4, 99), "4:40 5:50");
    EXPECT_EQ(Visit(6, 7), "");
    EXPECT_TRUE(isRead);
}

TEST_F(VisitSetsTest, Visit_EndsWhenTheVisitorHasSeenEnough)
{
    Store(0);
    EXPECT_EQ(Visit(1, 5, 2), "1:10 2:20");
    EXPECT_TRUE(isRead);
}

TEST_F(VisitSetsTest, NullTime_IsAnEmptyText)
{
    Store(0);
    Execute("UPDATE SampledValues SET [Time]=NULL WHERE [Set]=3");
    time = QStringLiteral("before");
    Visit(3, 3);
    EXPECT_EQ(time, "");
}

TEST_F(VisitSetsTest, BuffersOfTheBlock_StayAsTheyAre)
{
    Store(0);
    App().CurrentRow.dU[kSum] = 7;
    App().lLastReadSet = 9;
    App().sTimeText = QStringLiteral("before");
    Visit(1, 5);
    EXPECT_EQ(App().CurrentRow.dU[kSum], 7);
    EXPECT_EQ(App().lLastReadSet, 9);
    EXPECT_EQ(App().sTimeText, "before");
}

TEST_F(VisitSetsTest, Failure_IsToldOnceAndCounted)
{
    Store(0);
    Execute("DROP TABLE ComputedValues");
    EXPECT_EQ(Visit(1, 5), "");
    EXPECT_FALSE(isRead);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(App().iFileErrors, 1);
}

class VisitSimulatedSetsTest : public VisitSetsTest
{
protected:
    /// Five sets a second apart, the third corrected, and what a second machine draws in each.
    void StoreBoth()
    {
        CreateProject(2);
        std::vector<tValueRow> rows(5);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i].dP[kSum] = 1;
            rows[i].dI[kSum] = 1;
            rows[i].dt = static_cast<double>(i);
            rows[i].bEdit = i == 2 ? kCorrected : 0;
        }
        StoreRows(rows);
        for (std::size_t i = 0; i < rows.size(); ++i)
            rows[i].dP[kSum] = 100 * static_cast<double>(i + 1);
        StoreSimulated(rows);
    }
    QStringList Simulated(qint32 first, qint32 last)
    {
        QStringList seen;
        OpenDbGuarded();
        isRead = VisitSimulatedSets(first, last, [&](const ShownSet& simulated) {
            seen << QStringLiteral("%1: %2 W, %3 s, %4 A, mark %5")
                        .arg(simulated.set)
                        .arg(simulated.row.dP[kSum])
                        .arg(simulated.row.dt)
                        .arg(simulated.row.dI[kSum])
                        .arg(simulated.row.bEdit);
            time = simulated.timeText;
            return simulated.set != 4;
        });
        CloseDbGuarded();
        return seen;
    }
};

TEST_F(VisitSimulatedSetsTest, Range_HasTheValuesOfTheMachineWithTimeAndMarkOfTheSets)
{
    StoreBoth();
    EXPECT_EQ(Simulated(2, 3), (QStringList{"2: 200 W, 1 s, 0 A, mark 0", "3: 300 W, 2 s, 0 A, mark 255"}));
    EXPECT_EQ(time, DateTimeTextOfStored("2026-03-14 15:09:26"));
    EXPECT_EQ(Simulated(4, 5), QStringList{"4: 400 W, 3 s, 0 A, mark 0"}) << "as soon as the visitor has seen enough";
    EXPECT_TRUE(isRead);
}

TEST_F(VisitSimulatedSetsTest, WithoutSimulation_ThereIsNoneAndNothingIsTold)
{
    Store(2);
    EXPECT_EQ(Simulated(1, 5), QStringList());
    EXPECT_TRUE(isRead);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(VisitSimulatedSetsTest, Failure_IsToldOnceAndCounted)
{
    StoreBoth();
    Execute("DROP TABLE SampledValues");
    EXPECT_EQ(Simulated(1, 5), QStringList());
    EXPECT_FALSE(isRead);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(App().iFileErrors, 1);
}

} // namespace
} // namespace korvanel::test
