// The languages of the program's folder, and loading the one that the settings name.
#include "language/LangManaging.h"

#include "core/texts/DefaultTexts.h"
#include "core/texts/MainTexts.h"
#include "core/texts/ValueNamesTexts.h"
#include "language/LanguageFixture.h"
#include "machine/Algorithms_ASM_Start.h"

namespace korvanel::test {

namespace {

class LangManagingTest : public LanguageTest
{
};

} // namespace

TEST_F(LangManagingTest, FindLanguages_WithoutAFolderIsStandardAlone)
{
    EXPECT_EQ(FindLanguages().LangNames, QStringList{"standard"});
    EXPECT_EQ(FindLanguages().LangFiles, QStringList{"standard"});
}

TEST_F(LangManagingTest, FindLanguages_OfAnEmptyFolderIsStandardAlone)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("LANGUAGES"));
    EXPECT_EQ(FindLanguages().LangNames, QStringList{"standard"});
    EXPECT_EQ(FindLanguages().LangFiles, QStringList{"standard"});
}

TEST_F(LangManagingTest, FindLanguages_OffersFilesByTheirNamesBehindStandard)
{
    WriteLanguage("eng.lng", "lang=English\r\n");
    WriteLanguage("fra.lng", "lang=Fran\xE7"
                             "ais\n");
    const Languages languages = FindLanguages();
    ASSERT_EQ(languages.LangNames.size(), 3);
    ASSERT_EQ(languages.LangFiles.size(), 3);
    EXPECT_EQ(languages.LangNames.front(), "standard");
    EXPECT_EQ(languages.LangFiles.front(), "standard");
    EXPECT_EQ(languages.LangNames.value(languages.LangFiles.indexOf("eng.lng")), "English");
    EXPECT_EQ(languages.LangNames.value(languages.LangFiles.indexOf("fra.lng")), "Français");
}

TEST_F(LangManagingTest, FindLanguages_SkipsAFileWithoutItsNameInLineOne)
{
    WriteLanguage("eng.lng", "lang=English\n");
    WriteLanguage("bad.lng", "[MAIN]\nlang=Bad\n");
    WriteLanguage("empty.lng", "");
    WriteLanguage("readme.txt", "lang=Text\n");
    EXPECT_EQ(FindLanguages().LangFiles, (QStringList{"standard", "eng.lng"}));
}

TEST_F(LangManagingTest, FindLanguages_SkipsADirectory)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES/ordner.lng"));
    EXPECT_EQ(FindLanguages().LangFiles, QStringList{"standard"});
}

TEST_F(LangManagingTest, FindLanguages_OffersAFileThatIsBrokenFurtherOn)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nrubbish\n");
    EXPECT_EQ(FindLanguages().LangFiles, (QStringList{"standard", "eng.lng"}));
}

TEST_F(LangManagingTest, LoadLanguage_OfStandardSetsTheBuiltInTexts)
{
    texts::mnuFile = "changed";
    const Languages languages = LoadLanguage();
    ExpectBuiltInTexts();
    EXPECT_EQ(languages.LangNames, QStringList{"standard"});
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(settings->LanguageFile(), "standard");
}

TEST_F(LangManagingTest, LoadLanguage_ReadsTheSectionsOverTheBuiltInTexts)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nsize=2\n001 &File\n002 &New\n[DEFAULT]\nsize=1\n001 Error\n");
    UseLanguage("eng.lng");
    const Languages languages = LoadLanguage();
    EXPECT_EQ(texts::mnuFile, "&File");
    EXPECT_EQ(texts::mnuNew, "&New");
    EXPECT_EQ(texts::titleError, "Error");
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(SavedLanguage(), "eng.lng");
    EXPECT_EQ(languages.LangFiles, (QStringList{"standard", "eng.lng"}));
}

TEST_F(LangManagingTest, LoadLanguage_EntryWithADoubledTildeHasTwoLines)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nsize=1\n001 one~~two\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_EQ(texts::mnuFile, "one\ntwo");
}

