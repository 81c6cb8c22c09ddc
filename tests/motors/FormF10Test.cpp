#include "motors/FormF10.h"

#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "motors/MachinePageFixture.h"

#include <QLayout>

namespace korvanel::test {
namespace {

class FormF10Test : public MachinePageTest
{
};

const QString kMissing = QStringLiteral("Diese ASM-Maschine ist nicht in der aktiven Datenbank verzeichnet.");

// The page as it opens.

TEST_F(FormF10Test, HasItsTabsControlsAndTexts)
{
    ShowPage();
    EXPECT_EQ(PageName(), "FormF10");
    EXPECT_EQ(window.PageOnShow()->windowTitle(), "Motor/Generator - Datenbank");
    EXPECT_EQ(Find<QTabWidget>("tabAsync").count(), 3);
    const std::pair<const char*, const char*> captions[] = {
        {"cmdEdit_0", "Neu"},
        {"cmdEdit_1", "Bearbeiten"},
        {"cmdEdit_2", "Löschen"},
        {"cmdInsert_0", "Übernehmen"},
        {"cmdInsert_1", "Abbrechen"},
        {"cmdSearchWin", "Suchen..."},
        {"cmdDatabase", "Datenbank..."},
        {"cmdInfo_0", "Schaltung"},
        {"cmdInfo_1", "Info..."},
        {"cmdSetup", "Selbstdiagnose"},
        {"cmdNoLoad", "Leerlaufdaten ermitteln"},
    };
    for (const auto& [name, text] : captions)
        EXPECT_EQ(Find<QPushButton>(name).text(), text);
    EXPECT_EQ(Find<QRadioButton>("optGenerator_0").text(), "Motor");
    EXPECT_EQ(Find<QRadioButton>("optGenerator_1").text(), "Generator");
    EXPECT_EQ(Find<QCheckBox>("chkOnline").text(), "Über Schnittstelle ermitteln");
    EXPECT_EQ(Find<QCheckBox>("chkReibM").text(), "gegen Null setzen");
    for (int i = 0; i < kKnowledgeCount; ++i)
        EXPECT_EQ(Find<QCheckBox>(("chkstatus_" + QByteArray::number(i)).constData()).text(), "bekannt");
    EXPECT_EQ(Find<QComboBox>("cboPPZ").count(), 10);
    EXPECT_EQ(Find<QComboBox>("cboPPZ").itemText(9), "10");
    EXPECT_EQ(Find<QComboBox>("cboWaermKlasse").count(), 4);
}

TEST_F(FormF10Test, EveryTabFitsIntoThePage)
{
    ShowPage();
    Find<QCheckBox>("chkOnline").setChecked(true);
    for (int i = 0; i < 3; ++i) {
        ShowTab(i);
        QApplication::processEvents();
        const QSize needed = window.PageOnShow()->layout()->minimumSize();
        EXPECT_LE(needed.width(), kPageWidth) << i;
        EXPECT_LE(needed.height(), kPageHeight) << i;
        for (const QAbstractButton* button : window.PageOnShow()->findChildren<QAbstractButton*>()) {
            const bool fits = !button->isVisible() || button->text().size() < 3 ||
                              button->width() >= button->minimumSizeHint().width();
            EXPECT_TRUE(fits) << button->text().toStdString();
        }
        for (const QLabel* label : window.PageOnShow()->findChildren<QLabel*>()) {
            const bool fits = !label->isVisible() || label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored ||
                              label->width() >= label->minimumSizeHint().width();
            EXPECT_TRUE(fits) << label->text().toStdString();
        }
    }
}

TEST_F(FormF10Test, List_HasTheColumnHeadsAndTheFixedOrder)
{
    ShowPage();
    auto& grid = Find<QTableWidget>("GridBemess");
    QStringList heads;
    for (int i = 0; i < grid.columnCount(); ++i)
        heads << grid.horizontalHeaderItem(i)->text().split('\n').first();
    heads.removeAll(QString());
    for (const char* head : {"Bemessungsdaten", "Leerlaufdaten", "Polpaare", "Kenngrößen", "Ständerwiderstand",
                             "Kipp-/Nennmoment", "Erwärmungszeitkonstante", "Wärmebeständigkeitsklasse", "Gewicht"})
        EXPECT_TRUE(heads.contains(head)) << head;
    ASSERT_EQ(grid.rowCount(), 3);
    EXPECT_EQ(grid.item(0, 1)->text(), "7,5");
    EXPECT_EQ(grid.item(1, 1)->text(), "18,5");
    EXPECT_EQ(grid.item(2, 1)->text(), "-5,5");
}

TEST_F(FormF10Test, NewProject_BeginsWithTheFirstMachineOfTheList)
{
    ShowPage();
    EXPECT_EQ(Label("BrowseBemess"), "1/3");
    EXPECT_EQ(Rating(), kRated);
    EXPECT_EQ(Line("txtComment"), "Werk B");
    EXPECT_EQ(App().MachineI.record.set_ID, 2);
    EXPECT_TRUE(App().bModelValid);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF10Test, StatusBar_ShowsTheDatabaseWhileThePageIsOnShow)
{
    ShowPage();
    EXPECT_EQ(Label("lblPanel_3"), "Datenbank: MOTORS.MDB");
    window.UnloadAndOpen(kPageNetConfiguration);
    EXPECT_EQ(Label("lblPanel_3"), "");
}

TEST_F(FormF10Test, Null_IsEmptyUncheckedAndDisabled)
{
    ShowPage();
    EXPECT_EQ(NoLoad(), QStringList({"", "", "", ""}));
    EXPECT_FALSE(IsChecked("chkstatus_1"));
    for (const char* name : {"txtLeerlauf_0", "txtStaender", "txtMoment", "txtErwaerm", "txtMasse", "cboSchaltung"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_EQ(Chosen("cboSchaltung"), "");
    EXPECT_EQ(Chosen("cboPPZ"), "2");
}

TEST_F(FormF10Test, Browse_LeadsThroughTheListAndShowsEachMachine)
{
    ShowPage();
    Press("cmdBrowse_2");
    EXPECT_EQ(Label("BrowseBemess"), "2/3");
    EXPECT_EQ(Rating(), kKnownRating);
    EXPECT_EQ(NoLoad(), QStringList({"0,6478", "400", "11", "50"}));
    EXPECT_EQ(Line("txtErwaerm"), "30");
    EXPECT_EQ(Chosen("cboWaermKlasse"), "F");
    EXPECT_EQ(App().MachineI.record.set_ID, 1);
    Press("cmdBrowse_3");
    EXPECT_EQ(Label("BrowseBemess"), "3/3");
    EXPECT_TRUE(IsChecked("optGenerator_1"));
    Press("cmdBrowse_2");
    EXPECT_EQ(Label("BrowseBemess"), "3/3") << "there is no next one";
    Press("cmdBrowse_1");
    EXPECT_EQ(Label("BrowseBemess"), "2/3");
    Press("cmdBrowse_0");
    EXPECT_EQ(Label("BrowseBemess"), "1/3");
    Press("cmdBrowse_1");
    EXPECT_EQ(Label("BrowseBemess"), "1/3") << "there is no previous one";
}

TEST_F(FormF10Test, Browse_ByTheGrid)
{
    ShowPage();
    auto& grid = Find<QTableWidget>("GridBemess");
    grid.setCurrentCell(2, 0);
    EXPECT_EQ(Label("BrowseBemess"), "3/3");
    EXPECT_EQ(App().MachineI.record.set_ID, 3);
    Press("cmdBrowse_0");
    EXPECT_EQ(grid.currentRow(), 0) << "the grid follows";
}

TEST_F(FormF10Test, ProjectMachine_IsFoundInTheList)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdEdit_1");
    Press("cmdInsert_0"); // torque and efficiency as the model has them
    window.UnloadAndOpen(kPageNetConfiguration);
    ShowPage();
    EXPECT_EQ(Label("BrowseBemess"), "2/3");
    EXPECT_TRUE(shell.boxes.empty()) << "everything is known of it, and it is there";
}

TEST_F(FormF10Test, ProjectMachine_WithAnythingUnknownIsNeverFoundAndAddedOnYes)
{
    ShowPage();
    window.UnloadAndOpen(kPageNetConfiguration);
    shell.answers = {Answer::Yes};
    ShowPage();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("'Werk B'\n" + kMissing));
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "4");
    EXPECT_EQ(App().MachineI.record.set_ID, 4);
    EXPECT_TRUE(Label("BrowseBemess").endsWith("/4"));
    EXPECT_TRUE(App().bModelValid);
}

TEST_F(FormF10Test, ProjectMachine_ThatIsNotAddedStaysWithoutAPlaceAndInvalid)
{
    ShowPage();
    window.UnloadAndOpen(kPageNetConfiguration);
    shell.answers = {Answer::No};
    ShowPage();
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "3");
    EXPECT_EQ(Label("BrowseBemess"), "0/3");
    EXPECT_EQ(Rating(), kRated) << "it is still the project's";
    EXPECT_FALSE(App().bModelValid);
    EXPECT_FALSE(IsEnabled("cmdEdit_1"));
    EXPECT_FALSE(IsEnabled("cmdEdit_2"));
    Press("cmdBrowse_1");
    EXPECT_EQ(Label("BrowseBemess"), "3/3") << "from behind the list";
    EXPECT_TRUE(App().bModelValid);
}

