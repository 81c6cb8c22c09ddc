// An operation on a long recording that runs in a process of its own and is killed again and again: it happens as a
// whole or not at all.
#pragma once

#include "core/ValueRow.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

#include <QCryptographicHash>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QThread>

#include <sqlite3.h>

#include <array>
#include <cmath>
#include <iostream>
#include <vector>

namespace korvanel::test {

/// All that a statement gives, value by value with its type.
inline void AddRows(sqlite3* db, const char* sql, QCryptographicHash& hash)
{
    sqlite3_stmt* statement = nullptr;
    ASSERT_EQ(sqlite3_prepare_v2(db, sql, -1, &statement, nullptr), SQLITE_OK) << sqlite3_errmsg(db);
    const int columns = sqlite3_column_count(statement);
    QByteArray row;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
        row.clear();
        for (int i = 0; i < columns; ++i) {
            const int type = sqlite3_column_type(statement, i);
            row += static_cast<char>(type);
            const double number = sqlite3_column_double(statement, i);
            if (type == SQLITE_FLOAT || type == SQLITE_INTEGER)
                row.append(reinterpret_cast<const char*>(&number), sizeof number);
            else if (type != SQLITE_NULL)
                row.append(static_cast<const char*>(sqlite3_column_blob(statement, i)),
                           sqlite3_column_bytes(statement, i));
        }
        hash.addData(row);
    }
    EXPECT_EQ(result, SQLITE_DONE) << sqlite3_errmsg(db);
    sqlite3_finalize(statement);
}

/// Everything that the project holds: the rows, the header and which tables there are.
inline QByteArray DigestOf(const QString& path)
{
    sqlite3* db = nullptr;
    EXPECT_EQ(sqlite3_open_v2(path.toUtf8().constData(), &db, SQLITE_OPEN_READONLY | SQLITE_OPEN_NOMUTEX, nullptr),
              SQLITE_OK);
    QCryptographicHash hash(QCryptographicHash::Md5);
    AddRows(db, "SELECT name, sql FROM sqlite_schema ORDER BY name", hash);
    for (const char* table : {"SampledValues", "ComputedValues", "SimulatedValues", "Overview", "Settings"})
        if (sqlite3_table_column_metadata(db, nullptr, table, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr) ==
            SQLITE_OK)
            AddRows(db, (std::string("SELECT * FROM ") + table + " ORDER BY 1").c_str(), hash);
    sqlite3_close(db);
    return hash.result();
}

class KilledOperation : public ProjectTest
{
protected:
    /// So many that the engine has to write to the file long before the end of an operation.
    static constexpr int kSets = 20'000;
    /// Of each operation: 25, or what the environment variable `KORVANEL_KILLS` says for a short run.
    const int killCount =
        qEnvironmentVariableIsSet("KORVANEL_KILLS") ? qEnvironmentVariableIntValue("KORVANEL_KILLS") : 25;
    /// Kills that have to interrupt the transaction; the others fall shortly before or behind it.
    const int leastWithin = killCount * 12 / 25;
    /// Of these, kills that have to find the file itself partly written, so that it needs its journal.
    const int leastHalfWritten = killCount / 5;

    /// The program that reports "begin" and "end" of the operation, and what it takes beside the project.
    virtual QString Program() const = 0;
    virtual QStringList Arguments() const { return {}; }
    /// Whether the file of a killed operation isn't the original any more, as far as that reached.
    virtual bool IsPartlyWritten() const { return !ContentOf("test.MDB").startsWith(ContentOf("original.MDB")); }

