// The page of the result tables: when it evaluates, what it shows, its dialogs, what stays chosen.
#include "evaluation/FormF6.h"

#include "support/ResultPageFixture.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace korvanel::test {
namespace {

class FormF6Test : public ResultPageTest
{
protected:
    QTabWidget& Tabs() { return Find<QTabWidget>("TabEvaluation"); }
    QString TabKeys()
    {
        QString keys;
        for (int i = 0; i < Tabs().count(); ++i)
            keys += Tabs().widget(i)->objectName().back();
        return keys;
    }
    QString ShownKey() { return Tabs().currentWidget()->objectName().right(1); }
    QCheckBox& Panel(int index) { return Find<QCheckBox>(index == 0 ? "chkValue_0" : "chkValue_1"); }
    QTableWidget& List() { return Find<QTableWidget>("flxValues"); }
    void Press(const char* button) { Find<QPushButton>(button).click(); }

    /// Whether the page shows other values than those that a marker of the test left in the results.
    void MarkResults() { App().MachineI.evaluation.tExtremMax[kU] = {12340, 77}; }
    bool IsMarkShown()
    {
        return Cell("flxExtrem", 1, 4) == QLatin1String("12,34 kV") && Cell("flxExtrem", 1, 5) == QLatin1String("77");
    }
    /// Goes through the dialog of the time window.
    void ChooseWindow(const QString& minutes, const char* button)
    {
        WithNextDialog<QDialog>([=](QDialog& dialog) {
            EXPECT_EQ(dialog.objectName(), "FormH9");
            EXPECT_TRUE(dialog.isModal());
            ControlOf<QLineEdit>(dialog, "txtTime_1").setText(minutes);
            ControlOf<QPushButton>(dialog, button).click();
        });
        Press("cmdOptions_2");
    }
    void FindSetBy(const QString& number)
    {
        WithNextDialog<QDialog>([=](QDialog& dialog) {
            EXPECT_EQ(dialog.objectName(), "FormH15");
            EXPECT_TRUE(dialog.isModal());
            ControlOf<QLineEdit>(dialog, "txtSet").setText(number);
            ControlOf<QPushButton>(dialog, "cmdOK").click();
        });
        Press("cmdSet");
    }
};

TEST_F(FormF6Test, Tabs_FollowTheNetConfiguration)
{
    const char* const keys[] = {"ABC", "ABC", "ABCDE", "ABC", "ABC", "ABCDE", "AB"};
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        OpenProjectOf(netConf);
        EnterPage();
        EXPECT_EQ(TabKeys(), keys[netConf]) << netConf;
        window.UnloadPage();
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF6Test, TextsOfThePage_AreToldToTheLetter)
{
    OpenProjectOf(2);
    EnterPage();
    EXPECT_EQ(window.PageOnShow()->windowTitle(), "Messgerät - Auswertung tabellarisch");
    EXPECT_EQ(Panel(0).text(), "&Auswertung");
    EXPECT_EQ(Panel(1).text(), " &Messwertetabelle");
    EXPECT_EQ(Find<QPushButton>("cmdExcel").text(), "Excel/ASCII E&xport");
    EXPECT_EQ(Find<QPushButton>("cmdSet").text(), "Satz suchen");
    EXPECT_EQ(Tabs().tabText(0), "Übersicht");
    EXPECT_EQ(Tabs().tabText(3), "ASM - Auslastung");
    EXPECT_EQ(HeadsOf("flxExtrem"), (QStringList{"Größe", "", "Minimum", "Satz", "Maximum", "Satz"}));
    EXPECT_EQ(HeadsOf("flxEnergy"), (QStringList{"Größe", "", "(+)", "(-)", "Gesamt"}));
    EXPECT_EQ(HeadsOf("flxASM"), (QStringList{"Größe", "", "Maximum", "Realtiv", "Satz", "Eignung (S1-Betrieb)"}));
}

TEST_F(FormF6Test, Entering_EvaluatesTheRecording)
{
    OpenProjectOf(2);
    std::vector<tValueRow> rows{WorkingSet(10, 9000, 50, 8000), WorkingSet(30, 18000, 110, 17000),
                                WorkingSet(20, 12000, -400, 11000)};
    rows[1].bEdit = 255;
    Store(rows);
    EnterPage();
    EXPECT_TRUE(App().bEvaluated);
    EXPECT_EQ(Cell("flxExtrem", 2, 0), "I");
    EXPECT_EQ(Cell("flxExtrem", 2, 2), "10 A");
    EXPECT_EQ(Cell("flxExtrem", 2, 3), "1");
    EXPECT_EQ(Cell("flxExtrem", 2, 4), "30 A");
    EXPECT_EQ(Cell("flxExtrem", 2, 5), "2");
    EXPECT_EQ(Cell("flxExtrem", 15, 1), "rms") << "I, sqrt((100 + 900 + 400) / 3)";
    EXPECT_EQ(Cell("flxExtrem", 15, 2), "21,602 A");
    EXPECT_EQ(Cell("flxExtrem", 15, 3), "1 - 3");
    EXPECT_EQ(Cell("flxEnergy", 1, 2), "8,333 Wh") << "(18000 + 12000) Ws, the first set counts for nothing";
    EXPECT_EQ(Cell("flxASM", 1, 2), "400 Nm");
    EXPECT_EQ(Cell("flxASM", 1, 3), "106,81 % (M kipp)");
    EXPECT_EQ(Cell("flxASM", 1, 4), "3");
    EXPECT_EQ(Cell("flxASM", 1, 5), "schlecht");
    EXPECT_EQ(Cell("flxASM", 9, 4), "1 - 3");
    EXPECT_EQ(Label("lblCorrected"), "* korregierte Datensätze, Anzahl: 1");
    EXPECT_EQ(Label("lblCycles"), "Messzyklen: 10");
    EXPECT_EQ(Label("lblTWindow"), "Zeitfenster: 00:15:00");
    EXPECT_EQ(List().item(1, 0)->text(), "2*");
}

TEST_F(FormF6Test, Entering_WithResultsInHandRunsNoPass)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    EnterPage();
    MarkResults();
    window.UnloadPage();
    EnterPage();
    EXPECT_TRUE(IsMarkShown());
}

