// Tables of text as rows: separators, headings, decimal characters, what is wrong with a cell.
#include "editor/PastedRows.h"

#include "core/clsSymbols.h"
#include "data/ValueTables.h"
#include "support/ProjectFixture.h"

#include <random>

namespace korvanel::test {
namespace {

class PastedRowsTest : public ProjectTest
{
protected:
    PastedRowsTest()
    {
        App().iNetConfIndex = 0;
        BuildColumnLayout();
    }
    static std::vector<PastedRow> Read(const QString& text)
    {
        const PastedRows pasted = ReadPastedRows(text);
        EXPECT_EQ(pasted.complaint, "") << text.toStdString();
        return pasted.rows;
    }
    static QString Complaint(const QString& text) { return ReadPastedRows(text).complaint; }
};

TEST_F(PastedRowsTest, TabsAndSemicolonsSeparate)
{
    const std::vector<PastedRow> expected{{230, 1.5, 50, 100, -1}, {231, 2, 50, 200, 1}};
    EXPECT_EQ(Read("230\t1,5\t50\t100\t-1\n231\t2\t50\t200\t1"), expected);
    EXPECT_EQ(Read("230;1,5;50;100;-1\r\n231;2;50;200;1\r\n\r\n"), expected);
    EXPECT_EQ(Read(" 230 ; 1.5;50;100;-1\n231;2;50;200;1\n"), expected);
}

TEST_F(PastedRowsTest, SignMayBeMissing)
{
    EXPECT_EQ(Read("230\t1\t50\t100"), (std::vector<PastedRow>{{230, 1, 50, 100}}));
}

TEST_F(PastedRowsTest, HeadingOfTheGridTellsTheColumns)
{
    EXPECT_EQ(Read("Satz\tPel [W]\tU [V]\tS [VA]\tf [Hz]\tI [A]\n7*\t100\t230\tx\t50\t1\n"),
              (std::vector<PastedRow>{{230, 1, 50, 100}}));
    EXPECT_EQ(Complaint("U [V]\tf [Hz]\tPel [W]\n1\t2\t3"), "Die Spalte I [A] fehlt.");
}

TEST_F(PastedRowsTest, HeadingInOtherWordsIsPassedOver)
{
    EXPECT_EQ(Read("Spannung\tStrom\tFrequenz\tLeistung\n230\t1\t50\t100"),
              (std::vector<PastedRow>{{230, 1, 50, 100}}));
}

TEST_F(PastedRowsTest, ColumnsStandInTheOrderOfTheGrid)
{
    App().ColumnLayout = {kP, kQ, kU, kI, kF};
    EXPECT_EQ(Read("100;-1;230;1;50"), (std::vector<PastedRow>{{100, -1, 230, 1, 50}}));
    EXPECT_EQ(Read("100;230;1;50"), (std::vector<PastedRow>{{100, 230, 1, 50}}));
    App().iNetConfIndex = 6;
    BuildColumnLayout();
    EXPECT_EQ(Read("230;229;230;231;50"), (std::vector<PastedRow>{{230, 229, 230, 231, 50}}));
    EXPECT_EQ(Complaint("230;229;230;231"), "Zeile 1: 4 Spalten statt 5.");
}

TEST_F(PastedRowsTest, FirstBadCellIsNamed)
{
    const std::pair<const char*, const char*> cases[] = {
        {"230;1;50;x", "Zeile 1, Spalte 4 (Pel [W]): 'x'\nDas ist keine Zahl."},
        {"230;1;50;100\n230;;50;100", "Zeile 2, Spalte 2 (I [A]): ''\nDas ist keine Zahl."},
        {"230;1;50;1e400", "Zeile 1, Spalte 4 (Pel [W]): '1e400'\nDas ist keine Zahl."},
        {"230;1;50;1.234,5", "Zeile 1, Spalte 4 (Pel [W]): '1.234,5'\nDas ist keine Zahl."},
        {"-1;1;50;1",
         "Zeile 1, Spalte 1 (U [V]): '-1'\nDer eingegebene Wert muss sich\nzwischen 0 und 100000 befinden."},
        {"230;1;50;1;-", "Zeile 1, Spalte 5 (Q [var]): '-'\nDas ist keine Zahl."},
        {"230;1;50;nan", "Zeile 1, Spalte 4 (Pel [W]): 'nan'\nDas ist keine Zahl."},
        {"#;1;50;1", "Zeile 1, Spalte 1 (U [V]): '#'\nDas ist keine Zahl."},
    };
    for (const auto& [text, complaint] : cases)
        EXPECT_EQ(Complaint(QString::fromUtf8(text)), QString::fromUtf8(complaint)) << text;
}

TEST_F(PastedRowsTest, WrongNumberOfCellsIsToldWithItsLine)
{
    EXPECT_EQ(Complaint("1;2;3"), "Zeile 1: 3 Spalten statt 5.");
    EXPECT_EQ(Complaint("230;1;50;100\n230;1;50;100;1"), "Zeile 2: 5 Spalten statt 4.");
    EXPECT_EQ(Complaint("230;1;50;100\n\n230;1;50;100"), "Zeile 2: 1 Spalten statt 4.");
}

TEST_F(PastedRowsTest, NothingToPasteIsTold)
{
    for (const char* text : {"", "\n\n", "   ", "U [V]\tI [A]", "Hallo"})
        EXPECT_EQ(Complaint(QLatin1String(text)), "Die Zwischenablage enthält keine Zeilen mit Zahlen.") << text;
}

TEST_F(PastedRowsTest, HostileTextYieldsRowsOrAComplaintAndNeverBoth)
{
    std::mt19937 random(5);
    const QString pieces = QStringLiteral("0123456789.,;-+\t\n\r #eEnaifx\u20ac");
    for (int i = 0; i < 20'000; ++i) {
        QString text;
        for (auto length = random() % 60; length > 0; --length)
            text += pieces[static_cast<qsizetype>(random() % static_cast<std::uint64_t>(pieces.size()))];
        if (random() % 4 == 0)
            text.prepend("230;1;50;100\n");
        const PastedRows pasted = ReadPastedRows(text);
        if (pasted.complaint.isEmpty())
            for (const PastedRow& row : pasted.rows) {
                ASSERT_EQ(row.size(), pasted.columns.size());
                for (std::size_t c = 0; c < row.size(); ++c) {
                    ASSERT_GE(row[c], pasted.columns[c]->minimum);
                    ASSERT_LE(row[c], pasted.columns[c]->maximum);
                }
            }
        ASSERT_TRUE(!pasted.complaint.isEmpty() || !pasted.rows.empty());
    }
}

TEST_F(PastedRowsTest, InsertAndOverwriteComputeWhatFollows)
{
    CreateProject(0);
    BuildColumnLayout();
    PastedRows pasted = ReadPastedRows("100;5;50;300;-1\n100;5;50;300;1");
    ASSERT_TRUE(InsertPasted(pasted, 0));
    EXPECT_EQ(Query("SELECT group_concat([S sum] || ' ' || [Q sum] || ' ' || Wp) FROM ComputedValues"),
              "500.0 -400.0 0.0,500.0 400.0 0.0");
    EXPECT_EQ(Query("SELECT group_concat(Edit || ' ' || quote(Time)) FROM SampledValues"), "255 NULL,255 NULL");
    ASSERT_TRUE(OverwriteWithPasted(ReadPastedRows("200;5;50;600"), 1));
    EXPECT_EQ(Query("SELECT [Q sum] FROM ComputedValues WHERE [Set]=1"), "-800.0") << "the sign is that of the set";
    EXPECT_TRUE(OverwriteWithPasted(pasted, 2)) << "reaches beyond the last set";
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "2");
    EXPECT_TRUE(InsertPasted(pasted, 3)) << "behind a set that isn't there";
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "2");
}

} // namespace
} // namespace korvanel::test
