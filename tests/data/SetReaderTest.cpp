#include "data/SetReader.h"

#include "support/ProjectFixture.h"
#include "support/StoredRows.h"

namespace korvanel::test {
namespace {

class SetReaderTest : public ProjectTest
{
protected:
    /// Sets 1 to n with U = 10 times the set, one second apart.
    void Store(int netConf, int count)
    {
        CreateProject(netConf);
        std::vector<tValueRow> rows(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            rows[i].dU[kSum] = 10 * static_cast<double>(i + 1);
            rows[i].dt = static_cast<double>(i);
            rows[i].sMethod = QStringLiteral("P");
        }
        StoreRows(rows);
    }
    static QString SetsOf(SetReader& reader)
    {
        QStringList sets;
        while (reader.Next())
            sets << QString::number(reader.Set());
        return sets.join(u' ');
    }
};

TEST_F(SetReaderTest, All_WalksTheSetsInOrder)
{
    Store(2, 5);
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 2);
    qint32 set = 0;
    while (reader.Next()) {
        ++set;
        EXPECT_EQ(reader.Set(), set);
        EXPECT_EQ(reader.Row().dU[kSum], 10 * set);
        EXPECT_EQ(reader.Row().dt, set - 1);
        EXPECT_EQ(reader.Row().sMethod, "P");
        EXPECT_EQ(reader.StoredTime(), "2026-03-14 15:09:26");
    }
    EXPECT_EQ(set, 5);
}

TEST_F(SetReaderTest, One_GivesTheSetThatIsSought)
{
    Store(0, 5);
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 0, SetRange::One);
    reader.Seek(4);
    EXPECT_EQ(SetsOf(reader), "4");
    EXPECT_EQ(reader.Row().dU[kSum], 40);
    reader.Seek(9);
    EXPECT_EQ(SetsOf(reader), "");
    reader.Seek(1);
    EXPECT_EQ(SetsOf(reader), "1");
}

TEST_F(SetReaderTest, Between_GivesTheSetsOfARangeWithItsEnds)
{
    Store(0, 5);
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 0, SetRange::Between);
    reader.Seek(2, 4);
    EXPECT_EQ(SetsOf(reader), "2 3 4");
    reader.Seek(5, 9);
    EXPECT_EQ(SetsOf(reader), "5");
    reader.Seek(4, 3);
    EXPECT_EQ(SetsOf(reader), "");
}

TEST_F(SetReaderTest, Behind_GivesTheNextFewSets)
{
    Store(0, 5);
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 0, SetRange::Behind);
    reader.Seek(2, 2);
    EXPECT_EQ(SetsOf(reader), "3 4");
    reader.Seek(4, 2);
    EXPECT_EQ(SetsOf(reader), "5");
    reader.Seek(5, 2);
    EXPECT_EQ(SetsOf(reader), "");
}

TEST_F(SetReaderTest, Row_IsTheReadersOwn)
{
    Store(2, 1);
    App().CurrentRow.dU[kSum] = 7;
    App().lLastReadSet = 9;
    App().sTimeText = QStringLiteral("before");
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 2);
    EXPECT_EQ(SetsOf(reader), "1");
    EXPECT_EQ(App().CurrentRow.dU[kSum], 7);
    EXPECT_EQ(App().lLastReadSet, 9);
    EXPECT_EQ(App().sTimeText, "before");
}

TEST_F(SetReaderTest, ChosenQuantities_AloneAreRead)
{
    Store(2, 1);
    Execute("UPDATE SampledValues SET [I sum]=3");
    const ProjectDbScope scope;
    static constexpr int kChosen[] = {kI};
    SetReader reader(ProjectDb(), 2, SetRange::All, SetSource::Sampled, kChosen);
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Row().dI[kSum], 3);
    EXPECT_EQ(reader.Row().dU[kSum], 0) << "nobody asked for it";
    EXPECT_EQ(reader.StoredTime(), "");
}

TEST_F(SetReaderTest, Sampled_ReadsSetsThatWereNeverComputed)
{
    Store(0, 3);
    Execute("DELETE FROM ComputedValues WHERE [Set]=2");
    const ProjectDbScope scope;
    SetReader joined(ProjectDb(), 0);
    EXPECT_EQ(SetsOf(joined), "1 3");
    static constexpr int kChosen[] = {kU};
    SetReader sampled(ProjectDb(), 0, SetRange::All, SetSource::Sampled, kChosen);
    EXPECT_EQ(SetsOf(sampled), "1 2 3");
}

TEST_F(SetReaderTest, AColumnThatTheFileLacks_IsTold)
{
    CreateProject(0);
    const ProjectDbScope scope;
    EXPECT_THROW(SetReader(ProjectDb(), 5), DbError);
}

TEST_F(SetReaderTest, Method_FollowsTheLetterOfEachRow)
{
    Store(2, 4);
    Execute("UPDATE ComputedValues SET Method='V' WHERE [Set]=2");
    Execute("UPDATE ComputedValues SET Method=NULL WHERE [Set]=3");
    const ProjectDbScope scope;
    SetReader reader(ProjectDb(), 2);
    QStringList methods;
    while (reader.Next())
        methods << reader.Row().sMethod;
    EXPECT_EQ(methods, (QStringList{"P", "V", "", "P"}));
}

} // namespace
} // namespace korvanel::test
