// The reader of PDF documents, on documents whose words and places are known.
#include "support/PdfReader.h"

#include <QFile>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace korvanel::test {

namespace {

class PdfReaderTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QPdfWriter writer(file);
        writer.setTitle("Anlauf & Auslauf <1>");
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF());
        writer.setResolution(254);
        QPainter painter(&writer);
        painter.setFont(QFont("DejaVu Sans", 12));
        painter.drawText(QPointF(300, 500), "Öl & Fett <2>");
        painter.fillRect(QRectF(1000, 1000, 500, 250), Qt::red);
        writer.setPageSize(QPageSize(QPageSize::A5));
        writer.newPage();
        painter.drawText(QPointF(0, 1000), "links");
    }

    const QTemporaryDir folder;
    const QString file = folder.filePath("Bericht größer.pdf");
};

} // namespace

TEST_F(PdfReaderTest, TellsPagesWithTheirSizes)
{
    const PdfDocument document = ReadPdf(file);
    ASSERT_EQ(document.pages.size(), 2U);
    EXPECT_NEAR(document.pages[0].size.width(), 210, 0.2);
    EXPECT_NEAR(document.pages[0].size.height(), 297, 0.2);
    EXPECT_NEAR(document.pages[1].size.width(), 148, 0.2);
    EXPECT_NEAR(document.pages[1].size.height(), 210, 0.2);
}

TEST_F(PdfReaderTest, TellsTitleAndAuthor)
{
    EXPECT_EQ(ReadPdf(file).title, "Anlauf & Auslauf <1>");
    EXPECT_EQ(ReadPdf(file).author, "");
}

TEST_F(PdfReaderTest, TellsTheAuthorWhereThereIsOne)
{
    QFile written(folder.filePath("author.pdf"));
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    written.write("%PDF-1.4\n"
                  "1 0 obj\n<</Type/Catalog/Pages 2 0 R>>\nendobj\n"
                  "2 0 obj\n<</Type/Pages/Kids[3 0 R]/Count 1>>\nendobj\n"
                  "3 0 obj\n<</Type/Page/Parent 2 0 R/MediaBox[0 0 72 144]>>\nendobj\n"
                  "4 0 obj\n<</Title(Anlauf)/Author(A. M\xfcller)>>\nendobj\n"
                  "trailer\n<</Root 1 0 R/Info 4 0 R>>\n%%EOF\n");
    written.close();
    const PdfDocument document = ReadPdf(written.fileName());
    EXPECT_EQ(document.author, "A. Müller");
    EXPECT_EQ(document.title, "Anlauf");
    ASSERT_EQ(document.pages.size(), 1U);
    EXPECT_NEAR(document.pages[0].size.height(), 50.8, 0.001);
    EXPECT_TRUE(document.pages[0].words.empty());
}

TEST_F(PdfReaderTest, TellsWordsInMillimetres)
{
    const PdfPage page = ReadPdf(file).pages.at(0);
    ASSERT_EQ(page.words.size(), 4U);
    EXPECT_EQ(page.words[1].text, "&");
    EXPECT_EQ(page.words[3].text, "<2>");
    const QRectF box = page.Word("Öl").box;
    EXPECT_NEAR(box.left(), 30, 0.2);
    EXPECT_LT(box.top(), 47); // above the capital letters, which are 3.1 mm high
    EXPECT_GT(box.top(), 44);
    EXPECT_GT(box.bottom(), 49.9); // not above the baseline
    EXPECT_LT(box.bottom(), 52);
    EXPECT_GT(page.Word("Fett").box.left(), box.right());
    EXPECT_EQ(page.Word("links").text, "");
}

TEST_F(PdfReaderTest, TellsTheTextOfEachPage)
{
    const PdfDocument document = ReadPdf(file);
    EXPECT_EQ(document.pages.at(0).text.trimmed(), "Öl & Fett <2>");
    EXPECT_EQ(document.pages.at(1).text.trimmed(), "links");
}

TEST_F(PdfReaderTest, ShowsAPage)
{
    const QImage page = PdfPageImage(file, 1, 254);
    EXPECT_NEAR(page.width(), 2100, 3);
    EXPECT_NEAR(page.height(), 2970, 3);
    EXPECT_EQ(page.pixelColor(1005, 1005), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(1495, 1245), QColor(Qt::red));
    EXPECT_EQ(page.pixelColor(995, 1005), QColor(Qt::white));
    EXPECT_EQ(page.pixelColor(1495, 1255), QColor(Qt::white));
    EXPECT_NEAR(PdfPageImage(file, 2, 254).width(), 1480, 3);
}

TEST_F(PdfReaderTest, ThrowsWithoutSuchAFileOrPage)
{
    EXPECT_THROW(ReadPdf(folder.filePath("keine.pdf")), std::runtime_error);
    EXPECT_THROW(PdfPageImage(file, 3, 100), std::runtime_error);
    QFile text(folder.filePath("text.pdf"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("kein Dokument");
    text.close();
    EXPECT_THROW(ReadPdf(text.fileName()), std::runtime_error);
}

} // namespace korvanel::test
