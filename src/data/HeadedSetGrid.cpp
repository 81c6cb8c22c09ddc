#include "data/HeadedSetGrid.h"

#include "core/clsSymbols.h"
#include "data/RowQuantities.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr Qt::Alignment kNumbers = Qt::AlignRight | Qt::AlignVCenter;

} // namespace

HeadedSetGrid::HeadedSetGrid(const char* tableName, int shown, SetGridPlace& placeInBlock, QString captionOfHead)
    : SetGrid(tableName, shown, 0, &placeInBlock), head(AddTable("flxHeader", 1)), caption(std::move(captionOfHead))
{
    QTableWidget& values = Table();
    head->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    values.horizontalHeader()->hide();
    head->setContextMenuPolicy(Qt::CustomContextMenu);
    head->horizontalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    for (QWidget* clicked : {static_cast<QWidget*>(head), static_cast<QWidget*>(head->horizontalHeader())})
        connect(clicked, &QWidget::customContextMenuRequested, this, [this] { AskForOrder(); });
    connect(values.horizontalScrollBar(), &QScrollBar::valueChanged, head->horizontalScrollBar(),
            &QScrollBar::setValue);

    const int rowHeight = values.verticalHeader()->defaultSectionSize();
    head->setFixedHeight(2 * rowHeight + 2 * head->frameWidth());
    values.setFixedHeight(Rows() * rowHeight + values.horizontalScrollBar()->sizeHint().height() +
                          2 * values.frameWidth());
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    grid->addWidget(head, 0, 0);
    grid->addWidget(&values, 1, 0);
    grid->addWidget(&Bar(), 1, 1);
}

void HeadedSetGrid::SetCaption(const QString& text)
{
    caption = text;
    head->setVerticalHeaderLabels({caption});
}

void HeadedSetGrid::FillHead()
{
    QStringList headings;
    for (const qint16 column : App().ColumnLayout)
        headings << ColumnHeading(column);
    for (QTableWidget* part : {head, &Table()})
        part->setColumnCount(static_cast<int>(headings.size()));
    head->setHorizontalHeaderLabels(headings);
    head->setVerticalHeaderLabels({caption});
}

/// Columns keep their width whatever stands in them.
void HeadedSetGrid::SetWidths()
{
    constexpr int kPadding = 14;
    constexpr const char* kWidestNumber = "88888888*";
    const QFontMetrics metrics = fontMetrics();
    const int numberWidth =
        std::max(metrics.horizontalAdvance(caption), metrics.horizontalAdvance(QLatin1String(kWidestNumber))) +
        kPadding;
    for (QTableWidget* part : {head, &Table()}) {
        for (int i = 0; i < part->columnCount(); ++i)
            part->setColumnWidth(i, WidthOf(App().ColumnLayout[static_cast<std::size_t>(i)]));
        part->verticalHeader()->setFixedWidth(numberWidth);
    }
}

void HeadedSetGrid::FillRow(int row, const QString& number, const ShownSet& shown)
{
    Table().setVerticalHeaderItem(row, new QTableWidgetItem(number));
    for (int i = 0; i < Table().columnCount(); ++i)
        SetCell(Table(), row, i, SetText(shown.row, shown.timeText, App().ColumnLayout[static_cast<std::size_t>(i)]),
                kNumbers);
}

void HeadedSetGrid::ClearRow(int row)
{
    Table().setVerticalHeaderItem(row, new QTableWidgetItem);
    for (int i = 0; i < Table().columnCount(); ++i)
        SetCell(Table(), row, i, {}, kNumbers);
}

void HeadedSetGrid::ShowInHead(const tValueRow& row, const QString& timeText)
{
    for (int i = 0; i < head->columnCount(); ++i)
        SetCell(*head, 0, i, SetText(row, timeText, App().ColumnLayout[static_cast<std::size_t>(i)]), kNumbers);
}

void HeadedSetGrid::ClearHead()
{
    for (int i = 0; i < head->columnCount(); ++i)
        SetCell(*head, 0, i, {}, kNumbers);
}

} // namespace korvanel
