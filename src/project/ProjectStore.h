// The project file: creating it, moving header and settings between the file and the application block, opening,
// saving, copying a snapshot. Rows are the business of the value tables; they reach the file at once and know no save.
#pragma once

#include "core/TableDb.h"
#include "project/ProjectTransfer.h"

#include <QString>

#include <functional>

namespace korvanel {

/// What becomes of a file that has the name of a new one.
enum class ExistingFile
{
    Stays, ///< which is a failure
    Goes   ///< once the new one is complete
};

/// Creates the file with its value tables for the current net configuration and the two key-value tables, beside its
/// place, and then puts it there. `fill` puts in what else belongs into it from the beginning, while the project in the
/// block is the file that isn't in its place yet. A failure, DbError of `fill` among them, shows the engine's words and
/// returns false; nothing has changed then, and neither has if `fill` throws anything else, which comes through.
bool CreateProjectFile(QString path, ExistingFile existing = ExistingFile::Stays,
                       const std::function<void()>& fill = {});

/// Writes header and settings into the open project, saved at the present moment. Throws DbError.
void WriteProjectHeader();

/// Takes the machines out of the open project. Throws DbError.
void DeleteProjectMachines();

/// Reads a project into the block. A file that is none is told and sets `bFileError`.
void OpenProject(const QString& path);

/// Writes header and settings. A failure is told and leaves the project changed; true on success.
bool SaveProject();

/// Saves if header or settings have changed.
void SaveIfDirty();

/// Throws DbLocked if another program writes a database at the moment, as a recording does from its begin to its end.
void RequireNotInUse(const QString& path);

/// Copies the project's file, replacing a file of that name with whatever journal stands beside it. A failure is told.
bool CopyProject(const QString& target);

/// Writes the measurement header and copies the file beside itself under a name that ends in the start time of a
/// planned recording; "." and ":" in it become "-". The project goes on in the old file. False after a failure, which
/// is told.
bool SnapshotProject(const QString& startTime);

} // namespace korvanel
