// The report of both machines as it comes out of its dialog.
#include "output/FormH16Fixture.h"

namespace korvanel::test {
namespace {

class FormH16Print : public FormH16Fixture
{
};

TEST_F(FormH16Print, Report_HasItsSectionsInOrder)
{
    OpenBoth();
    EXPECT_EQ(SectionsOf(Printed()),
              (QStringList{"Übersicht Motor/Generator I und II", "Auslastung Motor/Generator I und II",
                           "Messtabelle (Motor/Generator I)", "Messtabelle (Motor/Generator II)"}));
    Box(0).click();
    Box(2).click();
    EXPECT_EQ(SectionsOf(Printed()),
              (QStringList{"Auslastung Motor/Generator I und II", "Messtabelle (Motor/Generator II)"}));
}

TEST_F(FormH16Print, Report_HasNothingButTheSectionsOfBoth)
{
    OpenBoth(); // with everything of the project's own report switched on
    const PdfDocument report = Printed();
    for (const PdfPage& page : report.pages)
        for (const char* other : {"Extremwerte", "Gesamtdiagramm", "Messtabelle\n", "Messtabelle (ASM-Werte)"})
            EXPECT_FALSE(page.text.contains(QLatin1String(other))) << other;
}

TEST_F(FormH16Print, Printing_NotesTheMoment)
{
    OpenBoth();
    App().dtPrinted = {};
    Printed();
    EXPECT_EQ(App().dtPrinted, PresentMoment());
}

TEST_F(FormH16Print, Tables_HaveTheColumnsThatAreOn)
{
    OpenProjectOfBoth(5);
    TurnOff({kI, kPhi, kWpPlus});
    Open();
    ClickHead(1, "eta");
    const PdfDocument report = Printed();
    const QStringList expected{"Satz",   "t Sample", "U [V]",  "f [Hz]",    "Pel [W]", "Q [var]",
                               "cosphi", "n [rpm]",  "M [Nm]", "Pmech [W]", "Wp [Wh]", "Wp- [Wh]"};
    EXPECT_EQ(TableOf(report, "Messtabelle (Motor/Generator I)").heads, expected);
    EXPECT_EQ(TableOf(report, "Messtabelle (Motor/Generator II)").heads, expected);
}

TEST_F(FormH16Print, Tables_HaveTheValuesOfTheFile)
{
    OpenBoth();
    const PdfDocument report = Printed();
    const PaperTable first = TableOf(report, "Messtabelle (Motor/Generator I)");
    const PaperTable second = TableOf(report, "Messtabelle (Motor/Generator II)");
    ASSERT_EQ(first.rows.size(), 70U);
    ASSERT_EQ(second.rows.size(), 70U);
    const struct
    {
        const char* head;
        const char* column;
        double factor;
        double divisor;
    } columns[] = {{"U [V]", "U sum", 1000, 1},   {"f [Hz]", "f sum", 100, 1},    {"Pel [W]", "P sum", 1000, 1},
                   {"n [rpm]", "n", 1, 1},        {"M [Nm]", "M", 100, 1},        {"Pmech [W]", "Pmech", 1000, 1},
                   {"Wp [Wh]", "Wp", 1000, 3600}, {"Wp- [Wh]", "Wp-", 1000, 3600}};
    for (const int set : {1, 2, 57, 58, 59, 60, 70}) {
        for (const auto& line : columns) {
            const bool isSampled = QByteArrayList{"U sum", "f sum", "P sum"}.contains(line.column);
            EXPECT_EQ(first.Cell(set, line.head), Stored(isSampled ? "SampledValues" : "ComputedValues", line.column,
                                                         set, line.factor, line.divisor))
                << set << line.head;
            EXPECT_EQ(second.Cell(set, line.head),
                      Stored("SimulatedValues", line.column, set, line.factor, line.divisor))
                << set << line.head;
        }
        for (const char* unknown : {"I [A]", "Q [var]", "Phi [°]", "cosphi"}) {
            EXPECT_EQ(second.Cell(set, QString::fromUtf8(unknown)), "-") << set << unknown;
            EXPECT_NE(first.Cell(set, QString::fromUtf8(unknown)), "-") << set << unknown;
        }
    }
    EXPECT_EQ(second.Cell(20, "Satz"), "*20") << "a corrected set bears its mark";
    EXPECT_EQ(second.Cell(21, "Satz"), "21");
}

TEST_F(FormH16Print, NothingOn_IsToldBeforeAFileIsAskedFor)
{
    OpenProjectOfBoth();
    App().PrintIt.fill(1);
    for (const std::size_t section : {0U, 14U, 15U, 5U, 6U})
        App().PrintIt.at(section) = 0;
    Open();
    shell.savePaths = {PathOf("nichts.pdf")};
    Button("cmdPrint").click();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es ist nichts zum Drucken gewählt."});
    EXPECT_TRUE(shell.saveQuestions.empty());
    EXPECT_FALSE(QFile::exists(PathOf("nichts.pdf")));
}

TEST_F(FormH16Print, TablesWithoutAColumn_AreNothingToPrint)
{
    OpenProjectOfBoth();
    App().PrChecks.fill(0);
    App().PrintIt.fill(0);
    App().PrintIt[5] = App().PrintIt[6] = 1;
    Open();
    Button("cmdPrint").click();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es ist nichts zum Drucken gewählt."});
}

TEST_F(FormH16Print, FileThatIsNotChosen_PrintsNothing)
{
    OpenBoth();
    shell.savePaths.clear();
    Button("cmdPrint").click();
    EXPECT_EQ(shell.saveQuestions.size(), 1U);
    EXPECT_EQ(shell.BoxTexts(), QStringList());
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FormH16Print, RowsOfAnotherMachine_AreNotPrinted)
{
    OpenProjectOfBoth(5);
    App().MachineII.evaluation = {}; // as after a machine that can't be computed
    Open();
    EXPECT_EQ(SectionsOf(Printed()).mid(2), QStringList{"Messtabelle (Motor/Generator I)"});
    for (const int other : {0, 1, 2})
        Box(other).click();
    Button("cmdPrint").click();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Es ist nichts zum Drucken gewählt."});
}

TEST_F(FormH16Print, TableThatIsGone_IsToldAndNoFileIsLeft)
{
    OpenProjectOfBoth(5);
    Execute("DROP TABLE SimulatedValues");
    Open();
    shell.savePaths = {PathOf("halb.pdf")};
    Button("cmdPrint").click();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_FALSE(QFile::exists(PathOf("halb.pdf")));
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(FormH16Print, HintOfPrinting_TellsWhereItGoes)
{
    OpenBoth();
    QHelpEvent asked(QEvent::ToolTip, QPoint(3, 3), QPoint(3, 3));
    QApplication::sendEvent(&Button("cmdPrint"), &asked);
    EXPECT_TRUE(Button("cmdPrint").toolTip().contains("Drucken auf PDF-Datei"));
}

TEST_F(FormH16Print, MachineRecorder_HasItsTablesToo)
{
    OpenProjectOfBoth(5, 5);
    Open();
    EXPECT_EQ(Heads(0), Heads(1));
    EXPECT_EQ(Cell(0, 0, "Wp [Wh]"), "-") << "it records registers";
    const PdfDocument report = Printed();
    EXPECT_EQ(TableOf(report, "Messtabelle (Motor/Generator I)").heads,
              TableOf(report, "Messtabelle (Motor/Generator II)").heads);
    EXPECT_EQ(TableOf(report, "Messtabelle (Motor/Generator I)").Cell(1, "Pel [W]"), Cell(0, 0, "Pel [W]"));
}

TEST_F(FormH16Print, FirstBehindLast_PrintsTheSetsBetweenThem)
{
    OpenBoth();
    Box(0).click();
    Box(1).click();
    Type(0, "9");
    Type(1, "7");
    EXPECT_EQ(Number(0).text(), "9") << "what was typed stays";
    EXPECT_FALSE(IsCellGrey(0, 6, "U [V]"));
    const PaperTable table = TableOf(Printed(), "Messtabelle (Motor/Generator II)");
    std::vector<int> sets;
    for (const auto& [set, cells] : table.rows)
        sets.push_back(set);
    EXPECT_EQ(sets, (std::vector<int>{7, 8, 9}));
}

TEST_F(FormH16Print, RangeKeptFromALongerRecording_EndsWithTheRecording)
{
    OpenProjectOfBoth();
    App().PrintSetsOpt = 0;
    App().StartAtSet = 69;
    App().StopAtSet = 5000;
    App().PrintIt.fill(0);
    App().PrintIt[5] = 1;
    Open();
    const PaperTable table = TableOf(Printed(), "Messtabelle (Motor/Generator I)");
    EXPECT_EQ(table.rows.size(), 2U);
    EXPECT_TRUE(table.rows.contains(69) && table.rows.contains(70));
}

} // namespace
} // namespace korvanel::test
