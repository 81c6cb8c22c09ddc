// A motor database in the test's own folder, made with plain SQL, and machines to put into it.
#pragma once

#include "motors/MotorDatabase.h"
#include "support/ProjectFixture.h"

namespace korvanel::test {

inline constexpr const char* kCreateMotor =
    "CREATE TABLE Motor (set_ID INTEGER PRIMARY KEY, Hersteller TEXT, Polpaarzahl INTEGER, Pmech REAL, U REAL, M REAL, "
    "n REAL, I REAL, f REAL, cosphi REAL, eta REAL, Po REAL, Uo REAL, Io REAL, fo REAL, Schaltungsart TEXT, Rs REAL, "
    "Mkipp_Mn REAL, Tth REAL, I_CL TEXT, Masse REAL, Mreib INTEGER)";

/// Everything is known of it, so that it can have a duplicate.
inline MachineRecord KnownMachine()
{
    MachineRecord machine;
    machine.Hersteller = QStringLiteral("Werk A");
    machine.Polpaarzahl = 2;
    machine.Pmech = 18500;
    machine.U = 400;
    machine.M = 120.8;
    machine.n = 1462.5;
    machine.I = 32.85;
    machine.f = 50;
    machine.cosphi = 0.898;
    machine.eta = 0.9052;
    machine.Po = 647.8;
    machine.Uo = 400;
    machine.Io = 11;
    machine.fo = 50;
    machine.Schaltungsart = QStringLiteral("D");
    machine.Rs = 0.56;
    machine.Mkipp_Mn = 3.1;
    machine.Tth = 1800;
    machine.I_CL = QStringLiteral("F");
    machine.Masse = 180;
    return machine;
}

/// A machine of which no more than the rating plate is known.
inline MachineRecord RatedMachine(const QString& remark = QStringLiteral("Werk B"))
{
    MachineRecord machine;
    machine.Hersteller = remark;
    machine.Polpaarzahl = 2;
    machine.Pmech = 7500;
    machine.U = 400;
    machine.M = 48.65;
    machine.n = 1472;
    machine.I = 14.43;
    machine.f = 50;
    machine.cosphi = 0.83;
    machine.eta = 0.904;
    return machine;
}

class MotorDbTest : public ProjectTest
{
protected:
    /// Makes the file and sets it as the motor database.
    void MakeMotorDb(const QString& name = QStringLiteral("MOTORS.MDB"))
    {
        App().sMotorDbPath = PathOf(name);
        SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec(kCreateMotor);
    }
    TableDb OpenFile() const { return TableDb::Open(App().sMotorDbPath); }

    /// Adds machines as rows 1, 2 and so on.
    void Add(std::vector<MachineRecord> machines) const
    {
        TableDb db = OpenFile();
        for (MachineRecord& machine : machines)
            WriteMachine(db, machine, true);
    }
    bool HasDuplicate(MachineRecord record) const
    {
        TableDb db = OpenFile();
        return FindDuplicate(db, record, DuplicateScope::Any);
    }
    MachineRecord Read(qint32 number) const
    {
        TableDb db = OpenFile();
        MachineRecord record;
        ReadMachine(db, number, record);
        return record;
    }
    QString QueryMotors(const QString& sql) const { return QueryFile(App().sMotorDbPath, sql); }
    void ExecuteMotors(const QString& sql) const
    {
        SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
        db.exec(sql.toStdString());
    }
};

} // namespace korvanel::test
