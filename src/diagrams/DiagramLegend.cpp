#include "diagrams/DiagramLegend.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsGraphColours.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF8Texts.h"
#include "core/window/PlainToolTip.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

namespace korvanel {

namespace {

constexpr double kThreeDecimals = 1000;

enum LegendRow
{
    kCircleRow,
    kValueRow,
    kEndRow,
    kRows
};

/// A circle in the colour of a curve with a thin dark edge, so that pale ones are seen too; hollow if the curve is off.
QPixmap Circle(const QColor& colour, bool isOn, double ratio)
{
    constexpr int kSize = 16;
    constexpr double kEdge = 2.5;
    QPixmap picture(QSize(kSize, kSize) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF ring(2, 2, kSize - 4, kSize - 4);
    if (isOn) {
        painter.setPen(QPen(QColor(0x60, 0x60, 0x60), 1));
        painter.setBrush(colour);
        painter.drawEllipse(ring);
    } else {
        painter.setPen(QPen(QColor(0x60, 0x60, 0x60), kEdge + 1));
        painter.drawEllipse(ring.adjusted(1, 1, -1, -1));
        painter.setPen(QPen(colour, kEdge));
        painter.drawEllipse(ring.adjusted(1, 1, -1, -1));
    }
    return picture;
}

} // namespace

DiagramLegend::DiagramLegend() : QTableWidget(kRows, 0)
{
    constexpr double kSmall = 0.85;
    setObjectName(QStringLiteral("flxInfo"));
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * kSmall); // as at the axes: more columns are in view
    setFont(small);
    horizontalHeader()->setFont(small);
    verticalHeader()->setFont(small);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setIconSize({16, 16});
    setToolTip(PlainToolTip(texts::diagramLegendTip));
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
    setVerticalHeaderLabels({texts::diagramRowSymbol, {}, texts::diagramRowEnd});
    setHorizontalScrollMode(ScrollPerPixel);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, &DiagramLegend::OrderWanted);
}

int DiagramLegend::QuantityIn(int column) const
{
    return item(kCircleRow, column)->data(Qt::UserRole).toInt();
}

int DiagramLegend::ColumnOf(int quantity) const
{
    for (int column = 0; column < columnCount(); ++column)
        if (QuantityIn(column) == quantity)
            return column;
    return -1;
}

void DiagramLegend::Fill(const std::vector<int>& quantities, const DiagramScaleEnds& ends)
{
    setColumnCount(static_cast<int>(quantities.size()));
    for (int column = 0; column < columnCount(); ++column) {
        const int quantity = quantities[static_cast<std::size_t>(column)];
        setHorizontalHeaderItem(column, new QTableWidgetItem(App().Symbols->SymbolWithUnit(quantity)));
        for (int row = 0; row < kRows; ++row) {
            auto* cell = new QTableWidgetItem;
            cell->setData(Qt::UserRole, quantity);
            cell->setTextAlignment(Qt::AlignCenter);
            setItem(row, column, cell);
        }
        item(kEndRow, column)
            ->setText(FormatPrefixed(ShownValueAt(quantity, 1, ends.at(static_cast<std::size_t>(quantity))),
                                     kThreeDecimals, true) +
                      App().Symbols->Unit(quantity));
    }
    ShowValues({}, {});
}

void DiagramLegend::ShowState(int quantity, bool isOn)
{
    if (const int column = ColumnOf(quantity); column >= 0)
        item(kCircleRow, column)
            ->setIcon(Circle(ColourOf(App().GraphColours->colour(quantity)), isOn, devicePixelRatioF()));
}

void DiagramLegend::ShowChosen(int quantity)
{
    for (int column = 0; column < columnCount(); ++column) {
        QFont font = horizontalHeader()->font();
        font.setBold(QuantityIn(column) == quantity);
        horizontalHeaderItem(column)->setFont(font);
    }
    resizeColumnsToContents();
    if (const int column = ColumnOf(quantity); column >= 0)
        scrollToItem(item(kCircleRow, column));
}

void DiagramLegend::ShowValues(std::optional<qint32> set, const std::vector<QString>& texts)
{
    verticalHeaderItem(kValueRow)->setText(set ? FillPlaceholders(texts::diagramRowSet, {QString::number(*set)})
                                               : QString());
    for (int column = 0; column < columnCount(); ++column) {
        const auto place = static_cast<std::size_t>(column);
        item(kValueRow, column)->setText(set && place < texts.size() ? texts[place] : QString());
    }
    resizeColumnsToContents();
}

void DiagramLegend::mouseReleaseEvent(QMouseEvent* event)
{
    QTableWidget::mouseReleaseEvent(event);
    const QTableWidgetItem* cell = itemAt(event->position().toPoint());
    if (!cell || (event->button() != Qt::LeftButton && event->button() != Qt::RightButton))
        return;
    const int quantity = cell->data(Qt::UserRole).toInt();
    if (cell->row() != kCircleRow)
        emit OrderWanted();
    else if (event->button() == Qt::LeftButton)
        emit CurveClicked(quantity);
    else
        emit ColourWanted(quantity);
}

/// The keys do what the mouse does: blank switches a curve, Return asks for its colour.
void DiagramLegend::keyPressEvent(QKeyEvent* event)
{
    const QTableWidgetItem* cell = currentItem();
    const bool isCircle = cell && cell->row() == kCircleRow;
    if (isCircle && event->key() == Qt::Key_Space)
        emit CurveClicked(cell->data(Qt::UserRole).toInt());
    else if (isCircle && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        emit ColourWanted(cell->data(Qt::UserRole).toInt());
    else
        QTableWidget::keyPressEvent(event);
}

/// The right button has its own meaning here.
void DiagramLegend::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
}

} // namespace korvanel
