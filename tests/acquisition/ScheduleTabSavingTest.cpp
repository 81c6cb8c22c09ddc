// What the buttons and the grid of the tab make of the schedule.
#include "acquisition/ScheduleTab.h"

#include "support/ScheduleTabFixture.h"

#include <QMessageBox>
#include <QRadioButton>

namespace korvanel::test {
namespace {

TEST_F(ScheduleTabTest, SaveReplacesTheCurrentEntry)
{
    SetModes(kManual, kDuration);
    TypeAndEnter(Period(1), "1");
    Press("cmdSaveDates");
    ASSERT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.StopMode(0), StopMode::Duration);
    EXPECT_EQ(schedule.Term(0), 61);
    EXPECT_EQ(Grid().item(0, 3)->text(), "00:01:01");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ScheduleTabTest, SaveTakesWhatIsTypedInABoxThatWasNotLeft)
{
    SetModes(kManual, kDuration);
    Type(Period(2), "9");
    Press("cmdSaveDates");
    EXPECT_EQ(schedule.Term(0), 9);
    EXPECT_EQ(Period(2).text(), "09");
}

TEST_F(ScheduleTabTest, NewAddsAnEntryInItsPlace)
{
    PlanThree();
    SetMoment(0, At(10));
    SetMoment(1, At(11));
    Press("cmdNewDates");
    ASSERT_EQ(schedule.Count(), 4);
    EXPECT_EQ(schedule.StartTime(0), At(10));
    EXPECT_EQ(schedule.CurrentSet(), 0);
    EXPECT_EQ(Grid().rowCount(), 4);
    EXPECT_EQ(Grid().property("current").toInt(), 0);
}

TEST_F(ScheduleTabTest, ExchangedEndsAreSavedWithoutAMessageAndShownInOrder)
{
    SetModes(kTimed, kTimed);
    SetMoment(0, At(18));
    SetMoment(1, At(17));
    Press("cmdSaveDates");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(schedule.StartTime(0), At(17));
    EXPECT_EQ(schedule.StopTime(0), At(18));
    EXPECT_EQ(Moment(0), At(17));
    EXPECT_EQ(Moment(1), At(18));
}

TEST_F(ScheduleTabTest, AConflictIsToldAndItsRowsAreMarked)
{
    PlanThree();
    SetMoment(0, At(18, 30));
    SetMoment(1, At(20, 30));
    Press("cmdNewDates");
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
    EXPECT_EQ(shell.boxes[0].text,
              "Die eingegebene Messung konnte nicht gespeichert werden.\n"
              "Es trat ein Konflikt mit den markierten Messreihen auf (z.B. Überschneidung).\n"
              "Beachten Sie auch, dass nur vor bzw. nach zeitlich bestimmten Messreihen Eintragung möglich sind.");
    EXPECT_EQ(Grid().property("marked"), "1,2");
    EXPECT_EQ(schedule.Count(), 3);
    EXPECT_EQ(Moment(0), At(18, 30)) << "what was typed can be corrected";

    SetMoment(0, At(22));
    SetMoment(1, At(23));
    Press("cmdNewDates");
    EXPECT_EQ(Grid().property("marked"), "");
    EXPECT_EQ(schedule.Count(), 4);
}

TEST_F(ScheduleTabTest, BesideTheDefaultEntryNothingFits)
{
    Press("cmdNewDates");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Grid().property("marked"), "0");
    EXPECT_EQ(schedule.Count(), 1);
}

TEST_F(ScheduleTabTest, AManualEntryGoesToTheTop)
{
    PlanThree();
    SetModes(kManual, kTimed);
    SetMoment(1, At(15, 30));
    Press("cmdNewDates");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(schedule.StartMode(0), StartMode::Manual);
    EXPECT_EQ(Grid().item(0, 1)->text(), "Manuell");
}

TEST_F(ScheduleTabTest, DeletingTheOnlyEntryGivesTheDefaultOne)
{
    SetModes(kManual, kDuration);
    Press("cmdSaveDates");
    Press("cmdDeleteDates");
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(schedule.StopMode(0), StopMode::Manual);
    EXPECT_EQ(Grid().rowCount(), 1);
    EXPECT_EQ(Grid().item(0, 2)->text(), "Manuell");
}

TEST_F(ScheduleTabTest, DeleteRemovesTheCurrentEntryAndGoesToTheFirst)
{
    PlanThree();
    ClickRow(1);
    Press("cmdDeleteDates");
    ASSERT_EQ(schedule.Count(), 2);
    EXPECT_EQ(schedule.StartTime(1), At(20));
    EXPECT_EQ(schedule.CurrentSet(), 0);
    EXPECT_EQ(Moment(0), At(16)) << "the fields show the entry that is current now";
}

