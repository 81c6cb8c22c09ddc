#include "language/OldProjectFile.h"

#include "core/NetConfigurations.h"
#include "language/ConversionFixture.h"

#include <limits>

namespace korvanel::test {
namespace {

OldProject Read(const OldFileBuilder& file)
{
    const std::optional<OldProject> project = ReadBytes(file.Bytes());
    EXPECT_TRUE(project);
    return project.value_or(OldProject());
}

// The head

TEST(OldProjectFile, AFileOfEightBytesOrLess_IsNone)
{
    for (const QByteArray& bytes : {QByteArray(), QByteArray("FORM"), QByteArray("FORMKVL"), QByteArray("FORMKVLS")})
        EXPECT_FALSE(ReadBytes(bytes)) << bytes.toStdString();
}

TEST(OldProjectFile, WithoutItsTwoMarks_IsNone)
{
    EXPECT_FALSE(ReadBytes(QByteArray("FROMKVLS\0\0\0\0", 12)));
    EXPECT_FALSE(ReadBytes(QByteArray("FORMKVLT\0\0\0\0", 12)));
    EXPECT_TRUE(ReadBytes(QByteArray("FORMKVLS\0\0\0\0", 12)));
}

TEST(OldProjectFile, ASizeBelowZero_IsAWrongFormat)
{
    EXPECT_FALSE(ReadBytes(OldFileBuilder().Bytes(-1)));
}

TEST(OldProjectFile, TheWalkEndsWhenTheSizeIsUsedUp)
{
    const OldFileBuilder file = OldFileBuilder().Text("F101", "eins").Text("F101", "zwei");
    EXPECT_EQ(ReadBytes(file.Bytes(12))->name, "eins");
    EXPECT_EQ(ReadBytes(file.Bytes(13))->name, "zwei") << "one byte that remains begins another chunk";
    EXPECT_EQ(ReadBytes(file.Bytes(0))->name, std::nullopt);
}

TEST(OldProjectFile, WhatStandsBehindTheLastChunk_IsIgnored)
{
    const QByteArray bytes = OldFileBuilder().Text("F101", "eins").Bytes() + "BODY\xff\xff\xff\xff";
    EXPECT_EQ(ReadBytes(bytes)->name, "eins");
}

// Chunks

TEST(OldProjectFile, AnUnknownChunk_IsSkippedWithItsLengthRoundedUpToFour)
{
    for (int length = 0; length < 9; ++length)
        EXPECT_EQ(Read(OldFileBuilder().Unknown("ABCD", QByteArray(length, 'x')).Text("F101", "da")).name, "da")
            << length;
}

TEST(OldProjectFile, AnUnknownField_IsPaddedToFourToo)
{
    for (const char* tag : {"F100", "F113", "F199", "F311", "F899", "R101", "R199", "RZ01", "F9AB"})
        for (int length = 0; length < 5; ++length)
            EXPECT_EQ(Read(OldFileBuilder().Unknown(tag, QByteArray(length, 'x')).Text("F101", "da")).name, "da")
                << tag << ' ' << length;
}

TEST(OldProjectFile, ATextOfOddLength_ConsumesOneMoreByte)
{
    const OldProject project = Read(OldFileBuilder().Text("F101", "abc").Text("F104", "d").Text("F105", "ef"));
    EXPECT_EQ(project.name, "abc");
    EXPECT_EQ(project.company, "d");
    EXPECT_EQ(project.editor, "ef");
}

TEST(OldProjectFile, NumbersOfTwoFourAndEightBytes_HaveNoPadding)
{
    const OldProject project =
        Read(OldFileBuilder().Short("R104", 3).Long("R104", 4).Number("RZ13", 0.75).Text("F101", "da"));
    EXPECT_EQ(project.machine.Polpaarzahl, 4);
    EXPECT_EQ(project.machine.Rs, 0.75);
    EXPECT_EQ(project.name, "da");
}

TEST(OldProjectFile, ALengthBelowZeroOrBeyondTheFile_IsAWrongFormat)
{
    for (const char* tag : {"F101", "BODY", "BODX", "ABCD", "$VER", "RZ13"})
        for (const qint32 length : {-1, std::numeric_limits<qint32>::min(), 5, std::numeric_limits<qint32>::max()})
            EXPECT_FALSE(ReadBytes(OldFileBuilder().Chunk(tag, "abcd", 4, length).Bytes(100))) << tag << ' ' << length;
}

TEST(OldProjectFile, CutAnywhere_IsAWrongFormat)
{
    QByteArray records;
    for (int i = 0; i < 3; ++i)
        records += RecordWithPhi(400, 10, 50, 3000, 30, static_cast<float>(i));
    OldFileBuilder longSets;
    longSets.Newer().Text("F100", "Name").Unknown("ABCD", "1").LongBody(records, "\1\2\3\4");
    OldFileBuilder shortSets;
    shortSets.Text("F101", "abc").Long("F201", 0).Body(SomeRecords(3)).Chunk("BODX", "abcd", 4).Number("R103", 1);
    for (const QByteArray& whole : {longSets.Bytes(), shortSets.Bytes()}) {
        EXPECT_TRUE(ReadBytes(whole));
        for (qsizetype size = 0; size < whole.size(); ++size)
            EXPECT_FALSE(ReadBytes(whole.left(size))) << size << " of " << whole.size();
    }
}

TEST(OldProjectFile, PaddingThatIsMissingAtTheEnd_IsNotMissed)
{
    const QByteArray whole = OldFileBuilder().Text("F101", "abc").Bytes();
    EXPECT_EQ(ReadBytes(whole.chopped(1))->name, "abc");
    EXPECT_FALSE(ReadBytes(whole.chopped(2)));
}

TEST(OldProjectFile, AHeadThatCountsPaddingOrLongSets_IsUnderstood)
{
    const QByteArray padded = OldFileBuilder().Text("F101", "abc").Bytes();
    EXPECT_TRUE(ReadBytes(OldFileBuilder().Text("F101", "abc").Bytes(static_cast<qint32>(padded.size()) - 12)));
    EXPECT_FALSE(ReadBytes(OldFileBuilder().Text("F101", "abc").Bytes(static_cast<qint32>(padded.size()) - 11)));
    const OldFileBuilder sets = OldFileBuilder().LongBody(RecordWithPhi(1, 2, 3, 4, 5, 6), "\1\2\3\4");
    EXPECT_TRUE(ReadBytes(sets.Bytes(8 + 24 + 8 + 4)));
    EXPECT_FALSE(ReadBytes(sets.Bytes(8 + 24 + 8 + 5)));
    const OldFileBuilder both = OldFileBuilder().Text("F101", "abc").LongBody(RecordWithPhi(1, 2, 3, 4, 5, 6), "\1\2");
    for (const qint32 counted : {11 + 28 + 10, 12 + 28 + 12, 11 + 32 + 10, 12 + 32 + 12})
        EXPECT_TRUE(ReadBytes(both.Bytes(counted))) << counted;
    EXPECT_FALSE(ReadBytes(both.Bytes(12 + 32 + 11)));
}

// Version

TEST(OldProjectFile, TheVersion_CountsWithBlanksAndZeroBytesBehindIt)
{
    for (const QByteArray& version :
         {QByteArray("FV-2"), QByteArray("FV-2 "), QByteArray("FV-2   "), QByteArray("FV-2\0\0\0", 7)}) {
        const OldProject project = Read(OldFileBuilder().Text("$VER", version).Text("F100", "neu"));
        EXPECT_TRUE(project.isNewForm) << version.toStdString();
        EXPECT_EQ(project.name, "neu");
    }
    for (const char* version : {"FV-1", "FV-20", "fv-2", "", "FV -2"})
        EXPECT_FALSE(Read(OldFileBuilder().Text("$VER", version)).isNewForm) << version;
}

TEST(OldProjectFile, TheVersion_CountsForTheFieldsBehindIt)
{
    const OldProject project =
        Read(OldFileBuilder().Unknown("ABCD", "x").Text("F101", "alt").Newer().Text("F103", "W"));
    EXPECT_TRUE(project.isNewForm);
    EXPECT_EQ(project.name, "alt");
    EXPECT_EQ(project.company, "W");
}

// Fields

TEST(OldProjectFile, GeneralData_OfTheOlderForm)
{
    const OldProject project = Read(OldFileBuilder()
                                        .Text("F101", "Name")
                                        .Text("F102", "1.1.2001")
                                        .Text("F103", "2.2.2002")
                                        .Text("F104", "Firma")
                                        .Text("F105", "Wer")
                                        .Text("F106", "Was")
                                        .Text("F107", "erster")
                                        .Text("F108", "zweiter")
                                        .Number("F109", 180)
                                        .Number("F110", 1)
                                        .Number("F111", 2)
                                        .Number("F112", 3));
    EXPECT_EQ(project.name, "Name");
    EXPECT_EQ(project.created, QDateTime(QDate(2002, 2, 2), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(project.company, "Firma");
    EXPECT_EQ(project.editor, "Wer");
    EXPECT_EQ(project.description, "Was");
    EXPECT_EQ(project.machine.Hersteller, "erster zweiter");
    EXPECT_EQ(project.machine.Masse, 180);
    EXPECT_EQ(project.descriptionNumbers, (std::array<std::optional<double>, 3>{1, 2, 3}));
}

TEST(OldProjectFile, GeneralData_OfTheNewerForm)
{
    const OldProject project = Read(OldFileBuilder()
                                        .Newer()
                                        .Text("F100", "Name")
                                        .Text("F101", "1.1.2001")
                                        .Text("F102", "2.2.2002")
                                        .Text("F103", "Firma")
                                        .Text("F104", "Wer")
                                        .Text("F105", "Was")
                                        .Unknown("F107", "nichts")
                                        .Unknown("R103", "nichts"));
    EXPECT_EQ(project.name, "Name");
    EXPECT_EQ(project.created, QDateTime(QDate(2002, 2, 2), QTime(0, 0), Qt::UTC));
    EXPECT_EQ(project.company, "Firma");
    EXPECT_EQ(project.editor, "Wer");
    EXPECT_EQ(project.description, "Was");
    EXPECT_TRUE(project.machine.Hersteller.isEmpty());
    EXPECT_FALSE(project.firstMachineNumber);
}

TEST(OldProjectFile, TheNetConfiguration_IsBitFourteenOfTheFlags)
{
    for (const char* tag : {"F201", "F207", "F299"}) {
        EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Long(tag, 1U << 14U))), kNetThreePhase) << tag;
        EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Long(tag, ~(1U << 14U)))), kNetSinglePhase) << tag;
    }
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Newer().Long("F200", 1U << 14U))), kNetThreePhase);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Newer().Unknown("F202", QByteArray("\0\x40\0\0", 4)))),
              kNetSinglePhase);
}

