#include "evaluation/ResultGrid.h"

#include "core/Colour.h"

#include <QHeaderView>
#include <QScopeGuard>

#include <algorithm>
#include <numeric>

namespace korvanel {

namespace {

constexpr int kRowHeight = 20;
constexpr int kCellPadding = 16;
constexpr int kFirstCentred = 2;

Qt::Alignment AlignmentOf(int column)
{
    return column < kFirstCentred ? Qt::AlignLeft | Qt::AlignVCenter : Qt::Alignment(Qt::AlignCenter);
}

QFont Bold(QFont font)
{
    font.setBold(true);
    return font;
}

} // namespace

ResultGrid::ResultGrid(const char* name)
{
    setObjectName(QLatin1String(name));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionMode(QAbstractItemView::NoSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(kRowHeight);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
}

void ResultGrid::Show(const ResultTable& results)
{
    setUpdatesEnabled(false);
    const auto shownAgain = qScopeGuard([this] { setUpdatesEnabled(true); });
    clearSpans();
    setColumnCount(static_cast<int>(results.heads.size()));
    setHorizontalHeaderLabels(results.heads);
    textWidths.clear();
    for (int i = 0; i < columnCount(); ++i) {
        horizontalHeaderItem(i)->setTextAlignment(AlignmentOf(i));
        textWidths.push_back(horizontalHeader()->fontMetrics().horizontalAdvance(results.heads.at(i)));
    }
    setRowCount(static_cast<int>(results.rows.size()));
    for (int row = 0; row < rowCount(); ++row) {
        const ResultRow& result = results.rows[static_cast<std::size_t>(row)];
        if (result.kind == ResultRowKind::Heading)
            AddHeading(row, result.cells.front());
        else if (result.kind != ResultRowKind::Spanned)
            AddCells(row, result);
    }
    for (int row = 0; row < rowCount(); ++row) // they share what the other rows need
        if (results.rows[static_cast<std::size_t>(row)].kind == ResultRowKind::Spanned)
            AddSpanned(row, results.rows[static_cast<std::size_t>(row)]);
    FitColumns();
}

void ResultGrid::AddHeading(int row, const QString& text)
{
    for (int i = 1; i < columnCount(); ++i)
        delete takeItem(row, i);
    auto* item = new QTableWidgetItem(text);
    item->setFont(Bold(font()));
    item->setBackground(palette().brush(QPalette::Button));
    setItem(row, 0, item);
    setSpan(row, 0, 1, columnCount());
}

void ResultGrid::AddCells(int row, const ResultRow& result)
{
    for (int i = 0; i < columnCount(); ++i) {
        auto* item = new QTableWidgetItem(result.cells.value(i));
        item->setTextAlignment(AlignmentOf(i));
        if (result.kind == ResultRowKind::Head)
            item->setFont(Bold(font()));
        setItem(row, i, item);
        int& width = textWidths[static_cast<std::size_t>(i)];
        width = std::max(width, QFontMetrics(item->font()).horizontalAdvance(item->text()));
    }
    for (int i = 0; i < static_cast<int>(result.colours.size()); ++i)
        if (const qint32 colour = result.colours[static_cast<std::size_t>(i)])
            item(row, i)->setForeground(ColourOf(colour));
    if (result.lastColour != 0)
        item(row, columnCount() - 1)->setForeground(ColourOf(result.lastColour));
}

void ResultGrid::AddSpanned(int row, const ResultRow& result)
{
    for (int i = 0, next = 0; i < columnCount(); i = next) {
        next = i + 1;
        while (next < columnCount() && result.cells.value(next).isEmpty())
            delete takeItem(row, next++);
        auto* item = new QTableWidgetItem(result.cells.value(i));
        item->setTextAlignment(AlignmentOf(i));
        item->setFont(Bold(font()));
        setItem(row, i, item);
        const int count = next - i;
        if (count > 1)
            setSpan(row, i, 1, count);
        const auto first = textWidths.begin() + i;
        const int present = std::accumulate(first, first + count, (count - 1) * kCellPadding);
        const int missing = QFontMetrics(item->font()).horizontalAdvance(item->text()) - present;
        for (auto width = first; missing > 0 && width != first + count; ++width)
            *width += (missing + count - 1) / count;
    }
}

void ResultGrid::FitColumns()
{
    const int count = columnCount();
    const int needed = std::accumulate(textWidths.begin(), textWidths.end(), count * kCellPadding);
    const int sharing = count - kFirstCentred;
    const int share = sharing > 0 ? std::max(0, viewport()->width() - needed) / sharing : 0;
    for (int i = 0; i < count; ++i)
        setColumnWidth(i, textWidths[static_cast<std::size_t>(i)] + kCellPadding + (i < kFirstCentred ? 0 : share));
}

void ResultGrid::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    FitColumns();
}

} // namespace korvanel
