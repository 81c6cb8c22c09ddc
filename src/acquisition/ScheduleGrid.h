// The planned recordings as a table, one row an entry: when it starts, when it ends, how long it lasts. It shows which
// entry is the current one and which ones stand in the way of a new one.
#pragma once

#include <QTableWidget>

namespace korvanel {

/// Two marks that can also be read from outside: the property "current" holds the row of the current entry or -1, the
/// property "marked" the rows in the warning colour as "2,3,4", empty without one. Rows count from 0.
class ScheduleGrid : public QTableWidget
{
    Q_OBJECT

public:
    explicit ScheduleGrid(QWidget* parent = nullptr);
    /// Shows the schedule of the application block, without any mark.
    void Fill();
    /// Marks the current entry, bold and selected, and brings it into sight; -1, or a row that doesn't exist,
    /// for none.
    void MarkEntry(int index);
    /// Marks entries that stand in the way, both ends included, until the next `Fill`. Rows that don't exist are left
    /// out.
    void MarkRange(int first, int last);

signals:
    /// The user has clicked on a row or gone there by keyboard.
    void EntryChosen(int index);

private:
    void SetRow(int index);
    void WidenColumns();
    void SetBold(int row, bool isBold);
};

} // namespace korvanel