TEST_F(FormF10Test, MissingDatabase_IsToldAndThePageSaysThatNoneIsOpen)
{
    App().sMotorDbPath = PathOf("none.MDB");
    ShowPage();
    EXPECT_EQ(PageName(), "FormF10");
    ASSERT_EQ(shell.boxes.size(), 1U) << "told once";
    EXPECT_TRUE(shell.boxes[0].text.endsWith("none.MDB"));
    EXPECT_FALSE(Find<QLabel>("lblNoDatabase").isHidden());
    EXPECT_EQ(Label("lblNoDatabase"), "Es ist keine Datenbank geöffnet.");
    EXPECT_EQ(Label("BrowseBemess"), "0/0");
    for (const char* name : {"cmdEdit_0", "cmdEdit_1", "cmdEdit_2", "cmdInsert_0", "cmdSearchWin", "cmdBrowse_0"})
        EXPECT_FALSE(IsEnabled(name)) << name;
    EXPECT_TRUE(IsEnabled("cmdDatabase"));
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(shell.boxes.size(), 1U) << "an empty machine isn't put into the project";
}

TEST_F(FormF10Test, DatabaseWithoutRows_ShowsAnEmptyListAndTakesANewMachine)
{
    ExecuteMotors("DELETE FROM Motor");
    ShowPage();
    EXPECT_EQ(Label("BrowseBemess"), "0/0");
    EXPECT_TRUE(Find<QLabel>("lblNoDatabase").isHidden());
    Press("cmdEdit_0");
    EnterRating(kRated);
    Press("cmdInsert_0");
    EXPECT_EQ(Label("BrowseBemess"), "1/1");
    EXPECT_EQ(Motors("SELECT set_ID FROM Motor"), "1");
}

