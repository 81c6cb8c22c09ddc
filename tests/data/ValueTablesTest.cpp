#include "data/ValueTables.h"

#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

class ValueTables : public ProjectTest
{
protected:
    void AppendSets(qint32 count)
    {
        App().bModelValid = true;
        OpenDbGuarded();
        for (qint32 set = 1; set <= count; ++set) {
            App().MeasuredRow.lSet = set;
            App().MeasuredRow.dU[kSum] = 10 * set;
            App().MeasuredRow.dt = set - 1;
            ASSERT_TRUE(AppendMeasuredRow());
        }
        CloseDbGuarded();
    }
};

TEST_F(ValueTables, CountSets_CountsTheJoin)
{
    CreateProject(0);
    AppendSets(3);
    Execute("DELETE FROM ComputedValues WHERE [Set]=2");
    EXPECT_EQ(CountSets(), 2);
    EXPECT_TRUE(RefreshSetCount());
    EXPECT_EQ(App().iSetCount, 2);
}

TEST_F(ValueTables, RefreshSetCount_IsFalseWithoutSetsAndWithoutTables)
{
    CreateProject(0);
    App().iSetCount = 9;
    EXPECT_FALSE(RefreshSetCount());
    EXPECT_EQ(App().iSetCount, 0);
    Execute("DROP TABLE ComputedValues");
    EXPECT_FALSE(RefreshSetCount());
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ValueTables, ClearValues_EmptiesBothTablesAndDropsTheSimulation)
{
    CreateProject(2);
    AppendSets(2);
    {
        const ProjectDbScope scope;
        CreateSimulatedTable();
        ClearValues();
        EXPECT_FALSE(TableExists("SimulatedValues"));
        EXPECT_TRUE(TableExists("sampledVALUES")) << "names compare without case";
    }
    EXPECT_EQ(CountSets(), 0);
}

TEST_F(ValueTables, DropValueTables_DropsAllThreeAndMindsNoMissingOne)
{
    CreateProject(2);
    const ProjectDbScope scope;
    DropValueTables();
    EXPECT_FALSE(TableExists("SampledValues"));
    EXPECT_FALSE(TableExists("ComputedValues"));
    EXPECT_NO_THROW(DropValueTables());
}

TEST_F(ValueTables, UpdateMeasurementTerm_IsTheTimeBetweenFirstAndLastSet)
{
    CreateProject(0);
    App().dInterval = 30;
    UpdateMeasurementTerm();
    EXPECT_EQ(App().sMeasurementTerm, "") << "no sets, no term";
    AppendSets(1);
    UpdateMeasurementTerm();
    EXPECT_EQ(App().sMeasurementTerm, "00:00:00");
    Execute("DELETE FROM SampledValues; DELETE FROM ComputedValues");
    AppendSets(122);
    UpdateMeasurementTerm();
    EXPECT_EQ(App().sMeasurementTerm, "01:00:30");
    App().dInterval = -5;
    UpdateMeasurementTerm();
    EXPECT_EQ(App().sMeasurementTerm, "00:00:00") << "a negative product counts as 0";
}

TEST_F(ValueTables, ColumnLayout_ListsTheColumnsOfEveryConfiguration)
{
    using L = std::vector<qint16>;
    const L derived{0, 1, 2, 3, 5, 4, 11, 6, 12, 14, 15, 13, -1, -2};
    const L expected[] = {
        derived,
        derived,
        {0, 1, 2, 3, 5, 4, 11, 6, 7, 8, 9, 10, 12, 14, 15, 13, -4, -3, -1, -2},
        {0, 1, 2, 3, 5, 4, 11, 6, 37, 39, 40, 42, 43, 45, 46, 48, 49, -1, -2},
        {0,  1,  2,  3,  5,  4,  11, 6,  37, 16, 19, 22, 25, 28, 31, 34, 17, 20, 23, 26,
         29, 32, 35, 18, 21, 24, 27, 30, 33, 36, 39, 40, 42, 43, 45, 46, 48, 49, -1, -2},
        {0,  1,  2,  3,  5,  4,  11, 6,  7,  8,  9,  10, 16, 19, 22, 25, 28, 31, 34, 17, 20, 23, 26,
         29, 32, 35, 18, 21, 24, 27, 30, 33, 36, 39, 40, 42, 43, 45, 46, 48, 49, -4, -3, -1, -2},
        {0, 16, 17, 18, 2, -1, -2},
    };
    for (int netConf = 0; netConf < kNetConfCount; ++netConf) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        BuildColumnLayout();
        EXPECT_EQ(App().ColumnLayout, expected[netConf]) << netConf;
    }
}

TEST_F(ValueTables, StepEnergyOffline_SumsPowerOverTheTimeBetweenSets)
{
    ResetEnergies();
    StepEnergyOffline(100, 20, 0);
    StepEnergyOffline(100, 20, 10);
    StepEnergyOffline(-50, -20, 12);
    EXPECT_EQ(App().dEnergyWpPlus, 1000);
    EXPECT_EQ(App().dEnergyWpMinus, -100) << "grows toward negative values";
    EXPECT_EQ(App().dEnergyWp, 900);
    EXPECT_EQ(App().dEnergyWq, 160);
    App().iFileErrors = 3;
    ResetEnergies();
    EXPECT_EQ(App().dEnergyWp + App().dEnergyWpPlus + App().dEnergyWpMinus + App().dEnergyWq + App().dLastT, 0);
    EXPECT_EQ(App().iFileErrors, 0);
}

} // namespace
} // namespace korvanel::test
