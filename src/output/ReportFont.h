// The type of a report, measured in millimetres of the paper. All devices share one measure, so that screen, printer
// and file break lines and pages in the same places.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QStringView>

#include <array>

namespace korvanel {

/// Units of the drawing in a millimetre: what a report's painter counts in.
inline constexpr double kUnitsPerMillimetre = 100;

class ReportFont
{
public:
    /// `number` is its own among the fonts of a report.
    ReportFont(int ofReport, double points, bool isBold = false);

    int Number() const { return number; }

    /// For a painter that counts in hundredths of a millimetre.
    const QFont& Font() const { return font; }
    /// mm
    double Width(QStringView text) const;
    double LineHeight() const { return lineHeight; }
    double Ascent() const { return ascent; }
    /// How many characters from the begin of a text fit into a width; a character of two code units is not cut.
    qsizetype Fitting(QStringView text, double width) const;

private:
    int number;
    QFont font;
    QFontMetricsF metrics;
    double lineHeight;
    double ascent;
    std::array<double, 0x250> advances{}; ///< mm, of the Latin letters, which stand by themselves
};

/// The sizes of a report.
struct ReportFonts
{
    ReportFont title{0, 15, true};
    ReportFont heading{1, 11, true};
    ReportFont text{2, 9};
    ReportFont bold{3, 9, true};
    ReportFont table{4, 8};
    ReportFont tableHead{5, 8, true};
    ReportFont small{6, 7};

    /// The font of a number; the one for texts for a number that none has.
    const ReportFont& ByNumber(int number) const;
};

} // namespace korvanel
