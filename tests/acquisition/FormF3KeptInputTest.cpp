// What is typed on the page of the instrument is kept, however the page is left or the project saved.
#include "acquisition/FormF3Fixture.h"
#include "acquisition/clsTimeSchedule.h"
#include "core/Clock.h"
#include "project/ProjectCommands.h"

#include <QAction>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

namespace korvanel::test {
namespace {

class FormF3KeptInput : public FormF3Test
{
protected:
    FormF3KeptInput()
    {
        window.Menu().OnTriggered("mnuSave", SaveProjectFromMenu);
        window.Menu().OnTriggered("mnuClose", CloseProjectFromMenu);
        window.Menu().OnTriggered("mnuPrint", [this] { window.UnloadAndOpen(9); });
    }
    /// Types as a hand does; the focus stays in the box.
    void TypeInterval(const QString& text)
    {
        QApplication::setActiveWindow(&window);
        auto& box = Find<EntryBox>("cboInterval");
        box.lineEdit()->setFocus();
        box.lineEdit()->selectAll();
        QTest::keyClicks(box.lineEdit(), text);
        ASSERT_EQ(box.currentText(), text);
    }
    void TriggerEntry(const char* name) { window.Menu().Entry(QLatin1String(name))->trigger(); }
    QString StoredInterval() const { return Query("SELECT Decimal FROM Overview WHERE Name='Measurement Interval'"); }
    /// A duration of a run that starts by hand, typed and not saved.
    void PlanTenMinutes()
    {
        Find<QTabWidget>("tabPage").setCurrentIndex(2);
        Find<QComboBox>("cboMode_1").setCurrentIndex(2);
        auto& minutes = Find<QLineEdit>("txtPeriod_1");
        minutes.selectAll();
        QTest::keyClicks(&minutes, "10");
    }
    static const ScheduleEntry& Planned() { return App().TimeSchedule->Entry(App().TimeSchedule->CurrentSet()); }
};

TEST_F(FormF3KeptInput, IntervalIsStoredBySaveFromTheMenu)
{
    ShowPage(0);
    TypeInterval("7");
    TriggerEntry("mnuSave");
    EXPECT_EQ(StoredInterval(), "7.0");
    EXPECT_EQ(PageName(), "FormF3");
}

TEST_F(FormF3KeptInput, IntervalIsStoredByEveryWayToLeaveThePage)
{
    const std::vector<std::function<void()>> ways{
        [this] { Press("cmdBack"); },
        [this] { Press("cmdForw"); },
        [this] { TriggerEntry("mnuPrint"); },
        [this] { TriggerEntry("mnuClose"); },
    };
    for (std::size_t way = 0; way < ways.size(); ++way) {
        ShowPage(0);
        TypeInterval("8");
        ways[way]();
        EXPECT_NE(PageName(), "FormF3") << way;
        EXPECT_EQ(QueryFile(PathOf("test.MDB"), "SELECT Decimal FROM Overview WHERE Name='Measurement Interval'"),
                  "8.0")
            << way;
        window.UnloadPage();
        App().bProjectOpen = App().bProjectDirty = false;
        QFile::remove(PathOf("test.MDB"));
        window.show();
    }
    EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'|').toStdString();
}

TEST_F(FormF3KeptInput, ClosingTheWindowTakesTheIntervalBeforeItAsksWhetherToSave)
{
    ShowPage(0);
    TypeInterval("8");
    shell.answers = {Answer::Cancel};
    window.close();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Möchten Sie Änderungen am aktuellen Projekt speichern?"});
    EXPECT_EQ(App().dInterval, 8);
}

TEST_F(FormF3KeptInput, IntervalOutOfRangeKeepsThePageAndIsTold)
{
    for (const char* entry : {"mnuPrint", "mnuClose", "mnuSave"}) {
        ShowPage(0);
        shell.boxes.clear();
        TypeInterval("99");
        TriggerEntry(entry);
        EXPECT_EQ(PageName(), "FormF3") << entry;
        ASSERT_EQ(shell.boxes.size(), 1U) << entry;
        EXPECT_EQ(shell.boxes[0].text, "Der eingegebene Wert muss sich\nzwischen 1 und 60  befinden.");
        EXPECT_EQ(BoxText("cboInterval"), "99") << "to be corrected";
        window.UnloadPage();
        QFile::remove(PathOf("test.MDB"));
    }
}

TEST_F(FormF3KeptInput, TransformerIsStoredToo)
{
    ShowPage(0);
    auto& box = Find<EntryBox>("cboTrans_0");
    box.setEditText("400");
    TriggerEntry("mnuSave");
    EXPECT_EQ(Query("SELECT Decimal FROM Settings WHERE Name='dTransPrimary 0'"), "400.0");
}

TEST_F(FormF3KeptInput, PlannedRecordingThatIsNotSavedIsAskedFor)
{
    ShowPage(0);
    PlanTenMinutes();
    shell.answers = {Answer::Cancel};
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text,
              "Die eingegebene Messreihe ist noch nicht gespeichert.\nSoll sie gespeichert werden?");
    EXPECT_EQ(Find<QLineEdit>("txtPeriod_1").text(), "10");
    shell.answers = {Answer::Yes};
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_EQ(Planned().stopMode, StopMode::Duration);
    EXPECT_EQ(Planned().term, 601);
}

TEST_F(FormF3KeptInput, PlannedRecordingGoesAfterNo)
{
    ShowPage(0);
    PlanTenMinutes();
    shell.answers = {Answer::No};
    TriggerEntry("mnuPrint");
    EXPECT_NE(PageName(), "FormF3");
    EXPECT_EQ(Planned().stopMode, StopMode::Manual);
}

TEST_F(FormF3KeptInput, PlannedRecordingThatCollidesKeepsThePage)
{
    ShowPage(0);
    const QDateTime now = PresentMoment();
    for (const int start : {300, 100}) // the first one takes the place of the entry that is always there
        App().TimeSchedule->Add({StartMode::Timed, StopMode::Timed, now.addSecs(start), now.addSecs(start + 100), 100},
                                start == 300 ? std::optional<qint32>(0) : std::nullopt);
    window.RefreshPage();
    Find<QTabWidget>("tabPage").setCurrentIndex(2);
    Find<QComboBox>("cboMode_0").setCurrentIndex(1);
    Find<QComboBox>("cboMode_1").setCurrentIndex(1);
    Find<QDateTimeEdit>("dtpTime_0").setTime(PresentMoment().addSecs(150).time());
    Find<QDateTimeEdit>("dtpTime_1").setTime(PresentMoment().addSecs(350).time());
    shell.answers = {Answer::Yes};
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(shell.boxes.size(), 2U);
}

TEST_F(FormF3KeptInput, NothingIsAskedWhereNothingWasPlanned)
{
    ShowPage(0);
    Find<QTabWidget>("tabPage").setCurrentIndex(2);
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace
} // namespace korvanel::test
