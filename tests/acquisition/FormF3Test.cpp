#include "acquisition/FormF3.h"

#include "acquisition/StatusLamps.h"

#include "core/window/EntryBox.h"
#include "support/IskraAtAddress.h"
#include "support/Keys.h"
#include "support/ScriptedPort.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>

namespace korvanel::test {
namespace {

constexpr const char* kIskra = "ISKRA MI71XX 1Ø2W (1b)";

class FormF3Test : public WindowTest
{
protected:
    FormF3Test()
    {
        App().ThePort = &port;
        port.answer = IskraAtAddress(33);
    }
    void ShowPage(int netConf, const char* device = kIskra, double interval = 1)
    {
        OpenInWindow(netConf);
        App().sDevice = QString::fromUtf8(device);
        App().dInterval = interval;
        App().lModbusAddress = 33;
        window.UnloadAndOpen(3);
        App().bProjectDirty = false;
        shell.calls.clear();
    }
    static QByteArray Element(const char* name, int index)
    {
        return QByteArray(name) + '_' + QByteArray::number(index);
    }
    QString BoxText(const char* name) { return Find<QComboBox>(name).currentText(); }
    QString LabelText(const char* name) { return Find<QLabel>(name).text(); }
    void Enter(const char* name, const QString& text)
    {
        auto& box = Find<EntryBox>(name);
        box.setEditText(text);
        box.Commit();
    }
    void Choose(const char* name, const QString& text)
    {
        auto& box = Find<QComboBox>(name);
        const int index = box.findText(text);
        ASSERT_GE(index, 0) << text.toStdString();
        box.setCurrentIndex(index);
        emit box.activated(index);
    }
    void Press(const char* name) { Find<QPushButton>(name).click(); }
    QStringList Choices(const char* name)
    {
        QStringList texts;
        for (int i = 0; i < Find<QComboBox>(name).count(); ++i)
            texts << Find<QComboBox>(name).itemText(i);
        return texts;
    }
    /// Colour numbers of the lamps; -1 for the grey of button faces.
    std::array<int, 3> Lamps()
    {
        const QColor face = window.palette().color(QPalette::Active, QPalette::Button);
        const int grey = face.red() | face.green() << 8 | face.blue() << 16;
        std::array<int, 3> lit{};
        for (int i = 0; i < 3; ++i) {
            const int colour = Find<QWidget>(Element("shpLED", i)).property("colour").toInt();
            lit.at(static_cast<std::size_t>(i)) = colour == grey ? -1 : colour;
        }
        return lit;
    }
    bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    void ExpectNothingStaysDisabled()
    {
        EXPECT_TRUE(window.PageOnShow()->isEnabled());
        for (const char* name : {"cmdDiag", "cmdBack", "cmdForw", "cboSelect", "cboCOM", "cboInterval", "cboTrans_0"})
            EXPECT_TRUE(IsEnabled(name)) << name;
        EXPECT_TRUE(IsEnabledMenu("mnuFile"));
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    }
    bool IsEnabledMenu(const char* name) { return window.Menu().Entry(QLatin1String(name))->isEnabled(); }
    void ExpectDeviceSide(bool isEnabled, bool canReset)
    {
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(IsEnabled(Element("cboDevTrans", i)), isEnabled) << i;
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(IsEnabled(Element("lblDevTrans", i)), isEnabled) << i;
            EXPECT_EQ(IsEnabled(Element("cmdDevTrans", i)), isEnabled) << i;
        }
        EXPECT_EQ(IsEnabled("cmdReset"), canReset);
    }

    template <typename Control>
    Control& Find(const QByteArray& name)
    {
        return WindowTest::Find<Control>(name.constData());
    }
};

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

TEST_F(FormF3Test, ForwardIsHeldByAStoredIntervalAboveSixty)
{
    ShowPage(0, kIskra, 3600);
    EXPECT_EQ(BoxText("cboInterval"), "3600");
    Find<QTabWidget>("tabPage").setCurrentIndex(1);
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF3");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 1 und 60  befinden."});
    EXPECT_EQ(Find<QTabWidget>("tabPage").currentIndex(), 0) << "where the box is";
    Press("cmdBack");
    EXPECT_EQ(PageName(), "FormF2") << "the way back is open";
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

