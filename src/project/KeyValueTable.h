// One of the two key-value tables of a project file. `Name` is the key; the value lies in the column for its type, the
// others are null. Statements are prepared once for all keys of a transfer.
#pragma once

#include "core/TableDb.h"
#include "project/ProjectKeys.h"

#include <SQLiteCpp/Statement.h>

namespace korvanel {

/// Statement that creates the table.
QString CreateStatement(ProjectTable table);

class KeyValueTable
{
public:
    /// Throws DbError if the file has no such table.
    KeyValueTable(TableDb& db, ProjectTable table);
    /// Sets the field from the key's row; without a row the field stays. Throws DbError for a value that doesn't fit.
    void Read(const ProjectKey& key);
    /// Changes the key's row or adds it, where it is stored on demand once there is something to store.
    void Write(const ProjectKey& key);

private:
    SQLite::Statement& Prepared(SQLite::Statement& statement, const ProjectKey& key);

    SQLite::Statement select;
    SQLite::Statement update;
    SQLite::Statement insert;
};

} // namespace korvanel
