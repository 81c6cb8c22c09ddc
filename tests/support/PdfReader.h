// A PDF document as its reader sees it: the tools of another author tell pages, words and places.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>

#include <vector>

namespace korvanel::test {

struct PdfWord
{
    QString text;
    QRectF box; ///< in millimetres from the upper left corner of the page; as high as the font, not as the letters
};

struct PdfPage
{
    QSizeF size; ///< in millimetres
    std::vector<PdfWord> words;
    QString text; ///< in lines, words apart as on the page

    /// The first word of that text; none gives one without text.
    PdfWord Word(const QString& wanted) const;
};

struct PdfDocument
{
    QString title;
    QString author;
    std::vector<PdfPage> pages;
};

/// Throws std::runtime_error if the file is no PDF document.
PdfDocument ReadPdf(const QString& file);

/// A page, counted from 1, as it is printed. Throws std::runtime_error if there is no such page.
QImage PdfPageImage(const QString& file, int page, int dotsPerInch);

} // namespace korvanel::test
