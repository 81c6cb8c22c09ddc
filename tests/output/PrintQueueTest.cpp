// The toolkit's own printer on a real queue: how it behaves decides how the program prints.
#include "support/PrintQueue.h"
#include "support/PdfReader.h"

#include <QLibrary>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace korvanel::test {

namespace {

constexpr double kBaselineMm = 30;
constexpr double kLeftMm = 20;
constexpr double kToleranceMm = 0.25; // a paper of whole points, steps of the resolution

class PrintQueueTest : public ::testing::Test
{
protected:
    /// Draws two pages; what happens before the end of the document is the test's.
    template <typename BeforeEnd>
    static void Print(QPrinter& printer, BeforeEnd&& beforeEnd)
    {
        printer.setDocName("Prüfbericht, Motor 1");
        printer.setFullPage(true);
        printer.setPageSize(QPageSize(QPageSize::A4));
        const double dotsPerMm = printer.resolution() / 25.4;
        QPainter painter;
        ASSERT_TRUE(painter.begin(&printer));
        painter.setFont(QFont("DejaVu Sans", 10));
        painter.drawText(QPointF(kLeftMm, kBaselineMm) * dotsPerMm, "Nennleistung Müßiggang");
        ASSERT_TRUE(printer.newPage());
        painter.fillRect(QRectF(100 * dotsPerMm, 200 * dotsPerMm, 50 * dotsPerMm, 20 * dotsPerMm), Qt::black);
        painter.drawText(QPointF(2 * kLeftMm, 2 * kBaselineMm) * dotsPerMm, "Anlauf");
        beforeEnd();
        EXPECT_TRUE(painter.end());
    }

    static void PrintAt(const QString& queue)
    {
        QPrinter printer(QPrinter::HighResolution);
        printer.setPrinterName(queue);
        Print(printer, [] {});
    }

    static void ExpectAt(const PdfWord& word, double left, double baseline)
    {
        EXPECT_NEAR(word.box.left(), left, kToleranceMm) << word.text.toStdString();
        EXPECT_LT(word.box.top(), baseline - 2) << word.text.toStdString();
        EXPECT_GT(word.box.bottom(), baseline - kToleranceMm) << word.text.toStdString();
        EXPECT_LT(word.box.bottom(), baseline + 2) << word.text.toStdString();
    }

    static void ExpectBothPages(const QString& file)
    {
        const PdfDocument document = ReadPdf(file);
        ASSERT_EQ(document.pages.size(), 2U);
        for (const PdfPage& page : document.pages) {
            EXPECT_NEAR(page.size.width(), 210, kToleranceMm);
            EXPECT_NEAR(page.size.height(), 297, kToleranceMm);
        }
        EXPECT_EQ(document.pages[0].text.simplified(), "Nennleistung Müßiggang");
        EXPECT_EQ(document.pages[1].text.simplified(), "Anlauf");
        ExpectAt(document.pages[0].Word("Nennleistung"), kLeftMm, kBaselineMm);
        ExpectAt(document.pages[1].Word("Anlauf"), 2 * kLeftMm, 2 * kBaselineMm);

        constexpr int kDotsPerInch = 254; // ten to a millimetre
        const QImage page = PdfPageImage(file, 2, kDotsPerInch);
        EXPECT_EQ(page.pixelColor(1010, 2010), QColor(Qt::black));
        EXPECT_EQ(page.pixelColor(1490, 2190), QColor(Qt::black));
        EXPECT_EQ(page.pixelColor(990, 2010), QColor(Qt::white));
        EXPECT_EQ(page.pixelColor(1490, 2210), QColor(Qt::white));
    }

    /// What the library of printing says of its last call; up to 0x00ff is success.
    static int LastStatus()
    {
        using Status = int (*)();
        const auto status = reinterpret_cast<Status>(QLibrary::resolve("cups", 2, "cupsLastError"));
        return status == nullptr ? -1 : status();
    }

    static constexpr int kLastSuccess = 0x00ff;

    PrintQueue queue;
};

} // namespace

TEST_F(PrintQueueTest, TheToolkitListsBothQueuesAndTheDefault)
{
    EXPECT_THAT(QPrinterInfo::availablePrinterNames(), testing::UnorderedElementsAre(kDefaultQueue, kOtherQueue));
    EXPECT_EQ(QPrinterInfo::defaultPrinterName(), kDefaultQueue);
    EXPECT_TRUE(queue.Jobs().empty());
}

TEST_F(PrintQueueTest, AnotherDefaultIsSeenAtOnce)
{
    ASSERT_EQ(QPrinterInfo::defaultPrinterName(), kDefaultQueue);
    queue.MakeDefault(kOtherQueue);
    EXPECT_EQ(QPrinterInfo::defaultPrinterName(), kOtherQueue);
}

TEST_F(PrintQueueTest, ADocumentComesOutOfTheDefaultQueueAsItWasDrawn)
{
    PrintAt(kDefaultQueue);
    const QString file = queue.WaitForPrinted(kDefaultQueue);
    ExpectBothPages(file);
    EXPECT_EQ(ReadPdf(file).title, "Prüfbericht, Motor 1");
    EXPECT_TRUE(queue.Printed(kOtherQueue).isEmpty());
}

TEST_F(PrintQueueTest, ADocumentComesOutOfTheOtherQueueThroughPostScript)
{
    PrintAt(kOtherQueue);
    ExpectBothPages(queue.WaitForPrinted(kOtherQueue));
    EXPECT_TRUE(queue.Printed(kDefaultQueue).isEmpty());
}

TEST_F(PrintQueueTest, WhatIsHandedOverCanBeReadBeforeTheFiltersHaveIt)
{
    PrintAt(kOtherQueue);
    ExpectBothPages(queue.Submitted(1));
    EXPECT_EQ(ReadPdf(queue.Submitted(1)).title, "Prüfbericht, Motor 1");
}

