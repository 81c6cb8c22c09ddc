#include "project/ProjectCommands.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/TableDb.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/DialoguesTexts.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"

#include <QDir>
#include <QFileInfo>

namespace korvanel {

namespace {

const QString kOldExtension = QStringLiteral(".KVL");
const QString kPreset = QStringLiteral("*.MDB");

void ShowProjectPage()
{
    App().iCurrentPage = 1;
    App().TheShell->ShowPage();
}

void ForgetProject()
{
    App().sProjectLabel.clear();
    App().TheShell->RefreshStatusBar();
    App().bProjectOpen = false;
    App().bProjectDirty = false;
}

/// Closes what is open before another project takes its place; false if the user wants to stay.
bool LeaveOpenProject()
{
    SaveIfDirty();
    return !App().bProjectOpen || CloseProject();
}

/// Deletes a file with what the engine has left beside it. False, and told, if the file stays.
bool DeleteDatabase(const QString& path)
{
    try {
        RequireNotInUse(path);
    } catch (const DbLocked&) {
        ShowFileInUse(path);
        return false;
    }
    DeleteFile(path);
    if (QFileInfo::exists(path)) {
        ShowError(texts::cannotDeleteFile + u'\n' + path);
        return false;
    }
    RemoveJournals(path);
    return true;
}

QString AskForFile(const QString& title, const QString& filter)
{
    App().sDialogPreset = kPreset;
    QString path = App().TheShell->AskOpenPath({title, QDir::currentPath(), filter, App().sDialogPreset});
    if (path.isEmpty()) {
        ShowError(texts::noFileChosen);
        App().bFileError = true;
    }
    return path;
}

bool IsOldFormat(const QString& path)
{
    if (!HasExtension(path, kOldExtension))
        return false;
    App().TheShell->ShowBox(
        {App().sProgramTitle.trimmed(), texts::oldFileVersion, BoxIcon::None, BoxButtons::Ok, Answer::Ok});
    App().bFileError = true;
    return true;
}

void OpenPath(const QString& path)
{
    if (IsOldFormat(path))
        return;
    if (!QFileInfo(path).isFile())
        throw DbError("no such file");
    OpenProject(path);
    if (App().bFileError) {
        App().bFileError = false;
        return;
    }
    App().TheShell->EnableProjectMenus(true);
    App().sProjectLabel = path;
    App().bProjectOpen = true;
    App().bProjectDirty = false;
    App().TheShell->RefreshStatusBar();
    ShowProjectPage();
    App().TheShell->AddFileMRU(path);
}

/// Opens the path that `choose` gives. Whatever goes wrong on the way is told with the path.
template <typename Choose>
void OpenChosen(Choose&& choose)
{
    if (!LeaveOpenProject())
        return;
    App().TheShell->UnloadPage();
    App().bFileError = false;
    const QString path = choose();
    if (path.isEmpty())
        return;
    try {
        OpenPath(path);
    } catch (const std::exception&) {
        ShowNotFound(path);
    }
}

/// Copies the project to a path that the user chooses; true if the program goes on in a copy.
bool CopyProjectUnderOtherName()
{
    const QString path = SaveAsDialog(texts::titleSaveAs, App().sProjectPath, texts::filterProject, kProjectExtension,
                                      App().sProjectPath);
    if (path.isEmpty() || path == App().sProjectPath)
        return false;
    if (!CopyProject(path))
        return false;
    App().sProjectPath = path;
    CallHook(Hook::CopyMachines);
    // What could not be saved in the old file must not be missing in the new one.
    if (App().bProjectDirty)
        SaveProject();
    App().TheShell->RefreshPage();
    App().TheShell->RefreshStatusBar();
    return true;
}

} // namespace

QString SaveAsDialog(const QString& title, const QString& suggestion, const QString& filter, const QString& extension,
                     const QString& source)
{
    for (;;) {
        const FileQuestion question{title, suggestion, filter, {}};
        QString path = App().TheShell->AskSavePath(question).value_or(suggestion);
        if (path == suggestion)
            return {};
        if (path.isEmpty())
            continue;
        path = WithExtension(path, extension);
        if (!QFileInfo::exists(path))
            return path;
        if (!source.isEmpty() && QFileInfo::exists(source) && QFileInfo(path) == QFileInfo(source))
            return {};
        ConfirmOverwrite(path);
        const bool isRefused = App().bFileError;
        App().bFileError = false;
        if (!isRefused)
            return path; // whoever writes it puts it in the place of the other one when it is complete
    }
}

void NewProject()
{
    SaveIfDirty();
    if (!CloseProject() && App().bProjectOpen)
        return;
    App().sProjectLabel = App().sDefaultProjectFile;
    App().TheShell->UnloadPage();
    ResetProjectData();
    App().TheShell->RefreshStatusBar();
    const QString directory = JoinPath(App().sProgramDir, QStringLiteral("PROJECTS"));
    QDir().mkpath(directory); // where it can't be made, the dialog starts elsewhere
    App().sProjectPath = JoinPath(directory, QStringLiteral("PROJECT1.MDB"));
    const QString path =
        SaveAsDialog(texts::titleNewProject, App().sProjectPath, texts::filterProject, kProjectExtension);
    if (path.isEmpty())
        return;
    App().sProjectPath = path;
    // Where nothing is created and another project keeps the name, there is nothing to go on with.
    if (!CreateProjectFile(path, ExistingFile::Goes) && QFileInfo::exists(path))
        return;
    SaveProject();
    BuildColumnLayout();
    App().TheShell->EnableProjectMenus(true);
    App().bProjectOpen = true;
    App().bProjectDirty = true;
    ShowProjectPage();
}

void OpenProjectFromMenu()
{
    OpenChosen([] { return AskForFile(texts::titleOpen, texts::filterProject); });
}

void OpenRecentProject(const QString& path)
{
    OpenChosen([&path] {
        App().TheShell->SelectRecentFile(path);
        return path;
    });
}

void SaveProjectFromMenu()
{
    if (App().bProjectDirty)
        SaveIfDirty();
    else
        SaveProject();
}

void SaveProjectAs()
{
    SaveIfDirty();
    if (CopyProjectUnderOtherName())
        App().TheShell->AddFileMRU(App().sProjectPath);
}

void SaveProjectAsFromPage()
{
    SaveIfDirty();
    CopyProjectUnderOtherName();
}

bool CloseProject()
{
    if (!App().bProjectOpen)
        return true;
    if (App().bProjectDirty) {
        const Answer answer = App().TheShell->ShowBox(
            {texts::titleSaveProject, texts::saveChanges, BoxIcon::Question, BoxButtons::YesNoCancel, Answer::Yes});
        if (answer == Answer::Cancel) {
            App().iExitAction = kExitCancelled;
            return false;
        }
        if (answer == Answer::Yes)
            SaveProjectAs();
        if (answer == Answer::Yes && App().bProjectDirty) { // the changes are nowhere yet
            App().iExitAction = kExitCancelled;
            return false;
        }
    }
    App().sProjectLabel.clear();
    App().TheShell->RefreshStatusBar();
    App().TheShell->EnableProjectMenus(false);
    App().bProjectOpen = false;
    App().bProjectDirty = false; // whoever answered No wants no later save either
    return true;
}

void CloseProjectFromMenu()
{
    SaveIfDirty();
    if (!CloseProject())
        return;
    App().TheShell->UnloadPage();
    ForgetProject();
}

void DeleteProjectFile()
{
    SaveIfDirty();
    App().bFileError = false;
    const QString path = AskForFile(texts::titleDelete, texts::filterDelete);
    if (!HasExtension(path, kOldExtension) && !HasExtension(path, kProjectExtension)) {
        ShowBadFormat(path);
        App().bFileError = true;
    }
    if (App().bFileError) {
        App().bFileError = false;
        return;
    }
    ConfirmDelete(path);
    const bool isAgreed = !App().bFileError;
    App().bFileError = false;
    if (path.compare(App().sProjectPath, Qt::CaseInsensitive) == 0) {
        // The program lets go of the project whatever the answer was.
        App().TheShell->UnloadPage();
        ForgetProject();
    }
    if (isAgreed)
        DeleteDatabase(path);
}

} // namespace korvanel
