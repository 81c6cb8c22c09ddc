// The length of the window: from the options, and counted in sets.
#include "evaluation/TimeWindow.h"

#include "evaluation/EvaluationFixture.h"

namespace korvanel::test {
namespace {

class TimeWindow : public EvaluationTest
{
protected:
    void ChooseFactor(double factor, double Tth, bool isValid)
    {
        settings->SetTWindowSelection(1);
        settings->SetTWindowFactor(factor);
        settings->SetTWindowSize(123);
        App().MachineI.model.Tth = Tth;
        App().bModelValid = isValid;
    }
};

TEST_F(TimeWindow, ResolveTimeWindow_LengthByHandIsTakenAsItIs)
{
    settings->SetTWindowSize(12.75);
    App().MachineI.model.Tth = 1000;
    App().bModelValid = true;
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 12.75);
}

TEST_F(TimeWindow, ResolveTimeWindow_FactorOfTheTimeConstantIsCutToWholeSeconds)
{
    ChooseFactor(3, 100.7, true); // 302.1
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 302);
    ChooseFactor(0.5, 1.5, true); // 0.75
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 0);
    EXPECT_EQ(settings->TWindowSelection(), 1);
}

TEST_F(TimeWindow, ResolveTimeWindow_RoundsDownBelow0Too)
{
    ChooseFactor(-0.5, 1.5, true); // -0.75
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, -1);
}

TEST_F(TimeWindow, ResolveTimeWindow_WithoutATimeConstantFallsBackForGood)
{
    ChooseFactor(3, 0, true);
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 123);
    EXPECT_EQ(settings->TWindowSelection(), 0);
    LoadSettings();
    EXPECT_EQ(settings->TWindowSelection(), 0) << "it was stored";
}

TEST_F(TimeWindow, ResolveTimeWindow_WithoutAValidMachineFallsBackForGood)
{
    ChooseFactor(3, 100, false);
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 123);
    LoadSettings();
    EXPECT_EQ(settings->TWindowSelection(), 0);
    App().bModelValid = true;
    ResolveTimeWindow();
    EXPECT_EQ(App().dTWindow, 123) << "the choice does not come back with a machine";
}

TEST_F(TimeWindow, ThePassFallsBackInAProjectWithoutAMachine)
{
    settings->SetTWindowSelection(1);
    Evaluate(0, Rows({1, 2, 3}, PutU), 1, 1);
    EXPECT_EQ(App().dTWindow, 1);
    EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 2);
    LoadSettings();
    EXPECT_EQ(settings->TWindowSelection(), 0);
}

TEST_F(TimeWindow, ThePassTakesTheOptionsOfItsStart)
{
    MakeProject(0, Rows({1, 2, 3}, PutU), 1, 900);
    App().dTWindow = 77;
    settings->SetTWindowSize(1);
    EvaluateProject();
    EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 2);
}

TEST_F(TimeWindow, IsThermalWindowUsable_NeedsATimeConstantAndAValidMachine)
{
    for (const bool isValid : {false, true})
        for (const double Tth : {0.0, 60.0, -60.0}) {
            App().MachineI.model.Tth = Tth;
            App().bModelValid = isValid;
            EXPECT_EQ(IsThermalWindowUsable(), isValid && Tth != 0);
        }
}

TEST_F(TimeWindow, TimeWindowText_IsThatOfTheOptionsWhateverIsInForce)
{
    App().dTWindow = 77;
    settings->SetTWindowSize(3661);
    EXPECT_EQ(TimeWindowText(), "01:01:01");
    settings->SetTWindowSize(360000);
    EXPECT_EQ(TimeWindowText(), "100:00:00") << "hours are not capped";
    ChooseFactor(2.5, 60, true);
    EXPECT_EQ(TimeWindowText(), "2,5 * Tth");
    ChooseFactor(3, 60, true);
    EXPECT_EQ(TimeWindowText(), "3 * Tth");
}

TEST_F(TimeWindow, WindowSpan_CountsWholeIntervals)
{
    EXPECT_EQ(WindowSpan(900, 60), 15);
    EXPECT_EQ(WindowSpan(899.9, 60), 14);
    EXPECT_EQ(WindowSpan(0.5, 1), 0);
    EXPECT_EQ(WindowSpan(1, 0.5), 2);
    EXPECT_EQ(WindowSpan(0, 7), 0);
    EXPECT_EQ(WindowSpan(-0.5, 1), -1);
}

TEST_F(TimeWindow, FirstOfWindow_IsNeverBeforeTheFirstSet)
{
    EXPECT_EQ(FirstOfWindow(45, 33), 12);
    EXPECT_EQ(FirstOfWindow(34, 33), 1);
    EXPECT_EQ(FirstOfWindow(33, 33), 1);
    EXPECT_EQ(FirstOfWindow(3, 900), 1);
    EXPECT_EQ(FirstOfWindow(5, 0), 5);
}

} // namespace
} // namespace korvanel::test
