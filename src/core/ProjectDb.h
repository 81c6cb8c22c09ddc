// The open project's database as the current one. It is closed between operations: whoever reads or writes opens it,
// does its work and closes it again. Nested openings share one connection, so that a run which holds the file open
// can be read beside.
#pragma once

#include "core/TableDb.h"

#include <array>
#include <memory>

namespace korvanel {

/// Something prepared on the current database that has to go before the database closes: a write recordset, a
/// look-up kept for the next row.
class Recordset
{
public:
    Recordset() = default;
    Recordset(const Recordset&) = delete;
    Recordset& operator=(const Recordset&) = delete;
    virtual ~Recordset() = default;
};

enum class RecordsetSlot
{
    Write,
    Append,
    Update,
    ReadRow,
    ReadTemp,
    ReadSimulated,
    kCount
};

/// Opens `sProjectPath`, shared and writable, as the current database. Throws DbError.
void OpenProjectDb();

/// Ends one opening; the last one drops the current recordsets and closes the file.
void CloseProjectDb();

/// The same with a failure swallowed: the next access to the rows then tells what is wrong.
void OpenDbGuarded();
void CloseDbGuarded();

/// Opens for the length of a scope.
class ProjectDbScope
{
public:
    ProjectDbScope() { OpenProjectDb(); }
    ProjectDbScope(const ProjectDbScope&) = delete;
    ProjectDbScope& operator=(const ProjectDbScope&) = delete;
    ~ProjectDbScope() { CloseProjectDb(); }
};

/// The current database. Throws DbError if none is open.
TableDb& ProjectDb();
bool IsProjectDbOpen();

/// What is kept in a slot, as its type, or nothing.
std::unique_ptr<Recordset>& CurrentRecordset(RecordsetSlot slot);

/// Drops all recordsets, as after a change of the tables that they were prepared for.
void DropRecordsets();

/// Of the current database.
bool TableExists(const QString& name);
void DropTable(const QString& name);

} // namespace korvanel