// Search, database, dialogs.

/// Lets a routine work on the next modal window.
template <typename Routine>
void InDialog(Routine routine)
{
    QTimer::singleShot(0, [routine] {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        routine(*dialog);
    });
}

TEST_F(FormF10Test, Search_ShortensTheListUntilAllAreShownAgain)
{
    ShowPage();
    const auto search = [this](const QStringList& texts) {
        InDialog([texts](QWidget& dialog) {
            EXPECT_EQ(dialog.objectName(), "FormH6");
            for (int i = 0; i < 3; ++i)
                dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch_%1").arg(i))->setText(texts[i]);
            dialog.findChild<QPushButton*>("cmdSearch")->click();
        });
        Press("cmdSearchWin");
    };
    EXPECT_FALSE(IsEnabled("cmdShowAll"));
    search({"2", "10", "400"});
    EXPECT_EQ(Label("BrowseBemess"), "1/1");
    EXPECT_EQ(Rating(), kKnownRating);
    EXPECT_TRUE(shell.boxes.empty());
    search({"4", "10", "400"});
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Keine Datensätze gefunden!"});
    EXPECT_EQ(Label("BrowseBemess"), "1/1") << "the list stays";
    Press("cmdShowAll");
    EXPECT_EQ(Label("BrowseBemess"), "1/3");
}

TEST_F(FormF10Test, Search_ANewMachineIsShownThoughTheFilterLeavesItOut)
{
    ShowPage();
    InDialog([](QWidget& dialog) {
        const char* texts[] = {"2", "10", "400"};
        for (int i = 0; i < 3; ++i)
            dialog.findChild<QLineEdit*>(QStringLiteral("txtSearch_%1").arg(i))->setText(texts[i]);
        dialog.findChild<QPushButton*>("cmdSearch")->click();
    });
    Press("cmdSearchWin");
    Press("cmdEdit_0");
    EnterRating({"0,75", "230", "50", "2850", "3,1", "0,82"});
    Press("cmdInsert_0");
    EXPECT_EQ(Label("BrowseBemess"), "1/4");
    EXPECT_EQ(Line("txtBemess_0"), "0,75");
}

