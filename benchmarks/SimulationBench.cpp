// A second machine over a million sets, against bare loops: one that walks the sets and stores as many rows as the
// simulation does, and one that walks the sets with those rows.
#include "CopiedProject.h"
#include "Recording.h"
#include "Simulating.h"

#include "core/Common.h"
#include "data/ValueTables.h"
#include "project/ProjectStore.h"
#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/Machines.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <numbers>

namespace korvanel::bench {

void PrepareSecondMachine()
{
    constexpr double kUsualWindow = 900;
    PrepareMachine();
    App().MachineII.record = test::SecondMotor();
    App().bASMSim = true;
    App().dTWindow = kUsualWindow;
    RefreshSetCount();
}

bool SimulateOpenProject()
{
    PrepareSecondMachine();
    return RunSimulation() && EvaluateSimulation() && App().MachineII.evaluation.lSets == App().iSetCount;
}

namespace {

constexpr const char* kCreateSimulated =
    "DROP TABLE IF EXISTS SimulatedValues; CREATE TABLE SimulatedValues ([Set] INTEGER PRIMARY KEY, [U sum] REAL, "
    "[f sum] REAL, [P sum] REAL, [n] REAL, [M] REAL, [Pmech] REAL, [eta] REAL, [Method] TEXT, [Wp] REAL, [Wp+] REAL, "
    "[Wp-] REAL)";

/// The row of one set, by the same straight line and balance of losses.
void StoreBareRow(sqlite3_stmt* insert, sqlite3_stmt* read, double& energy)
{
    constexpr double kRatedU = 400;
    constexpr double kRatedM = 120.8;
    constexpr double kSlip = 0.025;
    constexpr double kLoadLoss = 0.09;
    constexpr double kNoLoad = 648;
    enum ColumnRead
    {
        kSet,
        kU,
        kF,
        kM,
        kTime
    };
    const double U = sqlite3_column_double(read, kU);
    const double f = sqlite3_column_double(read, kF);
    const double M = sqlite3_column_double(read, kM);
    const double synchronous = 30 * f;
    const double n = (1 - M / (kRatedM * U * U / (kRatedU * kRatedU)) * kSlip) * synchronous;
    const double Pmech = 2 * std::numbers::pi * n * M / 60;
    const double P = M * M * kLoadLoss + Pmech + kNoLoad;
    energy += P * (sqlite3_column_double(read, kTime) > 0 ? 1 : 0);
    int position = 0;
    sqlite3_bind_int64(insert, ++position, sqlite3_column_int64(read, kSet));
    for (const double value : {U, f, P, n, M, Pmech, Pmech / P})
        sqlite3_bind_double(insert, ++position, value);
    sqlite3_bind_text(insert, ++position, "P", 1, SQLITE_STATIC);
    for (const double value : {energy, energy, 0.0})
        sqlite3_bind_double(insert, ++position, value);
    if (sqlite3_step(insert) != SQLITE_DONE)
        std::abort();
    sqlite3_reset(insert);
}

void Simulate_Bare(benchmark::State& state)
{
    RunBareOnCopies(state, [](BareDatabase& db) {
        db.Execute(kCreateSimulated);
        sqlite3_stmt* read = db.Prepare(
            "SELECT SampledValues.[Set], [U sum], [f sum], [M], [t] FROM SampledValues INNER JOIN ComputedValues "
            "ON SampledValues.[Set] = ComputedValues.[Set] ORDER BY SampledValues.[Set]");
        sqlite3_stmt* insert = db.Prepare("INSERT INTO SimulatedValues VALUES (?,?,?,?,?,?,?,?,?,?,?,?)");
        double energy = 0;
        while (sqlite3_step(read) == SQLITE_ROW)
            StoreBareRow(insert, read, energy);
        sqlite3_finalize(read);
    });
}

void Simulate_Program(benchmark::State& state)
{
    RunOnCopies(state, PrepareSecondMachine, RunSimulation);
}

/// A project of `Sets()` sets with their simulated rows, made on first use.
const QString& SimulatedProject()
{
    static const QString project = [] {
        const QString path = FreshCopy("simulated.MDB");
        OpenProject(path);
        if (!SimulateOpenProject())
            std::abort();
        return path;
    }();
    return project;
}

void EvaluateSimulation_Bare(benchmark::State& state)
{
    BareDatabase db(SimulatedProject());
    for (auto _ : state) {
        sqlite3_stmt* read = db.Prepare(
            "SELECT SampledValues.[Set], [Time], [t], [Edit], SimulatedValues.[U sum], SimulatedValues.[f sum], "
            "SimulatedValues.[P sum], [n], [M], [Pmech], [eta], [Wp], [Wp+], [Wp-], [Method] FROM SampledValues INNER "
            "JOIN SimulatedValues ON SampledValues.[Set] = SimulatedValues.[Set] ORDER BY SampledValues.[Set]");
        double sum = 0;
        int sets = 0;
        for (; sqlite3_step(read) == SQLITE_ROW; ++sets) {
            constexpr int kFirstNumber = 2;
            constexpr int kMethod = 14;
            const unsigned char* time = sqlite3_column_text(read, 1);
            const unsigned char* method = sqlite3_column_text(read, kMethod);
            sum += sqlite3_column_int(read, 0) + (time ? *time : 0) + (method ? *method : 0);
            for (int column = kFirstNumber; column < kMethod; ++column)
                sum += sqlite3_column_double(read, column);
        }
        benchmark::DoNotOptimize(sum);
        sqlite3_finalize(read);
        if (sets != Sets())
            state.SkipWithError("sets are missing");
    }
}

void EvaluateSimulation_Program(benchmark::State& state)
{
    OpenProject(SimulatedProject());
    PrepareSecondMachine();
    for (auto _ : state)
        if (!EvaluateSimulation() || App().MachineII.evaluation.lSets != Sets())
            state.SkipWithError("sets are missing");
}

BENCHMARK(Simulate_Bare)->Apply(OneRunEach);
BENCHMARK(Simulate_Program)->Apply(OneRunEach);
BENCHMARK(EvaluateSimulation_Bare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(EvaluateSimulation_Program)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