TEST_F(FormF6Test, Refreshing_ShowsTheResultsInHand)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    EnterPage();
    MarkResults();
    App().bEvaluated = 0;
    window.RefreshPage();
    EXPECT_TRUE(IsMarkShown()) << "what is out of date is shown until the next entry";
    EXPECT_FALSE(App().bEvaluated);
    EnterPage();
    EXPECT_FALSE(IsMarkShown());
    EXPECT_TRUE(App().bEvaluated);
}

TEST_F(FormF6Test, LongRecording_IsEvaluatedOnceWithItsProgressShown)
{
    OpenProjectOf(0);
    StoreNumbered(1500); // the progress refreshes the page when it ends
    EnterPage();
    EXPECT_TRUE(App().bEvaluated);
    EXPECT_EQ(Cell("flxExtrem", 2, 4), "1500 A");
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF6Test, WhatIsPressedDuringThePass_IsDropped)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    QCoreApplication::postEvent(&window, new QCloseEvent);
    EnterPage();
    QCoreApplication::processEvents();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(PageName(), "FormF6");
}

TEST_F(FormF6Test, WithoutSets_TheTablesAreEmptyAndHeadsAndButtonsStay)
{
    OpenProjectOf(2);
    EnterPage();
    for (const char* table : {"flxExtrem", "flxEnergy", "flxASM"})
        EXPECT_EQ(Find<QTableWidget>(table).rowCount(), 0) << table;
    EXPECT_EQ(HeadsOf("flxEnergy").size(), 5);
    EXPECT_EQ(Label("lblTWindow"), "Zeitfenster: 00:15:00");
    EXPECT_EQ(Label("lblCorrected"), "* korregierte Datensätze, Anzahl: 0");
    for (const char* button : {"cmdOptions_1", "cmdOptions_2", "cmdExcel", "cmdSet", "cmdBack", "cmdForw"})
        EXPECT_TRUE(Find<QPushButton>(button).isEnabled()) << button;
    EXPECT_FALSE(List().selectionModel()->hasSelection()) << "no set, none selected";
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF6Test, FailedPass_IsToldAndLeavesEmptyTables)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    EnterPage();
    window.UnloadPage();
    App().bEvaluated = 0;
    App().dInterval = 0;
    EnterPage();
    EXPECT_EQ(PageName(), "FormF6");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Find<QTableWidget>("flxExtrem").rowCount(), 0);
    EXPECT_EQ(Find<QTableWidget>("flxEnergy").rowCount(), 0);
    EXPECT_FALSE(App().bEvaluated);
    EXPECT_EQ(List().item(2, 0)->text(), "3") << "the sets are there all the same";
    App().dInterval = 1;
    EnterPage();
    EXPECT_EQ(Cell("flxExtrem", 2, 4), "3 A") << "the next entry tries again";
}

