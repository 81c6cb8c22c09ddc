// The part that all grids of the sets have in common: a table of as many rows as are seen at once, and a scroll bar
// that reaches all sets. Only what is visible is read, so that any place of a long recording is shown at once.
#pragma once

#include "core/Common.h"
#include "data/FileManaging.h"

#include <QWidget>

#include <functional>

class QScrollBar;
class QTableWidget;

namespace korvanel {

class SetGrid : public QWidget
{
    Q_OBJECT

public:
    /// Takes columns and their order from the block, and shows the sets at the place where the bar stands.
    void Rebuild();
    /// The same from a set on.
    void Rebuild(qint32 set);
    /// Shows the last sets.
    void ShowNewest();
    /// Shows the sets from one on, or the last ones if too few follow it.
    void ShowFrom(qint32 set);
    /// Number of the set in the first row.
    qint32 FirstShown() const;
    /// Selects a set and brings it into the middle; of an even number of rows, into the upper one of the two.
    void ShowSet(qint32 set);
    /// Selects a set wherever it is; 0 for none.
    void Select(qint32 set);

signals:
    /// The user has selected a set.
    void SetSelected(qint32 set);

protected:
    /// `fixedColumns` stand before those of the layout. With a place in the block the grid stands there again when it
    /// is made anew, and its bar has 16 bits: a step of it is as many sets as it takes to reach them all.
    SetGrid(const char* tableName, int rows, int fixedColumns, SetGridPlace* placeInBlock = nullptr);

    bool eventFilter(QObject* watched, QEvent* event) override;
    /// Heads of the columns.
    virtual void FillHead() = 0;
    virtual void SetWidths() = 0;
    /// Shows a set that has just been read. The number carries a star if the set was corrected.
    virtual void FillRow(int row, const QString& number, const ShownSet& shown) = 0;
    /// Shows a row without a set.
    virtual void ClearRow(int row) = 0;

    /// Hands over the sets of a range, in order; those of the recording unless it is overridden.
    virtual bool Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit);

    QTableWidget* AddTable(const char* name, int rows);
    QTableWidget& Table() const { return *table; }
    QScrollBar& Bar() const { return *bar; }
    /// Takes wheel and keys over a part of the grid.
    void Follow(QWidget& part) { part.installEventFilter(this); }
    int Rows() const { return rows; }
    void SetRows(int count);
    /// Shows the sets from one on, however few follow it.
    void SetFirst(qint32 set);
    int FixedColumns() const { return fixedColumns; }
    /// Width of a column of the layout, whatever stands in it.
    int WidthOf(int column) const;
    /// Reads the visible sets.
    void Fill();
    void AskForOrder();
    /// Shows which set is selected.
    virtual void ShowSelection();
    /// Lets the user's choice of a row stand, unless there is no set.
    virtual void TakeRow(int row);
    /// Guards the selection while it is shown.
    bool& IsShowingSelection() { return isShowingSelection; }
    static void SetCell(QTableWidget& ofTable, int row, int column, const QString& text, Qt::Alignment alignment);

private:
    void SetBarRange();
    void PutBar();
    void Turn(int angle);
    /// Selects a set, or the first or last one, brings it into view and tells of it.
    void MoveTo(qint64 set);
    /// Moves the selection as a key tells; false for a key without a meaning here.
    bool MoveBy(int key);

    int rows;
    int fixedColumns;
    SetGridPlace ownPlace;
    SetGridPlace& place;
    int leastBarValue;   ///< where the first set stands in the first row
    int turnedAngle = 0; ///< of the wheel, not yet worth a row
    qint32 selected = 0;
    bool isShowingSelection = false;
    bool hasFailed = false; ///< the last reading, and that has been told
    QTableWidget* table;
    QScrollBar* bar;
};

} // namespace korvanel
