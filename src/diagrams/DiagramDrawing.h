// The drawing of one view of a diagram onto any painter: the grid at once, the curves step by step, so that a window
// stays alive beside it and a report draws them through.
#pragma once

#include "diagrams/CurvePainter.h"
#include "diagrams/DiagramGrid.h"
#include "diagrams/DiagramScale.h"

#include <span>

class QPainter;

namespace korvanel {

/// By the number of the quantity: 1 if its curve is drawn.
using DiagramStates = std::array<qint16, kQuantityCount>;

/// The curves that are switched on, in the order of the list, in the user's colours.
std::vector<DiagramCurve> CurvesOf(std::span<const int> list, const DiagramStates& states,
                                   const DiagramScaleEnds& ends);

/// Further curves over the first ones: of other sets with the same numbers, dashed.
struct DiagramOverlay
{
    SetValues* values = nullptr;
    std::vector<DiagramCurve> curves = {};
};

class DiagramDrawing
{
public:
    /// Of a view of the sets 1 to `count`, normalised here, onto a picture of so many elements. The painters that come
    /// later have these elements for their units: a screen of high resolution or a printer scales its painter.
    DiagramDrawing(SetValues& ofValues, const std::vector<DiagramCurve>& curves, const DiagramView& ofView,
                   qint32 count, QSize size, const DiagramOverlay& overlay = {});

    const DiagramMapping& Mapping() const { return mapping; }
    const DiagramGrid& Grid() const { return grid; }

    void DrawGrid(QPainter& painter) const;
    /// Goes on with the curves for about so many milliseconds; false when they are complete. Throws DbError.
    bool Continue(QPainter& painter, int milliseconds);
    /// Grid and curves to the end.
    void DrawWhole(QPainter& painter);
    /// Ends of the curves, those of an overlay not among them.
    std::vector<CurveEnd> Ends() const { return layers.front().curvePainter.Ends(); }
    /// Share of the sets of the view that are drawn, 0 to 1.
    double Share() const;

private:
    struct Layer
    {
        CurvePainter curvePainter;
        SetValues::Walk walk;
        qint32 drawnTo;
    };

    DiagramMapping mapping;
    DiagramGrid grid;
    qint32 firstSet;
    qint32 lastSet;
    std::vector<Layer> layers; ///< one over the other
    std::size_t drawn = 0;     ///< layers that are complete
};

} // namespace korvanel
