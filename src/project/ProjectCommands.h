// What the file menu does with projects: New, Open, Save, Save As, Close, Delete, with their dialogs and questions.
#pragma once

#include <QString>

namespace korvanel {

void NewProject();

/// Asks for a file and opens it.
void OpenProjectFromMenu();

/// Opens a file of the recent list.
void OpenRecentProject(const QString& path);

/// Saves header and settings, as the menu does.
void SaveProjectFromMenu();

/// Copies the project under another name and goes on in the copy.
void SaveProjectAs();

/// The same from the page of general data, which adds nothing to the recent list.
void SaveProjectAsFromPage();

/// Closes the project, after a question if it has changes. False if the user cancels.
bool CloseProject();

void CloseProjectFromMenu();

void DeleteProjectFile();

/// Asks for a path to write to. The suggestion, confirmed unchanged, counts as cancelled. A file of the chosen name is
/// deleted after the user has agreed. `source` is a file that is to be copied there and must not be deleted: its own
/// name in another spelling counts as cancelled too. Empty if nothing was chosen.
QString SaveAsDialog(const QString& title, const QString& suggestion, const QString& filter, const QString& extension,
                     const QString& source = {});

} // namespace korvanel
