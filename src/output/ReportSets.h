// A table of sets on paper: numbers and times of the sets, and behind them the columns that fit; columns that don't
// stand on the next page, with the same sets. A page reads its sets and no others.
#pragma once

#include "data/SetReader.h"
#include "output/ReportFlow.h"

#include <vector>

namespace korvanel {

struct SetTable
{
    QString title;
    std::vector<int> columns; ///< of the grids
    SetSource source = SetSource::Measured;
    qint32 firstSet = 1;
    qint32 lastSet = 1;
};

/// The pages of a table, none without columns or sets.
ReportRun SetPages(int section, const SetTable& table, const ReportFonts& fonts);

/// Whether the sets of a source hold a column in the net configuration: of the second machine some aren't known.
bool HasColumn(SetSource source, int column);

} // namespace korvanel
