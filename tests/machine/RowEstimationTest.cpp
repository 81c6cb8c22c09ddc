// The estimation on its way into the rows of a project: in a run, by hand, and over all sets.
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "data/Recomputation.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/ProjectFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

class RowEstimation : public ProjectTest
{
protected:
    void CreateProjectWithMachine(int netConf)
    {
        CreateProject(netConf);
        App().MachineI.record = Motor();
        BuildMachineModel();
        ASSERT_TRUE(App().bModelValid);
    }
    static void FillSample(tValueRow& row, double load)
    {
        row.dU[kSum] = 400;
        row.dI[kSum] = 33 * load;
        row.df = 50;
        row.dP[kSum] = 20000 * load;
        row.dPhi[kSum] = 30;
    }
    void AppendSets(int count)
    {
        const ProjectDbScope scope;
        DbTransaction transaction(ProjectDb()); // one for all: the disk is not what is tested
        for (int set = 1; set <= count; ++set) {
            App().MeasuredRow.lSet = set;
            App().MeasuredRow.dt = set - 1;
            FillSample(App().MeasuredRow, 0.2 + 0.8 * set / count);
            ASSERT_TRUE(AppendMeasuredRow());
        }
        transaction.Commit();
    }
    /// What the estimation has left in the file, and the marks.
    QString Estimates() const
    {
        return Query(
            "SELECT group_concat(ifnull(n, '-') || ' ' || ifnull(M, '-') || ' ' || ifnull(Pmech, '-') || ' ' || "
            "ifnull(eta, '-') || ' ' || ifnull(Method, '-') || ' ' || Edit, '; ') FROM SampledValues INNER "
            "JOIN ComputedValues ON SampledValues.[Set] = ComputedValues.[Set]");
    }
    double Value(const char* column, int set) const
    {
        SQLite::Database db(App().sProjectPath.toStdString());
        SQLite::Statement query(db, std::string("SELECT ") + column + " FROM ComputedValues WHERE [Set]=?");
        query.bind(1, set);
        return query.executeStep() ? query.getColumn(0).getDouble() : std::nan("");
    }
};

