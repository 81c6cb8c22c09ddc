// The check of a language file: each fault is put into a file that is good otherwise, and told at its line alone.
#include "language/LanguageCheck.h"

#include "core/Texts.h"
#include "language/CodePage.h"
#include "language/LanguageFile.h"
#include "language/LanguageTemplate.h"

#include <QStringList>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace korvanel {

void PrintTo(const Complaint& complaint, std::ostream* out)
{
    *out << complaint.line << (complaint.severity == Severity::Error ? ": error: " : ": warning: ")
         << complaint.text.toStdString();
}

} // namespace korvanel

namespace korvanel::test {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::Not;

Complaint Error(int line, const QString& text)
{
    return {line, Severity::Error, text};
}

Complaint Warning(int line, const QString& text)
{
    return {line, Severity::Warning, text};
}

/// A file without fault, line by line, to put faults into. Lines count from 1.
class LanguageCheckTest : public ::testing::Test
{
protected:
    int LineOfHeader(const QString& section) const
    {
        return static_cast<int>(lines.indexOf(u'[' + section + u']')) + 1;
    }
    int LineOf(const QString& section, int number) const
    {
        const QString mark = QStringLiteral("%1 ").arg(number, 3, 10, QLatin1Char('0'));
        qsizetype line = LineOfHeader(section);
        while (!lines.at(line).startsWith(mark))
            ++line;
        return static_cast<int>(line) + 1;
    }
    QString& Line(int line) { return lines[line - 1]; }
    /// Gives an entry another text; its line.
    int SetText(const QString& section, int number, const QString& text)
    {
        const int line = LineOf(section, number);
        Line(line) = Line(line).left(4) + text;
        return line;
    }
    QByteArray Content() const { return ToCp1252(lines.join("\r\n")).value(); }
    Complaints Check() const { return CheckLanguage(Content()); }
    bool IsRead() const { return ParseLanguage(Content()).has_value(); }

    QStringList lines = FromCp1252(LanguageTemplate()).split("\r\n");
};

} // namespace

TEST_F(LanguageCheckTest, FileWithoutFault_HasNoComplaint)
{
    EXPECT_THAT(Check(), IsEmpty());
}

// Format.

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

// Texts beside the German ones.

TEST_F(LanguageCheckTest, EmptyText_IsAnError)
{
    const int line = SetText("FORMH7", 1, {});
    EXPECT_THAT(Check(), ElementsAre(Error(line, "the text is empty, in German \"Schaltung\"")));
}

TEST_F(LanguageCheckTest, OtherNumberOfPlaceholders_IsAnError)
{
    const int line = SetText("FORMH7", 2, "#");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "1 placeholders \"#\" instead of 2")));
    SetText("FORMH7", 2, "# (#, #)");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "3 placeholders \"#\" instead of 2")));
    SetText("FORMH7", 2, "(#) #");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, OtherFilterOfAFileDialog_IsAnError)
{
    const QString told = "another filter of files than \"KORVANEL Projekte (*.MDB)|*.MDB|KVL Projekte (*.KVL)|*.KVL|\"";
    for (const char* filter : {"Projects|*.MDB|Old projects|*.kvl|", "Projects|*.MDB|", "Projects *.MDB, *.KVL",
                               "Projects|*.KVL|Old projects|*.MDB|", "Projects|*.MDB|Old|ones|*.KVL|"}) {
        const int line = SetText("DIALOGUES", 6, filter);
        EXPECT_THAT(Check(), ElementsAre(Error(line, told))) << filter;
    }
    SetText("DIALOGUES", 6, "Projects|*.MDB|Old projects|*.KVL|");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, OtherNumberOfLineBreaks_IsAWarning)
{
    const int line = SetText("DEFAULT", 122, "~~");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "1 line breaks \"~~\" instead of 0")));
}

TEST_F(LanguageCheckTest, LostTab_IsAWarning)
{
    const int line = SetText("FORMH13", 14, "#: #  (# %)");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "0 tabs instead of 1")));
}

TEST_F(LanguageCheckTest, LostKey_IsAWarning)
{
    const int line = SetText("FORMH15", 2, "Set (1 - #):");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "no key is marked with \"&\"")));
    SetText("FORMH15", 2, "R && D (1 - #):");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "no key is marked with \"&\""))) << "a doubled sign marks none";
}

TEST_F(LanguageCheckTest, LostBlankAtAnEnd_IsAWarning)
{
    const int line = SetText("DEFAULT", 105, "kW");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "blanks at its ends differ from \" kW\"")));
    SetText("DEFAULT", 105, " kW ");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "blanks at its ends differ from \" kW\"")));
}

