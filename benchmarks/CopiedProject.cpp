#include "CopiedProject.h"

#include "Recording.h"

#include "project/ProjectStore.h"

#include <QFile>

#include <cstdlib>

#include <unistd.h>

namespace korvanel::bench {

QString FreshCopy(const char* name)
{
    QString path = ScratchPath(QLatin1String(name));
    QFile::remove(path);
    QFile::copy(LargeProject(), path);
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite) || fsync(file.handle()) != 0)
        std::abort();
    return path;
}

void RunOnCopies(benchmark::State& state, const std::function<void()>& prepare, const std::function<bool()>& operation)
{
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = FreshCopy("changed-program.MDB");
        OpenProject(path);
        prepare();
        state.ResumeTiming();
        if (!operation())
            state.SkipWithError("rows could not be changed");
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
}

void RunBareOnCopies(benchmark::State& state, const std::function<void(BareDatabase&)>& operation)
{
    for (auto _ : state) {
        state.PauseTiming();
        const QString path = FreshCopy("changed-bare.MDB");
        state.ResumeTiming();
        {
            BareDatabase db(path);
            db.Execute("BEGIN IMMEDIATE");
            operation(db);
            db.Execute("COMMIT");
        }
        state.PauseTiming();
        QFile::remove(path);
        state.ResumeTiming();
    }
}

void OneRunEach(benchmark::internal::Benchmark* changing)
{
    changing->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1)->Repetitions(3);
}

} // namespace korvanel::bench
