// The page of the report: what is switched on it, where the report goes, its preview, and what is told when it can't be
// printed.
#include "output/ReportFixture.h"
#include "output/ReportPreview.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>

namespace korvanel::test {
namespace {

class FormF9Test : public ReportTest
{
protected:
    FormF9Test()
    {
        shell.printers = {"Büro", "Werkstatt"};
        shell.defaultPrinter = "Büro";
    }

    void EnterPrint()
    {
        window.UnloadAndOpen(kPagePrint);
        Wait();
    }
    /// Until the preview has drawn what is in view.
    static void Wait()
    {
        for (int i = 0; i < 20; ++i)
            QCoreApplication::processEvents();
    }
    QTableWidget& Sections() { return Find<QTableWidget>("flxPrint"); }
    QTableWidget& Diagrams() { return Find<QTableWidget>("flxPrintDiagrams"); }
    ReportPreview& Preview() { return Find<ReportPreview>("Preview"); }
    QComboBox& Printers() { return Find<QComboBox>("cboPrinters"); }

    static QStringList Rows(const QTableWidget& grid)
    {
        QStringList rows;
        for (int row = 0; row < grid.rowCount(); ++row)
            rows << grid.item(row, 0)->text();
        return rows;
    }
    static QTableWidgetItem& Row(QTableWidget& grid, const QString& text)
    {
        for (int row = 0; row < grid.rowCount(); ++row)
            if (grid.item(row, 0)->text() == text)
                return *grid.item(row, 0);
        throw std::out_of_range("no row " + text.toStdString());
    }
    QString Pages(const QString& section) { return Sections().item(Row(Sections(), section).row(), 1)->text(); }
    /// As the mouse does: on the box in front of the text.
    void Click(QTableWidget& grid, const QString& text)
    {
        const QRect cell = grid.visualItemRect(&Row(grid, text));
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.topLeft() + QPoint(10, cell.height() / 2));
        Wait();
    }
    void Type(const char* box, const QString& text)
    {
        auto& edit = Find<QLineEdit>(box);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
        Wait();
    }
    QString Hint()
    {
        auto& button = Find<QPushButton>("cmdPrint");
        QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), button.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&button, &event);
        return button.toolTip();
    }
    void ChoosePdf(const QString& path)
    {
        Printers().setCurrentIndex(Printers().findText("PDF-Datei"));
        shell.savePaths.push_back(path);
    }
    void Press(const char* name)
    {
        Find<QPushButton>(name).click();
        Wait();
    }
};

TEST_F(FormF9Test, Sections_StandInTheOrderOfTheirPages)
{
    OpenReportProject(2, 10);
    EnterPrint();
    EXPECT_EQ(Rows(Sections()).first(11),
              (QStringList{"Projektübersicht", "Maschinendaten", "Übersicht Motor/Generator I und II",
                           "Extremwerte und Werte im Zeitfenster", "Energie und Kosten", "ASM - Auslastung",
                           "Auslastung Motor/Generator I und II", "Messtabelle", "Messtabelle (ASM-Werte)",
                           "Messtabelle (Motor/Generator II)", "Spalten der Tabellen"}));
    EXPECT_EQ(Rows(Sections()).mid(11, 3), (QStringList{"U [V]", "I [A]", "f [Hz]"}));
    EXPECT_EQ(Rows(Diagrams()), (QStringList{"Gesamtdiagramm", "Einzeldiagramm"}));
    EXPECT_EQ(Find<QTabWidget>("tabEvaluation").tabText(0), "Übersicht/Auswertung");
    EXPECT_EQ(Find<QTabWidget>("tabEvaluation").tabText(1), "Diagramme");
    EXPECT_EQ(Find<QLabel>("lblPrinter").text(), "Drucker:");
    EXPECT_EQ(Find<QPushButton>("cmdSetup").text(), "Drucker &einrichten");
    EXPECT_EQ(Find<QPushButton>("cmdPrint").text(), "&Drucken");
    EXPECT_EQ(Find<QPushButton>("cmdSelectAll").text(), "Alle Datensätze");
}