TEST_F(LanguageCheckTest, TextThatIsMuchLonger_IsAWarning)
{
    const int line = SetText("FORMH7", 1, QString(22, u'x')); // 1.6 times 9 and 8
    EXPECT_THAT(Check(), IsEmpty());
    SetText("FORMH7", 1, QString(23, u'x'));
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "23 characters may not fit where the German text has 9")));
}

TEST_F(LanguageCheckTest, LengthOfATextOfSeveralLines_IsThatOfItsLongest)
{
    SetText("DEFAULT", 8, QString(30, u'x') + "~~" + QString(30, u'x') + "##");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, NameOfTheManual_IsAFileOfItsFolder)
{
    for (const char* name : {"manual.txt", "../manual.pdf", "manual"}) {
        const int line = SetText("MAIN", 41, name);
        EXPECT_THAT(Check(), ElementsAre(Error(line, QStringLiteral("\"%1\" isn't the name of a file *.pdf in the "
                                                                    "folder LANGUAGES")
                                                         .arg(name))));
    }
    SetText("MAIN", 41, "manual.pdf");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, LocaleOfTheToolkit_IsTheNameOfOne)
{
    const int line = SetText("DEFAULT", 143, "English");
    EXPECT_THAT(Check(),
                ElementsAre(Error(line, "\"English\" isn't the name of a locale, such as \"en\" or \"pt_BR\"")));
    SetText("DEFAULT", 143, "en");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, GermanTexts_AreToldStrictlyIfTheyHaveAWord)
{
    const Complaints complaints = CheckLanguage(Content(), Strictness::Strict);
    EXPECT_THAT(complaints, Contains(Warning(LineOf("FORMH7", 1), "is the German text still: \"Schaltung\"")));
    EXPECT_THAT(complaints, Not(Contains(Field(&Complaint::line, LineOf("FORMH7", 2))))) << "# (#)";
    EXPECT_THAT(complaints, Not(Contains(Field(&Complaint::line, LineOf("FORMH9", 6))))) << "min";
    EXPECT_FALSE(HasErrors(complaints));
    SetText("FORMH7", 1, "Wiring");
    EXPECT_THAT(CheckLanguage(Content(), Strictness::Strict),
                Not(Contains(Field(&Complaint::line, LineOf("FORMH7", 1)))));
}

// Keys.

TEST_F(LanguageCheckTest, KeyOfTwoEntriesOfOneMenu_IsAnError)
{
    const int line = SetText("MAIN", 3, "&Open"); // takes no key of another
    SetText("MAIN", 2, "C&lean");                 // that of "&Löschen"
    EXPECT_THAT(Check(),
                ElementsAre(Error(LineOf("MAIN", 8), "Alt+L is the key of entry 2 of [MAIN] too (menu mnuFile)")));
    EXPECT_LT(line, LineOf("MAIN", 8));
}

TEST_F(LanguageCheckTest, KeyOfEntriesOfDifferentMenus_IsNone)
{
    SetText("MAIN", 2, "Ne&w");             // Datei
    SetText("MAIN", 24, "Data &warehouse"); // Optionen
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, KeyOfTwoTextsOfOnePage_IsAnErrorHoweverItIsWritten)
{
    const int line = SetText("FORMF1", 8, "&editor:");
    SetText("FORMF1", 7, "&Enterprise:");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+E is the key of entry 7 of [FORMF1] too ([FORMF1])")));
}

TEST_F(LanguageCheckTest, KeyOfAPageAndTheMenuBar_IsAnError)
{
    const int line = SetText("FORMF1", 8, "&Processed by:"); // "&Projekt"
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+P is the key of entry 10 of [MAIN] too ([FORMF1])")));
}

TEST_F(LanguageCheckTest, KeyOfADialogAndTheMenuBar_IsNone)
{
    SetText("FORMH6", 8, "&Press to search");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, KeyOfAPageAndTheButtonsBelow_IsAnError)
{
    const int line = SetText("FORMF1", 8, "&Who:"); // "&Weiter >"
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+W is the key of entry 28 of [DEFAULT] too ([FORMF1])")));
}

TEST_F(LanguageCheckTest, KeyThatTheGermanTextsShare_IsNoFault)
{
    SetText("FORMF5", 10, "&Methode:"); // "Berechnungs&methode:" and "Si&mulation"
    SetText("FORMF5", 11, "&Model:");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(LanguageCheckTest, SeveralFaults_AreToldByTheirLines)
{
    const int second = SetText("FORMH7", 2, "#");
    const int first = SetText("MAIN", 1, {});
    Line(1) = "lang=";
    EXPECT_THAT(Check(), ElementsAre(Field(&Complaint::line, 1), Field(&Complaint::line, first),
                                     Field(&Complaint::line, second)));
}

} // namespace korvanel::test
