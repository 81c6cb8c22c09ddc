#include "output/ReportFlow.h"

#include "output/ReportTable.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace korvanel {

namespace {

constexpr double kBodyWidth = kBodyRight - kBodyLeft;
constexpr double kColumnGap = 5;
constexpr double kRowGap = 0.4; ///< between the lines of items

/// Whether a label is put into one line, were it condensed a little.
bool FitsOneLine(const QString& label, double width, const ReportFont& font)
{
    constexpr double kCondensed = 0.85;
    return font.Width(label) * kCondensed <= width;
}

/// Where column `index` of `count` begins.
double ColumnLeft(int index, int count)
{
    return kBodyLeft + index * (kBodyWidth + kColumnGap) / count;
}

double ColumnWidth(int count)
{
    return (kBodyWidth + kColumnGap) / count - kColumnGap;
}

} // namespace

void DrawSectionTitle(ReportSurface& surface, double y, const QString& title)
{
    surface.FitText(kBodyLeft, kBodyRight, y, title, surface.Fonts().heading);
    const double line = y + surface.Fonts().heading.LineHeight() + 0.6;
    surface.DrawLine(kBodyLeft, line, kBodyRight, line, 0.3);
}

void ReportFlow::AddTitle(const QString& title)
{
    Add({.height = kTitleHeight,
         .draw = [title](ReportSurface& surface, double y) { DrawSectionTitle(surface, y, title); },
         .staysWithNext = true});
}

void ReportFlow::AddHeading(const QString& text)
{
    Add({.height = fonts.bold.LineHeight() + 2,
         .draw = [text](ReportSurface& surface,
                        double y) { surface.FitText(kBodyLeft, kBodyRight, y + 0.8, text, surface.Fonts().bold); },
         .staysWithNext = true});
}

void ReportFlow::AddGap(double height)
{
    Add({.height = height, .draw = {}});
}

void ReportFlow::AddItems(const std::vector<ReportItem>& items, int columns, int mostLines)
{
    const double labelWidth = columns == 1 ? 50 : 44;
    const double valueWidth = ColumnWidth(columns) - labelWidth;
    const int rows = (static_cast<int>(items.size()) + columns - 1) / columns;
    for (int row = 0; row < rows; ++row) {
        std::vector<std::pair<int, ReportItem>> beside; // with their columns
        qsizetype most = 1;
        const double mostHeight = mostLines * fonts.text.LineHeight();
        for (int column = 0; column < columns; ++column) {
            const auto place =
                static_cast<std::size_t>(column) * static_cast<std::size_t>(rows) + static_cast<std::size_t>(row);
            if (place >= items.size())
                continue;
            beside.emplace_back(column, items[place]);
            most = std::max(most, LinesInBox(items[place].value, valueWidth, mostHeight, fonts.text).size());
            if (!FitsOneLine(items[place].label, labelWidth - 1, fonts.text))
                most = std::max(most, LinesInBox(items[place].label, labelWidth - 1, mostHeight, fonts.text).size());
        }
        const double height = static_cast<double>(most) * fonts.text.LineHeight();
        Add({.height = height + kRowGap, .draw = [=](ReportSurface& surface, double y) {
                 for (const auto& [column, item] : beside) {
                     const double left = ColumnLeft(column, columns);
                     if (FitsOneLine(item.label, labelWidth - 1, surface.Fonts().text))
                         surface.FitText(left, left + labelWidth - 1, y, item.label, surface.Fonts().text);
                     else
                         surface.PrintText(QRectF(left, y, labelWidth - 1, height), item.label, surface.Fonts().text);
                     surface.PrintText(QRectF(left + labelWidth, y, valueWidth, height), item.value,
                                       surface.Fonts().text);
                 }
             }});
    }
}

void ReportFlow::AddLines(const QStringList& texts, int columns)
{
    const auto rows = (texts.size() + columns - 1) / columns;
    for (qsizetype row = 0; row < rows; ++row)
        Add({.height = fonts.table.LineHeight() + kRowGap, .draw = [=](ReportSurface& surface, double y) {
                 for (int column = 0; column < columns; ++column) {
                     const double left = ColumnLeft(column, columns);
                     surface.FitText(left, left + ColumnWidth(columns), y, texts.value(column * rows + row),
                                     surface.Fonts().table);
                 }
             }});
}

void ReportFlow::AddTable(const ResultTable& results)
{
    const auto table = std::make_shared<ReportTable>(results, kBodyLeft, kBodyRight, fonts);
    const std::size_t head = lines.size();
    Add({.height = table->HeadHeight(),
         .draw = [table](ReportSurface& surface, double y) { table->DrawHead(surface, y); },
         .staysWithNext = true});
    for (std::size_t row = 0; row < table->RowCount(); ++row)
        Add({.height = table->RowHeight(),
             .draw = [table, row](ReportSurface& surface, double y) { table->DrawRow(surface, row, y); },
             .staysWithNext = table->StaysWithNext(row),
             .repeated = head});
    AddGap(3);
}

double ReportFlow::HeightWithNext(std::size_t line) const
{
    double height = lines[line].height;
    while (lines[line].staysWithNext && line + 1 < lines.size())
        height += lines[++line].height;
    return height;
}

ReportRun ReportFlow::Run(int section)
{
    std::vector<std::vector<Place>> pages(1);
    double y = kBodyTop;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (!lines[i].draw) { // at the end of a page it separates nothing
            y += lines[i].height;
            continue;
        }
        if (y + HeightWithNext(i) > kBodyBottom && !pages.back().empty()) {
            pages.emplace_back();
            y = kBodyTop;
            if (const auto repeated = lines[i].repeated) {
                pages.back().push_back({.line = *repeated, .y = y});
                y += lines[*repeated].height;
            }
        }
        pages.back().push_back({.line = i, .y = y});
        y += lines[i].height;
    }
    const auto count = static_cast<int>(pages.size());
    auto content = std::make_shared<std::pair<std::vector<Line>, std::vector<std::vector<Place>>>>(std::move(lines),
                                                                                                   std::move(pages));
    return {.section = section, .pages = count, .draw = [content](ReportSurface& surface, int page) {
                for (const Place& place : content->second.at(static_cast<std::size_t>(page)))
                    content->first[place.line].draw(surface, place.y);
            }};
}

} // namespace korvanel
