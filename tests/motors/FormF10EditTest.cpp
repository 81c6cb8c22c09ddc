// Entering, changing and deleting machines on the machine page.
#include "motors/MachinePageFixture.h"
#include "project/ProjectCommands.h"

namespace korvanel::test {
namespace {

class FormF10EditTest : public MachinePageTest
{
};

const QString kDuplicate = QStringLiteral("Es existiert bereits ein Satz mit gleichen Angaben.\n"
                                          "Ändern Sie die Angabe unter Bemerkungen, um sie dennoch aufzunehmen.");

// Editing.

TEST_F(FormF10EditTest, BrowseState_NothingCanBeTyped)
{
    ShowPage();
    Press("cmdBrowse_2");
    for (const char* name : {"txtBemess_0", "txtLeerlauf_3", "txtStaender", "txtMasse", "txtComment"})
        EXPECT_TRUE(Find<QLineEdit>(name).isReadOnly()) << name;
    for (const char* name : {"chkstatus_0", "optGenerator_0", "cboPPZ", "cboSchaltung", "chkReibM", "cmdInsert_0",
                             "cmdInsert_1", "cmdNoLoad"})
        EXPECT_FALSE(IsEnabled(name)) << name;
}

TEST_F(FormF10EditTest, EditState_DisablesListAndPageButtons)
{
    ShowPage();
    for (const char* start : {"cmdEdit_0", "cmdEdit_1"}) {
        Press(start);
        for (const char* name : {"GridBemess", "cmdBack", "cmdForw", "cmdEdit_0", "cmdEdit_1", "cmdEdit_2",
                                 "cmdSearchWin", "cmdDatabase", "cmdBrowse_0"})
            EXPECT_FALSE(IsEnabled(name)) << name;
        for (const char* name : {"cmdInsert_0", "cmdInsert_1", "chkstatus_0", "txtBemess_0", "txtComment"})
            EXPECT_TRUE(IsEnabled(name)) << name;
        EXPECT_FALSE(Find<QLineEdit>("txtBemess_0").isReadOnly());
        Press("cmdInsert_1");
        EXPECT_TRUE(IsEnabled("GridBemess"));
        EXPECT_TRUE(IsEnabled("cmdForw"));
    }
}

TEST_F(FormF10EditTest, New_ClearsEverythingButTheFirstEntries)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdEdit_0");
    EXPECT_EQ(Rating(), QStringList({"", "", "", "", "", ""}));
    EXPECT_EQ(NoLoad(), QStringList({"", "", "", ""}));
    EXPECT_EQ(Line("txtComment"), "");
    EXPECT_EQ(Chosen("cboPPZ"), "1");
    EXPECT_EQ(Find<QComboBox>("cboSchaltung").currentIndex(), 0);
    EXPECT_EQ(Chosen("cboWaermKlasse"), "A");
    EXPECT_FALSE(IsChecked("chkReibM"));
    EXPECT_TRUE(IsChecked("optGenerator_0"));
    EXPECT_TRUE(IsChecked("chkstatus_0"));
    for (int i = 1; i < kKnowledgeCount; ++i)
        EXPECT_FALSE(IsChecked(("chkstatus_" + QByteArray::number(i)).constData())) << i;
}

TEST_F(FormF10EditTest, New_IsWrittenUnderTheFirstFreeNumberAndFoundInTheList)
{
    ShowPage();
    ExecuteMotors("DELETE FROM Motor WHERE set_ID = 1");
    Press("cmdEdit_0");
    EnterRating({"11", "400", "50", "1465", "21,5", "0,84"});
    Check("chkstatus_3");
    Choose("cboSchaltung", "Dreieck (D)");
    Check("chkstatus_6");
    Enter("txtErwaerm", "25");
    Find<QLineEdit>("txtComment").setText("neu");
    Press("cmdInsert_0");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Motors("SELECT Pmech||'|'||U||'|'||f||'|'||n||'|'||I||'|'||cosphi||'|'||Polpaarzahl||'|'||Schaltungsart||"
                     "'|'||Tth||'|'||Hersteller FROM Motor WHERE set_ID = 1"),
              "11.0|400.0|50.0|1465.0|21.5|0.84|2|D|25.0|neu");
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor WHERE set_ID = 1 AND Po IS NULL AND Rs IS NULL AND I_CL IS NULL"),
              "1");
    // 60 * 11000 / (2 pi 1465) = 71.70 Nm; 11000 / (sqrt(3) 400 21.5 0.84) = 0.8791
    EXPECT_NEAR(Motors("SELECT M FROM Motor WHERE set_ID = 1").toDouble(), 71.70, 0.005);
    EXPECT_NEAR(Motors("SELECT eta FROM Motor WHERE set_ID = 1").toDouble(), 0.8791, 0.0001);
    EXPECT_EQ(App().MachineI.record.set_ID, 1);
    EXPECT_EQ(Label("BrowseBemess"), "2/3");
    EXPECT_TRUE(IsEnabled("cmdForw"));
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(FormF10EditTest, Apply_UncheckedRatingStoresNullsWithFilledFields)
{
    ShowPage();
    Press("cmdEdit_1");
    Check("chkstatus_0", false);
    EXPECT_FALSE(IsEnabled("txtBemess_0"));
    EXPECT_EQ(Rating(), kRated);
    Press("cmdInsert_0");
    EXPECT_EQ(
        Motors("SELECT count(*) FROM Motor WHERE set_ID = 2 AND Pmech IS NULL AND U IS NULL AND M IS NULL AND n IS "
               "NULL AND I IS NULL AND f IS NULL AND cosphi IS NULL AND eta IS NULL"),
        "1");
    EXPECT_EQ(Rating(), QStringList({"", "", "", "", "", ""}));
    EXPECT_FALSE(App().MachineI.status[kRatingKnown]);
}

