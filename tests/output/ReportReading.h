// The pages of a report as people read them: rows of words, and the title over each section.
#pragma once

#include "output/ReportFixture.h"

#include <algorithm>

namespace korvanel::test {

// The parts of a page, mm from its top.
inline constexpr double kEndOfHead = 41;
inline constexpr double kEndOfTitle = 51.5;
inline constexpr double kBeginOfFoot = 281.5;

using WordRow = std::vector<PdfWord>; ///< from left to right

inline QString TextOfRow(const WordRow& row, const QString& between = QStringLiteral(" "))
{
    QStringList words;
    for (const PdfWord& word : row)
        words << word.text;
    return words.join(between);
}

/// The rows of words between two heights.
inline std::vector<WordRow> RowsOf(const PdfPage& page, double top, double bottom)
{
    constexpr double kSameRow = 1.5;
    std::vector<PdfWord> words;
    std::ranges::copy_if(page.words, std::back_inserter(words), [=](const PdfWord& word) {
        const double middle = word.box.center().y();
        return middle > top && middle < bottom;
    });
    const auto middleOf = [](const PdfWord& word) { return word.box.center().y(); };
    std::ranges::stable_sort(words, {}, middleOf);
    std::vector<WordRow> rows;
    for (const PdfWord& word : words) {
        if (rows.empty() || middleOf(word) - middleOf(rows.back().front()) > kSameRow)
            rows.emplace_back();
        rows.back().push_back(word);
    }
    for (WordRow& row : rows)
        std::ranges::stable_sort(row, {}, [](const PdfWord& word) { return word.box.left(); });
    return rows;
}

/// What stands at the top of a page below its head.
inline QString TitleOfPage(const PdfPage& page)
{
    const std::vector<WordRow> rows = RowsOf(page, kEndOfHead, kEndOfTitle);
    return rows.empty() ? QString() : TextOfRow(rows.front());
}

/// The titles at the top of the pages, each once where it stands on pages that follow each other. A page that goes on
/// with what the page before has begun has none; it begins with the heads of a table.
inline QStringList TitlesOfReport(const PdfDocument& report, const QStringList& known)
{
    QStringList titles;
    for (const PdfPage& page : report.pages) {
        const QString title = TitleOfPage(page);
        if (known.contains(title) && (titles.isEmpty() || titles.back() != title))
            titles << title;
    }
    return titles;
}

inline std::vector<const PdfPage*> PagesWithTitle(const PdfDocument& report, const QString& title)
{
    std::vector<const PdfPage*> pages;
    for (const PdfPage& page : report.pages)
        if (TitleOfPage(page) == title)
            pages.push_back(&page);
    return pages;
}

/// No word leaves the width of the pages, and no two lie one upon another.
inline void ExpectWordsApart(const PdfDocument& report)
{
    constexpr double kLeft = 20;
    constexpr double kRight = 190;
    constexpr double kTolerance = 0.1;
    for (std::size_t number = 0; number < report.pages.size(); ++number) {
        SCOPED_TRACE("page " + std::to_string(number + 1));
        for (const WordRow& row : RowsOf(report.pages[number], 0, 297)) {
            EXPECT_GE(row.front().box.left(), kLeft - kTolerance) << TextOfRow(row).toStdString();
            for (std::size_t i = 0; i < row.size(); ++i) {
                EXPECT_LE(row[i].box.right(), kRight + kTolerance) << TextOfRow(row).toStdString();
                if (i > 0) {
                    EXPECT_GE(row[i].box.left(), row[i - 1].box.right() - kTolerance)
                        << row[i - 1].text.toStdString() << " and " << row[i].text.toStdString();
                }
            }
        }
    }
}

} // namespace korvanel::test
