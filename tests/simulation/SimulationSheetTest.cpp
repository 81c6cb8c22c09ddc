// The tab of the second machine on the page of the results, with the real simulation behind it.
#include "core/Colour.h"
#include "machine/Algorithms_ASM_Start.h"
#include "simulation/Algorithms_ASM_Simulation.h"
#include "support/ResultPageFixture.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTableView>

namespace korvanel::test {
namespace {

class SimulationSheetTest : public ResultPageTest
{
protected:
    SimulationSheetTest()
    {
        SetHook(Hook::RunSimulation, RunSimulation);
        SetHook(Hook::ProvideSimulation, ProvideSimulation);
    }
    void EnterTab()
    {
        App().ResultPage.tab = u'E';
        EnterPage();
        window.RefreshPage();
        QCoreApplication::processEvents();
    }
    /// A machine of the same kind as the measured one, as a choice makes it the second.
    static void ChooseMachine()
    {
        App().MachineII.record = KnownMachine();
        App().bASMSim = true;
    }
    QString Simulated(const char* column, int set) const
    {
        return Query(QStringLiteral("SELECT round([%1], 3) FROM SimulatedValues WHERE [Set]=%2")
                         .arg(QLatin1String(column))
                         .arg(set));
    }
};

TEST_F(SimulationSheetTest, WithoutASecondMachineOnlyTheChoiceCanBePressed)
{
    OpenProjectOf(2);
    StoreNumbered(5);
    EnterTab();
    EXPECT_EQ(Label("lblSecondMachine"), "Keine zweite Maschine ausgewählt");
    EXPECT_TRUE(Find<QPushButton>("cmdChoice").isEnabled());
    for (const char* name : {"cmdCompare", "cmdEvaluation", "cmdInfo", "cmdPrint"})
        EXPECT_FALSE(Find<QPushButton>(name).isEnabled()) << name;
    EXPECT_EQ(Cell("flxSimul", 0, 0), "");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(SimulationSheetTest, EnteringThePageRunsTheSecondMachineWhereItsRowsAreMissing)
{
    OpenProjectOf(2);
    StoreNumbered(5);
    ChooseMachine();
    EnterTab();
    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues"), "5");
    EXPECT_EQ(App().MachineII.evaluation.lSets, 5);
    EXPECT_EQ(HeadsOf("flxSimul").mid(0, 2), (QStringList{"Satz", "t [s]"}));
    EXPECT_EQ(Cell("flxSimul", 0, 0), "1");
    EXPECT_EQ(Cell("flxSimul", 4, 0), "5");
    EXPECT_EQ(Cell("flxSimul", 0, 2), "400");
    EXPECT_EQ(Cell("flxSimul", 0, 6), "60") << "the torque is that of the measured machine";
    for (const char* name : {"cmdChoice", "cmdCompare", "cmdEvaluation", "cmdInfo", "cmdPrint"})
        EXPECT_TRUE(Find<QPushButton>(name).isEnabled()) << name;
    if (const QByteArray target = qgetenv("KORVANEL_PICTURES"); !target.isEmpty())
        window.grab().save(QString::fromLocal8Bit(target) + "/zweite-maschine.png");
}

TEST_F(SimulationSheetTest, ValuesAreJudgedByTheSecondMachine)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    ChooseMachine();
    App().MachineII.record.U = 500; // the 400 V of the net are far too little
    EnterTab();
    const auto* voltage = Find<QTableWidget>("flxSimul").item(0, 2);
    ASSERT_NE(voltage, nullptr);
    EXPECT_EQ(voltage->foreground().color(), ColourOf(kRatingColours.back()));
}

TEST_F(SimulationSheetTest, AcceptedChoiceShowsTheNewRows)
{
    OpenProjectOf(2);
    StoreNumbered(5);
    EnterTab();
    shell.dialogs[kDialogSecondMachine] = [] {
        ChooseMachine();
        return RunSimulation() && EvaluateSimulation();
    };
    Find<QPushButton>("cmdChoice").click();
    EXPECT_EQ(Cell("flxSimul", 0, 0), "1");
    EXPECT_NE(Label("lblSecondMachine"), "Keine zweite Maschine ausgewählt");
}

TEST_F(SimulationSheetTest, EachButtonOpensItsDialog)
{
    OpenProjectOf(2);
    StoreNumbered(5);
    ChooseMachine();
    EnterTab();
    const std::pair<const char*, int> cases[] = {{"cmdChoice", kDialogSecondMachine},
                                                 {"cmdCompare", kDialogComparison},
                                                 {"cmdEvaluation", kDialogSimulationResults},
                                                 {"cmdInfo", kDialogMachineInfo},
                                                 {"cmdPrint", kDialogPrintMachines}};
    for (const auto& [name, number] : cases) {
        shell.dialogs[number] = [] { return false; };
        shell.calls.clear();
        Find<QPushButton>(name).click();
        EXPECT_TRUE(shell.calls.contains(QStringLiteral("ShowDialog %1").arg(FindDialog(number)->name))) << name;
    }
}

TEST_F(SimulationSheetTest, CorrectedSetsBearTheirStar)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    Execute("UPDATE SampledValues SET Edit=255 WHERE [Set]=2");
    ChooseMachine();
    EnterTab();
    EXPECT_EQ(Cell("flxSimul", 1, 0), "2*");
}

TEST_F(SimulationSheetTest, LongRecordingIsScrolledByItsOwnBar)
{
    OpenProjectOf(2);
    StoreNumbered(3000);
    ChooseMachine();
    EnterTab();
    auto& bar = Find<QScrollBar>("scrSimul");
    bar.setValue(bar.maximum());
    auto& table = Find<QTableWidget>("flxSimul");
    EXPECT_EQ(Cell("flxSimul", table.rowCount() - 1, 0), "3000");
}

TEST_F(SimulationSheetTest, MachineThatCanNotBePreparedIsToldAndTheListIsEmpty)
{
    OpenProjectOf(2);
    StoreNumbered(3);
    ChooseMachine();
    App().MachineII.record.n = 700; // no slip of a machine with two pole pairs
    EnterTab();
    ASSERT_FALSE(shell.boxes.empty());
    EXPECT_EQ(shell.boxes[0].text, "Ein Bearbeitungsproblem ist aufgetreten.\nBitte prüfen Sie ihre Bemessungsdaten.");
    EXPECT_EQ(Cell("flxSimul", 0, 0), "");
}

TEST_F(SimulationSheetTest, OptionsThatChangeTheResultsEvaluateTheSecondMachineToo)
{
    OpenProjectOf(2);
    StoreNumbered(5);
    ChooseMachine();
    EnterTab();
    const quint64 before = App().lSimulationState;
    RecordingChanged();
    EnterTab();
    EXPECT_NE(App().lSimulationState, before);
    EXPECT_EQ(App().lSimulationState, App().lRecordingState);
}

} // namespace
} // namespace korvanel::test
