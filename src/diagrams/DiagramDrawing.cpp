#include "diagrams/DiagramDrawing.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/clsGraphColours.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

std::vector<int> QuantitiesOf(const std::vector<DiagramCurve>& curves)
{
    std::vector<int> quantities;
    quantities.reserve(curves.size());
    for (const DiagramCurve& curve : curves)
        quantities.push_back(curve.quantity);
    return quantities;
}

/// A line of the view begins at the set at its left end and ends behind its right one.
qint32 FirstSetOf(const DiagramView& view, qint32 count)
{
    return std::clamp(static_cast<qint32>(std::floor(view.x1 - 1)), 1, std::max(1, count));
}

qint32 LastSetOf(const DiagramView& view, qint32 count)
{
    return static_cast<qint32>(std::min<double>(std::floor(view.x2) + 1, count));
}

} // namespace

std::vector<DiagramCurve> CurvesOf(std::span<const int> list, const DiagramStates& states, const DiagramScaleEnds& ends)
{
    std::vector<DiagramCurve> curves;
    for (const int quantity : list) {
        const auto place = static_cast<std::size_t>(quantity);
        if (states.at(place) == 1)
            curves.push_back({.quantity = quantity,
                              .colour = ColourOf(App().GraphColours->colour(quantity)),
                              .divisor = DivisorInDiagram(quantity),
                              .scaleEnd = ends.at(place)});
    }
    return curves;
}

DiagramDrawing::DiagramDrawing(SetValues& ofValues, std::vector<DiagramCurve> ofCurves, const DiagramView& ofView,
                               qint32 count, QSize size)
    : mapping(NormalisedView(ofView, count), size), grid(GridOf(mapping.View())), curves(std::move(ofCurves)),
      curvePainter(mapping, curves), firstSet(FirstSetOf(mapping.View(), count)),
      lastSet(LastSetOf(mapping.View(), count)), drawnTo(firstSet - 1),
      walk(ofValues, QuantitiesOf(curves), firstSet, lastSet)
{}

void DiagramDrawing::DrawGrid(QPainter& painter) const
{
    const QSize size = mapping.Size();
    const auto pen = [](GridColour colour) { return QPen(ColourOf(static_cast<qint32>(colour)), 1, Qt::DotLine); };
    for (const GridLine& line : grid.sets) {
        const int column = mapping.Column(line.at);
        painter.setPen(pen(line.colour));
        painter.drawLine(column, 0, column, size.height() - 1);
    }
    for (const GridLine& line : grid.fractions) {
        const int row = mapping.Row(line.at);
        painter.setPen(pen(line.colour));
        painter.drawLine(0, row, size.width() - 1, row);
    }
}

bool DiagramDrawing::Continue(QPainter& painter, int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    ValueBlock block;
    do {
        if (!walk.Next(block, milliseconds))
            return false;
        curvePainter.Draw(painter, block);
        drawnTo = block.firstSet + block.count - 1;
    } while (timer.elapsed() < milliseconds);
    return true;
}

void DiagramDrawing::DrawWhole(QPainter& painter)
{
    constexpr int kSlice = 1000;
    DrawGrid(painter);
    while (Continue(painter, kSlice)) {
    }
}

double DiagramDrawing::Share() const
{
    return lastSet < firstSet ? 1 : static_cast<double>(drawnTo - firstSet + 1) / (lastSet - firstSet + 1);
}

} // namespace korvanel