TEST_F(RowEstimation, AppendMeasuredRow_StoresTheEstimateOfTheSample)
{
    for (const int netConf : {2, 5}) {
        CreateProjectWithMachine(netConf);
        for (const int method : {0, 1}) {
            App().iCalcMethod = static_cast<qint16>(method);
            App().MeasuredRow.lSet = method + 1;
            FillSample(App().MeasuredRow, 0.7);
            OpenDbGuarded();
            ASSERT_TRUE(AppendMeasuredRow());
            CloseDbGuarded();
            EstimateLoad(400, 33 * 0.7, 50, 20000 * 0.7, 30, method);
            const LoadEstimate& expected = App().Estimate;
            EXPECT_EQ(Value("n", method + 1), expected.n);
            EXPECT_EQ(Value("M", method + 1), expected.M);
            EXPECT_EQ(Value("Pmech", method + 1), expected.Pmech);
            EXPECT_EQ(Value("eta", method + 1), expected.eta);
            EXPECT_EQ(App().MeasuredRow.dM, expected.M) << "the online display shows what was stored";
            EXPECT_EQ(App().MeasuredRow.dn, expected.n);
        }
        EXPECT_EQ(Query("SELECT group_concat(Method) FROM ComputedValues"), "V,P");
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(RowEstimation, AppendMeasuredRow_AFaultInArithmeticEndsTheOperation)
{
    CreateProjectWithMachine(2);
    App().MeasuredRow.lSet = 1;
    FillSample(App().MeasuredRow, 1);
    App().MeasuredRow.dU[kSum] = 1e6;
    App().MeasuredRow.df = 500;
    OpenDbGuarded();
    EXPECT_THROW(AppendMeasuredRow(), ArithmeticFault);
    CloseDbGuarded();
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "0");
}

TEST_F(RowEstimation, ComputeRow_DerivesThenEstimatesThenMarks)
{
    CreateProjectWithMachine(2);
    tValueRow& row = App().CurrentRow;
    row = {};
    row.dU[kSum] = 50;
    row.dI[kSum] = 10;
    row.df = 50;
    row.dP[kSum] = 300;
    row.dPhi[kSum] = -1;
    ComputeRow(true);
    EXPECT_DOUBLE_EQ(row.dS[kSum], 500);
    EXPECT_DOUBLE_EQ(row.dQ[kSum], -400);
    EXPECT_DOUBLE_EQ(row.dCosPhi[kSum], 0.6);
    EXPECT_NEAR(row.dPhi[kSum], -53.13010235415598, 1e-12);
    EXPECT_EQ(App().Sample.phi, row.dPhi[kSum]) << "the estimation takes the derived angle";
    EXPECT_EQ(row.dM, App().Estimate.M);
    EXPECT_EQ(row.dn, App().Estimate.n);
    EXPECT_EQ(row.dPmech, App().Estimate.Pmech);
    EXPECT_EQ(row.deta, App().Estimate.eta);
    EXPECT_EQ(row.sMethod, "P");
    EXPECT_EQ(row.bEdit, 255);
}

TEST_F(RowEstimation, ComputeRow_WithoutTheFlagLeavesTheDerivedQuantities)
{
    CreateProjectWithMachine(2);
    App().CurrentRow = {};
    FillSample(App().CurrentRow, 1);
    App().CurrentRow.dS[kSum] = 7;
    ComputeRow(false);
    EXPECT_EQ(App().CurrentRow.dS[kSum], 7);
    EXPECT_EQ(App().CurrentRow.dPhi[kSum], 30);
    EXPECT_GT(App().CurrentRow.dM, 100);
}

TEST_F(RowEstimation, ComputeRow_WithoutAMachineKeepsWhatTheRowHolds)
{
    const auto expectKept = [] {
        tValueRow& row = App().CurrentRow;
        row = {};
        FillSample(row, 1);
        row.dM = 11;
        row.dn = 12;
        row.dPmech = 13;
        row.deta = 14;
        row.sMethod = QStringLiteral("x");
        ComputeRow(false);
        EXPECT_EQ(row.dM, 11);
        EXPECT_EQ(row.dn, 12);
        EXPECT_EQ(row.dPmech, 13);
        EXPECT_EQ(row.deta, 14);
        EXPECT_EQ(row.sMethod, "x");
        EXPECT_EQ(row.bEdit, 255) << "marked in any case";
    };
    CreateProjectWithMachine(2);
    App().bModelValid = false;
    expectKept();
    App().bModelValid = true;
    for (const int netConf : {0, 1, 3, 4, 6}) {
        App().iNetConfIndex = static_cast<qint16>(netConf);
        expectKept();
    }
}

TEST_F(RowEstimation, RecomputeAllRows_EstimatesAndMarksEverySet)
{
    constexpr int kSets = 600; // more than a block
    for (const int netConf : {2, 5}) {
        CreateProjectWithMachine(netConf);
        App().iCalcMethod = 1;
        AppendSets(kSets);
        const QString sampled = Query("SELECT sum([U sum]) || ' ' || sum([P sum]) || ' ' || sum(t) FROM SampledValues");
        App().iCalcMethod = 0;
        App().bEvaluated = 1;
        EXPECT_TRUE(RecomputeAllRows());
        EXPECT_EQ(App().bEvaluated, 0);
        EXPECT_TRUE(shell.boxes.empty());
        EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "600");
        EXPECT_EQ(Query("SELECT count(*) FROM ComputedValues WHERE Method='V' AND typeof(Method)='text'"), "600");
        for (const int set : {1, 255, 256, 257, 512, 600}) {
            const double load = 0.2 + 0.8 * set / kSets;
            EstimateLoad(400, 33 * load, 50, 20000 * load, 30, 0);
            EXPECT_EQ(Value("n", set), App().Estimate.n) << set;
            EXPECT_EQ(Value("M", set), App().Estimate.M) << set;
            EXPECT_EQ(Value("Pmech", set), App().Estimate.Pmech) << set;
            EXPECT_EQ(Value("eta", set), App().Estimate.eta) << set;
        }
        EXPECT_EQ(Query("SELECT sum([U sum]) || ' ' || sum([P sum]) || ' ' || sum(t) FROM SampledValues"), sampled)
            << "what was measured stays";
        EXPECT_FALSE(IsProjectDbOpen());
        QFile::remove(App().sProjectPath);
    }
}

