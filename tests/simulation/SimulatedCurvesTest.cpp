// Curves of the second machine on the page of the diagrams.
#include "diagrams/DiagramPageFixture.h"
#include "simulation/Algorithms_ASM_Simulation.h"

#include <QCheckBox>

namespace korvanel::test {
namespace {

class SimulatedCurvesTest : public DiagramPageTest
{
protected:
    SimulatedCurvesTest()
    {
        SetHook(Hook::RunSimulation, RunSimulation);
        SetHook(Hook::ProvideSimulation, ProvideSimulation);
    }
    /// A recording of a machine, and a second one that draws other power for the same torque.
    void EnterWithSecondMachine()
    {
        OpenProjectOf(2);
        std::vector<tValueRow> rows;
        for (int set = 1; set <= 300; ++set)
            rows.push_back(WorkingSet(30, 9000.0 + 10 * set, 60, 8000));
        Store(std::move(rows));
        App().MachineII.record = KnownMachine();
        App().bASMSim = true;
        EnterAgain();
    }
};

TEST_F(SimulatedCurvesTest, AreOfferedWhereThereIsASecondMachine)
{
    EnterDiagrams();
    EXPECT_TRUE(Find<QCheckBox>("chkSecondMachine").isHidden());
    CloseProjectOf();
    EnterWithSecondMachine();
    EXPECT_FALSE(Find<QCheckBox>("chkSecondMachine").isHidden());
    EXPECT_TRUE(Find<QCheckBox>("chkSecondMachine").isChecked()) << "that is what one wants to see first";
}

TEST_F(SimulatedCurvesTest, AreDashedInTheColourOfTheMeasuredOnes)
{
    EnterWithSecondMachine();
    App().DiagramPage.iGraphState.fill(0);
    App().DiagramPage.iGraphState[kP] = 1;
    Press("cmdRedraw");
    const int both = Coloured(kP);
    Find<QCheckBox>("chkSecondMachine").click();
    WaitForDrawing();
    const int alone = Coloured(kP);
    EXPECT_GT(alone, Box().width() / 2);
    EXPECT_GT(both, alone + Box().width() / 3);
    EXPECT_LT(both, 2 * alone) << "every other four columns";
    if (const QByteArray target = qgetenv("KORVANEL_PICTURES"); !target.isEmpty()) {
        Find<QCheckBox>("chkSecondMachine").click();
        WaitForDrawing();
        window.grab().save(QString::fromLocal8Bit(target) + "/kurven-beider-maschinen.png");
    }
}

TEST_F(SimulatedCurvesTest, FullScaleHasRoomForBoth)
{
    EnterWithSecondMachine();
    App().DiagramPage.quantity = kP;
    App().MachineII.evaluation.tExtremMax[kP].dValue = 77'000; // as a much larger machine would have it
    auto& box = Find<QCheckBox>("chkSecondMachine");
    box.click();
    WaitForDrawing();
    const QString alone = Values().last();
    box.click();
    WaitForDrawing();
    EXPECT_NE(Values().last(), alone);
    EXPECT_TRUE(Values().last().startsWith("100 k")) << Values().last().toStdString();
}

TEST_F(SimulatedCurvesTest, RowsThatAreMissingAreMadeWhenThePageIsEntered)
{
    EnterWithSecondMachine();
    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues"), "300");
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace
} // namespace korvanel::test