TEST_F(FormF9Test, ClickOnASection_SwitchesItAndTheProjectIsChanged)
{
    OpenReportProject(2, 10);
    EnterPrint();
    App().bProjectDirty = false;
    const int before = Preview().PageCount();
    Click(Sections(), "Energie und Kosten");
    EXPECT_EQ(App().PrintIt[kReportEnergy], 0);
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_EQ(Preview().PageCount(), before - 1);
    Click(Sections(), "Energie und Kosten");
    EXPECT_EQ(App().PrintIt[kReportEnergy], 1);
    EXPECT_EQ(Preview().PageCount(), before);
    Find<QTabWidget>("tabEvaluation").setCurrentIndex(1);
    Click(Diagrams(), "Einzeldiagramm");
    EXPECT_EQ(App().PrintIt[kReportOneCurve], 0);
    EXPECT_EQ(App().PrintIt[kReportAllCurves], 1);
}

TEST_F(FormF9Test, ClickOnAColumn_SwitchesItForTheTables)
{
    OpenReportProject(2, 10);
    EnterPrint();
    Click(Sections(), "I [A]");
    EXPECT_EQ(App().PrChecks[kI], 0);
    EXPECT_EQ(App().PrChecks[kU], 1);
    EXPECT_EQ(App().Checks[kI], 1) << "what the other pages show is another choice";
}

TEST_F(FormF9Test, PagesOfEachSection_StandBesideIt)
{
    OpenReportProject(5, 130);
    App().PrChecks.fill(0);
    App().PrChecks[kU] = 1;
    App().bASMSim = false;
    EnterPrint();
    EXPECT_EQ(Pages("Messtabelle"), "3");
    EXPECT_EQ(Pages("Messtabelle (Phase 1)"), "keine Spalte");
    EXPECT_EQ(Pages("Übersicht Motor/Generator I und II"), "kein Motor/Generator II");
    EXPECT_EQ(Diagrams().item(0, 1)->text(), "1");
}

TEST_F(FormF9Test, OneSet_HasNoDiagrams)
{
    OpenReportProject(1, 1);
    EnterPrint();
    EXPECT_EQ(Diagrams().item(0, 1)->text(), "erst ab zwei Sätzen");
    EXPECT_EQ(Preview().PageCount(), 4 + 1) << "overview, extremes, energy, two blocks of columns";
}

TEST_F(FormF9Test, VoltageMeasurement_HasNoReport)
{
    OpenReportProject(6, 10);
    EnterPrint();
    EXPECT_EQ(Sections().rowCount(), 0);
    EXPECT_EQ(Preview().PageCount(), 0);
    ChoosePdf(PathOf("none.pdf"));
    Press("cmdPrint");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es ist nichts zum Drucken gewählt."});
    EXPECT_FALSE(QFile::exists(PathOf("none.pdf")));
}

TEST_F(FormF9Test, Sets_AreChosenByTheirNumbers)
{
    OpenReportProject(0, 200);
    App().PrintSetsOpt = 0;
    App().StartAtSet = 1;
    App().StopAtSet = 56;
    EnterPrint();
    EXPECT_EQ(Find<QLineEdit>("txtTable_0").text(), "1");
    EXPECT_EQ(Find<QLineEdit>("txtTable_1").text(), "56");
    EXPECT_EQ(Pages("Messtabelle"), "2");
    Type("txtTable_1", "150");
    EXPECT_EQ(App().StopAtSet, 150);
    EXPECT_EQ(Pages("Messtabelle"), "6");
    Press("cmdSelectAll");
    EXPECT_EQ(App().PrintSetsOpt, 1);
    EXPECT_EQ(Find<QLineEdit>("txtTable_1").text(), "200");
    EXPECT_EQ(Pages("Messtabelle"), "8");
    Type("txtTable_0", "190");
    EXPECT_EQ(App().PrintSetsOpt, 0);
    EXPECT_EQ(App().StartAtSet, 190);
    EXPECT_EQ(App().StopAtSet, 200);
}

