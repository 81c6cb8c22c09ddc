#include "instruments/FormH5.h"

#include "support/Dialogs.h"
#include "support/IskraAtAddress.h"
#include "support/Keys.h"
#include "support/ScriptedPort.h"
#include "support/WindowFixture.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace korvanel::test {
namespace {

class FormH5Test : public BlockTest
{
protected:
    FormH5Test()
    {
        App().ThePort = &port;
        App().lModbusAddress = 12;
        App().lComPort = 4;
        App().sDevice = QStringLiteral("YOKOGAWA WT130 3Ø3W");
        App().sDeviceId = QStringLiteral("before");
        App().bProjectOpen = true;
        port.answer = IskraAtAddress(7);
        Open();
    }
    void Open()
    {
        dialog = std::make_unique<FormH5>(nullptr);
        dialog->setModal(true);
        dialog->show();
    }
    template <typename Control>
    Control& Find(const char* name) const
    {
        return ControlOf<Control>(*dialog, name);
    }
    void TypeInto(const char* name, const QString& text) const { Find<QLineEdit>(name).setText(text); }
    void Press(const char* name) const { Find<QPushButton>(name).click(); }
    QString Info(int index) const { return Find<QLabel>(index == 0 ? "lblInfo_0" : "lblInfo_1").text(); }
    void Test(const QString& address) const
    {
        TypeInto("txtAddress_0", address);
        Press("cmdSearch_0");
    }
    void Search(const QString& from, const QString& to) const
    {
        TypeInto("txtAddress_1", from);
        TypeInto("txtAddress_2", to);
        Press("cmdSearch_1");
    }
    void ExpectBlockUntouched() const
    {
        EXPECT_EQ(App().lModbusAddress, 12);
        EXPECT_EQ(App().lComPort, 4);
        EXPECT_EQ(App().sDevice, "YOKOGAWA WT130 3Ø3W");
        EXPECT_EQ(App().sDeviceId, "before");
        EXPECT_FALSE(App().bProjectDirty);
    }

    ScriptedPort port;
    std::unique_ptr<FormH5> dialog;
};

TEST_F(FormH5Test, Open_ShowsItsTexts)
{
    EXPECT_EQ(dialog->windowTitle(), "MODBUS Geräteadresse");
    EXPECT_EQ(Info(0), "Bitte wählen Sie ein Messgerät, geben dessen Adresse ein und drücken 'Überprüfung'");
    EXPECT_EQ(Info(1), "Bitte wählen Sie ein Messgerät, setzen ein Suchintervall fest und drücken 'Suche starten'");
    EXPECT_EQ(Find<QPushButton>("cmdSearch_0").text(), "Überprüfung");
    EXPECT_EQ(Find<QPushButton>("cmdSearch_1").text(), "Suche starten");
    EXPECT_EQ(Find<QComboBox>("cboDevice").count(), 1);
    EXPECT_EQ(Find<QComboBox>("cboDevice").currentText(), "ISKRA MI71XX");
    EXPECT_EQ(Find<QComboBox>("cboCOM").currentText(), "4");
    EXPECT_EQ(Find<QTabWidget>("tabMODBUS").count(), 2);
    EXPECT_EQ(Find<QLineEdit>("txtAddress_0").text(), "12");
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled());
    ExpectBlockUntouched();
}

TEST_F(FormH5Test, Open_WithoutAnAddressTakesThirtyThree)
{
    App().lModbusAddress = 0;
    Open();
    EXPECT_EQ(App().lModbusAddress, 33);
    EXPECT_EQ(Find<QLineEdit>("txtAddress_0").text(), "33");
}

TEST_F(FormH5Test, Test_FindsTheInstrument)
{
    Test("7");
    EXPECT_EQ(Info(0), "Messgerät gefunden\nUm den Vorgang abzuschließen drücken Sie 'OK'");
    EXPECT_TRUE(Find<QPushButton>("cmdOK").isEnabled());
    ExpectBlockUntouched();
}