TEST_F(FormF10Test, Dialogs_OfModelWiringAndDatabase)
{
    ShowPage();
    Find<QCheckBox>("chkOnline").setChecked(true);
    const std::pair<const char*, const char*> dialogs[] = {
        {"cmdInfo_0", "FormH7"}, {"cmdInfo_1", "FormH8"}, {"cmdDatabase", "FormH11"}};
    for (const auto& [button, name] : dialogs) {
        QString shown;
        InDialog([&shown](QWidget& dialog) {
            shown = dialog.objectName();
            dialog.close();
        });
        Press(button);
        EXPECT_EQ(shown, name);
    }
    EXPECT_EQ(Label("BrowseBemess"), "1/3");
}

TEST_F(FormF10Test, Refresh_AfterTheDatabaseWasChangedShowsTheOther)
{
    ShowPage();
    Press("cmdEdit_1");
    QFile::copy(App().sMotorDbPath, PathOf("OTHER.MDB"));
    App().sMotorDbPath = PathOf("OTHER.MDB");
    ExecuteMotors("DELETE FROM Motor WHERE set_ID = 3");
    window.RefreshPage();
    EXPECT_EQ(Label("BrowseBemess"), "1/2");
    EXPECT_EQ(Label("lblPanel_3"), "Datenbank: OTHER.MDB");
    EXPECT_FALSE(IsEnabled("cmdInsert_0")) << "what was edited was a row of the other file";
}

// Leaving.

TEST_F(FormF10Test, Leave_PutsTheMachineIntoTheProject)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(Query("SELECT count(*) FROM Motor"), "1");
    EXPECT_EQ(Query("SELECT Pmech||'|'||Hersteller FROM Motor WHERE set_ID = 1"), "18.5|Werk A");
    EXPECT_TRUE(App().bMotorDbCheck);
}

TEST_F(FormF10Test, Leave_EstimatesAllSetsAnewForAnotherMachine)
{
    OpenInWindow(2);
    App().iGridRows[kProgressThresholdEntry] = 0; // the progress ends in a refresh of the page that is being left
    {
        const ProjectDbScope scope;
        tMeasuredRow& row = App().MeasuredRow;
        row = {};
        // The rating point of "Werk B": sqrt(3) 400 14.43 0.83 = 8297.9 W.
        row.dU[kSum] = 400;
        row.dI[kSum] = 14.43;
        row.df = 50;
        row.dP[kSum] = 8297.9;
        for (row.lSet = 1; row.lSet <= 3; ++row.lSet)
            ASSERT_TRUE(AppendMeasuredRow());
    }
    RefreshSetCount();
    ShowPage();
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_NEAR(Query("SELECT min(n) FROM ComputedValues").toDouble(), 1472, 0.1);
    EXPECT_NEAR(Query("SELECT max(M) FROM ComputedValues").toDouble(), 48.65, 0.1);
    shell.answers = {Answer::No};
    ShowPage();
    Press("cmdBrowse_0");
    Press("cmdBrowse_2");
    Press("cmdForw");
    EXPECT_GT(Query("SELECT min(n) FROM ComputedValues").toDouble(), 1480) << "a larger machine runs faster";
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(FormF10Test, Leave_DropsWhatWasBeingEdited)
{
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_0", "99");
    window.UnloadAndOpen(kPageGeneralData);
    EXPECT_EQ(App().MachineI.record.Pmech, 7500);
    EXPECT_EQ(Query("SELECT Pmech FROM Motor WHERE set_ID = 1"), "7.5");
}

TEST_F(FormF10Test, Leave_AdjustsTheMethodToWhatIsKnown)
{
    ShowPage();
    App().iCalcMethod = 0;
    Press("cmdForw");
    EXPECT_EQ(App().iCalcMethod, 1) << "no connection is known";
    EXPECT_EQ(Query("SELECT [Number] FROM [Settings] WHERE [Name]='iCalcMethod'"), "1") << "and saved";
}

TEST_F(FormF10Test, Leave_ByClosingTheProjectPutsTheMachineIntoItsFile)
{
    ShowPage();
    const QString path = App().sProjectPath;
    CloseProjectFromMenu();
    EXPECT_EQ(PageName(), "");
    EXPECT_EQ(QueryFile(path, "SELECT Pmech FROM Motor WHERE set_ID = 1"), "7.5");
}

TEST_F(FormF10Test, Leave_HappensOnceWhenTheWindowCloses)
{
    ShowPage();
    window.close();
    EXPECT_EQ(Query("SELECT Pmech FROM Motor WHERE set_ID = 1"), "7.5");
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace
} // namespace korvanel::test
