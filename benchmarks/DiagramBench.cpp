// Drawing a million sets with eight curves: the first view, which reads them, and further ones, against a bare loop
// over the same columns. Beside them what a line of the toolkit for each set and curve takes.
#include "Recording.h"

#include "core/Common.h"
#include "core/clsGraphColours.h"
#include "diagrams/DiagramDrawing.h"
#include "evaluation/Algorithms.h"
#include "project/ProjectStore.h"

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <QImage>
#include <QPainter>

#include <array>
#include <random>

namespace korvanel::bench {
namespace {

constexpr std::array kCurves{+kU, +kI, +kF, +kP, +kQ, +kN, +kM, +kPmech};
constexpr QSize kSize(1200, 600);
const char* const kBareColumns =
    "SELECT SampledValues.[Set], [U sum], [I sum], [f sum], [P sum], [Q sum], [n], [M], [Pmech] FROM SampledValues "
    "INNER JOIN ComputedValues ON SampledValues.[Set] = ComputedValues.[Set] ORDER BY SampledValues.[Set]";

void Diagram_Bare(benchmark::State& state)
{
    BareDatabase db(LargeProject());
    sqlite3_stmt* statement = db.Prepare(kBareColumns);
    for (auto _ : state) {
        double sum = 0;
        while (sqlite3_step(statement) == SQLITE_ROW)
            for (int column = 0; column <= std::ssize(kCurves); ++column)
                sum += sqlite3_column_double(statement, column);
        benchmark::DoNotOptimize(sum);
        sqlite3_reset(statement);
    }
}

DiagramScaleEnds Ends()
{
    PrepareMachine();
    OpenProject(LargeProject());
    static clsGraphColours colours(QStringLiteral("KORVANEL"));
    App().GraphColours = &colours;
    EvaluateProject();
    return ScaleEndsOf(App().MachineI.evaluation);
}

std::vector<DiagramCurve> Curves(const DiagramScaleEnds& ends)
{
    DiagramStates states{};
    for (const int quantity : kCurves)
        states.at(static_cast<std::size_t>(quantity)) = 1;
    return CurvesOf(kCurves, states, ends);
}

void Draw(QImage& image, SetValues& values, const std::vector<DiagramCurve>& curves, const DiagramView& view)
{
    image.fill(Qt::white);
    QPainter painter(&image);
    DiagramDrawing(values, curves, view, Sets(), image.size()).DrawWhole(painter);
}

void Diagram_First(benchmark::State& state)
{
    const std::vector<DiagramCurve> curves = Curves(Ends());
    QImage image(kSize, QImage::Format_RGB32);
    for (auto _ : state) {
        SetValues values;
        Draw(image, values, curves, FullView(Sets(), false));
    }
}

void Diagram_Further(benchmark::State& state)
{
    const std::vector<DiagramCurve> curves = Curves(Ends());
    QImage image(kSize, QImage::Format_RGB32);
    SetValues values;
    Draw(image, values, curves, FullView(Sets(), false));
    for (auto _ : state)
        Draw(image, values, curves, FullView(Sets(), false));
}

/// Zooms to all widths, anywhere.
void Diagram_Zoom(benchmark::State& state)
{
    const std::vector<DiagramCurve> curves = Curves(Ends());
    QImage image(kSize, QImage::Format_RGB32);
    SetValues values;
    Draw(image, values, curves, FullView(Sets(), false));
    std::minstd_rand random;
    std::uniform_real_distribution<double> unit(0, 1);
    for (auto _ : state) {
        const double width = Sets() * std::pow(10, -4 * unit(random));
        const double x = 1 + unit(random) * (Sets() - width);
        const double y = unit(random);
        Draw(image, values, curves, {.x1 = x, .x2 = x + width, .y1 = y / 2, .y2 = (1 + y) / 2});
    }
}

void Diagram_Lines(benchmark::State& state)
{
    const std::vector<DiagramCurve> curves = Curves(Ends());
    QImage image(kSize, QImage::Format_RGB32);
    BareDatabase db(LargeProject());
    sqlite3_stmt* statement = db.Prepare(kBareColumns);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        const DiagramMapping mapping(FullView(Sets(), false), kSize);
        std::array<QPoint, kCurves.size()> before;
        while (sqlite3_step(statement) == SQLITE_ROW) {
            const int set = sqlite3_column_int(statement, 0);
            for (std::size_t i = 0; i < curves.size(); ++i) {
                const double value = sqlite3_column_double(statement, static_cast<int>(i) + 1);
                const QPoint point(mapping.Column(set), mapping.Row(curves[i].Fraction(value)));
                painter.setPen(curves[i].colour);
                if (set > 1)
                    painter.drawLine(before[i], point);
                before[i] = point;
            }
        }
        sqlite3_reset(statement);
    }
}

BENCHMARK(Diagram_Bare)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Diagram_First)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Diagram_Further)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Diagram_Zoom)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Diagram_Lines)->UseRealTime()->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
} // namespace korvanel::bench
