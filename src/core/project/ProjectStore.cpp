#include "core/project/ProjectStore.h"

#include "core/Clock.h"
#include "core/LocalFormats.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/Paths.h"
#include "core/ProjectDb.h"
#include "core/Texts.h"
#include "core/clsWaitCursor.h"
#include "core/project/KeyValueTable.h"
#include "data/ValueTables.h"

#include <QFile>
#include <QFileInfo>

namespace korvanel {

namespace {

constexpr int kSchemaVersion = 1;
const QString kExtension = QStringLiteral(".MDB");

void MoveValue(KeyValueTable& table, Direction direction, const ProjectKey& key)
{
    if (direction == Direction::Read)
        table.Read(key);
    else
        table.Write(key);
}

template <typename Selected>
void TransferKeys(Direction direction, Selected&& isSelected)
{
    KeyValueTable overview(ProjectDb(), ProjectTable::Overview);
    KeyValueTable settings(ProjectDb(), ProjectTable::Settings);
    const auto move = [&] {
        for (const ProjectKey& key : ProjectKeys())
            if (isSelected(key))
                MoveValue(key.table == ProjectTable::Overview ? overview : settings, direction, key);
    };
    if (direction == Direction::Read) {
        move();
        return;
    }
    DbTransaction transaction(ProjectDb());
    move();
    transaction.Commit();
}

void CreateTables()
{
    DbTransaction transaction(ProjectDb());
    CreateValueTables();
    ProjectDb().Execute(CreateStatement(ProjectTable::Overview));
    ProjectDb().Execute(CreateStatement(ProjectTable::Settings));
    transaction.Commit();
}

} // namespace

void CreateProjectFile(const QString& path)
{
    const bool wasThere = QFileInfo::exists(path);
    try {
        TableDb::Create(path, kProjectApplicationId, kSchemaVersion);
        App().sProjectPath = path;
        const ProjectDbScope scope;
        CreateTables();
    } catch (const DbError& error) {
        if (!wasThere)
            DeleteFile(path); // a file without tables would only puzzle whoever finds it
        ShowError(QString::fromUtf8(error.what()));
    }
}

void TransferValue(Direction direction, const ProjectKey& key)
{
    KeyValueTable table(ProjectDb(), key.table);
    MoveValue(table, direction, key);
}

void TransferProjectData(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey&) { return true; });
}

void TransferMeasurementHeader(Direction direction)
{
    TransferKeys(direction, [](const ProjectKey& key) { return key.isMeasurementHeader; });
}

void OpenProject(const QString& path)
{
    clsWaitCursor cursor;
    cursor.Show();
    App().bFileError = false;
    App().sProjectPath = path;
    ResetProjectData();
    bool isReadOnly = false;
    try {
        const ProjectDbScope scope;
        ProjectDb().RequirePlainTables();
        isReadOnly = ProjectDb().IsReadOnly();
        TransferProjectData(Direction::Read);
        if (!TableExists(QStringLiteral("SampledValues")))
            throw DbError("no table SampledValues");
        if (App().sMeasurementTerm.isEmpty())
            UpdateMeasurementTerm();
        else
            RefreshSetCount();
    } catch (const DbError&) {
        ShowBadFormat(path);
        App().bFileError = true;
        return;
    }
    App().TheShell->EnableMachineMenu(HasMachine(App().iNetConfIndex));
    BuildColumnLayout();
    if (isReadOnly)
        ShowInformation(FillPlaceholders(Texts().readOnlyProject, {path}));
}

bool SaveProject()
{
    const QDateTime formerlySaved = App().dtProjectSaved;
    App().dtProjectSaved = PresentMoment();
    try {
        const ProjectDbScope scope;
        TransferProjectData(Direction::Write);
    } catch (const DbError&) {
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

void SnapshotProject(const QString& startTime)
{
    try {
        const ProjectDbScope scope;
        TransferMeasurementHeader(Direction::Write);
    } catch (const DbError&) {
        ShowNotFound(App().sProjectPath);
        return;
    }
    const qsizetype end = App().sProjectPath.lastIndexOf(kExtension, -1, Qt::CaseInsensitive);
    const QString base = end < 0 ? App().sProjectPath : App().sProjectPath.left(end);
    QString suffix = startTime;
    suffix.replace(u'.', u'-').replace(u':', u'-');
    const QString target = base + u' ' + suffix + kExtension;
    const QString failure = CopyFileReplacing(App().sProjectPath, target);
    if (!failure.isEmpty())
        ShowError(FillPlaceholders(Texts().cannotCopyFile, {target, failure}));
}

} // namespace korvanel
