#include "acquisition/ScheduleTab.h"

#include "acquisition/ScheduleGrid.h"
#include "support/Fixture.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QTimeEdit>

#include <stdexcept>

namespace korvanel::test {
namespace {

constexpr int kManual = 0;
constexpr int kTimed = 1;
constexpr int kDuration = 2;

class ScheduleTabTest : public BlockTest
{
protected:
    ScheduleTabTest()
    {
        App().TimeSchedule = &schedule;
        Open();
    }

    // While it is shown its boxes still hear of the focus.
    ~ScheduleTabTest() override { tab->hide(); }

    /// A tab as the page makes it each time it is shown.
    void Open()
    {
        if (tab)
            tab->hide();
        tab = std::make_unique<ScheduleTab>();
        tab->resize(720, 380);
        tab->Refresh();
        tab->show();
        QApplication::setActiveWindow(tab.get());
    }

    template <typename Control>
    Control& Find(const QString& name) const
    {
        auto* control = tab->findChild<Control*>(name);
        if (!control)
            throw std::runtime_error("no control " + name.toStdString());
        return *control;
    }
    QLineEdit& Period(int index) const { return Find<QLineEdit>(QStringLiteral("txtPeriod_%1").arg(index)); }
    QStringList Periods(int first) const
    {
        return {Period(first).text(), Period(first + 1).text(), Period(first + 2).text()};
    }
    ScheduleGrid& Grid() const { return Find<ScheduleGrid>("flxTimeControl"); }
    bool IsEnabled(const QString& name) const { return Find<QWidget>(name).isEnabled(); }
    void Press(const char* name) const { Find<QPushButton>(name).click(); }

    void SetModes(int start, int stop) const
    {
        Find<QComboBox>("cboMode_0").setCurrentIndex(start);
        Find<QComboBox>("cboMode_1").setCurrentIndex(stop);
    }
    void SetMoment(int index, const QDateTime& moment) const
    {
        Find<QDateEdit>(QStringLiteral("dtpDate_%1").arg(index)).setDate(moment.date());
        Find<QTimeEdit>(QStringLiteral("dtpTime_%1").arg(index)).setTime(moment.time());
    }
    QDateTime Moment(int index) const
    {
        return {Find<QDateEdit>(QStringLiteral("dtpDate_%1").arg(index)).date(),
                Find<QTimeEdit>(QStringLiteral("dtpTime_%1").arg(index)).time(), Qt::UTC};
    }
    /// Types over what stands in a box, without leaving it.
    static void Type(QLineEdit& box, const QString& text)
    {
        box.setFocus();
        box.selectAll();
        if (text.isEmpty())
            QTest::keyClick(&box, Qt::Key_Delete);
        QTest::keyClicks(&box, text);
    }
    static void TypeAndEnter(QLineEdit& box, const QString& text)
    {
        Type(box, text);
        QTest::keyClick(&box, Qt::Key_Return);
    }
    /// A recording of an hour from 16:00 on, every two hours.
    void SetCycle(const QString& cycles) const
    {
        SetModes(kTimed, kTimed);
        SetMoment(0, At(16));
        SetMoment(1, At(17));
        Find<QCheckBox>("chkCycle").setChecked(true);
        TypeAndEnter(Period(3), "2");
        TypeAndEnter(Period(5), "0");
        TypeAndEnter(Find<QLineEdit>("txtCycle"), cycles);
    }
    void PlanThree() const
    {
        SetCycle("3");
        Press("cmdSaveDates");
    }
    void ClickRow(int row) const
    {
        QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().visualItemRect(Grid().item(row, 1)).center());
    }
    /// A moment of the test's day; its clock stands at 15:09:26.
    static QDateTime At(int hour, int minute = 0, int second = 0)
    {
        return {QDate(2026, 3, 14), QTime(hour, minute, second), Qt::UTC};
    }