TEST_F(FormH5Test, Test_OfAnotherAddressDoesNotFindIt)
{
    Test("8");
    EXPECT_EQ(Info(0), "Messgerät nicht gefunden!\nBitte versuchen Sie eine andere Adresse.");
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled());
    EXPECT_TRUE(Find<QPushButton>("cmdSearch_0").isEnabled());
    ExpectBlockUntouched();
}

TEST_F(FormH5Test, Test_OutsideOrHostileIsRefusedUnsent)
{
    for (const char* address : {"248", "0", "-5", "", "abc", "1e999", "99999999", "\u0663"}) {
        Test(QString::fromUtf8(address));
        EXPECT_EQ(Info(0), "Die Adresse darf nur zwischen 1 und 247 liegen.") << address;
    }
    EXPECT_EQ(port.openings, 0);
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled());
}

TEST_F(FormH5Test, Search_FindsTheFirst)
{
    Search("1", "247");
    EXPECT_EQ(Info(1), "1. gefundene Geräteadresse ist: 7\nUm den Vorgang abzuschließen drücken Sie 'OK'");
    EXPECT_EQ(Find<QLineEdit>("txtAddress_0").text(), "7");
    EXPECT_TRUE(Find<QPushButton>("cmdOK").isEnabled());
    ExpectBlockUntouched();
}

TEST_F(FormH5Test, Search_WithoutAHit)
{
    Search("8", "20");
    EXPECT_EQ(Info(1), "Messgerät nicht gefunden!\nBitte versuchen Sie ein anderes Intervall.");
    EXPECT_EQ(port.openings, 13);
    EXPECT_NEAR(clock.seconds, 1000 + 13 * 0.3, 1e-9);
    EXPECT_FALSE(Find<QPushButton>("cmdOK").isEnabled());
}

TEST_F(FormH5Test, Search_TurnedRoundTestsNothing)
{
    Search("20", "8");
    EXPECT_TRUE(Info(1).startsWith("Messgerät nicht gefunden!"));
    EXPECT_EQ(port.openings, 0);
}

TEST_F(FormH5Test, Search_OutsideIsRefusedUnsent)
{
    for (const auto& [from, to] : {std::pair{"1", "248"}, {"0", "5"}, {"", ""}, {"abc", "7"}}) {
        Search(from, to);
        EXPECT_EQ(Info(1), "Das Interval darf nur zwischen 1 und 247 liegen.");
    }
    EXPECT_EQ(port.openings, 0);
    EXPECT_GT(Find<QProgressBar>("ProgressBar1").maximum(), 0) << "no endless work is shown";
}

TEST_F(FormH5Test, Search_ShowsWhereItIsAndCannotBeDisturbed)
{
    QStringList infos;
    QList<int> progress;
    port.answer = [&](const QByteArray&) {
        infos << Info(1);
        progress << Find<QProgressBar>("ProgressBar1").value();
        for (const char* name : {"cmdOK", "cmdCancel", "cmdSearch_0", "cmdSearch_1"})
            EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name;
        for (const char* name : {"txtAddress_0", "txtAddress_1", "txtAddress_2", "cboDevice", "cboCOM"})
            EXPECT_FALSE(Find<QWidget>(name).isEnabled()) << name;
        EXPECT_FALSE(Find<QTabWidget>("tabMODBUS").tabBar()->isEnabled());
        PressKey(*dialog, Qt::Key_Escape);
        dialog->close();
        dialog->reject();
        EXPECT_TRUE(dialog->isVisible());
        return QByteArray();
    };
    Search("3", "4");
    EXPECT_EQ(infos, (QStringList{"Prüfe Adresse 3 ...", "Prüfe Adresse 3 ...", "Prüfe Adresse 4 ...",
                                  "Prüfe Adresse 4 ..."}));
    EXPECT_EQ(progress, (QList<int>{3, 3, 4, 4}));
    EXPECT_TRUE(Find<QPushButton>("cmdCancel").isEnabled());
    EXPECT_TRUE(Find<QLineEdit>("txtAddress_2").isEnabled());
    EXPECT_LT(Find<QProgressBar>("ProgressBar1").value(), 1) << "reset";
    PressKey(*dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible()) << "after the search it can be left again";
}

