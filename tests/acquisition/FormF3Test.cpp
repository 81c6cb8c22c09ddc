// The page of the instrument: what it shows, and what it takes.
#include "acquisition/FormF3Fixture.h"

#include "support/Keys.h"

#include <QCheckBox>
#include <QLayout>
#include <QLineEdit>
#include <QTabWidget>

namespace korvanel::test {
namespace {

TEST_F(FormF3Test, HasItsTabsAndTexts)
{
    ShowPage(0);
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(window.PageOnShow()->windowTitle(), "Messgerät - Konfiguration");
    auto& tabs = Find<QTabWidget>("tabPage");
    EXPECT_EQ(tabs.tabText(0), "Messgerät");
    EXPECT_EQ(tabs.tabText(1), "Wandler / Messbereich");
    EXPECT_EQ(Find<QPushButton>("cmdDiag").text(), "Selbst&diagnose");
    EXPECT_EQ(Find<QPushButton>("cmdDevTrans_0").text(), "Von Messgerät lesen");
    EXPECT_EQ(Find<QPushButton>("cmdDevTrans_1").text(), "In Messgerät speichern");
    EXPECT_EQ(Find<QPushButton>("cmdReset").text(), "Zähler zurücksetzen");
}

TEST_F(FormF3Test, ListsFollowTheNetConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        ShowPage(netConf, "");
        EXPECT_EQ(Choices("cboSelect"), InstrumentEntries(netConf)) << netConf;
        EXPECT_EQ(BoxText("cboSelect"), InstrumentEntries(netConf).first());
        EXPECT_EQ(App().sDevice, InstrumentEntries(netConf).first());
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF3Test, EveryTabFitsIntoThePageInEveryNetConfiguration)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        ShowPage(netConf, "");
        App().dTransPrimary = App().dDevTransPrimary = {60000, 2500};
        App().dTransSecondary = App().dDevTransSecondary = {230, 10};
        App().sDeviceId = QString(2000, 'x');
        window.RefreshPage();
        auto& tabs = Find<QTabWidget>("tabPage");
        for (int i = 0; i < tabs.count(); ++i) {
            tabs.setCurrentIndex(i);
            QApplication::processEvents();
            const QSize needed = window.PageOnShow()->layout()->minimumSize();
            EXPECT_LE(needed.width(), kPageWidth) << netConf << ' ' << i;
            EXPECT_LE(needed.height(), kPageHeight) << netConf << ' ' << i;
            for (const QPushButton* button : window.PageOnShow()->findChildren<QPushButton*>()) {
                const bool fits = !button->isVisible() || button->width() >= button->sizeHint().width();
                EXPECT_TRUE(fits) << button->text().toStdString();
            }
        }
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF3Test, WiringFollowsTheInstrument)
{
    ShowPage(1, "YOKOGAWA WT130 1Ø2W");
    EXPECT_EQ(LabelText("lblText_0"), "Bezeichnung:");
    EXPECT_EQ(LabelText("lblWiringtext_0"), "YOKOGAWA WT130 1Ø2W");
    EXPECT_EQ(LabelText("lblWiringtext_1"), "3 Phasen, 4 Leiter oder künstlicher Sternpunkt");
    Choose("cboSelect", "ISKRA MI71XX 3Ø3W (3u)");
    EXPECT_EQ(LabelText("lblWiringtext_0"), "ISKRA MI71XX 3Ø3W (3u)");
    EXPECT_EQ(LabelText("lblWiringtext_4"), "L1, L3 (2-Wattmeter)");
    EXPECT_EQ(LabelText("lblWiringtext_5"), "Unterstützte Geräte: MI 7130, MI 7131, MI 7140, MI 7150");
}

TEST_F(FormF3Test, TheBusAddressIsShownForInstrumentsThatHaveOne)
{
    ShowPage(0);
    EXPECT_EQ(LabelText("lblModbus"), "MODBUS-Adresse: 33");
    EXPECT_FALSE(Find<QLabel>("lblModbus").isHidden());
    Choose("cboSelect", "NANOVIP-PLUS 1Ø2W");
    EXPECT_TRUE(Find<QLabel>("lblModbus").isHidden());
}

TEST_F(FormF3Test, ChoosingAnInstrumentDisconnectsAndRebuildsTheIntervals)
{
    ShowPage(0);
    App().bDevConnected = true;
    App().sDeviceId = QStringLiteral("MI7140 4711");
    window.RefreshPage();
    EXPECT_EQ(Lamps(), (std::array{-1, -1, 65280}));
    Choose("cboSelect", "NANOVIP-PLUS 1Ø2W");
    EXPECT_EQ(App().sDevice, "NANOVIP-PLUS 1Ø2W");
    EXPECT_EQ(Lamps(), (std::array{255, -1, -1}));
    EXPECT_EQ(LabelText("lblDevice"), "");
    EXPECT_EQ(Choices("cboInterval").first(), "2");
    EXPECT_EQ(Choices("cboInterval").last(), "10");
    EXPECT_EQ(BoxText("cboInterval"), "2");
    EXPECT_EQ(App().dInterval, 2);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF3Test, AStoredIntervalThatIsTooShortIsCorrectedAtShow)
{
    ShowPage(4, "ISKRA MI71XX 3Ø4W (4u) Rec L-N", 2);
    EXPECT_EQ(BoxText("cboInterval"), "5");
    EXPECT_EQ(App().dInterval, 5);
}

TEST_F(FormF3Test, AStoredIntervalOfSixtySurvives)
{
    ShowPage(0, kIskra, 60);
    EXPECT_EQ(BoxText("cboInterval"), "60");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_EQ(App().dInterval, 60);
}

TEST_F(FormF3Test, AnIntervalOutOfRangeIsToldAndKeepsTheFocus)
{
    ShowPage(0);
    QApplication::setActiveWindow(&window);
    auto& box = Find<QComboBox>("cboInterval");
    box.setFocus();
    box.lineEdit()->selectAll();
    TypeKeys(*box.lineEdit(), QStringLiteral("61"));
    Find<QComboBox>("cboCOM").setFocus();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 1 und 60  befinden."});
    EXPECT_TRUE(box.hasFocus() || box.lineEdit()->hasFocus());
    EXPECT_EQ(box.currentText(), "61");
    EXPECT_EQ(App().dInterval, 1);
}

TEST_F(FormF3Test, ForwardIsHeldByATypedIntervalOutOfRange)
{
    ShowPage(0);
    Find<QComboBox>("cboInterval").setEditText("0,5");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(shell.boxes.size(), 1U);
    Find<QComboBox>("cboInterval").setEditText("12,7");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_EQ(App().dInterval, 12);
}

TEST_F(FormF3Test, ForwardIsNotHeldByAStoredIntervalOfAnotherInstrument)
{
    ShowPage(0, kIskra, 900);
    EXPECT_EQ(BoxText("cboInterval"), "900");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(App().dInterval, 900);
}

TEST_F(FormF3Test, ForwardOfANanovipTestsFromOneAndAHalf)
{
    ShowPage(0, "NANOVIP-PLUS 1Ø2W", 61);
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 1,5 und 60  befinden."});
    Enter("cboInterval", "2");
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
}

TEST_F(FormF3Test, ForwardNeedsNoConnection)
{
    ShowPage(0);
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4");
    EXPECT_TRUE(port.requests.empty());
}

TEST_F(FormF3Test, ForwardTakesWhatIsTypedOnTheOtherTab)
{
    ShowPage(0);
    Find<QComboBox>("cboTrans_0").setEditText("230");
    Find<QComboBox>("cboTrans_1").setEditText("100");
    Find<QComboBox>("cboEnd_2").setEditText("7,5");
    Press("cmdForw");
    EXPECT_EQ(App().dTransPrimary[0], 230);
    EXPECT_EQ(App().dTransSecondary[0], 100);
    EXPECT_EQ(App().ScaleEnds[2], 7500);
    EXPECT_EQ(Query("SELECT [Decimal] FROM [Settings] WHERE [Name]='dTransPrimary 0'").toDouble(), 230) << "and saved";
}

TEST_F(FormF3Test, BackLeadsOverTheMachineWhereThereIsOne)
{
    ShowPage(0);
    Press("cmdBack");
    EXPECT_EQ(PageName(), "FormF2");
}

TEST_F(FormF3Test, PortShowsItsDevice)
{
    ShowPage(0);
    EXPECT_EQ(BoxText("cboCOM"), "1");
    Enter("cboCOM", "250");
    EXPECT_EQ(App().lComPort, 250);
    EXPECT_EQ(LabelText("lblPort"), "/dev/ttyS249");
    Enter("cboCOM", "-5");
    EXPECT_EQ(App().lComPort, 1);
    EXPECT_EQ(BoxText("cboCOM"), "1");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF3Test, BeatIsStored)
{
    ShowPage(0);
    EXPECT_FALSE(Find<QCheckBox>("chkTakt").isChecked());
    Find<QCheckBox>("chkTakt").click();
    EXPECT_EQ(App().lSound, 1);
    EXPECT_TRUE(App().bProjectDirty);
    window.RefreshPage();
    EXPECT_TRUE(Find<QCheckBox>("chkTakt").isChecked());
}

TEST_F(FormF3Test, TransformersShowTheirRatio)
{
    ShowPage(0);
    EXPECT_EQ(LabelText("lblTrans_0"), "1 / 1");
    Choose("cboTrans_0", "10000");
    Enter("cboTrans_1", "abc");
    Enter("cboTrans_2", "75,5");
    Choose("cboTrans_3", "5");
    EXPECT_EQ(LabelText("lblTrans_0"), "10000 / 1");
    EXPECT_EQ(LabelText("lblTrans_1"), "75,5 / 5");
    EXPECT_EQ(BoxText("cboTrans_1"), "1");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF3Test, TriggersAndScaleEndsAreStored)
{
    ShowPage(2, "YOKOGAWA WT130 3Ø3W");
    Choose("cboTrigger_0", "0,05");
    Enter("cboTrigger_1", "-5");
    Choose("cboEnd_0", "100");
    Enter("cboEnd_5", "1e999");
    EXPECT_EQ(App().dTrigger[0], 0.05);
    EXPECT_EQ(BoxText("cboTrigger_1"), "0");
    EXPECT_EQ(App().ScaleEnds[0], 100);
    EXPECT_EQ(BoxText("cboEnd_5"), "5000");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormF3Test, ShowingThePageChangesNothing)
{
    OpenInWindow(0);
    App().sDevice = QString::fromUtf8(kIskra);
    window.UnloadAndOpen(3);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().MeasuredRow.sValidMask, "NNNN");
}

TEST_F(FormF3Test, RowsOfSpeedAndTorqueAreThereWithAMachineOnly)
{
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        ShowPage(netConf, "");
        const bool hasMachine = netConf == 2 || netConf == 5;
        for (const int i : {4, 5})
            EXPECT_EQ(Find<QWidget>(Element("cboEnd", i)).isHidden(), !hasMachine) << netConf;
        for (const int i : {0, 1, 2, 3})
            EXPECT_FALSE(Find<QWidget>(Element("cboEnd", i)).isHidden()) << netConf;
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(FormF3Test, DeviceSideNeedsAConnectionAndTheCapability)
{
    ShowPage(0);
    ExpectDeviceSide(false, false);
    App().bDevConnected = true;
    window.RefreshPage();
    ExpectDeviceSide(true, true);
    Choose("cboSelect", "NORMA D4355 1Ø2W");
    App().bDevConnected = true;
    window.RefreshPage();
    ExpectDeviceSide(false, false);
    EXPECT_EQ(Lamps(), (std::array{-1, -1, 65280})) << "it is connected all the same";
}

} // namespace
} // namespace korvanel::test
