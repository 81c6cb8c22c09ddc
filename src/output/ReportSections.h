// The sections of a report: each makes pages of results that are there already. Which of them stand in a report, and in
// which order, is told elsewhere.
#pragma once

#include "output/ReportRun.h"

namespace korvanel {

/// The project in two blocks, and the machine's data below them where it has one and they are wanted.
ReportRun OverviewPages(const ReportFonts& fonts, bool hasOverview, bool hasMachine);
/// The project and both machines side by side.
ReportRun BothOverviewPages(const ReportFonts& fonts);
ReportRun ExtremePages(const ReportFonts& fonts);
ReportRun EnergyPages(const ReportFonts& fonts);
ReportRun UtilisationPages(const ReportFonts& fonts);
ReportRun BothUtilisationPages(const ReportFonts& fonts);

/// The diagrams of the page of the diagrams, each if it is wanted: the curves that are on, and the chosen one. None for
/// a recording of less than two sets.
ReportRun DiagramPages(const DiagramSources& sources, bool hasAllCurves, bool hasOneCurve);

} // namespace korvanel
