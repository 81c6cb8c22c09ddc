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

DiagramDrawing::DiagramDrawing(SetValues& ofValues, const std::vector<DiagramCurve>& curves, const DiagramView& ofView,
                               qint32 count, QSize size, const DiagramOverlay& overlay)
    : mapping(NormalisedView(ofView, count), size), grid(GridOf(mapping.View())),
      firstSet(FirstSetOf(mapping.View(), count)), lastSet(LastSetOf(mapping.View(), count))
{
    const auto add = [this](SetValues& values, const std::vector<DiagramCurve>& ofLayer, CurveStyle style) {
        layers.push_back({.curvePainter = {mapping, ofLayer, style},
                          .walk = {values, QuantitiesOf(ofLayer), firstSet, lastSet},
                          .drawnTo = firstSet - 1});
    };
    add(ofValues, curves, CurveStyle::Solid);
    if (overlay.values && !overlay.curves.empty())
        add(*overlay.values, overlay.curves, CurveStyle::Dashed);
}

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
    while (drawn < layers.size()) {
        Layer& layer = layers[drawn];
        if (!layer.walk.Next(block, milliseconds)) {
            ++drawn;
            continue;
        }
        layer.curvePainter.Draw(painter, block);
        layer.drawnTo = block.firstSet + block.count - 1;
        if (timer.elapsed() >= milliseconds)
            return true;
    }
    return false;
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
    double done = 0;
    for (const Layer& layer : layers)
        done += layer.drawnTo - firstSet + 1;
    const double all = static_cast<double>(layers.size()) * (lastSet - firstSet + 1);
    return lastSet < firstSet ? 1 : done / all;
}

} // namespace korvanel
