#include "output/ReportSets.h"

#include "core/Common.h"
#include "core/LocalFormats.h"
#include "core/clsSymbols.h"
#include "core/texts/FormF6Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "data/RowQuantities.h"
#include "data/ValueColumns.h"

#include <algorithm>
#include <memory>
#include <numeric>

namespace korvanel {

namespace {

constexpr double kSetWidth = 15;
constexpr double kTimeWidth = 17;
constexpr double kLeastColumn = 17;
constexpr double kPadding = 0.8;
constexpr int kRowsBetweenLines = 5;
const QColor kLightLine(200, 200, 200);

/// The places of a table on a page.
struct SetGeometry
{
    double headTop = kBodyTop + kTitleHeight;
    double rowsTop = 0;
    double rowHeight = 0;
    int rows = 0; ///< on a page

    explicit SetGeometry(const ReportFonts& fonts)
        : rowsTop(headTop + fonts.tableHead.LineHeight() + 1.2), rowHeight(fonts.table.LineHeight() + 0.3),
          rows(static_cast<int>((kBodyBottom - rowsTop) / rowHeight))
    {}
};

struct SetColumn
{
    int column = 0;
    double left = 0; ///< on the page
    double width = 0;
    bool isKnown = true; ///< the sets of the source hold it
};
using Block = std::vector<SetColumn>; ///< columns that stand side by side on a page

constexpr double kRoom = kBodyRight - kBodyLeft - kSetWidth - kTimeWidth;

double WidthOf(const Block& block)
{
    return std::accumulate(block.begin(), block.end(), 0.0,
                           [](double sum, const SetColumn& column) { return sum + column.width; });
}

/// Puts columns side by side as long as they fit and are not more than `most`.
std::vector<Block> FilledBlocks(const Block& columns, std::size_t most)
{
    std::vector<Block> blocks;
    for (const SetColumn& column : columns) {
        if (blocks.empty() || blocks.back().size() == most || WidthOf(blocks.back()) + column.width > kRoom)
            blocks.emplace_back();
        blocks.back().push_back(column);
    }
    return blocks;
}

/// The columns of a table, about equally many on each page, with their places.
std::vector<Block> Blocks(const SetTable& table, const ReportFonts& fonts)
{
    Block columns;
    for (const int column : table.columns)
        columns.push_back({.column = column,
                           .width = std::max(kLeastColumn, fonts.tableHead.Width(ColumnHeading(column)) + 2 * kPadding),
                           .isKnown = HasColumn(table.source, column)});
    std::vector<Block> blocks = FilledBlocks(columns, columns.size());
    if (blocks.empty())
        return blocks;
    const std::size_t even = (columns.size() + blocks.size() - 1) / blocks.size();
    if (std::vector<Block> evenly = FilledBlocks(columns, even); evenly.size() == blocks.size())
        blocks = std::move(evenly);
    for (Block& block : blocks) {
        const double share = (kRoom - WidthOf(block)) / static_cast<double>(block.size());
        double left = kBodyLeft + kSetWidth + kTimeWidth;
        for (SetColumn& column : block) {
            column.left = left;
            column.width += share;
            left += column.width;
        }
    }
    return blocks;
}

class SetPageDrawing
{
public:
    SetPageDrawing(const Block& ofBlock, ReportSurface& onSurface)
        : columns(ofBlock), surface(onSurface), geometry(onSurface.Fonts())
    {}

    void DrawHead(const QString& title)
    {
        const ReportFont& font = surface.Fonts().tableHead;
        DrawSectionTitle(surface, kBodyTop, title);
        PutCell(kBodyLeft, kSetWidth, geometry.headTop, texts::headSet, font);
        PutCell(kBodyLeft + kSetWidth, kTimeWidth, geometry.headTop, ColumnHeading(kColumnTime), font);
        for (const SetColumn& column : columns)
            PutCell(column.left, column.width, geometry.headTop, ColumnHeading(column.column), font);
        surface.DrawLine(kBodyLeft, geometry.rowsTop - 0.5, kBodyRight, geometry.rowsTop - 0.5);
    }

    /// One of the rows of the page, from 0 on.
    void DrawRow(int place, const SetReader& reader)
    {
        const ReportFont& font = surface.Fonts().table;
        const double y = geometry.rowsTop + place * geometry.rowHeight;
        const tValueRow& row = reader.Row();
        const QString mark = row.bEdit != 0 ? texts::reportCorrectedMark : QString();
        PutCell(kBodyLeft, kSetWidth, y, mark + QString::number(reader.Set()), font);
        PutCell(kBodyLeft + kSetWidth, kTimeWidth, y, SetText(row, {}, kColumnTime), font);
        for (const SetColumn& column : columns)
            PutCell(column.left, column.width, y,
                    column.isKnown ? SetText(row, {}, column.column) : texts::reportNoValue, font);
        if ((place + 1) % kRowsBetweenLines == 0) {
            const double line = y + geometry.rowHeight - 0.1;
            surface.DrawLine(kBodyLeft, line, kBodyRight, line, 0.1, kLightLine);
        }
    }

private:
    void PutCell(double left, double cellWidth, double y, const QString& text, const ReportFont& font)
    {
        surface.FitText(left + kPadding, left + cellWidth - kPadding, y, text, font, Qt::AlignRight);
    }

    const Block& columns;
    ReportSurface& surface;
    SetGeometry geometry;
};

void DrawSetPage(const SetTable& table, const Block& block, qint32 firstSet, qint32 lastSet, ReportSurface& surface)
{
    SetPageDrawing page(block, surface);
    page.DrawHead(table.title);
    const ProjectDbScope scope;
    WithDbErrors([&] {
        SetReader reader(ProjectDb(), App().iNetConfIndex, SetRange::Between, table.source);
        reader.Seek(firstSet, lastSet);
        for (int place = 0; reader.Next(); ++place)
            page.DrawRow(place, reader);
    });
}

} // namespace

bool HasColumn(SetSource source, int column)
{
    if (column < 0)
        return true;
    if (source != SetSource::Simulated)
        return std::ranges::binary_search(StoredQuantities(App().iNetConfIndex), column);
    return std::ranges::any_of(ValueColumns(), [column](const ValueColumn& stored) {
        return stored.quantity == column && stored.simulatedPosition > 0;
    });
}

ReportRun SetPages(int section, const SetTable& table, const ReportFonts& fonts)
{
    const auto blocks = std::make_shared<std::vector<Block>>(Blocks(table, fonts));
    const int rows = SetGeometry(fonts).rows;
    const qint64 sets = std::max<qint64>(0, static_cast<qint64>(table.lastSet) - table.firstSet + 1);
    const auto blockCount = static_cast<int>(blocks->size());
    const auto sheets = static_cast<int>((sets + rows - 1) / rows);
    return {.section = section, .pages = sheets * blockCount, .draw = [=](ReportSurface& surface, int page) {
                const qint64 first = table.firstSet + static_cast<qint64>(page / blockCount) * rows;
                const qint64 last = std::min<qint64>(table.lastSet, first + rows - 1);
                DrawSetPage(table, blocks->at(static_cast<std::size_t>(page % blockCount)), static_cast<qint32>(first),
                            static_cast<qint32>(last), surface);
            }};
}

} // namespace korvanel
