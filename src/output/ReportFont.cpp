#include "output/ReportFont.h"

#include <algorithm>
#include <cmath>

namespace korvanel {

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

QFont FontOfSize(double points, bool isBold)
{
    QFont font(QStringLiteral("Arial"));
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(std::lround(points * kMillimetresPerPoint * kUnitsPerMillimetre)));
    font.setBold(isBold);
    font.setKerning(false); // a number is as wide as its digits
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

} // namespace

ReportFont::ReportFont(double points, bool isBold)
    : font(FontOfSize(points, isBold)), metrics(font), lineHeight(metrics.height() / kUnitsPerMillimetre),
      ascent(metrics.ascent() / kUnitsPerMillimetre)
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
    // more of them isn't narrower; a stretch is looked at that is surely too long.
    constexpr qsizetype kStretch = 64;
    qsizetype tooMany = fitting + 1;
    while (tooMany < text.size() && Width(text.first(tooMany)) <= width)
        tooMany = std::min(text.size(), tooMany + kStretch);
    if (Width(text.first(tooMany)) <= width)
        return tooMany;
    qsizetype low = fitting;
    for (qsizetype high = tooMany; low + 1 < high;) {
        const qsizetype middle = (low + high) / 2;
        (Width(text.first(middle)) <= width ? low : high) = middle;
    }
    return low > 0 && low < text.size() && text[low].isLowSurrogate() ? low - 1 : low;
}

} // namespace korvanel
