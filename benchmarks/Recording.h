// The recordings that the benchmarks read: a million sets in the configuration with a machine, and an empty one.
#pragma once

#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace korvanel::bench {

/// Sets of the large project: a million, or what the environment variable `KORVANEL_BENCH_SETS` says for a short run.
int Sets();
inline constexpr int kNetConf = 2;

/// Prepares the application block for use without a window.
void PrepareBlock();
/// Makes a motor with all its data the machine of the block.
void PrepareMachine();
/// Opens a project for the page of a machine.
void OpenForPage(const QString& path);
/// Creates a project and leaves it current.
void CreateProject(const QString& path, int netConf = kNetConf);
/// Path of a project of `Sets()` sets, made on first use.
const QString& LargeProject();
/// Path of a project without sets.
const QString& EmptyProject();
/// A path in the folder of the benchmarks.
QString ScratchPath(const QString& name);

/// The same file, join and columns with nothing but the engine's own functions.
class BareDatabase
{
public:
    explicit BareDatabase(const QString& path);
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;
    ~BareDatabase();
    /// A statement; finalised with the database.
    sqlite3_stmt* Prepare(const char* sql);
    void Execute(const char* sql);
    sqlite3* Handle() { return handle; }

private:
    sqlite3* handle = nullptr;
};

/// "SELECT ... FROM join" over the columns that a row of this configuration has.
extern const char* const kBareSelect;
/// Fetches the columns of the present row; their sum, so that nothing is optimised away.
double FetchBareRow(sqlite3_stmt* statement);

} // namespace korvanel::bench
