#include "acquisition/ScheduleGrid.h"

#include "acquisition/clsTimeSchedule.h"
#include "support/Fixture.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QTest>

namespace korvanel::test {
namespace {

class ScheduleGridTest : public BlockTest
{
protected:
    ScheduleGridTest() { App().TimeSchedule = &schedule; }

    static QDateTime At(int hour, int minute = 0) { return {QDate(2026, 3, 14), QTime(hour, minute), Qt::UTC}; }
    /// Recordings of an hour at 16:00, 18:00 and 20:00.
    void PlanThree()
    {
        std::optional<qint32> replaced = 0;
        for (const int hour : {16, 18, 20}) {
            schedule.Add({StartMode::Timed, StopMode::Timed, At(hour), At(hour + 1), 3600}, replaced);
            replaced.reset();
        }
        grid.Fill();
    }
    QStringList Row(int row) const
    {
        QStringList texts;
        for (int i = 0; i < grid.columnCount(); ++i)
            texts << grid.item(row, i)->text();
        return texts;
    }
    bool IsBold(int row) const { return grid.item(row, 0)->font().bold() && grid.item(row, 3)->font().bold(); }
    bool IsColoured(int row) const { return grid.item(row, 1)->background().style() != Qt::NoBrush; }
    int Selected() const
    {
        const QModelIndexList rows = grid.selectionModel()->selectedRows();
        return rows.size() == 1 ? rows.front().row() : -1;
    }

