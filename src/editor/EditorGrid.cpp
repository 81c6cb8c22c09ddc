#include "editor/EditorGrid.h"

#include "core/texts/FormF5Texts.h"
#include "core/texts/FormF6Texts.h"
#include "core/window/PlainToolTip.h"
#include "editor/EntryColumns.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kRowsEntry = 1; ///< of the grid sizes in the block
constexpr int kDragMs = 60;   ///< for each row that is marked beyond the edge

/// A frame around the cell under the cursor, which a marked row alone doesn't tell.
class FramedCell : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::paint(painter, option, index);
        if (static_cast<const QAbstractItemView*>(option.widget)->currentIndex() != index)
            return;
        painter->save();
        painter->setPen(QPen(option.palette.color(QPalette::Text), 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
        painter->restore();
    }
};

/// A cell of a column that follows from others looks a little darker.
QBrush GroundOfFixedCell(const QWidget& widget)
{
    return widget.palette().brush(QPalette::AlternateBase);
}

} // namespace

EditorGrid::EditorGrid() : HeadedSetGrid("flxValues", App().iGridRows.at(kRowsEntry), App().EditorGrid, texts::headSet)
{
    QTableWidget& values = Table();
    values.setSelectionMode(QAbstractItemView::ContiguousSelection);
    values.setItemDelegate(new FramedCell(&values));
    if (AreRowsEditable(App().iNetConfIndex))
        values.setToolTip(PlainToolTip(texts::editorCellTip));
    setFocusProxy(&values);
    Follow(*values.verticalHeader()->viewport());
    dragging.setInterval(kDragMs);
    connect(&dragging, &QTimer::timeout, this, [this] { Drag(); });
}

int EditorGrid::CursorColumn() const
{
    const auto& layout = App().ColumnLayout;
    return layout.empty() ? static_cast<int>(kColumnTimeStamp)
                          : layout[std::min(static_cast<std::size_t>(cursorColumn), layout.size() - 1)];
}

qint32 EditorGrid::FirstMarked() const
{
    return std::min(cursor, anchor);
}

qint32 EditorGrid::MarkedCount() const
{
    return App().iSetCount > 0 ? std::abs(cursor - anchor) + 1 : 0;
}

void EditorGrid::Mark(qint32 first, qint32 count)
{
    const qint32 last = std::max(1, App().iSetCount);
    cursor = std::clamp(first, 1, last);
    anchor = static_cast<qint32>(std::clamp<qint64>(static_cast<qint64>(cursor) + count - 1, cursor, last));
    BringIntoView();
    emit Moved();
}

void EditorGrid::ReturnTo(qint32 set, int column)
{
    const auto& layout = App().ColumnLayout;
    const auto found = std::find(layout.begin(), layout.end(), column);
    if (found != layout.end())
        cursorColumn = static_cast<int>(found - layout.begin());
    PutCursor(set, false);
}

void EditorGrid::MarkAll()
{
    anchor = std::max(1, App().iSetCount);
    cursor = 1;
    ShowSelection();
    emit Moved();
}

void EditorGrid::ShowAgain()
{
    const qint32 last = std::max(1, App().iSetCount);
    cursor = std::clamp(cursor, 1, last);
    anchor = std::clamp(anchor, 1, last);
    cursorColumn = std::min(cursorColumn, std::max(0, static_cast<int>(App().ColumnLayout.size()) - 1));
    Rebuild();
    emit Moved();
}

/// The row stands in the middle of the grid, in the upper of the two where their number is even.
void EditorGrid::BringIntoView()
{
    SetFirst(cursor - Rows() / 2 + 1);
}

bool EditorGrid::IsEntryColumn(int column) const
{
    return EntryColumnOf(App().ColumnLayout[static_cast<std::size_t>(column)], App().iNetConfIndex) != nullptr;
}

void EditorGrid::FillRow(int row, const QString& number, const ShownSet& shown)
{
    HeadedSetGrid::FillRow(row, number, shown);
    for (int i = 0; i < Table().columnCount(); ++i)
        Table().item(row, i)->setBackground(IsEntryColumn(i) ? QBrush() : GroundOfFixedCell(Table()));
}

