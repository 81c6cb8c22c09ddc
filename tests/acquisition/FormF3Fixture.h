// The page of the instrument in the real main window, with an instrument that answers on a port in memory.
#pragma once

#include "acquisition/FormF3.h"
#include "core/window/EntryBox.h"
#include "support/IskraAtAddress.h"
#include "support/ScriptedPort.h"
#include "support/WindowFixture.h"

#include <QLabel>
#include <QPushButton>

namespace korvanel::test {

inline constexpr const char* kIskra = "ISKRA MI71XX 1Ø2W (1b)";

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

} // namespace korvanel::test
