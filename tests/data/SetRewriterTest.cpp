#include "data/SetRewriter.h"

#include "data/RowWriter.h"
#include "data/ValueTables.h"
#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

namespace korvanel::test {
namespace {

constexpr int kVoltage[] = {kU};
constexpr int kPowers[] = {kP, kPmech};

class SetRewriterTest : public ProjectTest
{
protected:
    void Store(int netConf, int count)
    {
        CreateProject(netConf);
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i].dU[kSum] = static_cast<double>(i + 1);
            rows[i].dP[kSum] = rows[i].dPmech = 5;
            rows[i].dI[kSum] = 2;
        }
        StoreRows(rows);
    }
    static void Nothing(qint64 /*set*/, tValueRow& /*row*/) {}
    static void Silence(qint32 /*done*/) {}
};

TEST_F(SetRewriterTest, ChosenColumns_AreWrittenInBothTablesAndNoOther)
{
    Store(2, 3);
    {
        const ProjectDbScope scope;
        ChosenColumns target(ProjectDb(), 2, kPowers);
        RewriteSets(
            ProjectDb(), 2, {}, target,
            [](qint64 set, tValueRow& row) {
                row.dP[kSum] = 100 * static_cast<double>(set);
                row.dPmech = row.dU[kSum];
                row.dI[kSum] = 77; // not chosen
            },
            Silence);
    }
    EXPECT_EQ(Query("SELECT group_concat([P sum], ' ') FROM SampledValues"), "100.0 200.0 300.0");
    EXPECT_EQ(Query("SELECT group_concat(Pmech, ' ') FROM ComputedValues"), "1.0 2.0 3.0");
    EXPECT_EQ(Query("SELECT group_concat([I sum], ' ') FROM SampledValues"), "2.0 2.0 2.0");
    EXPECT_EQ(Query("SELECT group_concat(Edit, ' ') FROM SampledValues"), "0 0 0");
}

TEST_F(SetRewriterTest, MethodAndTime_AreColumnsLikeAnyOther)
{
    static constexpr int kChosen[] = {kColumnTime, kColumnMethod};
    Store(2, 2);
    {
        const ProjectDbScope scope;
        ChosenColumns target(ProjectDb(), 2, kChosen);
        RewriteSets(
            ProjectDb(), 2, {.quantities = kChosen}, target,
            [](qint64 set, tValueRow& row) {
                row.sMethod = QStringLiteral("V");
                row.dt = static_cast<double>(set) * 2.5;
            },
            Silence);
    }
    EXPECT_EQ(Query("SELECT group_concat(t, ' ') FROM SampledValues"), "2 5") << "whole numbers, a half to the even";
    EXPECT_EQ(Query("SELECT group_concat(Method, ' ') FROM ComputedValues"), "V V");
}

/// Several blocks with a rest, so that their seams are walked over.
TEST_F(SetRewriterTest, ALongRecording_IsWalkedToItsEndAndTheProgressHeard)
{
    constexpr int kSets = 1000;
    Store(0, kSets);
    qint64 last = 0;
    std::vector<qint32> heard;
    {
        const ProjectDbScope scope;
        DbTransaction transaction(ProjectDb());
        ChosenColumns target(ProjectDb(), 0, kVoltage, kCorrected);
        RewriteSets(
            ProjectDb(), 0, {.quantities = kVoltage}, target,
            [&last](qint64 set, tValueRow& row) {
                EXPECT_EQ(set, last + 1);
                EXPECT_EQ(row.dU[kSum], static_cast<double>(set));
                row.dU[kSum] = -row.dU[kSum];
                last = set;
            },
            [&heard](qint32 done) { heard.push_back(done); });
        transaction.Commit();
    }
    EXPECT_EQ(last, kSets);
    EXPECT_EQ(Query("SELECT sum([U sum]) FROM SampledValues"), "-500500.0");
    EXPECT_EQ(Query("SELECT count(*) FROM SampledValues WHERE Edit=255"), "1000");
    EXPECT_TRUE(std::is_sorted(heard.begin(), heard.end()));
    EXPECT_EQ(heard.back(), kSets);
    EXPECT_GT(heard.size(), 2U);
}

TEST_F(SetRewriterTest, ASimulation_IsWrittenSetBySetByTheSameWalk)
{
    Store(2, 3);
    {
        const ProjectDbScope scope;
        CreateSimulatedTable();
        SimulatedRowWriter target(ProjectDb());
        RewriteSets(
            ProjectDb(), 2, {}, target, [](qint64, tValueRow& row) { row.dPmech = 10 * row.dU[kSum]; }, Silence);
    }
    EXPECT_EQ(Query("SELECT group_concat([Set] || ':' || Pmech, ' ') FROM SimulatedValues"), "1:10.0 2:20.0 3:30.0");
}

TEST_F(SetRewriterTest, ASetWithoutComputedValues_IsToldAndNothingHasChanged)
{
    Store(2, 3);
    Execute("DELETE FROM ComputedValues WHERE [Set]=2");
    {
        const ProjectDbScope scope;
        DbTransaction transaction(ProjectDb());
        ChosenColumns target(ProjectDb(), 2, kPowers);
        const RewriteSource sampled{.source = SetSource::Sampled, .quantities = kVoltage};
        EXPECT_THROW(RewriteSets(ProjectDb(), 2, sampled, target, Nothing, Silence), DbError);
    }
    EXPECT_EQ(Query("SELECT [P sum] FROM SampledValues WHERE [Set]=1"), "5.0");
}

TEST_F(SetRewriterTest, AColumnThatTheConfigurationLacks_IsRefused)
{
    Store(0, 1);
    const ProjectDbScope scope;
    EXPECT_THROW(ChosenColumns(ProjectDb(), 0, kPowers), DbError);
}

/// A file from elsewhere may hold its numbers as texts, which are behind every number for ever.
TEST_F(SetRewriterTest, NumbersThatDoNotRise_EndTheWalk)
{
    Store(0, 1);
    Execute("DROP TABLE SampledValues; CREATE TABLE SampledValues ([Set] TEXT, [U sum] REAL, [Edit] INTEGER); "
            "INSERT INTO SampledValues VALUES ('1', 1, 0), ('2', 2, 0), ('2', 3, 0)");
    const ProjectDbScope scope;
    ChosenColumns target(ProjectDb(), 0, {}, kCorrected);
    const RewriteSource sampled{.source = SetSource::Sampled, .quantities = kVoltage};
    EXPECT_THROW(RewriteSets(ProjectDb(), 0, sampled, target, Nothing, Silence), DbError);
}

} // namespace
} // namespace korvanel::test
