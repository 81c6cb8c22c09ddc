// The evaluation of a million sets against a bare loop over the same columns.
#include "Recording.h"

#include "core/Common.h"
#include "core/clsProgSettings.h"
#include "evaluation/Algorithms.h"
#include "project/ProjectStore.h"

#include <benchmark/benchmark.h>

namespace korvanel::bench {
namespace {

/// With a window by hand, in seconds; the sets lie one second apart.
void Evaluate(benchmark::State& state, double window)
{
    OpenProject(LargeProject());
    PrepareMachine();
    App().ProgSettings->SetTWindowSelection(0);
    App().ProgSettings->SetTWindowSize(window);
    for (auto _ : state) {
        EvaluateProject();
        if (App().MachineI.evaluation.lSets != Sets() || App().MachineI.evaluation.dWindowRows != window + 1)
            state.SkipWithError("sets are missing");
    }
}

void Evaluate_Program(benchmark::State& state)
{
    constexpr double kUsual = 900;
    Evaluate(state, kUsual);
}

/// A window too long to keep its sets in memory.
void Evaluate_LongWindow(benchmark::State& state)
{
    constexpr double kQuarter = 0.25;
    Evaluate(state, kQuarter * Sets());
}

BENCHMARK(Evaluate_Program)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Evaluate_LongWindow)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