TEST_F(ScheduleTabTest, AClickOnARowMakesItCurrentAndShowsItsValues)
{
    PlanThree();
    Open();
    ClickRow(2);
    EXPECT_EQ(schedule.CurrentSet(), 2);
    EXPECT_EQ(Grid().property("current").toInt(), 2);
    EXPECT_EQ(Find<QComboBox>("cboMode_0").currentIndex(), kTimed);
    EXPECT_EQ(Find<QComboBox>("cboMode_1").currentIndex(), kTimed);
    EXPECT_EQ(Moment(0), At(20));
    EXPECT_EQ(Moment(1), At(21));
    EXPECT_EQ(Periods(0), (QStringList{"01", "00", "00"}));
    EXPECT_TRUE(IsEnabled("dtpDate_0"));
}

TEST_F(ScheduleTabTest, AClickOnTheRowThatIsCurrentAlreadyShowsItsValues)
{
    PlanThree();
    Open();
    ClickRow(0);
    EXPECT_EQ(Moment(0), At(16));
}

TEST_F(ScheduleTabTest, TheArrowKeysGoFromEntryToEntry)
{
    PlanThree();
    Grid().setFocus();
    QTest::keyClick(&Grid(), Qt::Key_Down);
    EXPECT_EQ(schedule.CurrentSet(), 1);
    EXPECT_EQ(Moment(0), At(18));
}

TEST_F(ScheduleTabTest, AnEntryThatIsChosenDoesNotRepeat)
{
    PlanThree();
    EXPECT_FALSE(Find<QCheckBox>("chkCycle").isChecked()) << "the series is saved";
    Find<QCheckBox>("chkCycle").click();
    ClickRow(1);
    EXPECT_FALSE(Find<QCheckBox>("chkCycle").isChecked());
    SetMoment(1, At(18, 30));
    Press("cmdSaveDates");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(schedule.Count(), 3);
    EXPECT_EQ(schedule.StopTime(1), At(18, 30));
}

TEST_F(ScheduleTabTest, ACycleOfFiveHundredGivesFourHundred)
{
    SetCycle("500");
    Press("cmdSaveDates");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(schedule.Count(), 400);
    EXPECT_EQ(Grid().rowCount(), 400);
    EXPECT_EQ(Grid().item(399, 0)->text(), "400");
    EXPECT_EQ(schedule.CurrentSet(), 0) << "a run begins with the first of them";
}

TEST_F(ScheduleTabTest, ACycleRepeatsUntilItsMoment)
{
    SetCycle("1");
    Find<QRadioButton>("optCylce_0").click();
    SetMoment(2, At(21));
    Press("cmdSaveDates");
    ASSERT_EQ(schedule.Count(), 3);
    EXPECT_EQ(schedule.StartTime(2), At(20));
}

TEST_F(ScheduleTabTest, ACycleUntilAMomentBeforeItsStartIsOneEntry)
{
    SetCycle("5");
    Find<QRadioButton>("optCylce_0").click();
    SetMoment(2, At(3));
    Press("cmdSaveDates");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(schedule.Count(), 1);
}

TEST_F(ScheduleTabTest, ACycleShorterThanItsRecordingStopsAfterTheFirst)
{
    SetCycle("5");
    TypeAndEnter(Period(3), "1");
    Press("cmdSaveDates");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(schedule.Count(), 1);
    EXPECT_EQ(Grid().rowCount(), 1) << "the first one is there";
    EXPECT_EQ(Grid().property("marked"), "0");
}

TEST_F(ScheduleTabTest, WithAManualStartTheCheckBoxOfTheCycleCountsForNothing)
{
    SetCycle("5");
    SetModes(kManual, kDuration);
    Press("cmdSaveDates");
    EXPECT_EQ(schedule.Count(), 1);
}

TEST_F(ScheduleTabTest, RefreshKeepsWhatTheUserHasTyped)
{
    SetModes(kTimed, kDuration);
    SetMoment(0, At(18));
    schedule.Add({StartMode::Manual, StopMode::Duration, ZeroDate(), ZeroDate(), 90}, 0);
    tab->Refresh();
    EXPECT_EQ(Grid().item(0, 3)->text(), "00:01:30");
    EXPECT_EQ(Moment(0), At(18));
    EXPECT_EQ(Find<QComboBox>("cboMode_1").currentIndex(), kDuration);
}

TEST_F(ScheduleTabTest, NothingMarksTheProjectAsChanged)
{
    PlanThree();
    ClickRow(1);
    Press("cmdDeleteDates");
    Press("cmdNewDates");
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(ScheduleTabTest, ButtonsRestWhileAModalWindowIsOnShow)
{
    PlanThree();
    QMessageBox box;
    box.setModal(true);
    box.show();
    Press("cmdDeleteDates");
    EXPECT_EQ(schedule.Count(), 3);
    box.close();
    Press("cmdDeleteDates");
    EXPECT_EQ(schedule.Count(), 2);
}

} // namespace
} // namespace korvanel::test
