// The export of a recording, its file included. What it is measured against is the bare walk over the same sets.
#include "Recording.h"

#include "core/Common.h"
#include "output/Export.h"
#include "project/ProjectStore.h"

#include <benchmark/benchmark.h>

#include <QFileInfo>

namespace korvanel::bench {
namespace {

void Export_Program(benchmark::State& state)
{
    OpenProject(LargeProject());
    PrepareMachine();
    const QString path = ScratchPath(QStringLiteral("export.xls"));
    for (auto _ : state)
        ExportEvaluation(path);
    constexpr qint64 kLeastBytesOfASet = 100;
    if (QFileInfo(path).size() < Sets() * kLeastBytesOfASet)
        state.SkipWithError("sets are missing");
}

BENCHMARK(Export_Program)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
