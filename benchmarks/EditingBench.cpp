// The operations of the editor that touch all sets, against bare loops that run the same statements.
#include "CopiedProject.h"
#include "EditingMemory.h"
#include "Recording.h"

#include "core/Common.h"
#include "editor/RowOperations.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>
#include <string>

namespace korvanel::bench {
namespace {

constexpr const char* kTables[] = {"SampledValues", "ComputedValues"};

int SetInTheFrontThird()
{
    return Sets() / 4;
}

void Step(sqlite3_stmt* statement)
{
    if (sqlite3_step(statement) != SQLITE_DONE)
        std::abort();
    sqlite3_reset(statement);
}

std::string In(const char* before, const char* table, const char* behind)
{
    return std::string(before) + table + behind;
}

/// The end toward which they move goes first.
void MoveBare(BareDatabase& db, int first, int last, int by)
{
    for (const char* table : kTables) {
        sqlite3_stmt* move = db.Prepare(In("UPDATE ", table, " SET [Set]=? WHERE [Set]=?").c_str());
        for (int done = 0; done <= last - first; ++done) {
            const int set = by > 0 ? last - done : first + done;
            sqlite3_bind_int(move, 1, set + by);
            sqlite3_bind_int(move, 2, set);
            Step(move);
        }
    }
}

void RenumberBare(BareDatabase& db)
{
    constexpr std::size_t kBlock = 256;
    sqlite3_stmt* read = db.Prepare("SELECT [Set] FROM SampledValues WHERE [Set]>? ORDER BY [Set] LIMIT 256");
    sqlite3_stmt* write = db.Prepare("UPDATE SampledValues SET [t]=? WHERE [Set]=?");
    std::array<int, kBlock> sets{};
    std::size_t count = 0;
    int last = 0;
    do {
        count = 0;
        sqlite3_bind_int(read, 1, last);
        while (sqlite3_step(read) == SQLITE_ROW)
            sets.at(count++) = sqlite3_column_int(read, 0);
        sqlite3_reset(read);
        for (std::size_t i = 0; i < count; ++i) {
            last = sets.at(i);
            sqlite3_bind_int(write, 1, last - 1);
            sqlite3_bind_int(write, 2, last);
            Step(write);
        }
    } while (count == kBlock);
}

void Duplicate_Bare(benchmark::State& state)
{
    RunBareOnCopies(state, [](BareDatabase& db) {
        const int first = SetInTheFrontThird();
        MoveBare(db, first, Sets(), kMarkedSets);
        const std::string by = std::to_string(kMarkedSets);
        const std::string where = " WHERE [Set] BETWEEN " + std::to_string(first + kMarkedSets) + " AND " +
                                  std::to_string(first + 2 * kMarkedSets - 1);
        db.Execute(("INSERT INTO SampledValues SELECT [Set]-" + by +
                    ", NULL, [U sum], [I sum], [f sum], [P sum], [phi sum], [t], [Edit] FROM SampledValues" + where)
                       .c_str());
        db.Execute(("INSERT INTO ComputedValues SELECT [Set]-" + by +
                    ", [Q sum], [S sum], [cosphi sum], [Wp], [Wp+], [Wp-], [Wq], [n], [M], [Pmech], [eta], [Method] "
                    "FROM ComputedValues" +
                    where)
                       .c_str());
        RenumberBare(db);
    });
}

void Duplicate_Program(benchmark::State& state)
{
    RunOnCopies(state, PrepareEdit,
                [] { return InsertSets(App().iCurrentSet) && App().iSetCount == Sets() + kMarkedSets; });
}

void Delete_Bare(benchmark::State& state)
{
    RunBareOnCopies(state, [](BareDatabase& db) {
        const int first = SetInTheFrontThird();
        const std::string where =
            " WHERE [Set] BETWEEN " + std::to_string(first) + " AND " + std::to_string(first + kMarkedSets - 1);
        for (const char* table : kTables)
            db.Execute(In("DELETE FROM ", table, where.c_str()).c_str());
        MoveBare(db, first + kMarkedSets, Sets(), -kMarkedSets);
        RenumberBare(db);
    });
}

void Delete_Program(benchmark::State& state)
{
    RunOnCopies(state, PrepareEdit,
                [] { return DeleteSets(App().iCurrentSet) && App().iSetCount == Sets() - kMarkedSets; });
}

void Renumber_Bare(benchmark::State& state)
{
    RunBareOnCopies(state, RenumberBare);
}

void Renumber_Program(benchmark::State& state)
{
    RunOnCopies(state, PrepareEdit, RenumberTime);
}

/// What is read of a set, in the order of the columns of `Temp`.
enum Read
{
    kReadU,
    kReadI,
    kReadF,
    kReadP,
    kReadPhi,
    kReadT,
    kReadCount
};
using BareSet = std::array<double, kReadCount>;

bool ReadSet(sqlite3_stmt* read, BareSet& set)
{
    constexpr int kFirst = 3; // behind the two numbers and the time stamp
    constexpr int kLast = 22; // all of them are read
    if (sqlite3_step(read) != SQLITE_ROW)
        return false;
    for (int i = 0; i < kReadCount; ++i)
        set.at(static_cast<std::size_t>(i)) = sqlite3_column_double(read, kFirst + i);
    double sum = 0;
    for (int column = kFirst + kReadCount; column < kLast; ++column)
        sum += sqlite3_column_double(read, column);
    benchmark::DoNotOptimize(sum);
    return true;
}

/// Voltage to angle of a new set and what is derived of them, as its two rows.
void WriteSet(sqlite3_stmt* sampled, sqlite3_stmt* computed, int number, const BareSet& set)
{
    const double apparent = std::sqrt(3.0) * set[kReadU] * set[kReadI];
    const double cosphi = apparent > 0 ? set[kReadP] / apparent : 0;
    const double reactive = std::sqrt(std::max(0.0, apparent * apparent - set[kReadP] * set[kReadP]));
    sqlite3_bind_int(sampled, 1, number);
    for (int i = 0; i < kReadT; ++i)
        sqlite3_bind_double(sampled, i + 2, set.at(static_cast<std::size_t>(i)));
    sqlite3_bind_double(sampled, 6, std::acos(std::min(1.0, cosphi)) * 180 / std::numbers::pi);
    sqlite3_bind_int64(sampled, 7, static_cast<sqlite3_int64>(set[kReadT]));
    Step(sampled);
    sqlite3_bind_int(computed, 1, number);
    sqlite3_bind_double(computed, 2, reactive);
    sqlite3_bind_double(computed, 3, apparent);
    sqlite3_bind_double(computed, 4, cosphi);
    for (int i = 5; i < 9; ++i)
        sqlite3_bind_double(computed, i, 0);
    for (int i = 9; i < 13; ++i)
        sqlite3_bind_double(computed, i, reactive * i);
    sqlite3_bind_text(computed, 13, "P", 1, SQLITE_STATIC);
    Step(computed);
}

void Resample_Bare(benchmark::State& state)
{
    RunBareOnCopies(state, [](BareDatabase& db) {
        db.Execute("CREATE TABLE Temp AS SELECT SampledValues.[Set] AS SampledValues_Set, ComputedValues.[Set] AS "
                   "ComputedValues_Set, [Time], [U sum], [I sum], [f sum], [P sum], [phi sum], [t], [Edit], [Q sum], "
                   "[S sum], [cosphi sum], [Wp], [Wp+], [Wp-], [Wq], [n], [M], [Pmech], [eta], [Method] FROM "
                   "SampledValues INNER JOIN ComputedValues ON SampledValues.[Set] = ComputedValues.[Set]");
        db.Execute("CREATE UNIQUE INDEX TempSets ON Temp (SampledValues_Set)");
        for (const char* table : kTables)
            db.Execute(In("DELETE FROM ", table, "").c_str());
        sqlite3_stmt* read = db.Prepare("SELECT * FROM Temp ORDER BY SampledValues_Set");
        sqlite3_stmt* sampled = db.Prepare("INSERT INTO SampledValues ([Set], [U sum], [I sum], [f sum], [P sum], "
                                           "[phi sum], [t], [Edit]) VALUES (?,?,?,?,?,?,?,255)");
        sqlite3_stmt* computed =
            db.Prepare("INSERT INTO ComputedValues ([Set], [Q sum], [S sum], [cosphi sum], [Wp], [Wp+], [Wp-], [Wq], "
                       "[n], [M], [Pmech], [eta], [Method]) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
        BareSet before{};
        BareSet behind{};
        if (!ReadSet(read, behind))
            std::abort();
        before = behind;
        for (int number = 1;; ++number) {
            const double time = (number - 1) * kOtherInterval;
            bool isThere = true;
            while (isThere && behind[kReadT] < time) {
                before = behind;
                isThere = ReadSet(read, behind);
            }
            if (!isThere)
                break;
            const double span = behind[kReadT] - before[kReadT];
            const double share = span > 0 ? (time - before[kReadT]) / span : 0;
            BareSet set{};
            for (std::size_t i = 0; i < kReadT; ++i)
                set.at(i) = before.at(i) + share * (behind.at(i) - before.at(i));
            set[kReadT] = time;
            WriteSet(sampled, computed, number, set);
        }
        sqlite3_finalize(read);
        db.Execute("DROP TABLE Temp");
    });
}

void Resample_Program(benchmark::State& state)
{
    RunOnCopies(state, PrepareEdit, [] {
        return ResampleInterval(kOtherInterval) &&
               App().iSetCount == (Sets() - 1) / static_cast<int>(kOtherInterval) + 1;
    });
}

BENCHMARK(Duplicate_Bare)->Apply(OneRunEach);
BENCHMARK(Duplicate_Program)->Apply(OneRunEach);
BENCHMARK(Delete_Bare)->Apply(OneRunEach);
BENCHMARK(Delete_Program)->Apply(OneRunEach);
BENCHMARK(Renumber_Bare)->Apply(OneRunEach);
BENCHMARK(Renumber_Program)->Apply(OneRunEach);
BENCHMARK(Resample_Bare)->Apply(OneRunEach);
BENCHMARK(Resample_Program)->Apply(OneRunEach);

} // namespace
} // namespace korvanel::bench
