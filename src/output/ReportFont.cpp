#include "output/ReportFont.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;
constexpr double kLinesPerSize = 1.2; ///< whatever font the system has in place of the wanted one, pages break alike

QFont FontOfSize(double points, bool isBold)
{
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::lround(points * kMillimetresPerPoint * kUnitsPerMillimetre)));
    font.setBold(isBold);
    font.setKerning(false); // a number is as wide as its digits
    // Letters that are put together are not found by who looks for a word. A space between them prevents it, though it
    // is the usual one.
    font.setLetterSpacing(QFont::PercentageSpacing, 100);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

ReportFont::ReportFont(int ofReport, double points, bool isBold)
    : number(ofReport), font(FontOfSize(points, isBold)), metrics(font),
      lineHeight(kLinesPerSize * points * kMillimetresPerPoint), ascent(metrics.ascent() / kUnitsPerMillimetre)
{
    for (std::size_t code = 0; code < advances.size(); ++code)
        advances.at(code) = metrics.horizontalAdvance(QChar(static_cast<char16_t>(code))) / kUnitsPerMillimetre;
}

double ReportFont::Width(QStringView text) const
{
    double width = 0;
    for (const QChar character : text) {
        if (character.unicode() >= advances.size())
            return metrics.horizontalAdvance(text.toString()) / kUnitsPerMillimetre;
        width += advances[character.unicode()];
    }
    return width;
}

qsizetype ReportFont::Fitting(QStringView text, double width) const
{
    qsizetype fitting = 0;
    double present = 0;
    while (fitting < text.size() && text[fitting].unicode() < advances.size()) {
        present += advances[text[fitting].unicode()];
        if (present > width)
            return fitting;
        ++fitting;
    }
    if (fitting == text.size())
        return fitting;
    // Of other scripts the neighbours decide on the shape. No character is narrower than nothing, so that a text with
    // more of them isn't narrower; a stretch is looked at that is surely too long. It doubles, since many characters
    // without a width make a long one.
    qsizetype stretch = 64;
    qsizetype tooMany = fitting + 1;
    for (; tooMany < text.size() && Width(text.first(tooMany)) <= width; stretch *= 2)
        tooMany = std::min(text.size(), tooMany + stretch);
    if (Width(text.first(tooMany)) <= width)
        return tooMany;
    qsizetype low = fitting;
    for (qsizetype high = tooMany; low + 1 < high;) {
        const qsizetype middle = (low + high) / 2;
        (Width(text.first(middle)) <= width ? low : high) = middle;
    }
    return low > 0 && low < text.size() && text[low].isLowSurrogate() ? low - 1 : low;
}

const ReportFont& ReportFonts::ByNumber(int number) const
{
    for (const ReportFont* font : {&title, &heading, &bold, &table, &tableHead, &small})
        if (font->Number() == number)
            return *font;
    return text;
}

} // namespace korvanel
