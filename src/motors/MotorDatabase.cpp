#include "motors/MotorDatabase.h"

#include "core/Common.h"
#include "core/Hooks.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Shell.h"
#include "core/clsProgSettings.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/DialogTable.h"
#include "data/Recomputation.h"
#include "machine/Algorithms_ASM_Start.h"
#include "motors/MotorColumns.h"

#include <QFileInfo>

#include <array>

namespace korvanel {

namespace {

/// Tables that only a project has.
constexpr std::array kProjectTables{"Overview", "SampledValues", "Settings"};

/// Looks at the file itself, so that a locked or damaged one is noticed before anything is done with it.
void RequireMotorDatabase(TableDb& db)
{
    db.RequirePlainTables({kMotorTable});
    for (const char* table : kProjectTables)
        if (db.TableExists(QLatin1String(table)))
            throw DbError(texts::databaseIncompatible.toStdString());
    if (!db.TableExists(QLatin1String(kMotorTable)))
        throw DbError(texts::databaseIncompatible.toStdString());
    WithDbErrors([&db] {
        SQLite::Statement(db.Handle(), "SELECT " + MotorReadNames(db, MotorColumns()) + " FROM [" + kMotorTable + ']');
    });
}

TableDb OpenAsMotorDb(const QString& path)
{
    TableDb db = TableDb::Open(path);
    RequireMotorDatabase(db);
    return db;
}

bool IsFile(const QString& path)
{
    return QFileInfo(path).isFile();
}

/// The remark as one line of a message; whatever it holds, the question stays readable.
QString QuotedRemark(const MachineRecord& record)
{
    constexpr qsizetype kLongestShown = 200;
    QString remark = record.Hersteller;
    if (remark.size() > kLongestShown)
        remark = remark.left(kLongestShown) + QStringLiteral("...");
    for (const char16_t lineEnd : {u'\n', u'\r'})
        remark.replace(lineEnd, u' ');
    return remark;
}

Answer AskWhetherToAdd(const MachineRecord& record)
{
    return App().TheShell->ShowBox({texts::titleAttention,
                                    FillPlaceholders(texts::machineNotInDatabase, {QuotedRemark(record)}),
                                    BoxIcon::Question, BoxButtons::YesNo, Answer::Yes});
}

/// False if there is no database to compare with.
bool CompareWithDb(MachineRecord& record, WhichMachine which)
{
    const QString formerPath = App().sMotorDbPath;
    std::unique_ptr<TableDb> db = OpenMotorDb();
    if (!db)
        return false;
    if (App().bProjectOpen && App().sMotorDbPath != formerPath)
        return true; // choosing another file has compared the project's machines with it
    try {
        if (FindDuplicate(*db, record, DuplicateScope::Any))
            return true;
        if (AskWhetherToAdd(record) == Answer::Yes)
            WriteMachine(*db, record, true);
        else if (which == WhichMachine::I)
            App().bModelValid = false;
        else
            App().bASMSim = false;
    } catch (const DbError& error) {
        ReportFailure(App().sMotorDbPath, QString::fromUtf8(error.what()));
    }
    CloseMotorDb(db);
    return true;
}

/// Reads both machines of the project; empty records where there are none.
void ReadProjectMachines(MachineRecord& first, MachineRecord& second)
{
    const ProjectDbScope scope;
    if (!HasMachine(App().iNetConfIndex) || !TableExists(QLatin1String(kMotorTable)))
        return;
    ReadMachine(ProjectDb(), static_cast<qint32>(WhichMachine::I), first);
    ReadMachine(ProjectDb(), static_cast<qint32>(WhichMachine::II), second);
}

/// Takes the place of the project's row unless that holds the same; true if it did.
bool ReplaceProjectRow(MachineRecord& row, qint32 id)
{
    TableDb& db = ProjectDb();
    DbTransaction transaction(db);
    if (!db.TableExists(QLatin1String(kMotorTable)))
        db.Execute(CreateMotorStatement());
    const bool isReplaced = !FindDuplicate(db, row, DuplicateScope::Row, id);
    if (isReplaced) {
        DeleteMachine(db, id);
        WriteMachine(db, row, true);
    }
    transaction.Commit();
    return isReplaced;
}

/// The project's machine becomes the one in use again.
void TakeMachineBack()
{
    MachineRecord first;
    MachineRecord second;
    ReadProjectMachines(first, second);
    App().MachineI.record = first;
    App().MachineI.record.set_ID.reset();
    App().bModelValid = false;
    if (first.set_ID)
        BuildMachineModel();
}

/// Returns false after a failure of the file, with the reason.
bool ReplaceMachineAndRows(QString& reason)
{
    try {
        const ProjectDbScope scope;
        DbTransaction transaction(ProjectDb());
        MachineRecord row = App().MachineI.record; // which keeps its number in the motor database
        row.set_ID = static_cast<qint32>(WhichMachine::I);
        if (ReplaceProjectRow(row, *row.set_ID)) {
            RecordingChanged();
            EstimateAllRows();
        }
        transaction.Commit();
        return true;
    } catch (const DbError& error) {
        reason = QString::fromUtf8(error.what());
        return false;
    }
}

} // namespace

std::unique_ptr<TableDb> OpenMotorDb()
{
    if (!IsFile(App().sMotorDbPath)) {
        ShowPathNotFound(App().sMotorDbPath);
        if (!App().TheShell->ShowDialog(kDialogMotorDatabase) || !IsFile(App().sMotorDbPath))
            return nullptr;
    }
    try {
        return std::make_unique<TableDb>(OpenAsMotorDb(App().sMotorDbPath));
    } catch (const DbError& error) {
        ShowError(FillPlaceholders(texts::databaseUnusable, {App().sMotorDbPath, QString::fromUtf8(error.what())}));
        return nullptr;
    }
}

void CloseMotorDb(std::unique_ptr<TableDb>& db)
{
    db.reset();
}

bool IsMotorDatabase(const QString& path)
{
    if (!IsFile(path))
        return false;
    try {
        TableDb db = OpenAsMotorDb(path);
        return CountMachinesUpTo(db, 1) > 0;
    } catch (const DbError&) {
        return false;
    }
}

bool IsDatabaseInUse(const QString& path)
{
    try {
        OpenAsMotorDb(path);
    } catch (const DbLocked&) {
        return true;
    } catch (const DbError&) {
        // Something else is wrong with it.
    }
    return false;
}

void UseMotorDatabase(const QString& path)
{
    App().sMotorDbPath = path;
    if (App().ProgSettings)
        App().ProgSettings->SetMotorDatabase(path);
    if (App().bProjectOpen)
        LoadProjectMachines();
}

void CheckMachineInDb(MachineRecord& record, WhichMachine which)
{
    if (App().bMotorDbCheck)
        CompareWithDb(record, which);
}

bool PutMachineIntoProject(const MachineRecord& record, WhichMachine which)
{
    MachineRecord row = record; // the record itself keeps its number in the motor database
    row.set_ID = static_cast<qint32>(which);
    const ProjectDbScope scope;
    const bool isReplaced = ReplaceProjectRow(row, *row.set_ID);
    App().bMotorDbCheck = true;
    if (isReplaced)
        RecordingChanged();
    return isReplaced;
}

bool CopyMachineIntoProject(const MachineRecord& record, WhichMachine which)
{
    try {
        return PutMachineIntoProject(record, which);
    } catch (const DbError& error) {
        ReportFailure(App().sProjectPath, QString::fromUtf8(error.what()));
        return false;
    }
}

bool PassMachineOn()
{
    const qint16 formerMethod = App().iCalcMethod;
    const quint64 formerState = App().lRecordingState;
    AdjustCalcMethod();
    QString reason;
    try {
        if (ReplaceMachineAndRows(reason)) {
            App().bMotorDbCheck = true;
            if (HasSecondMachine() && App().lRecordingState != formerState) // the torque of the sets is another one
                CallHook(Hook::RunSimulation);
            return true;
        }
    } catch (...) {
        App().iCalcMethod = formerMethod;
        TakeMachineBack();
        throw;
    }
    App().iCalcMethod = formerMethod;
    ShowError(FillPlaceholders(texts::machineTakenBack, {reason}));
    RunGuarded(App().sProjectPath, TakeMachineBack);
    return false;
}

void CopyMachinesIntoProject()
{
    if (!HasMachine(App().iNetConfIndex))
        return;
    if (App().bModelValid)
        PassMachineOn(); // which the rows of the copy follow
    if (App().bASMSim && App().MachineII.record.Pmech)
        CopyMachineIntoProject(App().MachineII.record, WhichMachine::II);
}

void LoadProjectMachines()
{
    MachineRecord first;
    MachineRecord second;
    ReadProjectMachines(first, second);
    RecordingChanged();
    App().MachineI.record = first;
    App().MachineII.record = second;
    // What these numbers stood for are rows of the project; those of the motor database are found by comparing.
    App().MachineI.record.set_ID.reset();
    App().MachineII.record.set_ID.reset();
    bool isDbUsable = true; // a file that is missing is told once
    if (first.set_ID) {
        App().bMotorDbCheck = true;
        isDbUsable = CompareWithDb(App().MachineI.record, WhichMachine::I);
        // Building comes last and decides: a machine that was not added to the database is still that of the project.
        RunGuarded(texts::machineModel, BuildMachineModel);
    } else {
        App().bModelValid = false;
    }
    if (!second.set_ID)
        App().bASMSim = false;
    else if (isDbUsable && App().bMotorDbCheck)
        CompareWithDb(App().MachineII.record, WhichMachine::II);
}

} // namespace korvanel
