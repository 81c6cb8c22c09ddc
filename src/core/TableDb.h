// A table database: one SQLite file, opened with the care that a file from a stranger needs, and the few operations
// that project and motor database share. Errors are thrown as DbError with the engine's own words.
#pragma once

#include <QString>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <memory>
#include <stdexcept>

namespace korvanel {

class DbError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// The file is in use by another program at the moment; the same may succeed a little later.
class DbLocked : public DbError
{
public:
    DbLocked();
};

/// Longest text in bytes that is written to or read from a file. A longer one is refused by the engine, so that a
/// hostile file can't fill the memory. It leaves room for `kLongestTypedText` characters in UTF-8.
inline constexpr int kLongestStoredText = 128 * 1024;
/// Longest text in characters that an input box takes.
inline constexpr int kLongestTypedText = 32767;

/// Marks a file as this program's; stands in the header of the file.
inline constexpr int kProjectApplicationId = 0x4B564E4C;

class TableDb
{
public:
    /// Opens an existing file for reading and writing; a file that is write-protected opens for reading. What is no
    /// ordinary file, or has a journal beside it that leads to other files, is refused before the engine sees it.
    static TableDb Open(const QString& path);
    /// Creates a new file. An existing one of that name is an error and stays as it is.
    static TableDb Create(const QString& path, int applicationId, int schemaVersion);

    SQLite::Database& Handle() { return database; }
    void Execute(const QString& sql);
    /// Whether the file, or the folder in which its journal would stand, is write-protected.
    bool IsReadOnly();

    /// Compares with the names of all tables, ignoring case. Views and virtual tables are no tables.
    bool TableExists(const QString& name);
    /// Drops the table if it exists.
    void DropTable(const QString& name);
    /// Whether a table has a column; false without the table. Upper and lower case count as equal.
    bool HasColumn(const char* table, const char* column);
    /// Version of the schema, as the header of the file holds it; 0 for a file that never got one.
    int SchemaVersion();
    void SetSchemaVersion(int version);
    /// How often the file has been changed, by whomever: the count in its header goes up with each commit. To be asked
    /// within a transaction, so that nobody changes it meanwhile.
    quint32 ChangeCounter();
    /// Throws if one of these names is a view or a virtual table, has a trigger or a computed column: this program
    /// makes none, and a foreign one could change what is read or stored behind its back.
    void RequirePlainTables(std::initializer_list<const char*> names);
    /// Throws if a table may hold two rows with the same value of a column: a join by it would multiply them.
    void RequireUnique(const char* table, const char* column);
    /// Brings a file that another program has switched to a write-ahead log back to the rollback journal, so that the
    /// file alone is the whole project.
    void UseRollbackJournal();
    /// From now on nobody else can write the file until it is closed or `ReleaseLock` is called; reading stays free for
    /// all. An operation that meets a reader doesn't wait for it but throws DbLocked at once, to be tried again. Throws
    /// DbLocked if somebody writes at the moment.
    void HoldLock();
    /// Lets others write again. Does nothing without a lock.
    void ReleaseLock();

private:
    friend class DbTransaction;
    explicit TableDb(SQLite::Database&& opened);
    void BeginHeld();

    SQLite::Database database;
    // A statement that is read but never to its end keeps the shared lock across each commit: no other connection gets
    // the exclusive lock that it needs for a commit of its own. Between the commits an empty transaction of writing is
    // open, so that others are refused at their beginning and not at their end.
    std::unique_ptr<SQLite::Statement> anchor;
    bool isInTransaction = false;
};

/// One operation is one transaction. Within a transaction that is under way this does nothing, so that operations
/// can be built from operations. Without `Commit` everything is taken back.
class DbTransaction
{
public:
    explicit DbTransaction(TableDb& db);
    DbTransaction(const DbTransaction&) = delete;
    DbTransaction& operator=(const DbTransaction&) = delete;
    ~DbTransaction();
    void Commit();

private:
    TableDb& database;
    bool isOutermost;
    bool isOpen;
};

/// Deletes what the engine has left beside a file that is to go: a journal that stays would be played into the next
/// file of that name.
void RemoveJournals(const QString& path);

/// The engine's statement text for a name: in square brackets, as a bracket can't stand within.
QString BracketedName(const QString& name);

/// Throws what a result code of the engine means: DbLocked for a file in use, else DbError with the engine's words.
[[noreturn]] void ThrowDbError(int code, const char* words);

/// Runs a routine and turns an exception of the library into DbError.
template <typename Routine>
auto WithDbErrors(Routine&& routine)
{
    try {
        return routine();
    } catch (const SQLite::Exception& error) {
        ThrowDbError(error.getErrorCode(), error.what());
    }
}

} // namespace korvanel
