// The language file that a translation begins with, and the tool that writes and checks one.
#include "language/LanguageTemplate.h"

#include "core/Texts.h"
#include "language/LanguageCheck.h"
#include "language/LanguageFile.h"
#include "support/Fixture.h"
#include "support/TestPaths.h"

#include <QProcess>

#include <set>

namespace korvanel::test {

namespace {

struct ToolRun
{
    int exitCode;
    QByteArray output;
    QByteArray errors;
};

class LanguageToolTest : public BlockTest
{
protected:
    ToolRun Run(const QStringList& arguments) const
    {
        QProcess tool;
        tool.setWorkingDirectory(folder.path());
        tool.start(QStringLiteral(KORVANEL_LANGUAGE), arguments);
        EXPECT_TRUE(tool.waitForFinished(60'000));
        EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
        return {tool.exitCode(), tool.readAllStandardOutput(), tool.readAllStandardError()};
    }
};

} // namespace

TEST(LanguageTemplateTest, IsReadAsTheGermanTexts)
{
    const std::optional<LanguageSections> sections = ParseLanguage(LanguageTemplate());
    ASSERT_TRUE(sections.has_value());
    EXPECT_EQ(sections->size(), TextSections().size());
    for (const TextSection& section : TextSections())
        for (const TextLine& line : section.lines)
            EXPECT_EQ(sections->at(section.name).value(line.number - 1), line.german) << section.name << line.number;
}

TEST(LanguageTemplateTest, NumbersThatAreNotInUseHaveEmptyEntries)
{
    const std::optional<LanguageSections> sections = ParseLanguage(LanguageTemplate());
    ASSERT_TRUE(sections.has_value());
    for (const TextSection& section : TextSections()) {
        std::set<int> used;
        for (const TextLine& line : section.lines)
            used.insert(line.number);
        const QStringList& entries = sections->at(section.name);
        EXPECT_EQ(entries.size(), *used.rbegin()) << section.name;
        for (int number = 1; number <= entries.size(); ++number)
            EXPECT_EQ(entries.at(number - 1).isEmpty(), !used.contains(number)) << section.name << number;
    }
}

TEST(LanguageTemplateTest, GermanTextStandsAboveEachEntryAsAComment)
{
    const QByteArray content = LanguageTemplate();
    EXPECT_TRUE(content.startsWith("lang=Deutsch\r\n"));
    EXPECT_TRUE(content.contains("\r\n;&Datei\r\n001 &Datei\r\n"));
    EXPECT_TRUE(content.contains("\r\n;Der eingegebene Wert muss sich~~zwischen # und # befinden.\r\n"
                                 "008 Der eingegebene Wert muss sich~~zwischen # und # befinden.\r\n"));
    EXPECT_TRUE(content.contains("\r\n;not in use\r\n031 \r\n"));
    EXPECT_TRUE(content.contains("003 \xD6&ffnen\r\n")) << "the code page is 1252";
}

TEST(LanguageTemplateTest, IsWithoutFault)
{
    EXPECT_TRUE(CheckLanguage(LanguageTemplate()).empty());
}

TEST_F(LanguageToolTest, Template_GoesToTheStandardOutputOrToAFile)
{
    EXPECT_EQ(Run({"template"}).output, LanguageTemplate());
    EXPECT_EQ(Run({"template", "neu.lng"}).exitCode, 0);
    EXPECT_EQ(ContentOf("neu.lng"), LanguageTemplate());
}

TEST_F(LanguageToolTest, Template_LeavesAFileThatIsThereAlone)
{
    WriteContent("da.lng", "a translation\n");
    const ToolRun run = Run({"template", "da.lng"});
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_NE(run.errors, "");
    EXPECT_EQ(ContentOf("da.lng"), "a translation\n");
}

TEST_F(LanguageToolTest, Check_OfAGoodFileIsSilent)
{
    WriteContent("gut.lng", LanguageTemplate());
    const ToolRun run = Run({"check", "gut.lng"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "");
    EXPECT_EQ(run.errors, "");
}

TEST_F(LanguageToolTest, Check_TellsFileAndLineOfAnError)
{
    WriteContent("falsch.lng", LanguageTemplate().replace("\r\n001 &Datei", "\r\n001 "));
    const ToolRun run = Run({"check", "falsch.lng"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_EQ(run.output, "falsch.lng:13: error: the text is empty, in German \"&Datei\"\n");
}

TEST_F(LanguageToolTest, Check_WarnsWithoutFailing)
{
    WriteContent("deutsch.lng", LanguageTemplate().replace("\r\n001 &Datei", "\r\n001 Datei"));
    const ToolRun run = Run({"check", "deutsch.lng"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output, "deutsch.lng:13: warning: no key is marked with \"&\"\n");
    const ToolRun strict = Run({"check", "--strict", "deutsch.lng"});
    EXPECT_EQ(strict.exitCode, 0);
    EXPECT_TRUE(strict.output.contains("deutsch.lng:25: warning: is the German text still: \"&Drucken\"\n"));
}

TEST_F(LanguageToolTest, Check_OfSeveralFilesFailsIfOneDoes)
{
    WriteContent("gut.lng", LanguageTemplate());
    WriteContent("leer.lng", "");
    const ToolRun run = Run({"check", "leer.lng", "gut.lng"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.output.startsWith("leer.lng:1: error: "));
}

TEST_F(LanguageToolTest, Check_OfWhatCannotBeReadIsNoResult)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir("ordner.lng"));
    WriteContent("gross.lng", QByteArray(kLargestLanguageFile + 1, 'x'));
    for (const char* name : {"fehlt.lng", "ordner.lng", "gross.lng"}) {
        const ToolRun run = Run({"check", name});
        EXPECT_EQ(run.exitCode, 2) << name;
        EXPECT_TRUE(run.errors.contains(name));
    }
}

TEST_F(LanguageToolTest, WrongArguments_TellTheUse)
{
    for (const QStringList& arguments :
         {QStringList{}, QStringList{"translate"}, QStringList{"check"}, QStringList{"template", "a", "b"}}) {
        const ToolRun run = Run(arguments);
        EXPECT_EQ(run.exitCode, 2) << arguments.join(' ').toStdString();
        EXPECT_NE(run.errors, "");
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(Run({"--help"}).exitCode, 0);
    EXPECT_TRUE(Run({"--help"}).output.startsWith("usage: "));
}

} // namespace korvanel::test
