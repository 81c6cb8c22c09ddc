// The two machines side by side: rating plates, suitability, breakdown of the classes, and the grid of the sets.
#include "simulation/FormH13.h"

#include "evaluation/Algorithms.h"
#include "evaluation/SuitabilityBar.h"
#include "simulation/SimulationPageFixture.h"
#include "support/Keys.h"

#include "core/Colour.h"
#include "core/NumberText.h"

#include <QGroupBox>

namespace korvanel::test {
namespace {

class FormH13Test : public SimulationPageTest
{
protected:
    void Open()
    {
        dialog = std::make_unique<FormH13>(nullptr);
        dialog->show();
        QApplication::processEvents();
    }
    QTableWidget& Grid() { return ControlOf<QTableWidget>(*dialog, "flxDaten"); }
    QScrollBar& Bar() { return ControlOf<QScrollBar>(*dialog, "scrDaten"); }
    QString LabelText(const char* name) { return ControlOf<QLabel>(*dialog, name).text(); }
    QStringList Row(int row)
    {
        QStringList cells;
        for (int i = 0; i < Grid().columnCount(); ++i)
            cells << CellOf(*dialog, "flxDaten", row, i);
        return cells;
    }
    /// Values that a second machine has in its table, as the grid shows them.
    QString Stored(const char* column, int set, double factor)
    {
        return RoundValue(
            Query(QStringLiteral("SELECT [%1] FROM SimulatedValues WHERE [Set]=%2").arg(QLatin1String(column)).arg(set))
                .toDouble(),
            factor);
    }
    static void Classes(EvaluationResults& results, const std::array<qint32, 4>& counts)
    {
        results.lRowClassCount = counts;
        results.lSets = counts[0] + counts[1] + counts[2] + counts[3];
    }