TEST_F(FormF10EditTest, Apply_TextThatIsNoNumberEmptiesItsFieldAndMakesTheRatingNull)
{
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_1", "vierhundert");
    EXPECT_EQ(Line("txtBemess_1"), "");
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Pmech FROM Motor WHERE set_ID = 2"), "null");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF10EditTest, Apply_OfAnotherRowsTwinIsRefusedAndKeepsTheEditState)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdEdit_1");
    Press("cmdInsert_0"); // torque and efficiency as the model has them
    ExecuteMotors(
        "INSERT INTO Motor SELECT 77, Hersteller, Polpaarzahl, Pmech, U, M, n, I, f, cosphi, eta, Po, Uo, Io, "
        "fo, Schaltungsart, Rs, Mkipp_Mn, Tth, I_CL, Masse, Mreib FROM Motor WHERE set_ID = 1");
    Press("cmdEdit_1");
    Press("cmdInsert_0");
    EXPECT_EQ(shell.BoxTexts(), QStringList{kDuplicate});
    EXPECT_TRUE(IsEnabled("cmdInsert_0")) << "still editing";
    Find<QLineEdit>("txtComment").setText("Werk D");
    Press("cmdInsert_0");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Motors("SELECT set_ID FROM Motor WHERE Hersteller = 'Werk D'"), "1");
}

TEST_F(FormF10EditTest, Apply_OfAnUnchangedMachineIsNoDuplicateOfItself)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdEdit_1");
    Press("cmdInsert_0");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "3");
}

