// Runs the benchmarks, then prints what counts: the program's work as a ratio to the bare work beside it, measured in
// the same run, and the peak memory.
#include "Conversion.h"
#include "EditingMemory.h"
#include "Recording.h"
#include "Simulating.h"

#include "core/Common.h"
#include "core/ProjectDb.h"
#include "core/clsProgSettings.h"
#include "data/Recomputation.h"
#include "data/SetReader.h"
#include "diagrams/DiagramDrawing.h"
#include "evaluation/Algorithms.h"
#include "evaluation/EvaluationPass.h"
#include "output/Export.h"
#include "project/ProjectStore.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QProcess>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <string>
#include <vector>

namespace korvanel::bench {
namespace {

/// Shows the usual table and keeps the times of each benchmark.
class KeepingReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            failed = failed || run.error_occurred;
            if (run.aggregate_name == "median")
                medians[run.run_name.function_name] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        }
    }
    /// Median over the repetitions, in seconds.
    double Median(const std::string& name) const { return medians.at(name); }
    bool Has(const std::string& name) const { return medians.count(name) > 0; }
    bool failed = false;

private:
    std::map<std::string, double> medians;
};

/// A short run looks for what has become slow by far; the machine may have other things to do.
constexpr double kToleranceOfShortRun = 2;
double tolerance = 1;

bool PrintRatio(const KeepingReporter& reporter, const char* what, const char* program, const char* bare, double limit)
{
    if (!reporter.Has(program) || !reporter.Has(bare))
        return true;
    const double ratio = reporter.Median(program) / reporter.Median(bare);
    const bool isGood = ratio <= limit * tolerance;
    std::printf("%-46s %6.2f  (at most %.1f)%s\n", what, ratio, limit * tolerance, isGood ? "" : "  TOO SLOW");
    return isGood;
}

bool PrintOpening(const KeepingReporter& reporter)
{
    if (!reporter.Has("Open_Program"))
        return true;
    const double limit = 1.2 * tolerance;
    const double ratio =
        reporter.Median("Open_Program") / (reporter.Median("Open_Empty") + reporter.Median("Open_Count"));
    std::printf("%-46s %6.2f  (at most %.1f)%s\n", "open a million sets / open none + one count", ratio, limit,
                ratio > limit ? "  TOO SLOW" : "");
    return ratio <= limit;
}

bool PrintEstimation(const KeepingReporter& reporter)
{
    constexpr double kLimit = 250;
    constexpr double kNanoseconds = 1e9;
    bool isGood = true;
    for (const char* method : {"Estimate_SpaceVector", "Estimate_PowerBalance"}) {
        if (!reporter.Has(method))
            continue;
        const double time = reporter.Median(method) * kNanoseconds;
        isGood = isGood && time <= kLimit;
        std::printf("%-46s %6.1f ns (at most %.0f, without allocation)%s\n", method, time, kLimit,
                    time > kLimit ? "  TOO SLOW" : "");
    }
    return isGood;
}

/// What a process of its own does with a project, for its peak memory.
struct MemoryTask
{
    const char* option;
    const char* what;
    bool (*run)();
    double limit = 16; ///< MB over an empty project
};

/// Walks all sets of the open project.
bool WalkSets()
{
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), App().iNetConfIndex);
    while (reader.Next()) {
    }
    return true;
}

/// Estimates all sets of the open project anew.
bool RecomputeSets()
{
    PrepareMachine();
    return RecomputeAllRows();
}

/// Exports the open project.
bool ExportSets()
{
    PrepareMachine();
    ExportEvaluation(ScratchPath(QStringLiteral("memory.xls")));
    return true;
}

/// Puts a second machine through the open project and evaluates its sets.
bool SimulateSets()
{
    return CopyOpenProject() && SimulateOpenProject();
}

