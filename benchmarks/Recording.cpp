#include "Recording.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/ProjectDb.h"
#include "core/Texts.h"
#include "core/clsProgSettings.h"
#include "core/clsSymbols.h"
#include "data/RowWriter.h"
#include "machine/Algorithms_ASM_Start.h"
#include "project/ProjectStore.h"
#include "support/Machines.h"
#include "support/RecordingShell.h"

#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cmath>
#include <cstdlib>
#include <iostream>

namespace korvanel::bench {

namespace {

void Check(int result, sqlite3* handle)
{
    if (result == SQLITE_OK || result == SQLITE_DONE || result == SQLITE_ROW)
        return;
    std::cerr << sqlite3_errmsg(handle) << '\n';
    std::abort();
}

/// A motor in a duty cycle.
tValueRow RowOf(int set)
{
    tValueRow row;
    const double load = 0.6 + 0.4 * std::sin(set * 0.01);
    row.dU[kSum] = 400 - 2 * load;
    row.dI[kSum] = 32.85 * load;
    row.df = 50;
    row.dP[kSum] = 20450 * load;
    row.dPhi[kSum] = 30 / load;
    row.dt = set - 1;
    row.dWp = 20450.0 * set;
    row.dn = 1500 - 38 * load;
    row.dM = 121 * load;
    row.dPmech = 18500 * load;
    row.deta = 0.904;
    row.sMethod = QStringLiteral("P");
    return row;
}

void FillProject()
{
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb());
    RowWriter writer(ProjectDb(), kNetConf, RowOrigin::Measured);
    QDateTime moment(QDate(2026, 3, 14), QTime(15, 9, 26), Qt::UTC);
    for (int set = 1; set <= Sets(); ++set) {
        tValueRow row = RowOf(set);
        writer.Append(row, {.set = set, .time = StoredDateText(moment), .mark = 0});
        moment = moment.addSecs(1);
    }
    transaction.Commit();
}

} // namespace

void PrepareBlock()
{
    static test::RecordingShell shell;
    App().TheShell = &shell;
    SetBuiltInTexts();
    InitialiseApplicationBlock(QStringLiteral("."));
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, ScratchPath(QStringLiteral("settings")));
    static clsProgSettings settings(App().sProgramDir);
    App().ProgSettings = &settings;
    static clsSymbols symbols;
    App().Symbols = &symbols;
}

void PrepareMachine()
{
    App().MachineI.record = test::MotorWithNoLoadData();
    BuildMachineModel();
}

void OpenForPage(const QString& path)
{
    OpenProject(path);
    App().bProjectOpen = true;
    PrepareMachine();
}

void CreateProject(const QString& path, int netConf)
{
    QFile::remove(path);
    ResetProjectData();
    App().iNetConfIndex = static_cast<qint16>(netConf);
    App().sProjectPath = path;
    CreateProjectFile(path);
    if (!SaveProject())
        std::abort();
}

QString ScratchPath(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

int Sets()
{
    constexpr int kMillion = 1'000'000;
    static const int sets = std::max(qEnvironmentVariableIntValue("KORVANEL_BENCH_SETS"), 0);
    return sets > 0 ? sets : kMillion;
}

const QString& LargeProject()
{
    static const QString path = [] {
        const QString file = ScratchPath(QStringLiteral("large.MDB"));
        CreateProject(file);
        FillProject();
        return file;
    }();
    return path;
}

const QString& EmptyProject()
{
    static const QString path = [] {
        const QString file = ScratchPath(QStringLiteral("empty.MDB"));
        CreateProject(file);
        return file;
    }();
    return path;
}

BareDatabase::BareDatabase(const QString& path)
{
    Check(sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr), handle);
    Execute("PRAGMA synchronous=FULL");
}

BareDatabase::~BareDatabase()
{
    while (sqlite3_stmt* statement = sqlite3_next_stmt(handle, nullptr))
        sqlite3_finalize(statement);
    sqlite3_close(handle);
}

sqlite3_stmt* BareDatabase::Prepare(const char* sql)
{
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(handle, sql, -1, &statement, nullptr), handle);
    return statement;
}

void BareDatabase::Execute(const char* sql)
{
    Check(sqlite3_exec(handle, sql, nullptr, nullptr, nullptr), handle);
}

const char* const kBareSelect =
    "SELECT SampledValues.[Set], [Time], [U sum], [I sum], [f sum], [P sum], [phi sum], [Q sum], [S sum], "
    "[cosphi sum], [t], [Edit], [Wp], [Wp+], [Wp-], [Wq], [n], [M], [Pmech], [eta], [Method] FROM SampledValues "
    "INNER JOIN ComputedValues ON SampledValues.[Set] = ComputedValues.[Set]";

double FetchBareRow(sqlite3_stmt* statement)
{
    constexpr int kEdit = 11;
    constexpr int kFirstComputed = 12;
    constexpr int kMethod = 20;
    double sum = sqlite3_column_int(statement, 0) + sqlite3_column_int(statement, kEdit);
    for (int column = 2; column < kEdit; ++column)
        sum += sqlite3_column_double(statement, column);
    for (int column = kFirstComputed; column < kMethod; ++column)
        sum += sqlite3_column_double(statement, column);
    const unsigned char* method = sqlite3_column_text(statement, kMethod);
    const unsigned char* time = sqlite3_column_text(statement, 1);
    return sum + (method ? *method : 0) + (time ? *time : 0);
}

} // namespace korvanel::bench