TEST_F(FormF10EditTest, Apply_NewTwinOfARowIsRefusedUntilTheRemarkDiffers)
{
    ShowPage();
    Press("cmdBrowse_2");
    Press("cmdEdit_1");
    Press("cmdInsert_0"); // torque and efficiency as the model has them
    const auto enterTwin = [this] {
        EnterRating(kKnownRating);
        for (int i = 1; i < kKnowledgeCount; ++i)
            Check(("chkstatus_" + QByteArray::number(i)).constData());
        const QStringList noLoad{"0,6478", "400", "11", "50"};
        for (int i = 0; i < 4; ++i)
            Enter(("txtLeerlauf_" + QByteArray::number(i)).constData(), noLoad[i]);
        Choose("cboPPZ", "2");
        Choose("cboSchaltung", "Dreieck (D)");
        Choose("cboWaermKlasse", "F");
        Enter("txtStaender", "0,56");
        Enter("txtMoment", "3,1");
        Enter("txtErwaerm", "30");
        Enter("txtMasse", "180");
        Find<QLineEdit>("txtComment").setText("Werk A");
    };
    Press("cmdEdit_0");
    enterTwin();
    Press("cmdInsert_0");
    EXPECT_EQ(shell.BoxTexts(), QStringList{kDuplicate});
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "3");
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    Find<QLineEdit>("txtComment").setText("Werk A, zweite");
    Press("cmdInsert_0");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "4");
    EXPECT_EQ(App().MachineI.record.set_ID, 4) << "a row of its own";
}

TEST_F(FormF10EditTest, Apply_AModelErrorIsToldKeepsTheEditStateAndWritesNothing)
{
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_3", "200"); // 15 pole pairs
    Press("cmdInsert_0");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Ein Bearbeitungsproblem ist aufgetreten.\n"
                                            "Die Angabe der Nenndrehzahl ist ungültig."});
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    EXPECT_EQ(Motors("SELECT n FROM Motor WHERE set_ID = 2"), "1472.0");
    Press("cmdInsert_1");
    EXPECT_EQ(Rating(), kRated);
    EXPECT_EQ(App().MachineI.record.n, 1472);
    EXPECT_EQ(App().ModelErrors, 0);
}

TEST_F(FormF10EditTest, Apply_OfARowThatIsGoneIsReported)
{
    ShowPage();
    Press("cmdEdit_1");
    ExecuteMotors("DELETE FROM Motor WHERE set_ID = 2");
    Press("cmdInsert_0");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
}

TEST_F(FormF10EditTest, Cancel_ShowsTheRowAgain)
{
    ShowPage();
    for (const char* start : {"cmdEdit_0", "cmdEdit_1"}) {
        Press(start);
        Enter("txtBemess_0", "99");
        Find<QLineEdit>("txtComment").setText("x");
        Press("cmdInsert_1");
        EXPECT_EQ(Rating(), kRated);
        EXPECT_EQ(Line("txtComment"), "Werk B");
        EXPECT_EQ(Label("BrowseBemess"), "1/3");
    }
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "3");
}

TEST_F(FormF10EditTest, Cancel_OfANumberOutOfRangeAsksNothing)
{
    ShowPage();
    Press("cmdEdit_1");
    Type("txtBemess_3", "7000");
    auto& cancel = Find<QPushButton>("cmdInsert_1");
    EXPECT_FALSE(cancel.focusPolicy() & Qt::ClickFocus) << "a click leaves the focus where it is";
    cancel.click();
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Rating(), kRated);
}

TEST_F(FormF10EditTest, Known_ListsBeginWithTheirFirstEntry)
{
    ShowPage();
    Press("cmdEdit_1");
    EXPECT_EQ(Chosen("cboSchaltung"), "");
    Check("chkstatus_3");
    EXPECT_EQ(Chosen("cboSchaltung"), "Stern (Y)");
    EXPECT_TRUE(IsEnabled("cboSchaltung"));
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Schaltungsart FROM Motor WHERE set_ID = 2"), "Y");
}

TEST_F(FormF10EditTest, New_UncheckedPolePairsKeepThePreviousValue)
{
    ShowPage();
    Press("cmdEdit_0");
    Check("chkstatus_0", false);
    Check("chkstatus_3");
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Polpaarzahl FROM Motor WHERE set_ID = 4"), "2") << "of the machine before";
    EXPECT_TRUE(App().bModelValid) << "pole pairs and connection are enough";
}