    clsTimeSchedule schedule;
    std::unique_ptr<ScheduleTab> tab;
};

TEST_F(ScheduleTabTest, BeginsWithTheDefaults)
{
    EXPECT_EQ(Find<QComboBox>("cboMode_0").currentText(), "Manuell");
    EXPECT_EQ(Find<QComboBox>("cboMode_1").currentText(), "Manuell");
    EXPECT_EQ(Moment(0), At(15, 9, 26));
    EXPECT_EQ(Moment(1), At(15, 9, 27));
    EXPECT_EQ(Periods(0), (QStringList{"00", "00", "01"}));
    EXPECT_EQ(Periods(3), (QStringList{"00", "00", "02"}));
    EXPECT_EQ(Find<QLineEdit>("txtCycle").text(), "1");
    EXPECT_FALSE(Find<QCheckBox>("chkCycle").isChecked());
}

TEST_F(ScheduleTabTest, BeginsWithTheDefaultsWhateverTheScheduleHolds)
{
    PlanThree();
    clock.now = clock.now.addSecs(60);
    Open();
    EXPECT_EQ(Find<QComboBox>("cboMode_0").currentIndex(), kManual);
    EXPECT_EQ(Moment(0), At(15, 10, 26));
    EXPECT_EQ(Grid().rowCount(), 3) << "the schedule outlives the page";
    EXPECT_EQ(Grid().property("current").toInt(), 0);
}

TEST_F(ScheduleTabTest, ListsTheModes)
{
    const auto entries = [this](const char* name) {
        QStringList texts;
        for (int i = 0; i < Find<QComboBox>(name).count(); ++i)
            texts << Find<QComboBox>(name).itemText(i);
        return texts;
    };
    EXPECT_EQ(entries("cboMode_0"), (QStringList{"Manuell", "Datum/Zeit"}));
    EXPECT_EQ(entries("cboMode_1"), (QStringList{"Manuell", "Datum/Zeit", "Dauer"}));
}

TEST_F(ScheduleTabTest, CaptionsAreToTheLetter)
{
    EXPECT_EQ(Find<QPushButton>("cmdSaveDates").text(), "Änderungen speichern");
    EXPECT_EQ(Find<QPushButton>("cmdNewDates").text(), "Änderungen als neuen Satz speichern");
    EXPECT_EQ(Find<QPushButton>("cmdDeleteDates").text(), "Aktuellen Satz löschen");
    EXPECT_EQ(Find<QCheckBox>("chkCycle").text(), "Messreihe zyklisch wiederholen");
    EXPECT_EQ(Find<QRadioButton>("optCylce_0").text(), "Wiederholen bis Endzeitpunkt");
    EXPECT_EQ(Find<QRadioButton>("optCylce_1").text(), "Anzahl der Zyklen");
    QStringList labels;
    for (const QLabel* label : tab->findChildren<QLabel*>())
        labels << label->text();
    EXPECT_TRUE(labels.contains("Messdauer:"));
    EXPECT_TRUE(labels.contains("Zyklusdauer (Messdauer + Pause):"));
}

TEST_F(ScheduleTabTest, DatesAndTimesStandInTheFormatsOfTheGrid)
{
    EXPECT_EQ(Find<QDateEdit>("dtpDate_0").text() + ' ' + Find<QTimeEdit>("dtpTime_0").text(), "14.03.2026 15:09:26");
    EXPECT_TRUE(Find<QDateEdit>("dtpDate_0").calendarPopup());
}

TEST_F(ScheduleTabTest, EnabledFieldsFollowTheModes)
{
    struct Case
    {
        int start;
        int stop;
        bool hasStart;
        bool hasStop;
        bool hasTerm;
    };
    const Case cases[] = {{kManual, kManual, false, false, false},  {kManual, kTimed, false, true, false},
                          {kManual, kDuration, false, false, true}, {kTimed, kManual, true, false, false},
                          {kTimed, kTimed, true, true, true},       {kTimed, kDuration, true, false, true}};
    for (const Case& c : cases) {
        SetModes(c.start, c.stop);
        for (const char* name : {"dtpDate_0", "dtpTime_0"})
            EXPECT_EQ(IsEnabled(name), c.hasStart) << name << c.start << c.stop;
        for (const char* name : {"dtpDate_1", "dtpTime_1"})
            EXPECT_EQ(IsEnabled(name), c.hasStop) << name << c.start << c.stop;
        for (const char* name : {"txtPeriod_0", "txtPeriod_1", "txtPeriod_2"})
            EXPECT_EQ(IsEnabled(name), c.hasTerm) << name << c.start << c.stop;
        EXPECT_EQ(IsEnabled("chkCycle"), c.start == kTimed);
    }
}

TEST_F(ScheduleTabTest, EnabledFieldsOfTheCycleFollowItsCheckBoxAndItsRule)
{
    const char* const names[] = {"txtPeriod_3", "txtPeriod_4", "txtPeriod_5", "optCylce_0", "optCylce_1"};
    SetModes(kTimed, kTimed);
    for (const char* name : names)
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_FALSE(IsEnabled("txtCycle"));
    EXPECT_FALSE(IsEnabled("dtpDate_2"));

    Find<QCheckBox>("chkCycle").click();
    for (const char* name : names)
        EXPECT_TRUE(IsEnabled(name)) << name;
    Find<QRadioButton>("optCylce_0").click();
    EXPECT_TRUE(IsEnabled("dtpDate_2"));
    EXPECT_TRUE(IsEnabled("dtpTime_2"));
    EXPECT_FALSE(IsEnabled("txtCycle"));
    Find<QRadioButton>("optCylce_1").click();
    EXPECT_FALSE(IsEnabled("dtpDate_2"));
    EXPECT_TRUE(IsEnabled("txtCycle"));

    SetModes(kManual, kTimed);
    for (const char* name : names)
        EXPECT_FALSE(IsEnabled(name)) << name << ": it needs a timed start";
    EXPECT_FALSE(IsEnabled("txtCycle"));
}

TEST_F(ScheduleTabTest, AChangeOfAPickerUpdatesTheDuration)
{
    SetModes(kTimed, kTimed);
    SetMoment(0, At(16));
    SetMoment(1, At(17, 2, 3));
    EXPECT_EQ(Periods(0), (QStringList{"01", "02", "03"}));
    SetMoment(0, At(17));
    EXPECT_EQ(Periods(0), (QStringList{"00", "02", "03"}));
    SetMoment(1, At(17).addDays(10));
    EXPECT_EQ(Periods(0), (QStringList{"240", "00", "00"}));
}

TEST_F(ScheduleTabTest, TypingInAPickerIsFollowedAndNotDisturbed)
{
    SetModes(kTimed, kTimed);
    auto& stop = Find<QTimeEdit>("dtpTime_1");
    stop.setFocus();
    stop.setSelectedSection(QDateTimeEdit::HourSection);
    QTest::keyClicks(&stop, "163027");
    EXPECT_EQ(stop.text(), "16:30:27");
    EXPECT_EQ(Periods(0), (QStringList{"01", "21", "01"}));
}

TEST_F(ScheduleTabTest, AChangeOfTheDurationUpdatesTheEnd)
{
    SetModes(kTimed, kTimed);
    SetMoment(0, At(23, 59, 30));
    TypeAndEnter(Period(1), "1");
    TypeAndEnter(Period(2), "0");
    TypeAndEnter(Period(0), "0");
    EXPECT_EQ(Moment(1), QDateTime(QDate(2026, 3, 15), QTime(0, 0, 30), Qt::UTC));
    EXPECT_EQ(Moment(0), At(23, 59, 30));
}

TEST_F(ScheduleTabTest, ADurationFromATimedStartShowsItsEnd)
{
    SetModes(kTimed, kDuration);
    SetMoment(0, At(18));
    TypeAndEnter(Period(1), "10");
    EXPECT_EQ(Moment(1), At(18, 10, 1));
    SetMoment(0, At(19));
    EXPECT_EQ(Moment(1), At(19, 10, 1));
    EXPECT_EQ(Periods(0), (QStringList{"00", "10", "01"})) << "it is what was told";
}

TEST_F(ScheduleTabTest, BothTimedFromNowOnTakesTheDurationFromTheMoments)
{
    SetModes(kManual, kDuration);
    TypeAndEnter(Period(0), "5");
    SetModes(kTimed, kTimed);
    EXPECT_EQ(Moment(0).secsTo(Moment(1)), 5 * 3600 + 1) << "the mode between, a timed start with a duration";
    EXPECT_EQ(Periods(0), (QStringList{"05", "00", "01"}));
}

TEST_F(ScheduleTabTest, HostileTextsInTheDurationBecomeNumbers)
{
    SetModes(kManual, kDuration);
    struct Case
    {
        const char* typed;
        const char* hours;
        const char* minutes;
    };
    const Case cases[] = {{"7", "07", "07"},  {"75", "75", "59"},  {"123", "123", "12"},  {"99999", "9999", "59"},
                          {"ab", "00", "00"}, {"-1", "00", "00"},  {"1e9", "9999", "00"}, {"", "00", "00"},
                          {"%n", "00", "00"}, {"0x9", "00", "00"}, {"  ", "00", "00"},    {"<b>", "00", "00"}};
    for (const Case& c : cases) {
        TypeAndEnter(Period(0), c.typed);
        EXPECT_EQ(Period(0).text(), c.hours) << c.typed;
        TypeAndEnter(Period(1), c.typed);
        EXPECT_EQ(Period(1).text(), c.minutes) << c.typed;
    }
}

TEST_F(ScheduleTabTest, LeavingABoxRestoresItsZeros)
{
    SetModes(kManual, kDuration);
    Type(Period(1), "5");
    EXPECT_EQ(Period(1).text(), "5");
    QTest::keyClick(&Period(1), Qt::Key_Tab);
    EXPECT_EQ(Period(1).text(), "05");
    EXPECT_TRUE(Period(2).hasFocus());
}

TEST_F(ScheduleTabTest, ADurationOfZeroBecomesASecondWhenItsBoxesAreLeft)
{
    SetModes(kManual, kDuration);
    Type(Period(2), "0");
    Period(1).setFocus();
    EXPECT_EQ(Periods(0), (QStringList{"00", "00", "00"})) << "the user is on the way to another box of it";
    Find<QComboBox>("cboMode_1").setFocus();
    EXPECT_EQ(Periods(0), (QStringList{"00", "00", "01"}));
    TypeAndEnter(Period(2), "0");
    EXPECT_EQ(Periods(0), (QStringList{"00", "00", "01"}));
}

TEST_F(ScheduleTabTest, HostileTextsInTheNumberOfCyclesBecomeOneToFourHundred)
{
    SetCycle("1");
    auto& box = Find<QLineEdit>("txtCycle");
    struct Case
    {
        const char* typed;
        const char* shown;
    };
    const Case cases[] = {{"5", "5"},     {"0", "1"},     {"-4", "1"},    {"", "1"},      {"x", "1"},
                          {"400", "400"}, {"401", "400"}, {"500", "400"}, {"1e9", "400"}, {"007", "7"}};
    for (const Case& c : cases) {
        TypeAndEnter(box, c.typed);
        EXPECT_EQ(box.text(), c.shown) << c.typed;
    }
}

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

TEST_F(ScheduleTabTest, FitsIntoItsRoomAndNoCaptionIsCut)
{
    EXPECT_LE(tab->minimumSizeHint().width(), 720);
    EXPECT_LE(tab->minimumSizeHint().height(), 380);
    const auto expectWide = [](const auto& controls) {
        for (const QWidget* control : controls)
            EXPECT_GE(control->width(), control->minimumSizeHint().width()) << control->objectName().toStdString();
    };
    expectWide(tab->findChildren<QLabel*>());
    expectWide(tab->findChildren<QPushButton*>());
    expectWide(tab->findChildren<QCheckBox*>());
    expectWide(tab->findChildren<QRadioButton*>());
    expectWide(tab->findChildren<QComboBox*>());
    expectWide(tab->findChildren<QDateTimeEdit*>());
    int columns = 0;
    for (int i = 0; i < Grid().columnCount(); ++i)
        columns += Grid().columnWidth(i);
    EXPECT_LE(columns, Grid().viewport()->width());
}

} // namespace
} // namespace korvanel::test
