#include "project/ProjectCommands.h"

#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

class ProjectCommands : public ProjectTest
{
protected:
    QString FormatComplaint(const QString& path) const { return "Ungültiges Dateiformat:\n" + path; }
    QString NotFound(const QString& path) const { return "Konnte Pfad/Datei nicht finden: \n" + path; }
    QString Suggestion() const { return PathOf("PROJECTS/PROJECT1.MDB"); }
};

// New

TEST_F(ProjectCommands, New_CreatesSavesAndShowsTheFirstPage)
{
    shell.savePaths = {PathOf("Pumpe.MDB")};
    NewProject();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(App().bProjectDirty) << "so that the first leaving of the page saves once more";
    EXPECT_EQ(App().iCurrentPage, 1);
    EXPECT_EQ(App().sProjectPath, PathOf("Pumpe.MDB"));
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Project Name'"), "Neues Projekt");
    EXPECT_FALSE(App().ColumnLayout.empty());
    EXPECT_TRUE(shell.calls.contains("EnableProjectMenus 1"));
    EXPECT_EQ(shell.calls.last(), "ShowPage");
}

TEST_F(ProjectCommands, New_AsksWithItsTitleSuggestionAndFilter)
{
    NewProject();
    ASSERT_EQ(shell.saveQuestions.size(), 1U);
    EXPECT_EQ(shell.saveQuestions[0].title, "Neues Projekt erstellen unter");
    EXPECT_EQ(shell.saveQuestions[0].suggestion, Suggestion());
    EXPECT_EQ(shell.saveQuestions[0].filter, "KORVANEL Projekte (*.MDB)|*.MDB|");
    EXPECT_TRUE(QDir(PathOf("PROJECTS")).exists()) << "the folder of the suggestion is made";
}

TEST_F(ProjectCommands, New_ConfirmingTheSuggestionCreatesNothing)
{
    shell.savePaths = {Suggestion()};
    NewProject();
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(QFile::exists(Suggestion()));
    EXPECT_EQ(App().sProjectPath, Suggestion()) << "the path keeps the suggestion";
    EXPECT_EQ(App().sProjectLabel, "PROJECT1.KVL");
    EXPECT_EQ(shell.saveQuestions.size(), 1U);
}

TEST_F(ProjectCommands, New_AppendsTheExtensionUnlessItIsThere)
{
    shell.savePaths = {PathOf("eins")};
    NewProject();
    EXPECT_TRUE(QFile::exists(PathOf("eins.MDB")));
    shell.savePaths = {PathOf("zwei.mdb")};
    NewProject();
    EXPECT_TRUE(QFile::exists(PathOf("zwei.mdb")));
}

TEST_F(ProjectCommands, New_EmptyNameOpensTheDialogAnew)
{
    shell.savePaths = {QString(), QString(), PathOf("drei.MDB")};
    NewProject();
    EXPECT_EQ(shell.saveQuestions.size(), 3U);
    EXPECT_TRUE(QFile::exists(PathOf("drei.MDB")));
}

TEST_F(ProjectCommands, New_OntoAnExistingFileAsksAndOpensTheDialogAnewOnNo)
{
    WriteContent("alt.MDB", "old");
    shell.savePaths = {PathOf("alt.MDB")};
    shell.answers = {Answer::No};
    NewProject();
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Überschreiben der Datei\n" + PathOf("alt.MDB")});
    EXPECT_EQ(shell.saveQuestions.size(), 2U) << "the second one was cancelled";
    EXPECT_EQ(ContentOf("alt.MDB"), "old");
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bFileError);
}

TEST_F(ProjectCommands, New_OntoAnExistingFileReplacesItOnYes)
{
    WriteContent("alt.MDB", "old");
    shell.savePaths = {PathOf("alt.MDB")};
    shell.answers = {Answer::Yes};
    NewProject();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(Query("SELECT count(*) FROM Overview"), "12");
}

TEST_F(ProjectCommands, New_GoesOnRegardlessWhenTheFileCantBeCreated)
{
    const QString path = PathOf("no such folder/x.MDB");
    shell.savePaths = {path};
    NewProject();
    ASSERT_EQ(shell.boxes.size(), 2U);
    EXPECT_EQ(shell.boxes[0].text, "unable to open database file");
    EXPECT_EQ(shell.boxes[1].text, NotFound(path));
    EXPECT_EQ(App().iCurrentPage, 1);
}

TEST_F(ProjectCommands, New_StopsWhenTheUserWantsToStayInTheOpenProject)
{
    CreateProject(0);
    ASSERT_TRUE(QFile::remove(App().sProjectPath)); // so that the save at the head fails and the question comes
    App().bProjectDirty = true;
    shell.answers = {Answer::Cancel};
    NewProject();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(shell.saveQuestions.empty());
    EXPECT_EQ(App().iExitAction, kExitCancelled);
}

