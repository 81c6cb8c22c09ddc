// The motor database: the machines that a user knows, in a file of their own that many projects share, and the copies
// of them that a project keeps. The file is opened and closed around each operation.
#pragma once

#include "core/MachineInUse.h"
#include "core/TableDb.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace korvanel {

/// Opens the motor database of `sMotorDbPath` for an operation. A missing file is told, and the user may choose another
/// one; null if there is none in the end, or none that can be used, which has been told then.
std::unique_ptr<TableDb> OpenMotorDb();
void CloseMotorDb(std::unique_ptr<TableDb>& db);

/// Reads a row of `Motor`; a missing row leaves the record empty. Throws DbError, also for a value of another type.
void ReadMachine(TableDb& db, qint32 set_ID, MachineRecord& record);

/// Writes the record: as a new row under the first free number (`isNew` without a number in the record), as a new row
/// under the record's number, or over the row of its number. Throws DbError, with table and record as they were.
void WriteMachine(TableDb& db, MachineRecord& record, bool isNew);

/// Deletes the row of a number, if there is one. Throws DbError.
void DeleteMachine(TableDb& db, qint32 set_ID);

/// How a search for a machine of the same data ends its condition.
enum class DuplicateScope
{
    OthersOnly, ///< any row but the record's own
    Row,        ///< the row of a number only
    Any         ///< any row; the record takes the number of the first one that is found, or loses its own
};

/// Whether a row holds the same data; `id` is the number of `DuplicateScope::Row`. A record with anything unknown never
/// has a duplicate. Throws DbError.
bool FindDuplicate(TableDb& db, MachineRecord& record, DuplicateScope scope, std::optional<qint32> id = std::nullopt);

/// Asks whether to add a machine of the project that the active database doesn't hold, when `bMotorDbCheck` is set. The
/// record takes the number of its row there. No makes the machine invalid, or ends the simulation. Failures are told.
void CheckMachineInDb(MachineRecord& record, WhichMachine which);

/// Puts the record into the project's table `Motor`, which is created if missing; true if the project's row was
/// replaced. A failure is told, with the project as it was.
bool CopyMachineIntoProject(const MachineRecord& record, WhichMachine which);

/// The same, but throws DbError.
bool PutMachineIntoProject(const MachineRecord& record, WhichMachine which);

/// Makes Motor/Generator I the machine of the project and, if it takes the place of another one, recomputes all sets
/// with it: both in one transaction. `iCalcMethod` changes to the other method before if its own can't be used any
/// more. A failure is told (ArithmeticFault is thrown), and project and block have the former machine and method then.
/// True if the machine in use is the project's.
bool PassMachineOn();

/// Puts the machines in use into a project that was saved under another name.
void CopyMachinesIntoProject();

/// Takes the machines of the project in `sProjectPath`, compares them with the motor database and builds the model of
/// the first. Throws DbError for a project whose machines can't be read.
void LoadProjectMachines();

/// One line of the list of machines.
struct MachineLine
{
    qint32 set_ID = 0;
    MachineRecord record;
};

/// Condition of the list; what is not there is not asked for.
struct MachineFilter
{
    std::optional<int> polePairs = {};
    std::optional<double> Pmech = {}; ///< kW, the least; for a generator the greatest
    std::optional<double> U = {};     ///< V
    bool isGenerator = false;
    std::optional<double> f = {}; ///< Hz
    std::optional<QString> Hersteller = {};
};

/// Numbers of all machines, or of those of a filter, in the fixed order of the list. A row with a value of another
/// type, or without a number, is left out. Throws DbError.
std::vector<qint32> ListMachineNumbers(TableDb& db, const std::optional<MachineFilter>& filter = std::nullopt);

/// Counts machines, and stops counting at a limit. Throws DbError.
int CountMachinesUpTo(TableDb& db, int limit);

/// The machines of some numbers, in their order, read at once. One that can't be read, or is gone, is empty. Throws
/// DbError.
std::vector<MachineRecord> ReadMachines(TableDb& db, std::span<const qint32> numbers);

/// The machines of some rows of a list of numbers, as a grid shows them; fewer where the list ends. Whoever scrolls is
/// told nothing: without the file there are none.
std::vector<MachineRecord> MachinesOfRows(std::span<const qint32> numbers, int first, int count);

/// The machines themselves, for a database that isn't too large.
std::vector<MachineLine> ListMachines(TableDb& db, const std::optional<MachineFilter>& filter = std::nullopt);

/// The same one by one, until `visit` returns false.
void VisitMachines(TableDb& db, const std::optional<MachineFilter>& filter,
                   const std::function<bool(const MachineLine&)>& visit);

/// Whether a file can be the motor database: it has machines and is no project.
bool IsMotorDatabase(const QString& path);

/// Whether a file can't be looked at because another program writes it at the moment.
bool IsDatabaseInUse(const QString& path);

/// Makes a file the motor database, also of later starts, and compares the machines of the open project with it.
void UseMotorDatabase(const QString& path);

} // namespace korvanel