    std::unique_ptr<FormH13> dialog;
};

TEST_F(FormH13Test, Open_ShowsBothRatingPlates)
{
    OpenWithSets(40);
    TakeSecondMachine();
    Open();
    EXPECT_EQ(dialog->windowTitle(), "Simulation - Maschinenvergleich");
    EXPECT_EQ(ControlOf<QGroupBox>(*dialog, "fraModel").title(), "Daten von Motor/Generator I");
    EXPECT_EQ(ControlOf<QGroupBox>(*dialog, "fraModel_SIM").title(), "Ergebnisse für Motor/Generator II");
    EXPECT_EQ(ControlOf<QGroupBox>(*dialog, "fraDaten").title(), " Mess-/Simulationsdaten ");
    EXPECT_EQ(LabelText("lblPmech_0"), "18,5 kW");
    EXPECT_EQ(LabelText("lblN_0"), "1462,5 rpm");
    EXPECT_EQ(LabelText("lblU_0"), "400 V");
    EXPECT_EQ(LabelText("lblPmech_1"), "7,5 kW");
    EXPECT_EQ(LabelText("lblN_1"), "1472 rpm");
    EXPECT_EQ(LabelText("lblU_1"), "400 V");
    QStringList captions;
    for (const QLabel* label : ControlOf<QGroupBox>(*dialog, "fraModel").findChildren<QLabel*>())
        captions << label->text();
    for (const char* caption : {"Pmech:", "n:", "U:", "Eignung"})
        EXPECT_TRUE(captions.contains(caption)) << caption;
}

TEST_F(FormH13Test, Suitability_IsTheShareOfTheGoodClass)
{
    OpenWithSets(3);
    TakeSecondMachine();
    Classes(App().MachineI.evaluation, {0, 2, 1, 0});
    Classes(App().MachineII.evaluation, {1, 1, 2, 4});
    Open();
    EXPECT_EQ(LabelText("lblModel"), "66,7 %");
    EXPECT_EQ(LabelText("lblModel_SIM"), "12,5 %");
    const QImage bar = ControlOf<SuitabilityBar>(*dialog, "picModel_SIM").grab().toImage();
    QStringList shown;
    for (const double place : {0.05, 0.25, 0.6, 0.95})
        shown << bar.pixelColor(static_cast<int>(220 * place), 7).name();
    EXPECT_EQ(shown.mid(0, 3), (QStringList{ColourOf(49152).name(), ColourOf(40443).name(), ColourOf(192).name()}));
    EXPECT_NE(shown[3], shown[2]) << "what has no rating leaves its share empty";
}

TEST_F(FormH13Test, ModelInfo_BreaksTheClassesDown)
{
    OpenWithSets(3);
    TakeSecondMachine();
    Classes(App().MachineI.evaluation, {0, 2, 1, 0});
    Classes(App().MachineII.evaluation, {1, 1, 2, 4});
    Open();
    Press(*dialog, "cmdModelInfo_0");
    Press(*dialog, "cmdModelInfo_1");
    EXPECT_EQ(shell.BoxTexts(), (QStringList{"gut: \t2  (66,7 %)\nmittel: \t1  (33,3 %)\nschlecht: \t0  (0 %)",
                                             "gut: \t1  (12,5 %)\nmittel: \t2  (25 %)\nschlecht: \t4  (50 %)"}));
}

TEST_F(FormH13Test, Grid_HasTheValuesOfBothMachinesBesideEachOther)
{
    OpenWithSets(40);
    Execute("UPDATE SampledValues SET Edit=255 WHERE [Set]=2");
    EvaluateProject();
    TakeSecondMachine();
    Open();
    QStringList heads;
    for (int i = 0; i < Grid().columnCount(); ++i)
        heads << Grid().horizontalHeaderItem(i)->text();
    EXPECT_EQ(heads, (QStringList{"Satz", "t Sample", "U [V]", "f [Hz]", "M [Nm]", "I: n [rpm]", "II: n [rpm]",
                                  "I: Pmech [W]", "II: Pmech [W]", "I: Pel [W]", "II: Pel [W]", "I: eta", "II: eta"}));
    EXPECT_EQ(Row(1),
              (QStringList{"2*", "00:00:01", "400", "50", "32", "1460", Stored("n", 2, 1), "9000",
                           Stored("Pmech", 2, 1000), "10002", Stored("P sum", 2, 1000), "0,9", Stored("eta", 2, 100)}));
    EXPECT_EQ(Grid().item(1, 9)->foreground().color(), ColourOf(49152)) << "within the rating of the first";
    EXPECT_EQ(Grid().item(1, 2)->foreground().style(), Qt::NoBrush) << "what is common";
    TakePicture(*dialog, "FormH13");
}

TEST_F(FormH13Test, Colours_AreThoseOfTheMachineThatIsRated)
{
    OpenWithSets(3);
    TakeSecondMachine();
    Open();
    EXPECT_EQ(Grid().item(2, 9)->foreground().color(), ColourOf(192)) << "40 kW are too much for 20 kW";
    EXPECT_EQ(Grid().item(0, 9)->foreground().color(), ColourOf(49152));
    EXPECT_EQ(Grid().item(0, 10)->foreground().color(), ColourOf(49152));
    App().MachineII.record.I = 0.001;
    Open();
    EXPECT_EQ(Grid().item(0, 10)->foreground().color(), ColourOf(192));
}

TEST_F(FormH13Test, LongRecording_IsScrolledInWholeRowsToItsEnd)
{
    OpenWithSets(20000);
    TakeSecondMachine();
    Open();
    const int rows = Grid().rowCount();
    EXPECT_GT(rows, 8);
    EXPECT_LT(rows, 60) << "no more than is seen";
    EXPECT_EQ(Bar().maximum(), 20000 - rows);
    for (const int place : {1, 2, 777, 12345, Bar().maximum()}) {
        Bar().setValue(place);
        EXPECT_EQ(CellOf(*dialog, "flxDaten", 0, 0), QString::number(place + 1));
        EXPECT_EQ(CellOf(*dialog, "flxDaten", 0, 6), Stored("n", place + 1, 1));
        EXPECT_EQ(CellOf(*dialog, "flxDaten", rows - 1, 0), QString::number(place + rows));
    }
    EXPECT_EQ(CellOf(*dialog, "flxDaten", rows - 1, 0), "20000");
    PressKey(Grid(), Qt::Key_Home);
    EXPECT_EQ(CellOf(*dialog, "flxDaten", 0, 0), "1");
    PressKey(Grid(), Qt::Key_End);
    EXPECT_EQ(CellOf(*dialog, "flxDaten", rows - 1, 0), "20000");
}

TEST_F(FormH13Test, WithoutSimulatedSets_TheOtherMachineHasNone)
{
    OpenWithSets(3);
    Open();
    EXPECT_EQ(Row(0).mid(5), (QStringList{"1460", "-", "9000", "-", "10001", "-", "0,9", "-"}));
    EXPECT_EQ(LabelText("lblPmech_1"), "-");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(FormH13Test, NoSets_OpenAnEmptyGridAndNoShare)
{
    OpenWithSets(0);
    TakeSecondMachine();
    Open();
    EXPECT_EQ(LabelText("lblModel"), "0 %");
    EXPECT_EQ(LabelText("lblModel_SIM"), "0 %");
    EXPECT_EQ(Row(0).join(QString()), "");
    EXPECT_EQ(Bar().maximum(), 0);
    Press(*dialog, "cmdModelInfo_1");
    EXPECT_EQ(shell.BoxTexts(), QStringList{"gut: \t0  (0 %)\nmittel: \t0  (0 %)\nschlecht: \t0  (0 %)"});
}

TEST_F(FormH13Test, SetsThatCannotBeRead_AreToldOnce)
{
    OpenWithSets(3);
    TakeSecondMachine();
    Execute("ALTER TABLE SimulatedValues RENAME COLUMN n TO Drehzahl");
    Open();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Row(0).join(QString()), "");
}

TEST_F(FormH13Test, Ok_ClosesAndChangesNothing)
{
    OpenWithSets(3);
    TakeSecondMachine();
    const quint64 state = App().lRecordingState;
    WithNextDialog<FormH13>([](FormH13& shown) { Press(shown, "cmdOK"); });
    EXPECT_TRUE(window.ShowDialog(kDialogComparison));
    EXPECT_EQ(App().lRecordingState, state);
    EXPECT_FALSE(App().bProjectDirty);
}

} // namespace
} // namespace korvanel::test
