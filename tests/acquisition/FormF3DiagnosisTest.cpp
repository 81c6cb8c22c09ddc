// The page of the instrument at work: self-diagnosis, transfer of transformers, reset of counters, lamps.
#include "acquisition/FormF3Fixture.h"

#include "acquisition/StatusLamps.h"
#include "support/Keys.h"

#include <QLineEdit>
#include <QTabWidget>

namespace korvanel::test {
namespace {

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
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Messgerät - Konfiguration\nbroken"});
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
