// Reports on printers of the system: what comes out of a real queue, and what is told when nothing does.
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF9Texts.h"
#include "core/texts/PrintExportTexts.h"
#include "output/PrinterOutput.h"
#include "output/ReportFixture.h"
#include "support/FullDisk.h"
#include "support/PrintQueue.h"
#include "support/ProgramOutput.h"

#include <QComboBox>
#include <QPrinter>
#include <QPushButton>

namespace korvanel::test {
namespace {

using ::testing::HasSubstr;

class PrintedReportTest : public ReportTest
{
protected:
    PrintedReportTest()
    {
        window.hasSystemPrinters = true;
        EXPECT_TRUE(QDir(folder.path()).mkdir("temporary"));
        formerFolder = qgetenv("TMPDIR");
        qputenv("TMPDIR", PathOf("temporary").toLocal8Bit());
    }
    ~PrintedReportTest() override
    {
        window.UnloadPage();
        formerFolder.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", formerFolder);
    }

    void EnterPrint()
    {
        window.UnloadAndOpen(kPagePrint);
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }
    void Choose(const QString& printer)
    {
        auto& box = Find<QComboBox>("cboPrinters");
        ASSERT_GE(box.findText(printer), 0) << printer.toStdString();
        box.setCurrentIndex(box.findText(printer));
    }
    void PressPrint()
    {
        shell.boxes.clear();
        Find<QPushButton>("cmdPrint").click();
    }
    /// Prints without the page; what happens on the way is the test's.
    bool PrintOn(const QString& name, const ReportProgress& progress = {})
    {
        shell.boxes.clear();
        QPrinter printer(QPrinter::HighResolution);
        PrinterOutput output(printer, name);
        return PrintReport(output, {.progress = progress});
    }
    static ReportProgress HalfWay(std::function<void()> happening)
    {
        return [happening = std::move(happening), isDone = false](double share) mutable {
            if (share >= 0.5 && !isDone) {
                isDone = true;
                happening();
            }
            return true;
        };
    }

    void ExpectNoJob() const { EXPECT_TRUE(queue.Jobs().empty()); }
    void ExpectNoTemporaryFile() const
    {
        EXPECT_EQ(QDir(PathOf("temporary")).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                  QStringList{});
    }
    std::string Told() const
    {
        EXPECT_EQ(shell.boxes.size(), 1U);
        return shell.BoxTexts().join("\n---\n").toStdString();
    }
    static std::string Gone(const QString& name)
    {
        return QString(texts::reportPrinterGone).replace('#', name).toStdString();
    }

    /// The words of two pages are the same at the same places.
    static void ExpectSamePage(const PdfPage& page, const PdfPage& expected)
    {
        constexpr double kTolerance = 0.3; // mm
        ASSERT_EQ(page.words.size(), expected.words.size());
        for (std::size_t i = 0; i < page.words.size(); ++i) {
            const PdfWord& word = page.words[i];
            const PdfWord& wanted = expected.words[i];
            ASSERT_EQ(word.text, wanted.text);
            EXPECT_NEAR(word.box.left(), wanted.box.left(), kTolerance) << word.text.toStdString();
            EXPECT_NEAR(word.box.right(), wanted.box.right(), kTolerance) << word.text.toStdString();
            EXPECT_NEAR(word.box.bottom(), wanted.box.bottom(), kTolerance) << word.text.toStdString();
        }
    }

    /// The signs of each page in order. Through PostScript words are parted otherwise.
    static QStringList SignsOfPages(const QString& file)
    {
        QStringList pages = QString::fromUtf8(OutputOf("pdftotext", {"-enc", "UTF-8", file, "-"})).split('\f');
        for (QString& page : pages) {
            page.removeIf([](QChar sign) { return sign <= u' '; });
            std::sort(page.begin(), page.end());
        }
        return pages;
    }

