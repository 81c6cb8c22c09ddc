// The text on its way to the file: fields, numbers, times, and what a spreadsheet must not misread.
#include "output/ExportText.h"

#include "core/NumberText.h"
#include "support/Fixture.h"

namespace korvanel::test {
namespace {

class ExportTextTest : public BlockTest
{
protected:
    template <typename Write>
    QString Written(Write&& write)
    {
        {
            ExportText text(PathOf("x.txt"));
            write(text);
            text.Finish();
        }
        const QByteArray content = ContentOf("x.txt");
        EXPECT_TRUE(content.startsWith("\xEF\xBB\xBF"));
        return QString::fromUtf8(content.mid(3));
    }
};

TEST_F(ExportTextTest, FieldsEndInATabAndLinesAsThePlatformsDo)
{
    EXPECT_EQ(Written([](ExportText& text) {
                  text.AddText("Größe");
                  text.AddText({});
                  text.AddNumber(-0.5);
                  text.AddWhole(-12);
                  text.AddTime(3661);
                  text.AddFitting("°");
                  text.EndLine("Ende");
                  text.EndLine();
              }),
#ifdef Q_OS_WIN
              QString("Größe\t\t-0,5\t-12\t01:01:01\t°\tEnde\r\n\r\n")
#else
              QString("Größe\t\t-0,5\t-12\t01:01:01\t°\tEnde\n\n")
#endif
    );
}

TEST_F(ExportTextTest, EmptyTextIsTheByteOrderMarkAlone)
{
    EXPECT_EQ(Written([](ExportText&) {}), "");
}

TEST_F(ExportTextTest, ManyBlocksFollowEachOtherWithoutAGap)
{
    constexpr int kLines = 200'000;
    const QString written = Written([](ExportText& text) {
        for (int i = 0; i < kLines; ++i) {
            text.AddWhole(i);
            text.EndLine();
        }
    });
    const QStringList lines = written.split(u'\n');
    ASSERT_EQ(lines.size(), kLines + 1);
    for (int i = 0; i < kLines; ++i)
        ASSERT_EQ(lines[i], QString::number(i) + u'\t');
}

TEST_F(ExportTextTest, StoredDateIsInTheLocalFormatAndAnyOtherTextStays)
{
    EXPECT_EQ(Written([](ExportText& text) {
                  text.AddStoredDate("2026-03-14 15:09:26");
                  text.AddStoredDate("");
                  text.AddStoredDate("gestern\t");
                  text.AddStoredDate("-1");
              }),
              "14.03.2026 15:09:26\t\tgestern \t -1\t");
}

TEST_F(ExportTextTest, BreaksAndControlsBecomeOneBlankEach)
{
    const QPair<QString, QString> cases[] = {
        {"", ""},
        {"Müller & Söhne", "Müller & Söhne"},
        {"a\tb", "a b"},
        {"a\nb\rc\r\nd", "a b c d"},
        {"a\n\nb", "a  b"},
        {QString("a%1b").arg(QChar(0)), "a b"},
        {"a\vb\fc", "a b c"},
        {QString("a%1b%2c%3d").arg(QChar(0x85)).arg(QChar(0x2028)).arg(QChar(0x2029)), "a b c d"},
    };
    for (const auto& [text, field] : cases)
        EXPECT_EQ(FieldText(text), field);
}

TEST_F(ExportTextTest, TypedTextIsNoFormulaAndBeginsNoQuotation)
{
    const QPair<QString, QString> cases[] = {
        {"=1+1", " =1+1"}, {"+49 351", " +49 351"}, {"-5", " -5"}, {"@SUM(1)", " @SUM(1)"}, {"\"offen", " \"offen"},
        {"\t=1", " =1"},   {"a=1", "a=1"},          {"5-", "5-"},  {" =1", " =1"},          {"", ""},
    };
    for (const auto& [text, field] : cases)
        EXPECT_EQ(TypedFieldText(text), field);
}

TEST_F(ExportTextTest, WhatWasAddedBeforeAFailureElsewhereIsInTheFile)
{
    {
        ExportText text(PathOf("x.txt"));
        text.AddText("da");
        text.EndLine();
    }
    EXPECT_EQ(ContentOf("x.txt"), "\xEF\xBB\xBF"
                                  "da\t\n");
}

} // namespace
} // namespace korvanel::test
