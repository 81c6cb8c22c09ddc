// What a section of a report gives: pages that follow each other, and how one of them is drawn.
#pragma once

#include "diagrams/SetValues.h"
#include "output/ReportText.h"

#include <functional>
#include <memory>

namespace korvanel {

/// The sections by their index in `PrintIt`.
enum ReportSection
{
    kReportOverview = 0,
    kReportExtremes = 1,
    kReportEnergy = 2,
    kReportSets = 3,
    kReportUtilisation = 4,
    kReportMachineSets = 5,
    kReportSecondMachineSets = 6,
    kReportRegisters = 7,
    kReportPhase1 = 8,
    kReportPhase3 = 10,
    kReportAllCurves = 11,
    kReportOneCurve = 12,
    kReportMachine = 13,
    kReportBothOverview = 14,
    kReportBothUtilisation = 15,
};

/// Pages of a report that follow each other. A page is drawn by its number and needs none of the others.
struct ReportRun
{
    int section = 0; ///< of `PrintIt`
    int pages = 0;
    /// Draws a page, from 0 on, between head and foot. Throws DbError.
    std::function<void(ReportSurface& surface, int page)> draw;
    /// Does what a drawing would have to wait for, for about so many milliseconds; true when nothing is left. Throws
    /// DbError. None: there is nothing.
    std::function<bool(int milliseconds)> prepare = {};
};

/// What diagrams are drawn from.
struct DiagramSources
{
    std::shared_ptr<SetValues> measured;
    std::shared_ptr<SetValues> simulated; ///< of the second machine
};

} // namespace korvanel
