// Recordings, options and files that no run would leave: each is evaluated or told in the general error report, and
// never leaves half a result behind.
#include "core/Messages.h"
#include "core/project/ProjectCommands.h"
#include "evaluation/EvaluationFixture.h"
#include "evaluation/ExpectedEvaluation.h"
#include "machine/Algorithms_ASM_Start.h"

#include <cmath>
#include <limits>

namespace korvanel::test {
namespace {

constexpr double kInfinite = std::numeric_limits<double>::infinity();

class HostileEvaluation : public EvaluationTest
{
protected:
    static std::vector<tValueRow> OrdinaryRows(int count)
    {
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (int i = 0; i < count; ++i) {
            tValueRow& row = rows[static_cast<std::size_t>(i)];
            row.dU[kSum] = 390 + i % 7;
            row.dI[kSum] = 10 + i % 5;
            row.df = 50;
            row.dP[kSum] = 5000 + i % 11;
            row.dQ[kSum] = 2000 - i % 3;
            row.dS[kSum] = 5400;
            row.dn = 1480;
            row.dM = 30;
            row.dPmech = 4500;
            row.deta = 0.9;
        }
        return rows;
    }
    void MakeOrdinaryProject(int netConf = 2, int count = 40)
    {
        SetRoundMachine();
        MakeProject(netConf, OrdinaryRows(count), 1, 10);
    }
    /// Evaluates as a page does, with the results of an earlier evaluation in place. True if it ran to its end.
    bool EvaluateGuarded()
    {
        App().Evaluation.tExtremMax[kU] = {12345, 6};
        App().Evaluation.lSets = 99;
        App().bEvaluated = 0;
        shell.boxes.clear();
        shell.calls.clear();
        RunGuarded(QStringLiteral("Auswertung"), EvaluateProject);
        EXPECT_FALSE(IsProjectDbOpen());
        EXPECT_EQ(shell.calls.count("ShowProgress 0"), shell.calls.count("ShowProgress 2"));
        EXPECT_EQ(shell.waiting, 0);
        return App().bEvaluated != 0;
    }
    void ExpectFailure()
    {
        EXPECT_FALSE(EvaluateGuarded());
        EXPECT_EQ(shell.boxes.size(), 1U) << shell.BoxTexts().join('|').toStdString();
        ExpectSameResults(App().Evaluation, {});
    }
    void ExpectFault()
    {
        ExpectFailure();
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Auswertung\nDie Berechnung hat keine endliche Zahl ergeben."});
    }
    void ExpectIntervalRefused(const QString& interval)
    {
        ExpectFailure();
        EXPECT_EQ(shell.BoxTexts(), QStringList{QStringLiteral("Auswertung\nDas Messintervall des Projekts (%1 s) ist "
                                                               "keine Zeitspanne; die Auswertung ist damit nicht "
                                                               "möglich.")
                                                    .arg(interval)});
    }
    void ExpectSuccess(qint32 sets)
    {
        EXPECT_TRUE(EvaluateGuarded());
        EXPECT_TRUE(shell.boxes.empty()) << shell.BoxTexts().join('|').toStdString();
        EXPECT_EQ(App().Evaluation.lSets, sets);
        ExpectFiniteResults();
    }
    static void ExpectFiniteResults()
    {
        const EvaluationResults& results = App().Evaluation;
        for (const auto& table : {results.tExtremMin, results.tExtremMax})
            for (const ExtremEntry& entry : table)
                EXPECT_TRUE(std::isfinite(entry.dValue));
        for (const auto& table : {results.tRmsMin, results.tRmsMax, results.tAvgMin, results.tAvgMax})
            for (const ExtremEntry& entry : table)
                EXPECT_TRUE(std::isfinite(entry.dValue));
        for (const EnergyEntry& entry : results.tEnergy)
            EXPECT_TRUE(std::isfinite(entry.dPlus) && std::isfinite(entry.dMinus) && std::isfinite(entry.dTotal));
        for (const UtilisationEntry& entry : results.tAsm)
            EXPECT_TRUE(std::isfinite(entry.dValue) && std::isfinite(entry.vRatio.value_or(0)));
    }
    void StoreOption(const QString& key, const QString& value)
    {
        StoreValue(kSettingsApplication, QStringLiteral("Settings"), key, value);
        LoadSettings();
    }
};

// ---- sets -----------------------------------------------------------------------------------------------------------

TEST_F(HostileEvaluation, NullsCountAs0)
{
    MakeOrdinaryProject();
    Execute("UPDATE SampledValues SET [U sum]=NULL, [I sum]=NULL, [Edit]=NULL, [t]=NULL WHERE [Set]=7");
    Execute("UPDATE ComputedValues SET [n]=NULL, [M]=NULL, [Pmech]=NULL, [eta]=NULL, [Method]=NULL WHERE [Set]=9");
    ExpectSuccess(40);
    ExpectEntry(App().Evaluation.tExtremMin[kU], 0, 7);
    ExpectEntry(App().Evaluation.tExtremMin[kM], 0, 9);
    EXPECT_EQ(App().Evaluation.lCorrectedRows, 0);
}

TEST_F(HostileEvaluation, TextsInColumnsOfNumbersCountAs0)
{
    MakeOrdinaryProject();
    Execute("UPDATE SampledValues SET [U sum]='viel', [Edit]='ja' WHERE [Set]=7");
    Execute("UPDATE ComputedValues SET [M]='', [eta]=x'00ff' WHERE [Set]=9");
    ExpectSuccess(40);
    ExpectEntry(App().Evaluation.tExtremMin[kU], 0, 7);
    ExpectEntry(App().Evaluation.tExtremMin[kM], 0, 9);
    ExpectEntry(App().Evaluation.tExtremMin[kEta], 0, 9);
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
    ExpectEntry(App().Evaluation.tExtremMax[kU], 1e150, 40);
    EXPECT_DOUBLE_EQ(App().Evaluation.tRmsMax[kU].dValue, std::sqrt(1e300 / 11));
}

TEST_F(HostileEvaluation, AHugeRegisterIsNoFault)
{
    MakeOrdinaryProject(3);
    Execute("UPDATE SampledValues SET [Wp abs]=1e308, [Wq abs]=-1e308, [I N]=1e308");
    ExpectSuccess(40);
    ExpectEntry(App().Evaluation.tExtremMax[kWpAbs], 1e308, 1);
    ExpectEntry(App().Evaluation.tExtremMin[kWqAbs], -1e308, 1);
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
    EXPECT_EQ(App().Evaluation.dWindowRows, 11);
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
    }
}

// ---- options --------------------------------------------------------------------------------------------------------

TEST_F(HostileEvaluation, AnIntervalThatIsNoLengthOfTimeIsTold)
{
    for (const auto& [interval, text] : {std::pair(0.0, "0"), std::pair(-1.0, "-1"), std::pair(kInfinite, "inf"),
                                         std::pair(-kInfinite, "-inf"), std::pair(std::nan(""), "nan")}) {
        MakeOrdinaryProject();
        App().dInterval = interval;
        ExpectIntervalRefused(QLatin1String(text));
    }
}

TEST_F(HostileEvaluation, WithoutSetsNoIntervalIsNeeded)
{
    MakeOrdinaryProject(2, 0);
    App().dInterval = 0;
    ExpectSuccess(0);
    EXPECT_EQ(App().Evaluation.tAsm[kWholeCurrent].dValue, 0);
}

TEST_F(HostileEvaluation, IntervalsOfTheProjectFile)
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

TEST_F(HostileEvaluation, AWindowOf0IsOneSet)
{
    StoreOption("TWin0", "0");
    SetRoundMachine();
    MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
    ExpectSuccess(40);
    EXPECT_EQ(App().Evaluation.dWindowRows, 1);
    ExpectEntry(App().Evaluation.tRmsMax[kU], 396, 7);
}

TEST_F(HostileEvaluation, AWindowBelow0HoldsNoSets)
{
    for (const char* size : {"-0.5", "-5", "-1e300"}) {
        StoreOption("TWin0", size);
        SetRoundMachine();
        MakeProject(2, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().Evaluation.dWindowRows, 0);
        for (std::size_t channel = 0; channel < kWindowChannelCount; ++channel) {
            ExpectEntry(App().Evaluation.tRmsMax[channel], 0, 1);
            ExpectEntry(App().Evaluation.tAvgMin[channel], 0, 1);
        }
        EXPECT_EQ(App().Evaluation.tAsm[kWindowCurrent].dValue, 0);
        EXPECT_GT(App().Evaluation.tAsm[kWholeCurrent].dValue, 0);
    }
}

TEST_F(HostileEvaluation, AWindowBeyondAllRecordingsIsTheWholeOne)
{
    for (const char* size : {"1e300", "1.7e308", "2147483648", "4294967296"}) {
        StoreOption("TWin0", size);
        MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().Evaluation.dWindowRows, 40);
    }
    StoreOption("TWin0", "1e300");
    MakeProject(0, OrdinaryRows(40), 1e-200, settings->TWindowSize());
    EvaluateGuarded(); // the quotient is no number
    EXPECT_TRUE(App().bEvaluated == 0 || App().Evaluation.dWindowRows == 40);
}

