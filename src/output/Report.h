// A report as pages that can be counted beforehand and drawn one by one, on a printer, into a file or on the screen.
// What it shows are the results in hand and the sets of the file; it computes nothing.
#pragma once

#include "output/ReportRun.h"

#include <QSizeF>

#include <memory>
#include <utility>
#include <vector>

namespace korvanel {

/// A4 upright, mm.
inline constexpr QSizeF kPaper(210, 297);

class Report
{
public:
    Report();

    const ReportFonts& Fonts() const { return *fonts; }
    const DiagramSources& Sources() const { return sources; }
    /// Adds pages behind those that are there; of a run without pages nothing is kept.
    void Add(ReportRun run);

    int PageCount() const { return pageCount; }
    /// How many pages a section takes.
    int PagesOf(int section) const;

    /// Does for a page, from 1 on, what its drawing would have to wait for, for about so many milliseconds; true when
    /// nothing is left. Throws DbError.
    bool Prepare(int page, int milliseconds) const;
    /// Draws a page. Throws DbError.
    void DrawPage(ReportPaper& paper, int page) const;

private:
    std::pair<const ReportRun*, int> Find(int page) const;

    std::shared_ptr<const ReportFonts> fonts;
    DiagramSources sources;
    std::vector<ReportRun> runs;
    int pageCount = 0;
};

} // namespace korvanel
