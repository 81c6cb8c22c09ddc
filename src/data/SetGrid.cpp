#include "data/SetGrid.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/clsSymbols.h"
#include "core/window/FormH3.h"
#include "data/FileManaging.h"
#include "data/RowQuantities.h"
#include "data/ValueTables.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopeGuard>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kRowHeight = 21;
constexpr int kPadding = 14;

/// The widest text that a column is laid out for.
QString WidestText(int column)
{
    constexpr double kWide = -8888888.888;
    switch (column) {
    case kColumnTimeStamp:
        return DateTimeText(QDateTime(QDate(2028, 12, 28), QTime(20, 48, 58), Qt::UTC));
    case kColumnTime:
        return SecondsToTime(888888, false);
    case kColumnMethod:
    case kColumnSuitability:
        return {};
    default:
        return RoundValue(kWide, GridFactor(column));
    }
}

QString NumberOf(const ShownSet& shown)
{
    return QString::number(shown.set) + (shown.row.bEdit ? QStringLiteral("*") : QString());
}

} // namespace

SetGrid::SetGrid(const char* tableName, int shown, int fixed, SetGridPlace* placeInBlock)
    : rows(shown), fixedColumns(fixed), place(placeInBlock ? *placeInBlock : ownPlace),
      leastBarValue(placeInBlock ? 1 : 0), table(AddTable(tableName, shown)), bar(new QScrollBar(Qt::Vertical))
{
    bar->setObjectName(QStringLiteral("ScrollFlex"));
    table->setAutoScroll(false); // it has no rows out of sight, and columns are moved by hand
    connect(bar, &QScrollBar::valueChanged, this, [this](int value) {
        place.lFirstVisibleSet = (value - leastBarValue) * place.lScrollScale + 1;
        Fill();
    });
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this](const QItemSelection& chosen) {
                if (!chosen.isEmpty())
                    TakeRow(chosen.front().top());
            });
    Follow(*table);
    Follow(*table->viewport());
}

QTableWidget* SetGrid::AddTable(const char* name, int rowCount)
{
    auto* added = new QTableWidget(rowCount, 0);
    added->setObjectName(QLatin1String(name));
    added->setEditTriggers(QAbstractItemView::NoEditTriggers);
    added->setSelectionBehavior(QAbstractItemView::SelectRows);
    added->setSelectionMode(QAbstractItemView::SingleSelection);
    added->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    added->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    added->setWordWrap(false);
    added->setTabKeyNavigation(false);
    added->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    added->horizontalHeader()->setHighlightSections(false);
    added->horizontalHeader()->setFixedHeight(kRowHeight);
    added->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    added->verticalHeader()->setMinimumSectionSize(kRowHeight);
    added->verticalHeader()->setDefaultSectionSize(kRowHeight);
    added->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return added;
}

int SetGrid::WidthOf(int column) const
{
    const QFontMetrics metrics = fontMetrics();
    return std::max(metrics.horizontalAdvance(ColumnHeading(column)), metrics.horizontalAdvance(WidestText(column))) +
           kPadding;
}

void SetGrid::Rebuild()
{
    Rebuild(FirstShown());
}

void SetGrid::Rebuild(qint32 set)
{
    FillHead();
    SetWidths();
    SetBarRange();
    ShowFrom(set);
}

void SetGrid::SetBarRange()
{
    constexpr qint32 kMostSteps = 32000;
    if (leastBarValue > 0)
        place.lScrollScale = App().iSetCount / kMostSteps + 1;
    const QSignalBlocker quiet(bar);
    const qint32 hidden = std::max(0, App().iSetCount - rows);
    bar->setRange(leastBarValue, (hidden + place.lScrollScale - 1) / place.lScrollScale + leastBarValue);
    bar->setPageStep(std::max(1, rows / place.lScrollScale));
    PutBar();
}

void SetGrid::PutBar()
{
    const QSignalBlocker quiet(bar);
    bar->setValue((place.lFirstVisibleSet - 1) / place.lScrollScale + leastBarValue);
}

void SetGrid::SetRows(int count)
{
    if (count == rows)
        return;
    rows = count;
    {
        const QScopedValueRollback showing(isShowingSelection, true);
        table->setRowCount(rows);
    }
    SetBarRange();
    if (!hasFailed) // a resized window is no reason to tell it again
        ShowFrom(FirstShown());
}

void SetGrid::ShowNewest()
{
    SetBarRange();
    ShowFrom(App().iSetCount);
}

qint32 SetGrid::FirstShown() const
{
    return place.lFirstVisibleSet;
}

void SetGrid::ShowFrom(qint32 set)
{
    SetFirst(std::min(set, App().iSetCount - rows + 1));
}