TEST_F(PrintQueueTest, EachJobIsListedWithTitleAndQueue_AlsoOneThatIsDone)
{
    PrintAt(kDefaultQueue);
    PrintAt(kOtherQueue);
    queue.WaitForPrinted(kDefaultQueue);
    queue.WaitForPrinted(kOtherQueue);
    const std::vector<PrintJob> jobs = queue.Jobs();
    ASSERT_EQ(jobs.size(), 2U);
    EXPECT_EQ(jobs[0].number, 1);
    EXPECT_EQ(jobs[0].queue, kDefaultQueue);
    EXPECT_EQ(jobs[0].title, "Prüfbericht, Motor 1");
    EXPECT_EQ(jobs[1].queue, kOtherQueue);
}

TEST_F(PrintQueueTest, ThePrintedFilesOfAQueueAreInTheOrderOfTheJobs)
{
    PrintAt(kDefaultQueue);
    PrintAt(kDefaultQueue);
    const QString second = queue.WaitForPrinted(kDefaultQueue, 2);
    ASSERT_EQ(queue.Printed(kDefaultQueue).size(), 2);
    EXPECT_EQ(queue.Printed(kDefaultQueue)[1], second);
    EXPECT_TRUE(second.endsWith("/2.pdf")) << second.toStdString();
}

TEST_F(PrintQueueTest, ARemovedQueueIsMissedByTheList)
{
    ASSERT_EQ(QPrinterInfo::availablePrinterNames().size(), 2);
    queue.Remove(kDefaultQueue);
    EXPECT_EQ(QPrinterInfo::availablePrinterNames(), QStringList{kOtherQueue});
    EXPECT_EQ(QPrinterInfo::defaultPrinterName(), "");
}

TEST_F(PrintQueueTest, AQueueRemovedWhilePrintingIsToldByTheLibraryOnly)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(kOtherQueue);
    Print(printer, [&] { queue.Remove(kOtherQueue); });
    EXPECT_GT(LastStatus(), kLastSuccess);
    EXPECT_TRUE(queue.Jobs().empty());
}

TEST_F(PrintQueueTest, AQueueThatRefusesJobsIsToldByTheLibraryOnly)
{
    queue.Reject(kDefaultQueue);
    PrintAt(kDefaultQueue);
    EXPECT_GT(LastStatus(), kLastSuccess);
    EXPECT_TRUE(queue.Jobs().empty());
}

TEST_F(PrintQueueTest, AStoppedServerIsToldByTheLibraryOnly)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(kDefaultQueue);
    Print(printer, [&] { queue.StopServer(); });
    EXPECT_GT(LastStatus(), kLastSuccess);
    EXPECT_TRUE(QPrinterInfo::availablePrinterNames().isEmpty());
    EXPECT_EQ(QPrinterInfo::defaultPrinterName(), "");
}

TEST_F(PrintQueueTest, ADisabledQueueTakesAJobAndPrintsItLater)
{
    queue.Disable(kDefaultQueue);
    PrintAt(kDefaultQueue);
    EXPECT_LE(LastStatus(), kLastSuccess);
    ASSERT_EQ(queue.Jobs().size(), 1U);
    EXPECT_EQ(queue.Jobs()[0].state, "pending");
    EXPECT_THROW(queue.WaitForPrinted(kDefaultQueue, 1, 0), std::runtime_error);
    queue.Enable(kDefaultQueue);
    ExpectBothPages(queue.WaitForPrinted(kDefaultQueue));
}

TEST_F(PrintQueueTest, AnUnknownNameLeavesThePrinterAtTheDefault)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName("Dachboden");
    EXPECT_EQ(printer.printerName(), kDefaultQueue);
    EXPECT_TRUE(printer.isValid());
}

TEST_F(PrintQueueTest, ADocumentThatIsAbortedIsAJobAllTheSame)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setPrinterName(kDefaultQueue);
    Print(printer, [&] {
        EXPECT_FALSE(printer.abort());
        EXPECT_TRUE(queue.Jobs().empty()) << "handed over before its end";
    });
    EXPECT_EQ(queue.Jobs().size(), 1U);
}

TEST_F(PrintQueueTest, AProcessOfItsOwnPrintsThere)
{
    QProcess list;
    list.setProcessEnvironment(queue.Environment());
    list.start("lpstat", {"-e"});
    ASSERT_TRUE(list.waitForFinished());
    const QString names = list.readAllStandardOutput();
    EXPECT_THAT(names.split('\n', Qt::SkipEmptyParts), testing::UnorderedElementsAre(kDefaultQueue, kOtherQueue));
}

TEST_F(PrintQueueTest, WhatCannotBeDoneIsToldWithTheLogOfTheServer)
{
    try {
        queue.Disable("Dachboden");
        FAIL() << "disabled a queue that isn't there";
    } catch (const std::runtime_error& failure) {
        EXPECT_THAT(failure.what(), testing::HasSubstr("Dachboden"));
        EXPECT_THAT(failure.what(), testing::HasSubstr("the server's log"));
    }
}

TEST(PrintQueueEnd, AfterItsEndThereIsNoPrinter_AndTheNextOneBeginsEmpty)
{
    {
        const PrintQueue first;
        ASSERT_EQ(QPrinterInfo::availablePrinterNames().size(), 2);
    }
    EXPECT_TRUE(QPrinterInfo::availablePrinterNames().isEmpty());
    const PrintQueue second;
    EXPECT_EQ(QPrinterInfo::availablePrinterNames().size(), 2);
    EXPECT_TRUE(second.Jobs().empty());
}

} // namespace korvanel::test