/// Draws the open project twice, so that what is kept is used.
bool DrawSets()
{
    constexpr std::array kCurves{+kU, +kI, +kF, +kP, +kQ, +kN, +kM, +kPmech};
    std::vector<DiagramCurve> curves;
    for (const int quantity : kCurves)
        curves.push_back({.quantity = quantity, .colour = Qt::black, .divisor = 1, .scaleEnd = 50'000});
    QImage image(1200, 600, QImage::Format_RGB32);
    SetValues values;
    for (int i = 0; i < 2; ++i) {
        QPainter painter(&image);
        DiagramDrawing(values, curves, FullView(App().iSetCount, false), App().iSetCount, image.size())
            .DrawWhole(painter);
    }
    return true;
}

/// Evaluates the open project with a window of so many seconds, one set a second.
bool EvaluateSetsWith(double window)
{
    PrepareMachine();
    App().ProgSettings->SetTWindowSelection(0);
    App().ProgSettings->SetTWindowSize(window);
    EvaluateProject();
    return App().bEvaluated != 0;
}
/// The longest window whose sets are kept in memory.
bool EvaluateWithKeptWindow()
{
    return EvaluateSetsWith(kMostSetsInMemory - 2);
}
bool EvaluateWithRereadWindow()
{
    return EvaluateSetsWith(2.0 * kMostSetsInMemory);
}

const MemoryTask kMemoryTasks[] = {
    {"--walk", "walking: peak memory over an empty project", WalkSets},
    {"--recompute", "recomputing: the same", RecomputeSets},
    {"--evaluate", "evaluating, window of 200000 sets: the same", EvaluateWithKeptWindow, 32},
    {"--evaluate-long", "evaluating, window of 400000 sets: the same", EvaluateWithRereadWindow},
    {"--export", "exporting: the same", ExportSets, 32},
    {"--duplicate", "duplicating sets: the same", DuplicateSets},
    {"--delete", "deleting sets: the same", RemoveSets},
    {"--renumber", "numbering the times anew: the same", NumberTimes},
    {"--resample", "changing the interval: the same", ChangeInterval},
    {"--duplicate-noted", "duplicating sets, noted: the same", DuplicateSetsNoted, MostMegabytesNoted()},
    {"--resample-noted", "changing the interval, noted: the same", ChangeIntervalNoted, MostMegabytesNoted()},
    {"--simulate", "simulating and evaluating: the same", SimulateSets},
    {"--convert", "converting: the same", ConvertAsManySets},
    {"--draw", "drawing, 8 curves kept: the same", DrawSets, 66},
};

/// Peak memory of this process. The figure of `getrusage` would count the parent's memory too.
long PeakKilobytes()
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == "VmHWM:") {
            long kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
        }
    return 0;
}

/// Runs a task on a project and prints its peak memory in kilobytes.
int RunMemoryTask(const MemoryTask& task, const QString& path)
{
    PrepareBlock();
    OpenProject(path);
    if (App().bFileError || !task.run())
        return EXIT_FAILURE;
    std::printf("%ld\n", PeakKilobytes());
    return EXIT_SUCCESS;
}

/// Peak memory of that process in megabytes; 0 if it failed.
double PeakMemory(const MemoryTask& task, const QString& path)
{
    constexpr double kKilo = 1024;
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {QLatin1String(task.option), path});
    process.waitForFinished(-1);
    return process.exitCode() == EXIT_SUCCESS ? process.readAllStandardOutput().toDouble() / kKilo : 0;
}

/// The longest time that another program measures over the large project, in milliseconds.
bool PrintLongest(const char* program, const char* what, double limit)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(program), {LargeProject()});
    process.waitForFinished(-1);
    const double longest = process.readAllStandardOutput().toDouble();
    const bool isGood = process.exitCode() == EXIT_SUCCESS && longest > 0 && longest <= limit;
    std::printf("%-46s %6.1f ms (at most %.0f)%s\n", what, longest, limit, isGood ? "" : "  TOO SLOW");
    return isGood;
}

/// What the program of the reports prints, as numbers.
std::vector<double> ReportFigures(const QStringList& arguments)
{
    QProcess process;
    process.start(QString::fromLocal8Bit(KORVANEL_REPORT_BENCH), arguments);
    process.waitForFinished(-1);
    std::vector<double> figures;
    for (const QByteArray& figure : process.readAllStandardOutput().simplified().split(' '))
        figures.push_back(figure.toDouble());
    return figures;
}

bool PrintReports()
{
    constexpr double kMostTimes = 2;
    constexpr double kMostMilliseconds = 100;
    constexpr double kMostMegabytes = 16;
    const std::vector<double> times = ReportFigures({LargeProject()});
    if (times.size() != 4)
        return false;
    const auto print = [](const char* what, double figure, const char* unit, double limit) {
        const bool isGood = figure > 0 && figure <= limit;
        std::printf("%-46s %6.2f%s (at most %.0f)%s\n", what, figure, unit, limit, isGood ? "" : "  TOO MUCH");
        return isGood;
    };
    bool isGood = print("report of 10000 sets as a file / bare texts", times[0] / times[2], "", kMostTimes * tolerance);
    isGood &= print("the same for a printer, by the spool", times[1] / times[2], "", kMostTimes * tolerance);
    isGood &= print("preview of all sets: longest of 60 pages", times[3], " ms", kMostMilliseconds * tolerance);
    const double few = ReportFigures({LargeProject(), QStringLiteral("100")}).front();
    const double many = ReportFigures({LargeProject(), QStringLiteral("10000")}).front();
    const bool isLittle = few > 0 && many > 0 && many - few < kMostMegabytes;
    std::printf("%-46s %6.1f MB (below %.0f; %.1f and %.1f)%s\n", "report of 10000 sets: memory over that of 100",
                many - few, kMostMegabytes, few, many, isLittle ? "" : "  TOO MUCH");
    return isGood && isLittle;
}

