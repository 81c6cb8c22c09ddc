#include "data/SetGrid.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/Texts.h"
#include "core/window/FormH3.h"
#include "data/FileManaging.h"
#include "data/RowQuantities.h"
#include "data/ValueTables.h"
#include "diagrams/clsSymbols.h"

#include <QApplication>
#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kRowHeight = 21;
constexpr int kPadding = 14;

QString HeadingOf(int column)
{
    return column >= 0 ? App().Symbols->SymbolWithUnit(column) : ColumnText(column);
}

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

/// Text of a column for a row that has just been read.
QString CellText(const tValueRow& row, int column)
{
    switch (column) {
    case kColumnTimeStamp:
        return App().sTimeText;
    case kColumnTime:
        return SecondsToTime(row.dt, false);
    case kColumnMethod:
        return row.sMethod;
    case kColumnSuitability:
        return {};
    default:
        return GridText(row, column);
    }
}

} // namespace

SetGrid::SetGrid(int shown)
    : rows(shown), head(AddTable("flxHeader", 1)), values(AddTable("flxvalues", shown)),
      bar(new QScrollBar(Qt::Vertical))
{
    bar->setObjectName(QStringLiteral("ScrollFlex"));
    head->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    values->horizontalHeader()->hide();
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    head->horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    for (QWidget* clicked : {static_cast<QWidget*>(head), static_cast<QWidget*>(head->horizontalHeader())})
        connect(clicked, &QWidget::customContextMenuRequested, this, [this] { AskForOrder(); });
    connect(values->horizontalScrollBar(), &QScrollBar::valueChanged, head->horizontalScrollBar(),
            &QScrollBar::setValue);
    connect(bar, &QScrollBar::valueChanged, this, [this] { Fill(); });

    head->horizontalHeader()->setFixedHeight(kRowHeight);
    head->setFixedHeight(2 * kRowHeight + 2 * head->frameWidth());
    values->setFixedHeight(rows * kRowHeight + values->horizontalScrollBar()->sizeHint().height() +
                           2 * values->frameWidth());
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(head, 0, 0);
    grid->addWidget(values, 1, 0);
    grid->addWidget(bar, 1, 1);
}

QTableWidget* SetGrid::AddTable(const char* name, int rowCount)
{
    auto* table = new QTableWidget(rowCount, 0);
    table->setObjectName(QLatin1String(name));
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setWordWrap(false);
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    table->verticalHeader()->setMinimumSectionSize(kRowHeight);
    table->verticalHeader()->setDefaultSectionSize(kRowHeight);
    table->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    return table;
}

void SetGrid::Rebuild()
{
    FillHead();
    SetWidths();
    const QSignalBlocker quiet(bar);
    bar->setRange(0, std::max(0, App().iSetCount - rows));
    bar->setPageStep(rows);
    Fill();
}

void SetGrid::FillHead()
{
    QStringList headings;
    for (const qint16 column : App().ColumnLayout)
        headings << HeadingOf(column);
    for (QTableWidget* table : {head, values})
        table->setColumnCount(static_cast<int>(headings.size()));
    head->setHorizontalHeaderLabels(headings);
    head->setVerticalHeaderLabels({Texts().presentValue});
}

/// Columns keep their width whatever stands in them.
void SetGrid::SetWidths()
{
    const QFontMetrics metrics = fontMetrics();
    for (int i = 0; i < head->columnCount(); ++i) {
        const int column = App().ColumnLayout[static_cast<std::size_t>(i)];
        const int width =
            std::max(metrics.horizontalAdvance(HeadingOf(column)), metrics.horizontalAdvance(WidestText(column)));
        for (QTableWidget* table : {head, values})
            table->setColumnWidth(i, width + kPadding);
    }
    constexpr const char* kWidestNumber = "88888888";
    const int width = std::max(metrics.horizontalAdvance(Texts().presentValue),
                               metrics.horizontalAdvance(QLatin1String(kWidestNumber))) +
                      kPadding;
    for (QTableWidget* table : {head, values})
        table->verticalHeader()->setFixedWidth(width);
}

void SetGrid::ShowNewest()
{
    {
        const QSignalBlocker quiet(bar);
        bar->setRange(0, std::max(0, App().iSetCount - rows));
        bar->setValue(bar->maximum());
    }
    Fill();
}

int SetGrid::VisibleSets() const
{
    return std::clamp(App().iSetCount - bar->value(), 0, rows);
}

void SetGrid::Fill()
{
    const int visible = App().bProjectOpen ? VisibleSets() : 0;
    OpenDbGuarded();
    bool isReadable = true;
    for (int row = 0; row < rows; ++row) {
        const int set = bar->value() + row + 1;
        isReadable = isReadable && row < visible && ReadRow(set);
        values->setVerticalHeaderItem(row, new QTableWidgetItem(isReadable ? QString::number(set) : QString()));
        for (int column = 0; column < values->columnCount(); ++column)
            SetCell(*values, row, column,
                    isReadable ? CellText(App().CurrentRow, App().ColumnLayout[static_cast<std::size_t>(column)])
                               : QString());
    }
    CloseDbGuarded();
}

void SetGrid::SetCell(QTableWidget& table, int row, int column, const QString& text)
{
    QTableWidgetItem* item = table.item(row, column);
    if (!item) {
        item = new QTableWidgetItem;
        item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table.setItem(row, column, item);
    }
    item->setText(text);
}

void SetGrid::ShowPresent(const tValueRow& row, const std::function<bool(int)>& isGood)
{
    for (int i = 0; i < head->columnCount(); ++i) {
        const int column = App().ColumnLayout[static_cast<std::size_t>(i)];
        SetCell(*head, 0, i, column == kColumnTimeStamp ? QString() : CellText(row, column));
        const bool isBad = column >= 0 && !isGood(column);
        const QColor grey(kBadCellColour & 0xFF, kBadCellColour >> 8 & 0xFF, kBadCellColour >> 16 & 0xFF);
        head->item(0, i)->setBackground(isBad ? QBrush(grey) : QBrush());
        head->item(0, i)->setForeground(isBad ? QBrush(Qt::black) : QBrush());
    }
}

void SetGrid::ClearPresent()
{
    for (int i = 0; i < head->columnCount(); ++i) {
        SetCell(*head, 0, i, {});
        head->item(0, i)->setBackground({});
    }
}

void SetGrid::AskForOrder()
{
    if (!QApplication::activeModalWidget() && FormH3::ChangeOrder(this))
        Rebuild();
}

} // namespace korvanel
