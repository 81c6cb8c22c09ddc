// Storing a set so that it survives: the program's writer against two bare inserts in one transaction.
#include "Recording.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/FileManaging.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace korvanel::bench {
namespace {

void Append_Bare(benchmark::State& state)
{
    const QString path = ScratchPath(QStringLiteral("append-bare.MDB"));
    CreateProject(path);
    BareDatabase db(path);
    sqlite3_stmt* sampled = db.Prepare(
        "INSERT INTO SampledValues ([Set], [Time], [U sum], [I sum], [f sum], [P sum], [phi sum], [t], [Edit]) "
        "VALUES (?,?,?,?,?,?,?,?,?)");
    sqlite3_stmt* computed = db.Prepare(
        "INSERT INTO ComputedValues ([Set], [Q sum], [S sum], [cosphi sum], [Wp], [Wp+], [Wp-], [Wq], [n], [M], "
        "[Pmech], [eta], [Method]) VALUES (?,?,?,?,?,?,?,?,?,?,?,?,?)");
    constexpr int kSampledReals = 7;
    constexpr int kComputedReals = 12;
    int set = 0;
    for (auto _ : state) {
        ++set;
        db.Execute("BEGIN IMMEDIATE");
        sqlite3_bind_int(sampled, 1, set);
        sqlite3_bind_text(sampled, 2, "2026-03-14 15:09:26", -1, SQLITE_TRANSIENT);
        for (int i = 3; i <= kSampledReals; ++i)
            sqlite3_bind_double(sampled, i, set * 0.25);
        sqlite3_bind_int(sampled, 8, set - 1);
        sqlite3_bind_int(sampled, 9, 0);
        sqlite3_step(sampled);
        sqlite3_reset(sampled);
        sqlite3_bind_int(computed, 1, set);
        for (int i = 2; i <= kComputedReals; ++i)
            sqlite3_bind_double(computed, i, set * 0.25);
        sqlite3_bind_text(computed, 13, "P", -1, SQLITE_TRANSIENT);
        sqlite3_step(computed);
        sqlite3_reset(computed);
        db.Execute("COMMIT");
    }
}

void Append_Program(benchmark::State& state)
{
    CreateProject(ScratchPath(QStringLiteral("append-program.MDB")));
    OpenProjectDb();
    OpenJoinedRecordset();
    App().MeasuredRow.lSet = 0;
    App().bModelValid = true; // so that every column is written
    for (auto _ : state) {
        ++App().MeasuredRow.lSet;
        App().MeasuredRow.dU[kSum] = App().MeasuredRow.lSet * 0.25;
        App().MeasuredRow.dt = App().MeasuredRow.lSet - 1;
        if (!AppendMeasuredRow())
            state.SkipWithError("row could not be stored");
    }
    CloseProjectDb();
}

BENCHMARK(Append_Bare)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(Append_Program)->UseRealTime()->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace korvanel::bench