TEST_F(HostileEvaluation, AnUnreadableOptionIsAtItsDefault)
{
    for (const char* value : {"", "abc", "1,5", "1e400", "inf", "nan"}) {
        for (const char* key : {"TWin0", "TWin1", "TWin2", "Cycles", "ECosts0", "ECosts1", "ECosts2"})
            StoreOption(key, value);
        MakeProject(0, OrdinaryRows(40), 1, settings->TWindowSize());
        ExpectSuccess(40);
        EXPECT_EQ(App().dTWindow, 900);
        const auto& tEnergy = App().Evaluation.tEnergy;
        EXPECT_EQ(tEnergy[kCostsActive].dPlus, std::abs(tEnergy[kEnergyActive].dPlus / 3600000 * 0.15));
        EXPECT_EQ(tEnergy[kEnergyOfCycles].dPlus, 10 * tEnergy[kEnergyActive].dPlus);
    }
}

TEST_F(HostileEvaluation, AnyNumberOfCyclesIsTaken)
{
    for (const auto& [text, cycles] :
         {std::pair("0", 0.0), std::pair("-7", -7.0), std::pair("2147483647", 2147483647.0),
          std::pair("-2147483648", -2147483648.0), std::pair("1e300", 10.0)}) {
        StoreOption("Cycles", text);
        MakeProject(0, OrdinaryRows(40));
        ExpectSuccess(40);
        const auto& tEnergy = App().Evaluation.tEnergy;
        EXPECT_EQ(tEnergy[kEnergyOfCycles].dTotal, cycles * tEnergy[kEnergyActive].dTotal);
        EXPECT_EQ(tEnergy[kEnergyOfCycles + kCostsActive].dTotal, cycles * tEnergy[kCostsActive].dTotal);
    }
}

