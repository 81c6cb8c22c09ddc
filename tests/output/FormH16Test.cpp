// The dialog of the report of both machines: what it shows, and what its boxes, heads of columns and numbers set.
#include "output/FormH16Fixture.h"

namespace korvanel::test {
namespace {

class FormH16Test : public FormH16Fixture
{
};

// What it shows.

TEST_F(FormH16Test, Open_HasItsControls)
{
    OpenBoth();
    EXPECT_EQ(dialog->objectName(), "FormH16");
    EXPECT_EQ(dialog->windowTitle(), "Simulation - Drucken");
    const char* captions[] = {"Projektübersicht", "Auswertung", "Datensätze Motor/Generator I drucken",
                              "Datensätze Motor/Generator II drucken"};
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(Box(i).text(), QString::fromUtf8(captions[i]));
        EXPECT_TRUE(Box(i).isChecked()) << i;
    }
    EXPECT_EQ(Button("cmdPrinter").text(), "Drucker einrichten");
    EXPECT_EQ(Button("cmdPrint").text(), "Drucken");
    EXPECT_EQ(Button("cmdSelectAll").text(), "Alle Datensätze");
    EXPECT_EQ(Button("cmdOK").text(), "OK");
    EXPECT_TRUE(Button("cmdOK").isDefault());
    EXPECT_EQ(ControlOf<QComboBox>(*dialog, "cboPrinters").currentText(), "PDF-Datei") << "there is no printer";
    EXPECT_FALSE(Button("cmdPrinter").isEnabled());
    EXPECT_EQ(Number(0).text(), "1");
    EXPECT_EQ(Number(1).text(), "70");
    EXPECT_FALSE(App().bProjectDirty) << "looking changes nothing";
    EXPECT_EQ(shell.BoxTexts(), QStringList());
    if (const QByteArray pictures = qgetenv("KORVANEL_PICTURES"); !pictures.isEmpty()) {
        ClickHead(0, QStringLiteral("Q [var]"));
        Grid(0).horizontalScrollBar()->setValue(0);
        Type(0, QStringLiteral("3"));
        dialog->grab().save(QString::fromLocal8Bit(pictures) + "/FormH16.png");
    }
}

TEST_F(FormH16Test, Boxes_StandAsTheSectionsAreSet)
{
    OpenProjectOfBoth();
    App().PrintIt.fill(1);
    App().PrintIt[14] = 0;
    App().PrintIt[5] = 0;
    Open();
    EXPECT_FALSE(Box(0).isChecked()) << "it goes by the overview of both machines";
    EXPECT_TRUE(Box(1).isChecked());
    EXPECT_FALSE(Box(2).isChecked());
    EXPECT_TRUE(Box(3).isChecked());
}

TEST_F(FormH16Test, EachBox_SetsItsSectionsAndNoOthers)
{
    const std::vector<int> sectionsOfBox[] = {{0, 14}, {15}, {5}, {6}};
    OpenProjectOfBoth();
    for (int i = 0; i < 4; ++i) {
        App().PrintIt.fill(1);
        App().bProjectDirty = false;
        Open();
        Box(i).click();
        std::array<qint32, 16> expected{};
        expected.fill(1);
        for (const int section : sectionsOfBox[i])
            expected.at(static_cast<std::size_t>(section)) = 0;
        EXPECT_EQ(App().PrintIt, expected) << i;
        EXPECT_TRUE(App().bProjectDirty) << i;
        Box(i).click();
        expected.fill(1);
        EXPECT_EQ(App().PrintIt, expected) << i;
    }
}

TEST_F(FormH16Test, Grids_HaveTheColumnsOfTheTablesWhateverIsOn)
{
    OpenProjectOfBoth();
    TurnOff({kU, kWpMinus});
    Open();
    const QStringList expected{"Satz",    "t Sample", "U [V]",    "I [A]",   "f [Hz]", "Pel [W]",
                               "Q [var]", "Phi [°]",  "cosphi",   "n [rpm]", "M [Nm]", "Pmech [W]",
                               "eta",     "Wp [Wh]",  "Wp+ [Wh]", "Wp- [Wh]"};
    EXPECT_EQ(Heads(0), expected);
    EXPECT_EQ(Heads(1), expected);
}

TEST_F(FormH16Test, Grids_ShowTheSetsOfTheirMachine)
{
    OpenBoth();
    for (const int row : {0, 2}) {
        EXPECT_EQ(Cell(0, row, "Satz"), QString::number(row + 1));
        EXPECT_EQ(Cell(1, row, "Satz"), QString::number(row + 1));
        EXPECT_EQ(Cell(1, row, "t Sample"), Cell(0, row, "t Sample"));
        EXPECT_EQ(Cell(0, row, "Pel [W]"), Stored("SampledValues", "P sum", row + 1, 1000));
        EXPECT_EQ(Cell(1, row, "Pel [W]"), Stored("SimulatedValues", "P sum", row + 1, 1000));
        EXPECT_EQ(Cell(1, row, "n [rpm]"), Stored("SimulatedValues", "n", row + 1, 1));
        EXPECT_NE(Cell(0, row, "Pel [W]"), Cell(1, row, "Pel [W]"));
        EXPECT_EQ(Cell(0, row, "I [A]"), QString::number(31 + row));
        for (const char* unknown : {"I [A]", "Q [var]", "Phi [°]", "cosphi"})
            EXPECT_EQ(Cell(1, row, QString::fromUtf8(unknown)), "-") << unknown;
    }
}

TEST_F(FormH16Test, LongRecording_IsScrolledByTheBarsOfTheGrids)
{
    OpenReportProject(2, 0);
    StoreNumbered(20000);
    TakeSecondMachine();
    Open();
    for (int i = 0; i < 2; ++i) {
        const int rows = Grid(i).rowCount();
        EXPECT_GT(rows, 3);
        EXPECT_LT(rows, 60) << "no more than is seen";
        EXPECT_EQ(Bar(i).maximum(), 20000 - rows);
        Bar(i).setValue(12345);
        EXPECT_EQ(Cell(i, 0, "Satz"), "12346");
        Bar(i).setValue(Bar(i).maximum());
        EXPECT_EQ(Cell(i, rows - 1, "Satz"), "20000");
    }
    Bar(1).setValue(0);
    EXPECT_EQ(Cell(1, 0, "Satz"), "1");
    EXPECT_EQ(Cell(0, Grid(0).rowCount() - 1, "Satz"), "20000") << "each grid by itself";
}

TEST_F(FormH16Test, RowsOfTheSecondMachineMissing_LeaveItsGridEmpty)
{
    OpenProjectOfBoth();
    const auto expectEmpty = [this] {
        Open();
        EXPECT_EQ(Cell(0, 0, "Satz"), "1");
        for (int row = 0; row < Grid(1).rowCount(); ++row)
            EXPECT_EQ(Cell(1, row, "Satz"), "");
        EXPECT_EQ(shell.BoxTexts(), QStringList());
    };
    Execute("DROP TABLE SimulatedValues");
    expectEmpty();
    TakeSecondMachine();
    App().MachineII.evaluation = {}; // as after a machine that can't be computed, with the rows of another one
    expectEmpty();
}

TEST_F(FormH16Test, NoSets_LeaveBothGridsEmpty)
{
    OpenProjectOfBoth(0);
    Open();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Cell(i, 0, "Satz"), "");
        EXPECT_EQ(Bar(i).maximum(), 0);
    }
    EXPECT_EQ(shell.BoxTexts(), QStringList());
}