TEST_F(FormF9Test, SetNumbersThatAreNone_AreToldAndNothingChanges)
{
    OpenReportProject(0, 20);
    App().PrintSetsOpt = 0;
    App().StartAtSet = 3;
    App().StopAtSet = 20;
    EnterPrint();
    for (const char* text : {"0", "21", "viele", "99999999999", "-5"}) {
        shell.boxes.clear();
        Type("txtTable_0", text);
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Der eingegebene Wert muss sich\nzwischen 1 und 20  befinden."})
            << text;
        EXPECT_EQ(App().StartAtSet, 3);
    }
}

TEST_F(FormF9Test, LastSetBeforeTheFirst_TakesTheSameSets)
{
    OpenReportProject(0, 100);
    App().PrintSetsOpt = 0;
    App().StartAtSet = 80;
    App().StopAtSet = 11;
    const auto [first, last] = SetsOfReport();
    EXPECT_EQ(first, 11);
    EXPECT_EQ(last, 80);
}

TEST_F(FormF9Test, StoredSetsBeyondTheRecording_AreThoseAtItsEnd)
{
    OpenReportProject(0, 100);
    App().PrintSetsOpt = 0;
    App().StartAtSet = 90;
    App().StopAtSet = std::numeric_limits<qint32>::max();
    EXPECT_EQ(SetsOfReport().first, 90);
    EXPECT_EQ(SetsOfReport().last, 100);
    App().StartAtSet = -7;
    App().StopAtSet = 0;
    EXPECT_EQ(SetsOfReport().first, 1);
    EXPECT_EQ(SetsOfReport().last, 1);
}

TEST_F(FormF9Test, Printers_AreListedWithTheDefaultOneChosenAndAFileAtTheEnd)
{
    OpenReportProject(0, 10);
    shell.defaultPrinter = "Werkstatt";
    EnterPrint();
    ASSERT_EQ(Printers().count(), 3);
    EXPECT_EQ(Printers().itemText(0), "Büro");
    EXPECT_EQ(Printers().itemText(2), "PDF-Datei");
    EXPECT_EQ(Printers().currentText(), "Werkstatt");
    EXPECT_EQ(Hint(), "Drucken auf Werkstatt");
    Printers().setCurrentIndex(0);
    EXPECT_EQ(App().sPrinter, "Büro");
    EXPECT_EQ(Hint(), "Drucken auf Büro");
    Printers().setCurrentIndex(2);
    EXPECT_EQ(Hint(), "Drucken auf PDF-Datei");
    EXPECT_FALSE(Find<QPushButton>("cmdSetup").isEnabled());
    EnterPrint();
    EXPECT_EQ(Printers().currentText(), "PDF-Datei") << "the choice is still there when the page is entered again";
    Printers().setCurrentIndex(0);
    EnterPrint();
    EXPECT_EQ(Printers().currentText(), "Büro");
}

TEST_F(FormF9Test, WithoutADefaultPrinter_TheHintSaysSoAndNothingIsPrinted)
{
    OpenReportProject(0, 10);
    shell.defaultPrinter.clear();
    EnterPrint();
    EXPECT_EQ(Hint(), "Kein Standarddrucker vorhanden");
    Printers().setCurrentIndex(0);
    EXPECT_EQ(Hint(), "Kein Standarddrucker vorhanden");
    Press("cmdPrint");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Kein Standarddrucker vorhanden"});
}

TEST_F(FormF9Test, WithoutAnyPrinter_AFileIsStillWritten)
{
    OpenReportProject(0, 10);
    shell.printers.clear();
    shell.defaultPrinter.clear();
    EnterPrint();
    EXPECT_EQ(Printers().currentText(), "PDF-Datei");
    EXPECT_EQ(Hint(), "Kein Standarddrucker vorhanden\nDrucken auf PDF-Datei");
    ChoosePdf(PathOf("bericht.pdf"));
    Press("cmdPrint");
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
    EXPECT_EQ(static_cast<int>(ReadPdf(PathOf("bericht.pdf")).pages.size()), Preview().PageCount());
}

