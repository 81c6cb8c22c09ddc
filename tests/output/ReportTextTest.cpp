// Texts of a report: where they are broken into lines, where they are cut.
#include "output/ReportText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace korvanel::test {
namespace {

constexpr qsizetype kLongest = 32'767; // of a text that a user can type
constexpr double kRounding = 1e-6;
const QString kBreakSigns = QStringLiteral(" .,;:!?-+");

class ReportTextTest : public ::testing::Test
{
protected:
    /// A width in which a text fits, and nothing that is longer.
    double Just(const QString& text) const { return font.Width(text) + kRounding; }

    static QStringList Paragraphs(const QString& text)
    {
        return QString(text).replace("\r\n", "\n").replace('\r', '\n').split('\n');
    }
    /// One character, which can be two code units; half a character takes its neighbour with it.
    static bool IsOneCharacter(const QString& text)
    {
        return text.size() == 1 || (text.size() == 2 && text.front().isHighSurrogate());
    }

    /// The lines of Latin letters, found by trying each length.
    QStringList TriedLines(const QString& text, double width) const
    {
        QStringList lines;
        for (QString rest : Paragraphs(text)) {
            do {
                qsizetype fitting = 1;
                qsizetype behindSign = 0;
                for (qsizetype length = 1; length <= rest.size(); ++length) {
                    if (font.Width(rest.left(length)) > width)
                        continue;
                    fitting = length;
                    if (kBreakSigns.contains(rest[length - 1]))
                        behindSign = length;
                }
                const qsizetype length = fitting < rest.size() && behindSign > 0 ? behindSign : fitting;
                lines << rest.left(length);
                rest = rest.mid(length);
            } while (!rest.isEmpty());
        }
        return lines;
    }

    QString RandomText(const QStringList& pieces, int mostPieces)
    {
        QString text;
        const int count = std::uniform_int_distribution(0, mostPieces)(random);
        for (int i = 0; i < count; ++i)
            text += pieces[std::uniform_int_distribution<qsizetype>(0, pieces.size() - 1)(random)];
        return text;
    }
    static std::string Told(const QString& text) { return text.toUtf8().toPercentEncoding(" ").toStdString(); }