// What talks to the instrument.

TEST_F(FormF3Test, Diagnosis_ConnectsAndReadsTransformersAndIdentity)
{
    ShowPage(0);
    EXPECT_EQ(Lamps(), (std::array{255, -1, -1}));
    Press("cmdDiag");
    EXPECT_TRUE(App().bDevConnected);
    EXPECT_EQ(Lamps(), (std::array{-1, -1, 65280}));
    EXPECT_EQ(LabelText("lblDevice"), "MI7140 4711");
    EXPECT_EQ(LabelText("lblDevTrans_0"), "20000 / 100");
    EXPECT_EQ(LabelText("lblDevTrans_1"), "100 / 5");
    EXPECT_EQ(BoxText("cboDevTrans_0"), "20000");
    ExpectDeviceSide(true, true);
    ExpectNothingStaysDisabled();
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF3Test, Diagnosis_LocksEverythingAndLightsYellowMeanwhile)
{
    ShowPage(0);
    int asked = 0;
    port.answer = [&](const QByteArray& request) {
        ++asked;
        EXPECT_EQ(Lamps(), (std::array{-1, 65535, -1}));
        EXPECT_EQ(Find<QWidget>("shpLED_1").accessibleDescription(), "gelb");
        for (const char* name : {"cmdDiag", "cmdBack", "cmdForw", "cboSelect", "cboCOM", "cboInterval", "cboTrans_0"})
            EXPECT_FALSE(IsEnabled(name)) << name;
        EXPECT_FALSE(IsEnabledMenu("mnuFile"));
        EXPECT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(App().iCurrentPage, 3);
        return IskraAtAddress(33)(request);
    };
    Press("cmdDiag");
    EXPECT_EQ(asked, 2 + 4 + 2) << "identify, configure, transformers, device info";
    ExpectNothingStaysDisabled();
}

TEST_F(FormF3Test, Diagnosis_AFailureIsToldAndLeavesNothingDisabled)
{
    struct Case
    {
        std::function<QByteArray(const QByteArray&)> answer;
        const char* openError;
        QString message;
    };
    const Case cases[] = {
        {[](const QByteArray&) { return QByteArray(); }, "",
         "COM1: Zeitüberschreitung!\nBitte Messgerät anschalten und die RS232-Verbindung überprüfen!"},
        {[](const QByteArray&) { return QByteArray(500, 'x'); }, "",
         "COM1: Kann eingestelltes Messgerät nicht finden!"},
        {[](const QByteArray&) { return QByteArray(); }, "Zugriff verweigert", "COM1: Zugriff verweigert"},
        {[](const QByteArray&) -> QByteArray { throw PortError("Leitung unterbrochen"); }, "",
         "COM1: Leitung unterbrochen"},
    };
    ShowPage(0);
    for (const Case& c : cases) {
        App().bDevConnected = true; // from an earlier time
        window.RefreshPage();
        shell.boxes.clear();
        port.answer = c.answer;
        port.openError = c.openError;
        Press("cmdDiag");
        EXPECT_EQ(shell.BoxTexts(), QStringList{c.message});
        EXPECT_FALSE(App().bDevConnected);
        EXPECT_EQ(Lamps(), (std::array{255, -1, -1}));
        ExpectDeviceSide(false, false);
        ExpectNothingStaysDisabled();
        EXPECT_FALSE(port.IsOpen());
    }
    Press("cmdForw");
    EXPECT_EQ(PageName(), "FormF4") << "no error locks the page";
}

TEST_F(FormF3Test, Diagnosis_WhatNobodyExpectedIsReportedAndLeavesNothingDisabled)
{
    ShowPage(0);
    port.answer = [](const QByteArray&) -> QByteArray { throw std::runtime_error("broken"); };
    Press("cmdDiag");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"FormF3\nbroken"});
    ExpectNothingStaysDisabled();
}

