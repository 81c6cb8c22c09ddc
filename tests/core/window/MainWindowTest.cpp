#include "core/window/MainWindow.h"

#include "core/SettingsStore.h"
#include "core/clsProgSettings.h"
#include "core/clsWaitCursor.h"
#include "support/WindowFixture.h"

#include <QLabel>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>

namespace korvanel::test {
namespace {

class MainWindowTest : public WindowTest
{
protected:
    QStringList CaptionsOf(const char* menu)
    {
        QStringList captions;
        for (const QAction* entry : window.Menu().SubMenu(QLatin1String(menu))->actions())
            if (!entry->isSeparator())
                captions << entry->text();
        return captions;
    }
    void Press(const char* button) { Find<QPushButton>(button).click(); }
};

// Menu

TEST_F(MainWindowTest, Menu_HasItsEntriesInOrder)
{
    QStringList tops;
    for (const QAction* entry : window.menuBar()->actions())
        tops << entry->text();
    EXPECT_EQ(tops, (QStringList{"&Datei", "&Projekt", "Motor/&Generator", "&Messen/Auswerten", "&Optionen", "&?"}));
    EXPECT_EQ(CaptionsOf("mnuFile"), (QStringList{"&Neu", "Ö&ffnen", "&Speichern", "Speichern &unter", "S&chließen",
                                                  "&Drucken", "&Löschen", "&Beenden"}));
    EXPECT_EQ(CaptionsOf("mnuProjectData"), (QStringList{"Allgemeine &Daten", "Netz - &Konfiguration"}));
    EXPECT_EQ(CaptionsOf("mnuEngine"), QStringList{"Daten&bank"});
    EXPECT_EQ(CaptionsOf("mnuDevice"),
              (QStringList{"&Konfiguration", "Messen über &Schnittstelle", "Messwert&editor",
                           "Auswertung &tabellarisch", "Auswertung &grafisch", "Auswertung &drucken"}));
    EXPECT_EQ(CaptionsOf("mnuoptions"),
              (QStringList{"&MODBUS Adresse...", "&Datenbank...", "&Dateikonvertierung...", "&Sprache"}));
    EXPECT_EQ(CaptionsOf("mnuHelp"), (QStringList{"N&achschlagen", "&Internet", "I&nfo"}));
}

TEST_F(MainWindowTest, Menu_InternetIsHiddenWhileThereIsNoAddress)
{
    EXPECT_FALSE(window.Menu().Entry("mnuInternet")->isVisible());
}

TEST_F(MainWindowTest, Menu_WithoutAProject)
{
    for (const char* name :
         {"mnuSave", "mnuSaveAs", "mnuClose", "mnuProjectData", "mnuEngine", "mnuPrint", "mnuDevice"})
        EXPECT_FALSE(IsEntryEnabled(name)) << name;
    for (const char* name : {"mnuConvert", "mnuNew", "mnuOpen", "mnuDelete", "mnuEnd", "mnuoptions", "mnuHelp"})
        EXPECT_TRUE(IsEntryEnabled(name)) << name;
}

TEST_F(MainWindowTest, Menu_WithAProjectTheMachineMenuFollowsTheConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        window.EnableProjectMenus(true);
        EXPECT_EQ(IsEntryEnabled("mnuEngine"), netConf == 2 || netConf == 5) << netConf;
    }
    for (const char* name : {"mnuSave", "mnuSaveAs", "mnuClose", "mnuProjectData", "mnuPrint", "mnuDevice"})
        EXPECT_TRUE(IsEntryEnabled(name)) << name;
    EXPECT_FALSE(IsEntryEnabled("mnuConvert"));
}

TEST_F(MainWindowTest, SetBusyMenus_SavesTheStatesAndGivesThemBack)
{
    window.SetBusyMenus(false);
    for (const char* name : {"mnuFile", "mnuEngine", "mnuProjectData", "mnuDevice", "mnuHelp", "mnuoptions"})
        EXPECT_FALSE(IsEntryEnabled(name)) << name;
    window.SetBusyMenus(false); // a progress bar within a run
    window.SetBusyMenus(true);
    EXPECT_FALSE(IsEntryEnabled("mnuFile")) << "the run goes on";
    window.SetBusyMenus(true);
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
    EXPECT_TRUE(IsEntryEnabled("mnuHelp"));
    EXPECT_FALSE(IsEntryEnabled("mnuDevice")) << "it was disabled before";
    EXPECT_FALSE(IsEntryEnabled("mnuEngine"));
}

TEST_F(MainWindowTest, Menu_FailureOfAnEntryIsReportedAndTheProgramGoesOn)
{
    window.Menu().OnTriggered("mnuBook", [] { throw std::runtime_error("paper jam"); });
    window.Menu().Entry("mnuBook")->trigger();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Nachschlagen\npaper jam"});
    EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
}

// Pages

struct Step
{
    int page;
    int netConf;
    const char* back;
    const char* forward;
};

class PathThroughPages : public MainWindowTest, public ::testing::WithParamInterface<Step>
{
};

TEST_P(PathThroughPages, ButtonsLeadAlongThePath)
{
    const Step& step = GetParam();
    OpenInWindow(step.netConf);
    App().bModelValid = true;
    window.UnloadAndOpen(step.page);
    Press("cmdBack");
    EXPECT_EQ(PageName(), QLatin1String(step.back));
    window.UnloadAndOpen(step.page);
    if (step.forward) {
        Press("cmdForw");
        EXPECT_EQ(PageName(), QLatin1String(step.forward));
    } else {
        EXPECT_FALSE(Find<QPushButton>("cmdForw").isEnabled());
    }
}

INSTANTIATE_TEST_SUITE_P(All, PathThroughPages,
                         ::testing::Values(Step{1, 0, "", "FormF2"}, Step{2, 0, "FormF1", "FormF3"},
                                           Step{2, 2, "FormF1", "FormF10"}, Step{2, 5, "FormF1", "FormF10"},
                                           Step{2, 6, "FormF1", "FormF3"}, Step{10, 2, "FormF2", "FormF3"},
                                           Step{3, 0, "FormF2", "FormF4"}, Step{3, 2, "FormF10", "FormF4"},
                                           Step{3, 5, "FormF10", "FormF4"}, Step{4, 1, "FormF3", "FormF5"},
                                           Step{5, 1, "FormF4", "FormF6"}, Step{6, 2, "FormF5", "FormF8"},
                                           Step{8, 4, "FormF6", "FormF9"}, Step{9, 4, "FormF8", nullptr}));

TEST_F(MainWindowTest, AskingForPageSevenShowsNone)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    window.UnloadAndOpen(7);
    EXPECT_EQ(window.PageOnShow(), nullptr);
    EXPECT_EQ(App().iCurrentPage, 0);
}

