// Recordings and files that no run would leave: each is evaluated or told in the general error report, and never leaves
// half a result behind.
#include "evaluation/EvaluationPass.h"
#include "evaluation/HostileEvaluationFixture.h"

namespace korvanel::test {
namespace {

/// The ordinary project, with whatever count the pass is told.
EvaluationResults EvaluateCounted(
    qint32 count, qint32 mostInMemory = kMostSetsInMemory, const std::function<void(qint32)>& advance = [](qint32) {})
{
    PassConditions conditions;
    conditions.netConf = App().iNetConfIndex;
    conditions.window = 10;
    conditions.rated = RatedDataOf(WhichMachine::I);
    conditions.energy.dt = App().dInterval;
    return EvaluateSets(ProjectDb(), SetSource::Measured, conditions, count, advance, mostInMemory);
}

TEST_F(HostileEvaluation, NullsCountAs0)
{
    MakeOrdinaryProject();
    Execute("UPDATE SampledValues SET [U sum]=NULL, [I sum]=NULL, [Edit]=NULL, [t]=NULL WHERE [Set]=7");
    Execute("UPDATE ComputedValues SET [n]=NULL, [M]=NULL, [Pmech]=NULL, [eta]=NULL, [Method]=NULL WHERE [Set]=9");
    ExpectSuccess(40);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kU], 0, 7);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kM], 0, 9);
    EXPECT_EQ(App().MachineI.evaluation.lCorrectedRows, 0);
}

TEST_F(HostileEvaluation, TextsInColumnsOfNumbersCountAs0)
{
    MakeOrdinaryProject();
    Execute("UPDATE SampledValues SET [U sum]='viel', [Edit]='ja' WHERE [Set]=7");
    Execute("UPDATE ComputedValues SET [M]='', [eta]=x'00ff' WHERE [Set]=9");
    ExpectSuccess(40);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kU], 0, 7);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kM], 0, 9);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kEta], 0, 9);
}

TEST_F(HostileEvaluation, AnInfiniteValueOfAnyQuantityIsAFault)
{
    for (const char* value : {"9e999", "-9e999"})
        for (const char* column : {"U sum", "I sum", "f sum", "P sum", "phi sum", "S sum", "Q sum", "cosphi sum", "n",
                                   "M", "Pmech", "eta", "Wp", "Wq", "Wp+", "Wp-"}) {
            SCOPED_TRACE(std::string(column) + " " + value);
            MakeOrdinaryProject();
            for (const char* table : {"SampledValues", "ComputedValues"})
                if (Query(QStringLiteral("SELECT count(*) FROM pragma_table_info('%1') WHERE name='%2'")
                              .arg(QLatin1String(table), QLatin1String(column))) == "1")
                    Execute(QStringLiteral("UPDATE %1 SET [%2]=%3 WHERE [Set]=20")
                                .arg(QLatin1String(table), QLatin1String(column), QLatin1String(value)));
            ExpectFault();
        }
}

TEST_F(HostileEvaluation, AnInfiniteValueIsAFaultInAnySet)
{
    for (const int set : {1, 2, 10, 11, 12, 39, 40}) {
        SCOPED_TRACE(set);
        MakeOrdinaryProject();
        Execute(QStringLiteral("UPDATE SampledValues SET [U sum]=9e999 WHERE [Set]=%1").arg(set));
        ExpectFault();
    }
}

TEST_F(HostileEvaluation, ASquareBeyondAllNumbersIsAFault)
{
    for (const char* column : {"U sum", "P sum", "phi sum"}) {
        MakeOrdinaryProject();
        Execute(QStringLiteral("UPDATE SampledValues SET [%1]=1e308 WHERE [Set]=20").arg(QLatin1String(column)));
        ExpectFault();
    }
}

TEST_F(HostileEvaluation, AHugeValueWhoseSquareIsANumberIsEvaluated)
{
    MakeOrdinaryProject();
    Execute("UPDATE SampledValues SET [U sum]=1e150 WHERE [Set]=40");
    ExpectSuccess(40);
    ExpectEntry(App().MachineI.evaluation.tExtremMax[kU], 1e150, 40);
    EXPECT_DOUBLE_EQ(App().MachineI.evaluation.tRmsMax[kU].dValue, std::sqrt(1e300 / 11));
}

TEST_F(HostileEvaluation, AHugeRegisterIsNoFault)
{
    MakeOrdinaryProject(3);
    Execute("UPDATE SampledValues SET [Wp abs]=1e308, [Wq abs]=-1e308, [I N]=1e308");
    ExpectSuccess(40);
    ExpectEntry(App().MachineI.evaluation.tExtremMax[kWpAbs], 1e308, 1);
    ExpectEntry(App().MachineI.evaluation.tExtremMin[kWqAbs], -1e308, 1);
}

TEST_F(HostileEvaluation, EnergyBeyondAllNumbersIsAFault)
{
    MakeOrdinaryProject();
    App().dInterval = 1e306;
    ExpectFault();
    MakeOrdinaryProject();
    settings->SetEnergyCosts(0, 1e308);
    Execute("UPDATE SampledValues SET [P sum]=1e100");
    ExpectFault();
}

TEST_F(HostileEvaluation, ASetThatOneTableLacksIsNoSet)
{
    MakeOrdinaryProject(2, 40);
    Execute("DELETE FROM ComputedValues WHERE [Set]>30");
    ExpectSuccess(30);
    MakeOrdinaryProject(2, 40);
    Execute("DELETE FROM SampledValues WHERE [Set]>25");
    ExpectSuccess(25);
    MakeOrdinaryProject(2, 40);
    Execute("DELETE FROM SampledValues");
    ExpectSuccess(0);
}

