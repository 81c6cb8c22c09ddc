#include "acquisition/FormF4.h"

#include "data/SampleGrid.h"
#include "data/ValueTables.h"
#include "support/FakeInstrument.h"
#include "support/WindowFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

namespace korvanel::test {
namespace {

class FormF4Test : public WindowTest
{
protected:
    FormF4Test()
    {
        port.answer = [this](const QByteArray& request) { return isSilent ? QByteArray() : instrument.Reply(request); };
        for (int code = 0; code <= 43; ++code)
            instrument.texts[code] = " 230.0V        ";
        instrument.texts[28] = "50.00Hz";
    }
    void ShowPage(int netConf = 0, const char* device = "ISKRA MI71XX 1Ø2W (1b)")
    {
        OpenInWindow(netConf);
        App().sDevice = QString::fromUtf8(device);
        App().lModbusAddress = 33;
        BuildColumnLayout();
        window.UnloadAndOpen(4);
        App().bProjectDirty = false;
    }
    void Press(const char* name) { Find<QPushButton>(name).click(); }
    /// A poll a second from now.
    void Poll()
    {
        clock.seconds += 1;
        FireTimer();
    }
    /// Lets the timer of the page fire.
    void FireTimer()
    {
        auto& timer = Find<QTimer>("Timer1");
        if (timer.isActive())
            QMetaObject::invokeMethod(&timer, "timeout", Qt::DirectConnection);
    }
    QString Label(const char* name) { return Find<QLabel>(name).text(); }
    bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    QString Cell(const char* table, int row, int column)
    {
        const QTableWidgetItem* item = Find<QTableWidget>(table).item(row, column);
        return item ? item->text() : QString();
    }
    /// Presses START and takes samples.
    void Record(int samples)
    {
        Press("cmdSTART");
        for (int i = 0; i < samples; ++i)
            Poll();
    }

