// Options and intervals that no dialog would let pass, as they may stand in the settings or in a project file.
#include "evaluation/HostileEvaluationFixture.h"
#include "project/ProjectCommands.h"

#include <limits>

namespace korvanel::test {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

class HostileOptions : public HostileEvaluation
{
};

TEST_F(HostileOptions, AnIntervalThatIsNoLengthOfTimeIsTold)
{
    for (const auto& [interval, text] : {std::pair(0.0, "0"), std::pair(-1.0, "-1"), std::pair(kInfinite, "inf"),
                                         std::pair(-kInfinite, "-inf"), std::pair(std::nan(""), "nan")}) {
        MakeOrdinaryProject();
        App().dInterval = interval;
        ExpectIntervalRefused(QLatin1String(text));
    }
}

TEST_F(HostileOptions, WithoutSetsNoIntervalIsNeeded)
{
    MakeOrdinaryProject(2, 0);
    App().dInterval = 0;
    ExpectSuccess(0);
    EXPECT_EQ(App().MachineI.evaluation.tAsm[kWholeCurrent].dValue, 0);
}

TEST_F(HostileOptions, IntervalsOfTheProjectFile)
{
    struct Case
    {
        const char* interval;
        bool isRefused;
    };
    for (const auto& [interval, isRefused] :
         {Case{"0", true}, Case{"-60", true}, Case{"1e-300", false}, Case{"1e300", false}}) {
        SCOPED_TRACE(interval);
        MakeOrdinaryProject(0);
        App().bProjectOpen = false;
        Execute(QStringLiteral("UPDATE Overview SET Decimal=%1 WHERE Name='Measurement Interval'")
                    .arg(QLatin1String(interval)));
        OpenRecentProject(QString(App().sProjectPath));
        ASSERT_TRUE(App().bProjectOpen);
        if (isRefused)
            ExpectIntervalRefused(QLatin1String(interval));
        else
            ExpectSuccess(40);
    }
}

TEST_F(HostileOptions, AWindowOf0IsOneSet)
{
    StoreOption("TWin0", "0");
    SetRoundMachine();
    MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
    ExpectSuccess(40);
    EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 1);
    ExpectEntry(App().MachineI.evaluation.tRmsMax[kU], 396, 7);
}

TEST_F(HostileOptions, AWindowBelow0HoldsNoSets)
{
    for (const char* size : {"-0.5", "-5", "-1e300"}) {
        StoreOption("TWin0", size);
        SetRoundMachine();
        MakeProject(2, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 0);
        for (std::size_t channel = 0; channel < kWindowChannelCount; ++channel) {
            ExpectEntry(App().MachineI.evaluation.tRmsMax[channel], 0, 1);
            ExpectEntry(App().MachineI.evaluation.tAvgMin[channel], 0, 1);
        }
        EXPECT_EQ(App().MachineI.evaluation.tAsm[kWindowCurrent].dValue, 0);
        EXPECT_GT(App().MachineI.evaluation.tAsm[kWholeCurrent].dValue, 0);
    }
}

TEST_F(HostileOptions, AWindowBeyondAllRecordingsIsTheWholeOne)
{
    for (const char* size : {"1e300", "1.7e308", "2147483648", "4294967296"}) {
        StoreOption("TWin0", size);
        MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 40);
    }
    StoreOption("TWin0", "1e300");
    MakeProject(0, OrdinaryRows(40), 1e-200, settings->TWindowSize());
    EvaluateGuarded(); // the quotient is no number
    EXPECT_TRUE(App().bEvaluated == 0 || App().MachineI.evaluation.dWindowRows == 40);
}

TEST_F(HostileOptions, AnUnreadableOptionIsAtItsDefault)
{
    for (const char* value : {"", "abc", "1,5", "1e400", "inf", "nan"}) {
        for (const char* key : {"TWin0", "TWin1", "TWin2", "Cycles", "ECosts0", "ECosts1", "ECosts2"})
            StoreOption(key, value);
        MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().dTWindow, 900);
        const auto& tEnergy = App().MachineI.evaluation.tEnergy;
        EXPECT_EQ(tEnergy[kCostsActive].dPlus, std::abs(tEnergy[kEnergyActive].dPlus / 3600000 * 0.15));
        EXPECT_EQ(tEnergy[kEnergyOfCycles].dPlus, 10 * tEnergy[kEnergyActive].dPlus);
    }
}

TEST_F(HostileOptions, AnyNumberOfCyclesIsTaken)
{
    for (const auto& [text, cycles] :
         {std::pair("0", 0.0), std::pair("-7", -7.0), std::pair("2147483647", 2147483647.0),
          std::pair("-2147483648", -2147483648.0), std::pair("1e300", 10.0)}) {
        StoreOption("Cycles", text);
        MakeProject(0, OrdinaryRows(40));
        ExpectSuccess(40);
        const auto& tEnergy = App().MachineI.evaluation.tEnergy;
        EXPECT_EQ(tEnergy[kEnergyOfCycles].dTotal, cycles * tEnergy[kEnergyActive].dTotal);
        EXPECT_EQ(tEnergy[kEnergyOfCycles + kCostsActive].dTotal, cycles * tEnergy[kCostsActive].dTotal);
    }
}

TEST_F(HostileOptions, AFactorThatGivesNoWindow)
{
    for (const auto& [factor, rows] : {std::pair("0", 1.0), std::pair("-1", 0.0), std::pair("1e306", 40.0)}) {
        StoreOption("TWin1", factor);
        StoreOption("TWin2", "1");
        SetRoundMachine();
        App().MachineI.model.Tth = 60;
        MakeProject(2, OrdinaryRows(40));
        ExpectSuccess(40);
        EXPECT_EQ(App().MachineI.evaluation.dWindowRows, rows) << factor;
    }
    StoreOption("TWin1", "1e308");
    MakeProject(2, OrdinaryRows(40));
    App().MachineI.model.Tth = 1e10; // together beyond all numbers
    EvaluateGuarded();
    EXPECT_TRUE(App().bEvaluated == 0 || App().MachineI.evaluation.dWindowRows == 40);
}

TEST_F(HostileOptions, ARatedValueOf0IsTold)
{
    MakeOrdinaryProject();
    App().MachineI.record.I = 0;
    ExpectFault();
}

} // namespace
} // namespace korvanel::test