TEST_F(RowEstimation, RecomputeAllRows_WithoutAMachineOnlyMarks)
{
    CreateProjectWithMachine(2);
    AppendSets(3);
    const QString before = Estimates();
    App().bModelValid = false;
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_EQ(Estimates(), QString(before).replace(" P 0", " P 255"));
    CreateProject(6, QStringLiteral("voltage.MDB"));
    AppendSets(2);
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_EQ(Query("SELECT group_concat(Edit) FROM SampledValues"), "255,255");
}

TEST_F(RowEstimation, RecomputeAllRows_SetsWithoutAnEstimateStayWithoutIfThereIsNoMachine)
{
    CreateProject(2);
    AppendSets(2);
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_EQ(Estimates(), "- - - - - 255; - - - - - 255");
}

TEST_F(RowEstimation, RecomputeAllRows_ShowsProgressThatMoves)
{
    CreateProjectWithMachine(2);
    AppendSets(1000);
    shell.calls.clear();
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_EQ(shell.calls.first(), "ShowProgress 0");
    EXPECT_GT(shell.calls.count(QStringLiteral("ShowProgress 1")), 3);
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2");
}

TEST_F(RowEstimation, RecomputeAllRows_WithoutSetsDoesNothing)
{
    CreateProjectWithMachine(2);
    shell.calls.clear();
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_TRUE(shell.calls.isEmpty());
}

TEST_F(RowEstimation, RecomputeAllRows_ASetWithoutComputedValuesIsToldOnceAndNothingChanges)
{
    CreateProjectWithMachine(2);
    AppendSets(300);
    Execute("DELETE FROM ComputedValues WHERE [Set]=290");
    const QString before = Estimates();
    App().iCalcMethod = 0;
    EXPECT_FALSE(RecomputeAllRows());
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht schreiben!\n")) << shell.boxes[0].text.toStdString();
    EXPECT_EQ(App().iFileErrors, 1);
    EXPECT_EQ(Estimates(), before);
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2");
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(RowEstimation, RecomputeAllRows_AFaultInArithmeticChangesNothing)
{
    CreateProjectWithMachine(2);
    AppendSets(300);
    Execute("UPDATE SampledValues SET [U sum]=9e999 WHERE [Set]=290");
    const QString before = Estimates();
    App().iCalcMethod = 0;
    EXPECT_THROW(RecomputeAllRows(), ArithmeticFault);
    EXPECT_EQ(Estimates(), before);
    EXPECT_EQ(shell.calls.last(), "ShowProgress 2") << "the menus are free again";
    EXPECT_FALSE(IsProjectDbOpen());
}

TEST_F(RowEstimation, RecomputeAllRows_NullsAndTextsReadAsZero)
{
    CreateProjectWithMachine(2);
    AppendSets(2);
    Execute("UPDATE SampledValues SET [U sum]=NULL, [P sum]='viel' WHERE [Set]=2");
    EXPECT_TRUE(RecomputeAllRows());
    EXPECT_EQ(Value("n", 2), 0);
    EXPECT_EQ(Value("M", 2), 0);
}

} // namespace
} // namespace korvanel::test
