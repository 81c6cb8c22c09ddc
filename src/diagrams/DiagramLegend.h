// The legend of a diagram: one column a quantity, with the circle of its curve, the value at the point that was clicked
// last and its full scale.
#pragma once

#include "diagrams/DiagramDrawing.h"

#include <QTableWidget>

#include <optional>
#include <vector>

namespace korvanel {

class DiagramLegend : public QTableWidget
{
    Q_OBJECT

public:
    DiagramLegend();

    /// Builds the columns anew.
    void Fill(const std::vector<int>& quantities, const DiagramScaleEnds& ends);
    /// Draws the circle of a quantity anew: filled if its curve is on.
    void ShowState(int quantity, bool isOn);
    /// Marks the quantity that was clicked last.
    void ShowChosen(int quantity);
    /// The values of a set; without a set there are none.
    void ShowValues(std::optional<qint32> set, const std::vector<QString>& texts);

signals:
    /// A click with the left button into a curve's circle.
    void CurveClicked(int quantity);
    /// One with the right button.
    void ColourWanted(int quantity);
    /// A click anywhere else.
    void OrderWanted();

protected:
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    int ColumnOf(int quantity) const;
    int QuantityIn(int column) const;
};

} // namespace korvanel
