#include "core/TableDb.h"

#include "core/texts/DefaultTexts.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>

#include <sqlite3.h>

#include <array>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace korvanel {

namespace {

// The program has one thread; a lock around each column that is fetched would be for nobody.
const int kReadWrite = SQLite::OPEN_READWRITE | SQLite::OPEN_NOMUTEX;
// A reader of a backup program may hold the file for a moment; a recording must not lose its row over that.
constexpr int kBusyTimeoutMs = 250;

void Harden(SQLite::Database& db)
{
    sqlite3* handle = db.getHandle();
    const auto configure = [handle](int option, int value) { sqlite3_db_config(handle, option, value, nullptr); };
    configure(SQLITE_DBCONFIG_DEFENSIVE, 1);
    configure(SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0);
    configure(SQLITE_DBCONFIG_ENABLE_TRIGGER, 0);
    configure(SQLITE_DBCONFIG_ENABLE_VIEW, 0);
    configure(SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0);
    sqlite3_limit(handle, SQLITE_LIMIT_LENGTH, kLongestStoredText);
    sqlite3_limit(handle, SQLITE_LIMIT_ATTACHED, 0);
    db.exec("PRAGMA cell_size_check=ON; PRAGMA synchronous=FULL");
}

} // namespace

DbLocked::DbLocked() : DbError(texts::fileInUse.toStdString()) {}

void ThrowDbError(int code, const char* words)
{
    constexpr int kPrimaryCode = 0xFF;
    if ((code & kPrimaryCode) == SQLITE_BUSY)
        throw DbLocked();
    throw DbError(words);
}

TableDb::TableDb(SQLite::Database&& opened) : database(std::move(opened))
{
    Harden(database);
}

namespace {

[[noreturn]] void Refuse(const QString& reason)
{
    throw DbError(reason.toStdString());
}

/// Whether a journal names another file to look at: the engine deletes that file when it plays the journal back. This
/// program never works on two databases at once, so such a journal is none of its own.
bool NamesOtherFile(const QString& journal)
{
    static const QByteArray mark = QByteArray::fromHex("d9d505f920a163d7");
    QFile file(journal);
    if (!file.open(QIODevice::ReadOnly))
        Refuse(file.errorString());
    return file.size() >= mark.size() && file.seek(file.size() - mark.size()) && file.read(mark.size()) == mark;
}

bool IsWritable(const QString& folder)
{
#ifdef Q_OS_UNIX
    return faccessat(AT_FDCWD, QFile::encodeName(folder).constData(), W_OK, AT_EACCESS) == 0;
#else
    return QFileInfo(folder).isWritable();
#endif
}

/// Looks at a file and at what lies beside it before the engine does: a pipe or a device would hold the program up, and
/// a link or a forged journal would lead to other files.
void RequireHarmless(const QString& path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || (file.exists() && !file.isFile()))
        Refuse(texts::noOrdinaryFile);
    const QString real = file.exists() ? file.canonicalFilePath() : path; // the engine follows links to the file too
    for (const char* ending : {"-journal", "-wal", "-shm"}) {
        const QFileInfo beside(real + QLatin1String(ending));
        if (beside.isSymLink() || (beside.exists() && !beside.isFile()))
            Refuse(texts::foreignJournal);
    }
    const QString journal = real + QStringLiteral("-journal");
    if (QFileInfo::exists(journal) && NamesOtherFile(journal))
        Refuse(texts::foreignJournal);
}

} // namespace

TableDb TableDb::Open(const QString& path)
{
    RequireHarmless(path);
    return WithDbErrors([&] { return TableDb(SQLite::Database(path.toStdString(), kReadWrite, kBusyTimeoutMs)); });
}

TableDb TableDb::Create(const QString& path, int applicationId, int schemaVersion)
{
    if (QFileInfo::exists(path))
        throw DbError(texts::fileExists.toStdString());
    RequireHarmless(path);
    return WithDbErrors([&] {
        TableDb db(SQLite::Database(path.toStdString(), kReadWrite | SQLite::OPEN_CREATE, kBusyTimeoutMs));
        db.Execute(QStringLiteral("PRAGMA application_id=%1").arg(applicationId));
        db.SetSchemaVersion(schemaVersion);
        return db;
    });
}

void TableDb::Execute(const QString& sql)
{
    WithDbErrors([&] { database.exec(sql.toStdString()); });
}

bool TableDb::IsReadOnly()
{
    // Without a place for its journal the engine can't write either.
    const QFileInfo file(QString::fromStdString(database.getFilename()));
    return sqlite3_db_readonly(database.getHandle(), "main") == 1 || !IsWritable(file.canonicalPath());
}

bool TableDb::TableExists(const QString& name)
{
    return WithDbErrors([&] {
        SQLite::Statement query(database, "SELECT 1 FROM pragma_table_list WHERE schema='main' AND type='table' AND "
                                          "name=? COLLATE NOCASE");
        query.bind(1, name.toStdString());
        return query.executeStep();
    });
}

void TableDb::DropTable(const QString& name)
{
    if (TableExists(name))
        Execute(QStringLiteral("DROP TABLE %1;").arg(BracketedName(name)));
}

