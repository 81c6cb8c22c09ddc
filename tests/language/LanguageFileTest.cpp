// The format of a language file, and files that don't follow it.
#include "language/LanguageFile.h"

#include "language/CodePage.h"

#include "support/Fixture.h"

#include <sys/stat.h>

namespace korvanel::test {

namespace {

class LanguageFileTest : public BlockTest
{
protected:
    std::optional<LanguageSections> Read(const QByteArray& content) const
    {
        WriteContent("probe.lng", content);
        return ReadLanguageFile(PathOf("probe.lng"));
    }
    std::optional<QString> NameIn(const QByteArray& content) const
    {
        WriteContent("probe.lng", content);
        return LanguageName(PathOf("probe.lng"));
    }
    /// A file of one section MAIN that holds the given lines behind its header.
    std::optional<LanguageSections> ReadMain(const QByteArray& lines) const
    {
        return Read("lang=Probe\n[MAIN]\n" + lines);
    }
};

using Main = LanguageSections;

} // namespace

TEST_F(LanguageFileTest, LanguageName_IsWhatStandsBehindTheSignInLineOne)
{
    EXPECT_EQ(NameIn("lang=English\r\n[MAIN]\r\n"), "English");
    EXPECT_EQ(NameIn("lang=Fran\xE7"
                     "ais\n"),
              "Français");
    EXPECT_EQ(NameIn("lang=a = b"), "a = b");
    EXPECT_EQ(NameIn("lang="), "");
}

TEST_F(LanguageFileTest, LanguageName_OfAFileWithoutItInLineOneIsNothing)
{
    for (const char* content :
         {"", "\n", "\nlang=English\n", " lang=English\n", "language=English\n", "lang\n", ";lang=English\n",
          "[MAIN]\nlang=English\n", "\xEF\xBB\xBF;lang=English\n", "\xEF\xBB\xBFlang=\xE8\n", "\xFF\xFElang=English\n"})
        EXPECT_EQ(NameIn(content), std::nullopt) << content;
}

TEST_F(LanguageFileTest, LanguageName_OfAFileThatCannotBeReadIsNothing)
{
    EXPECT_EQ(LanguageName(PathOf("fehlt.lng")), std::nullopt);
    EXPECT_EQ(LanguageName(folder.path()), std::nullopt);
}

TEST_F(LanguageFileTest, ReadLanguageFile_TakesNumberedTextsInSections)
{
    EXPECT_EQ(Read("lang=English\n[MAIN]\nsize=2\n001 &File\n002 &New\n[FORMF1]\nsize=1\n001 New project\n"),
              (LanguageSections{{"MAIN", {"&File", "&New"}}, {"FORMF1", {"New project"}}}));
}

TEST_F(LanguageFileTest, ReadLanguageFile_TakesBothLineEndsAndAMissingLastOne)
{
    const LanguageSections expected{{"MAIN", {"&File", "&New"}}};
    EXPECT_EQ(ReadMain("size=2\n001 &File\n002 &New\n"), expected);
    EXPECT_EQ(Read("lang=Probe\r\n[MAIN]\r\nsize=2\r\n001 &File\r\n002 &New\r\n"), expected);
    EXPECT_EQ(ReadMain("size=2\n001 &File\n002 &New"), expected);
}

TEST_F(LanguageFileTest, Entry_NumberMayHaveLeadingBlanks)
{
    EXPECT_EQ(ReadMain("size=3\n  1 a\n 02 b\n003 c\n"), (Main{{"MAIN", {"a", "b", "c"}}}));
}

TEST_F(LanguageFileTest, Entry_AnyOneCharacterPartsNumberAndText)
{
    EXPECT_EQ(ReadMain("size=4\n001=a\n002\tb\n003;c\n004 d\n"), (Main{{"MAIN", {"a", "b", "c", "d"}}}));
}

TEST_F(LanguageFileTest, Entry_TextBeginsInColumnFiveAndKeepsItsBlanks)
{
    EXPECT_EQ(ReadMain("size=2\n001  a \n002 [x];=\n"), (Main{{"MAIN", {" a ", "[x];="}}}));
}

TEST_F(LanguageFileTest, Entry_WithoutTextIsEmpty)
{
    EXPECT_EQ(ReadMain("size=3\n001\n002 \n003 c\n"), (Main{{"MAIN", {"", "", "c"}}}));
}

TEST_F(LanguageFileTest, Entry_DoubledTildeIsALineBreak)
{
    EXPECT_EQ(ReadMain("size=3\n001 one~~two\n002 ~~~~\n003 a~b\n"), (Main{{"MAIN", {"one\ntwo", "\n\n", "a~b"}}}));
}

TEST_F(LanguageFileTest, Entry_CharactersAreThoseOfTheCodePage)
{
    EXPECT_EQ(ReadMain("size=2\n001 \xC4\xD6\xDC\xE4\xF6\xFC\xDF\n002 \x80 \x84x\x93 \x96 \x99\n"),
              (Main{{"MAIN", {"ÄÖÜäöüß", "€ „x“ – ™"}}}));
}

TEST_F(LanguageFileTest, FromCp1252_OfEachCharacterThatDiffersFromLatin1)
{
    struct Case
    {
        char byte;
        char16_t character;
    };
    const Case cases[] = {
        {'\x80', u'€'}, {'\x82', u'‚'}, {'\x83', u'ƒ'}, {'\x84', u'„'}, {'\x85', u'…'}, {'\x86', u'†'}, {'\x87', u'‡'},
        {'\x88', u'ˆ'}, {'\x89', u'‰'}, {'\x8A', u'Š'}, {'\x8B', u'‹'}, {'\x8C', u'Œ'}, {'\x8E', u'Ž'}, {'\x91', u'‘'},
        {'\x92', u'’'}, {'\x93', u'“'}, {'\x94', u'”'}, {'\x95', u'•'}, {'\x96', u'–'}, {'\x97', u'—'}, {'\x98', u'˜'},
        {'\x99', u'™'}, {'\x9A', u'š'}, {'\x9B', u'›'}, {'\x9C', u'œ'}, {'\x9E', u'ž'}, {'\x9F', u'Ÿ'}};
    for (const Case& c : cases)
        EXPECT_EQ(FromCp1252(QByteArray(1, c.byte)), QString(QChar(c.character)));
}

TEST_F(LanguageFileTest, FromCp1252_LeavesAsciiAndLatin1)
{
    EXPECT_EQ(FromCp1252("Az09~\x7F"), "Az09~\x7F");
    EXPECT_EQ(FromCp1252("\xA0\xD8\xFF"), QString("\u00A0Øÿ"));
}

TEST_F(LanguageFileTest, ToCp1252_IsTheWayBackForEveryByte)
{
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += static_cast<char>(byte);
    EXPECT_EQ(ToCp1252(FromCp1252(all)), all);
}

TEST_F(LanguageFileTest, ToCp1252_OfACharacterBeyondItIsNothing)
{
    for (const char* text : {"Č", "Ω", "\u2212", "\U0001F600", "ok ✓"})
        EXPECT_EQ(ToCp1252(QString(text)), std::nullopt) << text;
}

TEST_F(LanguageFileTest, IsUnusedInCp1252_OfTheFivePlacesWithoutACharacter)
{
    QByteArray unused;
    for (int byte = 0; byte < 256; ++byte)
        if (IsUnusedInCp1252(static_cast<char>(byte)))
            unused += static_cast<char>(byte);
    EXPECT_EQ(unused, "\x81\x8D\x8F\x90\x9D");
}

TEST_F(LanguageFileTest, Utf8WithItsMark_HasCharactersBeyondTheCodePage)
{
    const QByteArray content = "\xEF\xBB\xBFlang=Čeština\r\n[MAIN]\r\nsize=1\r\n001 Měření~~Ω\r\n";
    EXPECT_EQ(NameIn(content), "Čeština");
    EXPECT_EQ(Read(content), (Main{{"MAIN", {"Měření\nΩ"}}}));
}

TEST_F(LanguageFileTest, Utf8WithoutItsMark_IsReadAsTheCodePage)
{
    EXPECT_EQ(ReadMain("size=1\n001 \xC3\xA4\n"), (Main{{"MAIN", {"Ã¤"}}}));
}

TEST_F(LanguageFileTest, MarkOfUtf8BeforeInvalidBytes_MakesNoLanguageFile)
{
    EXPECT_EQ(Read("\xEF\xBB\xBFlang=Probe\n[MAIN]\nsize=1\n001 \xE4\n"), std::nullopt);
    EXPECT_EQ(Read("\xEF\xBB\xBFlang=Probe\n[MAIN]\nsize=1\n001 \xED\xA0\x80\n"), std::nullopt) << "half a character";
    EXPECT_EQ(Read("\xEF\xBB\xBF"), std::nullopt);
}

TEST_F(LanguageFileTest, OfTwoSectionsOfOneName_TheLaterCounts)
{
    EXPECT_EQ(Read("lang=Probe\n[MAIN]\nsize=2\n001 a\n002 b\n[MAIN]\nsize=1\n001 c\n"), (Main{{"MAIN", {"c"}}}));
}

TEST_F(LanguageFileTest, ZeroBytes_AreCharactersLikeOthers)
{
    const std::optional<LanguageSections> sections = ReadMain(QByteArray("size=2\n001 a\0b\n002 c\n", 22));
    ASSERT_TRUE(sections.has_value());
    EXPECT_EQ(sections->at("MAIN").at(0).size(), 3);
    EXPECT_EQ(sections->at("MAIN").at(1), "c");
}

TEST_F(LanguageFileTest, Comments_StandBetweenEntries)
{
    EXPECT_EQ(ReadMain("size=2\n;first\n001 a\n;003 out of sequence\n;\n002 b\n"), (Main{{"MAIN", {"a", "b"}}}));
}

TEST_F(LanguageFileTest, Comments_BeforeTheSizeAreAnError)
{
    EXPECT_EQ(ReadMain(";how many\nsize=1\n001 a\n"), std::nullopt);
}

TEST_F(LanguageFileTest, LinesOutsideASection_AreIgnored)
{
    EXPECT_EQ(Read("lang=Probe\nhello\n\n001 x\nsize=9\n[no end\n[MAIN]\nsize=1\n001 a\n002 beyond\n\nbye\n"),
              (Main{{"MAIN", {"a"}}}));
}

TEST_F(LanguageFileTest, Header_IsWhatStandsBetweenTheBrackets)
{
    EXPECT_EQ(Read("lang=Probe\n[PRINT/EXPORT] reports\nsize=1\n001 a\n"), (Main{{"PRINT/EXPORT", {"a"}}}));
    EXPECT_EQ(Read("lang=Probe\n [MAIN]\nsize=1\n001 a\n"), Main{});
}

TEST_F(LanguageFileTest, Section_OfSizeZeroIsEmpty)
{
    EXPECT_EQ(ReadMain("size=0\n[DEFAULT]\nsize=1\n001 a\n"),
              (LanguageSections{{"MAIN", QStringList{}}, {"DEFAULT", {"a"}}}));
}

TEST_F(LanguageFileTest, File_WithoutSectionsIsNoError)
{
    EXPECT_EQ(Read("lang=Probe\n"), Main{});
}

TEST_F(LanguageFileTest, Size_MissingOrUnreadableIsAnError)
{
    for (const char* lines : {"", "001 a\n", "Size=1\n001 a\n", " size=1\n001 a\n", "size=\n001 a\n", "size=x\n001 a\n",
                              "\nsize=1\n001 a\n", "[DEFAULT]\nsize=1\n001 a\n"})
        EXPECT_EQ(ReadMain(lines), std::nullopt) << lines;
}

TEST_F(LanguageFileTest, Size_BeyondSixteenBitsIsAnErrorAndCostsNoMemory)
{
    for (const char* size : {"70000", "2147483647", "99999999999999999999", "-2147483648"})
        EXPECT_EQ(ReadMain(QByteArray("size=") + size + "\n001 a\n"), std::nullopt) << size;
}

TEST_F(LanguageFileTest, Size_LargerThanTheSectionIsAnError)
{
    EXPECT_EQ(ReadMain("size=3\n001 a\n002 b\n"), std::nullopt);
    EXPECT_EQ(ReadMain("size=32767\n001 a\n"), std::nullopt);
    EXPECT_EQ(ReadMain("size=2\n001 a\n[DEFAULT]\nsize=1\n001 b\n"), std::nullopt);
}

TEST_F(LanguageFileTest, Entries_OutOfSequenceAreAnError)
{
    for (const char* lines :
         {"size=2\n002 b\n001 a\n", "size=2\n001 a\n003 c\n", "size=2\n001 a\n001 a\n", "size=1\n000 a\n",
          "size=2\n001 a\n\n002 b\n", "size=2\n001 a\nxyz b\n", "size=1\n-01 a\n"})
        EXPECT_EQ(ReadMain(lines), std::nullopt) << lines;
}

TEST_F(LanguageFileTest, Entries_OfAnUnknownSectionFollowTheFormatToo)
{
    EXPECT_EQ(Read("lang=Probe\n[OTHER]\nsize=1\n002 a\n[MAIN]\nsize=1\n001 a\n"), std::nullopt);
}

TEST_F(LanguageFileTest, ReadLanguageFile_EndingWithinASectionIsAnError)
{
    const QByteArray whole = "lang=Probe\n[MAIN]\nsize=2\n001 a\n002 b\n";
    const qsizetype headerAt = whole.indexOf("[MAIN]") + 6; // the whole header is there
    const qsizetype lastEntryAt = whole.indexOf("002") + 3; // the number of the last entry is there
    for (qsizetype length = headerAt; length < lastEntryAt; ++length)
        EXPECT_EQ(Read(whole.left(length)), std::nullopt) << whole.left(length).constData();
    EXPECT_NE(Read(whole), std::nullopt);
}

TEST_F(LanguageFileTest, ReadLanguageFile_WithoutNameInLineOneIsNoLanguageFile)
{
    EXPECT_EQ(Read("[MAIN]\nsize=1\n001 a\n"), std::nullopt);
    EXPECT_EQ(Read("\nlang=Probe\n[MAIN]\nsize=1\n001 a\n"), std::nullopt);
    EXPECT_EQ(Read(""), std::nullopt);
}

TEST_F(LanguageFileTest, ReadLanguageFile_OfGarbageIsNothing)
{
    QByteArray garbage;
    for (int i = 0; i < 100'000; ++i)
        garbage += static_cast<char>((i * 7919) >> 3);
    EXPECT_EQ(Read(garbage), std::nullopt);
    EXPECT_EQ(ReadMain("size=4\n" + garbage), std::nullopt);
}

TEST_F(LanguageFileTest, ReadLanguageFile_TakesALineOfAnyLength)
{
    const QByteArray text(200'000, 'x');
    const std::optional<LanguageSections> entry = ReadMain("size=2\n001 " + text + "\n002 b\n");
    ASSERT_TRUE(entry.has_value());
    EXPECT_EQ(entry->at("MAIN").at(0).size(), text.size());
    EXPECT_EQ(entry->at("MAIN").at(1), "b");
    EXPECT_EQ(ReadMain("size=1\n;" + text + "\n001 a\n"), (Main{{"MAIN", {"a"}}}));
}

TEST_F(LanguageFileTest, ReadLanguageFile_OfAFileThatCannotBeReadIsNothing)
{
    EXPECT_EQ(ReadLanguageFile(PathOf("fehlt.lng")), std::nullopt);
    EXPECT_EQ(ReadLanguageFile(folder.path()), std::nullopt);
}

TEST_F(LanguageFileTest, FileLargerThanAMegabyteIsNotRead)
{
    const QByteArray head("lang=Probe\n[MAIN]\nsize=1\n001 ");
    const qsizetype room = kLargestLanguageFile - head.size();
    EXPECT_TRUE(Read(head + QByteArray(room, 'x')));
    EXPECT_FALSE(Read(head + QByteArray(room + 1, 'x')));
}

TEST_F(LanguageFileTest, FirstLineWithoutAnEndIsNoName)
{
    WriteContent("probe.lng", "lang=" + QByteArray(64 << 20, 'x'));
    EXPECT_LE(LanguageName(PathOf("probe.lng")).value_or(QString()).size(), 1024);
}

TEST_F(LanguageFileTest, PipeInPlaceOfAFileIsNotRead)
{
    ASSERT_EQ(mkfifo(PathOf("pipe.lng").toLocal8Bit().constData(), 0600), 0);
    EXPECT_EQ(LanguageName(PathOf("pipe.lng")), std::nullopt);
    EXPECT_FALSE(ReadLanguageFile(PathOf("pipe.lng")));
}

} // namespace korvanel::test
