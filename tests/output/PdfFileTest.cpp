// PDF files that take their place when they are complete, and what is appended to them to name their author.
#include "output/PdfFile.h"

#include "output/Print.h"
#include "support/PdfReader.h"
#include "support/ProgramOutput.h"

#include <QBuffer>
#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanel::test {
namespace {

const QString kStrange = QStringLiteral("Jörg (Halle 3) \\ Ω 漢字 <Werk> /Süd%");
const QString kBeyondTheFirstPlane = QStringLiteral("\U0001F600 Müßig \U0001D518");

class PdfFileTest : public ::testing::Test
{
protected:
    /// A document of two pages as the toolkit writes it.
    static QByteArray Document()
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        QPdfWriter writer(&buffer);
        writer.setTitle("von der Bibliothek");
        QPainter painter(&writer);
        painter.drawText(QPointF(1000, 1000), "Nennleistung");
        writer.newPage();
        painter.drawText(QPointF(1000, 1000), "Anlauf");
        painter.end();
        return buffer.data();
    }
    static QByteArray Updated(const QByteArray& document, const PdfProperties& properties)
    {
        return document + PdfPropertiesUpdate(document.right(4096), document.size(), properties);
    }
    QString Stored(const QByteArray& content) const
    {
        QFile file(Path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
        return Path();
    }
    QString Path() const { return folder.filePath("bericht.pdf"); }
    QByteArray Content() const
    {
        QFile file(Path());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
    }
    QStringList Files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }

    /// What two readers have to complain of.
    static QByteArray Complaints(const QString& file)
    {
        QByteArray said;
        for (const QStringList& command : {QStringList{"pdfinfo", file}, QStringList{"pdftotext", file, "-"}}) {
            QProcess reader;
            reader.start(command.first(), command.mid(1), QIODevice::ReadOnly);
            EXPECT_TRUE(reader.waitForFinished());
            said += reader.readAllStandardError();
        }
        return said;
    }
    /// The number behind a word where that stands for the last time.
    static qsizetype NumberBehind(const QByteArray& content, const QByteArray& word)
    {
        const QByteArray behind = content.mid(content.lastIndexOf(word) + word.size(), 20).trimmed();
        return behind.left(behind.indexOf('\n')).toLongLong();
    }
    static void ExpectBothPages(const PdfDocument& document)
    {
        ASSERT_EQ(document.pages.size(), 2U);
        EXPECT_EQ(document.pages[0].text.simplified(), "Nennleistung");
        EXPECT_EQ(document.pages[1].text.simplified(), "Anlauf");
    }

    QTemporaryDir folder;
};

TEST_F(PdfFileTest, Properties_AreReadByOthersWithoutAComplaint)
{
    const QString file = Stored(Updated(Document(), {"Projektauswertung - Öfen", "Erika Müßig", "KORVANEL V1"}));
    const PdfDocument document = ReadPdf(file);
    EXPECT_EQ(document.title, "Projektauswertung - Öfen");
    EXPECT_EQ(document.author, "Erika Müßig");
    EXPECT_EQ(Complaints(file), "");
    ExpectBothPages(document);
}

TEST_F(PdfFileTest, TextsOfAnyScriptAndSign_AreReadAsTheyAre)
{
    const QString file = Stored(Updated(Document(), {kStrange, kStrange, kStrange}));
    EXPECT_EQ(ReadPdf(file).author, kStrange);
    EXPECT_EQ(ReadPdf(file).title, kStrange);
    EXPECT_EQ(Complaints(file), "");
}

TEST_F(PdfFileTest, AuthorBeyondTheFirstPlane_IsReadAsItIs)
{
    const QString file = Stored(Updated(Document(), {"T", kBeyondTheFirstPlane, "C"}));
    // The list of words can't be read here: it has the author in it, in an encoding that is none.
    EXPECT_THAT(OutputOf("pdfinfo", {"-enc", "UTF-8", file}).toStdString(),
                testing::HasSubstr(kBeyondTheFirstPlane.toStdString() + "\n"));
    EXPECT_EQ(Complaints(file), "");
}

TEST_F(PdfFileTest, LongestAuthor_IsReadWhole)
{
    constexpr int kLongestAuthor = 32'767;
    const QString author(kLongestAuthor, u'ä');
    const QString file = Stored(Updated(Document(), {"T", author, "C"}));
    EXPECT_TRUE(ReadPdf(file).author == author);
    EXPECT_EQ(Complaints(file), "");
}

TEST_F(PdfFileTest, EmptyProperties_AreEmpty)
{
    const QString file = Stored(Updated(Document(), {}));
    EXPECT_EQ(ReadPdf(file).title, "");
    EXPECT_EQ(ReadPdf(file).author, "");
    EXPECT_EQ(Complaints(file), "");
}

