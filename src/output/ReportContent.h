// What stands in a report: its sections in the order of each net configuration, the columns of their tables, the sets
// that are chosen.
#pragma once

#include "output/Report.h"

#include <QtGlobal>

#include <span>
#include <vector>

namespace korvanel {

/// The sections that a net configuration can have, in the order of their pages; none where nothing is reported.
std::span<const int> ReportSections(int netConf);

/// The columns of a section's table of sets: those of the layout that belong to it and are switched on in `PrChecks`.
/// Empty for a section without such a table.
std::vector<int> ReportColumns(int section);

/// The columns that the tables of both machines can have, whatever is switched on.
std::vector<int> ColumnsOfBothMachines();

/// First and last of the sets that the tables show: what is chosen, within the recording and in ascending order.
struct ReportSets
{
    qint32 first = 1;
    qint32 last = 0;
};
ReportSets SetsOfReport();

/// Whether a section is switched on that shows results of the evaluation; the tables of the measured sets don't.
bool ReportShowsResults();

/// The report of the project, by `PrintIt`; without pages where nothing is switched on.
Report ReportOfProject();

/// Adds a section that shows both machines, or one of them beside the other: of the indices 5, 6, 14 and 15, whatever
/// `PrintIt` says. Any other index adds nothing.
void PrintSection(Report& report, int section);

} // namespace korvanel
