#include "language/OldRecords.h"

#include "language/ConversionFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

qint64 CountOf(const OldProject& project)
{
    return project.records ? project.records->count : -1;
}

std::vector<OldRecord> RecordsOf(const QByteArray& bytes)
{
    MemoryBytes source(bytes);
    const std::optional<OldProject> project = ReadOldProject(source);
    std::vector<OldRecord> records;
    if (!project)
        return records;
    OldRecordReader reader(source, *project);
    for (auto block = reader.NextBlock(); !block.empty(); block = reader.NextBlock())
        records.insert(records.end(), block.begin(), block.end());
    return records;
}

TEST(OldRecords, TheNumberOfSets_IsTheLengthByTwentyRoundedHalfToEven)
{
    struct Case
    {
        int length;
        qint64 count; ///< -1: more sets than data
    };
    for (const Case& c : {Case{0, 0}, Case{9, 0}, Case{10, 0}, Case{11, -1}, Case{20, 1}, Case{29, 1}, Case{30, -1},
                          Case{31, -1}, Case{40, 2}, Case{50, 2}, Case{51, -1}, Case{70, -1}, Case{90, 4}}) {
        const std::optional<OldProject> project =
            ReadBytes(OldFileBuilder().Body(QByteArray(c.length, 'x')).Text("F101", "da").Bytes());
        ASSERT_EQ(project.has_value(), c.count >= 0) << c.length;
        if (project) {
            EXPECT_EQ(CountOf(*project), c.count) << c.length;
            EXPECT_EQ(project->name, "da") << c.length;
        }
    }
}

TEST(OldRecords, TheNumberOfLongSets_StillComesFromDividingByTwenty)
{
    QByteArray records;
    for (int i = 0; i < 7; ++i)
        records += RecordWithPhi(1, 2, 3, 4, static_cast<float>(-i), static_cast<float>(i));
    const QByteArray bytes = OldFileBuilder().LongBody(records).Text("F101", "da").Bytes();
    const std::vector<OldRecord> read = RecordsOf(bytes);
    ASSERT_EQ(read.size(), 7U);
    EXPECT_EQ(read[6].phi, -6.0F);
    EXPECT_EQ(read[6].t, 6.0F);
    EXPECT_EQ(ReadBytes(bytes)->name, "da");
}

TEST(OldRecords, SetsOfTwentyBytes_HaveNoAngle)
{
    const std::vector<OldRecord> read = RecordsOf(OldFileBuilder().Body(Record(1, 2, 3, 4, 5)).Bytes());
    ASSERT_EQ(read.size(), 1U);
    EXPECT_EQ(read[0].U, 1);
    EXPECT_EQ(read[0].I, 2);
    EXPECT_EQ(read[0].f, 3);
    EXPECT_EQ(read[0].P, 4);
    EXPECT_EQ(read[0].t, 5);
    EXPECT_FALSE(read[0].phi);
}

TEST(OldRecords, MoreSetsThanABlock_AreReadInOrder)
{
    constexpr int kCount = 5000;
    const QByteArray marks(3000, '\7');
    const std::vector<OldRecord> read =
        RecordsOf(OldFileBuilder().Body(SomeRecords(kCount)).Unknown("ABCD", "").Chunk("BODX", marks, 4).Bytes());
    ASSERT_EQ(read.size(), std::size_t(kCount));
    for (int i = 0; i < kCount; ++i) {
        const OldRecord& record = read[static_cast<std::size_t>(i)];
        ASSERT_EQ(record.t, static_cast<float>(i));
        ASSERT_EQ(record.mark, i < 3000 ? std::optional<quint8>(7) : std::nullopt) << i;
    }
}

TEST(OldRecords, AMarkChunkBehindLongSets_HoldsMarksAndNoSets)
{
    const std::vector<OldRecord> read = RecordsOf(
        OldFileBuilder().LongBody(RecordWithPhi(1, 2, 3, 4, 5, 6) + RecordWithPhi(1, 2, 3, 4, 5, 7), "\xff\1").Bytes());
    ASSERT_EQ(read.size(), 2U);
    EXPECT_EQ(read[0].mark, 255);
    EXPECT_EQ(read[1].mark, 1);
}

TEST(OldRecords, ALaterMark_CountsMore)
{
    OldFileBuilder file;
    file.Body(SomeRecords(4)).Unknown("ABCD", "");
    file.Chunk("BODX", "abcd", 4).Chunk("BODX", "x", 4).Chunk("BODX", "yz", 4);
    const std::vector<OldRecord> read = RecordsOf(file.Bytes());
    ASSERT_EQ(read.size(), 4U);
    EXPECT_EQ(read[0].mark, 'y');
    EXPECT_EQ(read[1].mark, 'z');
    EXPECT_EQ(read[2].mark, 'c');
    EXPECT_EQ(read[3].mark, 'd');
}

TEST(OldRecords, MarksThatOthersReplaceAsAWhole_AreNotKept)
{
    OldFileBuilder file;
    file.Body(SomeRecords(2)).Unknown("ABCD", "");
    for (int i = 0; i < 1000; ++i)
        file.Chunk("BODX", i % 2 == 0 ? "ab" : "c", 4);
    const std::optional<OldProject> project = ReadBytes(file.Bytes());
    ASSERT_TRUE(project);
    EXPECT_EQ(project->marks.size(), 2U);
    EXPECT_EQ(ReadBytes(file.Chunk("BODX", "c", 4).Bytes())->marks.size(), 2U);
    EXPECT_EQ(ReadBytes(file.Chunk("BODX", "abc", 4).Bytes())->marks.size(), 1U) << "longer than the sets";
}

TEST(OldRecords, OfTwoBodies_TheLastOneCountsAndTakesTheMarksOfTheFirst)
{
    OldFileBuilder file;
    file.Body(SomeRecords(4)).Unknown("ABCD", "").Chunk("BODX", "abcd", 4).Body(Record(1, 2, 3, 4, 5));
    const std::vector<OldRecord> read = RecordsOf(file.Bytes());
    ASSERT_EQ(read.size(), 1U);
    EXPECT_FALSE(read[0].mark);
}

TEST(OldRecords, AFileThatHasBecomeShorter_IsToldWhileItsSetsAreRead)
{
    QByteArray bytes = OldFileBuilder().Body(SomeRecords(3)).Bytes();
    const std::optional<OldProject> project = ReadBytes(bytes);
    bytes.chop(1);
    MemoryBytes shorter(bytes);
    EXPECT_THROW(OldRecordReader(shorter, *project).NextBlock(), OldFileChanged);
    EXPECT_THROW(EvenStep(shorter, *project), OldFileChanged);
}

// The angle of sets without one

TEST(OldRecords, TheAngle_ComesFromPowerAndThreePhaseApparentPower)
{
    const double S = std::sqrt(3.0) * 400 * 10;
    EXPECT_NEAR(PhiOfOldRecord(400, 10, S / 2), 60, 1e-12);
    EXPECT_NEAR(PhiOfOldRecord(400, 10, -S / 2), 120, 1e-12);
    EXPECT_EQ(PhiOfOldRecord(400, 10, 2 * S), 0);
    EXPECT_EQ(PhiOfOldRecord(400, 10, -2 * S), 0);
    EXPECT_EQ(PhiOfOldRecord(0, 10, 100), 0);
    EXPECT_EQ(PhiOfOldRecord(400, 0, 100), 0);
}

} // namespace
} // namespace korvanel::test
