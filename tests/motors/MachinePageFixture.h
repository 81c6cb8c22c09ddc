// The machine page in the real window, with a motor database of three machines and an instrument in memory.
#pragma once

#include "motors/FormF10.h"
#include "support/FakeInstrument.h"
#include "support/Keys.h"
#include "support/MotorDbFixture.h"
#include "support/WindowFixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTableWidget>
#include <QTimer>

#include <cmath>

namespace korvanel::test {

/// Ratings as the boxes show them: of a machine of the database, and of the project's.
inline const QStringList kKnownRating{"18,5", "400", "50", "1462,5", "32,85", "0,898"};
inline const QStringList kRated{"7,5", "400", "50", "1472", "14,43", "0,83"};

class MachinePageTest : public WindowTest
{
protected:
    MachinePageTest()
    {
        QApplication::setActiveWindow(&window);
        port.answer = [this](const QByteArray& request) { return isSilent ? QByteArray() : instrument.Reply(request); };
        instrument.texts[40] = " 400.0V";
        instrument.texts[12] = "33.000A";
        instrument.texts[28] = "50.00Hz";
        instrument.texts[32] = "  85.00";
        MakeMotorDb();
    }

    /// Three machines in the order of the list: numbers 2, 1 and 3.
    void MakeMotorDb()
    {
        App().sMotorDbPath = PathOf("MOTORS.MDB");
        {
            SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            db.exec(kCreateMotor);
        }
        MachineRecord generator = RatedMachine("Generator");
        generator.Polpaarzahl = 3;
        generator.Pmech = -5500;
        generator.n = 1030;
        generator.cosphi = -0.8;
        generator.I = 11.5;
        AddMachines({KnownMachine(), RatedMachine(), generator});
    }
    void AddMachines(std::vector<MachineRecord> machines)
    {
        TableDb db = TableDb::Open(App().sMotorDbPath);
        for (MachineRecord& machine : machines)
            WriteMachine(db, machine, true);
    }
    /// A project of an asynchronous machine, with the page on show.
    void ShowPage(int netConf = 2)
    {
        if (!App().bProjectOpen)
            OpenInWindow(netConf);
        App().sDevice =
            netConf == 2 ? QString::fromUtf8("ISKRA MI71XX 3Ø3W (3u)") : InstrumentEntries(netConf).value(0);
        App().lModbusAddress = 33;
        window.UnloadAndOpen(kPageMachine);
    }
    QString Motors(const QString& sql) const { return QueryFile(App().sMotorDbPath, sql); }
    void ExecuteMotors(const QString& sql) const
    {
        SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
        db.exec(sql.toStdString());
    }

    void Press(const char* name) { Find<QPushButton>(name).click(); }
    QString Line(const char* name) { return Find<QLineEdit>(name).text(); }
    QString Label(const char* name) { return Find<QLabel>(name).text(); }
    QString Chosen(const char* name) { return Find<QComboBox>(name).currentText(); }
    bool IsEnabled(const char* name) { return Find<QWidget>(name).isEnabled(); }
    bool IsChecked(const char* name) { return Find<QAbstractButton>(name).isChecked(); }
    void Check(const char* name, bool isChecked = true)
    {
        auto& box = Find<QAbstractButton>(name);
        ASSERT_TRUE(box.isEnabled()) << name;
        if (box.isChecked() != isChecked)
            box.click();
    }
    void Choose(const char* name, const QString& text) { Find<QComboBox>(name).setCurrentText(text); }
    void ShowTab(int index) { Find<QTabWidget>("tabAsync").setCurrentIndex(index); }
    /// Types over what stands in a box and stays there.
    void Type(const char* name, const QString& text)
    {
        auto& box = Find<QLineEdit>(name);
        ASSERT_TRUE(box.isEnabled() && !box.isReadOnly()) << name;
        for (int tab = 0; tab < 3; ++tab)
            if (Find<QTabWidget>("tabAsync").widget(tab)->isAncestorOf(&box))
                ShowTab(tab);
        box.setFocus();
        box.selectAll();
        if (text.isEmpty())
            PressKey(box, Qt::Key_Delete);
        TypeKeys(box, text);
    }
    /// Types and leaves the box.
    void Enter(const char* name, const QString& text)
    {
        Type(name, text);
        Find<QLineEdit>("txtComment").setFocus();
    }
    void EnterRating(const QStringList& texts)
    {
        for (int i = 0; i < texts.size(); ++i)
            Enter(("txtBemess_" + QByteArray::number(i)).constData(), texts[i]);
    }
    QStringList Lines(const QByteArray& name, int count)
    {
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts << Line((name + '_' + QByteArray::number(i)).constData());
        return texts;
    }
    QStringList Rating() { return Lines("txtBemess", 6); }
    QStringList NoLoad() { return Lines("txtLeerlauf", 4); }

    FakeInstrument instrument;
    bool isSilent = false;
};

} // namespace korvanel::test