TEST(OldProjectFile, FlagsOfTheOlderForm_HaveFourBytesAndANumberFromOneOn)
{
    EXPECT_FALSE(Read(OldFileBuilder().Unknown("F200", QByteArray("\0\x40\0\0", 4))).flags);
    EXPECT_FALSE(Read(OldFileBuilder().Unknown("F201", QByteArray("\0\x40", 2))).flags);
    EXPECT_FALSE(Read(OldFileBuilder().Unknown("F201", QByteArray("\0\x40\0\0\0\0\0\0", 8))).flags);
    EXPECT_FALSE(Read(OldFileBuilder().Unknown("F2AB", QByteArray("\0\x40\0\0", 4))).flags);
}

TEST(OldProjectFile, TheMachineOfTheNewerForm_CountsWhateverTheFlagsSay)
{
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Newer().Short("F201", -1).Long("F200", 1U << 14U))),
              kNetMachine);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Newer().Long("F200", 0).Short("F201", 1))), kNetMachine);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Newer().Long("F200", 0).Short("F201", 0))), kNetSinglePhase);
}

TEST(OldProjectFile, TheMachineOfTheOlderForm_IsToldByItsFirstField)
{
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Number("R103", 7.5))), kNetMachine);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Text("R103", "NULL"))), kNetSinglePhase);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Number("R107", 7.5))), kNetSinglePhase);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Short("R104", 2))), kNetSinglePhase);
    EXPECT_EQ(NetConfOfOldProject(Read(OldFileBuilder().Short("R104", 2).Number("RZ14", 1))), kNetMachine)
        << "by pole pairs and connection it can be used";
}