    PrintQueue queue;
    QByteArray formerFolder;
};

TEST_F(PrintedReportTest, ReportOnTheDefaultPrinter_IsThatOfTheFile)
{
    OpenReportProject(5, 70);
    TakeSecondMachine();
    EnterPrint();
    EXPECT_EQ(Find<QComboBox>("cboPrinters").currentText(), kDefaultQueue);
    PressPrint();
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
    const PdfDocument expected = PrintedReport();
    const PdfDocument report = ReadPdf(queue.WaitForPrinted(kDefaultQueue));
    ASSERT_EQ(report.pages.size(), expected.pages.size());
    ASSERT_GT(report.pages.size(), 20U);
    for (std::size_t page = 0; page < report.pages.size(); ++page) {
        SCOPED_TRACE(page + 1);
        ExpectSamePage(report.pages[page], expected.pages[page]);
        EXPECT_NEAR(report.pages[page].size.width(), 210, 0.3);
        EXPECT_NEAR(report.pages[page].size.height(), 297, 0.3);
    }
    EXPECT_EQ(report.title, "Projektauswertung - Förderband Halle 3");
    ASSERT_EQ(queue.Jobs().size(), 1U);
    EXPECT_EQ(queue.Jobs()[0].title, "Projektauswertung - Förderband Halle 3");
    EXPECT_EQ(queue.Jobs()[0].queue, kDefaultQueue);
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, ReportOnAnotherPrinter_HasTheSameWordsOnItsPages)
{
    OpenReportProject(2, 70);
    EnterPrint();
    Choose(kOtherQueue);
    PressPrint();
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
    PrintedReport();
    const QStringList expected = SignsOfPages(PathOf("report.pdf"));
    ASSERT_GT(expected.size(), 8);
    EXPECT_EQ(SignsOfPages(queue.WaitForPrinted(kOtherQueue)), expected);
    ASSERT_EQ(queue.Jobs().size(), 1U);
    EXPECT_EQ(queue.Jobs()[0].queue, kOtherQueue);
    EXPECT_TRUE(queue.Printed(kDefaultQueue).isEmpty());
}

TEST_F(PrintedReportTest, ReportPrintedTwice_IsTwoJobs)
{
    OpenReportProject(0, 10);
    EnterPrint();
    PressPrint();
    PressPrint();
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
    ASSERT_EQ(queue.Jobs().size(), 2U);
    const PdfDocument first = ReadPdf(queue.Submitted(1));
    const PdfDocument second = ReadPdf(queue.Submitted(2));
    ASSERT_EQ(first.pages.size(), second.pages.size());
    for (std::size_t page = 0; page < first.pages.size(); ++page)
        ExpectSamePage(first.pages[page], second.pages[page]);
}

TEST_F(PrintedReportTest, ReportOfOnePrinterThenTheOther_GoesWhereItIsChosen)
{
    OpenReportProject(0, 10);
    App().PrintIt.fill(0);
    App().PrintIt[kReportOverview] = 1;
    EnterPrint();
    for (const QString& printer : {kOtherQueue, kDefaultQueue, kOtherQueue}) {
        Choose(printer);
        PressPrint();
        EXPECT_EQ(queue.Jobs().back().queue, printer);
    }
    EXPECT_EQ(queue.Jobs().size(), 3U);
}

TEST_F(PrintedReportTest, ProjectsOfStrangeNames_ArePrintedLikeAnyOther)
{
    OpenReportProject(0, 10);
    App().PrintIt.fill(0);
    App().PrintIt[kReportOverview] = 1;
    constexpr int kLongestName = 32'767;
    int jobs = 0;
    for (const QString& name : {QString(kLongestName, u'ä'), QString(kLongestName, u'漢'), QString("a\nb\tc\x01\x7f"),
                                QString(), QString("-d")}) {
        App().sProjectName = name;
        ASSERT_TRUE(PrintOn(kDefaultQueue)) << shell.BoxTexts().join("").toStdString();
        ++jobs;
    }
    queue.WaitForPrinted(kDefaultQueue, jobs);
    ASSERT_EQ(queue.Jobs().size(), 5U);
    EXPECT_TRUE(queue.Jobs()[1].title.startsWith("Projektauswertung - 漢漢"));
    EXPECT_EQ(queue.Jobs()[2].title.trimmed(), "Projektauswertung - a b c");
    EXPECT_EQ(queue.Jobs()[4].title, "Projektauswertung - -d");
}

TEST_F(PrintedReportTest, ReportThatIsStopped_MakesNoJob_WheneverItIs)
{
    OpenReportProject(2, 70);
    for (const double end : {0.0, 0.5, 1.0}) {
        EXPECT_FALSE(PrintOn(kDefaultQueue, [end](double share) { return share < end; })) << end;
        EXPECT_EQ(Told(), texts::reportStopped.toStdString()) << end;
        ExpectNoTemporaryFile();
    }
    ExpectNoJob();
}

TEST_F(PrintedReportTest, TableThatGoesWhilePagesAreDrawn_IsToldAndMakesNoJob)
{
    OpenReportProject(2, 130);
    EXPECT_FALSE(PrintOn(kDefaultQueue, HalfWay([&] { Execute("DROP TABLE ComputedValues"); })));
    EXPECT_THAT(Told(), HasSubstr(texts::cannotReadFile.toStdString()));
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, FileThatIsLockedWhilePagesAreDrawn_IsToldAndMakesNoJob)
{
    OpenReportProject(1, 130);
    std::optional<SQLite::Database> other;
    EXPECT_FALSE(PrintOn(kDefaultQueue, HalfWay([&] {
                             other.emplace(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
                             other->exec("BEGIN EXCLUSIVE");
                         })));
    EXPECT_THAT(Told(), HasSubstr(texts::fileInUse.toStdString()));
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, PrinterThatGoesWhileThePageIsOpen_IsToldAndNoOtherPrints)
{
    OpenReportProject(0, 10);
    EnterPrint();
    Choose(kOtherQueue);
    queue.Remove(kOtherQueue);
    PressPrint();
    EXPECT_EQ(Told(), Gone(kOtherQueue));
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, PrinterThatGoesWhilePagesAreDrawn_IsToldAndNoOtherPrints)
{
    OpenReportProject(0, 10);
    EXPECT_FALSE(PrintOn(kOtherQueue, HalfWay([&] { queue.Remove(kOtherQueue); })));
    EXPECT_EQ(Told(), Gone(kOtherQueue));
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, PrinterThatNeverWas_IsToldAndNoOtherPrints)
{
    OpenReportProject(0, 10);
    EXPECT_FALSE(PrintOn("Dachboden"));
    EXPECT_EQ(Told(), Gone("Dachboden"));
    ExpectNoJob();
}

TEST_F(PrintedReportTest, PrinterThatRefusesJobs_IsToldWithTheReason)
{
    OpenReportProject(0, 10);
    EnterPrint();
    for (const QString& printer : {kDefaultQueue, kOtherQueue}) {
        queue.Reject(printer);
        Choose(printer);
        PressPrint();
        const std::string told = Told();
        EXPECT_THAT(told, HasSubstr(QString(texts::reportJobFailed).replace('#', printer).toStdString() + "\n"));
        EXPECT_THAT(told, HasSubstr("not accepting jobs"));
    }
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, ServerThatStopsWhilePagesAreDrawn_IsTold)
{
    OpenReportProject(0, 10);
    EXPECT_FALSE(PrintOn(kDefaultQueue, HalfWay([&] { queue.StopServer(); })));
    EXPECT_EQ(Told(), Gone(kDefaultQueue));
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, ServerThatIsStoppedWhileThePageIsOpen_LeavesNoDefaultPrinter)
{
    OpenReportProject(0, 10);
    EnterPrint();
    queue.StopServer();
    PressPrint();
    EXPECT_EQ(Told(), texts::printNoPrinter.toStdString());
}

TEST_F(PrintedReportTest, PrinterThatIsSwitchedOff_TakesTheReportForLater)
{
    OpenReportProject(0, 10);
    queue.Disable(kDefaultQueue);
    EnterPrint();
    PressPrint();
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
    ASSERT_EQ(queue.Jobs().size(), 1U);
    EXPECT_EQ(queue.Jobs()[0].state, "pending");
    queue.Enable(kDefaultQueue);
    EXPECT_EQ(ReadPdf(queue.WaitForPrinted(kDefaultQueue)).pages.size(), PrintedReport().pages.size());
}

TEST_F(PrintedReportTest, WithoutADefaultPrinter_NothingIsPrintedOnAnyOther)
{
    OpenReportProject(0, 10);
    queue.Remove(kDefaultQueue);
    EnterPrint();
    Choose(kOtherQueue);
    PressPrint();
    EXPECT_EQ(Told(), texts::printNoPrinter.toStdString());
    EXPECT_FALSE(PrintOn(kOtherQueue));
    EXPECT_EQ(shell.BoxTexts(), QStringList{}) << "who prints without the page tells it himself";
    ExpectNoJob();
    ExpectNoTemporaryFile();
}

TEST_F(PrintedReportTest, DiskWithoutRoomForThePages_IsToldAndMakesNoJob)
{
    OpenReportProject(2, 200);
    for (const rlim_t room : {0U, 100U, 20'000U}) {
        {
            const FullDisk disk(room);
            EXPECT_FALSE(PrintOn(kDefaultQueue)) << room;
        }
        EXPECT_THAT(Told(), HasSubstr(texts::reportSpoolFailed.toStdString())) << room;
        ExpectNoTemporaryFile();
    }
    ExpectNoJob();
}

TEST_F(PrintedReportTest, DiskWithoutRoomForTheDocument_IsToldAndMakesNoJob)
{
    OpenReportProject(0, 10);
    App().PrintIt.fill(0);
    App().PrintIt[kReportOverview] = 1;
    ASSERT_TRUE(PrintOn(kDefaultQueue));
    const auto size = static_cast<rlim_t>(QFileInfo(queue.Submitted(1)).size());
    for (rlim_t room = 4000; room < size; room += 4000) {
        {
            const FullDisk disk(room);
            EXPECT_FALSE(PrintOn(kDefaultQueue)) << room << " of " << size;
        }
        EXPECT_EQ(shell.boxes.size(), 1U) << room << " of " << size;
        ExpectNoTemporaryFile();
    }
    EXPECT_EQ(queue.Jobs().size(), 1U);
}

} // namespace
} // namespace korvanel::test
