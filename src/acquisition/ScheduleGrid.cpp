#include "acquisition/ScheduleGrid.h"

#include "acquisition/clsTimeSchedule.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/FormF3Texts.h"

#include <QHeaderView>
#include <QSignalBlocker>
#include <QStyle>

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

struct Column
{
    int width; ///< pixels, at least
    TextRef heading;
    Qt::Alignment alignment;
    QString (*text)(const ScheduleEntry& entry, int index);
};

QString NumberOf(const ScheduleEntry&, int index)
{
    return QString::number(index + 1);
}

QString StartText(const ScheduleEntry& entry, int)
{
    return entry.HasStartTime() ? DateTimeText(entry.startTime) : texts::scheduleManual;
}

QString StopText(const ScheduleEntry& entry, int)
{
    if (entry.HasStopTime())
        return DateTimeText(entry.stopTime);
    return entry.stopMode == StopMode::Manual ? texts::scheduleManual : texts::scheduleNone;
}

QString DurationText(const ScheduleEntry& entry, int)
{
    if (entry.HasStartTime() && entry.stopMode == StopMode::Timed)
        return SecondsToTime(static_cast<double>(entry.startTime.secsTo(entry.stopTime)), false);
    return entry.stopMode == StopMode::Duration ? SecondsToTime(entry.term, false) : texts::scheduleNone;
}

constexpr std::array<Column, 4> kColumns{{
    {27, &texts::scheduleNumber, Qt::AlignRight | Qt::AlignVCenter, NumberOf},
    {120, &texts::scheduleStartTime, Qt::AlignLeft | Qt::AlignVCenter, StartText},
    {120, &texts::scheduleEndTime, Qt::AlignLeft | Qt::AlignVCenter, StopText},
    {67, &texts::scheduleDuration, Qt::AlignRight | Qt::AlignVCenter, DurationText},
}};
constexpr int kColumnCount = static_cast<int>(kColumns.size());

/// Pale red under black, readable in light and dark schemes.
constexpr QRgb kWarning = 0xFFFFB9B0;

constexpr const char* kCurrentProperty = "current";
constexpr const char* kMarkedProperty = "marked";

} // namespace

ScheduleGrid::ScheduleGrid(QWidget* parent) : QTableWidget(0, kColumnCount, parent)
{
    setObjectName(QStringLiteral("flxTimeControl"));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setMinimumSectionSize(kColumns.front().width);
    QStringList headings;
    for (const Column& column : kColumns)
        headings << TextOf(column.heading);
    setHorizontalHeaderLabels(headings);
    setProperty(kCurrentProperty, -1);
    setProperty(kMarkedProperty, QString());
    connect(this, &QTableWidget::cellClicked, this, [this](int row) { emit EntryChosen(row); });
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row) {
        if (row >= 0)
            emit EntryChosen(row);
    });
}

void ScheduleGrid::Fill()
{
    const QSignalBlocker quiet(this);
    clearContents();
    setRowCount(App().TimeSchedule->Count());
    for (int i = 0; i < rowCount(); ++i)
        SetRow(i);
    WidenColumns();
    setProperty(kMarkedProperty, QString());
    MarkEntry(-1);
}

void ScheduleGrid::SetRow(int index)
{
    const ScheduleEntry& entry = App().TimeSchedule->Entry(index);
    for (int i = 0; i < kColumnCount; ++i) {
        const Column& column = kColumns[static_cast<std::size_t>(i)];
        auto* cell = new QTableWidgetItem(column.text(entry, index));
        cell->setTextAlignment(column.alignment);
        setItem(index, i, cell);
    }
}

void ScheduleGrid::WidenColumns()
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    // What the style keeps free on both sides of a cell's text, and the line of the grid.
    const int around = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1) + 1;
    for (int i = 0; i < kColumnCount; ++i) {
        int width = std::max(kColumns[static_cast<std::size_t>(i)].width, horizontalHeader()->sectionSizeHint(i));
        for (int row = 0; row < rowCount(); ++row)
            width = std::max(width, metrics.horizontalAdvance(item(row, i)->text()) + around);
        setColumnWidth(i, width);
    }
}

void ScheduleGrid::MarkEntry(int index)
{
    if (index >= rowCount())
        index = -1;
    const QSignalBlocker quiet(this);
    SetBold(property(kCurrentProperty).toInt(), false);
    setProperty(kCurrentProperty, index);
    SetBold(index, true);
    setCurrentCell(index, index < 0 ? -1 : 0);
    if (index >= 0)
        scrollToItem(item(index, 0));
    else
        clearSelection();
}

void ScheduleGrid::MarkRange(int first, int last)
{
    first = std::max(first, 0);
    last = std::min(last, rowCount() - 1);
    if (first > last)
        return;
    for (int row = first; row <= last; ++row) {
        for (int i = 0; i < kColumnCount; ++i) {
            item(row, i)->setBackground(QColor(kWarning));
            item(row, i)->setForeground(Qt::black);
        }
    }
    QStringList marked;
    for (int row = 0; row < rowCount(); ++row)
        if (item(row, 0)->background().style() != Qt::NoBrush)
            marked << QString::number(row);
    setProperty(kMarkedProperty, marked.join(u','));
    clearSelection(); // it would hide the colour of its row
    scrollToItem(item(first, 0));
}

void ScheduleGrid::SetBold(int row, bool isBold)
{
    for (int i = 0; i < kColumnCount; ++i) {
        QTableWidgetItem* cell = item(row, i);
        if (!cell)
            return;
        QFont font = cell->font();
        font.setBold(isBold);
        cell->setFont(font);
    }
}

} // namespace korvanel
