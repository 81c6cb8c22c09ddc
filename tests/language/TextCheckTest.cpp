// The check of the texts of a language file beside the German ones, and of the keys on a page or in a menu.
#include "language/LanguageCheckFixture.h"

namespace korvanel::test {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;
using ::testing::Not;

class TextCheckTest : public LanguageCheckTest
{
};

} // namespace

TEST_F(TextCheckTest, EmptyText_IsAnError)
{
    const int line = SetText("FORMH7", 1, {});
    EXPECT_THAT(Check(), ElementsAre(Error(line, "the text is empty, in German \"Schaltung\"")));
}

TEST_F(TextCheckTest, OtherNumberOfPlaceholders_IsAnError)
{
    const int line = SetText("FORMH7", 2, "#");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "1 placeholders \"#\" instead of 2")));
    SetText("FORMH7", 2, "# (#, #)");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "3 placeholders \"#\" instead of 2")));
    SetText("FORMH7", 2, "(#) #");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, OtherFilterOfAFileDialog_IsAnError)
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

TEST_F(TextCheckTest, OtherNumberOfLineBreaks_IsAWarning)
{
    const int line = SetText("DEFAULT", 122, "~~");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "1 line breaks \"~~\" instead of 0")));
}

TEST_F(TextCheckTest, LostTab_IsAWarning)
{
    const int line = SetText("FORMH13", 14, "#: #  (# %)");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "0 tabs instead of 1")));
}

TEST_F(TextCheckTest, LostKey_IsAWarning)
{
    const int line = SetText("FORMH15", 2, "Set (1 - #):");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "no key is marked with \"&\"")));
    SetText("FORMH15", 2, "R && D (1 - #):");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "no key is marked with \"&\""))) << "a doubled sign marks none";
}

TEST_F(TextCheckTest, LostBlankAtAnEnd_IsAWarning)
{
    const int line = SetText("DEFAULT", 105, "kW");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "blanks at its ends differ from \" kW\"")));
    SetText("DEFAULT", 105, " kW ");
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "blanks at its ends differ from \" kW\"")));
}

TEST_F(TextCheckTest, TextThatIsMuchLonger_IsAWarning)
{
    const int line = SetText("FORMH7", 1, QString(22, u'x')); // 1.6 times 9 and 8
    EXPECT_THAT(Check(), IsEmpty());
    SetText("FORMH7", 1, QString(23, u'x'));
    EXPECT_THAT(Check(), ElementsAre(Warning(line, "23 characters may not fit where the German text has 9")));
}

TEST_F(TextCheckTest, LengthOfATextOfSeveralLines_IsThatOfItsLongest)
{
    SetText("DEFAULT", 8, QString(30, u'x') + "~~" + QString(30, u'x') + "##");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, NameOfTheManual_IsAFileOfItsFolder)
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

TEST_F(TextCheckTest, LocaleOfTheToolkit_IsTheNameOfOne)
{
    const int line = SetText("DEFAULT", 143, "English");
    EXPECT_THAT(Check(),
                ElementsAre(Error(line, "\"English\" isn't the name of a locale, such as \"en\" or \"pt_BR\"")));
    SetText("DEFAULT", 143, "en");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, GermanTexts_AreToldStrictlyIfTheyHaveAWord)
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

TEST_F(TextCheckTest, KeyOfTwoEntriesOfOneMenu_IsAnError)
{
    const int line = SetText("MAIN", 3, "&Open"); // takes no key of another
    SetText("MAIN", 2, "C&lean");                 // that of "&Löschen"
    EXPECT_THAT(Check(),
                ElementsAre(Error(LineOf("MAIN", 8), "Alt+L is the key of entry 2 of [MAIN] too (menu mnuFile)")));
    EXPECT_LT(line, LineOf("MAIN", 8));
}

TEST_F(TextCheckTest, KeyOfEntriesOfDifferentMenus_IsNone)
{
    SetText("MAIN", 2, "Ne&w");             // Datei
    SetText("MAIN", 24, "Data &warehouse"); // Optionen
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, KeyOfTwoTextsOfOnePage_IsAnErrorHoweverItIsWritten)
{
    const int line = SetText("FORMF1", 8, "&editor:");
    SetText("FORMF1", 7, "&Enterprise:");
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+E is the key of entry 7 of [FORMF1] too ([FORMF1])")));
}

TEST_F(TextCheckTest, KeyOfAPageAndTheMenuBar_IsAnError)
{
    const int line = SetText("FORMF1", 8, "&Processed by:"); // "&Projekt"
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+P is the key of entry 10 of [MAIN] too ([FORMF1])")));
}

TEST_F(TextCheckTest, KeyOfADialogAndTheMenuBar_IsNone)
{
    SetText("FORMH6", 8, "&Press to search");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, KeyOfAPageAndTheButtonsBelow_IsAnError)
{
    const int line = SetText("FORMF1", 8, "&Who:"); // "&Weiter >"
    EXPECT_THAT(Check(), ElementsAre(Error(line, "Alt+W is the key of entry 28 of [DEFAULT] too ([FORMF1])")));
}

TEST_F(TextCheckTest, KeyThatTheGermanTextsShare_IsNoFault)
{
    SetText("FORMF5", 10, "&Methode:"); // "Berechnungs&methode:" and "Si&mulation"
    SetText("FORMF5", 11, "&Model:");
    EXPECT_THAT(Check(), IsEmpty());
}

TEST_F(TextCheckTest, SeveralFaults_AreToldByTheirLines)
{
    const int second = SetText("FORMH7", 2, "#");
    const int first = SetText("MAIN", 1, {});
    Line(1) = "lang=";
    EXPECT_THAT(Check(), ElementsAre(Field(&Complaint::line, 1), Field(&Complaint::line, first),
                                     Field(&Complaint::line, second)));
}

} // namespace korvanel::test