    FakeInstrument instrument;
    bool isSilent = false;
};

TEST_F(FormF4Test, IdlePage_OffersStartAndNothingToDrop)
{
    ShowPage();
    EXPECT_EQ(Find<QPushButton>("cmdSTART").text(), "START Messung");
    EXPECT_EQ(Find<QPushButton>("cmdDrop").text(), "Messwerte löschen");
    EXPECT_FALSE(IsEnabled("cmdDrop"));
    EXPECT_FALSE(Find<QTimer>("Timer1").isActive());
    EXPECT_EQ(Find<QTimer>("Timer1").interval(), 50);
    EXPECT_EQ(Label("lblCount_0"), "- ");
    EXPECT_EQ(Label("lblCount_2"), "00:00:00");
    EXPECT_EQ(Label("lblDevTrans_0"), "-");
    EXPECT_TRUE(Find<QWidget>("cboEngine").isHidden());
}

TEST_F(FormF4Test, Methods_AreThoseThatCanBeUsedWithTheirNumberAsData)
{
    struct Case
    {
        bool isConnectionKnown;
        bool isRatingKnown;
        QStringList texts;
    };
    const Case cases[] = {{true, true, {"Raumvektor (V)", "Leistungsbilanz (P)"}},
                          {true, false, {"Raumvektor (V)"}},
                          {false, true, {"Leistungsbilanz (P)"}}};
    for (const Case& c : cases) {
        App().bModelValid = false;
        OpenInWindow(2);
        App().bModelValid = true;
        App().MachineI.status[kConnectionKnown] = c.isConnectionKnown;
        App().MachineI.status[kRatingKnown] = c.isRatingKnown;
        window.UnloadAndOpen(4);
        auto& box = Find<QComboBox>("cboEngine");
        QStringList texts;
        for (int i = 0; i < box.count(); ++i) {
            texts << box.itemText(i);
            EXPECT_EQ(box.itemData(i).toInt(), box.itemText(i).startsWith("Raum") ? 0 : 1);
        }
        EXPECT_EQ(texts, c.texts);
        EXPECT_EQ(box.currentData().toInt(), c.isRatingKnown ? 1 : 0) << "the project's method, if it can be used";
        EXPECT_FALSE(box.isHidden());
        window.UnloadPage();
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF4Test, HardwareRatios_StandOnThePageOfAConnectedInstrument)
{
    ShowPage();
    App().bDevConnected = true;
    App().dDevTransPrimary = {20000, 100};
    App().dDevTransSecondary = {100, 5};
    window.RefreshPage();
    EXPECT_EQ(Label("lblDevTrans_0"), "20000 / 100");
    EXPECT_EQ(Label("lblDevTrans_1"), "100 / 5");
}

TEST_F(FormF4Test, Run_LocksPageAndMenusAndShowsEachSample)
{
    ShowPage();
    Record(3);
    EXPECT_EQ(Find<QPushButton>("cmdSTART").text(), "STOP Messung");
    for (const char* name : {"cmdBack", "cmdForw", "cmdDrop"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_TRUE(IsEnabled("cmdSTART"));
    EXPECT_TRUE(IsEnabled("cmdInfo"));
    EXPECT_FALSE(IsEntryEnabled("mnuFile"));
    EXPECT_EQ(Label("lblCount_3"), "3");
    EXPECT_EQ(Label("lblCount_0"), "3");
    EXPECT_EQ(Find<QWidget>("shpLamp").property("colour").toInt(), 65280);
    EXPECT_EQ(Cell("flxHeader", 0, 0), "230");
    EXPECT_EQ(Cell("flxvalues", 2, 0), "230");
    EXPECT_EQ(Cell("flxvalues", 3, 0), "");
    Press("cmdSTART");
    EXPECT_EQ(Find<QPushButton>("cmdSTART").text(), "START Messung");
    for (const char* name : {"cmdBack", "cmdForw", "cmdDrop"})
        EXPECT_TRUE(IsEnabled(name)) << name;
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF4Test, Table_ShowsTheNewestSetsAndScrollsToAll)
{
    ShowPage();
    Record(9);
    auto& table = Find<QTableWidget>("flxvalues");
    EXPECT_EQ(table.rowCount(), App().iGridRows[0]);
    EXPECT_EQ(table.verticalHeaderItem(0)->text(), "5");
    EXPECT_EQ(table.verticalHeaderItem(4)->text(), "9");
    Find<QScrollBar>("ScrollFlex").setValue(1);
    EXPECT_EQ(table.verticalHeaderItem(0)->text(), "1");
    Poll();
    EXPECT_EQ(table.verticalHeaderItem(4)->text(), "10") << "a new set brings the table to its end";
}

TEST_F(FormF4Test, Table_MarksCorrectedSets)
{
    ShowPage();
    Record(3);
    window.UnloadPage(); // nobody writes a file that is being recorded
    Execute("UPDATE SampledValues SET Edit=255 WHERE [Set]=2");
    window.UnloadAndOpen(4);
    window.RefreshPage();
    auto& table = Find<QTableWidget>("flxvalues");
    EXPECT_EQ(table.verticalHeaderItem(0)->text(), "1");
    EXPECT_EQ(table.verticalHeaderItem(1)->text(), "2*");
    EXPECT_EQ(table.verticalHeaderItem(2)->text(), "3");
}

TEST_F(FormF4Test, Columns_KeepTheirWidthWhateverIsMeasured)
{
    ShowPage();
    Record(1);
    auto& table = Find<QTableWidget>("flxvalues");
    const int width = table.columnWidth(0);
    instrument.texts[16] = "9999.9k";
    Poll();
    EXPECT_EQ(table.columnWidth(0), width);
    EXPECT_EQ(Find<QTableWidget>("flxHeader").columnWidth(0), width);
    EXPECT_EQ(Cell("flxvalues", 1, 0), "9999900");
}

TEST_F(FormF4Test, BadSample_PaintsItsCellsGreyAndTheLampRed)
{
    ShowPage();
    Record(2);
    instrument.texts[28] = "2000.0H"; // no frequency
    Poll();
    EXPECT_EQ(Find<QWidget>("shpLamp").property("colour").toInt(), 255);
    auto& head = Find<QTableWidget>("flxHeader");
    EXPECT_EQ(head.item(0, 2)->background().color(), QColor(192, 192, 192)) << "f";
    EXPECT_EQ(head.item(0, 0)->background().style(), Qt::NoBrush) << "U";
    EXPECT_EQ(Label("lblCount_3"), "2");
    isSilent = true;
    Poll();
    EXPECT_EQ(head.item(0, 0)->background().color(), QColor(192, 192, 192));
    isSilent = false;
    instrument.texts[28] = "50.00Hz";
    Poll();
    EXPECT_EQ(head.item(0, 0)->background().style(), Qt::NoBrush);
    EXPECT_EQ(Label("lblCount_3"), "3");
}

TEST_F(FormF4Test, ScaleEndOfZero_DrawsNothingAndDividesByNothing)
{
    App().ScaleEnds = {};
    ShowPage();
    App().ScaleEnds = {0, 0, 0, 0, 0, 0};
    Record(3);
    EXPECT_EQ(Label("lblCount_3"), "3");
    EXPECT_FALSE(Find<QWidget>("picOnline").grab().isNull());
}

TEST_F(FormF4Test, Graph_WrapsAtItsEdgeAndGoesOn)
{
    ShowPage();
    Press("cmdSTART");
    const int width = Find<QWidget>("picOnline").width();
    for (int i = 0; i < width + 20; ++i)
        Poll();
    EXPECT_EQ(Label("lblCount_0"), QString::number(width + 20));
    // The voltage, at 230 of 500 V, has been drawn in its colour up to the newest point; ahead of it is the gap.
    const QImage picture = Find<QWidget>("picOnline").grab().toImage();
    const int y = picture.height() - picture.height() * 230 / 500;
    const auto isGreen = [&](int x) {
        for (int dy = -2; dy <= 2; ++dy) {
            const QColor colour = picture.pixelColor(x, y + dy);
            if (colour.green() > 200 && colour.red() < 120 && colour.blue() < 120)
                return true;
        }
        return false;
    };
    EXPECT_TRUE(isGreen(10));
    EXPECT_FALSE(isGreen(24));
    EXPECT_TRUE(isGreen(60));
}

TEST_F(FormF4Test, CurveList_SwitchesTheColumnsOfTheProject)
{
    ShowPage();
    auto& list = Find<QListWidget>("picColour");
    EXPECT_EQ(list.item(0)->text(), "U:  500 V");
    EXPECT_EQ(list.item(0)->checkState(), Qt::Checked);
    list.item(0)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(App().Checks[kU], 0);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF4Test, ExtraTable_StandsInTheConfigurationsOfPhases)
{
    ShowPage(4, "ISKRA MI71XX 3Ø4W (4u) Rec L-N");
    App().dInterval = 5;
    Press("cmdSTART");
    FireTimer();
    auto& extra = Find<QTableWidget>("flxExtraValues");
    EXPECT_EQ(extra.rowCount(), 4);
    EXPECT_EQ(extra.verticalHeaderItem(0)->text(), "Wp abs [Wh]");
    EXPECT_EQ(extra.item(0, 0)->text(), "0") << "drawn less fed back, 230 Wh each";
    EXPECT_EQ(Label("lblCount_3"), "1");
    Press("cmdSTART");
    window.UnloadPage();
    QFile::remove(App().sProjectPath);
    ShowPage(0);
    EXPECT_EQ(window.findChild<QTableWidget*>("flxExtraValues"), nullptr);
}

TEST_F(FormF4Test, Drop_EmptiesTheTablesAfterYes)
{
    ShowPage();
    Record(2);
    Press("cmdSTART");
    shell.answers = {Answer::No};
    Press("cmdDrop");
    EXPECT_EQ(App().iSetCount, 2);
    shell.answers = {Answer::Yes};
    Press("cmdDrop");
    EXPECT_EQ(App().iSetCount, 0);
    EXPECT_EQ(Cell("flxvalues", 0, 0), "");
    EXPECT_EQ(Cell("flxHeader", 0, 0), "");
    EXPECT_EQ(Label("lblCount_3"), "");
    EXPECT_FALSE(IsEnabled("cmdDrop"));
}

TEST_F(FormF4Test, LeavingThePage_EndsTheRunAndKeepsItsRows)
{
    ShowPage();
    Record(3);
    window.UnloadPage();
    EXPECT_FALSE(port.isOpen);
    EXPECT_FALSE(IsProjectDbOpen());
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "3");
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    window.UnloadAndOpen(4);
    EXPECT_EQ(Cell("flxvalues", 2, 0), "230") << "the stored sets are there again";
    EXPECT_TRUE(IsEnabled("cmdDrop"));
}

TEST_F(FormF4Test, ClosingTheWindowInMidRun_AsksAndTheRecordingGoesOnAfterNo)
{
    ShowPage();
    Record(3);
    shell.answers = {Answer::No};
    EXPECT_FALSE(window.close());
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text, "Messung läuft ...\nSoll sie beendet und das Programm geschlossen werden?");
    EXPECT_EQ(shell.boxes[0].preset, Answer::No);
    EXPECT_TRUE(port.isOpen);
    EXPECT_EQ(PageName(), "FormF4");
    Poll();
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "4");
}

TEST_F(FormF4Test, ClosingTheWindowInMidRun_EndsTheRunFirstAfterYes)
{
    ShowPage();
    Record(3);
    shell.answers = {Answer::Yes, Answer::No};
    window.close();
    EXPECT_FALSE(port.isOpen);
    EXPECT_EQ(QueryFile(PathOf("test.MDB"), "SELECT count(*) FROM SampledValues"), "3");
    EXPECT_NE(QueryFile(PathOf("test.MDB"), "SELECT Text FROM Overview WHERE Name='Measurement Term'"), "");
}

TEST_F(FormF4Test, ClosingTheWindowWithoutARunAsksNothingOfIt)
{
    ShowPage();
    App().bProjectDirty = false;
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF4Test, FailureInATick_IsReportedOnceAndEndsTheRun)
{
    ShowPage();
    Record(1);
    port.answer = [](const QByteArray&) -> QByteArray { throw std::runtime_error("unforeseen"); };
    Poll();
    Poll();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains("unforeseen"));
    EXPECT_EQ(Find<QPushButton>("cmdSTART").text(), "START Messung");
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(FormF4Test, PlannedRecordings_StandBesideTheCurves)
{
    const QDateTime start(QDate(2026, 3, 14), QTime(16, 0), Qt::UTC);
    ASSERT_FALSE(schedule.Add({StartMode::Timed, StopMode::Timed, start, start.addSecs(60), 60}, 0));
    ShowPage();
    EXPECT_EQ(Find<QTableWidget>("flxTimeControl").rowCount(), 1);
    Press("cmdSTART");
    FireTimer();
    EXPECT_EQ(Label("lblCountdown"), "Auto-START in: 00:50:34");
    EXPECT_FALSE(Find<QLabel>("picTimer").isHidden());
    EXPECT_EQ(Find<QPushButton>("cmdSTART").text(), "START Messung");
    Press("cmdSTART");
    EXPECT_EQ(Label("lblCountdown"), "");
}

} // namespace
} // namespace korvanel::test
