// The graph of a recording that goes on: one pixel a sample, from left to right and again from the left, with a gap
// that moves ahead of the newest point. Points are drawn once, when they come.
#pragma once

#include "acquisition/OnlineCurves.h"
#include "core/ValueRow.h"

#include <QPixmap>
#include <QWidget>

#include <array>
#include <optional>

namespace korvanel {

class OnlineGraph : public QWidget
{
    Q_OBJECT

public:
    OnlineGraph();

    /// An empty graph for the curves of the net configuration.
    void Clear();
    /// Draws a sample; `number` counts from 1.
    void Plot(qint32 number, const tValueRow& row, const QString& mask);
    const std::vector<OnlineCurve>& Curves() const { return curves; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void PlotOnline(QPainter& painter, const OnlineCurve& curve, int x, const tValueRow& row, const QString& mask);
    void PaintBackground(QPainter& painter, const QRect& area) const;

    std::vector<OnlineCurve> curves;
    std::array<std::optional<QPointF>, kQuantityCount> lastPoints; ///< by quantity; none at the beginning of a lap
    QPixmap picture;
    bool hasWrapped = false;
};

} // namespace korvanel