// Columns.

TEST_F(FormH16Test, ClickOnAHead_SwitchesTheColumnInBothGrids)
{
    OpenBoth();
    int clicked = 0;
    for (const int grid : {0, 1}) {
        ClickHead(grid, "M [Nm]");
        const bool isOff = ++clicked % 2 == 1;
        EXPECT_EQ(App().PrChecks[kM], isOff ? 0 : 1);
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(IsHeadGrey(i, "M [Nm]"), isOff);
            EXPECT_EQ(IsCellGrey(i, 0, "M [Nm]"), isOff);
            EXPECT_FALSE(IsHeadGrey(i, "n [rpm]"));
            EXPECT_FALSE(IsCellGrey(i, 0, "n [rpm]"));
            EXPECT_FALSE(IsCellGrey(i, 0, "Satz"));
        }
    }
    EXPECT_TRUE(App().bProjectDirty);
    std::array<qint32, kQuantityCount> all{};
    all.fill(1);
    EXPECT_EQ(App().PrChecks, all) << "no other column";
}

TEST_F(FormH16Test, HeadOfAColumnThatIsOff_SaysSo)
{
    OpenProjectOfBoth();
    TurnOff({kM});
    Open();
    for (int i = 0; i < 2; ++i) {
        const auto toldOf = [&](const char* head) {
            return Grid(i).horizontalHeaderItem(ColumnOf(i, head))->data(Qt::AccessibleTextRole).toString();
        };
        EXPECT_EQ(toldOf("M [Nm]"), "M [Nm] (wird nicht gedruckt)");
        EXPECT_EQ(toldOf("n [rpm]"), "n [rpm]");
        EXPECT_EQ(Grid(i).horizontalHeaderItem(ColumnOf(i, "M [Nm]"))->toolTip().remove(QRegularExpression("<[^>]*>")),
                  "Ein Klick auf den Kopf einer Spalte nimmt sie in die Tabellen auf oder heraus.");
    }
}

TEST_F(FormH16Test, HeadsOfNumberAndTime_AreNotSwitched)
{
    OpenBoth();
    auto& fixed = ControlOf<QTableView>(*dialog, "flxFixed");
    for (const int section : {0, 1})
        QTest::mouseClick(fixed.horizontalHeader()->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(fixed.horizontalHeader()->sectionViewportPosition(section) + 10, 8));
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(std::ranges::count(App().PrChecks, 1), kQuantityCount);
}

// Sets.