TEST_F(FormF3Test, Diagnosis_WhatWasPressedMeanwhileHasNoEffect)
{
    ShowPage(0);
    port.answer = [this](const QByteArray& request) {
        PostClick(Find<QPushButton>("cmdForw"));
        return IskraAtAddress(33)(request);
    };
    Press("cmdDiag");
    QApplication::processEvents();
    EXPECT_EQ(PageName(), "FormF3");
    PostClick(Find<QPushButton>("cmdForw"));
    QApplication::processEvents();
    EXPECT_EQ(PageName(), "FormF4") << "afterwards it has";
}

TEST_F(FormF3Test, Diagnosis_UsesTheTypedPort)
{
    ShowPage(0);
    Find<QComboBox>("cboCOM").setEditText("8");
    Press("cmdDiag");
    EXPECT_EQ(port.settings.number, 8);
}

TEST_F(FormF3Test, Transfer_ReadsWhatTheInstrumentHolds)
{
    ShowPage(0);
    Press("cmdDiag");
    Enter("cboDevTrans_0", "1500");
    EXPECT_EQ(LabelText("lblDevTrans_0"), "1500 / 100");
    EXPECT_FALSE(App().bProjectDirty && App().dTransPrimary[0] != 1) << "held only";
    port.requests.clear();
    Press("cmdDevTrans_0");
    EXPECT_EQ(port.requests.size(), 4U);
    EXPECT_EQ(LabelText("lblDevTrans_0"), "20000 / 100");
    ExpectNothingStaysDisabled();
}

TEST_F(FormF3Test, Transfer_WritesWhatIsTyped)
{
    ShowPage(0);
    Press("cmdDiag");
    port.requests.clear();
    Find<QComboBox>("cboDevTrans_0").setEditText("1500");
    Press("cmdDevTrans_1");
    ASSERT_EQ(port.requests.size(), 7U) << "three written, four read back";
    EXPECT_EQ(port.requests[0], Crc16Append(QByteArray::fromHex("210600103A98")));
    ExpectNothingStaysDisabled();
}

TEST_F(FormF3Test, Transfer_IsLockedMeanwhileAndAFailureLeavesNothingDisabled)
{
    ShowPage(0);
    Press("cmdDiag");
    for (const char* button : {"cmdDevTrans_0", "cmdDevTrans_1", "cmdReset"}) {
        shell.boxes.clear();
        port.answer = [&](const QByteArray&) {
            EXPECT_FALSE(IsEnabled("cboDevTrans_0"));
            EXPECT_FALSE(IsEnabled("cmdReset"));
            EXPECT_NE(QApplication::overrideCursor(), nullptr);
            return QByteArray();
        };
        Press(button);
        EXPECT_EQ(shell.boxes.size(), 1U) << button;
        EXPECT_FALSE(port.IsOpen());
        ExpectDeviceSide(true, true);
        ExpectNothingStaysDisabled();
    }
    EXPECT_EQ(shell.BoxTexts(), QStringList{"COM1: Konnte Reset nicht durchführen!"});
}

TEST_F(FormF3Test, Reset_SendsItsRequest)
{
    ShowPage(0);
    Press("cmdDiag");
    port.requests.clear();
    Press("cmdReset");
    EXPECT_EQ(port.requests, std::vector{Crc16Append(QByteArray::fromHex("2106000DFFFF"))});
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormF3Test, Lamps_AreDescribedInWords)
{
    ShowPage(0);
    EXPECT_EQ(Find<QWidget>("shpLED_0").accessibleDescription(), "rot");
    EXPECT_EQ(Find<QWidget>("shpLED_2").accessibleDescription(), "aus");
    EXPECT_EQ(LabelText("lblState"), "Nicht verbunden");
    App().bDevConnected = true;
    window.RefreshPage();
    EXPECT_EQ(Find<QWidget>("shpLED_2").accessibleDescription(), "grün");
    EXPECT_EQ(LabelText("lblState"), "Verbunden");
}

TEST_F(FormF3Test, Lamps_CanAllBeOff)
{
    StatusLamps lamps;
    lamps.Show(LampState::AtWork);
    lamps.Show(LampState::Off);
    const QColor face = lamps.palette().color(QPalette::Active, QPalette::Button);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(lamps.findChild<QWidget*>(QString::fromLatin1(Element("shpLED", i)))->property("colour").toInt(),
                  face.red() | face.green() << 8 | face.blue() << 16);
}

} // namespace
} // namespace korvanel::test
