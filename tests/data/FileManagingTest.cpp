#include "data/FileManaging.h"

#include "data/ValueColumns.h"
#include "data/ValueTables.h"
#include "support/ProjectFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

class FileManaging : public ProjectTest
{
protected:
    /// A row whose fields all differ: field number n of the column table holds n + 0.5.
    static tValueRow DistinctRow()
    {
        tValueRow row;
        double value = 0.5;
        for (const ValueColumn& column : ValueColumns())
            if (column.field)
                column.field(row) = value += 1;
        row.sMethod = QStringLiteral("P");
        return row;
    }

    void Append(qint32 set, const QString& mask = QStringLiteral("NNNN"))
    {
        App().MeasuredRow.lSet = set;
        App().MeasuredRow.sValidMask = mask;
        OpenDbGuarded();
        EXPECT_TRUE(AppendMeasuredRow());
        CloseDbGuarded();
    }
};

class EveryConfiguration : public FileManaging, public ::testing::WithParamInterface<int>
{
};

TEST_P(EveryConfiguration, ReadRow_GivesBackWhatAppendMeasuredRowStored)
{
    const int netConf = GetParam();
    CreateProject(netConf);
    App().bModelValid = true;
    static_cast<tValueRow&>(App().MeasuredRow) = DistinctRow();
    App().MeasuredRow.dt = 7;
    Append(1);
    // What the configuration doesn't store must keep its former content.
    constexpr double kUntouched = -777;
    for (const ValueColumn& column : ValueColumns())
        if (column.field)
            column.field(App().CurrentRow) = kUntouched;
    OpenDbGuarded();
    ASSERT_TRUE(ReadRow(1));
    CloseDbGuarded();
    tValueRow& stored = App().MeasuredRow; // with the energies that were formed on the way
    for (const ValueColumn& column : ValueColumns()) {
        if (!column.field)
            continue;
        const bool isStored = IsIn(column.sampled, netConf) || IsIn(column.computed, netConf);
        EXPECT_EQ(column.field(App().CurrentRow), isStored ? column.field(stored) : kUntouched) << column.name;
    }
    EXPECT_EQ(App().lLastReadSet, 1);
    EXPECT_EQ(App().CurrentRow.bEdit, 0);
    EXPECT_EQ(App().sTimeText, "14.03.2026 15:09:26");
    EXPECT_EQ(App().iFileErrors, 0);
}

INSTANTIATE_TEST_SUITE_P(All, EveryConfiguration, ::testing::Range(0, kNetConfCount));

TEST_F(FileManaging, AppendMeasuredRow_WritesSetTimeAndMarkIntoBothTables)
{
    CreateProject(0);
    App().MeasuredRow.dU[kSum] = 230.25;
    Append(1);
    Append(2, QStringLiteral("EENN"));
    EXPECT_EQ(Query("SELECT [Time] FROM SampledValues WHERE [Set]=1"), "2026-03-14 15:09:26");
    EXPECT_EQ(Query("SELECT [U sum] FROM SampledValues WHERE [Set]=1"), "230.25");
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues WHERE [Set]=1"), "0");
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues WHERE [Set]=2"), "255");
    EXPECT_EQ(Query("SELECT group_concat([Set]) FROM ComputedValues"), "1,2");
}

TEST_F(FileManaging, AppendMeasuredRow_FirstRowIsNumberedOneAtTimeZero)
{
    CreateProject(0);
    App().MeasuredRow.dt = 0;
    Append(1);
    EXPECT_EQ(Query("SELECT [Set] || ':' || t FROM SampledValues"), "1:0");
}

TEST_F(FileManaging, AppendMeasuredRow_FractionalTimeReachesTheColumnAsWholeNumberHalfToEven)
{
    CreateProject(0);
    const std::pair<double, const char*> cases[] = {{1.4, "1"}, {1.6, "2"}, {0.5, "0"}, {1.5, "2"}, {2.5, "2"}};
    qint32 set = 0;
    for (const auto& [time, stored] : cases) {
        App().MeasuredRow.dt = time;
        Append(++set);
        EXPECT_EQ(Query(QStringLiteral("SELECT t || ' ' || typeof(t) FROM SampledValues WHERE [Set]=%1").arg(set)),
                  QLatin1String(stored) + QStringLiteral(" integer"))
            << time;
    }
}

