#include "project/ProjectStore.h"

#include "core/Clock.h"
#include "core/Hooks.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/ProjectDb.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "data/ValueTables.h"
#include "project/KeyValueTable.h"
#include "project/ProjectSchema.h"
#include "project/RecordingHeading.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace korvanel {

namespace {

constexpr std::initializer_list<const char*> kTables{"Overview",       "Settings",        "SampledValues",
                                                     "ComputedValues", "SimulatedValues", "Motor"};
constexpr std::initializer_list<const char*> kValueTables{"SampledValues", "ComputedValues", "SimulatedValues"};

void CreateTables()
{
    DbTransaction transaction(ProjectDb());
    CreateValueTables();
    ProjectDb().Execute(CreateStatement(ProjectTable::Overview));
    ProjectDb().Execute(CreateStatement(ProjectTable::Settings));
    transaction.Commit();
}

} // namespace

namespace {

/// The file under a name of its own, with all its tables. Throws DbError.
void MakeDraft(const QString& draft)
{
    TableDb::Create(draft, kProjectApplicationId, CurrentSchema().Version());
    App().sProjectPath = draft;
    const ProjectDbScope scope;
    CreateTables();
}

} // namespace

// By value: it is mostly the path in the block, which is that of the draft for a while.
bool CreateProjectFile(QString path, ExistingFile existing)
{
    const QString draft = path + QStringLiteral(".neu");
    QString failure;
    try {
        if (existing == ExistingFile::Stays && QFileInfo::exists(path))
            throw DbError(texts::fileExists.toStdString());
        DeleteFile(draft); // of an attempt that was cut short
        MakeDraft(draft);
        RemoveJournals(path);
        failure = ReplaceFile(draft, path);
    } catch (const DbError& error) {
        failure = QString::fromUtf8(error.what());
    }
    App().sProjectPath = std::move(path);
    if (failure.isEmpty())
        return true;
    DeleteFile(draft); // a file without tables would only puzzle whoever finds it
    ShowError(failure);
    return false;
}

void DeleteProjectMachines()
{
    const QString table = QStringLiteral("Motor");
    if (TableExists(table))
        ProjectDb().Execute(QStringLiteral("DELETE FROM %1;").arg(BracketedName(table)));
}

namespace {

/// What the user is told of a project that was opened.
struct OpenedFile
{
    bool isReadOnly = false;
    bool isNewer = false; ///< a later version of the program has written it
};

/// Reads the project in `sProjectPath` into the block, and brings an older file up.
OpenedFile ReadProject()
{
    clsWaitCursor cursor;
    cursor.Show();
    const ProjectDbScope scope;
    ProjectDb().RequirePlainTables(kTables);
    for (const char* table : kValueTables)
        if (TableExists(QLatin1String(table)))
            ProjectDb().RequireUnique(table, "Set");
    const SchemaAge age = AgeOfSchema(ProjectDb());
    TransferProjectData(Direction::Read);
    if (!TableExists(QStringLiteral("SampledValues")))
        throw DbError("no table SampledValues");
    BringUpProject(ProjectDb(), App().iNetConfIndex);
    if (App().sMeasurementTerm.isEmpty())
        UpdateMeasurementTerm();
    else
        RefreshSetCount();
    MendRecordingHeading();
    ProjectDb().UseRollbackJournal();
    return {.isReadOnly = ProjectDb().IsReadOnly(), .isNewer = age == SchemaAge::Newer};
}

} // namespace

void OpenProject(const QString& path)
{
    App().bFileError = false;
    App().sProjectPath = path;
    ResetProjectData();
    OpenedFile file;
    try {
        file = ReadProject();
        CallHook(Hook::LoadMachines);
    } catch (const DbLocked&) {
        ShowFileInUse(path);
        App().bFileError = true;
        return;
    } catch (const DbError&) {
        ShowBadFormat(path);
        App().bFileError = true;
        return;
    }
    App().TheShell->EnableMachineMenu(HasMachine(App().iNetConfIndex));
    BuildColumnLayout();
    if (file.isReadOnly)
        ShowInformation(FillPlaceholders(texts::readOnlyProject, {path}));
    if (file.isNewer)
        ShowInformation(FillPlaceholders(texts::newerProject, {path}));
}

namespace {

/// Throws if the file isn't the project that was opened any more: its header would be written over another one's.
void RequireSameProject()
{
    const auto stored = [](const char* sql) {
        SQLite::Statement query(ProjectDb().Handle(), sql);
        return query.executeStep() ? query.getColumn(0).getString() : std::string();
    };
    WithDbErrors([&] {
        const std::string created = stored("SELECT [Time] FROM [Overview] WHERE [Name]='Project Created'");
        const std::string netConf = stored("SELECT [Number] FROM [Settings] WHERE [Name]='iNetConfIndex'");
        const bool isSame = (created.empty() || created == StoredDateText(App().dtProjectCreated).toStdString()) &&
                            (netConf.empty() || std::floor(std::stod(netConf)) == App().iNetConfIndex);
        if (!isSame)
            throw DbError(texts::otherProject.toStdString());
    });
}

} // namespace

bool SaveProject()
{
    const QDateTime formerlySaved = App().dtProjectSaved;
    App().dtProjectSaved = PresentMoment();
    try {
        const ProjectDbScope scope;
        RequireSameProject();
        TransferProjectData(Direction::Write);
    } catch (const DbLocked&) {
        App().dtProjectSaved = formerlySaved;
        ShowFileInUse(App().sProjectPath);
        return false;
    } catch (const std::exception&) {
        App().dtProjectSaved = formerlySaved;
        ShowNotFound(App().sProjectPath);
        return false;
    }
    App().bProjectDirty = false;
    App().TheShell->RefreshPage();
    App().TheShell->RefreshStatusBar();
    return true;
}

void SaveIfDirty()
{
    if (App().bProjectDirty)
        SaveProject();
    if (App().iCurrentPage == 1)
        App().TheShell->RefreshStatusBar();
}

bool SnapshotProject(const QString& startTime)
{
    try {
        const ProjectDbScope scope;
        TransferMeasurementHeader(Direction::Write);
    } catch (const DbError&) {
        ShowNotFound(App().sProjectPath);
        return false;
    }
    const QString& path = App().sProjectPath;
    const QString base = HasExtension(path, kProjectExtension) ? path.chopped(kProjectExtension.size()) : path;
    QString suffix = startTime;
    for (const char16_t c : {u'.', u':', u'/', u'\\'}) // the last two as some local formats of a date have them
        suffix.replace(c, u'-');
    const QString target = base + u' ' + suffix + kProjectExtension;
    return CopyProject(target);
}

bool CopyProject(const QString& target)
{
    // A journal that stays would be played into the new file.
    const QString failure = CopyFileReplacing(App().sProjectPath, target, [&target] { RemoveJournals(target); });
    if (!failure.isEmpty())
        ShowError(FillPlaceholders(texts::cannotCopyFile, {target, failure}));
    return failure.isEmpty();
}

} // namespace korvanel
