// The check of a language file: each fault of its format and characters is put into a file that is good otherwise, and
// told at its line alone.
#include "language/LanguageCheckFixture.h"

namespace korvanel::test {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

} // namespace

TEST_F(LanguageCheckTest, FileWithoutFault_HasNoComplaint)
{
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, EmptyFile_HasNoName)
{
    const Complaints complaints = CheckLanguage("");
    EXPECT_THAT(complaints, Contains(Error(1, "the first line isn't \"lang=\" and the name of the language")));
}

TEST_F(LanguageCheckTest, FirstLineThatIsNone_IsAnError)
{
    Line(1) = "language=English";
    EXPECT_THAT(Check(), ElementsAre(Error(1, "the first line isn't \"lang=\" and the name of the language")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, FirstLineWithoutAName_IsAnError)
{
    Line(1) = "lang= ";
    EXPECT_THAT(Check(), ElementsAre(Error(1, "no name of the language behind \"lang=\"")));
}

TEST_F(LanguageCheckTest, FileThatIsTooLarge_IsAnError)
{
    lines << QString(kLargestLanguageFile, u'x');
    EXPECT_THAT(Check(), ElementsAre(Error(1, "larger than the 1048576 bytes that are read")));
}

TEST_F(LanguageCheckTest, MissingSize_IsAnError)
{
    const int header = LineOfHeader("FORMH7");
    lines.removeAt(header);
    EXPECT_THAT(Check(),
                ElementsAre(Error(header + 1, "\"size=\" and a number up to 32767 is missing below [FORMH7]")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, SizeThatIsNoNumber_IsAnError)
{
    const int header = LineOfHeader("FORMH7");
    for (const char* size : {"size=", "size=two", "size=-1", "size=32768", "size=99999999999999999999"}) {
        Line(header + 1) = size;
        EXPECT_THAT(Check(),
                    ElementsAre(Error(header + 1, "\"size=\" and a number up to 32767 is missing below [FORMH7]")))
            << size;
        EXPECT_FALSE(IsRead());
    }
}

TEST_F(LanguageCheckTest, SizeBelowTheEntries_LosesTextsAndIsAnError)
{
    const int header = LineOfHeader("FORMH7");
    Line(header + 1) = "size=1";
    EXPECT_THAT(Check(), ElementsAre(Error(header + 1, "[FORMH7] has 2 entries, not 1")));
    EXPECT_TRUE(IsRead()) << "the reader doesn't notice";
}

TEST_F(LanguageCheckTest, SizeBeyondTheEntries_IsAnError)
{
    const int header = LineOfHeader("FORMH7");
    Line(header + 1) = "size=3";
    // The blank line between the sections is where the third entry should be.
    EXPECT_THAT(Check(), ElementsAre(Error(header + 1, "[FORMH7] has 2 entries, not 3"),
                                     Error(LineOf("FORMH7", 2) + 1, "neither an entry nor a comment")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, EndOfTheFileBelowAHeader_IsAnError)
{
    lines << "[OTHER]";
    const int line = static_cast<int>(lines.size());
    EXPECT_THAT(Check(), ElementsAre(Error(line, "nothing stands below [OTHER]"),
                                     Warning(line, "the program has no section [OTHER]")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, LineAmongEntriesThatIsNone_IsAnError)
{
    const int line = LineOf("FORMH7", 2);
    lines.insert(line - 1, "Schaltung");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "neither an entry nor a comment")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, LineBetweenSectionsThatIsNothing_IsAWarning)
{
    const int line = LineOfHeader("FORMH7");
    lines.insert(line - 1, "Schaltung");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "is ignored: no header, no entry, no comment")));
    EXPECT_TRUE(IsRead());
}

TEST_F(LanguageCheckTest, DoubledEntry_IsAnError)
{
    const int line = LineOf("FORMH7", 1);
    lines.insert(line, Line(line));
    Line(LineOfHeader("FORMH7") + 1) = "size=3";
    EXPECT_THAT(Check(), ElementsAre(Error(line + 1, "a second entry 1 in [FORMH7]")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, MissingEntry_IsAnErrorWhereTheNextOneStands)
{
    const int line = LineOf("FORMH9", 3);
    lines.removeAt(line - 1);
    Line(LineOfHeader("FORMH9") + 1) = "size=6";
    EXPECT_THAT(Check(), ElementsAre(Error(LineOfHeader("FORMH9"),
                                           "entry 3 of [FORMH9] is missing: \"Thermische Zeitkonstante:\""),
                                     Error(line + 1, "entry 4 in [FORMH9] where 3 is expected")));
    EXPECT_FALSE(IsRead());
}

TEST_F(LanguageCheckTest, MissingLastEntry_IsAnErrorOfItsSection)
{
    lines.removeAt(LineOf("FORMH9", 7) - 1);
    Line(LineOfHeader("FORMH9") + 1) = "size=6";
    EXPECT_THAT(Check(), ElementsAre(Error(LineOfHeader("FORMH9"), "entry 7 of [FORMH9] is missing: \"s\"")));
    EXPECT_TRUE(IsRead()) << "the caption would be empty";
}

TEST_F(LanguageCheckTest, SurplusEntry_IsAWarning)
{
    lines.insert(LineOf("FORMH7", 2), "003 more");
    Line(LineOfHeader("FORMH7") + 1) = "size=3";
    EXPECT_THAT(Check(), ElementsAre(Warning(LineOf("FORMH7", 3), "the program has no entry 3 in [FORMH7]")));
    EXPECT_TRUE(IsRead());
}

TEST_F(LanguageCheckTest, TextOfANumberThatIsNotInUse_IsAWarning)
{
    const int line = SetText("DEFAULT", 31, "what");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "the program has no entry 31 in [DEFAULT]")));
}

TEST_F(LanguageCheckTest, MissingSection_IsAnErrorAtTheEnd)
{
    const int header = LineOfHeader("FORMH7");
    lines.remove(header - 1, LineOf("FORMH7", 2) - header + 1);
    EXPECT_THAT(Check(), ElementsAre(Error(static_cast<int>(lines.size()) - 1, "the section [FORMH7] is missing")));
    EXPECT_TRUE(IsRead());
}

TEST_F(LanguageCheckTest, SurplusSection_IsAWarning)
{
    lines << QStringList{"[FORMH99]", "size=1", "001 nobody"};
    EXPECT_THAT(Check(), ElementsAre(Warning(LineOfHeader("FORMH99"), "the program has no section [FORMH99]")));
}

TEST_F(LanguageCheckTest, DoubledSection_IsAnErrorAtTheSecond)
{
    lines << QStringList{"[FORMH7]", "size=2", "001 Schaltung", "002 # (#)"};
    EXPECT_THAT(Check(), ElementsAre(Error(static_cast<int>(lines.size()) - 3,
                                           "a second section [FORMH7], which takes the place of the first")));
}

// Characters.

TEST_F(LanguageCheckTest, ByteThatIsNoCharacter_IsAnErrorOncePerLine)
{
    const int line = SetText("FORMH7", 1, QStringLiteral("\u0081 and \u009D"));
    EXPECT_THAT(Check(), ElementsAre(Error(line, "a byte that is no character of Windows-1252")));
}

TEST_F(LanguageCheckTest, Utf8WithoutItsMark_IsAnErrorWhereItIsSeenFirst)
{
    const QByteArray content = lines.join("\r\n").toUtf8();
    const int line = LineOf("MAIN", 3) - 1; // the comment "Öffnen"
    EXPECT_THAT(CheckLanguage(content),
                Contains(Error(line, "is UTF-8 without a byte order mark: save it with one, or in Windows-1252")));
    EXPECT_THAT(CheckLanguage("\xEF\xBB\xBF" + content), IsEmpty());
}

TEST_F(LanguageCheckTest, MarkOfUtf8BeforeOtherBytes_IsAnError)
{
    EXPECT_THAT(CheckLanguage("\xEF\xBB\xBF" + Content()),
                Contains(Error(1, "begins with the mark of UTF-8, but isn't valid UTF-8")));
}

} // namespace korvanel::test
