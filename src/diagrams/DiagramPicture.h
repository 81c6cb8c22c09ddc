// A whole diagram on one sheet: the curves with grid, axes and the names of the curves, for picture files, the
// clipboard and paper.
#pragma once

#include "diagrams/DiagramAxes.h"
#include "diagrams/DiagramDrawing.h"

#include <QByteArray>
#include <QImage>
#include <QString>

namespace korvanel {

struct DiagramSheet
{
    DiagramView view;
    std::vector<DiagramCurve> curves;
    DiagramOverlay overlay; ///< curves of the second machine
    DiagramCurve axisCurve; ///< whose values stand at the right axis
    qint32 count = 0;       ///< of the sets
    QString title;
};

/// A name at the end of a curve.
struct CurveName
{
    QString symbol;
    QColor colour;
    double row = 0;  ///< at which the curve ends
    double text = 0; ///< row of the middle of the text
};

/// The names of curves beside their ends, `height` apart at least and all within a picture of so many rows.
std::vector<CurveName> PlacedNames(const std::vector<CurveEnd>& ends, double rows, double height);

/// Paints names with a line to the end of each curve, in a strip that begins at `left`.
void PaintNames(QPainter& painter, const std::vector<CurveName>& names, const QColor& textColour, double left,
                double width);

/// Paints the sheet into an area of so many elements, which are the units of the painter. Throws DbError.
void PaintSheet(QPainter& painter, SetValues& values, const DiagramSheet& sheet, QSize size);

/// The sheet as a picture of `scale` times the size.
QImage ImageOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size, int scale);

/// The sheet as a file by its ending, .png, .svg or .pdf; empty for any other.
QByteArray FileOfSheet(SetValues& values, const DiagramSheet& sheet, QSize size, const QString& ending);

} // namespace korvanel