TEST_F(FormH5Test, Search_WhatWasPressedMeanwhileHasNoEffect)
{
    port.answer = [this](const QByteArray&) {
        PostClick(Find<QPushButton>("cmdCancel"));
        return QByteArray();
    };
    Test("8");
    QApplication::processEvents();
    EXPECT_TRUE(dialog->isVisible());
    PostClick(Find<QPushButton>("cmdCancel"));
    QApplication::processEvents();
    EXPECT_FALSE(dialog->isVisible()) << "afterwards it has";
}

TEST_F(FormH5Test, Search_APortThatCantBeOpenedIsAMiss)
{
    port.openError = "Zugriff verweigert";
    Search("1", "5");
    EXPECT_TRUE(Info(1).startsWith("Messgerät nicht gefunden!"));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(Find<QPushButton>("cmdSearch_1").isEnabled());
}

TEST_F(FormH5Test, Search_OfAnUnknownDeviceIsRefused)
{
    Find<QComboBox>("cboDevice").setCurrentIndex(-1);
    Test("7");
    Search("1", "7");
    EXPECT_EQ(Info(0), "Unbekanntes Messgerät");
    EXPECT_EQ(Info(1), "Unbekanntes Messgerät");
    EXPECT_EQ(port.openings, 0);
}

TEST_F(FormH5Test, Search_UsesTheTypedPort)
{
    Find<QComboBox>("cboCOM").setEditText("9");
    Test("7");
    EXPECT_EQ(port.settings.number, 9);
    Press("cmdCancel");
    ExpectBlockUntouched();
}

TEST_F(FormH5Test, EnterInAnAddressStartsItsSearch)
{
    PressKey(Find<QLineEdit>("txtAddress_0"), Qt::Key_Return);
    EXPECT_TRUE(Info(0).startsWith("Messgerät nicht gefunden!"));
    TypeInto("txtAddress_2", "6");
    PressKey(Find<QLineEdit>("txtAddress_2"), Qt::Key_Return);
    EXPECT_TRUE(Info(1).startsWith("Messgerät nicht gefunden!"));
    EXPECT_EQ(port.openings, 1 + 6);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FormH5Test, Ok_TakesOverAddressAndIdentity)
{
    Find<QComboBox>("cboCOM").setEditText("0");
    Test("7");
    Press("cmdOK");
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(App().lModbusAddress, 7);
    EXPECT_EQ(App().sDeviceId, "MI7140 4711");
    EXPECT_EQ(App().lComPort, 1) << "below 1 becomes 1";
    EXPECT_EQ(App().sDevice, "YOKOGAWA WT130 3Ø3W");
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(FormH5Test, Ok_TakesTheAddressThatWasFoundLast)
{
    Test("7");
    Test("8");
    EXPECT_TRUE(Find<QPushButton>("cmdOK").isEnabled());
    Press("cmdOK");
    EXPECT_EQ(App().lModbusAddress, 7);
}

TEST_F(FormH5Test, Ok_WithoutAProjectLeavesNothingToSave)
{
    App().bProjectOpen = false;
    Test("7");
    Press("cmdOK");
    EXPECT_EQ(App().lModbusAddress, 7);
    EXPECT_FALSE(App().bProjectDirty);
    SaveIfDirty();
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH5Test, Cancel_LeavesEverythingAsItWas)
{
    for (const bool byButton : {true, false}) {
        Open();
        Find<QComboBox>("cboCOM").setEditText("9");
        Search("1", "10");
        if (byButton)
            Press("cmdCancel");
        else
            dialog->close();
        EXPECT_FALSE(dialog->isVisible());
        ExpectBlockUntouched();
    }
}

} // namespace
} // namespace korvanel::test
