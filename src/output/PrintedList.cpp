#include "output/PrintedList.h"

#include "core/NumberText.h"
#include "core/clsSymbols.h"
#include "core/texts/FormH16Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "core/window/PlainToolTip.h"
#include "output/ReportContent.h"
#include "output/ReportSets.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableWidget>

namespace korvanel {

namespace {

/// Values are judged on other pages; on paper they are black.
SetJudge NoJudge()
{
    return {.colourOf = [](double, int) { return 0; },
            .verdictOn = [](const tValueRow&) { return SetJudge::Verdict{}; },
            .words = {}};
}

} // namespace

bool HasRowsOfSecondMachine()
{
    return App().MachineII.evaluation.lSets > 0;
}

PrintedList::PrintedList(int index)
    : SetList(NoJudge(), index == 0 ? "flxMotor_0" : "flxMotor_1"),
      source(index == 0 ? SetSource::Measured : SetSource::Simulated)
{
    for (const int column : ColumnsOfBothMachines())
        columns.push_back(static_cast<qint16>(column));
    states.resize(columns.size());
    Bar().setObjectName(QStringLiteral("scrMotor_%1").arg(index));
    setContextMenuPolicy(Qt::NoContextMenu); // the columns stand as on paper
    setToolTip({});
    connect(Table().horizontalHeader(), &QHeaderView::sectionClicked, this, [this](int section) {
        if (section >= FixedColumns())
            emit HeadClicked(columns.at(static_cast<std::size_t>(section - FixedColumns())));
    });
}

std::span<const qint16> PrintedList::Columns() const
{
    return columns;
}

bool PrintedList::Visit(qint32 first, qint32 last, const std::function<bool(const ShownSet&)>& visit)
{
    if (source != SetSource::Simulated)
        return VisitSets(first, last, visit);
    return !HasRowsOfSecondMachine() || VisitSimulatedSets(first, last, visit);
}

void PrintedList::FillHead()
{
    SetList::FillHead();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        const bool isOn = App().PrChecks.at(static_cast<std::size_t>(columns[i])) > 0;
        states[i] = {.isKnown = HasColumn(source, columns[i]), .isOn = isOn};
        QTableWidgetItem& head = *Table().horizontalHeaderItem(FixedColumns() + static_cast<int>(i));
        const QString heading = ColumnHeading(columns[i]);
        head.setForeground(isOn ? QBrush() : palette().brush(QPalette::Disabled, QPalette::ButtonText));
        head.setData(Qt::AccessibleTextRole, isOn ? heading : FillPlaceholders(texts::printBothColumnOff, {heading}));
        head.setToolTip(PlainToolTip(texts::printBothColumnTip));
    }
}

void PrintedList::FillRow(int row, const QString& number, const ShownSet& shown)
{
    SetList::FillRow(row, number, shown);
    const QBrush grey = palette().brush(QPalette::Disabled, QPalette::Text);
    const ReportSets sets = SetsOfReport();
    const bool isIn = shown.set >= sets.first && shown.set <= sets.last;
    for (int i = 0; i < Table().columnCount(); ++i) {
        const Printed state = i < FixedColumns() ? Printed{} : states.at(static_cast<std::size_t>(i - FixedColumns()));
        QTableWidgetItem& cell = *Table().item(row, i);
        if (!state.isKnown)
            cell.setText(texts::reportNoValue);
        if (!isIn || !state.isOn)
            cell.setForeground(grey);
    }
}

} // namespace korvanel
