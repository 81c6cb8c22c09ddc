// A conversion that fails leaves files and block as they were.
#include "language/ConversionFixture.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/FullDisk.h"

#include <cmath>
#include <limits>

#include <sys/stat.h>

namespace korvanel::test {
namespace {

class OldProjectFailures : public ConversionTest
{
protected:
    OldProjectFailures()
    {
        App().sProjectPath = QStringLiteral("before.MDB");
        App().sProjectName = QStringLiteral("before");
        App().iSetCount = 17;
        App().iNetConfIndex = kNetMachineRecorder;
        App().CurrentRow.dU[kSum] = 230;
        App().MachineI.record = KnownMachine();
        App().bModelValid = true;
    }
    void ExpectBlockAsBefore() const
    {
        EXPECT_EQ(App().sProjectPath, "before.MDB");
        EXPECT_EQ(App().sProjectName, "before");
        EXPECT_EQ(App().iSetCount, 17);
        EXPECT_EQ(App().iNetConfIndex, kNetMachineRecorder);
        EXPECT_EQ(App().CurrentRow.dU[kSum], 230);
        EXPECT_EQ(App().MachineI.record.Hersteller, "Werk A");
        EXPECT_TRUE(App().bModelValid);
        EXPECT_FALSE(App().bProjectOpen);
        EXPECT_FALSE(App().bFileError);
        EXPECT_FALSE(IsProjectDbOpen());
        EXPECT_EQ(shell.waiting, 0);
    }
    static OldFileBuilder WithValue(float value, std::size_t column, int before = 300)
    {
        std::array<float, 6> numbers{400, 10, 50, 3000, 30, 1};
        numbers.at(column) = value;
        const auto [U, I, f, P, phi, t] = numbers;
        QByteArray records;
        for (int i = 0; i < before; ++i)
            records += RecordWithPhi(400, 10, 50, 3000, 30, 1);
        return OldFileBuilder().LongBody(records + RecordWithPhi(U, I, f, P, phi, t));
    }
};

TEST_F(OldProjectFailures, AWrongFormat_LeavesNothingBehind)
{
    const QByteArray whole = OldFileBuilder().Text("F101", "abc").Body(SomeRecords(2)).Bytes();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        EXPECT_FALSE(Convert(whole.left(size))) << size;
        EXPECT_EQ(shell.boxes.back().text, "Ungültiges Dateiformat:\n" + source);
        ASSERT_EQ(FilesMade(), QStringList()) << size;
    }
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, AValueThatIsNoNumber_EndsTheConversionInTheGeneralReport)
{
    for (const float value : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        for (std::size_t column = 0; column < 6; ++column) {
            EXPECT_THROW(Convert(WithValue(value, column)), ArithmeticFault) << column;
            EXPECT_EQ(FilesMade(), QStringList());
            ExpectBlockAsBefore();
        }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(OldProjectFailures, DenormalAndGreatestNumbers_AreNumbers)
{
    for (const float value : {std::numeric_limits<float>::denorm_min(), std::numeric_limits<float>::max(), -0.0F})
        for (std::size_t column = 0; column < 5; ++column) {
            QFile::remove(target);
            EXPECT_TRUE(Convert(WithValue(value, column, 1))) << value << ' ' << column;
        }
}

TEST_F(OldProjectFailures, ATimeThatNoColumnHolds_IsToldAndLeavesNothingBehind)
{
    EXPECT_FALSE(Convert(WithValue(3e38F, 5)));
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text, "Die Zeit des Datensatzes liegt außerhalb des zulässigen Bereichs");
    EXPECT_EQ(FilesMade(), QStringList());
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, AFileThatWasToBeReplaced_StaysAsItIs)
{
    WriteContent("neu.MDB", "the former project");
    EXPECT_THROW(Convert(WithValue(std::numeric_limits<float>::quiet_NaN(), 0)), ArithmeticFault);
    EXPECT_FALSE(Convert(OldFileBuilder().Bytes(-1)));
    EXPECT_FALSE(Convert(WithValue(3e38F, 5)));
    EXPECT_EQ(ContentOf("neu.MDB"), "the former project");
    EXPECT_EQ(FilesMade(), QStringList{"neu.MDB"});
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, AFullDisk_IsToldAndLeavesNothingBehind)
{
    const OldFileBuilder file = OldFileBuilder().Body(SomeRecords(20'000));
    WriteContent("alt.KVL", file.Bytes());
    bool isConverted = true;
    {
        const FullDisk disk(600'000);
        isConverted = ConvertOldFile(source, target);
    }
    EXPECT_FALSE(isConverted);
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(FilesMade(), QStringList());
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, AFolderThatIsNotThere_IsToldOnce)
{
    target = PathOf("fehlt/neu.MDB");
    EXPECT_FALSE(Convert(OldFileBuilder()));
    EXPECT_EQ(shell.boxes.size(), 1U);
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, ATargetInUse_IsToldAndStays)
{
    CreateProject(0, "neu.MDB");
    App().bProjectOpen = false;
    SQLite::Database other(target.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    const QByteArray former = ContentOf("neu.MDB");
    EXPECT_FALSE(Convert(OldFileBuilder()));
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(ContentOf("neu.MDB"), former);
}

TEST_F(OldProjectFailures, APipe_IsNoFileToWaitFor)
{
    ASSERT_EQ(mkfifo(PathOf("pipe.KVL").toLocal8Bit().constData(), 0600), 0);
    EXPECT_FALSE(ConvertOldFile(PathOf("pipe.KVL"), target));
    EXPECT_EQ(shell.boxes.back().text, "Konnte Pfad/Datei nicht finden: \n" + PathOf("pipe.KVL"));
    ExpectBlockAsBefore();
}

TEST_F(OldProjectFailures, AFileThatShrinksWhileItIsRead_IsAWrongFormatAndLeavesNothingBehind)
{
    WriteContent("alt.KVL", OldFileBuilder().Body(SomeRecords(20'000)).Bytes());
    class ShrinkingShell : public RecordingShell
    {
    public:
        QString path;
        void ShowProgress(Progress mode, double fraction) override
        {
            RecordingShell::ShowProgress(mode, fraction);
            if (mode == Progress::Advance)
                QFile::resize(path, 200'000);
        }
    } shrinking;
    shrinking.path = source;
    App().TheShell = &shrinking;
    EXPECT_FALSE(ConvertOldFile(source, target));
    App().TheShell = &shell;
    EXPECT_EQ(shrinking.BoxTexts(), QStringList{"Ungültiges Dateiformat:\n" + source});
    EXPECT_EQ(FilesMade(), QStringList());
    ExpectBlockAsBefore();
}

} // namespace
} // namespace korvanel::test
