// The grid of the editor: a cursor that stands on one cell of one set, and marks that reach from there over as many
// sets as one likes, in view or not. The set under the cursor stands in the row above too.
#pragma once

#include "data/HeadedSetGrid.h"

#include <QElapsedTimer>
#include <QPoint>
#include <QTimer>

class QKeyEvent;
class QMouseEvent;

namespace korvanel {

class EditorGrid : public HeadedSetGrid
{
    Q_OBJECT

public:
    EditorGrid();

    /// The set under the cursor; 1 without sets.
    qint32 CursorSet() const { return cursor; }
    /// Puts the cursor back on a cell.
    void ReturnTo(qint32 set, int column);
    /// The column under the cursor, as the layout has it.
    int CursorColumn() const;
    /// The first of the marked sets, and their number; the set under the cursor is one of them.
    qint32 FirstMarked() const;
    qint32 MarkedCount() const;
    /// Marks sets and puts the cursor on the first of them, into the middle of the grid.
    void Mark(qint32 first, qint32 count);
    void MarkAll();
    /// Takes sets, columns and order again; the marks stay as far as there are sets.
    void ShowAgain();
    /// Reads the sets in view again.
    void Reload() { SetFirst(FirstShown()); }
    /// Shows the set under the cursor in the row above, or nothing there.
    void ShowCursorRow(const ShownSet* shown);

signals:
    /// Cursor or marks are others.
    void Moved();
    /// The user begins to edit the cell under the cursor, with what has been typed, or as it is.
    void EditWanted(const QString& typed);
    void MenuWanted(QPoint global);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void FillRow(int row, const QString& number, const ShownSet& shown) override;
    void ClearRow(int row) override;
    void ShowSelection() override;
    void TakeRow(int row) override;

private:
    bool PressKey(const QKeyEvent& key);
    bool MoveCursor(int key, bool isMarking);
    void MoveColumn(int by);
    bool HandleMouse(QWidget* over, const QMouseEvent& mouse);
    void Press(QPoint position, bool isMarking);
    void Drag();
    void Release();
    /// Whether a press belongs to a click that came just before.
    bool IsSecondPress(QPoint position) const;
    /// Puts the cursor on a set, or the first or last one; `isMarking` keeps the other end of the marks.
    void PutCursor(qint64 set, bool isMarking);
    void BringIntoView();
    bool IsEntryColumn(int column) const;

    qint32 cursor = 1;
    qint32 anchor = 1;    ///< the other end of the marks
    int cursorColumn = 0; ///< place in the layout
    bool isPressed = false;
    bool isDragged = false;
    QPoint pressedAt;
    QElapsedTimer sincePress;
    int mouseY = 0;
    QTimer dragging; ///< beyond the edge of the grid
};

} // namespace korvanel