TEST_F(FormF6Test, FileThatWent_IsToldOnceByTheList)
{
    OpenProjectOf(0);
    StoreNumbered(30);
    EnterPage();
    window.UnloadPage();
    ASSERT_TRUE(QFile::rename(App().sProjectPath, PathOf("fort.MDB")));
    EnterPage();
    QCoreApplication::processEvents(); // the list gets its size
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Cell("flxExtrem", 2, 4), "30 A") << "the results in hand stay";
    ASSERT_TRUE(QFile::rename(PathOf("fort.MDB"), App().sProjectPath));
    window.RefreshPage();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(List().item(2, 0)->text(), "3");
    EXPECT_EQ(List().item(List().rowCount() - 1, 0)->text(), QString::number(List().rowCount()));
}

TEST_F(FormF6Test, UnreadableTables_AreToldAndThePageAppears)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    Execute("DROP TABLE ComputedValues");
    EnterPage();
    EXPECT_EQ(PageName(), "FormF6");
    EXPECT_EQ(shell.boxes.size(), 2U) << "the pass and the list each tell once";
    EXPECT_FALSE(App().bEvaluated);
    EXPECT_EQ(Find<QTableWidget>("flxExtrem").rowCount(), 0);
}

TEST_F(FormF6Test, TimeWindow_ChangesTheHeadingAtOnceAndTheValuesAtTheNextEntry)
{
    OpenProjectOf(0);
    StoreNumbered(100);
    EnterPage();
    EXPECT_EQ(Cell("flxExtrem", 11, 2), "58,168 A") << "rms of 1 to 100, the whole recording";
    ChooseWindow(QStringLiteral("1"), "cmdOK");
    EXPECT_EQ(Label("lblTWindow"), "Zeitfenster: 00:01:00");
    EXPECT_EQ(Cell("flxExtrem", 11, 2), "58,168 A");
    EXPECT_EQ(Cell("flxExtrem", 11, 3), "1 - 100");
    EXPECT_FALSE(App().bEvaluated);
    EXPECT_TRUE(Find<QLabel>("lblOutdated").isVisible());
    EXPECT_EQ(Label("lblOutdated"), "Ergebnisse veraltet");
    EXPECT_EQ(App().MachineI.evaluation.sWindow, "00:15:00") << "that of the values";
    EnterPage();
    EXPECT_FALSE(Find<QLabel>("lblOutdated").isVisible());
    EXPECT_EQ(App().MachineI.evaluation.sWindow, "00:01:00");
    EXPECT_EQ(Cell("flxExtrem", 11, 2), "35,651 A") << "rms of 1 to 61";
    EXPECT_EQ(Cell("flxExtrem", 11, 3), "1 - 61");
    EXPECT_EQ(Cell("flxExtrem", 11, 5), "40 - 100");
}

TEST_F(FormF6Test, Gaps_StandInTheOverviewAndBelowTheEnergies)
{
    OpenProjectOf(0);
    StoreNumbered(10);
    Execute("UPDATE SampledValues SET t = t + 30 WHERE [Set] > 4");
    EnterPage();
    EXPECT_EQ(Label("lblGaps"), "Lücken: 1, Abdeckung 25 %");
    EXPECT_EQ(Label("lblEnergyGaps"), "Lücken: 1, Abdeckung 25 %");
}