TEST_F(FormH16Test, EmptyBox_IsTheFirstSet)
{
    OpenBoth();
    Type(1, "");
    EXPECT_EQ(Number(1).text(), "1");
    EXPECT_EQ(App().StopAtSet, 1);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH16Test, Numbers_ChooseTheSets)
{
    OpenBoth();
    Type(0, "3");
    Type(1, "5");
    EXPECT_EQ(App().PrintSetsOpt, 0);
    EXPECT_EQ(App().StartAtSet, 3);
    EXPECT_EQ(App().StopAtSet, 5);
    EXPECT_TRUE(App().bProjectDirty);
    for (int i = 0; i < 2; ++i) {
        EXPECT_TRUE(IsCellGrey(i, 1, "U [V]")) << "set 2 isn't printed";
        EXPECT_TRUE(IsCellGrey(i, 1, "Satz"));
        EXPECT_FALSE(IsCellGrey(i, 2, "U [V]"));
        EXPECT_FALSE(IsCellGrey(i, 4, "U [V]"));
        EXPECT_TRUE(IsCellGrey(i, 5, "U [V]"));
    }
    Button("cmdSelectAll").click();
    EXPECT_EQ(App().PrintSetsOpt, 1);
    EXPECT_EQ(Number(0).text(), "1");
    EXPECT_EQ(Number(1).text(), "70");
    EXPECT_FALSE(IsCellGrey(0, 1, "U [V]"));
}

TEST_F(FormH16Test, NumbersThatAreNone_AreToldAndNothingChanges)
{
    OpenBoth();
    int told = 0;
    for (const char* text : {"0", "71", "-3", "99999999999", "abc", "4x"}) {
        Type(1, QString::fromLatin1(text));
        EXPECT_EQ(shell.boxes.size(), static_cast<std::size_t>(++told)) << text;
        EXPECT_EQ(App().PrintSetsOpt, 1) << text;
        EXPECT_FALSE(App().bProjectDirty) << text;
    }
    shell.savePaths = {PathOf("nie.pdf")};
    Button("cmdPrint").click();
    EXPECT_EQ(shell.boxes.size(), static_cast<std::size_t>(++told)) << "told again, and nothing is printed";
    EXPECT_FALSE(QFile::exists(PathOf("nie.pdf")));
}

// Opening and closing.

TEST_F(FormH16Test, Ok_TakesWhatIsTypedAndCloses)
{
    OpenBoth();
    Number(0).setText("4");
    Button("cmdOK").click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(App().StartAtSet, 4);
}

TEST_F(FormH16Test, Ok_StaysWhereANumberIsNone)
{
    OpenBoth();
    Number(0).setText("abc");
    Button("cmdOK").click();
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(shell.boxes.size(), 1U);
    Number(0).setText("2");
    Button("cmdOK").click();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(shell.boxes.size(), 1U);
}

TEST_F(FormH16Test, Escape_TakesWhatIsTypedTellsWhatIsNoneAndCloses)
{
    OpenBoth();
    Number(1).setText("8");
    PressKey(*dialog, Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(App().StopAtSet, 8);
    Open();
    Number(1).setFocus();
    Number(1).setText("abc");
    PressKey(*dialog, Qt::Key_Escape);
    QApplication::processEvents();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(shell.boxes.size(), 1U) << "told once";
    EXPECT_EQ(App().StopAtSet, 8);
}

TEST_F(FormH16Test, EnterInABox_TakesTheNumberAndLeavesTheDialogOpen)
{
    OpenBoth();
    dialog->activateWindow();
    Number(0).setFocus();
    Number(0).setText("6");
    QTest::keyClick(&Number(0), Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(App().StartAtSet, 6);
    Number(0).setText("abc");
    QTest::keyClick(&Number(0), Qt::Key_Return);
    EXPECT_EQ(shell.boxes.size(), 1U) << "told once";
    ControlOf<QComboBox>(*dialog, "cboPrinters").setFocus();
    shell.boxes.clear();
    Number(0).setText("7");
    QTest::keyClick(&ControlOf<QComboBox>(*dialog, "cboPrinters"), Qt::Key_Return);
    EXPECT_FALSE(dialog->isVisible()) << "elsewhere it presses OK";
}

TEST_F(FormH16Test, ButtonOfTheTab_OpensTheDialog)
{
    OpenReportProject(2, 5);
    App().ResultPage.tab = u'E';
    EnterPage();
    EXPECT_FALSE(Find<QPushButton>("cmdPrint").isEnabled()) << "without a second machine";
    TakeSecondMachine();
    window.RefreshPage();
    auto& button = Find<QPushButton>("cmdPrint");
    ASSERT_TRUE(button.isEnabled());
    bool isShown = false;
    WithNextDialog<FormH16>([&isShown](FormH16& shown) {
        isShown = true;
        ControlOf<QPushButton>(shown, "cmdOK").click();
    });
    button.click();
    EXPECT_TRUE(isShown);
    EXPECT_EQ(shell.BoxTexts(), QStringList());
}

} // namespace
} // namespace korvanel::test
