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
#include "core/window/PageTable.h"
#include "data/Recomputation.h"
#include "data/ValueTables.h"
#include "project/KeyValueTable.h"
#include "project/ProjectSchema.h"
#include "project/RecordingHeading.h"

#include <SQLiteCpp/Backup.h>
#include <sqlite3.h>

#include <QFile>
#include <QFileInfo>

#include <array>
#include <cmath>
#include <functional>
#include <optional>

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

QString FreeNameBeside(const QString& path)
{
    for (int number = 1;; ++number) {
        QString name = path + QStringLiteral(".%1.neu").arg(number);
        if (!QFileInfo::exists(name))
            return name;
    }
}

/// The journals of a file that is to be replaced. They belong to it as long as it is there, and would be played into
/// the new one.
class JournalsAside
{
public:
    explicit JournalsAside(const QString& ofFile) : path(ofFile)
    {
        for (const char* ending : kJournalEndings)
            QFile::remove(Aside(ending)); // of an attempt that was cut short
        for (const char* ending : kJournalEndings)
            QFile::rename(path + QLatin1String(ending), Aside(ending));
    }
    JournalsAside(const JournalsAside&) = delete;
    JournalsAside& operator=(const JournalsAside&) = delete;
    ~JournalsAside()
    {
        for (const char* ending : kJournalEndings)
            QFile::rename(Aside(ending), path + QLatin1String(ending));
    }
    void Drop() const
    {
        for (const char* ending : kJournalEndings)
            QFile::remove(Aside(ending));
    }

private:
    QString Aside(const char* ending) const { return path + QLatin1String(ending) + QStringLiteral(".alt"); }

    static constexpr std::array kJournalEndings{"-journal", "-wal", "-shm"};
    QString path;
};

/// Puts a file in the place of another one, whole or not at all: it is made under a name of its own. `make` throws
/// DbError. Returns what failed, or nothing.
QString ReplaceByDraft(const QString& path, const std::function<void(const QString& draft)>& make)
{
    const QString draft = FreeNameBeside(path);
    QString failure;
    try {
        make(draft);
        const JournalsAside journals(path);
        failure = ReplaceFile(draft, path);
        if (failure.isEmpty())
            journals.Drop();
    } catch (const DbError& error) {
        failure = QString::fromUtf8(error.what());
    } catch (...) {
        DeleteFile(draft);
        throw;
    }
    if (!failure.isEmpty())
        DeleteFile(draft); // a file without tables would only puzzle whoever finds it
    return failure;
}

/// Copies a database page by page while others may read and write it: what comes out is the state between two of their
/// transactions. Throws DbError.
void CopyDatabase(const QString& source, const QString& copy)
{
    TableDb from = TableDb::Open(source);
    WithDbErrors([&] {
        SQLite::Database to(copy.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Backup backup(to, from.Handle());
        if (backup.executeStep() != SQLITE_DONE)
            throw DbLocked();
    });
}

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
bool CreateProjectFile(QString path, ExistingFile existing, const std::function<void()>& fill)
{
    const QString failure = ReplaceByDraft(path, [&](const QString& draft) {
        if (existing == ExistingFile::Stays && QFileInfo::exists(path))
            throw DbError(texts::fileExists.toStdString());
        RequireNotInUse(path);
        MakeDraft(draft);
        if (fill)
            fill();
    });
    App().sProjectPath = std::move(path);
    if (!failure.isEmpty())
        ShowError(failure);
    return failure.isEmpty();
}

void RequireNotInUse(const QString& path)
{
    if (!QFileInfo(path).isFile())
        return;
    try {
        TableDb db = TableDb::Open(path);
        const DbTransaction transaction(db);
    } catch (const DbLocked&) {
        throw;
    } catch (const DbError&) {
        // Whatever else is wrong with the file is no matter here.
    }
}

void WriteProjectHeader()
{
    App().dtProjectSaved = PresentMoment();
    TransferProjectData(Direction::Write);
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
    RefreshSetCount();
    MendRecordingHeading();
    if (App().sMeasurementTerm.isEmpty())
        TermFromSetCount();
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
        SaveProjectData();
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

namespace {

/// What follows from edited sets. A save that succeeds has taken the mark of the change away before anybody asks for
/// it, so this happens after a failed one alone, and else the energies stay as they were until somebody asks for them.
void FormDependentValues()
{
    const int netConf = App().iNetConfIndex;
    if (IntegratesEnergy(netConf))
        RecomputeEnergies();
    if (HasSecondMachine() && (IntegratesEnergy(netConf) || netConf == kNetMachineRecorder))
        CallHook(Hook::RunSimulation);
}

} // namespace

void SaveIfDirty()
{
    if (App().bProjectDirty)
        SaveProject();
    if (App().iCurrentPage == kPageEditor && App().bProjectDirty)
        FormDependentValues();
    if (App().iCurrentPage == kPageGeneralData)
        App().TheShell->RefreshStatusBar();
}

bool SnapshotProject(const QString& startTime)
{
    try {
        const ProjectDbScope scope;
        TransferMeasurementHeader(Direction::Write);
    } catch (const DbLocked&) {
        ShowFileInUse(App().sProjectPath);
        return false;
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
    const QString failure = ReplaceByDraft(target, [&](const QString& draft) {
        RequireNotInUse(target);
        CopyDatabase(App().sProjectPath, draft);
    });
    if (!failure.isEmpty())
        ShowError(FillPlaceholders(texts::cannotCopyFile, {target, failure}));
    return failure.isEmpty();
}

} // namespace korvanel