bool TableDb::HasColumn(const char* table, const char* column)
{
    return sqlite3_table_column_metadata(database.getHandle(), nullptr, table, column, nullptr, nullptr, nullptr,
                                         nullptr, nullptr) == SQLITE_OK;
}

int TableDb::SchemaVersion()
{
    return WithDbErrors([&] { return database.execAndGet("PRAGMA user_version").getInt(); });
}

quint32 TableDb::ChangeCounter()
{
    constexpr int kPlace = 24; // of the file's header, from the high to the low byte
    sqlite3_file* file = nullptr;
    std::array<uchar, sizeof(quint32)> bytes{};
    int code = sqlite3_file_control(database.getHandle(), "main", SQLITE_FCNTL_FILE_POINTER, &file);
    if (code == SQLITE_OK)
        code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), kPlace);
    if (code != SQLITE_OK)
        ThrowDbError(code, sqlite3_errstr(code));
    return qFromBigEndian<quint32>(bytes.data());
}

void TableDb::SetSchemaVersion(int version)
{
    Execute(QStringLiteral("PRAGMA user_version=%1").arg(version));
}

void TableDb::RequirePlainTables(std::initializer_list<const char*> names)
{
    WithDbErrors([&] {
        SQLite::Statement query(
            database, "SELECT 1 FROM pragma_table_list WHERE schema='main' AND name=?1 COLLATE NOCASE AND "
                      "type<>'table' UNION ALL "
                      "SELECT 1 FROM sqlite_schema WHERE type='trigger' AND tbl_name=?1 COLLATE NOCASE UNION ALL "
                      "SELECT 1 FROM pragma_table_xinfo(?1) WHERE hidden<>0");
        for (const char* name : names) {
            query.reset();
            query.bind(1, name);
            if (query.executeStep())
                throw DbError(std::string("unexpected view, trigger or column: ") + name);
        }
    });
}

void TableDb::RequireUnique(const char* table, const char* column)
{
    const bool isUnique = WithDbErrors([&] {
        SQLite::Statement query(
            database, "SELECT 1 FROM pragma_table_info(?1) WHERE name=?2 COLLATE NOCASE AND pk=1 AND "
                      "(SELECT max(pk) FROM pragma_table_info(?1))=1 UNION ALL "
                      "SELECT 1 FROM pragma_index_list(?1) AS list WHERE list.\"unique\"=1 AND list.partial=0 AND "
                      "(SELECT group_concat(name) FROM pragma_index_info(list.name))=?2 COLLATE NOCASE");
        query.bind(1, table);
        query.bind(2, column);
        return query.executeStep();
    });
    if (!isUnique)
        throw DbError(std::string("no unique key: ") + table);
}

void TableDb::UseRollbackJournal()
{
    if (!IsReadOnly())
        Execute(QStringLiteral("PRAGMA journal_mode=DELETE"));
}

void TableDb::HoldLock()
{
    WithDbErrors([this] {
        auto reading = std::make_unique<SQLite::Statement>(database, "SELECT 1 FROM sqlite_schema");
        database.exec("BEGIN IMMEDIATE");
        reading->executeStep();
        anchor = std::move(reading);
    });
    sqlite3_busy_timeout(database.getHandle(), 0);
}

void TableDb::ReleaseLock()
{
    if (!anchor)
        return;
    anchor.reset();
    if (sqlite3_get_autocommit(database.getHandle()) == 0)
        database.tryExec("ROLLBACK"); // it is empty
    sqlite3_busy_timeout(database.getHandle(), kBusyTimeoutMs);
}

/// Takes the lock of writing again; where another one was quicker, the next transaction tries it. He can't commit.
void TableDb::BeginHeld()
{
    if (anchor && sqlite3_get_autocommit(database.getHandle()) != 0)
        database.tryExec("BEGIN IMMEDIATE");
}

void RemoveJournals(const QString& path)
{
    for (const char* ending : {"-journal", "-wal", "-shm"})
        QFile::remove(path + QLatin1String(ending));
}

DbTransaction::DbTransaction(TableDb& db) : database(db), isOutermost(!db.isInTransaction), isOpen(isOutermost)
{
    if (!isOutermost)
        return;
    if (sqlite3_get_autocommit(database.Handle().getHandle()) != 0)
        database.Execute(QStringLiteral("BEGIN IMMEDIATE"));
    database.isInTransaction = true;
}

DbTransaction::~DbTransaction()
{
    if (!isOutermost)
        return;
    // An error such as a full disk may have ended the transaction already; then there is nothing to take back.
    if (isOpen && sqlite3_get_autocommit(database.Handle().getHandle()) == 0)
        database.Handle().tryExec("ROLLBACK");
    database.isInTransaction = false;
    database.BeginHeld();
}

void DbTransaction::Commit()
{
    if (!isOutermost)
        return;
    database.Execute(QStringLiteral("COMMIT"));
    isOpen = false;
}

QString BracketedName(const QString& name)
{
    return u'[' + QString(name).remove(u']') + u']';
}

} // namespace korvanel
