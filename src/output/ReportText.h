// Texts on the pages of a report: broken into lines, cut where their box ends, put to the left or right of a place. All
// lengths are millimetres of the page.
#pragma once

#include "output/ReportFont.h"

#include <QColor>
#include <QLineF>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <functional>

class QPainter;

namespace korvanel {

/// The lines of a text: cut at each carriage return and line feed (both together are one), then broken behind the last
/// character of " .,;:!?-+" that still fits into the width. A word longer than the line is broken at the width. Each
/// line has one character at least, however narrow it is.
QStringList WrapText(const QString& text, double width, const ReportFont& font);

/// The lines of a text that fit into a box; where there are more, the last one ends in "...".
QStringList LinesInBox(const QString& text, double width, double height, const ReportFont& font);

/// The text, cut to a width with "..." at its end where it is longer.
QString CutText(const QString& text, double width, const ReportFont& font);

/// Draws on a painter whose units are elements, of which there are so many.
using BoxDrawing = std::function<void(QPainter& painter, QSize elements)>;

/// What a report puts on a page, piece by piece.
class ReportPaper
{
public:
    virtual ~ReportPaper() = default;
    /// One line with its upper left corner at a place, condensed to a share of its width.
    virtual void PutText(QPointF place, const QString& text, const ReportFont& font, QRgb colour, double share) = 0;
    virtual void FillBox(const QRectF& box, QRgb colour) = 0;
    virtual void DrawLine(const QLineF& line, double width, QRgb colour) = 0;
    /// Something of its own in a box, as so many elements a millimetre.
    virtual void DrawInBox(const QRectF& box, double elementsPerMillimetre, const BoxDrawing& draw) = 0;
};

/// A page on a painter that counts in hundredths of a millimetre from the corner of the paper.
class PainterPaper : public ReportPaper
{
public:
    PainterPaper(QPainter& ofPage, const ReportFonts& ofReport) : painter(ofPage), fonts(ofReport) {}
    void PutText(QPointF place, const QString& text, const ReportFont& font, QRgb colour, double share) override;
    void FillBox(const QRectF& box, QRgb colour) override;
    void DrawLine(const QLineF& line, double width, QRgb colour) override;
    void DrawInBox(const QRectF& box, double elementsPerMillimetre, const BoxDrawing& draw) override;

private:
    void Use(const ReportFont& font, QRgb colour);

    QPainter& painter;
    const ReportFonts& fonts;
    const ReportFont* inUse = nullptr; ///< the font that the painter has
};

/// A page as sections write on it.
class ReportSurface
{
public:
    ReportSurface(ReportPaper& onPaper, const ReportFonts& ofReport) : paper(onPaper), fonts(ofReport) {}

    const ReportFonts& Fonts() const { return fonts; }
    /// One line with its upper left corner at a place.
    void PutText(double x, double y, const QString& text, const ReportFont& font);
    /// One line between two places: condensed where it is a little too wide, cut with "..." where it is far too wide.
    void FitText(double left, double right, double y, const QString& text, const ReportFont& font,
                 Qt::AlignmentFlag side = Qt::AlignLeft, const QColor& colour = Qt::black);
    /// A text in lines from the top of a box; what doesn't fit into its height is cut, and the last line ends in "...".
    void PrintText(const QRectF& box, const QString& text, const ReportFont& font);
    void FillBox(const QRectF& box, const QColor& colour);
    void DrawLine(double x1, double y1, double x2, double y2, double width = 0.15, const QColor& colour = Qt::black);
    void DrawInBox(const QRectF& box, double elementsPerMillimetre, const BoxDrawing& draw)
    {
        paper.DrawInBox(box, elementsPerMillimetre, draw);
    }

private:
    ReportPaper& paper;
    const ReportFonts& fonts;
};

} // namespace korvanel
