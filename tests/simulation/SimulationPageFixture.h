// The dialogs of the second machine over the main window: a motor database of four machines, and recordings of a motor
// of 18.5 kW that a test stores.
#pragma once

#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/ResultPageFixture.h"

#include <QDialog>
#include <QDir>
#include <QPushButton>

#include <cstdlib>

namespace korvanel::test {

class SimulationPageTest : public ResultPageTest
{
protected:
    SimulationPageTest()
    {
        App().sMotorDbPath = PathOf("MOTORS.MDB");
        {
            SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            db.exec(kCreateMotor);
        }
        MachineRecord generator = RatedMachine("Generator");
        generator.Polpaarzahl = 3;
        generator.Pmech = -5500;
        generator.U = 690;
        generator.f = 60;
        MachineRecord unrated = RatedMachine("Ohne Nenndaten");
        unrated.Polpaarzahl = 4;
        unrated.cosphi.reset();
        AddMachines({KnownMachine(), RatedMachine(), generator, unrated});
    }

    void AddMachines(std::vector<MachineRecord> machines) const
    {
        TableDb db = TableDb::Open(App().sMotorDbPath);
        for (MachineRecord& machine : machines)
            WriteMachine(db, machine, true);
    }
    void ExecuteMotors(const QString& sql) const
    {
        SQLite::Database(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE).exec(sql.toStdString());
    }

    /// A project with a machine and so many sets; the last one is far beyond the machine's rating.
    void OpenWithSets(int count)
    {
        OpenProjectOf(2);
        std::vector<tValueRow> rows;
        for (int set = 1; set <= count; ++set)
            rows.push_back(WorkingSet(20, 10000 + set, 30 + set % 30, 9000));
        if (count > 0)
            rows.back() = WorkingSet(60, 40000, 230, 36000);
        Store(std::move(rows));
        App().bProjectDirty = false;
    }
    /// The machine of 7.5 kW in the project, with its sets.
    static void TakeSecondMachine()
    {
        App().MachineII.record = RatedMachine();
        App().bASMSim = true;
        ASSERT_TRUE(RunSimulation());
        ASSERT_TRUE(EvaluateSimulation());
    }

    /// A picture of a dialog for people, where a folder for such is given.
    static void TakePicture(QWidget& dialog, const QString& name)
    {
        const char* folderOfPictures = std::getenv("KORVANEL_PICTURES");
        if (folderOfPictures)
            dialog.grab().save(QDir(QString::fromUtf8(folderOfPictures)).filePath(name + QStringLiteral(".png")));
    }
    static void Press(const QWidget& dialog, const char* button) { ControlOf<QPushButton>(dialog, button).click(); }
    static QString CellOf(const QWidget& dialog, const char* table, int row, int column)
    {
        const auto* item = ControlOf<QTableWidget>(dialog, table).item(row, column);
        return item ? item->text() : QStringLiteral("nothing");
    }
};

} // namespace korvanel::test