TEST_F(FileManaging, AppendMeasuredRow_MethodFollowsTheChosenCalculation)
{
    CreateProject(2);
    App().bModelValid = true;
    App().iCalcMethod = 0;
    Append(1);
    App().iCalcMethod = 1;
    Append(2);
    EXPECT_EQ(Query("SELECT group_concat(Method) FROM ComputedValues"), "V,P");
}

TEST_F(FileManaging, AppendMeasuredRow_WithoutAValidMachineNothingIsEstimated)
{
    for (const int netConf : {2, 5}) {
        CreateProject(netConf, QStringLiteral("%1.MDB").arg(netConf));
        static_cast<tValueRow&>(App().MeasuredRow) = DistinctRow();
        App().MeasuredRow.dt = 0;
        Append(1);
        EXPECT_EQ(
            Query("SELECT count(*) FROM ComputedValues WHERE n IS NULL AND M IS NULL AND Pmech IS NULL AND eta IS "
                  "NULL AND Method IS NULL"),
            "1");
        OpenDbGuarded();
        EXPECT_TRUE(ReadRow(1));
        CloseDbGuarded();
        EXPECT_EQ(App().CurrentRow.dn, 0);
        EXPECT_EQ(App().CurrentRow.sMethod, "");
    }
}

TEST_F(FileManaging, AppendMeasuredRow_FirstSetAddsNoEnergyWhateverThePower)
{
    CreateProject(0);
    App().dInterval = 5;
    App().MeasuredRow.dP[kSum] = 1000;
    App().MeasuredRow.dQ[kSum] = 200;
    Append(1);
    EXPECT_EQ(Query("SELECT Wp || ' ' || Wq FROM ComputedValues WHERE [Set]=1"), "0.0 0.0");
    Append(2);
    EXPECT_EQ(Query("SELECT Wp || ' ' || Wq FROM ComputedValues WHERE [Set]=2"), "5000.0 1000.0");
    App().MeasuredRow.dP[kSum] = -400;
    Append(3);
    EXPECT_EQ(Query("SELECT Wp || ' ' || [Wp+] || ' ' || [Wp-] FROM ComputedValues WHERE [Set]=3"),
              "3000.0 5000.0 -2000.0");
}

TEST_F(FileManaging, AppendMeasuredRow_RowOfAnotherStatusRepeatsTheLastGoodStep)
{
    CreateProject(0);
    App().dInterval = 1;
    App().MeasuredRow.dP[kSum] = 100;
    Append(1);
    Append(2);
    App().MeasuredRow.dP[kSum] = 9999;
    Append(3, QStringLiteral("NNEN"));
    EXPECT_EQ(Query("SELECT Wp FROM ComputedValues WHERE [Set]=3"), "200.0");
}

TEST_F(FileManaging, AppendMeasuredRow_RelativeEnergiesCountFromTheFirstSet)
{
    CreateProject(3);
    App().MeasuredRow.dWpAbs = 7000;
    App().MeasuredRow.dWqMinusAbs = -50;
    Append(1);
    App().MeasuredRow.dWpAbs = 7600;
    App().MeasuredRow.dWqMinusAbs = -80;
    Append(2);
    EXPECT_EQ(Query("SELECT [Wp rel] || ' ' || [Wq- rel] FROM ComputedValues WHERE [Set]=1"), "0.0 0.0");
    EXPECT_EQ(Query("SELECT [Wp rel] || ' ' || [Wq- rel] FROM ComputedValues WHERE [Set]=2"), "600.0 -30.0");
}

TEST_F(FileManaging, AppendMeasuredRow_FailureIsToldOnceCountedAndStoresNothing)
{
    CreateProject(0);
    Append(1);
    App().iFileErrors = 0;
    OpenDbGuarded();
    EXPECT_FALSE(AppendMeasuredRow()); // the same set again
    CloseDbGuarded();
    EXPECT_EQ(App().iFileErrors, 1);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht schreiben!\n")) << shell.boxes[0].text.toStdString();
    EXPECT_TRUE(shell.boxes[0].text.endsWith(u'.'));
    EXPECT_EQ(Query("SELECT count(*) FROM ComputedValues"), "1");
    Append(2); // and the writer goes on
    EXPECT_EQ(CountSets(), 2);
}

TEST_F(FileManaging, AppendMeasuredRow_HalfARowIsTakenBack)
{
    CreateProject(0);
    Execute("INSERT INTO ComputedValues ([Set]) VALUES (1)"); // so that only the second insert fails
    App().MeasuredRow.lSet = 1;
    OpenDbGuarded();
    EXPECT_FALSE(AppendMeasuredRow());
    CloseDbGuarded();
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues"), "0");
}

