// Every message box of the program goes through here, so that one place decides titles and icons, and every routine
// that may fail is run through `RunGuarded`, so that one place reports what nobody expected.
#pragma once

#include "core/Shell.h"

#include <QString>

#include <functional>

namespace korvanel {

void ShowError(const QString& text);
void ShowInformation(const QString& text);

/// Tells that the file is none of this program's.
void ShowBadFormat(const QString& path);

/// Tells that another program uses the file at the moment.
void ShowFileInUse(const QString& path);

/// Tells that a path can't be found or used. The project's label falls back to the default file in the current
/// directory, page and status bar are refreshed, the open dialog presets "*.KVL", and `bFileError` is cleared.
void ShowNotFound(const QString& path);

/// The message of `ShowNotFound` alone, for files that are no projects.
void ShowPathNotFound(const QString& path);

/// Asks whether to delete a file; sets `bFileError` if the answer is No.
void ConfirmDelete(const QString& fileName);

/// Asks whether to overwrite a file; sets `bFileError` unless the answer is Yes, clears it otherwise.
void ConfirmOverwrite(const QString& path);

/// Deletes a file; a failure is swallowed.
void DeleteFile(const QString& path);

/// Tests typed text against a range and puts the normalised text back. On failure the range is told and false returned.
bool CheckNumberRange(QString& value, double minimum, double maximum);

/// The general error report: the operation's name and the error's own words.
void ReportFailure(const QString& operation, const QString& reason);

/// Runs an operation; an error that escapes from it ends in the general error report. The program goes on.
void RunGuarded(const QString& operation, const std::function<void()>& routine);

} // namespace korvanel