bool PrintMemory()
{
    bool isGood = true;
    for (const MemoryTask& task : kMemoryTasks) {
        const double empty = PeakMemory(task, EmptyProject());
        const double large = PeakMemory(task, LargeProject());
        const bool isLittle = empty > 0 && large > 0 && large - empty < task.limit;
        std::printf("%-46s %6.1f MB (below %.0f; %.1f with none, %.1f with all sets)%s\n", task.what, large - empty,
                    task.limit, empty, large, isLittle ? "" : "  TOO MUCH");
        isGood = isGood && isLittle;
    }
    return isGood;
}

} // namespace
} // namespace korvanel::bench

int main(int argc, char* argv[])
{
    using namespace korvanel::bench;
    const QCoreApplication application(argc, argv);
    for (const MemoryTask& task : kMemoryTasks)
        if (argc == 3 && std::string(argv[1]) == task.option)
            return RunMemoryTask(task, QString::fromLocal8Bit(argv[2]));

    const bool isShort = argc == 2 && std::string(argv[1]) == "--short";
    if (isShort) {
        --argc;
        tolerance = kToleranceOfShortRun;
        qputenv("KORVANEL_BENCH_SETS", "100000");
    }
    // Turn by turn, so that a disturbance of the machine hits both sides of a ratio.
    std::vector<std::string> arguments{argv[0], isShort ? "--benchmark_repetitions=5" : "--benchmark_repetitions=9",
                                       isShort ? "--benchmark_min_time=0.02" : "--benchmark_min_time=0.1",
                                       "--benchmark_enable_random_interleaving=true",
                                       "--benchmark_display_aggregates_only=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    PrepareBlock();
    LargeProject();
    KeepingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    std::printf("\nRatio of the program to the bare work, median of %d (editing: of 3), %d sets\n", isShort ? 5 : 9,
                Sets());
    bool isGood = !reporter.failed;
    isGood &= PrintRatio(reporter, "walk all sets / bare loop", "Cursor_Program", "Cursor_Bare", 1.4);
    isGood &= PrintRatio(reporter, "read a set at random / bare look-up", "ReadRow_Program", "ReadRow_Bare", 1.5);
    isGood &= PrintRatio(reporter, "store a set durably / two bare inserts", "Append_Program", "Append_Bare", 1.3);
    isGood &= PrintRatio(reporter, "recompute all sets / bare loop", "Recompute_Program", "Recompute_Bare", 2.5);
    isGood &= PrintRatio(reporter, "evaluate all sets / bare loop", "Evaluate_Program", "Cursor_Bare", 2.0);
    isGood &=
        PrintRatio(reporter, "the same, window of a quarter of the sets", "Evaluate_LongWindow", "Cursor_Bare", 2.0);
    isGood &= PrintRatio(reporter, "export all sets / bare loop", "Export_Program", "Cursor_Bare", 2.5);
    isGood &= PrintRatio(reporter, "duplicate sets in front / bare loops", "Duplicate_Program", "Duplicate_Bare", 2.5);
    isGood &= PrintRatio(reporter, "delete sets in front / bare loops", "Delete_Program", "Delete_Bare", 2.5);
    isGood &= PrintRatio(reporter, "number the times anew / bare loop", "Renumber_Program", "Renumber_Bare", 2.5);
    isGood &= PrintRatio(reporter, "change the interval / bare loops", "Resample_Program", "Resample_Bare", 2.5);
    isGood &= PrintRatio(reporter, "simulate all sets / bare loop", "Simulate_Program", "Simulate_Bare", 2.0);
    isGood &= PrintRatio(reporter, "evaluate the simulated sets / bare loop", "EvaluateSimulation_Program",
                         "EvaluateSimulation_Bare", 2.0);
    isGood &= PrintRatio(reporter, "convert an old file / bare inserts", "Convert_Program", "Convert_Bare", 3.0);
    isGood &= PrintRatio(reporter, "draw all sets, 8 curves / bare loop", "Diagram_First", "Diagram_Bare", 2.0);
    // Its columns cost the picture the same, however many sets share them.
    const double ofFurther = isShort ? 0.3 : 0.1;
    isGood &= PrintRatio(reporter, "draw them again / bare loop", "Diagram_Further", "Diagram_Bare", ofFurther);
    isGood &= PrintRatio(reporter, "zoom to any view / bare loop", "Diagram_Zoom", "Diagram_Bare", 0.1);
    PrintRatio(reporter, "(a line for each set and curve / bare loop", "Diagram_Lines", "Diagram_Bare", 1000);
    isGood &= PrintEstimation(reporter);
    isGood &= PrintOpening(reporter);
    isGood &= PrintRatio(reporter, "start to shown window / empty window", "Start_Program", "Start_Bare", 1.5);
    isGood &= PrintLongest(KORVANEL_LIST_BENCH, "show any place of the sets, longest of 200", 50);
    isGood &= PrintLongest(KORVANEL_DIAGRAM_BENCH, "draw all sets: longest time without an answer", 20 * tolerance);
    isGood &= PrintReports();
    isGood &= PrintMemory();
    return isGood ? EXIT_SUCCESS : EXIT_FAILURE;
}