TEST_F(FileManaging, AppendRow_StoresACorrectedRowWithoutTimeAndEnergies)
{
    CreateProject(2);
    App().CurrentRow = DistinctRow();
    OpenDbGuarded();
    EXPECT_TRUE(AppendRow(1));
    CloseDbGuarded();
    EXPECT_EQ(Query("SELECT [Time] FROM SampledValues"), "null");
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues"), "255");
    EXPECT_EQ(Query("SELECT Wp || [Wp+] || [Wp-] || Wq FROM ComputedValues"), "0.00.00.00.0");
    EXPECT_EQ(Query("SELECT [U sum] FROM SampledValues").toDouble(), App().CurrentRow.dU[kSum]);
    EXPECT_EQ(Query("SELECT n FROM ComputedValues").toDouble(), App().CurrentRow.dn);
    EXPECT_EQ(Query("SELECT Method FROM ComputedValues"), "P");
    EXPECT_NE(App().CurrentRow.dWp, 0) << "the buffer itself stays";
}

TEST_F(FileManaging, AppendRow_OfVoltagesStoresThePhases)
{
    CreateProject(6);
    App().CurrentRow = DistinctRow();
    OpenDbGuarded();
    EXPECT_TRUE(AppendRow(1));
    CloseDbGuarded();
    EXPECT_EQ(Query("SELECT [U 3] FROM SampledValues").toDouble(), App().CurrentRow.dU[kPhase3]);
    EXPECT_EQ(Query("SELECT [Set] FROM ComputedValues"), "1");
}

TEST_F(FileManaging, UpdateRow_ChangesSumsEnergiesAndMarkAndClearsTheEvaluation)
{
    CreateProject(2);
    Append(1);
    App().bEvaluated = 1;
    App().CurrentRow = DistinctRow();
    App().CurrentRow.bEdit = 255;
    OpenDbGuarded();
    EXPECT_TRUE(UpdateRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().bEvaluated, 0);
    EXPECT_EQ(Query("SELECT [P sum] FROM SampledValues").toDouble(), App().CurrentRow.dP[kSum]);
    EXPECT_EQ(Query("SELECT [Wp-] FROM ComputedValues").toDouble(), App().CurrentRow.dWpMinus);
    EXPECT_EQ(Query("SELECT eta FROM ComputedValues").toDouble(), App().CurrentRow.deta);
    EXPECT_EQ(Query("SELECT Edit FROM SampledValues"), "255");
    EXPECT_EQ(Query("SELECT [Time] FROM SampledValues"), "2026-03-14 15:09:26") << "the time stamp stays";
}

TEST_F(FileManaging, UpdateRow_InConfiguration5StumblesOverTheMissingEnergiesOnce)
{
    CreateProject(5);
    Append(1);
    const QByteArray before = ContentOf("test.MDB");
    OpenDbGuarded();
    EXPECT_FALSE(UpdateRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().iFileErrors, 1);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains("Wp")) << shell.boxes[0].text.toStdString();
    EXPECT_EQ(ContentOf("test.MDB"), before);
}

TEST_F(FileManaging, UpdateRow_OfAMissingSetIsToldAndCounted)
{
    CreateProject(0);
    OpenDbGuarded();
    EXPECT_FALSE(UpdateRow(5));
    CloseDbGuarded();
    EXPECT_EQ(App().iFileErrors, 1);
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Kann Datei nicht schreiben!\nDer Datensatz 5 ist nicht vorhanden."});
}

TEST_F(FileManaging, ReadRow_InTheVoltageConfigurationLeavesTheCurrentUnchanged)
{
    CreateProject(6);
    Append(1);
    App().CurrentRow.dI[kSum] = 3.25;
    OpenDbGuarded();
    EXPECT_TRUE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().CurrentRow.dI[kSum], 3.25);
}

TEST_F(FileManaging, ReadRow_NullTimeReadsAsEmptyText)
{
    CreateProject(0);
    App().sTimeText = QStringLiteral("old");
    OpenDbGuarded();
    AppendRow(1);
    EXPECT_TRUE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().sTimeText, "");
    EXPECT_EQ(App().CurrentRow.bEdit, 255);
}

TEST_F(FileManaging, ReadRow_WithoutSuchASetChangesNothing)
{
    CreateProject(0);
    App().CurrentRow = DistinctRow();
    App().lLastReadSet = 17;
    OpenDbGuarded();
    EXPECT_TRUE(ReadRow(3));
    CloseDbGuarded();
    EXPECT_EQ(App().lLastReadSet, 17);
    EXPECT_EQ(App().CurrentRow.dU[kSum], DistinctRow().dU[kSum]);
    EXPECT_EQ(App().iFileErrors, 0);
}