TEST_F(FormF10EditTest, RemarkWithAnything_IsStoredAsItStands)
{
    const QString remark = QStringLiteral("O'Neill & Söhne \"GmbH\"; 50 % -- '; DROP TABLE Motor; <b>");
    ShowPage();
    Press("cmdEdit_1");
    Find<QLineEdit>("txtComment").setText(remark);
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Hersteller FROM Motor WHERE set_ID = 2"), remark);
    EXPECT_EQ(Line("txtComment"), remark);
    EXPECT_TRUE(shell.boxes.empty());
}

// Numbers.

TEST_F(FormF10EditTest, Motor_TurnsANegativePowerRound)
{
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_0", "-3");
    EXPECT_EQ(Line("txtBemess_0"), "3");
    Enter("txtBemess_5", "1");
    EXPECT_EQ(Line("txtBemess_5"), "0,9999999");
}

TEST_F(FormF10EditTest, Generator_TurnsPowerAndCosphiRound)
{
    ShowPage();
    Press("cmdEdit_1");
    Check("optGenerator_1");
    EXPECT_EQ(Line("txtBemess_0"), "-7,5");
    EXPECT_EQ(Line("txtBemess_5"), "-0,83");
    EXPECT_EQ(Line("txtBemess_1"), "400");
    Enter("txtBemess_0", "3");
    EXPECT_EQ(Line("txtBemess_0"), "-3");
    Check("optGenerator_0");
    EXPECT_EQ(Line("txtBemess_0"), "3");
    EXPECT_EQ(Line("txtBemess_5"), "0,83");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF10EditTest, NumberOutOfRange_IsToldSelectedAndKeepsTheFocus)
{
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_3", "7000");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 0 und 6000  befinden."});
    auto& box = Find<QLineEdit>("txtBemess_3");
    EXPECT_TRUE(box.hasFocus());
    EXPECT_EQ(box.selectedText(), "7000");
    shell.boxes.clear();
    Press("cmdInsert_0");
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
    EXPECT_EQ(Motors("SELECT n FROM Motor WHERE set_ID = 2"), "1472.0");
}

TEST_F(FormF10EditTest, NumberOutOfRange_IsShownAgainWhenItsTabIsLeft)
{
    ShowPage();
    Press("cmdEdit_1");
    Type("txtBemess_3", "7000");
    ShowTab(2);
    QApplication::processEvents();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Find<QTabWidget>("tabAsync").currentIndex(), 1);
    EXPECT_TRUE(Find<QLineEdit>("txtBemess_3").hasFocus());
}

TEST_F(FormF10EditTest, NumberPending_IsTestedByApply)
{
    ShowPage();
    Press("cmdEdit_1");
    Type("txtBemess_0", "-8");
    Press("cmdInsert_0");
    EXPECT_EQ(Motors("SELECT Pmech FROM Motor WHERE set_ID = 2"), "8.0");
}

TEST_F(FormF10EditTest, HostileTexts_LeaveNoNumberBehind)
{
    ShowPage();
    Press("cmdEdit_1");
    for (const char* text : {"1e999", "nan", "inf", "--", "1,2,3", "0x20", "0", "%s%n", "' OR 1=1"}) {
        Enter("txtBemess_1", text);
        EXPECT_EQ(Line("txtBemess_1"), "") << text;
    }
    EXPECT_TRUE(shell.boxes.empty());
    Type("txtBemess_1", QString(5000, '9'));
    EXPECT_LE(Line("txtBemess_1").size(), 40);
}

// Deleting.

TEST_F(FormF10EditTest, Delete_AsksAndMovesToTheFirst)
{
    ShowPage();
    Press("cmdBrowse_2");
    shell.answers = {Answer::No, Answer::Yes};
    Press("cmdEdit_2");
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "3");
    Press("cmdEdit_2");
    EXPECT_EQ(shell.BoxTexts(), QStringList(2, "Wollen Sie diesen Motor/Generator wirklich löschen?"));
    EXPECT_EQ(shell.boxes[0].buttons, BoxButtons::YesNo);
    EXPECT_EQ(Motors("SELECT group_concat(set_ID) FROM Motor"), "2,3");
    EXPECT_EQ(Label("BrowseBemess"), "1/2");
    EXPECT_EQ(App().MachineI.record.set_ID, 2);
}

