// What stands one under another on the pages of a section: titles, items, texts, result tables, line by line and broken
// over pages where one is full. A table that goes on has its heads again.
#pragma once

#include "evaluation/WinManaging2.h"
#include "output/ReportText.h"

#include <functional>
#include <optional>
#include <vector>

namespace korvanel {

/// The part of the page between head and foot, in millimetres of A4 upright.
inline constexpr double kBodyLeft = 20;
inline constexpr double kBodyRight = 190;
inline constexpr double kBodyTop = 43;
inline constexpr double kBodyBottom = 279;

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