TEST_F(HostileEvaluation, AFactorThatGivesNoWindow)
{
    for (const auto& [factor, rows] : {std::pair("0", 1.0), std::pair("-1", 0.0), std::pair("1e306", 40.0)}) {
        StoreOption("TWin1", factor);
        StoreOption("TWin2", "1");
        SetRoundMachine();
        App().Model.Tth = 60;
        MakeProject(2, OrdinaryRows(40));
        ExpectSuccess(40);
        EXPECT_EQ(App().Evaluation.dWindowRows, rows) << factor;
    }
    StoreOption("TWin1", "1e308");
    MakeProject(2, OrdinaryRows(40));
    App().Model.Tth = 1e10; // together beyond all numbers
    EvaluateGuarded();
    EXPECT_TRUE(App().bEvaluated == 0 || App().Evaluation.dWindowRows == 40);
}

TEST_F(HostileEvaluation, ARatedValueOf0IsTold)
{
    MakeOrdinaryProject();
    App().MachineI.I = 0;
    ExpectFault();
}

// ---- the file -------------------------------------------------------------------------------------------------------

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
    constexpr qint32 kSets = 500;
    MakeOrdinaryProject(2, kSets);
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
            EXPECT_EQ(App().Evaluation.lSets, kSets);
            ExpectFiniteResults();
        } else {
            ++failures;
            EXPECT_EQ(shell.boxes.size(), 1U);
            ExpectSameResults(App().Evaluation, {});
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
