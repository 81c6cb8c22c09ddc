#include "motors/MachineGrid.h"

#include "core/NumberText.h"
#include "core/Texts.h"
#include "core/texts/FormF10Texts.h"
#include "core/window/PlainToolTip.h"
#include "motors/MachineEntry.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSignalBlocker>

#include <algorithm>
#include <array>

namespace korvanel {

namespace {

using R = MachineRecord;

struct Column
{
    TextRef group;  ///< head of the group that begins here, if any
    TextRef second; ///< second line of the head, if any
    QString (*text)(const MachineRecord& record);
};

template <std::size_t Field>
QString Typed(const R& record)
{
    return MachineFieldText(Field, record);
}

template <auto Member>
QString Derived(const R& record)
{
    constexpr double kFactor = 1000;
    return RoundValue(record.*Member, kFactor);
}

constexpr std::array kColumns{
    Column{&texts::machineHeadPolePairs, nullptr,
           [](const R& r) { return r.Polpaarzahl >= 1 ? QString::number(r.Polpaarzahl) : QString(); }},
    Column{&texts::machineHeadRating, &texts::machinePmech, Typed<kFieldPmech>},
    Column{nullptr, &texts::machineU, Typed<kFieldU>},
    Column{nullptr, &texts::machineF, Typed<kFieldF>},
    Column{nullptr, &texts::machineN, Typed<kFieldN>},
    Column{nullptr, &texts::machineI, Typed<kFieldI>},
    Column{nullptr, &texts::machineCosphi, Typed<kFieldCosphi>},
    Column{&texts::machineHeadDerived, &texts::machineHeadM, Derived<&R::M>},
    Column{nullptr, &texts::machineHeadEta, Derived<&R::eta>},
    Column{&texts::machineComment, nullptr, [](const R& r) { return r.Hersteller; }},
    Column{&texts::machineHeadNoLoad, &texts::machinePo, Typed<kFieldPo>},
    Column{nullptr, &texts::machineUo, Typed<kFieldUo>},
    Column{nullptr, &texts::machineIo, Typed<kFieldIo>},
    Column{nullptr, &texts::machineFo, Typed<kFieldFo>},
    Column{&texts::machineGroupConnection, nullptr, [](const R& r) { return r.Schaltungsart.value_or(QString()); }},
    Column{&texts::machineGroupRs, &texts::machineRs, Typed<kFieldRs>},
    Column{&texts::machineGroupStallRatio, &texts::machineStallRatio, Typed<kFieldStallRatio>},
    Column{&texts::machineGroupTth, &texts::machineTth, Typed<kFieldTth>},
    Column{&texts::machineGroupInsulation, nullptr, [](const R& r) { return r.I_CL.value_or(QString()); }},
    Column{&texts::machineGroupMass, &texts::machineMass, Typed<kFieldMass>},
};

constexpr int kCommentColumn = 9;
constexpr int kFilledRows = 200;

QString WithoutColon(const QString& text)
{
    return text.endsWith(u':') ? text.chopped(1) : text;
}

QString HeadOf(const Column& column)
{
    const QString group = column.group ? WithoutColon(TextOf(column.group)) : QString();
    return column.second ? group + u'\n' + WithoutColon(TextOf(column.second)) : group;
}

} // namespace

MachineGrid::MachineGrid(Source machinesOfRows) : source(std::move(machinesOfRows))
{
    constexpr int kRowHeight = 21;
    setObjectName(QStringLiteral("GridBemess"));
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setColumnCount(static_cast<int>(kColumns.size()));
    QStringList heads;
    for (const Column& column : kColumns)
        heads << HeadOf(column);
    setHorizontalHeaderLabels(heads);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignBottom);
    horizontalHeader()->setHighlightSections(false);
    verticalHeader()->setDefaultSectionSize(kRowHeight);
    verticalHeader()->hide();
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int, int formerRow) {
        if (row >= 0 && row != formerRow)
            emit RowChosen(row);
    });
    connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { FillView(); });
}

void MachineGrid::Fill(int count)
{
    constexpr int kWidestComment = 260;
    const QSignalBlocker quiet(this);
    clearContents();
    setRowCount(count);
    filledCount = 0;
    FillRows(0, kFilledRows);
    resizeColumnsToContents();
    setColumnWidth(kCommentColumn, std::min(columnWidth(kCommentColumn), kWidestComment));
}

void MachineGrid::resizeEvent(QResizeEvent* event)
{
    QTableWidget::resizeEvent(event);
    FillView();
}

/// Fills the rows in view with some on both sides, unless they are.
void MachineGrid::FillView()
{
    const int top = std::max(0, rowAt(0));
    const int bottom = rowAt(viewport()->height() - 1);
    const int last = bottom < 0 ? rowCount() - 1 : bottom;
    if (top < filledFrom || last >= filledFrom + filledCount)
        FillRows(std::max(0, top - kFilledRows / 2), kFilledRows);
}

/// Fills rows and empties those that were filled before.
void MachineGrid::FillRows(int first, int count)
{
    const QSignalBlocker quiet(this);
    for (int row = filledFrom; row < filledFrom + filledCount; ++row)
        for (int column = 0; column < columnCount(); ++column)
            delete takeItem(row, column);
    filledFrom = first;
    filledCount = 0;
    for (const MachineRecord& record : source(first, std::min(count, rowCount() - first))) {
        const int row = filledFrom + filledCount++;
        for (int column = 0; column < columnCount(); ++column) {
            auto* cell = new QTableWidgetItem(kColumns.at(static_cast<std::size_t>(column)).text(record));
            if (column == kCommentColumn)
                cell->setToolTip(PlainToolTip(cell->text()));
            else
                cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            setItem(row, column, cell);
        }
    }
}

void MachineGrid::ShowRow(int row)
{
    const QSignalBlocker quiet(this);
    if (row < 0) {
        setCurrentItem(nullptr);
        clearSelection();
        return;
    }
    setCurrentCell(row, std::max(0, currentColumn()));
    selectRow(row);
    scrollTo(model()->index(row, std::max(0, currentColumn())));
    FillView();
}

} // namespace korvanel
