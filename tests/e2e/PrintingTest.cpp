// Reports of the real program: on a real queue and into a file, whole or not at all.
#include "e2e/RecordingFixture.h"
#include "support/PdfReader.h"
#include "support/PrintQueue.h"

#include <QDir>
#include <QElapsedTimer>

namespace korvanel::test {
namespace {

class PrintingProgram : public ProjectTest
{
protected:
    PrintingProgram() { qputenv("XDG_CONFIG_HOME", PathOf("settings").toUtf8()); }

    /// A recording of so many sets, whose currents are their numbers, and the page of the report over it.
    void OpenReport(int sets)
    {
        CreateProject(0);
        StoreNumbered(sets);
        program.Start();
        program.WaitForWindow("MainForm");
        program.Trigger("mnuOpen");
        program.GivePath(App().sProjectPath);
        program.WaitForControl("FormF1");
        program.Trigger("mnuPrint");
        program.WaitForControl("FormF9");
        WaitFor([this] { return program.Text("lblPage").startsWith("Seite"); });
        program.Trigger("cmdSelectAll");
    }
    void PrintToFile(const QString& path)
    {
        program.Choose("cboPrinters", "PDF-Datei");
        program.Trigger("cmdPrint");
        program.GivePath(path);
    }
    template <typename Condition>
    static void WaitFor(const Condition& isMet)
    {
        QElapsedTimer timer;
        timer.start();
        while (!isMet() && timer.elapsed() < 20'000)
            QThread::msleep(20);
        ASSERT_TRUE(isMet());
    }
    void End()
    {
        program.WaitForQuiet();
        program.WaitUntilEnabled("cmdPrint");
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
    /// The sets in the first column of the table.
    static QStringList SetsOf(const PdfDocument& report)
    {
        QStringList sets;
        for (const PdfPage& page : report.pages)
            for (const PdfWord& word : page.words)
                if (page.text.contains("Messtabelle") && word.box.right() < 36 && word.box.top() > 55)
                    sets << word.text;
        return sets;
    }

    PrintQueue queue;
    ProgramDriver program{PathOf("settings")};
};

TEST_F(PrintingProgram, QueueAndFile_GetTheSameReport)
{
    OpenReport(150);
    EXPECT_EQ(program.Text("cboPrinters"), kDefaultQueue);
    program.Trigger("cmdPrint");
    const PdfDocument printed = ReadPdf(queue.WaitForPrinted(kDefaultQueue));
    PrintToFile(PathOf("bericht.pdf"));
    WaitFor([&] { return QFile::exists(PathOf("bericht.pdf")); });
    const PdfDocument file = ReadPdf(PathOf("bericht.pdf"));
    End();

    ASSERT_EQ(queue.Jobs().size(), 1U) << "the file is none";
    EXPECT_EQ(queue.Jobs().front().title, file.title);
    ASSERT_EQ(printed.pages.size(), file.pages.size());
    for (std::size_t page = 0; page < file.pages.size(); ++page) {
        ASSERT_EQ(printed.pages[page].words.size(), file.pages[page].words.size())
            << printed.pages[page].text.toStdString() << file.pages[page].text.toStdString();
        EXPECT_EQ(printed.pages[page].size.toSize(), QSize(210, 297));
        EXPECT_THAT(
            file.pages[page].text.toStdString(),
            ::testing::HasSubstr("Seite " + std::to_string(page + 1) + " von " + std::to_string(file.pages.size())));
    }
    QStringList expected;
    for (const int first : {1, 1, 61, 61, 121, 121}) // two blocks of columns with the same sets
        for (int set = first; set < first + 60 && set <= 150; ++set)
            expected << QString::number(set);
    EXPECT_EQ(SetsOf(printed).join(u' '), expected.join(u' '));

    // Words tell little of the diagrams.
    const int last = static_cast<int>(file.pages.size());
    const QImage onPaper = PdfPageImage(queue.Printed(kDefaultQueue).front(), last, 72);
    const QImage inFile = PdfPageImage(PathOf("bericht.pdf"), last, 72);
    ASSERT_EQ(onPaper.size(), inFile.size());
    int different = 0;
    for (int y = 0; y < inFile.height(); ++y)
        for (int x = 0; x < inFile.width(); ++x)
            different += std::abs(qGray(onPaper.pixel(x, y)) - qGray(inFile.pixel(x, y))) > 96 ? 1 : 0;
    EXPECT_LT(different, inFile.width() * inFile.height() / 200);
}

TEST_F(PrintingProgram, StoppedReport_LeavesNoJobAndNoFile)
{
    OpenReport(60'000);
    const QStringList before = QDir(folder.path()).entryList(QDir::Files);
    program.Trigger("cmdPrint");
    program.WaitForControl("dlgPrinting");
    program.Trigger("cmdAbort");
    EXPECT_EQ(program.AnswerBox("OK"), "Der Druck wurde abgebrochen. Es wurde nichts ausgegeben.");
    program.WaitForQuiet();
    EXPECT_TRUE(queue.Jobs().empty());

    PrintToFile(PathOf("bericht.pdf"));
    program.WaitForControl("dlgPrinting");
    program.Trigger("cmdAbort");
    EXPECT_EQ(program.AnswerBox("OK"), "Der Druck wurde abgebrochen. Es wurde nichts ausgegeben.");
    program.WaitForQuiet();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), before);
    End();
}

TEST_F(PrintingProgram, VanishedPrinter_IsToldAndNothingGoesElsewhere)
{
    OpenReport(20);
    program.Choose("cboPrinters", kOtherQueue);
    queue.Remove(kOtherQueue);
    program.Trigger("cmdPrint");
    EXPECT_EQ(program.AnswerBox("OK"),
              "Der Drucker " + kOtherQueue + " ist nicht mehr vorhanden. Es wurde nichts gedruckt.");
    End();
    EXPECT_TRUE(queue.Jobs().empty());
}

} // namespace
} // namespace korvanel::test