TEST_F(PdfFileTest, SecondUpdate_HasTheLastWord)
{
    const QByteArray once = Updated(Document(), {"T1", "A1", "C1"});
    const QString file = Stored(Updated(once, {"T2", "A2", "C2"}));
    EXPECT_EQ(ReadPdf(file).author, "A2");
    EXPECT_EQ(ReadPdf(file).title, "T2");
    EXPECT_EQ(Complaints(file), "");
    ExpectBothPages(ReadPdf(file));
}

// Readers look for what isn't where it should be, and say nothing. So the places are looked up here.
TEST_F(PdfFileTest, PlacesOfTheUpdate_AreThoseOfTheFile)
{
    const QByteArray document = Document();
    const QByteArray content = Updated(document, {kStrange, kStrange, "C"});
    ASSERT_TRUE(content.startsWith(document));
    const qsizetype table = NumberBehind(content, "startxref\n");
    const QList<QByteArray> lines = content.mid(table).split('\n');
    ASSERT_GT(lines.size(), 4);
    EXPECT_EQ(lines[0], "xref");
    ASSERT_TRUE(lines[1].endsWith(" 1")) << "one object";
    EXPECT_EQ(lines[2].size() + 1, 20) << "as long as each line of such a table";
    EXPECT_EQ(lines[2].mid(10), " 00000 n ");
    EXPECT_EQ(lines[3], "trailer");
    const QByteArray object = lines[1].chopped(1) + "0 obj\n";
    EXPECT_EQ(content.mid(lines[2].left(10).toLongLong(), object.size()), object);
    EXPECT_EQ(NumberBehind(content, "/Prev "), NumberBehind(document, "startxref\n"));
    EXPECT_EQ(NumberBehind(content, "/Size "), NumberBehind(document, "/Size "));
    EXPECT_TRUE(content.endsWith("%%EOF\n"));
}

TEST_F(PdfFileTest, UnknownEnd_GetsNoProperties)
{
    const QByteArray document = Document();
    const PdfProperties properties{"T", "A", "C"};
    const auto isUpdated = [&](const QByteArray& tail) {
        return !PdfPropertiesUpdate(tail, document.size(), properties).isEmpty();
    };
    ASSERT_TRUE(isUpdated(document));
    const QByteArray tails[] = {
        "",
        "no document",
        document.chopped(7), // "%%EOF" is missing
        document.right(20),  // the begin of the trailer is missing
        document + "something behind it",
        QByteArray(document).replace("/Info", "/Infos"),
        QByteArray(document).replace("/Root", "/Roof"),
        QByteArray(document).replace("startxref", "start"),
        QByteArray(document).replace("trailer", "stream"), // as where the table is a stream
        QByteArray(4096, '\0'),
        QByteArray(4096, '\xff'),
    };
    for (const QByteArray& tail : tails)
        EXPECT_FALSE(isUpdated(tail)) << tail.right(200).toStdString();
}

TEST_F(PdfFileTest, PiecesOfAnySize_MakeTheSameFile)
{
    const QByteArray document = Document();
    const PdfProperties properties{"Titel", kStrange, "KORVANEL"};
    const QByteArray expected = Updated(document, properties);
    for (const qsizetype size : {1, 7, 100, 4095, 4096, 4097, 8192, 10'000'000}) {
        PdfFile file(Path());
        for (qsizetype at = 0; at < document.size(); at += size)
            file.Device().write(document.mid(at, size));
        file.Finish(properties);
        EXPECT_TRUE(Content() == expected) << size;
    }
}

TEST_F(PdfFileTest, ContentOfAnotherKind_IsStoredAsItIs)
{
    PdfFile file(Path());
    file.Device().write("%PDF-9.9 of another kind");
    file.Finish({"T", "A", "C"});
    EXPECT_EQ(Content(), "%PDF-9.9 of another kind");
}

TEST_F(PdfFileTest, FileThatIsNotFinished_LeavesTheFormerOneAndNothingElse)
{
    Stored("former");
    {
        PdfFile file(Path());
        file.Device().write(Document());
        file.RequireWritten();
    }
    EXPECT_EQ(Content(), "former");
    EXPECT_EQ(Files(), QStringList{"bericht.pdf"});
}

TEST_F(PdfFileTest, FileThatIsNotFinished_DoesNotAppear)
{
    {
        PdfFile file(Path());
        file.Device().write(Document());
    }
    EXPECT_EQ(Files(), QStringList{});
}

TEST_F(PdfFileTest, FileThatCannotBeMade_IsToldWithItsPath)
{
    const QString path = folder.filePath("keiner/bericht.pdf");
    try {
        const PdfFile file(path);
        FAIL() << "a file in a folder that isn't there";
    } catch (const ReportFailed& failure) {
        EXPECT_THAT(failure.what(), testing::HasSubstr(path.toStdString()));
    }
}

} // namespace
} // namespace korvanel::test