void SetGrid::SetFirst(qint32 set)
{
    place.lFirstVisibleSet = std::max(1, set);
    PutBar();
    Fill();
}

void SetGrid::ShowSet(qint32 set)
{
    selected = set;
    ShowFrom(set - std::max(0, rows / 2 - 1));
}

void SetGrid::Select(qint32 set)
{
    selected = set;
    ShowSelection();
}

void SetGrid::Fill()
{
    if (table->columnCount() == 0) // before the first Rebuild
        return;
    hasFailed = false;
    table->setUpdatesEnabled(false);
    const auto shownAgain = qScopeGuard([this] { table->setUpdatesEnabled(true); });
    OpenDbGuarded();
    const qint32 last = App().bProjectOpen ? std::min(App().iSetCount, FirstShown() + rows - 1) : 0;
    int filled = 0;
    if (last >= FirstShown())
        hasFailed = !Visit(FirstShown(), last, [this, &filled](const ShownSet& shown) {
            if (shown.set != FirstShown() + filled) // one is missing, and what follows stands nowhere
                return false;
            FillRow(filled++, NumberOf(shown), shown);
            return true;
        });
    for (int row = filled; row < rows; ++row)
        ClearRow(row);
    CloseDbGuarded();
    ShowSelection();
}

bool SetGrid::Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    return VisitSets(first, last, visit);
}

void SetGrid::SetCell(QTableWidget& ofTable, int row, int column, const QString& text, Qt::Alignment alignment)
{
    QTableWidgetItem* item = ofTable.item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(alignment);
        ofTable.setItem(row, column, item);
    }
    item->setText(text);
}

// The selection stays with its set, and the keys move it through all of them.

void SetGrid::ShowSelection()
{
    const QScopedValueRollback showing(isShowingSelection, true);
    const int row = selected - FirstShown();
    QItemSelectionModel& selection = *table->selectionModel();
    if (selected > 0 && selected <= App().iSetCount && row >= 0 && row < rows)
        selection.setCurrentIndex(table->model()->index(row, fixedColumns),
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    else
        selection.clear();
}

void SetGrid::TakeRow(int row)
{
    if (isShowingSelection)
        return;
    const qint32 set = FirstShown() + row;
    if (set > App().iSetCount) { // once the event that chose it is over
        QMetaObject::invokeMethod(
            this, [this] { ShowSelection(); }, Qt::QueuedConnection);
        return;
    }
    selected = set;
    emit SetSelected(set);
}

void SetGrid::MoveTo(qint64 set)
{
    const qint32 last = App().iSetCount;
    if (last < 1)
        return;
    selected = static_cast<qint32>(std::clamp<qint64>(set, 1, last));
    const qint32 first = std::clamp(FirstShown(), selected - rows + 1, selected);
    if (first == FirstShown())
        ShowSelection();
    else
        ShowFrom(first);
    emit SetSelected(selected);
}

bool SetGrid::MoveBy(int key)
{
    const qint64 from = selected > 0 ? selected : FirstShown();
    const qint64 last = App().iSetCount;
    const struct
    {
        int key;
        qint64 set;
    } ways[] = {
        {Qt::Key_Up, from - 1},          {Qt::Key_Down, from + 1}, {Qt::Key_PageUp, from - rows},
        {Qt::Key_PageDown, from + rows}, {Qt::Key_Home, 1},        {Qt::Key_End, last},
    };
    for (const auto& way : ways)
        if (way.key == key) {
            MoveTo(way.set);
            return true;
        }
    if (key != Qt::Key_Left && key != Qt::Key_Right)
        return false;
    table->horizontalScrollBar()->triggerAction(key == Qt::Key_Left ? QScrollBar::SliderSingleStepSub
                                                                    : QScrollBar::SliderSingleStepAdd);
    return true;
}

bool SetGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && watched == table)
        return MoveBy(static_cast<QKeyEvent*>(event)->key());
    if (event->type() == QEvent::Wheel) {
        const QPoint turn = static_cast<QWheelEvent*>(event)->angleDelta();
        if (std::abs(turn.y()) > std::abs(turn.x())) {
            Turn(turn.y());
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

/// The wheel moves by rows, however many sets a step of the bar is.
void SetGrid::Turn(int angle)
{
    turnedAngle += angle * QApplication::wheelScrollLines();
    const int turned = turnedAngle / QWheelEvent::DefaultDeltasPerStep;
    turnedAngle -= turned * QWheelEvent::DefaultDeltasPerStep;
    if (turned != 0)
        ShowFrom(FirstShown() - turned);
}

void SetGrid::AskForOrder()
{
    if (!QApplication::activeModalWidget() && FormH3::ChangeOrder(this))
        Rebuild();
}

} // namespace korvanel
