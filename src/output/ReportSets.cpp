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
        : rowsTop(headTop + fonts.tableHead.LineHeight() + 1.2), rowHeight(fonts.table.LineHeight() + 0.35),
          rows(static_cast<int>((kBodyBottom - rowsTop) / rowHeight))
    {}
};

/// The columns of a table in groups that each fit into the width, about equally many in each.
std::vector<std::vector<int>> Blocks(const std::vector<int>& columns)
{
    constexpr auto kMost = static_cast<std::size_t>((kBodyRight - kBodyLeft - kSetWidth - kTimeWidth) / kLeastColumn);
    const std::size_t count = (columns.size() + kMost - 1) / kMost;
    std::vector<std::vector<int>> blocks;
    for (std::size_t i = 0; i < count; ++i)
        blocks.emplace_back(columns.begin() + static_cast<std::ptrdiff_t>(i * columns.size() / count),
                            columns.begin() + static_cast<std::ptrdiff_t>((i + 1) * columns.size() / count));
    return blocks;
}

class SetPageDrawing
{
public:
    SetPageDrawing(const SetTable& ofTable, const std::vector<int>& ofBlock, ReportSurface& onSurface)
        : table(ofTable), columns(ofBlock), surface(onSurface), geometry(onSurface.Fonts()),
          width((kBodyRight - kBodyLeft - kSetWidth - kTimeWidth) / static_cast<double>(ofBlock.size()))
    {}

    void DrawHead()
    {
        const ReportFont& font = surface.Fonts().tableHead;
        DrawSectionTitle(surface, kBodyTop, table.title);
        PutCell(kBodyLeft, kSetWidth, geometry.headTop, texts::headSet, font);
        PutCell(kBodyLeft + kSetWidth, kTimeWidth, geometry.headTop, ColumnHeading(kColumnTime), font);
        for (std::size_t i = 0; i < columns.size(); ++i)
            PutCell(Left(i), width, geometry.headTop, ColumnHeading(columns[i]), font);
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
        for (std::size_t i = 0; i < columns.size(); ++i)
            PutCell(Left(i), width, y,
                    HasColumn(table.source, columns[i]) ? SetText(row, {}, columns[i]) : texts::reportNoValue, font);
        if ((place + 1) % kRowsBetweenLines == 0) {
            const double line = y + geometry.rowHeight - 0.1;
            surface.DrawLine(kBodyLeft, line, kBodyRight, line, 0.1, kLightLine);
        }
    }

private:
    double Left(std::size_t column) const
    {
        return kBodyLeft + kSetWidth + kTimeWidth + static_cast<double>(column) * width;
    }
    void PutCell(double left, double cellWidth, double y, const QString& text, const ReportFont& font)
    {
        surface.FitText(left + kPadding, left + cellWidth - kPadding, y, text, font, Qt::AlignRight);
    }

    const SetTable& table;
    const std::vector<int>& columns;
    ReportSurface& surface;
    SetGeometry geometry;
    double width;
};

void DrawSetPage(const SetTable& table, const std::vector<int>& block, qint32 firstSet, qint32 lastSet,
                 ReportSurface& surface)
{
    SetPageDrawing page(table, block, surface);
    page.DrawHead();
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
    if (source != SetSource::Simulated || column < 0)
        return true;
    return std::ranges::any_of(ValueColumns(), [column](const ValueColumn& stored) {
        return stored.quantity == column && stored.simulatedPosition > 0;
    });
}

ReportRun SetPages(int section, const SetTable& table, const ReportFonts& fonts)
{
    const auto blocks = std::make_shared<std::vector<std::vector<int>>>(Blocks(table.columns));
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
