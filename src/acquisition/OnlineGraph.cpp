#include "acquisition/OnlineGraph.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/clsGraphColours.h"
#include "data/RowQuantities.h"

#include <QPaintEvent>
#include <QPainter>

namespace korvanel {

namespace {

constexpr int kGap = 6;
constexpr int kGridLines = 4;
const QColor kBackground(0x9C, 0xA0, 0xA4); // every default colour of a curve stands out against it
const QColor kGridColour(0xB0, 0xB4, 0xB8);

} // namespace

OnlineGraph::OnlineGraph()
{
    setObjectName(QStringLiteral("picOnline"));
    setMinimumSize(200, 90);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void OnlineGraph::Clear()
{
    curves = OnlineCurvesOf(App().iNetConfIndex);
    lastPoints = {};
    hasWrapped = false;
    picture = QPixmap(size() * devicePixelRatioF());
    picture.setDevicePixelRatio(devicePixelRatioF());
    QPainter painter(&picture);
    PaintBackground(painter, rect());
    painter.end();
    update();
}

void OnlineGraph::PaintBackground(QPainter& painter, const QRect& area) const
{
    painter.fillRect(area, kBackground);
    painter.setPen(kGridColour);
    for (int i = 1; i < kGridLines; ++i) {
        const int y = height() * i / kGridLines;
        painter.drawLine(area.left(), y, area.right(), y);
    }
}

void OnlineGraph::Plot(qint32 number, const tValueRow& row, const QString& mask)
{
    const int x = OnlineColumn(number, width());
    if (x == 1) {
        hasWrapped = number > 1;
        lastPoints = {};
    }
    QPainter painter(&picture);
    if (hasWrapped)
        PaintBackground(painter, QRect(x + 1, 0, kGap, height()));
    painter.setRenderHint(QPainter::Antialiasing);
    for (const OnlineCurve& curve : curves)
        PlotOnline(painter, curve, x, row, mask);
    painter.end();
    update();
}

void OnlineGraph::PlotOnline(QPainter& painter, const OnlineCurve& curve, int x, const tValueRow& row,
                             const QString& mask)
{
    constexpr double kLineWidth = 1.6;
    const auto quantity = static_cast<std::size_t>(curve.quantity);
    if (!MatchesMask(mask, curve.pattern) || App().Checks.at(quantity) == 0)
        return;
    const std::optional<double> y =
        OnlineHeight(QuantityValue(row, curve.quantity), DisplayDivisor(curve.quantity), ScaleEndOf(curve), height());
    if (!y)
        return;
    const QPointF point(x, *y);
    if (lastPoints.at(quantity)) {
        painter.setPen(QPen(ColourOf(App().GraphColours->colour(curve.quantity)), kLineWidth));
        painter.drawLine(*lastPoints.at(quantity), point);
    }
    lastPoints.at(quantity) = point;
}

void OnlineGraph::paintEvent(QPaintEvent* /*event*/)
{
    QPainter(this).drawPixmap(0, 0, picture);
}

void OnlineGraph::resizeEvent(QResizeEvent* /*event*/)
{
    Clear();
}

} // namespace korvanel