TEST_F(FormF9Test, PdfFile_IsAskedForBesideTheProject)
{
    OpenReportProject(0, 10);
    EnterPrint();
    ChoosePdf(PathOf("ohne Endung"));
    Press("cmdPrint");
    ASSERT_EQ(shell.saveQuestions.size(), 1U);
    EXPECT_EQ(shell.saveQuestions.back().suggestion, PathOf("test.pdf"));
    EXPECT_EQ(shell.saveQuestions.back().extension, ".pdf");
    EXPECT_TRUE(QFile::exists(PathOf("ohne Endung.pdf")));
    EXPECT_EQ(App().dtPrinted, clock.Now()) << "the moment of the print";
}

TEST_F(FormF9Test, CancelledFileDialog_PrintsNothing)
{
    OpenReportProject(0, 10);
    EnterPrint();
    Printers().setCurrentIndex(Printers().findText("PDF-Datei"));
    const QStringList before = QDir(folder.path()).entryList();
    Press("cmdPrint");
    EXPECT_EQ(QDir(folder.path()).entryList(), before);
    EXPECT_EQ(shell.BoxTexts(), QStringList{});
}

TEST_F(FormF9Test, FileOfTheProgram_IsNotOverwritten)
{
    OpenReportProject(0, 10);
    EnterPrint();
    ChoosePdf(App().sProjectPath);
    Press("cmdPrint");
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_THAT(shell.boxes.back().text.toStdString(), ::testing::HasSubstr("kann nicht überschrieben werden"));
    EXPECT_EQ(Query("SELECT COUNT(*) FROM SampledValues"), "10");
}

TEST_F(FormF9Test, Choices_AreThereWhenTheProjectIsOpenedAgain)
{
    OpenReportProject(0, 80);
    EnterPrint();
    Click(Sections(), "Messtabelle");
    Click(Sections(), "f [Hz]");
    Type("txtTable_1", "70");
    const QString path = App().sProjectPath;
    window.UnloadAndOpen(kNoPage);
    ASSERT_TRUE(SaveProject());
    ResetProjectData();
    OpenProject(path);
    RefreshSetCount();
    EnterPrint();
    EXPECT_EQ(Row(Sections(), "Messtabelle").checkState(), Qt::Unchecked);
    EXPECT_EQ(Row(Sections(), "f [Hz]").checkState(), Qt::Unchecked);
    EXPECT_EQ(Row(Sections(), "U [V]").checkState(), Qt::Checked);
    EXPECT_EQ(Find<QLineEdit>("txtTable_1").text(), "70");
}

TEST_F(FormF9Test, Preview_ShowsThePagesAsTheyAreInTheFile)
{
    OpenReportProject(2, 130);
    EnterPrint();
    EXPECT_EQ(Find<QLabel>("lblPage").text(), QString("Seite 1 von %1").arg(Preview().PageCount()));
    QTest::keyClick(&Preview(), Qt::Key_PageDown);
    Wait();
    EXPECT_EQ(Preview().PageInView(), 2);
    QTest::keyClick(&Preview(), Qt::Key_End);
    Wait();
    EXPECT_EQ(Preview().PageInView(), Preview().PageCount());
    const PdfDocument file = PrintedReport();
    EXPECT_EQ(static_cast<int>(file.pages.size()), Preview().PageCount());
    if (const char* pictures = std::getenv("KORVANEL_PICTURES")) {
        QTest::keyClick(&Preview(), Qt::Key_Home);
        Wait();
        window.grab().save(QDir(QString::fromLocal8Bit(pictures)).filePath("drucken.png"));
    }
}

TEST_F(FormF9Test, Preview_GrowsAndShrinksAroundThePageInView)
{
    OpenReportProject(2, 130);
    EnterPrint();
    Preview().ShowPage(3);
    for (int i = 0; i < 3; ++i)
        Find<QToolButton>("cmdLarger").click();
    Wait();
    EXPECT_EQ(Preview().PageInView(), 3);
    for (int i = 0; i < 9; ++i)
        Find<QToolButton>("cmdSmaller").click();
    Wait();
    EXPECT_EQ(Preview().PageInView(), 3);
}

} // namespace
} // namespace korvanel::test
