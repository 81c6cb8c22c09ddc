// What stands one under another on the pages of a section: titles, items, texts, result tables, line by line and broken
// over pages where one is full. A table that goes on has its heads again.
#pragma once

#include "evaluation/WinManaging2.h"
#include "output/ReportRun.h"

#include <functional>
#include <optional>
#include <vector>

namespace korvanel {

/// The part of the page between head and foot, in millimetres of A4 upright.
inline constexpr double kBodyLeft = 20;
inline constexpr double kBodyRight = 190;
inline constexpr double kBodyTop = 43;
inline constexpr double kBodyBottom = 279;

/// A label and what stands behind it.
struct ReportItem
{
    QString label;
    QString value;
};

/// The title of a section at the top of its pages; the height that it takes is `kTitleHeight`.
inline constexpr double kTitleHeight = 9;
void DrawSectionTitle(ReportSurface& surface, double y, const QString& title);

class ReportFlow
{
public:
    explicit ReportFlow(const ReportFonts& ofReport) : fonts(ofReport) {}

    void AddTitle(const QString& title);
    void AddHeading(const QString& text);
    void AddGap(double height);
    /// Items side by side in so many columns, one column after the other. A value that is longer than its place is
    /// broken into at most so many lines.
    void AddItems(const std::vector<ReportItem>& items, int columns = 1, int mostLines = 2);
    /// Lines side by side in so many columns.
    void AddLines(const QStringList& lines, int columns = 1);
    void AddTable(const ResultTable& table);

    /// The pages, when everything is there.
    ReportRun Run(int section);

private:
    struct Line
    {
        double height;
        std::function<void(ReportSurface& surface, double y)> draw; ///< none of a gap
        bool staysWithNext = false;
        std::optional<std::size_t> repeated = {}; ///< line that stands above this one on a new page
    };
    struct Place
    {
        std::size_t line;
        double y;
    };
    void Add(Line line) { lines.push_back(std::move(line)); }
    double HeightWithNext(std::size_t line) const;

    const ReportFonts& fonts;
    std::vector<Line> lines;
};

} // namespace korvanel
