// Files in the folder of the languages that nobody has written as a translation: told, and German goes on.
#include "language/LangManaging.h"

#include "core/texts/MainTexts.h"
#include "language/LanguageFile.h"
#include "language/LanguageFixture.h"

#include <atomic>
#include <cstdio>
#include <thread>

#include <sys/stat.h>

namespace korvanel::test {

namespace {

struct HostileFile
{
    const char* what;
    QByteArray content;
};

class HostileLanguageTest : public LanguageTest
{
protected:
    /// Loads a file of this content as the language in use.
    void Load(const QByteArray& content)
    {
        shell.boxes.clear();
        WriteLanguage("eng.lng", content);
        UseLanguage("eng.lng");
        LoadLanguage();
    }
    void MakeFolder() const { ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES")); }
    void Link(const QString& target, const QString& name) const
    {
        ASSERT_TRUE(QFile::link(target, PathOf("LANGUAGES/" + name)));
    }
    void ExpectRefused(const QString& name, const QString& message)
    {
        SCOPED_TRACE(name.toStdString());
        shell.boxes.clear();
        UseLanguage(name);
        EXPECT_EQ(LoadLanguage().LangFiles, QStringList{"standard"});
        ExpectFallenBack(message);
    }
};

/// What the whole process has read so far, in bytes.
qint64 BytesRead()
{
    QFile io("/proc/self/io");
    EXPECT_TRUE(io.open(QIODevice::ReadOnly));
    return io.readLine().split(' ').value(1).trimmed().toLongLong();
}

} // namespace

TEST_F(HostileLanguageTest, BrokenFile_IsToldAndTheTextsStayGerman)
{
    const QByteArray head = "lang=English\n[MAIN]\n";
    const HostileFile files[] = {
        {"nothing", ""},
        {"no first line", "[MAIN]\nsize=1\n001 &File\n"},
        {"blank first line", "\nlang=English\n[MAIN]\nsize=1\n001 &File\n"},
        {"size beyond the entries", head + "size=3\n001 &File\n002 &New\n"},
        {"size of 16 bits and few entries", head + "size=32767\n001 &File\n"},
        {"size beyond 16 bits", head + "size=32768\n001 &File\n"},
        {"size of many digits", head + "size=" + QByteArray(100'000, '9') + "\n001 &File\n"},
        {"negative size", head + "size=-1\n001 &File\n"},
        {"no size", head + "001 &File\n"},
        {"numbers out of sequence", head + "size=2\n002 &New\n001 &File\n"},
        {"a number left out", head + "size=2\n001 &File\n003 &Open\n"},
        {"a doubled number", head + "size=2\n001 &File\n001 &File\n"},
        {"no number", head + "size=1\n&File\n"},
        {"a number of other digits", head + "size=1\n\xB2\xB3\xB9 &File\n"},
        {"a size of other digits", "\xEF\xBB\xBFlang=English\n[MAIN]\nsize=\u0661\n001 &File\n"},
        {"a header without its section", head},
        {"zero bytes", QByteArray(100'000, '\0')},
        {"zero bytes behind the first line", "lang=English\n[MAIN]\nsize=1\n" + QByteArray(100'000, '\0')},
        {"line ends of carriage returns alone", "lang=English\r[MAIN]\rsize=1\r001 &File\r"
                                                "\n[MAIN]\n"},
        {"UTF-16", QByteArray("\xFF\xFEl\0a\0n\0g\0=\0E\0\n\0", 14)},
        {"mark of UTF-8 and invalid bytes", "\xEF\xBB\xBF" + head + "size=1\n001 \xFF\n"},
        {"nothing but brackets", "lang=English\n" + QByteArray("[]\n").repeated(100'000)},
        {"more than is read", head + "size=1\n001 " + QByteArray(kLargestLanguageFile, 'x')},
    };
    for (const HostileFile& file : files) {
        SCOPED_TRACE(file.what);
        Load(file.content);
        ExpectFallenBack(kBroken);
    }
}

TEST_F(HostileLanguageTest, EntryOfAMegabyte_IsATextIfTheFileIsNoLarger)
{
    const QByteArray head = "lang=English\n[MAIN]\nsize=1\n001 ";
    Load(head + QByteArray(kLargestLanguageFile - head.size(), 'x'));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(texts::mnuFile.size(), kLargestLanguageFile - head.size());
}

TEST_F(HostileLanguageTest, EntryOfLineBreaksAlone_IsAText)
{
    const QByteArray head = "lang=English\n[MAIN]\nsize=1\n001 ";
    Load(head + QByteArray(500'000, '~'));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(texts::mnuFile, QString(250'000, u'\n'));
}

TEST_F(HostileLanguageTest, AsManySectionsAsFit_AreDropped)
{
    QByteArray content = "lang=English\n";
    for (int i = 0; content.size() < kLargestLanguageFile - 40; ++i)
        content += "[" + QByteArray::number(i) + "]\nsize=0\n";
    Load(content);
    EXPECT_TRUE(shell.boxes.empty());
    ExpectBuiltInTexts();
}

TEST_F(HostileLanguageTest, BytesWithoutACharacter_AreShownAsTheyAre)
{
    Load("lang=English\n[MAIN]\nsize=1\n001 \x81\x8D\x8F\x90\x9D\n");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(texts::mnuFile, QString::fromLatin1("\x81\x8D\x8F\x90\x9D"));
}

TEST_F(HostileLanguageTest, DirectoryOfAFilesName_IsNoLanguage)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES/eng.lng"));
    ExpectRefused("eng.lng", kMissing);
}

TEST_F(HostileLanguageTest, FolderThatIsAFile_HasNoLanguages)
{
    WriteContent("LANGUAGES", "lang=English\n");
    ExpectRefused("eng.lng", kMissing);
}

TEST_F(HostileLanguageTest, LinkToNothing_IsNoLanguage)
{
    MakeFolder();
    Link(PathOf("fehlt.lng"), "eng.lng");
    Link("rund.lng", "rund.lng");
    ExpectRefused("eng.lng", kMissing);
    ExpectRefused("rund.lng", kMissing);
}

TEST_F(HostileLanguageTest, PipesAndDevices_AreNotWaitedFor)
{
    MakeFolder();
    ASSERT_EQ(mkfifo(PathOf("LANGUAGES/pipe.lng").toLocal8Bit().constData(), 0600), 0);
    Link("/dev/zero", "zero.lng");
    ExpectRefused("pipe.lng", kMissing);
    ExpectRefused("zero.lng", kMissing);
}

TEST_F(HostileLanguageTest, LinkToAFile_IsTheFile)
{
    WriteContent("anderswo.txt", "lang=English\n[MAIN]\nsize=1\n001 &File\n");
    MakeFolder();
    Link(PathOf("anderswo.txt"), "eng.lng");
    UseLanguage("eng.lng");
    EXPECT_EQ(LoadLanguage().LangNames, (QStringList{"standard", "English"}));
    EXPECT_EQ(texts::mnuFile, "&File");
}

TEST_F(HostileLanguageTest, FileNameOfManyKinds_IsTakenAsItIs)
{
    const QString name = QStringLiteral("eng & \u202Elish [1] %1 #.lng");
    WriteLanguage(name, "lang=English\n[MAIN]\nsize=1\n001 &File\n");
    UseLanguage(name);
    EXPECT_EQ(LoadLanguage().LangFiles, (QStringList{"standard", name}));
    EXPECT_EQ(texts::mnuFile, "&File");
}

/// Files of a megabyte, so that reading more of each than its first line would show.
TEST_F(HostileLanguageTest, FortyThousandFiles_AreReadByTheirFirstLinesAlone)
{
    constexpr int kFiles = 40'000;
    constexpr qint64 kMostOfEach = 1024;
    MakeFolder();
    for (int i = 0; i < kFiles; ++i) {
        QFile file(PathOf(QStringLiteral("LANGUAGES/%1.lng").arg(i)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("lang=Language " + QByteArray::number(i) + "\n");
        ASSERT_TRUE(file.resize(1 << 20)); // of a hole, which takes no room
    }
    const qint64 before = BytesRead();
    const Languages languages = FindLanguages();
    EXPECT_LE(BytesRead() - before, kFiles * kMostOfEach + (1 << 16));
    EXPECT_EQ(languages.LangFiles.size(), kFiles + 1);
    EXPECT_EQ(languages.LangNames.value(languages.LangFiles.indexOf("39999.lng")), "Language 39999");
}

/// Somebody writes, cuts and removes the file while it is looked for, listed and read. What comes of it is the one or
/// the other, and never half.
TEST_F(HostileLanguageTest, FileThatChangesWhileItIsRead_IsWholeOrNotAtAll)
{
    constexpr int kStarts = 400;
    MakeFolder();
    const QString path = PathOf("LANGUAGES/eng.lng");
    std::atomic isOver = false;
    std::thread other([&] {
        const QByteArray content =
            "lang=English\n[MAIN]\nsize=2\n001 &File\n" + QByteArray(";\n").repeated(5'000) + "002 &New\n";
        while (!isOver) {
            QFile file(path);
            if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
                continue;
            for (qsizetype at = 0; at < content.size(); at += 1'000)
                file.write(content.mid(at, 1'000));
            file.resize(20);
            file.remove();
        }
    });
    for (int i = 0; i < kStarts; ++i) {
        shell.boxes.clear();
        UseLanguage("eng.lng");
        LoadLanguage();
        const bool isRead = texts::mnuFile == "&File";
        EXPECT_EQ(texts::mnuNew, isRead ? "&New" : "&Neu");
        if (!shell.boxes.empty()) {
            EXPECT_FALSE(isRead);
            EXPECT_EQ(settings->LanguageFile(), "standard");
        }
    }
    isOver = true;
    other.join();
}

} // namespace korvanel::test
