#include "data/SampleGrid.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF4Texts.h"

#include <QGridLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr Qt::Alignment kNumbers = Qt::AlignRight | Qt::AlignVCenter;

} // namespace

SampleGrid::SampleGrid(int shown) : SetGrid("flxvalues", shown, 0), head(AddTable("flxHeader", 1))
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

void SampleGrid::FillHead()
{
    QStringList headings;
    for (const qint16 column : App().ColumnLayout)
        headings << ColumnHeading(column);
    for (QTableWidget* part : {head, &Table()})
        part->setColumnCount(static_cast<int>(headings.size()));
    head->setHorizontalHeaderLabels(headings);
    head->setVerticalHeaderLabels({texts::presentValue});
}

/// Columns keep their width whatever stands in them.
void SampleGrid::SetWidths()
{
    constexpr int kPadding = 14;
    constexpr const char* kWidestNumber = "88888888*";
    const QFontMetrics metrics = fontMetrics();
    const int numberWidth = std::max(metrics.horizontalAdvance(texts::presentValue),
                                     metrics.horizontalAdvance(QLatin1String(kWidestNumber))) +
                            kPadding;
    for (QTableWidget* part : {head, &Table()}) {
        for (int i = 0; i < part->columnCount(); ++i)
            part->setColumnWidth(i, WidthOf(App().ColumnLayout[static_cast<std::size_t>(i)]));
        part->verticalHeader()->setFixedWidth(numberWidth);
    }
}

void SampleGrid::FillRow(int row, const QString& number, const ShownSet& shown)
{
    Table().setVerticalHeaderItem(row, new QTableWidgetItem(number));
    for (int i = 0; i < Table().columnCount(); ++i)
        SetCell(Table(), row, i, SetText(shown.row, shown.timeText, App().ColumnLayout[static_cast<std::size_t>(i)]),
                kNumbers);
}

void SampleGrid::ClearRow(int row)
{
    Table().setVerticalHeaderItem(row, new QTableWidgetItem);
    for (int i = 0; i < Table().columnCount(); ++i)
        SetCell(Table(), row, i, {}, kNumbers);
}

void SampleGrid::ShowPresent(const tValueRow& row, const std::function<bool(int)>& isGood)
{
    for (int i = 0; i < head->columnCount(); ++i) {
        const int column = App().ColumnLayout[static_cast<std::size_t>(i)];
        SetCell(*head, 0, i, SetText(row, {}, column), kNumbers); // not stored, so without a time stamp
        const bool isBad = column >= 0 && !isGood(column);
        head->item(0, i)->setBackground(isBad ? QBrush(ColourOf(kBadCellColour)) : QBrush());
        head->item(0, i)->setForeground(isBad ? QBrush(Qt::black) : QBrush());
    }
}

void SampleGrid::ClearPresent()
{
    for (int i = 0; i < head->columnCount(); ++i) {
        SetCell(*head, 0, i, {}, kNumbers);
        head->item(0, i)->setBackground({});
    }
}

} // namespace korvanel
