#include "data/SetList.h"

#include "core/Colour.h"
#include "core/Common.h"
#include "core/NumberText.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF6Texts.h"
#include "core/window/PlainToolTip.h"
#include "data/RowQuantities.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableWidget>

#include <algorithm>

namespace korvanel {

namespace {

enum FixedColumn
{
    kNumberColumn,
    kTimeTextColumn,
    kFixedColumns
};

constexpr int kFirstRows = 5; ///< before the list has its size
constexpr int kWordPadding = 14;

/// A selected row keeps the colours of its texts.
class KeptColours : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
    }
};

/// A pale shade of the selection's colour, on which dark text can be read.
void SoftenSelection(QWidget& view)
{
    QPalette palette = view.palette();
    const QColor base = palette.color(QPalette::Base);
    const QColor full = palette.color(QPalette::Highlight);
    const auto mix = [](int a, int b) { return (3 * a + b) / 4; };
    const QColor pale(mix(base.red(), full.red()), mix(base.green(), full.green()), mix(base.blue(), full.blue()));
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive})
        palette.setColor(group, QPalette::Highlight, pale);
    view.setPalette(palette);
}

} // namespace

SetList::SetList(SetJudge setJudge, const char* name)
    : SetGrid(name, kFirstRows, kFixedColumns), judge(std::move(setJudge)), fixed(new QTableView)
{
    constexpr int kLeastRows = 3;
    QTableWidget& values = Table();
    values.verticalHeader()->hide();
    values.setFrameShape(QFrame::NoFrame);
    BuildFixedColumns();
    for (QTableView* view : {static_cast<QTableView*>(&values), fixed}) {
        view->setItemDelegate(new KeptColours(view));
        SoftenSelection(*view);
    }
    auto* frame = new QFrame;
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    auto* row = new QHBoxLayout(frame);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(fixed);
    auto* line = new QFrame; // between what stays and what moves
    line->setFrameStyle(QFrame::VLine | QFrame::Plain);
    line->setLineWidth(1);
    line->setForegroundRole(QPalette::Mid);
    row->addWidget(line);
    row->addWidget(&values, 1);
    row->addWidget(&Bar());
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(frame);
    const int rowHeight = values.verticalHeader()->defaultSectionSize();
    values.setMinimumHeight((kLeastRows + 1) * rowHeight + values.horizontalScrollBar()->sizeHint().height());

    setToolTip(PlainToolTip(texts::resultsOrderTip));
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, [this] { AskForOrder(); });
    for (QWidget* withMenu : {static_cast<QWidget*>(&Bar()), static_cast<QWidget*>(values.horizontalScrollBar())})
        withMenu->setContextMenuPolicy(Qt::NoContextMenu); // theirs would come first
}

/// A second view of the same rows shows the columns that the other one hides, and so they stay where they are.
void SetList::BuildFixedColumns()
{
    QTableWidget& values = Table();
    fixed->setObjectName(QStringLiteral("flxFixed"));
    fixed->setModel(values.model());
    fixed->setSelectionModel(values.selectionModel());
    fixed->setFrameShape(QFrame::NoFrame);
    fixed->setFocusPolicy(Qt::NoFocus);
    fixed->setEditTriggers(QAbstractItemView::NoEditTriggers);
    fixed->setSelectionBehavior(QAbstractItemView::SelectRows);
    fixed->setSelectionMode(QAbstractItemView::SingleSelection);
    fixed->setAutoScroll(false);
    fixed->setWordWrap(false);
    fixed->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixed->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    fixed->horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fixed->horizontalHeader()->setHighlightSections(false);
    fixed->horizontalHeader()->setFixedHeight(values.horizontalHeader()->height());
    fixed->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    fixed->verticalHeader()->setMinimumSectionSize(values.verticalHeader()->minimumSectionSize());
    fixed->verticalHeader()->setDefaultSectionSize(values.verticalHeader()->defaultSectionSize());
    fixed->verticalHeader()->hide();
    Follow(*fixed->viewport());
    connect(fixed, &QAbstractItemView::pressed, &values, [&values] { values.setFocus(Qt::MouseFocusReason); });
}

std::span<const qint16> SetList::Columns() const
{
    return App().ColumnLayout;
}

QString SetList::TimeHeading() const
{
    return ColumnHeading(kColumnTime);
}

QString SetList::TimeOf(const tValueRow& row) const
{
    return SetText(row, {}, kColumnTime);
}

bool SetList::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Resize && watched == Table().viewport())
        SetRows(std::max(1, Table().viewport()->height() / Table().verticalHeader()->defaultSectionSize()));
    return SetGrid::eventFilter(watched, event);
}

void SetList::FillHead()
{
    QStringList headings{texts::headSet, TimeHeading()};
    for (const qint16 column : Columns())
        headings << ColumnHeading(column);
    Table().setColumnCount(static_cast<int>(headings.size()));
    Table().setHorizontalHeaderLabels(headings);
    for (int i = 0; i < headings.size(); ++i) {
        fixed->setColumnHidden(i, i >= kFixedColumns);
        Table().setColumnHidden(i, i < kFixedColumns);
    }
}

void SetList::SetWidths()
{
    constexpr const char* kWidestNumber = "88888888*";
    const QFontMetrics metrics = fontMetrics();
    fixed->setColumnWidth(kNumberColumn, std::max(metrics.horizontalAdvance(texts::headSet),
                                                  metrics.horizontalAdvance(QLatin1String(kWidestNumber))) +
                                             kWordPadding);
    fixed->setColumnWidth(kTimeTextColumn, WidthOf(kColumnTime));
    fixed->setFixedWidth(fixed->columnWidth(kNumberColumn) + fixed->columnWidth(kTimeTextColumn));
    int widestWord = 0;
    for (const QString& word : judge.words)
        widestWord = std::max(widestWord, metrics.horizontalAdvance(word) + kWordPadding);
    for (int i = kFixedColumns; i < Table().columnCount(); ++i) {
        const int column = Columns()[static_cast<std::size_t>(i - kFixedColumns)];
        Table().setColumnWidth(i, std::max(WidthOf(column), column == kColumnSuitability ? widestWord : 0));
    }
}

SetJudge::Verdict SetList::CellOf(const ShownSet& shown, int column) const
{
    if (column == kColumnSuitability)
        return judge.verdictOn(shown.row);
    return {SetText(shown.row, shown.timeText, column),
            column >= 0 ? judge.colourOf(QuantityValue(shown.row, column), column) : 0};
}

void SetList::ShowCell(int row, int column, const SetJudge::Verdict& cell)
{
    SetCell(Table(), row, column, cell.word,
            column < kFixedColumns ? Qt::AlignRight | Qt::AlignVCenter : Qt::Alignment(Qt::AlignCenter));
    Table().item(row, column)->setForeground(cell.colour == 0 ? QBrush() : QBrush(ColourOf(cell.colour)));
}

void SetList::FillRow(int row, const QString& number, const ShownSet& shown)
{
    ShowCell(row, kNumberColumn, {number});
    ShowCell(row, kTimeTextColumn, {TimeOf(shown.row)});
    for (int i = kFixedColumns; i < Table().columnCount(); ++i)
        ShowCell(row, i, CellOf(shown, Columns()[static_cast<std::size_t>(i - kFixedColumns)]));
}

void SetList::ClearRow(int row)
{
    for (int i = 0; i < Table().columnCount(); ++i)
        ShowCell(row, i, {});
}

} // namespace korvanel