TEST_F(LangManagingTest, LoadLanguage_AMissingSectionKeepsTheBuiltInTexts)
{
    WriteLanguage("eng.lng", "lang=English\n[DEFAULT]\nsize=1\n001 Error\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_EQ(texts::mnuFile, "&Datei");
    EXPECT_EQ(texts::nameVoltage, "Spannung");
}

TEST_F(LangManagingTest, LoadLanguage_ASectionThatIsTooShortLeavesEmptyCaptions)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nsize=1\n001 &File\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_EQ(texts::mnuNew, "");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(LangManagingTest, LoadLanguage_ForeignSectionsAndSurplusEntriesAreHarmless)
{
    QByteArray content = "lang=English\n[NOBODY]\nsize=1\n001 x\n[MAIN]\nsize=500\n";
    for (int i = 1; i <= 500; ++i)
        content += QStringLiteral("%1 text %1\n").arg(i, 3, 10, QLatin1Char('0')).toLatin1();
    WriteLanguage("eng.lng", content);
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_EQ(texts::mnuFile, "text 001");
    EXPECT_EQ(texts::titleError, "Fehlermeldung");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(LangManagingTest, LoadLanguage_OfAMissingFileFallsBackAndSaves)
{
    UseLanguage("weg.lng");
    const Languages languages = LoadLanguage();
    ExpectFallenBack(kMissing);
    EXPECT_EQ(languages.LangFiles, QStringList{"standard"});
}

TEST_F(LangManagingTest, LoadLanguage_OfAMissingFileBesideOthersFallsBack)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nsize=1\n001 &File\n");
    UseLanguage("weg.lng");
    LoadLanguage();
    ExpectFallenBack(kMissing);
}

TEST_F(LangManagingTest, LoadLanguage_OfABrokenFileFallsBackWithoutHalfOfIt)
{
    WriteLanguage("eng.lng", "lang=English\n[MAIN]\nsize=1\n001 &File\n[DEFAULT]\nsize=2\n001 Error\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    ExpectFallenBack(kBroken);
}

TEST_F(LangManagingTest, LoadLanguage_OfAFileThatIsNoLanguageFileFallsBack)
{
    WriteLanguage("eng.lng", "[MAIN]\nsize=1\n001 &File\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    ExpectFallenBack(kBroken);
}

TEST_F(LangManagingTest, LoadLanguage_ANameWithAPathReachesNoFileOutsideTheFolder)
{
    const QByteArray content = "lang=English\n[MAIN]\nsize=1\n001 &File\n";
    WriteContent("outside.lng", content);
    ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES/sub"));
    WriteContent("LANGUAGES/sub/inside.lng", content);
    for (const QString& name :
         {QString("../outside.lng"), QString("..\\outside.lng"), PathOf("outside.lng"), QString("sub/inside.lng")}) {
        SCOPED_TRACE(name.toStdString());
        shell.boxes.clear();
        UseLanguage(name);
        LoadLanguage();
        ExpectFallenBack(kMissing);
    }
}

TEST_F(LangManagingTest, LoadLanguage_ANameOfNoFileIsMissing)
{
    ASSERT_TRUE(QDir(folder.path()).mkpath("LANGUAGES/ordner.lng"));
    for (const char* name : {"", ".", "..", "ordner.lng"}) {
        SCOPED_TRACE(name);
        shell.boxes.clear();
        UseLanguage(name);
        LoadLanguage();
        ExpectFallenBack(kMissing);
    }
}

TEST_F(LangManagingTest, MethodNames_AreTheWordsOfTheLanguageWithTheirLetters)
{
    EXPECT_EQ(MethodName(0), "Raumvektor (V)");
    EXPECT_EQ(MethodName(1), "Leistungsbilanz (P)");
    QByteArray content = "lang=English\n[DEFAULT]\nsize=69\n";
    for (int i = 1; i <= 69; ++i)
        content += QStringLiteral("%1 word %1\n").arg(i, 3, 10, QLatin1Char('0')).toLatin1();
    WriteLanguage("eng.lng", content);
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_EQ(MethodName(0), "word 068 (V)");
    EXPECT_EQ(MethodName(1), "word 069 (P)");
}

TEST_F(LangManagingTest, ToolkitLocale_IsTheOneOfTheBuiltInTextsOrOfTheFile)
{
    EXPECT_EQ(texts::toolkitLocale, "de");
    WriteLanguage("eng.lng", "lang=English\n[DEFAULT]\nsize=1\n001 Error\n");
    UseLanguage("eng.lng");
    LoadLanguage();
    EXPECT_FALSE(IsLocaleName(texts::toolkitLocale)) << "a file that names none is no German one";
}

TEST_F(LangManagingTest, IsLocaleName_OfNothingThatLeadsToAnotherFile)
{
    for (const char* name : {"de", "en", "pt_BR", "zh_Hant", "gsw"})
        EXPECT_TRUE(IsLocaleName(name)) << name;
    for (const char* name : {"", "d", "DE", "deutsch", "de_", "de_DE_x", "../de", "de/../../x", "de\n", "de ", "de.qm",
                             "de_\xC3\x84", "_"})
        EXPECT_FALSE(IsLocaleName(name)) << name;
}

TEST_F(LangManagingTest, LoadLanguage_IsSilentAtTheStartAfterAFallback)
{
    UseLanguage("weg.lng");
    LoadLanguage();
    shell.boxes.clear();
    LoadLanguage();
    EXPECT_TRUE(shell.boxes.empty());
}

} // namespace korvanel::test