void EditorGrid::ShowCursorRow(const ShownSet* shown)
{
    SetCaption(shown ? QString::number(shown->set) : texts::headSet);
    if (shown)
        ShowInHead(shown->row, shown->timeText);
    else
        ClearHead();
}

void EditorGrid::ClearRow(int row)
{
    HeadedSetGrid::ClearRow(row);
    for (int i = 0; i < Table().columnCount(); ++i)
        Table().item(row, i)->setBackground({});
}

void EditorGrid::ShowSelection()
{
    const QScopedValueRollback showing(IsShowingSelection(), true);
    QTableWidget& values = Table();
    QItemSelectionModel& selection = *values.selectionModel();
    const qint32 first = std::max(FirstMarked(), FirstShown());
    const qint32 last = std::min({FirstMarked() + MarkedCount() - 1, FirstShown() + Rows() - 1, App().iSetCount});
    if (values.columnCount() == 0 || App().iSetCount == 0) {
        selection.clear();
        return;
    }
    const int row = cursor - FirstShown();
    const bool isCursorShown = row >= 0 && row < Rows();
    selection.setCurrentIndex(isCursorShown ? values.model()->index(row, cursorColumn) : QModelIndex(),
                              QItemSelectionModel::NoUpdate);
    if (first > last) {
        selection.clearSelection();
        return;
    }
    const QItemSelection marked(values.model()->index(first - FirstShown(), 0),
                                values.model()->index(last - FirstShown(), values.columnCount() - 1));
    selection.select(marked, QItemSelectionModel::ClearAndSelect);
}

/// Somebody has selected rows otherwise than by mouse and keys: they are the marked ones.
void EditorGrid::TakeRow(int /*row*/)
{
    if (IsShowingSelection())
        return;
    const QModelIndexList chosen = Table().selectionModel()->selectedRows();
    if (chosen.isEmpty())
        return;
    const auto [least, most] = std::minmax_element(chosen.begin(), chosen.end(),
                                                   [](const auto& a, const auto& b) { return a.row() < b.row(); });
    cursor = std::clamp(FirstShown() + least->row(), 1, std::max(1, App().iSetCount));
    anchor = std::clamp(FirstShown() + most->row(), 1, std::max(1, App().iSetCount));
    emit Moved();
}

void EditorGrid::PutCursor(qint64 set, bool isMarking)
{
    if (App().iSetCount < 1)
        return;
    cursor = static_cast<qint32>(std::clamp<qint64>(set, 1, App().iSetCount));
    if (!isMarking)
        anchor = cursor;
    const qint32 first = std::clamp(FirstShown(), cursor - Rows() + 1, cursor);
    if (first == FirstShown())
        ShowSelection();
    else
        SetFirst(first);
    emit Moved();
}

void EditorGrid::MoveColumn(int by)
{
    cursorColumn = std::clamp(cursorColumn + by, 0, std::max(0, Table().columnCount() - 1));
    ShowSelection();
    const int x = Table().columnViewportPosition(cursorColumn);
    const int beyond = x + Table().columnWidth(cursorColumn) - Table().viewport()->width();
    QScrollBar& sideways = *Table().horizontalScrollBar();
    sideways.setValue(sideways.value() + (x < 0 ? x : std::max(0, beyond)));
    emit Moved();
}

bool EditorGrid::MoveCursor(int key, bool isMarking)
{
    const struct
    {
        int key;
        qint64 set;
    } ways[] = {
        {Qt::Key_Up, cursor - 1LL},
        {Qt::Key_Down, cursor + 1LL},
        {Qt::Key_PageUp, cursor - static_cast<qint64>(Rows())},
        {Qt::Key_PageDown, cursor + static_cast<qint64>(Rows())},
        {Qt::Key_Home, 1},
        {Qt::Key_End, App().iSetCount},
        {Qt::Key_Escape, cursor},
    };
    for (const auto& way : ways)
        if (way.key == key) {
            PutCursor(way.set, isMarking);
            return true;
        }
    return false;
}