TEST(OldProjectFile, TheConnection_IsStarForOneAndDeltaForMinusOne)
{
    EXPECT_EQ(Read(OldFileBuilder().Number("RZ14", 1)).machine.Schaltungsart, "Y");
    EXPECT_EQ(Read(OldFileBuilder().Number("RZ14", -1)).machine.Schaltungsart, "D");
    for (const double other : {0.0, 2.0, 0.999, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_FALSE(Read(OldFileBuilder().Number("RZ14", other)).machine.Schaltungsart) << other;
}

TEST(OldProjectFile, TheFrictionFlag_IsABoolean)
{
    EXPECT_TRUE(Read(OldFileBuilder().Short("RZ15", -1)).machine.Mreib);
    EXPECT_TRUE(Read(OldFileBuilder().Newer().Short("RZ15", 1)).machine.Mreib);
    EXPECT_FALSE(Read(OldFileBuilder().Short("RZ15", 0)).machine.Mreib);
    EXPECT_FALSE(Read(OldFileBuilder().Text("RZ15", "")).machine.Mreib);
}

TEST(OldProjectFile, PolePairsOutOfRange_AreUnknown)
{
    for (const quint32 pairs : {0U, 0xFFFFFFFFU, 32768U, 0x80000000U})
        EXPECT_EQ(Read(OldFileBuilder().Long("R104", pairs)).machine.Polpaarzahl, 0) << pairs;
    EXPECT_EQ(Read(OldFileBuilder().Text("R104", "NULL")).machine.Polpaarzahl, 0);
    EXPECT_EQ(Read(OldFileBuilder().Number("R104", 3)).machine.Polpaarzahl, 3);
}

TEST(OldProjectFile, TextsThatAreAddedToTheRemark_AreCutTogether)
{
    const OldProject project =
        Read(OldFileBuilder().Text("F107", QByteArray(30'000, 'x')).Text("F108", QByteArray(30'000, 'y')));
    EXPECT_EQ(project.machine.Hersteller, QString(30'000, u'x') + u' ' + QString(2'766, u'y'));
}

TEST(OldProjectFile, AFieldBeyondAllBounds_IsReadAsFarAsItCanBeStored)
{
    const OldProject project = Read(OldFileBuilder().Text("F106", QByteArray(3'000'001, 'x')).Text("F101", "da"));
    EXPECT_EQ(project.description->size(), 32'767);
    EXPECT_EQ(project.name, "da");
}

// Databases

TEST(OldProjectFile, ADatabase_IsToldByItsContent)
{
    const auto isDatabase = [](const QByteArray& bytes) {
        MemoryBytes source(bytes);
        return IsDatabaseFile(source);
    };
    EXPECT_TRUE(isDatabase(QByteArray("SQLite format 3\0...", 19)));
    EXPECT_TRUE(isDatabase(QByteArray("\0\1\0\0Standard Jet DB\0", 20)));
    EXPECT_FALSE(isDatabase("SQLite"));
    EXPECT_FALSE(isDatabase(OldFileBuilder().Bytes()));
    EXPECT_FALSE(isDatabase({}));
}

} // namespace
} // namespace korvanel::test