TEST_F(FormF10EditTest, Delete_OfTheLastMachineIsRefused)
{
    ExecuteMotors("DELETE FROM Motor WHERE set_ID > 1");
    ShowPage();
    Press("cmdEdit_2");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es muss mindestens eine Maschine vorhanden sein."});
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor"), "1");
}

// Leaving in the middle of an edit.

TEST_F(FormF10EditTest, LeavingByTheMenuAsksForAnEditThatIsUnderWay)
{
    window.Menu().OnTriggered("mnuGeneralData", [this] { window.UnloadAndOpen(1); });
    const auto leave = [this](Answer answer) {
        shell.boxes.clear();
        shell.answers = {answer};
        window.Menu().Entry("mnuGeneralData")->trigger();
        ASSERT_EQ(shell.boxes.size(), 1U);
        EXPECT_EQ(shell.boxes[0].text,
                  "Die Angaben zur Maschine sind noch nicht übernommen.\nSollen sie übernommen werden?");
    };
    ShowPage();
    Press("cmdEdit_1");
    Type("txtComment", "Werk C");
    leave(Answer::Cancel);
    EXPECT_EQ(PageName(), "FormF10");
    EXPECT_EQ(Line("txtComment"), "Werk C");
    leave(Answer::Yes);
    EXPECT_EQ(PageName(), "FormF1");
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor WHERE Hersteller='Werk C'"), "1");

    ShowPage();
    Press("cmdBrowse_0"); // a machine with unknown values is not found again
    Press("cmdEdit_1");
    Type("txtComment", "Werk D");
    leave(Answer::No);
    EXPECT_EQ(PageName(), "FormF1");
    EXPECT_EQ(Motors("SELECT count(*) FROM Motor WHERE Hersteller='Werk D'"), "0");
}

TEST_F(FormF10EditTest, LeavingWithAnEditThatIsRefusedStays)
{
    window.Menu().OnTriggered("mnuGeneralData", [this] { window.UnloadAndOpen(1); });
    ShowPage();
    Press("cmdEdit_1");
    Enter("txtBemess_3", "200"); // 15 pole pairs
    shell.answers = {Answer::Yes};
    window.Menu().Entry("mnuGeneralData")->trigger();
    EXPECT_EQ(PageName(), "FormF10");
    EXPECT_EQ(Line("txtBemess_3"), "200");
}

TEST_F(FormF10EditTest, SavingTheProjectLeavesAnEditUnderWay)
{
    window.Menu().OnTriggered("mnuSave", SaveProjectFromMenu);
    ShowPage();
    Press("cmdEdit_1");
    Type("txtComment", "Werk E");
    shell.boxes.clear();
    window.Menu().Entry("mnuSave")->trigger();
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Line("txtComment"), "Werk E");
    EXPECT_TRUE(IsEnabled("cmdInsert_0"));
}

TEST_F(FormF10EditTest, AnotherDatabaseFromTheMenuAsksForAnEditToo)
{
    bool isOpened = false;
    window.Menu().OnTriggered("mnuDatabaseOpt", [&] { isOpened = true; });
    ShowPage();
    Press("cmdEdit_1");
    Type("txtComment", "Werk F");
    shell.answers = {Answer::Cancel};
    window.Menu().Entry("mnuDatabaseOpt")->trigger();
    EXPECT_FALSE(isOpened);
    EXPECT_EQ(Line("txtComment"), "Werk F");
}

TEST_F(FormF10EditTest, ClosingWithADatabaseThatFailsIsToldAndTheProgramGoesOn)
{
    ShowPage();
    Press("cmdEdit_1");
    Type("txtComment", "Werk G");
    SQLite::Database other(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    shell.answers = {Answer::Yes};
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(shell.boxes.back().text.contains("Die Datei wird gerade von einem anderen Programm benutzt"));
    EXPECT_EQ(PageName(), "FormF10");
}

} // namespace
} // namespace korvanel::test
