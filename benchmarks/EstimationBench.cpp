// The load estimation: both estimators for one sample, and all sets of a project against a bare loop that reads and
// writes the same columns.
#include "Allocations.h"
#include "Recording.h"

#include "core/Common.h"
#include "data/ComputedQuantities.h"
#include "data/Recomputation.h"
#include "machine/Algorithms_ASM_Start.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QFile>

#include <array>

namespace korvanel::bench {

namespace {

constexpr int kSampleCount = 1024;

std::array<LoadSample, kSampleCount> Samples()
{
    std::array<LoadSample, kSampleCount> samples;
    for (int i = 0; i < kSampleCount; ++i) {
        const double load = 0.05 + 1.2 * i / kSampleCount;
        samples[static_cast<std::size_t>(i)] = {400 - 3 * load, 33 * load, 50 - 0.1 * load, 20400 * load,
                                                80 - 50 * load};
    }
    return samples;
}

/// Code of a library may leave the upper halves of the vector registers in use, which slows all plain arithmetic after
/// it severalfold on some processors until they are cleared. What is measured here is the estimation itself.
void ClearUpperHalves()
{
#ifdef __x86_64__
    if (__builtin_cpu_supports("avx"))
        asm volatile("vzeroupper");
#endif
}

/// One sample after the other through `EstimateLoad`, as for a row.
void Estimate(benchmark::State& state, int method)
{
    PrepareMachine();
    const auto samples = Samples();
    std::size_t next = 0;
    ClearUpperHalves();
    const std::uint64_t before = AllocationCount();
    for (auto _ : state) {
        const LoadSample& s = samples[next++ % kSampleCount];
        EstimateLoad(s.U, s.I, s.f, s.P, s.phi, method);
        benchmark::DoNotOptimize(App().Estimate);
    }
    // The benchmark's own clock allocates nothing either.
    if (AllocationCount() != before)
        state.SkipWithError("the estimation allocates");
}

void Estimate_SpaceVector(benchmark::State& state)
{
    Estimate(state, 0);
}

void Estimate_PowerBalance(benchmark::State& state)
{
    Estimate(state, 1);
}

/// A copy of the large project of its own, since it is changed.
QString Copy(const char* name)
{
    const QString path = ScratchPath(QLatin1String(name));
    if (!QFile::exists(path))
        QFile::copy(LargeProject(), path);
    return path;
}

void Recompute_Bare(benchmark::State& state)
{
    constexpr int kInputs = 5;
    constexpr int kResults = 4;
    BareDatabase db(Copy("recompute-bare.MDB"));
    sqlite3_stmt* read =
        db.Prepare("SELECT [Set], [U sum], [I sum], [f sum], [P sum], [phi sum] FROM SampledValues ORDER BY [Set]");
    sqlite3_stmt* write =
        db.Prepare("UPDATE ComputedValues SET [n]=?, [M]=?, [Pmech]=?, [eta]=?, [Method]=? WHERE [Set]=?");
    for (auto _ : state) {
        db.Execute("BEGIN IMMEDIATE");
        while (sqlite3_step(read) == SQLITE_ROW) {
            double sum = 0;
            for (int column = 1; column <= kInputs; ++column)
                sum += sqlite3_column_double(read, column);
            for (int i = 1; i <= kResults; ++i)
                sqlite3_bind_double(write, i, sum * i);
            sqlite3_bind_text(write, kResults + 1, "P", 1, SQLITE_STATIC);
            sqlite3_bind_int64(write, kResults + 2, sqlite3_column_int64(read, 0));
            sqlite3_step(write);
            sqlite3_reset(write);
        }
        sqlite3_reset(read);
        db.Execute("UPDATE SampledValues SET [Edit]=255");
        db.Execute("COMMIT");
    }
}

void Recompute_Program(benchmark::State& state)
{
    PrepareMachine();
    App().sProjectPath = Copy("recompute-program.MDB");
    App().iNetConfIndex = kNetConf;
    for (auto _ : state)
        if (!RecomputeAllRows())
            state.SkipWithError("rows could not be recomputed");
}

BENCHMARK(Estimate_SpaceVector);
BENCHMARK(Estimate_PowerBalance);
BENCHMARK(Recompute_Bare)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(Recompute_Program)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
} // namespace korvanel::bench
