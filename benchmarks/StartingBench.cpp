// From the start of the process to the shown main window, against an empty window of the toolkit.
#include "Recording.h"

#include <benchmark/benchmark.h>

#include <QProcess>
#include <QProcessEnvironment>

namespace korvanel::bench {
namespace {

void Start(benchmark::State& state, const char* program)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (!environment.contains(QStringLiteral("DISPLAY")) && !environment.contains(QStringLiteral("WAYLAND_DISPLAY")))
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(KORVANEL_PLUGINS));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("korvanelshown"));
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), ScratchPath(QStringLiteral("settings")));
    for (auto _ : state) {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(QLatin1String(program), {});
        if (!process.waitForFinished() || process.exitCode() != 0)
            state.SkipWithError("program did not show its window");
    }
}

void Start_Bare(benchmark::State& state)
{
    Start(state, KORVANEL_EMPTY_WINDOW);
}
void Start_Program(benchmark::State& state)
{
    Start(state, KORVANEL_PROGRAM);
}

BENCHMARK(Start_Bare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Start_Program)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
} // namespace korvanel::bench
