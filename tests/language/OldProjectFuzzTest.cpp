// The reader against files that were damaged at random, always the same ones. The environment variable
// KORVANEL_FUZZ_INPUTS gives another number of them for a long run.
#include "language/ConversionFixture.h"
#include "language/OldRecords.h"

#include <algorithm>
#include <random>

namespace korvanel::test {
namespace {

constexpr qint64 kUsualInputs = 200'000;
/// Lengths and numbers at which something changes.
constexpr qint32 kStrangeNumbers[] = {0,
                                      1,
                                      2,
                                      3,
                                      4,
                                      7,
                                      8,
                                      10,
                                      19,
                                      20,
                                      21,
                                      24,
                                      30,
                                      50,
                                      0xFF,
                                      0x7FFF,
                                      0x8000,
                                      0x7FFFFFFF,
                                      -1,
                                      -2,
                                      -8,
                                      -20,
                                      -2147483647 - 1};
constexpr const char* kTags[] = {"FORM", "KVLS", "$VER", "BODY", "BODX", "F101", "F110", "F201", "F200",
                                 "R103", "R104", "R116", "R100", "RZ13", "RZ14", "RZ15", "F399", "ABCD"};

QByteArray RecordsWithPhi(int count)
{
    QByteArray records;
    for (int i = 0; i < count; ++i)
        records += RecordWithPhi(400, 10, 50, 3000, -30, static_cast<float>(i));
    return records;
}

std::vector<QByteArray> Seeds()
{
    OldFileBuilder older;
    older.Text("F101", "Pumpe").Text("F102", "1.2.1999, 3:04:05").Text("F103", "1.2.99").Text("F106", "Zeile\r\n");
    older.Number("F110", 12.5).Text("F109", "NULL").Text("F107", "Rest").Long("F205", 1U << 14U).Number("R103", 7.5);
    older.Short("R104", 2).Text("R116", "4.5.2001, 6:07").Number("RZ13", 0.5).Number("RZ14", -1).Short("RZ15", -1);
    older.Unknown("ABCD", "12345").Body(SomeRecords(4)).Unknown("F399", "1").Chunk("BODX", "\1\2", 4);
    OldFileBuilder newer;
    newer.Newer().Text("F100", "Pumpe").Text("F102", "1.2.1999, 3:04:05").Long("F200", 0).Short("F201", 1);
    newer.Text("R100", "1.1.2000, 0:00:00").Text("R101", "0:01:00").LongBody(RecordsWithPhi(5), "\1\2\3");
    OldFileBuilder bodies;
    bodies.LongBody(RecordsWithPhi(2)).Body(SomeRecords(3)).Chunk("BODX", "abc", 4).Chunk("BODX", "a", 4);
    return {older.Bytes(), newer.Bytes(), bodies.Bytes(), OldFileBuilder().Bytes()};
}

class Damage
{
public:
    explicit Damage(quint64 seed) : random(seed) {}
    qsizetype Below(qsizetype limit) { return static_cast<qsizetype>(random() % static_cast<quint64>(limit)); }

    void Hit(QByteArray& file)
    {
        if (file.isEmpty())
            return;
        const qsizetype at = Below(file.size());
        switch (Below(7)) {
        case 0:
            file[at] = static_cast<char>(random());
            break;
        case 1:
            file.truncate(at);
            break;
        case 2:
            file.insert(at, file.mid(Below(file.size()), Below(40)));
            break;
        case 3:
            file.remove(at, Below(40));
            break;
        case 4:
            Put(file, at, LittleEndian(kStrangeNumbers[Below(std::size(kStrangeNumbers))]));
            break;
        case 5:
            Put(file, at, QByteArray(kTags[Below(std::size(kTags))], 4));
            break;
        default: // the head counts what there is, so that the walk gets far
            Put(file, 8, LittleEndian(static_cast<qint32>(std::max<qsizetype>(0, file.size() - 12))));
        }
    }

private:
    static void Put(QByteArray& file, qsizetype at, const QByteArray& bytes)
    {
        if (at + bytes.size() <= file.size())
            file.replace(at, bytes.size(), bytes);
    }
    std::mt19937_64 random;
};

void ExpectWithin(const OldProject& project, qint64 size)
{
    const OldRecordRange records = project.records.value_or(OldRecordRange());
    ASSERT_GE(records.count, 0);
    ASSERT_LE(records.offset + records.count * (records.hasPhi ? 24 : 20), size);
    qint64 longest = records.count;
    for (const OldMarkRange& marks : project.marks) {
        ASSERT_GT(marks.count, 0);
        ASSERT_LE(marks.count, longest);
        ASSERT_LE(marks.offset + marks.count, size);
        longest = marks.count - 1;
    }
}

/// Reads all that there is; the number of sets.
qint64 ReadAll(const QByteArray& file)
{
    MemoryBytes bytes(file);
    IsDatabaseFile(bytes);
    const std::optional<OldProject> project = ReadOldProject(bytes);
    if (!project)
        return 0;
    ExpectWithin(*project, file.size());
    qint64 sets = 0;
    OldRecordReader reader(bytes, *project);
    for (auto block = reader.NextBlock(); !block.empty(); block = reader.NextBlock())
        sets += static_cast<qint64>(block.size());
    EvenStep(bytes, *project);
    NetConfOfOldProject(*project);
    return sets;
}

TEST(OldProjectFuzz, DamagedFiles_AreReadWithinTheirBounds)
{
    const qint64 told = qEnvironmentVariable("KORVANEL_FUZZ_INPUTS").toLongLong();
    const qint64 inputs = told > 0 ? told : kUsualInputs;
    const std::vector<QByteArray> seeds = Seeds();
    Damage damage(20'261'122);
    qint64 withSets = 0;
    for (qint64 i = 0; i < inputs && !::testing::Test::HasFatalFailure(); ++i) {
        QByteArray file = seeds[static_cast<std::size_t>(i) % seeds.size()];
        for (qsizetype hits = 1 + damage.Below(4); hits > 0; --hits)
            damage.Hit(file);
        withSets += ReadAll(file) > 0 ? 1 : 0;
    }
    EXPECT_GT(withSets, inputs / 50) << "too few of the files were read to their sets";
}

TEST(OldProjectFuzz, Noise_IsNoProject)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20'000; ++i) {
        QByteArray file(static_cast<qsizetype>(random() % 200), '\0');
        for (char& byte : file)
            byte = static_cast<char>(random());
        EXPECT_FALSE(ReadBytes(file));
        ReadAll("FORMKVLS" + file);
    }
}

} // namespace
} // namespace korvanel::test
