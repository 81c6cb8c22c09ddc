// Draws curves from blocks of sets, as if set after set and curve after curve a line were drawn to the next point. Sets
// that share a column of the picture are taken together: what the lines between them cover is found from their values,
// so that a picture of a million sets costs the painter no more than its columns do, and no set is left out.
#pragma once

#include "diagrams/DiagramMapping.h"
#include "diagrams/SetValues.h"

#include <QColor>
#include <QLine>
#include <QPen>

#include <optional>
#include <vector>

class QPainter;

namespace korvanel {

struct DiagramCurve
{
    int quantity = 0;
    QColor colour;
    double divisor = 1;  ///< from the stored value to that which is drawn
    double scaleEnd = 1; ///< full scale in the unit that is drawn

    /// The stored value as a fraction of full scale.
    double Fraction(double value) const { return value / divisor / scaleEnd; }
};

/// Where a curve ends in the picture.
struct CurveEnd
{
    int quantity = 0;
    QColor colour;
    int row = 0;
};

enum class CurveStyle
{
    Solid,
    Dashed, ///< every other group of columns is left out
};

class CurvePainter
{
public:
    CurvePainter(const DiagramMapping& onto, std::vector<DiagramCurve> ofCurves,
                 CurveStyle ofStyle = CurveStyle::Solid);

    /// Draws what a block adds. Blocks come in the order of the sets, their values in that of the curves; the painter
    /// has the picture's elements for its units. Lines end at sets behind the left end of the view.
    void Draw(QPainter& painter, const ValueBlock& block);

    /// Ends of the curves, of those sets that are drawn by now.
    std::vector<CurveEnd> Ends() const;

    /// The line between two points, clipped where it leaves the picture by far; nothing if none of it comes near.
    static std::optional<QLine> LineBetween(QSize size, QPointF from, QPointF to);
    static void DrawLine(QPainter& painter, const QLine& line);

private:
    /// Last of the block's sets that share the column with one of them, without a hole between them.
    qint32 EndOfColumn(const ValueBlock& block, qint32 from) const;
    /// Sets `from` to `to` of the block share a column.
    void DrawColumn(QPainter& painter, const ValueBlock& block, qint32 from, qint32 to);
    void DrawConnection(QPainter& painter, const ValueBlock& block, qint32 index);
    void DrawDashes(QPainter& painter, const QLine& line) const;
    /// Whether a column is one that dashes leave out.
    bool IsGap(int ofColumn) const { return style == CurveStyle::Dashed && ofColumn / kDash % 2 != 0; }
    /// Rows that the lines within a column cover, by the curve that is seen in them.
    void FindOwners(const ValueBlock& block, qint32 from, qint32 to);
    void ResolveOverlaps(const ValueBlock& block, qint32 from, qint32 to);
    double ValueAt(const ValueBlock& block, std::size_t curve, qint32 index) const
    {
        return index < 0 ? last[curve] : block.values[curve][index];
    }
    int RowAt(const ValueBlock& block, std::size_t curve, qint32 index) const
    {
        return mapping.Row(curves[curve].Fraction(ValueAt(block, curve, index)));
    }
    /// Rows of the picture.
    struct RowRange
    {
        int top;
        int bottom;
    };
    /// The rows between two, both included, as far as they lie in the picture.
    RowRange Within(int one, int other) const;
    /// The rows that a curve covers between two sets of the block.
    RowRange Covered(const ValueBlock& block, std::size_t curve, qint32 from, qint32 to) const;
    /// Gives a curve what is still open between a row and the one that it was in; how many that are.
    int TakeRows(std::size_t curve, int row);
    /// First row from here on that is still open.
    int NextOpen(int row);

    static constexpr int kDash = 4; ///< columns

    DiagramMapping mapping;
    std::vector<DiagramCurve> curves;
    CurveStyle style;
    std::vector<QPen> pens;
    std::vector<double> last; ///< values of the set before; by curve
    qint32 lastSet = 0;       ///< that they belong to; 0: none
    int column = 0;           ///< that is being drawn

    // Of one column, kept so as not to be made for each.
    std::vector<int> owners;                 ///< curve seen in a row; -1: none, -2: several cover it
    std::vector<int> nextOpen;               ///< first row from here on in which it isn't known yet which one is seen
    std::vector<int> lastRows;               ///< by curve
    std::vector<std::size_t> crossing;       ///< curves that cover an open row, the last one first
    std::vector<std::vector<QLine>> lines;   ///< by curve
    std::vector<std::vector<QPoint>> points; ///< by curve
};

} // namespace korvanel
