// What the fields show, which of them may be used, and how they follow each other.
#include "acquisition/ScheduleTab.h"

#include "support/ScheduleTabFixture.h"

#include <QLabel>
#include <QRadioButton>

namespace korvanel::test {
namespace {

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
    const Case cases[] = {{"7", "07", "07"},  {"75", "75", "75"},  {"123", "123", "12"},  {"99999", "9999", "99"},
                          {"ab", "00", "00"}, {"-1", "00", "00"},  {"1e9", "9999", "00"}, {"", "00", "00"},
                          {"%n", "00", "00"}, {"0x9", "00", "00"}, {"  ", "00", "00"},    {"<b>", "00", "00"}};
    for (const Case& c : cases) {
        TypeAndEnter(Period(0), c.typed);
        EXPECT_EQ(Period(0).text(), c.hours) << c.typed;
        TypeAndEnter(Period(1), c.typed);
        EXPECT_EQ(Period(1).text(), c.minutes) << c.typed;
    }
}

TEST_F(ScheduleTabTest, NinetyMinutesStandAsTheyWereTypedAndAreAnHourAndAHalf)
{
    SetModes(kTimed, kTimed);
    SetMoment(0, At(16));
    TypeAndEnter(Period(2), "0");
    TypeAndEnter(Period(1), "90");
    Find<QComboBox>("cboMode_1").setFocus();
    EXPECT_EQ(Periods(0), (QStringList{"00", "90", "00"}));
    EXPECT_EQ(Moment(1), At(17, 30));
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

TEST_F(ScheduleTabTest, TheTabKeyGoesFromTheFieldsToTheGridAndTheButtons)
{
    SetCycle("3");
    QStringList names;
    for (int i = 0; i < 4; ++i) {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(names, (QStringList{"txtCycle", "flxTimeControl", "cmdSaveDates", "cmdNewDates"}));
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
