#include "simulation/ComparisonGrid.h"

#include "core/Colour.h"
#include "core/NumberText.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/FormH13Texts.h"
#include "data/RowQuantities.h"
#include "evaluation/Rating.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

constexpr int kRowsBeforeSized = 5;
constexpr Qt::Alignment kRightAligned = Qt::AlignRight | Qt::AlignVCenter;

/// Behind the number of the set: a quantity that both have in common, or that of one of them.
struct ComparedColumn
{
    int quantity;
    RatingMode mode; ///< None: common
    double widest;   ///< value that has room
};

constexpr double kWidePower = -8888888.888;
constexpr ComparedColumn kComparedColumns[] = {
    {kColumnTime, RatingMode::None, 8888888},
    {kU, RatingMode::None, 88888.888},
    {kF, RatingMode::None, 888.88},
    {kM, RatingMode::None, -88888.88},
    {kN, RatingMode::MachineI, -88888},
    {kN, RatingMode::MachineII, -88888},
    {kPmech, RatingMode::MachineI, kWidePower},
    {kPmech, RatingMode::MachineII, kWidePower},
    {kP, RatingMode::MachineI, kWidePower},
    {kP, RatingMode::MachineII, kWidePower},
    {kEta, RatingMode::MachineI, 0.88},
    {kEta, RatingMode::MachineII, 0.88},
};
constexpr int kComparedCount = static_cast<int>(std::size(kComparedColumns)) + 1;

QString HeadingOf(const ComparedColumn& column)
{
    const QString heading = ColumnHeading(column.quantity);
    return column.mode == RatingMode::None
               ? heading
               : FillPlaceholders(column.mode == RatingMode::MachineI ? texts::comparisonHeadFirst
                                                                      : texts::comparisonHeadSecond,
                                  {heading});
}

} // namespace

ComparisonGrid::ComparisonGrid() : SetGrid("flxDaten", kRowsBeforeSized, 0)
{
    constexpr int kLeastRows = 5;
    QTableWidget& values = Table();
    Bar().setObjectName(QStringLiteral("scrDaten"));
    values.verticalHeader()->hide();
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(&values, 1);
    row->addWidget(&Bar());
    values.setMinimumHeight((kLeastRows + 1) * values.verticalHeader()->defaultSectionSize() +
                            values.horizontalScrollBar()->sizeHint().height());
}

bool ComparisonGrid::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == Table().viewport())
        SetRows(std::max(1, Table().viewport()->height() / Table().verticalHeader()->defaultSectionSize()));
    return SetGrid::eventFilter(watched, event);
}

bool ComparisonGrid::Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    simulated.clear();
    const bool isRead = VisitSimulatedSets(first, last, [this](const ShownSet& shown) {
        simulated.emplace(shown.set, shown.row);
        return true;
    });
    return isRead && VisitSets(first, last, visit);
}

void ComparisonGrid::FillHead()
{
    QStringList headings{texts::headSet};
    for (const ComparedColumn& column : kComparedColumns)
        headings << HeadingOf(column);
    Table().setColumnCount(kComparedCount);
    Table().setHorizontalHeaderLabels(headings);
}

void ComparisonGrid::SetWidths()
{
    constexpr int kRoom = 14;
    constexpr const char* kWidestNumber = "88888888*";
    const QFontMetrics metrics = fontMetrics();
    Table().setColumnWidth(0, metrics.horizontalAdvance(QLatin1String(kWidestNumber)) + kRoom);
    int i = 1;
    for (const ComparedColumn& column : kComparedColumns) {
        const QString widest = column.quantity == kColumnTime ? SecondsToTime(column.widest, false)
                                                              : RoundValue(column.widest, GridFactor(column.quantity));
        const int width = std::max(metrics.horizontalAdvance(HeadingOf(column)), metrics.horizontalAdvance(widest));
        Table().setColumnWidth(i++, width + kRoom);
    }
}

void ComparisonGrid::FillRow(int row, const QString& number, const ShownSet& shown)
{
    const auto other = simulated.find(shown.set);
    SetCell(Table(), row, 0, number, kRightAligned);
    int i = 0;
    for (const ComparedColumn& column : kComparedColumns) {
        ++i;
        const tValueRow* const values = column.mode != RatingMode::MachineII ? &shown.row
                                        : other != simulated.end()           ? &other->second
                                                                             : nullptr;
        SetCell(Table(), row, i, values ? SetText(*values, shown.timeText, column.quantity) : texts::comparisonNone,
                kRightAligned);
        const qint32 colour =
            values && column.mode != RatingMode::None
                ? RateValue(QuantityValue(*values, column.quantity), column.quantity, column.mode, false)
                : 0;
        Table().item(row, i)->setForeground(colour == 0 ? QBrush() : QBrush(ColourOf(colour)));
    }
}

void ComparisonGrid::ClearRow(int row)
{
    for (int i = 0; i < Table().columnCount(); ++i)
        SetCell(Table(), row, i, {}, kRightAligned);
}

} // namespace korvanel