// Open

TEST_F(ProjectCommands, Open_ReadsTheProjectAndPutsItOnTheRecentList)
{
    CreateProject(2);
    const QString path = App().sProjectPath;
    App().bProjectOpen = false;
    App().sProjectPath.clear();
    shell.openPaths = {path};
    shell.calls.clear();
    OpenProjectFromMenu();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().iNetConfIndex, 2);
    EXPECT_EQ(App().sProjectLabel, path);
    EXPECT_EQ(App().iCurrentPage, 1);
    EXPECT_EQ(shell.calls, (QStringList{"UnloadPage", "EnableMachineMenu 1", "EnableProjectMenus 1", "RefreshStatusBar",
                                        "ShowPage", "AddFileMRU " + path}));
}

TEST_F(ProjectCommands, Open_AsksInTheCurrentDirectoryWithThePresetName)
{
    OpenProjectFromMenu();
    ASSERT_EQ(shell.openQuestions.size(), 1U);
    EXPECT_EQ(shell.openQuestions[0].title, "Öffnen");
    EXPECT_EQ(shell.openQuestions[0].suggestion, QDir::currentPath());
    EXPECT_EQ(shell.openQuestions[0].preset, "*.MDB");
}

TEST_F(ProjectCommands, Open_NothingChosenIsTold)
{
    OpenProjectFromMenu();
    EXPECT_EQ(shell.BoxTexts(), QStringList{kNothingChosen});
    EXPECT_TRUE(App().bFileError);
    EXPECT_FALSE(App().bProjectOpen);
}

TEST_F(ProjectCommands, Open_RefusesTheOldFormatInAnyCaseOfLetters)
{
    WriteContent("Alt.kvl", "VELDRIK");
    shell.openPaths = {PathOf("Alt.kvl")};
    OpenProjectFromMenu();
    EXPECT_EQ(shell.BoxTexts(),
              QStringList{"Ungültige Dateiversion! Möglicherweise wurde die Datei in VELDRIK erstellt.\nBenutzen Sie "
                          "hierzu die Konvertierungsfunktion im Menüpunkt 'Optionen'."});
    EXPECT_EQ(shell.boxes[0].icon, BoxIcon::None);
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(shell.calls.contains("ShowPage"));
}

TEST_F(ProjectCommands, Open_LooksAtTheLastFourCharactersOnly)
{
    CreateProject(0, "x.mdb.bak");
    App().bProjectOpen = false;
    shell.openPaths = {PathOf("x.mdb.bak")};
    OpenProjectFromMenu();
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ProjectCommands, Open_OfAFileThatIsNoProjectLeavesNoneOpen)
{
    CreateProject(0);
    WriteContent("text.MDB", "just a text that is long enough to be looked at as a database file");
    shell.openPaths = {PathOf("text.MDB")};
    OpenProjectFromMenu();
    EXPECT_EQ(shell.BoxTexts(), QStringList{FormatComplaint(PathOf("text.MDB"))});
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_FALSE(App().bFileError) << "the flag was read and cleared";
    EXPECT_TRUE(shell.calls.contains("EnableProjectMenus 0")) << "the former project was closed";
}

TEST_F(ProjectCommands, OpenRecent_OfAFileThatIsGoneIsToldAndTheEntryStays)
{
    const QString path = PathOf("weg.MDB");
    OpenRecentProject(path);
    EXPECT_EQ(shell.BoxTexts(), QStringList{NotFound(path)});
    EXPECT_TRUE(shell.calls.contains("SelectRecentFile " + path));
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_EQ(App().sProjectLabel, QDir::currentPath() + "PROJECT1.KVL") << "without a separator";
    EXPECT_EQ(App().sDialogPreset, "*.KVL");
}

TEST_F(ProjectCommands, OpenRecent_OpensWithoutADialog)
{
    CreateProject(0);
    const QString path = App().sProjectPath;
    OpenRecentProject(path);
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(shell.openQuestions.empty());
}

TEST_F(ProjectCommands, Open_SavesTheFormerProjectFirst)
{
    CreateProject(0, "alt.MDB");
    CreateProject(0, "neu.MDB");
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    shell.openPaths = {PathOf("alt.MDB")};
    OpenProjectFromMenu();
    EXPECT_EQ(QueryFile(PathOf("neu.MDB"), "SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    EXPECT_EQ(App().sCompany, "Ihre Firma");
    EXPECT_TRUE(shell.boxes.empty()) << "the save came first, so there is nothing to ask";
}

} // namespace
} // namespace korvanel::test
