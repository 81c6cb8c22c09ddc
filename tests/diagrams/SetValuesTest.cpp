// What curves are drawn from: blocks of values, read or kept.
#include "diagrams/RecordingFixture.h"

namespace korvanel::test {
namespace {

class SetValuesTest : public DiagramRecordingTest
{
protected:
    /// The values that a walk gives, one column a quantity.
    std::vector<std::vector<double>> Walked(const std::vector<int>& quantities, qint32 first, qint32 last,
                                            int milliseconds = 1000)
    {
        std::vector<std::vector<double>> columns(quantities.size());
        SetValues::Walk walk(values, quantities, first, last);
        qint32 next = first;
        for (ValueBlock block; walk.Next(block, milliseconds);) {
            EXPECT_EQ(block.firstSet, next);
            EXPECT_GT(block.count, 0);
            next += block.count;
            for (std::size_t i = 0; i < quantities.size(); ++i)
                columns[i].insert(columns[i].end(), block.values[i], block.values[i] + block.count);
            ++blocks;
        }
        EXPECT_EQ(next, last + 1);
        return columns;
    }
    void ExpectStored(const std::vector<int>& quantities, qint32 first, qint32 last)
    {
        const auto columns = Walked(quantities, first, last);
        for (std::size_t i = 0; i < quantities.size(); ++i) {
            ASSERT_EQ(std::ssize(columns[i]), last - first + 1);
            for (qint32 set = first; set <= last; ++set)
                ASSERT_EQ(columns[i][static_cast<std::size_t>(set - first)], Stored(quantities[i], set))
                    << quantities[i] << " of set " << set;
        }
    }
    /// The kept values are what is given, whatever stands in the file.
    void SpoilFileUnseen() const
    {
        QFile file(App().sProjectPath);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        const QDateTime changed = file.fileTime(QFileDevice::FileModificationTime);
        constexpr int kHeader = 100;
        file.seek(kHeader);
        file.write(QByteArray(static_cast<qsizetype>(file.size()) - kHeader, '\xFF'));
        file.flush();
        ASSERT_TRUE(file.setFileTime(changed, QFileDevice::FileModificationTime));
    }

    int blocks = 0;
};

TEST_F(SetValuesTest, AreThoseOfTheFileInOrder)
{
    Record(RandomSets(10'000, 1));
    ExpectStored({kU, kP}, 1, 10'000);
    EXPECT_GE(blocks, 3);
    ExpectStored({kU, kP}, 1, 10'000);
    ExpectStored({kU, kP}, 4711, 4713);
}

TEST_F(SetValuesTest, AreKeptAfterTheFirstWalk)
{
    Record(RandomSets(5000, 1));
    Walked({kU, kP}, 1, 5000);
    EXPECT_EQ(values.Kept(), 10'000);
    SpoilFileUnseen();
    ExpectStored({kU, kP}, 1, 5000);
    ExpectStored({kP}, 300, 301);
    EXPECT_THROW(Walked({kI}, 1, 10), DbError) << "these were not kept";
}

TEST_F(SetValuesTest, OfAnotherQuantityAreReadBesideThoseThatAreKept)
{
    Record(RandomSets(9000, 1));
    Walked({kU}, 1, 4000);
    Walked({kP}, 1, 2000);
    ExpectStored({kU, kP, kI}, 1500, 9000);
    ExpectStored({kU, kP, kI}, 1, 9000);
    EXPECT_EQ(values.Kept(), 27'000);
}

TEST_F(SetValuesTest, BehindAGapAreReadAndNotKept)
{
    Record(RandomSets(3000, 1));
    ExpectStored({kU}, 2000, 3000);
    EXPECT_EQ(values.Kept(), 0);
    Walked({kU}, 1, 10);
    ExpectStored({kU}, 5, 3000);
    EXPECT_EQ(values.Kept(), 3000);
}

TEST_F(SetValuesTest, BlocksEndWhenTheTimeIsOver)
{
    Record(RandomSets(2000, 1));
    Walked({kU}, 1, 2000, 0);
    EXPECT_GE(blocks, 2000 / 64);
}

TEST_F(SetValuesTest, AreDroppedWhenTheRowsChange)
{
    Record(RandomSets(100, 1));
    Walked({kU}, 1, 100);
    Execute(QStringLiteral("UPDATE SampledValues SET [U sum]=17 WHERE [Set]=50"));
    EXPECT_EQ(Walked({kU}, 1, 100)[0][49], 17);
}

TEST_F(SetValuesTest, AreDroppedWhenOptionsOrProjectChange)
{
    Record(RandomSets(100, 1));
    Walked({kU}, 1, 100);
    RecordingChanged();
    SpoilFileUnseen();
    EXPECT_THROW(Walked({kU}, 1, 100), DbError);
    EXPECT_EQ(values.Kept(), 0);
    Record(RandomSets(100, 2));
    ExpectStored({kU}, 1, 100);
}

TEST_F(SetValuesTest, BeyondTheLimitAreReadEachTime)
{
    Record(RandomSets(3000, 1));
    values = SetValues(SetSource::Measured, 4000);
    ExpectStored({kU, kP, kI}, 1, 3000);
    EXPECT_LE(values.Kept(), 4000);
    EXPECT_GT(values.Kept(), 3900);
    ExpectStored({kU, kP, kI}, 1, 3000);
    ExpectStored({kU}, 1, 3000);
    ExpectStored({kP, kM}, 1, 3000);
    EXPECT_LE(values.Kept(), 4000);
}

TEST_F(SetValuesTest, OfASimulationComeFromItsTable)
{
    Record(RandomSets(3, 1));
    Execute(CreateStatement(ValueTable::Simulated, kDiagramConf));
    Execute(QStringLiteral("INSERT INTO SimulatedValues ([Set], [P sum], [M]) VALUES (1,11,5),(2,12,6),(3,13,7)"));
    values = SetValues(SetSource::Simulated);
    EXPECT_EQ(Walked({kP, kM, kI}, 1, 3), (std::vector<std::vector<double>>{{11, 12, 13}, {5, 6, 7}, {0, 0, 0}}));
}

} // namespace
} // namespace korvanel::test