TEST_F(HostileEvaluation, AGapInTheSetsIsNoObstacle)
{
    MakeOrdinaryProject(2, 40);
    Execute("DELETE FROM ComputedValues WHERE [Set] IN (1, 5, 20)");
    Execute("DELETE FROM SampledValues WHERE [Set] IN (1, 6, 39)");
    ExpectSuccess(35);
    EXPECT_EQ(App().MachineI.evaluation.dWindowRows, 11);
}

TEST_F(HostileEvaluation, SetNumbersBeyondTheRangeAreNoObstacle)
{
    MakeOrdinaryProject(2, 40);
    for (const char* table : {"SampledValues", "ComputedValues"})
        Execute(QStringLiteral("UPDATE %1 SET [Set]=9000000000000 WHERE [Set]=40; "
                               "UPDATE %1 SET [Set]=-3 WHERE [Set]=39")
                    .arg(QLatin1String(table)));
    ExpectSuccess(40);
}

TEST_F(HostileEvaluation, TheCountOfTheBlockIsNotReliedOn)
{
    for (const qint32 count : {0, 7, 41, 1000000, -1}) {
        MakeOrdinaryProject(2, 40);
        App().iSetCount = count;
        ExpectSuccess(40);
        EXPECT_EQ(App().iSetCount, 40) << "from then on the block has the right one";
    }
}

TEST_F(HostileEvaluation, ACountThatIsWrongChangesNothing)
{
    MakeOrdinaryProject(2, 40);
    const ProjectDbScope scope;
    const EvaluationResults right = EvaluateCounted(40);
    for (const qint32 count : {0, 1, 39, 41, 1000000})
        for (const qint32 mostInMemory : {0, 5, 100}) {
            SCOPED_TRACE(count);
            ExpectSameResults(EvaluateCounted(count, mostInMemory), right);
        }
}

TEST_F(HostileEvaluation, AWriterInTheMiddleOfThePassIsKeptOut)
{
    for (const qint32 mostInMemory : {0, 1000}) {
        MakeOrdinaryProject(2, 20000);
        const ProjectDbScope scope;
        const EvaluationResults right = EvaluateCounted(20000, mostInMemory);
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        int attempts = 0;
        const auto disturb = [&](qint32) {
            ++attempts;
            EXPECT_THROW(other.exec("DELETE FROM SampledValues WHERE [Set]>100"), SQLite::Exception);
        };
        ExpectSameResults(EvaluateCounted(20000, mostInMemory, disturb), right);
        EXPECT_GT(attempts, 0);
    }
}

TEST_F(HostileEvaluation, AFileLockedByAnotherProgramIsTold)
{
    MakeOrdinaryProject();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    ExpectFailure();
    other.exec("ROLLBACK");
    ExpectSuccess(40);
}

TEST_F(HostileEvaluation, AFileThatIsGoneIsTold)
{
    MakeOrdinaryProject();
    const QString path = App().sProjectPath;
    ASSERT_TRUE(QFile::rename(path, path + ".weg"));
    ExpectFailure();
    EXPECT_FALSE(QFile::exists(path)) << "no empty file in its place";
    ASSERT_TRUE(QDir().mkdir(path));
    ExpectFailure();
}

TEST_F(HostileEvaluation, ATableThatIsMissingIsTold)
{
    for (const char* table : {"SampledValues", "ComputedValues"}) {
        MakeOrdinaryProject();
        Execute(QStringLiteral("DROP TABLE %1").arg(QLatin1String(table)));
        ExpectFailure();
    }
}

TEST_F(HostileEvaluation, AColumnThatIsMissingIsTold)
{
    MakeOrdinaryProject(2);
    App().iNetConfIndex = 5; // whose columns the tables don't have
    ExpectFailure();
}

TEST_F(HostileEvaluation, AFileDamagedAnywhereGivesAllOrNothing)
{
    constexpr qsizetype kPage = 4096;
    constexpr qint32 kRowsStored = 500;
    MakeOrdinaryProject(2, kRowsStored);
    const QByteArray whole = ContentOf(QFileInfo(App().sProjectPath).fileName());
    ASSERT_GT(whole.size(), 10 * kPage);
    int failures = 0;
    for (qsizetype page = 0; page < whole.size() / kPage; ++page) {
        SCOPED_TRACE(page);
        QByteArray damaged = whole;
        for (qsizetype i = page == 0 ? 100 : 0; i < kPage; i += 7)
            damaged[page * kPage + i] = static_cast<char>(i * 31);
        WriteContent("damaged.MDB", damaged);
        App().sProjectPath = PathOf("damaged.MDB");
        if (EvaluateGuarded()) {
            EXPECT_TRUE(shell.boxes.empty());
            EXPECT_EQ(App().MachineI.evaluation.lSets, kRowsStored);
            ExpectFiniteResults();
        } else {
            ++failures;
            EXPECT_EQ(shell.boxes.size(), 1U);
            ExpectSameResults(App().MachineI.evaluation, {});
        }
        EXPECT_TRUE(ContentOf("damaged.MDB") == damaged) << "the file has changed";
    }
    EXPECT_GT(failures, 5);
}

TEST_F(HostileEvaluation, AFileCutOffIsTold)
{
    MakeOrdinaryProject(2, 500);
    const QByteArray whole = ContentOf(QFileInfo(App().sProjectPath).fileName());
    App().sProjectPath = PathOf("cut.MDB");
    for (qsizetype size = 1; size < whole.size() - 4096; size += 3989) {
        SCOPED_TRACE(size);
        WriteContent("cut.MDB", whole.left(size));
        ExpectFailure();
    }
}

} // namespace
} // namespace korvanel::test
