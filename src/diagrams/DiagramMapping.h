// Where sets and fractions of full scale lie in the picture of a view, in picture elements: 0 is the centre of the
// leftmost column and of the topmost row.
#pragma once

#include "diagrams/DiagramView.h"

#include <QSize>

namespace korvanel {

class DiagramMapping
{
public:
    /// Of a normalised view onto a picture of so many elements. The ends of the view lie in its outermost columns and
    /// rows.
    DiagramMapping(const DiagramView& ofView, QSize ofSize);

    const DiagramView& View() const { return view; }
    QSize Size() const { return size; }

    double X(double set) const { return (set - view.x1) * columnsPerSet; }
    double Y(double fraction) const { return (view.y2 - fraction) * rowsPerUnit; }
    double SetAt(double x) const { return view.x1 + x / columnsPerSet; }
    double FractionAt(double y) const { return view.y2 - y / rowsPerUnit; }

    /// The nearest column and the nearest row; both may lie outside the picture, but never farther than `kFarthest`.
    int Column(double set) const { return Nearest(X(set)); }
    int Row(double fraction) const { return Nearest(Y(fraction)); }

    /// The nearest element, a half going up. What is farther away than `kFarthest`, or no number, counts as that far.
    static int Nearest(double coordinate);

    static constexpr int kFarthest = 1 << 20;

private:
    DiagramView view;
    QSize size;
    double columnsPerSet;
    double rowsPerUnit;
};

inline int DiagramMapping::Nearest(double coordinate)
{
    if (!(coordinate > -kFarthest))
        return -kFarthest;
    if (coordinate >= kFarthest)
        return kFarthest;
    return static_cast<int>(coordinate + (kFarthest + 0.5)) - kFarthest; // cutting a positive number is its floor
}

} // namespace korvanel