    ReportFonts fonts;
    const ReportFont& font = fonts.text;
    std::mt19937 random{20260314};
};

TEST_F(ReportTextTest, TextThatFits_IsOneLine)
{
    EXPECT_EQ(WrapText("Förderband, Halle 3", 170, font), QStringList{"Förderband, Halle 3"});
    EXPECT_EQ(WrapText("Motor", Just("Motor"), font), QStringList{"Motor"});
    EXPECT_EQ(WrapText("", 170, font), QStringList{""});
}

TEST_F(ReportTextTest, EachLineEnd_BeginsALine)
{
    EXPECT_EQ(WrapText("a\rb\nc\r\nd", 170, font), (QStringList{"a", "b", "c", "d"}));
    EXPECT_EQ(WrapText("a\n\nb", 170, font), (QStringList{"a", "", "b"}));
    EXPECT_EQ(WrapText("a\n\rb", 170, font), (QStringList{"a", "", "b"})) << "these two are two";
    EXPECT_EQ(WrapText("\r\n", 170, font), (QStringList{"", ""}));
    EXPECT_EQ(WrapText("a\r", 170, font), (QStringList{"a", ""}));
}

TEST_F(ReportTextTest, LineThatIsTooLong_IsBrokenBehindEachOfTheSigns)
{
    for (const QChar sign : kBreakSigns) {
        const QString begin = QString("Halle") + sign;
        const QString text = begin + "Motor";
        EXPECT_EQ(WrapText(text, Just(begin + "Mo"), font), (QStringList{begin, "Motor"}))
            << QString(sign).toStdString();
        EXPECT_EQ(WrapText(text, Just(begin), font).constFirst(), begin) << "the sign itself just fits";
    }
    EXPECT_EQ(WrapText("Halle/Motor", Just("Halle/Mot"), font), (QStringList{"Halle/Mot", "or"}))
        << "no line is broken behind another sign";
}

TEST_F(ReportTextTest, OfSeveralSigns_TheLastThatFitsCounts)
{
    EXPECT_EQ(WrapText("U, I und P", Just("U, I und"), font), (QStringList{"U, I ", "und P"}));
    EXPECT_EQ(WrapText("U, I und P", Just("U, I und "), font), (QStringList{"U, I und ", "P"}));
    EXPECT_EQ(WrapText("3-4-5", Just("3-4"), font), (QStringList{"3-", "4-5"}));
}

TEST_F(ReportTextTest, WordLongerThanTheLine_IsBrokenAtTheWidth)
{
    EXPECT_EQ(WrapText("MMMMMMMMMM", Just("MMMM"), font), (QStringList{"MMMM", "MMMM", "MM"}));
    EXPECT_EQ(WrapText("in MMMMMMMM", Just("MMMM"), font), (QStringList{"in ", "MMMM", "MMMM"}));
}

TEST_F(ReportTextTest, HoweverNarrow_EachLineHasACharacter)
{
    EXPECT_EQ(WrapText("abc", 0.001, font), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(WrapText("abc", 0, font), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(WrapText("abc", -5, font), (QStringList{"a", "b", "c"}));
    EXPECT_EQ(WrapText("漢字", 0.001, font), (QStringList{"漢", "字"}));
    EXPECT_EQ(WrapText("a😀b", 0.001, font), (QStringList{"a", "😀", "b"}));
}

TEST_F(ReportTextTest, CharacterOfTwoUnits_IsNeverCut)
{
    const QString faces = QString("😀").repeated(12);
    for (double width = 0.1; width < 60; width += 0.7)
        for (const QString& line : WrapText(faces, width, font))
            EXPECT_EQ(line.size() % 2, 0) << width;
    for (double width = 0.1; width < 60; width += 0.7)
        EXPECT_EQ(CutText(faces, width, font).remove("...").size() % 2, 0) << width;
}

TEST_F(ReportTextTest, LatinTexts_AreBrokenAsTryingEachLengthBreaksThem)
{
    const QStringList pieces{"Motor", "Förderband", "M",  "i",    " ",  " ", ",", ".",
                             "-",     "12.345,67",  "\n", "\r\n", "\r", "?", "ß", "Ä",
                             ":",     ";",          "!",  "+",    "ö",  "(", "/", "WWWWWWWWWWWW"};
    for (int trial = 0; trial < 150; ++trial) {
        const QString text = RandomText(pieces, 25);
        for (const double width : {0.1, 1.5, 4.0, 9.0, 21.0, 55.0})
            ASSERT_EQ(WrapText(text, width, font), TriedLines(text, width)) << Told(text) << " at " << width;
    }
}

TEST_F(ReportTextTest, LinesOfAnyScript_MakeTheTextAndFit)
{
    const QStringList pieces{"Motor",
                             " ",
                             ",",
                             "\n",
                             "\r\n",
                             "\r",
                             "ж",
                             "Двигатель",
                             "μέτρο",
                             "漢字",
                             "測定",
                             "모터",
                             "שלום",
                             "مرحبا",
                             "لا",
                             "हिन्दी",
                             "ภาษาไทย",
                             "😀",
                             "👩‍🔧",
                             "𝔘",
                             "e\u0301",
                             "\u200B",
                             "\u200D",
                             "\u202E",
                             "\u202C",
                             "\u0301",
                             "\t",
                             "\u0001",
                             "\u00AD",
                             "\uFFFC",
                             "\uFEFF",
                             "fi",
                             QString(QChar(0xD800)),
                             QString(QChar(0xDC00)),
                             "İ",
                             "ﷺ",
                             "WWWWWWWWW"};
    for (int trial = 0; trial < 150; ++trial) {
        const QString text = RandomText(pieces, 30);
        for (const double width : {0.1, 1.5, 9.0, 55.0}) {
            const QStringList lines = WrapText(text, width, font);
            ASSERT_EQ(lines.join(""), Paragraphs(text).join("")) << Told(text) << " at " << width;
            for (qsizetype i = 0; i < lines.size(); ++i) {
                ASSERT_TRUE(font.Width(lines[i]) <= width + kRounding || IsOneCharacter(lines[i]))
                    << Told(lines[i]) << " of " << Told(text) << " at " << width;
                const bool isCut = i > 0 && !lines[i].isEmpty() && !lines[i - 1].isEmpty() &&
                                   lines[i].front().isLowSurrogate() && lines[i - 1].back().isHighSurrogate();
                ASSERT_FALSE(isCut && !text.contains(QChar(0xD800)) && !text.contains(QChar(0xDC00)))
                    << Told(text) << " at " << width;
            }
        }
    }
}

TEST_F(ReportTextTest, LinesInABox_EndWhereTheBoxEnds)
{
    const double line = font.LineHeight();
    const double width = Just("Halle 33");
    const QString text = "Halle 1 Halle 2 Halle 3 Halle 4";
    EXPECT_EQ(LinesInBox(text, width, 4 * line, font), (QStringList{"Halle 1 ", "Halle 2 ", "Halle 3 ", "Halle 4"}));
    const QStringList cut = LinesInBox(text, width, 2.9 * line, font);
    ASSERT_EQ(cut.size(), 2);
    EXPECT_EQ(cut[0], "Halle 1 ");
    EXPECT_TRUE(cut[1].startsWith("Hall") && cut[1].endsWith("...")) << cut[1].toStdString();
    EXPECT_LE(font.Width(cut[1]), width);
}

TEST_F(ReportTextTest, BoxLowerThanALine_ShowsOne)
{
    EXPECT_EQ(LinesInBox("a\nb", 50, 0.1, font), QStringList{"a..."});
    EXPECT_EQ(LinesInBox("a", 50, 0.1, font), QStringList{"a"});
    EXPECT_EQ(LinesInBox("a", 50, -3, font), QStringList{"a"});
    EXPECT_EQ(LinesInBox("", 50, 10, font), QStringList{""});
}

TEST_F(ReportTextTest, EmptyLinesBehindTheBox_AreToldToo)
{
    EXPECT_EQ(LinesInBox("a\n\n\n", 50, 2 * font.LineHeight(), font), (QStringList{"a", "..."}));
}

TEST_F(ReportTextTest, LinesInBoxesOfAnyHeight_FitAndTellWhatIsLeftOut)
{
    const QStringList pieces{"Motor", "Förderband", " ", ", ", "\n", "漢字", "😀", "مرحبا", "WWWWWWWWWWWW"};
    for (int trial = 0; trial < 60; ++trial) {
        const QString text = RandomText(pieces, 30);
        for (const double width : {12.0, 40.0}) {
            const QStringList all = WrapText(text, width, font);
            for (int count = 1; count < 6; ++count) {
                const QStringList shown = LinesInBox(text, width, count * font.LineHeight(), font);
                ASSERT_EQ(shown.size(), std::min<qsizetype>(count, all.size())) << Told(text);
                ASSERT_EQ(shown.first(shown.size() - 1), all.first(shown.size() - 1)) << Told(text);
                ASSERT_TRUE(all.size() <= count ? shown == all : shown.back().endsWith("...")) << Told(text);
                ASSERT_LE(font.Width(shown.back()), width + kRounding) << Told(text);
            }
        }
    }
}

TEST_F(ReportTextTest, CutText_KeepsWhatFitsBesideTheDots)
{
    EXPECT_EQ(CutText("Förderband", Just("Förderband"), font), "Förderband");
    EXPECT_EQ(CutText("Förderband", Just("Förder..."), font), "Förder...");
    EXPECT_EQ(CutText("Halle 3...", Just("Halle..."), font), "Halle...") << "not cut twice";
    EXPECT_EQ(CutText("Förderband", Just("..."), font), "...");
    EXPECT_EQ(CutText("Förderband", 0, font), "...");
    EXPECT_EQ(CutText("", 0, font), "");
}

TEST_F(ReportTextTest, CutTexts_FitAndBeginAsTheWhole)
{
    const QStringList pieces{"Motor", " ", "...", ".", "漢字", "😀", "مرحبا", "ж", "e\u0301", "WWWW"};
    for (int trial = 0; trial < 100; ++trial) {
        const QString text = RandomText(pieces, 20);
        for (const double width : {5.0, 12.0, 40.0}) {
            const QString shown = CutText(text, width, font);
            ASSERT_LE(font.Width(shown), width + kRounding) << Told(shown) << " of " << Told(text) << " at " << width;
            ASSERT_TRUE(shown == text || (shown.endsWith("...") && text.startsWith(shown.chopped(3))))
                << Told(text) << " at " << width;
        }
    }
}

TEST_F(ReportTextTest, LongestTexts_AreBrokenWhole)
{
    const QString mixed = QString("Motor мотор ").repeated(kLongest).left(kLongest);
    const struct
    {
        const char* name;
        QString text;
        double width;
    } cases[] = {
        {"letters alone", QString(kLongest, u'M'), 0.1},
        {"blanks alone", QString(kLongest, u' '), 170},
        {"signs alone", QString(kLongest, u'-'), 30},
        {"another script", QString(kLongest, u'漢'), 170},
        {"right to left", QString(kLongest, u'ش'), 170},
        {"two units", QString("😀").repeated(kLongest / 2), 30},
        {"mixed", mixed, 170},
        {"no width", QString(kLongest, u'\u200B'), 170},
        {"marks", QString(kLongest, u'\u0301'), 170},
    };
    for (const auto& [name, text, width] : cases) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(WrapText(text, width, font).join("") == text);
        EXPECT_LE(font.Width(CutText(text, width, font)), std::max(width, font.Width(QString("...")) + kRounding));
        EXPECT_LE(LinesInBox(text, width, 6 * font.LineHeight(), font).size(), 6);
    }
    EXPECT_EQ(WrapText(QString(kLongest, u'\n'), 170, font).size(), kLongest + 1);
    EXPECT_EQ(WrapText(QString("\r\n").repeated(kLongest / 2), 170, font).size(), kLongest / 2 + 1);
}

} // namespace
} // namespace korvanel::test