bool EditorGrid::PressKey(const QKeyEvent& key)
{
    if (MoveCursor(key.key(), key.modifiers() & Qt::ShiftModifier))
        return true;
    switch (key.key()) {
    case Qt::Key_Left:
        MoveColumn(-1);
        return true;
    case Qt::Key_Right:
        MoveColumn(1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        emit EditWanted({});
        return true;
    default:
        break;
    }
    const QString typed = key.text();
    const bool beginsNumber = typed.size() == 1 && (typed[0].isDigit() || QStringLiteral("+-,.").contains(typed[0]));
    if (beginsNumber && !(key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)))
        emit EditWanted(typed);
    return beginsNumber;
}

/// The row moves to the middle on the first click, so the second one of a double click meets another.
bool EditorGrid::IsSecondPress(QPoint position) const
{
    return sincePress.isValid() && sincePress.elapsed() < QApplication::doubleClickInterval() &&
           (position - pressedAt).manhattanLength() < QApplication::startDragDistance();
}

void EditorGrid::Press(QPoint position, bool isMarking)
{
    const qint32 set = FirstShown() + std::max(0, position.y() / Table().verticalHeader()->defaultSectionSize());
    if (set > App().iSetCount)
        return;
    pressedAt = position;
    sincePress.start();
    isPressed = true;
    isDragged = isMarking;
    PutCursor(set, isMarking);
}

/// Follows the mouse; beyond the edge of the grid row by row.
void EditorGrid::Drag()
{
    const int row = mouseY < 0 ? -1 : std::min(Rows(), mouseY / Table().verticalHeader()->defaultSectionSize());
    const bool isBeyond = row < 0 || row >= Rows();
    if (isBeyond && !dragging.isActive())
        dragging.start();
    else if (!isBeyond)
        dragging.stop();
    const qint64 set = FirstShown() + static_cast<qint64>(row);
    if (set == cursor)
        return;
    isDragged = true;
    PutCursor(set, true);
}

void EditorGrid::Release()
{
    dragging.stop();
    if (isPressed && !isDragged)
        BringIntoView();
    isPressed = false;
}

bool EditorGrid::HandleMouse(QWidget* over, const QMouseEvent& mouse)
{
    QTableWidget& values = Table();
    const QPoint position = mouse.position().toPoint();
    const int column = over == values.viewport() ? values.columnAt(position.x()) : -1;
    const bool isLeft = mouse.button() == Qt::LeftButton;
    mouseY = position.y();
    switch (mouse.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        values.setFocus(Qt::MouseFocusReason);
        if (column >= 0)
            cursorColumn = column;
        if (isLeft && !IsSecondPress(position))
            Press(position, mouse.modifiers() & Qt::ShiftModifier);
        else
            ShowSelection();
        if (isLeft && mouse.type() == QEvent::MouseButtonDblClick && column >= 0) {
            Release();
            emit EditWanted({});
        }
        return true;
    case QEvent::MouseMove:
        if (isPressed)
            Drag();
        return true;
    case QEvent::MouseButtonRelease:
        Release();
        return true;
    default:
        return false;
    }
}

bool EditorGrid::eventFilter(QObject* watched, QEvent* event)
{
    QTableWidget& values = Table();
    if (watched == &values && event->type() == QEvent::KeyPress)
        return PressKey(*static_cast<QKeyEvent*>(event));
    auto* part = watched == values.viewport() ? values.viewport() : values.verticalHeader()->viewport();
    if (watched != part)
        return HeadedSetGrid::eventFilter(watched, event);
    if (event->type() == QEvent::ContextMenu) {
        emit MenuWanted(static_cast<QContextMenuEvent*>(event)->globalPos());
        return true;
    }
    const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease ||
                         event->type() == QEvent::MouseButtonDblClick || event->type() == QEvent::MouseMove;
    if (isMouse && HandleMouse(part, *static_cast<QMouseEvent*>(event)))
        return true;
    return HeadedSetGrid::eventFilter(watched, event);
}

} // namespace korvanel