    void MakeRecording(int count = kSets)
    {
        CreateProject(2);
        App().dInterval = 1;
        ASSERT_TRUE(SaveProject());
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            tValueRow& row = rows[static_cast<std::size_t>(i)];
            const double load = 0.6 + 0.4 * std::sin(i * 0.01);
            row.dU[kSum] = 400 - 2 * load;
            row.dI[kSum] = 32.85 * load;
            row.df = 50 - 0.1 * load;
            row.dP[kSum] = 20450 * load;
            row.dQ[kSum] = 9990 * load;
            row.dS[kSum] = 22760 * load;
            row.dCosPhi[kSum] = 0.9 - 0.01 * load;
            row.dPhi[kSum] = 30 / load;
            row.dt = i;
            row.dWp = row.dWpPlus = 20450 * load * i;
            row.dWpMinus = -load;
            row.dWq = 9990 * load * i;
            row.dn = 1500 - 38 * load;
            row.dM = 121 * load;
            row.dPmech = 18500 * load;
            row.deta = 0.904 * load;
            row.sMethod = QStringLiteral("P");
        }
        StoreRows(rows);
    }
    /// From here on each kill finds the project as it is now.
    void KeepOriginal() { ASSERT_TRUE(QFile::copy(App().sProjectPath, original)); }
    void Reset()
    {
        RemoveJournals(App().sProjectPath);
        QFile::remove(App().sProjectPath);
        ASSERT_TRUE(QFile::copy(original, App().sProjectPath));
    }
    /// Starts the operation in a process of its own and waits for its begin.
    void Begin(QProcess& process)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("TMPDIR"), folder.path()); // what a killed process leaves goes with the test
        process.setProcessEnvironment(environment);
        process.start(Program(), QStringList{App().sProjectPath} + Arguments());
        ASSERT_TRUE(process.waitForReadyRead());
        ASSERT_EQ(process.readLine().trimmed(), "begin");
    }
    /// Runs it to its end, and takes its duration for the next kill.
    void RunUndisturbed()
    {
        QProcess process;
        Begin(process);
        if (HasFatalFailure())
            return;
        QElapsedTimer timer;
        timer.start();
        ASSERT_TRUE(process.waitForReadyRead());
        microseconds = timer.nsecsElapsed() / 1000;
        ASSERT_TRUE(process.waitForFinished());
        ASSERT_EQ(process.exitStatus(), QProcess::NormalExit);
        ASSERT_EQ(process.exitCode(), 0);
    }
    void KillAfter(qint64 delay)
    {
        QProcess process;
        Begin(process);
        QThread::usleep(static_cast<unsigned long>(delay));
        process.kill();
        process.waitForFinished();
    }
    QByteArray Digest() const { return DigestOf(App().sProjectPath); }
    /// Opens the project as the program does, which plays a journal back.
    void ExpectOpens(int kill)
    {
        const QString path = App().sProjectPath;
        ResetProjectData();
        shell.boxes.clear();
        OpenProject(path);
        EXPECT_FALSE(App().bFileError) << "kill " << kill;
        EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join(u'\n').toStdString() << ", kill " << kill;
    }
    /// Kills the operation at moments over all its length. `states`: before it, after it, after another one.
    void KillAgainAndAgain(const std::string& name, const std::array<QByteArray, 3>& states)
    {
        QRandomGenerator random(20260314);
        std::array<int, 3> kills{}; // before the transaction, within, after
        int halfWritten = 0;
        int between = 0;
        for (int kill = 0; kill < killCount; ++kill) {
            Reset();
            constexpr double kReach = 1.1; // a little over the end
            const double share = kReach * (kill + random.generateDouble()) / killCount;
            KillAfter(static_cast<qint64>(share * static_cast<double>(microseconds)));
            if (HasFatalFailure())
                return;
            const bool isWithin = QFile::exists(App().sProjectPath + "-journal");
            halfWritten += isWithin && IsPartlyWritten();

            ExpectOpens(kill);
            const QByteArray found = Digest();
            ++kills.at(isWithin ? 1 : found == states[0] ? 0 : 2);
            between += found != states[0] && found != states[1];
            EXPECT_FALSE(isWithin && found == states[1]) << "what isn't stored yet was played back, kill " << kill;
            EXPECT_EQ(Query("SELECT count(*) FROM sqlite_schema WHERE name LIKE 'Temp%'"), "0") << "kill " << kill;
            EXPECT_EQ(Query("PRAGMA integrity_check"), "ok") << "kill " << kill;

            RunUndisturbed();
            if (HasFatalFailure())
                return;
            EXPECT_EQ(Digest(), found == states[0] ? states[1] : states[2]) << "run again after kill " << kill;
            EXPECT_FALSE(QFile::exists(App().sProjectPath + "-journal")) << "kill " << kill;
        }
        EXPECT_EQ(between, 0) << "rows that are neither those before nor those after";
        EXPECT_GE(kills[1], leastWithin) << "too few kills in the middle";
        EXPECT_GE(halfWritten, leastHalfWritten);
        std::cout << name << ": killed " << killCount << " times: " << kills[0] << " before the transaction, "
                  << kills[1] << " within (" << halfWritten << " with a file partly written), " << kills[2]
                  << " after; " << between << " between the rows before and after\n";
    }

private:
    QString original = PathOf(QStringLiteral("original.MDB"));
    qint64 microseconds = 0; ///< that the operation took the last time
};

} // namespace korvanel::test
