// The grid of the sets: a head with the names of the columns and the values of the present sample, below it some stored
// sets, and a scroll bar that reaches all of them. Only what is visible is read.
#pragma once

#include "core/ValueRow.h"

#include <QWidget>

#include <functional>

class QScrollBar;
class QTableWidget;

namespace korvanel {

/// Background of a cell whose value was not measured well: blue, green, red from the high to the low byte.
inline constexpr quint32 kBadCellColour = 12632256;

class SetGrid : public QWidget
{
    Q_OBJECT

public:
    /// `rows` sets are shown at once.
    explicit SetGrid(int rows);

    /// Takes columns and their order from the block, and shows the sets at the place where the bar stands.
    void Rebuild();
    /// Shows the last sets.
    void ShowNewest();
    /// Shows a sample that is not stored yet, or not at all. `isGood` tells of a quantity whether it was measured well.
    void ShowPresent(const tValueRow& row, const std::function<bool(int)>& isGood);
    void ClearPresent();

private:
    QTableWidget* AddTable(const char* name, int rows);
    void FillHead();
    void SetWidths();
    /// Reads the visible sets.
    void Fill();
    void SetCell(QTableWidget& table, int row, int column, const QString& text);
    /// Number of sets from the bar's position on.
    int VisibleSets() const;
    void AskForOrder();

    int rows;
    QTableWidget* head;
    QTableWidget* values;
    QScrollBar* bar;
};

} // namespace korvanel