TEST_F(FormF6Test, TimeWindow_CancelledChangesNothing)
{
    OpenProjectOf(0);
    StoreNumbered(3);
    EnterPage();
    ChooseWindow(QStringLiteral("1"), "cmdAbort");
    EXPECT_EQ(Label("lblTWindow"), "Zeitfenster: 00:15:00");
    EXPECT_TRUE(App().bEvaluated);
}

TEST_F(FormF6Test, TimeWindow_OfTheTimeConstantIsToldAsItsFactor)
{
    settings->SetTWindowSelection(1);
    settings->SetTWindowFactor(2.5);
    OpenProjectOf(2);
    EnterPage();
    EXPECT_EQ(Label("lblTWindow"), "Zeitfenster: 2,5 * Tth");
}

TEST_F(FormF6Test, Options_ChangeTheHeadingsAtOnceAndTheCostsAtTheNextEntry)
{
    OpenProjectOf(0);
    Store(std::vector<tValueRow>(3601, WorkingSet(10, 10000, 0, 0))); // 10 kWh
    EnterPage();
    EXPECT_EQ(Cell("flxEnergy", 7, 2), "1,5 €");
    EXPECT_EQ(Cell("flxEnergy", 9, 0), "Energie für 10 Messzyklen");
    WithNextDialog<QDialog>([](QDialog& dialog) {
        EXPECT_EQ(dialog.objectName(), "FormH10");
        EXPECT_TRUE(dialog.isModal());
        ControlOf<QLineEdit>(dialog, "txtKosten_0").setText(QStringLiteral("0,2"));
        ControlOf<QLineEdit>(dialog, "txtWaehrung").setText(QStringLiteral("$"));
        ControlOf<QLineEdit>(dialog, "txtZyklen").setText(QStringLiteral("3"));
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    Press("cmdOptions_1");
    EXPECT_EQ(Cell("flxEnergy", 7, 2), "1,5 €");
    EXPECT_EQ(Cell("flxEnergy", 9, 0), "Energie für 3 Messzyklen");
    EXPECT_EQ(Cell("flxEnergy", 10, 2), "100 kWh");
    EXPECT_EQ(Label("lblCycles"), "Messzyklen: 3");
    EnterPage();
    EXPECT_EQ(Cell("flxEnergy", 7, 2), "2 $");
    EXPECT_EQ(Cell("flxEnergy", 10, 2), "30 kWh");
}

TEST_F(FormF6Test, Panels_AreNeverBothOff)
{
    OpenProjectOf(0);
    EnterPage();
    EXPECT_TRUE(Tabs().isVisible());
    EXPECT_TRUE(List().isVisible());
    Panel(0).click();
    EXPECT_FALSE(Tabs().isVisible());
    EXPECT_TRUE(List().isVisible());
    Panel(1).click();
    EXPECT_TRUE(Panel(1).isChecked()) << "the last one is turned on again";
    EXPECT_TRUE(List().isVisible());
    Panel(0).click();
    Panel(1).click();
    EXPECT_TRUE(Tabs().isVisible());
    EXPECT_FALSE(List().isVisible());
    Panel(0).click();
    EXPECT_TRUE(Panel(0).isChecked());
}

TEST_F(FormF6Test, WhatWasChosen_IsThereAgainAtTheNextEntry)
{
    OpenProjectOf(2);
    StoreNumbered(200);
    EnterPage();
    Tabs().setCurrentIndex(3);
    Panel(0).click();
    Find<QScrollBar>("ScrollFlex").setValue(120);
    window.UnloadAndOpen(kPageGeneralData);
    EnterPage();
    EXPECT_EQ(ShownKey(), "D");
    EXPECT_FALSE(Panel(0).isChecked());
    EXPECT_TRUE(Panel(1).isChecked());
    EXPECT_FALSE(Tabs().isVisible());
    EXPECT_EQ(List().item(0, 0)->text(), "121");
}

TEST_F(FormF6Test, TabThatIsNotThere_IsReplacedByTheFirst)
{
    OpenProjectOf(2);
    EnterPage();
    Tabs().setCurrentIndex(3);
    window.UnloadPage();
    QFile::remove(App().sProjectPath);
    OpenProjectOf(0);
    EnterPage();
    EXPECT_EQ(ShownKey(), "A");
}

TEST_F(FormF6Test, AnotherProject_BeginsAtItsFirstSet)
{
    OpenProjectOf(0);
    StoreNumbered(200);
    EnterPage();
    Find<QScrollBar>("ScrollFlex").setValue(120);
    window.UnloadPage();
    QFile::remove(App().sProjectPath);
    OpenProjectOf(0);
    StoreNumbered(200);
    EnterPage();
    EXPECT_EQ(List().item(0, 0)->text(), "1");
}

TEST_F(FormF6Test, FindSet_MakesItTheCurrentOneAndShowsItInTheMiddle)
{
    OpenProjectOf(0);
    StoreNumbered(200);
    EnterPage();
    FindSetBy(QStringLiteral("100"));
    EXPECT_EQ(App().iCurrentSet, 100);
    const int middle = List().rowCount() / 2 - 1;
    EXPECT_EQ(List().item(middle, 0)->text(), "100");
    EXPECT_TRUE(List().selectionModel()->isRowSelected(middle, {}));
    FindSetBy(QStringLiteral("999"));
    EXPECT_EQ(App().iCurrentSet, 200);
    EXPECT_EQ(List().item(List().rowCount() - 1, 0)->text(), "200");
}

TEST_F(FormF6Test, FindSet_BringsTheListBack)
{
    OpenProjectOf(0);
    StoreNumbered(20);
    EnterPage();
    Panel(1).click();
    FindSetBy(QStringLiteral("10"));
    EXPECT_TRUE(List().isVisible());
    EXPECT_TRUE(Panel(1).isChecked());
}

TEST_F(FormF6Test, CurrentSet_IsSelectedOnEntering)
{
    OpenProjectOf(0);
    StoreNumbered(20);
    App().iCurrentSet = 2;
    EnterPage();
    EXPECT_TRUE(List().selectionModel()->isRowSelected(1, {}));
    EXPECT_EQ(List().selectionModel()->selectedRows().size(), 1);
}

TEST_F(FormF6Test, ClickInTheList_MakesTheCurrentSet)
{
    OpenProjectOf(0);
    StoreNumbered(20);
    EnterPage();
    List().setCurrentCell(2, 2);
    EXPECT_EQ(App().iCurrentSet, 3);
}

TEST_F(FormF6Test, List_TakesItsColoursFromTheRatings)
{
    OpenProjectOf(2);
    std::vector<tValueRow> rows(3, WorkingSet(10, 9000, 50, 8000));
    rows[1].dU[kSum] = 370; // 92.5 % of 400 V
    rows[2].deta = 1;
    Store(rows);
    EnterPage();
    const auto colourOf = [this](int row, int column) { return List().item(row, column)->foreground().color(); };
    const QColor good(0, 192, 0);
    const QColor medium(251, 157, 0);
    const QColor bad(192, 0, 0);
    const int verdict = static_cast<int>(HeadsOf("flxValues").indexOf(QStringLiteral("Modell")));
    const int eta = static_cast<int>(HeadsOf("flxValues").indexOf(QStringLiteral("eta")));
    EXPECT_EQ(colourOf(0, 2), good);
    EXPECT_EQ(colourOf(1, 2), medium);
    EXPECT_EQ(List().item(0, 3)->foreground().style(), Qt::NoBrush) << "the current has no rating";
    EXPECT_EQ(colourOf(2, eta), bad);
    const QStringList words{"gut", "mittel", "schlecht"};
    const QColor verdictColours[] = {good, medium, bad};
    for (int row = 0; row < 3; ++row) {
        EXPECT_EQ(List().item(row, verdict)->text(), words[row]);
        EXPECT_EQ(colourOf(row, verdict), verdictColours[row]);
    }
}

TEST_F(FormF6Test, Export_IsWhatTheProgramHasBound)
{
    OpenProjectOf(0);
    EnterPage();
    Press("cmdExcel");
    EXPECT_EQ(exports, 1);
}

TEST_F(FormF6Test, PathLeadsOn)
{
    OpenProjectOf(0);
    EnterPage();
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF8");
}

} // namespace
} // namespace korvanel::test