TEST_F(FileManaging, ReadRow_FailureIsToldAndCounted)
{
    CreateProject(0);
    Execute("DROP TABLE ComputedValues");
    OpenDbGuarded();
    EXPECT_FALSE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().iFileErrors, 1);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht lesen!\n"));
    EXPECT_TRUE(shell.boxes[0].text.endsWith(u'.'));
}

TEST_F(FileManaging, ReadRow_OfAMissingFileIsTold)
{
    App().sProjectPath = PathOf("none.MDB");
    OpenDbGuarded();
    EXPECT_FALSE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_FALSE(QFile::exists(PathOf("none.MDB")));
}

TEST_F(FileManaging, ReadRow_FromTheScratchTableGoesByItsOwnKey)
{
    CreateProject(2);
    App().MeasuredRow.dU[kSum] = 400;
    Append(1);
    Execute("CREATE TABLE Temp AS SELECT SampledValues.[Set] AS SampledValues_Set, ComputedValues.[Set] AS "
            "ComputedValues_Set, * FROM SampledValues INNER JOIN ComputedValues USING ([Set])");
    Execute("UPDATE Temp SET [SampledValues_Set]=9, [U sum]=401");
    OpenDbGuarded();
    EXPECT_TRUE(ReadRow(9, true));
    CloseDbGuarded();
    EXPECT_EQ(App().CurrentRow.dU[kSum], 401);
    EXPECT_EQ(App().lLastReadSet, 9);
}

TEST_F(FileManaging, Simulation_IsStoredAndReadOnItsOwn)
{
    CreateProject(2);
    Append(1);
    OpenDbGuarded();
    CreateSimulatedTable();
    OpenSimulatedRecordset();
    App().SimulatedRow = DistinctRow();
    EXPECT_TRUE(AppendSimulatedRow(1));
    const tValueRow stored = App().SimulatedRow;
    App().SimulatedRow = {};
    EXPECT_TRUE(ReadSimulatedRow(1));
    CloseDbGuarded();
    EXPECT_EQ(ColumnNames("SimulatedValues"), "Set,U sum,f sum,P sum,n,M,Pmech,eta,Method,Wp,Wp+,Wp-");
    EXPECT_EQ(App().SimulatedRow.dWpMinus, stored.dWpMinus);
    EXPECT_EQ(App().SimulatedRow.dU[kSum], stored.dU[kSum]);
    EXPECT_EQ(App().SimulatedRow.sMethod, "P");
    EXPECT_EQ(App().SimulatedRow.dI[kSum], 0) << "a simulation has no current";
}

TEST_F(FileManaging, ARunReadsBesideItsOpenWriteRecordset)
{
    CreateProject(0);
    OpenProjectDb();
    OpenJoinedRecordset();
    for (qint32 set = 1; set <= 3; ++set) {
        App().MeasuredRow.lSet = set;
        App().MeasuredRow.dU[kSum] = 200 + set;
        ASSERT_TRUE(AppendMeasuredRow());
        OpenDbGuarded();
        ASSERT_TRUE(ReadRow(set));
        CloseDbGuarded();
        EXPECT_EQ(App().CurrentRow.dU[kSum], 200 + set);
    }
    CloseProjectDb();
    EXPECT_FALSE(IsProjectDbOpen());
    EXPECT_EQ(CountSets(), 3);
}

TEST_F(FileManaging, HostileValuesInARowReadAsNumbersAndCauseNoHarm)
{
    CreateProject(2);
    Append(1);
    Execute("UPDATE SampledValues SET [U sum]='abc', [I sum]=NULL, [P sum]=x'00ff', [Time]='gestern', t='x', Edit=-7");
    Execute("UPDATE ComputedValues SET Method='Ungewöhnlich', n=9e999");
    OpenDbGuarded();
    EXPECT_TRUE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(App().CurrentRow.dU[kSum], 0);
    EXPECT_EQ(App().CurrentRow.dI[kSum], 0);
    EXPECT_EQ(App().CurrentRow.sMethod, "Ungewöhnlich");
    EXPECT_TRUE(std::isinf(App().CurrentRow.dn));
    EXPECT_EQ(App().sTimeText, "gestern");
}

} // namespace
} // namespace korvanel::test
