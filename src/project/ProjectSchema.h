// The schema of the project file and how it grows: a list of steps, each of which brings a file of the version before
// to its own. The list is appended to and never changed, so that every file ever written can be brought up. A new
// column of the value tables needs no step: it says in its own line since which version it is there.
#pragma once

#include "core/TableDb.h"
#include "data/ValueColumns.h"

#include <span>

namespace korvanel {

/// What has to be done to a file of the version before, beside the columns of the value tables.
struct SchemaStep
{
    int version;
    void (*apply)(TableDb& db) = nullptr; ///< may throw DbError; nothing where columns are all that is new
};

/// The steps and columns that make a schema.
struct ProjectSchema
{
    std::span<const SchemaStep> steps; ///< by version, from 1
    std::span<const ValueColumn> columns;

    /// The version that this program writes: that of the last step or of the newest column.
    int Version() const;
};

/// That of this program.
ProjectSchema CurrentSchema();

/// How a file stands to this program.
enum class SchemaAge
{
    Older,
    Current,
    Newer, ///< a later version of the program has written it; what that has added is left alone
};

/// Throws DbError for a version that there never was.
SchemaAge AgeOfSchema(TableDb& db, const ProjectSchema& schema = CurrentSchema());

/// Brings an older project of a net configuration up to this program's schema, in one transaction. A write-protected
/// file stays as it is; readers take what it lacks as not known. Throws DbError, with the file as it was.
void BringUpProject(TableDb& db, int netConf, const ProjectSchema& schema = CurrentSchema());

} // namespace korvanel