    clsTimeSchedule schedule;
    ScheduleGrid grid;
};

TEST_F(ScheduleGridTest, HasItsNameHeadingsAndWidths)
{
    EXPECT_EQ(grid.objectName(), "flxTimeControl");
    grid.Fill();
    const int widths[] = {27, 120, 120, 67};
    const char* const headings[] = {"Nr.", "Startzeit", "Endzeit", "Dauer"};
    ASSERT_EQ(grid.columnCount(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(grid.horizontalHeaderItem(i)->text(), headings[i]);
        EXPECT_GE(grid.columnWidth(i), widths[i]);
    }
}

TEST_F(ScheduleGridTest, ColumnsAreWideEnoughForTheirTexts)
{
    schedule.Add({StartMode::Timed, StopMode::Timed, At(16), At(17).addYears(20), 1}, 0);
    grid.Fill();
    grid.MarkEntry(0);
    for (int i = 0; i < 4; ++i)
        EXPECT_GT(grid.columnWidth(i), QFontMetrics(grid.item(0, i)->font()).horizontalAdvance(Row(0).at(i))) << i;
}

TEST_F(ScheduleGridTest, ShowsWhatEachCombinationOfModesMeans)
{
    struct Case
    {
        ScheduleEntry entry;
        QStringList row;
    };
    const QString at16 = "14.03.2026 16:00:00";
    const QString at17 = "14.03.2026 17:00:00";
    const Case cases[] = {
        {{}, {"1", "Manuell", "Manuell", "-"}},
        {{StartMode::Manual, StopMode::Timed, ZeroDate(), At(17), 1}, {"1", "Manuell", at17, "-"}},
        {{StartMode::Manual, StopMode::Duration, ZeroDate(), ZeroDate(), 90}, {"1", "Manuell", "-", "00:01:30"}},
        {{StartMode::Timed, StopMode::Manual, At(16), ZeroDate(), 1}, {"1", at16, "Manuell", "-"}},
        {{StartMode::Timed, StopMode::Timed, At(16), At(17), 3600}, {"1", at16, at17, "01:00:00"}},
        {{StartMode::Timed, StopMode::Duration, At(16), At(17), 3600}, {"1", at16, at17, "01:00:00"}},
    };
    for (const Case& c : cases) {
        schedule.Add(c.entry, 0);
        grid.Fill();
        EXPECT_EQ(Row(0), c.row);
    }
}

TEST_F(ScheduleGridTest, HasOneNumberedRowForEachEntry)
{
    PlanThree();
    ASSERT_EQ(grid.rowCount(), 3);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(Row(i).front(), QString::number(i + 1));
    schedule.Delete(2);
    grid.Fill();
    EXPECT_EQ(grid.rowCount(), 2);
}

TEST_F(ScheduleGridTest, CantBeEdited)
{
    PlanThree();
    EXPECT_EQ(grid.editTriggers(), QAbstractItemView::NoEditTriggers);
    EXPECT_EQ(grid.selectionBehavior(), QAbstractItemView::SelectRows);
}

TEST_F(ScheduleGridTest, MarkEntry_MarksOneRowAndNoOther)
{
    PlanThree();
    grid.MarkEntry(1);
    EXPECT_EQ(grid.property("current").toInt(), 1);
    EXPECT_EQ(Selected(), 1);
    EXPECT_TRUE(IsBold(1));
    grid.MarkEntry(2);
    EXPECT_FALSE(IsBold(1));
    EXPECT_TRUE(IsBold(2));
    EXPECT_EQ(Selected(), 2);
    grid.MarkEntry(-1);
    EXPECT_FALSE(IsBold(2));
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(grid.currentRow(), -1);
    EXPECT_EQ(grid.property("current").toInt(), -1);
    grid.MarkEntry(1);
    grid.MarkEntry(3);
    EXPECT_EQ(grid.property("current").toInt(), -1) << "there is no such row";
    EXPECT_EQ(Selected(), -1);
}

TEST_F(ScheduleGridTest, MarkRange_ColoursBothEndsAndAllBetween)
{
    PlanThree();
    grid.MarkEntry(0);
    grid.MarkRange(1, 2);
    EXPECT_FALSE(IsColoured(0));
    EXPECT_TRUE(IsColoured(1));
    EXPECT_TRUE(IsColoured(2));
    EXPECT_EQ(grid.property("marked"), "1,2");
    EXPECT_TRUE(IsBold(0)) << "the current entry is still seen";
    EXPECT_EQ(Selected(), -1) << "a selection would hide the colour";
}

TEST_F(ScheduleGridTest, MarkRange_StaysUntilTheNextFill)
{
    PlanThree();
    grid.MarkRange(0, 0);
    grid.MarkEntry(2);
    EXPECT_TRUE(IsColoured(0));
    grid.MarkRange(2, 2);
    EXPECT_EQ(grid.property("marked"), "0,2");
    grid.Fill();
    EXPECT_FALSE(IsColoured(0));
    EXPECT_EQ(grid.property("marked"), "");
    EXPECT_EQ(grid.property("current").toInt(), -1);
}

TEST_F(ScheduleGridTest, MarkRange_LeavesOutRowsThatDontExist)
{
    PlanThree();
    grid.MarkRange(-3, 0);
    EXPECT_EQ(grid.property("marked"), "0");
    grid.MarkRange(2, 99);
    EXPECT_EQ(grid.property("marked"), "0,2");
    grid.MarkRange(7, 9);
    grid.MarkRange(2, 1);
    EXPECT_EQ(grid.property("marked"), "0,2");
}

TEST_F(ScheduleGridTest, OnlyTheUserChoosesAnEntry)
{
    PlanThree();
    grid.show();
    const QSignalSpy chosen(&grid, &ScheduleGrid::EntryChosen);
    grid.MarkEntry(1);
    grid.Fill();
    grid.MarkEntry(0);
    EXPECT_EQ(chosen.size(), 0);
    QTest::keyClick(&grid, Qt::Key_Down);
    ASSERT_GE(chosen.size(), 1);
    EXPECT_EQ(chosen.back().front().toInt(), 1);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualItemRect(grid.item(2, 1)).center());
    EXPECT_EQ(chosen.back().front().toInt(), 2);
}

} // namespace
} // namespace korvanel::test
