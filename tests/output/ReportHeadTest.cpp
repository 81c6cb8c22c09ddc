// Head and foot of the pages of a report, and what its file says of itself; with texts of projects that nobody expects.
#include "output/ReportReading.h"
#include "support/ProgramOutput.h"

#include <QImage>

namespace korvanel::test {
namespace {

constexpr int kLongestText = 32'767;

class ReportHead : public ReportTest
{
protected:
    /// The upper part of each page, ten dots to a millimetre.
    static std::vector<QImage> Heads(const QString& file)
    {
        const QTemporaryDir pictures;
        OutputOf("pdftoppm", {"-gray", "-r", "254", "-x", "0", "-y", "0", "-W", "2100", "-H", "425", file,
                              pictures.filePath("page")});
        std::vector<QImage> heads;
        for (const QString& name : QDir(pictures.path()).entryList({"*.pgm"}, QDir::Files, QDir::Name))
            heads.emplace_back(pictures.filePath(name));
        return heads;
    }
    /// Begin and end in millimetres of the grey dots along a line from edge to edge; nothing else but white is there.
    static std::pair<double, double> GreyPart(const QImage& head, QPoint from, QPoint step, int dots)
    {
        constexpr int kGrey = 215;
        constexpr int kWhite = 255;
        int begin = -1;
        int end = -1;
        int others = 0;
        for (int i = 0; i < dots; ++i) {
            const int value = qGray(head.pixel(from + i * step));
            if (value == kGrey) {
                begin = begin < 0 ? i : begin;
                end = i + 1;
            } else if (value != kWhite) {
                ++others; // of an edge
            }
        }
        EXPECT_LE(others, 2);
        return {begin / 10.0, end / 10.0};
    }
    static void ExpectBox(const QImage& head)
    {
        constexpr double kTolerance = 0.2;
        ASSERT_EQ(head.size(), QSize(2100, 425));
        const auto [top, bottom] = GreyPart(head, {210, 0}, {0, 1}, 425); // beside the texts
        EXPECT_NEAR(top, 15, kTolerance);
        EXPECT_NEAR(bottom, 38, kTolerance);
        const auto [left, right] = GreyPart(head, {0, 375}, {1, 0}, 2100); // below them
        EXPECT_NEAR(left, 20, kTolerance);
        EXPECT_NEAR(right, 190, kTolerance);
    }
    static void ExpectHeadAndFoot(const PdfDocument& report)
    {
        for (std::size_t number = 1; number <= report.pages.size(); ++number) {
            SCOPED_TRACE("page " + std::to_string(number));
            const PdfPage& page = report.pages[number - 1];
            EXPECT_NEAR(page.size.width(), 210, 0.2);
            EXPECT_NEAR(page.size.height(), 297, 0.2);
            EXPECT_NEAR(page.Word("PROJEKTAUSWERTUNG").box.right(), 135, 0.2);
            EXPECT_GT(page.Word("KORVANEL").box.left(), 155);
            EXPECT_LT(page.Word("KORVANEL").box.left(), 158);
            EXPECT_LE(page.Word("KORVANEL").box.right(), 190);
            const std::vector<WordRow> rows = RowsOf(page, 0, kEndOfHead);
            ASSERT_EQ(rows.size(), 4U);
            EXPECT_EQ(TextOfRow(rows[0]), "PROJEKTAUSWERTUNG KORVANEL");
            for (const WordRow& row : rows) {
                EXPECT_GE(row.front().box.left(), 20);
                EXPECT_GE(row.front().box.top(), 14.9);
                EXPECT_LE(row.back().box.right(), 190);
                EXPECT_LE(row.back().box.bottom(), 38);
            }
            EXPECT_TRUE(TextOfRow(rows[1]).startsWith("Projekt: "));
            EXPECT_TRUE(TextOfRow(rows[2]).startsWith("Bearbeiter: "));
            EXPECT_TRUE(TextOfRow(rows[3]).startsWith("Gedruckt am 14.03.2026 15:09:26 - test.MDB - "));
            const std::vector<WordRow> foot = RowsOf(page, kBeginOfFoot, 297);
            ASSERT_EQ(foot.size(), 1U);
            EXPECT_EQ(TextOfRow(foot[0]), QString("Seite %1 von %2").arg(number).arg(report.pages.size()));
        }
    }
};

TEST_F(ReportHead, EveryPageOfEveryNetConfiguration_HasHeadAndFoot)
{
    for (int netConf = 0; netConf < kNetVoltage; ++netConf) {
        SCOPED_TRACE(netConf);
        OpenReportProject(netConf, 40);
        const PdfDocument report = PrintedReport();
        ExpectHeadAndFoot(report);
        const std::vector<QImage> heads = Heads(PathOf("report.pdf"));
        ASSERT_EQ(heads.size(), report.pages.size());
        for (const QImage& head : heads)
            ExpectBox(head);
        const std::vector<WordRow> rows = RowsOf(report.pages[0], 0, kEndOfHead);
        EXPECT_EQ(TextOfRow(rows[1]), "Projekt: Förderband Halle 3");
        EXPECT_EQ(TextOfRow(rows[2]), "Bearbeiter: Erika Muster, Werk Süd");
        EXPECT_EQ(TextOfRow(rows[3]), "Gedruckt am 14.03.2026 15:09:26 - test.MDB - 40 Datensätze");
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(ReportHead, File_TellsTitleAndAuthorAndIsSearchable)
{
    OpenReportProject(2, 10);
    const PdfDocument report = PrintedReport();
    EXPECT_EQ(report.title, "Projektauswertung - Förderband Halle 3");
    EXPECT_EQ(report.author, "Erika Muster");
    const QString text = OutputOf("pdftotext", {"-enc", "UTF-8", PathOf("report.pdf"), "-"});
    for (const QString word : {"Netzkonfiguration", "Beschreibung", "Standort: Halle 3", "Maschinendaten", "Pmech",
                               "Energie und Kosten", "cosphi", "Extremwerte"})
        EXPECT_TRUE(text.contains(word)) << word.toStdString();
}

TEST_F(ReportHead, MomentOfThePrint_IsWhatEachPageTells)
{
    OpenReportProject(0, 10);
    App().dtPrinted = QDateTime(QDate(2031, 12, 24), QTime(0, 0, 1));
    for (const PdfPage& page : PrintedReport().pages)
        EXPECT_TRUE(page.text.contains("Gedruckt am 24.12.2031 00:00:01")) << page.text.toStdString();
}

TEST_F(ReportHead, LongestTexts_AreCutAndLeaveThePagesAsTheyAre)
{
    OpenReportProject(2, 10);
    App().PrintIt[kReportSets] = App().PrintIt[kReportMachineSets] = 0;
    const std::size_t pages = PrintedReport().pages.size();
    const struct
    {
        const char* name;
        QString text;
    } cases[] = {
        {"words", QString("Förderband Halle 3, ").repeated(kLongestText).left(kLongestText)},
        {"one word", QString(kLongestText, u'W')},
        {"line ends", QString("a\r\n").repeated(kLongestText).left(kLongestText)},
        {"another script", QString("Двигатель").repeated(kLongestText).left(kLongestText)},
    };
    for (const auto& [name, text] : cases) {
        SCOPED_TRACE(name);
        App().sProjectName = App().sCompany = App().sEditor = App().sDescription = App().sDevice = text;
        App().MachineI.record.Hersteller = text;
        const PdfDocument report = PrintedReport();
        ExpectHeadAndFoot(report);
        ExpectWordsApart(report);
        EXPECT_LE(report.pages.size(), pages + 1) << "the overview may take another page";
        for (const PdfPage& page : report.pages) {
            const std::vector<WordRow> rows = RowsOf(page, 0, kEndOfHead);
            EXPECT_TRUE(rows.size() > 2 && TextOfRow(rows[1]).endsWith("...") && TextOfRow(rows[2]).endsWith("..."));
        }
        EXPECT_TRUE(report.author == text.simplified() || report.author.startsWith(text.left(1)));
    }
}

TEST_F(ReportHead, ControlCharactersInTexts_AreNoneOnThePages)
{
    OpenReportProject(2, 10);
    App().PrintIt[kReportSets] = App().PrintIt[kReportMachineSets] = 0;
    QString controls;
    for (char16_t code = 0; code < 0xA0; ++code)
        if (code < 0x20 || code > 0x7E)
            controls += QString("a") + QChar(code) + "b";
    App().sProjectName = App().sCompany = App().sEditor = App().sDescription = App().sDevice = controls;
    App().MachineI.record.Hersteller = controls;
    const PdfDocument report = PrintedReport();
    ExpectHeadAndFoot(report);
    ExpectWordsApart(report);
    for (const PdfPage& page : report.pages)
        for (const QChar sign : page.text)
            EXPECT_TRUE(sign == u'\n' || sign == u' ' || sign.isPrint()) << int{sign.unicode()};
    EXPECT_EQ(report.author.left(8), "a ba ba ") << "read as a line of its own";
}

TEST_F(ReportHead, EmptyTexts_LeaveTheirPlacesEmpty)
{
    OpenReportProject(0, 10);
    App().sProjectName = App().sCompany = App().sEditor = App().sDescription = App().sDevice = QString();
    const PdfDocument report = PrintedReport();
    const std::vector<WordRow> rows = RowsOf(report.pages.at(0), 0, kEndOfHead);
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(TextOfRow(rows[1]), "Projekt:");
    EXPECT_EQ(TextOfRow(rows[2]), "Bearbeiter: ,");
    EXPECT_EQ(report.author, "");
}

} // namespace
} // namespace korvanel::test
