// Opening a project of a million sets: what it costs beyond an empty one is one count of the sets.
#include "Recording.h"

#include "core/Common.h"
#include "project/ProjectStore.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

namespace korvanel::bench {
namespace {

void Open(benchmark::State& state, const QString& path, int sets)
{
    for (auto _ : state) {
        OpenProject(path);
        if (App().bFileError || App().iSetCount != sets)
            state.SkipWithError("project could not be opened");
    }
}

void Open_Empty(benchmark::State& state)
{
    Open(state, EmptyProject(), 0);
}
void Open_Program(benchmark::State& state)
{
    Open(state, LargeProject(), Sets());
}

void Open_Count(benchmark::State& state)
{
    for (auto _ : state) {
        BareDatabase db(LargeProject());
        sqlite3_stmt* statement =
            db.Prepare("SELECT COUNT(SampledValues.[Set]) FROM SampledValues INNER JOIN ComputedValues ON "
                       "SampledValues.[Set] = ComputedValues.[Set]");
        if (sqlite3_step(statement) != SQLITE_ROW || sqlite3_column_int(statement, 0) != Sets())
            state.SkipWithError("sets are missing");
    }
}

BENCHMARK(Open_Empty)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Open_Count)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Open_Program)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
