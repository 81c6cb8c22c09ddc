// A result table on paper: its columns share the width by what stands in them, names to the left, values to the right.
#pragma once

#include "evaluation/WinManaging2.h"
#include "output/ReportText.h"

#include <vector>

namespace korvanel {

class ReportTable
{
public:
    /// Between two places, in millimetres.
    ReportTable(const ResultTable& ofResults, double left, double right, const ReportFonts& fonts);

    double HeadHeight() const { return rowHeight + 0.8; }
    double RowHeight() const { return rowHeight; }
    std::size_t RowCount() const { return results.rows.size(); }
    /// A heading doesn't stand at the foot of a page without the row that follows.
    bool StaysWithNext(std::size_t row) const;
    void DrawHead(ReportSurface& surface, double y) const;
    void DrawRow(ReportSurface& surface, std::size_t row, double y) const;

private:
    std::size_t ColumnCount() const { return widths.size(); }
    void MakeRoom(const ReportFonts& fonts);
    void DrawCells(ReportSurface& surface, const QStringList& cells, const ReportFont& font, double y) const;
    void DrawSpanned(ReportSurface& surface, const QStringList& cells, double y) const;
    double Left(std::size_t column) const;

    ResultTable results;
    double tableLeft;
    double tableRight;
    double rowHeight;
    std::vector<double> widths; ///< of the columns
};

} // namespace korvanel
