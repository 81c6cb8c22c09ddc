// The evaluation of a second machine, and when its rows and results are made anew.
#include "core/texts/DefaultTexts.h"
#include "machine/Algorithms_ASM_Start.h"
#include "machine/ExpectClose.h"
#include "simulation/SimulationCases.h"
#include "support/FullDisk.h"

#include <QFileInfo>

#include <stdexcept>

namespace korvanel::test {
namespace {

TEST_F(Simulation, Evaluation_JudgesByTheSecondMachineAlone)
{
    Record(std::vector<tValueRow>(9, Set(120, 400, 50)));
    ASSERT_TRUE(RunSimulation());
    App().MachineI.record = {};
    App().MachineI.record.Pmech = 1;
    App().MachineI.record.U = 1;
    App().MachineI.evaluation.lSets = 4711;
    ASSERT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lRowClassCount[1], 9);
    EXPECT_EQ(App().MachineII.evaluation.lSets, 9);
    EXPECT_EQ(App().MachineI.evaluation.lSets, 4711);
    App().MachineII.record.U = 300;
    ASSERT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lRowClassCount[3], 9);
}

TEST_F(Simulation, Evaluation_HasTheWindowInForceForTheMeasuredMachine)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    settings.SetTWindowSize(5);
    App().dTWindow = 3;
    ASSERT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.dWindowRows, 4);
}

TEST_F(Simulation, EvaluationBeforeThatOfTheMeasuredMachine_HasTheWindowOfTheOptions)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    settings.SetTWindowSize(5);
    App().dTWindow = 0;
    ASSERT_TRUE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.dWindowRows, 6);
}

TEST_F(Simulation, EvaluationOfSumsThatAreNotFinite_EndsInAFaultWithoutResults)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    ASSERT_TRUE(EvaluateSimulation());
    Execute("UPDATE SimulatedValues SET [P sum]=1e200 WHERE [Set]=3");
    EXPECT_THROW(EvaluateSimulation(), ArithmeticFault);
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
    EXPECT_EQ(App().MachineII.evaluation.tExtremMax[kP].dValue, 0);
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(Simulation, EvaluationWithoutAnInterval_IsRefused)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    App().dInterval = 0;
    EXPECT_THROW(EvaluateSimulation(), std::invalid_argument);
}

TEST_F(Simulation, EvaluationWithoutTheTable_HasNoResults)
{
    RecordSome();
    Execute("DROP TABLE IF EXISTS SimulatedValues");
    App().MachineII.evaluation.lSets = 3;
    EXPECT_FALSE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
}

TEST_F(Simulation, EvaluationOfAnEmptyTable_HasNoResults)
{
    RecordSome();
    App().MachineII.record.Pmech.reset();
    ASSERT_FALSE(RunSimulation());
    shell.boxes.clear();
    EXPECT_FALSE(EvaluateSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(Simulation, ProjectWithoutASecondMachine_GetsNoRows)
{
    RecordSome();
    App().bASMSim = false;
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_TRUE(StoredSets().empty());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
}

TEST_F(Simulation, ProjectWhoseSecondMachineIsNotKnown_GetsNoRows)
{
    RecordSome();
    App().MachineII.record = {};
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_TRUE(StoredSets().empty());
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(Simulation, MissingRows_AreProvided)
{
    RecordSome();
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(StoredSets().size(), 7U);
    EXPECT_EQ(App().MachineII.evaluation.lSets, 7);
}

TEST_F(Simulation, RowsThatAreThere_AreEvaluatedAsTheyAre)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    MarkSpeeds(4711);
    App().MachineII.model = {};
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(LargestSpeed(), 4711);
    EXPECT_GT(App().MachineII.model.Pelec_n, 0) << "the working values are computed though";
}

struct OtherRows
{
    const char* name;
    const char* sql;
};

void PrintTo(const OtherRows& rows, std::ostream* out)
{
    *out << rows.name;
}

class RowsOfOtherSets : public Simulation, public ::testing::WithParamInterface<OtherRows>
{
};

TEST_P(RowsOfOtherSets, AreProvidedAnew)
{
    RecordSome();
    ASSERT_TRUE(RunSimulation());
    MarkSpeeds(4711);
    Execute(QLatin1String(GetParam().sql));
    RecordingChanged();
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(Query("SELECT count(*) FROM SimulatedValues WHERE n=4711"), "0");
    EXPECT_EQ(Query("SELECT group_concat([Set]) FROM SimulatedValues"),
              Query("SELECT group_concat([Set]) FROM SampledValues"));
    EXPECT_LT(LargestSpeed(), 1600);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, RowsOfOtherSets,
    ::testing::Values(OtherRows{"one_missing", "DELETE FROM SimulatedValues WHERE [Set]=4"},
                      OtherRows{"one_too_many", "INSERT INTO SimulatedValues ([Set], n) VALUES (8, 4711)"},
                      OtherRows{"another_number", "UPDATE SimulatedValues SET [Set]=8 WHERE [Set]=7"},
                      OtherRows{"none", "DELETE FROM SimulatedValues"},
                      OtherRows{"no_table", "DROP TABLE SimulatedValues"},
                      OtherRows{"a_set_deleted",
                                "DELETE FROM SampledValues WHERE [Set]=7; DELETE FROM ComputedValues WHERE [Set]=7"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST_F(Simulation, Evaluation_IsDoneOnceForEachStateOfTheRecording)
{
    RecordSome();
    ASSERT_TRUE(ProvideSimulation());
    MarkSpeeds(4711);
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_LT(LargestSpeed(), 1600) << "evaluated though nothing had changed";
    RecordingChanged();
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(LargestSpeed(), 4711);
}

TEST_F(Simulation, FreshRows_AreEvaluatedAtTheNextRequest)
{
    RecordSome();
    ASSERT_TRUE(ProvideSimulation());
    App().MachineII.record.n = 1440;
    App().MachineII.record.M = 90;
    ASSERT_TRUE(RunSimulation());
    const double before = App().MachineII.evaluation.tExtremMin[kN].dValue;
    ASSERT_TRUE(ProvideSimulation());
    EXPECT_LT(App().MachineII.evaluation.tExtremMin[kN].dValue, before);
}

TEST_F(Simulation, FailedRequest_IsTriedAgain)
{
    RecordSome();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        EXPECT_FALSE(ProvideSimulation());
        other.exec("ROLLBACK");
    }
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 7);
}

TEST_F(Simulation, EvaluationThatCanNotRead_IsToldAndDoneAtTheNextRequest)
{
    RecordSome();
    ASSERT_TRUE(ProvideSimulation());
    RecordingChanged();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN EXCLUSIVE");
        EXPECT_FALSE(EvaluateSimulation());
        other.exec("ROLLBACK");
    }
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
    EXPECT_TRUE(ProvideSimulation());
    EXPECT_EQ(App().MachineII.evaluation.lSets, 7);
}

TEST_F(Simulation, RequestForAnUnfitMachine_FailsWithoutResults)
{
    RecordSome();
    App().MachineII.record.n.reset();
    EXPECT_FALSE(ProvideSimulation());
    EXPECT_EQ(shell.BoxTexts(), QStringList{ModelMessages(1)});
    EXPECT_EQ(App().MachineII.evaluation.lSets, 0);
}

} // namespace
} // namespace korvanel::test
