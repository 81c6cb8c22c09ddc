// Reading sets: all in order with the cursor, and single ones at random.
#include "Recording.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "data/FileManaging.h"
#include "data/SetReader.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <random>

namespace korvanel::bench {
namespace {

constexpr unsigned kSeed = 20260314;
constexpr int kSetsOfALookUp = 10;

void Cursor_Bare(benchmark::State& state)
{
    BareDatabase db(LargeProject());
    for (auto _ : state) {
        sqlite3_stmt* statement = db.Prepare((std::string(kBareSelect) + " ORDER BY SampledValues.[Set]").c_str());
        double sum = 0;
        while (sqlite3_step(statement) == SQLITE_ROW)
            sum += FetchBareRow(statement);
        benchmark::DoNotOptimize(sum);
        sqlite3_finalize(statement);
    }
}

void Cursor_Program(benchmark::State& state)
{
    App().sProjectPath = LargeProject();
    const ProjectDbScope scope;
    for (auto _ : state) {
        SetReader reader(ProjectDb(), kNetConf);
        double sum = 0;
        int sets = 0;
        for (; reader.Next(); ++sets)
            sum += reader.Row().dP[kSum] + reader.Set();
        benchmark::DoNotOptimize(sum);
        if (sets != Sets())
            state.SkipWithError("sets are missing");
    }
}

void ReadRow_Bare(benchmark::State& state)
{
    BareDatabase db(LargeProject());
    sqlite3_stmt* statement = db.Prepare((std::string(kBareSelect) + " WHERE SampledValues.[Set]=?").c_str());
    for (auto _ : state) {
        std::minstd_rand random(kSeed);
        double sum = 0;
        for (int i = 0; i < Sets() / kSetsOfALookUp; ++i) {
            sqlite3_reset(statement);
            sqlite3_bind_int(statement, 1, static_cast<int>(random() % Sets()) + 1);
            if (sqlite3_step(statement) == SQLITE_ROW)
                sum += FetchBareRow(statement);
        }
        benchmark::DoNotOptimize(sum);
    }
}

void ReadRow_Program(benchmark::State& state)
{
    App().sProjectPath = LargeProject();
    App().iNetConfIndex = kNetConf;
    OpenDbGuarded();
    for (auto _ : state) {
        std::minstd_rand random(kSeed);
        double sum = 0;
        for (int i = 0; i < Sets() / kSetsOfALookUp; ++i) {
            ReadRow(static_cast<int>(random() % Sets()) + 1);
            sum += App().CurrentRow.dP[kSum];
        }
        benchmark::DoNotOptimize(sum);
    }
    CloseDbGuarded();
    if (App().iFileErrors != 0)
        state.SkipWithError("rows could not be read");
}

BENCHMARK(Cursor_Bare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Cursor_Program)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadRow_Bare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ReadRow_Program)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