TEST_F(MainWindowTest, PagesCarryTheirTitles)
{
    OpenInWindow(0);
    const std::pair<int, const char*> titles[] = {{1, "Allgemeine Daten"},
                                                  {2, "Netz - Konfiguration"},
                                                  {3, "Messgerät - Konfiguration"},
                                                  {4, "Messgerät - Messung Online"},
                                                  {5, "Messgerät - Messwerteditor (Offline)"},
                                                  {6, "Messgerät - Auswertung tabellarisch"},
                                                  {8, "Messgerät - Auswertung grafisch"},
                                                  {9, "Messgerät - Auswertung drucken"},
                                                  {10, "Motor/Generator - Datenbank"}};
    for (const auto& [number, title] : titles) {
        window.UnloadAndOpen(number);
        ASSERT_NE(window.PageOnShow(), nullptr);
        EXPECT_EQ(window.PageOnShow()->windowTitle(), QString::fromUtf8(title));
        EXPECT_EQ(App().iCurrentPage, number);
        EXPECT_EQ(window.PageOnShow()->size(), QSize(754, 487)) << "11310 by 7300 twips";
    }
}

TEST_F(MainWindowTest, WithoutAMachineEveryMeasuringPageLeadsToTheMachinePage)
{
    for (const int netConf : {2, 5}) {
        OpenInWindow(netConf);
        for (const int number : {4, 5, 6, 8, 9}) {
            shell.boxes.clear();
            window.UnloadAndOpen(number);
            EXPECT_EQ(PageName(), "FormF10") << number;
            EXPECT_EQ(App().iCurrentPage, 10);
            EXPECT_EQ(shell.BoxTexts(), QStringList{"Sie haben keine bzw. eine für die Messreihe ungültige "
                                                    "Asynchron-Maschine aus der Datenbank gewählt."});
        }
        App().bModelValid = true;
        window.UnloadAndOpen(4);
        EXPECT_EQ(PageName(), "FormF4");
        App().bModelValid = false;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(MainWindowTest, WithoutAUsableMotorDatabaseTheMachinePageIsNotShown)
{
    OpenInWindow(2);
    SetHook(Hook::AllowMachinePage, [] { return false; });
    window.UnloadAndOpen(10);
    EXPECT_EQ(window.PageOnShow(), nullptr);
    window.UnloadAndOpen(4); // by way of the machine page
    EXPECT_EQ(window.PageOnShow(), nullptr);
    EXPECT_EQ(App().iCurrentPage, 0);
}

TEST_F(MainWindowTest, PagesKeepThePlaceThatTheUserGaveThem)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    auto* frame = qobject_cast<QMdiSubWindow*>(window.PageOnShow()->parentWidget());
    ASSERT_NE(frame, nullptr);
    frame->move(31, 17);
    window.UnloadAndOpen(3);
    EXPECT_EQ(window.PageOnShow()->parentWidget()->pos(), QPoint(31, 17));
    EXPECT_EQ(App().lPageLeft, 31);
    EXPECT_EQ(App().lPageTop, 17);
}

TEST_F(MainWindowTest, APlaceOutsideTheFrameIsBroughtBack)
{
    OpenInWindow(0);
    App().lPageLeft = 100000;
    App().lPageTop = -5000;
    window.UnloadAndOpen(1);
    const QRect page(window.PageOnShow()->parentWidget()->geometry());
    EXPECT_GE(page.top(), 0);
    EXPECT_LE(page.right(), window.width());
}

TEST_F(MainWindowTest, IdentityOfTheInstrumentStandsOnFourPages)
{
    OpenInWindow(0);
    App().sDeviceId = QStringLiteral("MI 7140 <b>");
    for (const int number : {1, 2, 3, 4, 5, 6, 8, 9, 10}) {
        window.UnloadAndOpen(number);
        const auto* label = window.PageOnShow()->findChild<QLabel*>("lblDeviceID");
        const bool isTold = number == 5 || number == 6 || number == 8 || number == 9;
        EXPECT_EQ(label != nullptr, isTold) << number;
        if (label) {
            EXPECT_EQ(label->text(), "MI 7140 <b>");
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
    }
}

TEST_F(MainWindowTest, SetPageButtons_LocksAndFreesThem)
{
    OpenInWindow(0);
    window.UnloadAndOpen(9);
    window.SetPageButtons(false);
    EXPECT_FALSE(Find<QPushButton>("cmdBack").isEnabled());
    window.SetPageButtons(true);
    EXPECT_TRUE(Find<QPushButton>("cmdBack").isEnabled());
    EXPECT_FALSE(Find<QPushButton>("cmdForw").isEnabled()) << "the last page has nothing behind it";
}

TEST_F(MainWindowTest, LeavingAPageSavesTheHeader)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    Press("cmdForw");
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
}

// Status bar, caption, progress, pointer

TEST_F(MainWindowTest, StatusBar_ShowsProgramFileAndCaption)
{
    EXPECT_EQ(window.windowTitle(), "KORVANEL ");
    EXPECT_EQ(Find<QLabel>("lblPanel_0").text(), "KORVANEL V1.2.3");
    App().sProjectPath = QStringLiteral("C:\\Daten\\Pumpe.MDB");
    App().sProjectName = QStringLiteral("Pumpe 3");
    window.RefreshStatusBar();
    EXPECT_EQ(Find<QLabel>("lblPanel_1").text(), "Pumpe.MDB");
    EXPECT_EQ(window.windowTitle(), "KORVANEL [ Pumpe 3 ]");
}

TEST_F(MainWindowTest, ShowProgress_UpToAHundredSetsNoBarAppears)
{
    App().iSetCount = 100;
    window.ShowProgress(Progress::Begin, 0);
    window.ShowProgress(Progress::Advance, 0.5);
    EXPECT_EQ(window.findChild<QProgressBar*>("prgProgress"), nullptr);
    EXPECT_EQ(Find<QLabel>("lblPanel_2").text(), "");
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(MainWindowTest, ShowProgress_AboveTheThresholdShowsTheShareAndLocksTheMenus)
{
    App().iSetCount = 101;
    window.ShowProgress(Progress::Begin, 0);
    auto& bar = Find<QProgressBar>("prgProgress");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(bar.parent(), &Find<QLabel>("lblPanel_2")) << "it lies over the third panel";
    EXPECT_FALSE(IsEntryEnabled("mnuFile"));
    window.ShowProgress(Progress::Advance, 0.128);
    EXPECT_EQ(bar.value(), 12);
    EXPECT_EQ(Find<QLabel>("lblPanel_2").text(), "13%");
    window.ShowProgress(Progress::Advance, 1); // not below 1
    EXPECT_EQ(bar.value(), 12);
    window.ShowProgress(Progress::End, 0);
    EXPECT_FALSE(bar.isVisible());
    EXPECT_EQ(Find<QLabel>("lblPanel_2").text(), "");
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(MainWindowTest, ShowProgress_EndsWhatWasBegunHoweverManySetsAreLeft)
{
    App().iSetCount = 5000;
    window.ShowProgress(Progress::Begin, 0);
    App().iSetCount = 3; // the operation itself has made them fewer
    window.ShowProgress(Progress::End, 0);
    EXPECT_TRUE(IsEntryEnabled("mnuFile"));
}

TEST_F(MainWindowTest, Menu_EntriesOfALockedMenuDoNothing)
{
    window.Menu().OnTriggered("mnuGeneralData", [this] { window.UnloadAndOpen(1); });
    window.Menu().Entry("mnuGeneralData")->trigger(); // without a project its menu is locked
    EXPECT_EQ(window.PageOnShow(), nullptr);
    OpenInWindow(0);
    window.Menu().Entry("mnuGeneralData")->trigger();
    EXPECT_EQ(PageName(), "FormF1");
}

TEST_F(MainWindowTest, APageThatIsAlreadyOnShowIsReplaced)
{
    OpenInWindow(0);
    window.UnloadAndOpen(1);
    App().iCurrentPage = 3;
    window.ShowPage();
    EXPECT_EQ(PageName(), "FormF3");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window.findChildren<QMdiSubWindow*>().size(), 1);
}

TEST_F(MainWindowTest, ALongFileNameDoesNotWidenTheWindow)
{
    const int width = window.minimumSizeHint().width();
    App().sProjectPath = PathOf(QString(240, u'W') + ".MDB");
    window.RefreshStatusBar();
    EXPECT_EQ(window.minimumSizeHint().width(), width);
}

TEST_F(MainWindowTest, Caption_ShowsTheToolkitsMarkOfAChangeAsItStands)
{
    App().sProjectName = QStringLiteral("a [*] b");
    window.RefreshCaption();
    EXPECT_EQ(window.windowTitle(), "KORVANEL [ a [*][*] b ]");
}

TEST_F(MainWindowTest, WaitCursor_EndsWithItsInstance)
{
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    {
        clsWaitCursor cursor;
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "not before Show";
        cursor.Show();
        cursor.Show();
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

} // namespace
} // namespace korvanel::test
