#include "output/ReportTable.h"

#include "core/Colour.h"

#include <algorithm>
#include <numeric>

namespace korvanel {

namespace {

constexpr double kCellPadding = 1; ///< to both sides of a cell
constexpr std::size_t kNames = 2;  ///< columns that hold names; the others hold values
const QColor kHeadingFill(236, 236, 236);

Qt::AlignmentFlag SideOf(std::size_t column)
{
    return column < kNames ? Qt::AlignLeft : Qt::AlignRight;
}

} // namespace

ReportTable::ReportTable(const ResultTable& ofResults, double left, double right, const ReportFonts& fonts)
    : results(ofResults), tableLeft(left), tableRight(right), rowHeight(fonts.table.LineHeight() + 0.6)
{
    MakeRoom(fonts);
}

void ReportTable::MakeRoom(const ReportFonts& fonts)
{
    for (const QString& head : results.heads)
        widths.push_back(fonts.tableHead.Width(head));
    for (const ResultRow& row : results.rows) {
        if (row.kind == ResultRowKind::Heading || row.kind == ResultRowKind::Spanned)
            continue;
        const ReportFont& font = row.kind == ResultRowKind::Head ? fonts.tableHead : fonts.table;
        for (std::size_t i = 0; i < widths.size(); ++i)
            widths[i] = std::max(widths[i], font.Width(row.cells.value(static_cast<qsizetype>(i))));
    }
    for (double& width : widths)
        width += 2 * kCellPadding;
    const double needed = std::accumulate(widths.begin(), widths.end(), 0.0);
    const double there = tableRight - tableLeft;
    if (needed > there) { // the names keep their room, the values are condensed alike
        const auto values = widths.begin() + static_cast<std::ptrdiff_t>(std::min(kNames, widths.size()));
        const double ofValues = std::accumulate(values, widths.end(), 0.0);
        std::for_each(values, widths.end(), [&](double& width) { width *= (there - needed + ofValues) / ofValues; });
        return;
    }
    const std::size_t sharing = widths.size() > kNames ? widths.size() - kNames : 0;
    for (std::size_t i = kNames; i < widths.size(); ++i)
        widths[i] += (there - needed) / static_cast<double>(sharing);
}

bool ReportTable::StaysWithNext(std::size_t row) const
{
    return results.rows[row].kind != ResultRowKind::Values;
}

double ReportTable::Left(std::size_t column) const
{
    return std::accumulate(widths.begin(), widths.begin() + static_cast<std::ptrdiff_t>(column), tableLeft);
}

void ReportTable::DrawCells(ReportSurface& surface, const QStringList& cells, const ReportFont& font, double y) const
{
    for (std::size_t i = 0; i < ColumnCount(); ++i)
        surface.FitText(Left(i) + kCellPadding, Left(i + 1) - kCellPadding, y, cells.value(static_cast<qsizetype>(i)),
                        font, SideOf(i));
}

void ReportTable::DrawSpanned(ReportSurface& surface, const QStringList& cells, double y) const
{
    for (std::size_t i = 0, next = 0; i < ColumnCount(); i = next) {
        next = i + 1;
        while (next < ColumnCount() && cells.value(static_cast<qsizetype>(next)).isEmpty())
            ++next;
        surface.FitText(Left(i) + kCellPadding, Left(next) - kCellPadding, y, cells.value(static_cast<qsizetype>(i)),
                        surface.Fonts().tableHead, i < kNames ? Qt::AlignLeft : Qt::AlignHCenter);
    }
}

void ReportTable::DrawHead(ReportSurface& surface, double y) const
{
    DrawCells(surface, results.heads, surface.Fonts().tableHead, y);
    surface.DrawLine(tableLeft, y + rowHeight - 0.2, tableRight, y + rowHeight - 0.2);
}

void ReportTable::DrawRow(ReportSurface& surface, std::size_t index, double y) const
{
    const ResultRow& row = results.rows[index];
    switch (row.kind) {
    case ResultRowKind::Heading:
        surface.FillBox(QRectF(tableLeft, y, tableRight - tableLeft, rowHeight - 0.3), kHeadingFill);
        surface.FitText(tableLeft + kCellPadding, tableRight - kCellPadding, y + 0.3, row.cells.value(0),
                        surface.Fonts().tableHead);
        return;
    case ResultRowKind::Spanned:
        DrawSpanned(surface, row.cells, y);
        return;
    case ResultRowKind::Head:
        DrawCells(surface, row.cells, surface.Fonts().tableHead, y);
        return;
    case ResultRowKind::Values:
        break;
    }
    for (std::size_t i = 0; i < ColumnCount(); ++i) {
        const qint32 own = i < row.colours.size() ? row.colours[i] : 0;
        const qint32 colour = i + 1 == ColumnCount() && row.lastColour != 0 ? row.lastColour : own;
        surface.FitText(Left(i) + kCellPadding, Left(i + 1) - kCellPadding, y,
                        row.cells.value(static_cast<qsizetype>(i)), surface.Fonts().table, SideOf(i), ColourOf(colour));
    }
}

} // namespace korvanel
