#include "core/project/ProjectCommands.h"

#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

const QString kNothingChosen = QStringLiteral("Keine Datei ausgewählt!");

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

// Save, Save As

TEST_F(ProjectCommands, Save_WritesAndClearsTheFlag)
{
    CreateProject(0);
    App().sEditor = QStringLiteral("Bea");
    App().bProjectDirty = true;
    SaveProjectFromMenu();
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Editor'"), "Bea");
    clock.now = clock.now.addDays(1);
    SaveProjectFromMenu();
    EXPECT_EQ(Query("SELECT Time FROM Overview WHERE Name='Project Saved'"), "2026-03-15 15:09:26");
}

TEST_F(ProjectCommands, SaveAs_GoesOnInTheCopyAndLeavesTheOldFileAsLastSaved)
{
    CreateProject(0);
    const QString old = App().sProjectPath;
    App().sEditor = QStringLiteral("Bea");
    App().bProjectDirty = true;
    shell.savePaths = {PathOf("Kopie")};
    SaveProjectAs();
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_EQ(QueryFile(PathOf("Kopie.MDB"), "SELECT Text FROM Overview WHERE Name='Editor'"), "Bea");
    EXPECT_EQ(QueryFile(old, "SELECT Text FROM Overview WHERE Name='Editor'"), "Bea");
    EXPECT_EQ(shell.saveQuestions[0].title, "Speichern unter");
    EXPECT_EQ(shell.saveQuestions[0].suggestion, old);
    EXPECT_TRUE(shell.calls.contains("AddFileMRU " + PathOf("Kopie.MDB")));
}

TEST_F(ProjectCommands, SaveAs_OntoTheFileItselfDoesNothing)
{
    CreateProject(0);
    const QByteArray before = ContentOf("test.MDB");
    shell.savePaths = {App().sProjectPath};
    SaveProjectAs();
    EXPECT_EQ(ContentOf("test.MDB"), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ProjectCommands, SaveAs_OntoTheFileItselfUnderAnotherSpellingDoesNotDeleteIt)
{
    CreateProject(0);
    const QByteArray before = ContentOf("test.MDB");
    shell.answers = {Answer::Yes, Answer::Yes};
    shell.savePaths = {PathOf("test")};
    SaveProjectAs();
    EXPECT_EQ(ContentOf("test.MDB"), before);
    shell.savePaths = {PathOf("./test.MDB")};
    SaveProjectAs();
    EXPECT_EQ(ContentOf("test.MDB"), before);
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
}

TEST_F(ProjectCommands, SaveAs_OfAVanishedProjectIsTold)
{
    CreateProject(0);
    ASSERT_TRUE(QFile::remove(App().sProjectPath));
    shell.savePaths = {PathOf("neu.MDB")};
    SaveProjectAs();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht kopieren: "));
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
}

TEST_F(ProjectCommands, SaveAs_AfterDeleteWithNoStillDoesNotDeleteTheFile)
{
    CreateProject(0);
    const QByteArray before = ContentOf("test.MDB");
    shell.openPaths = {PathOf("test.MDB")};
    shell.answers = {Answer::No, Answer::Yes};
    DeleteProjectFile();
    shell.savePaths = {PathOf("test")};
    SaveProjectAs();
    EXPECT_EQ(ContentOf("test.MDB"), before);
}

TEST_F(ProjectCommands, SaveAs_TakesAlongWhatCouldNotBeSavedInTheOldFile)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE"); // the file can be read but not written
        shell.savePaths = {PathOf("Kopie.MDB")};
        SaveProjectAs();
    }
    EXPECT_EQ(shell.BoxTexts(), QStringList{NotFound(PathOf("test.MDB"))});
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(ProjectCommands, SaveAs_RemovesTheJournalOfTheFileThatItReplaces)
{
    CreateProject(0);
    WriteContent("ziel.MDB", "old");
    WriteContent("ziel.MDB-journal", "of the old file");
    WriteContent("frei.MDB-journal", "of a file that is gone");
    shell.answers = {Answer::Yes};
    shell.savePaths = {PathOf("ziel.MDB"), PathOf("frei.MDB")};
    SaveProjectAs();
    EXPECT_FALSE(QFile::exists(PathOf("ziel.MDB-journal")));
    SaveProjectAs();
    EXPECT_FALSE(QFile::exists(PathOf("frei.MDB-journal")));
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(ProjectCommands, SaveAs_FailedCopyIsToldAndTheProjectStays)
{
    CreateProject(0);
    shell.savePaths = {PathOf("no such folder/x.MDB")};
    SaveProjectAs();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht kopieren: "));
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
}

TEST_F(ProjectCommands, SaveAsFromThePage_AddsNothingToTheRecentList)
{
    CreateProject(0);
    shell.calls.clear();
    shell.savePaths = {PathOf("Kopie.MDB")};
    SaveProjectAsFromPage();
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_TRUE(shell.calls.filter("AddFileMRU").isEmpty());
}

// Close

TEST_F(ProjectCommands, Close_SavesAndForgetsTheProject)
{
    CreateProject(0);
    App().sProjectLabel = App().sProjectPath;
    App().bProjectDirty = true;
    shell.calls.clear();
    CloseProjectFromMenu();
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(App().bProjectDirty);
    EXPECT_EQ(App().sProjectLabel, "");
    EXPECT_TRUE(shell.calls.contains("EnableProjectMenus 0"));
    EXPECT_TRUE(shell.calls.contains("UnloadPage"));
    EXPECT_TRUE(shell.boxes.empty()) << "the question is seldom seen, since the save runs first";
}

TEST_F(ProjectCommands, CloseProject_AsksAboutChanges)
{
    CreateProject(0);
    App().bProjectDirty = true;
    shell.answers = {Answer::Cancel};
    EXPECT_FALSE(CloseProject());
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].title, "Aktuelles Projekt sichern");
    EXPECT_EQ(shell.boxes[0].text, "Möchten Sie Änderungen am aktuellen Projekt speichern?");
    EXPECT_EQ(shell.boxes[0].buttons, BoxButtons::YesNoCancel);
    EXPECT_EQ(App().iExitAction, kExitCancelled);
    EXPECT_TRUE(App().bProjectOpen);
}

TEST_F(ProjectCommands, CloseProject_YesRunsSaveAs)
{
    CreateProject(0);
    App().bProjectDirty = true;
    shell.answers = {Answer::Yes};
    shell.savePaths = {PathOf("Kopie.MDB")};
    EXPECT_TRUE(CloseProject());
    EXPECT_EQ(shell.saveQuestions.size(), 1U);
    EXPECT_TRUE(QFile::exists(PathOf("Kopie.MDB")));
    EXPECT_FALSE(App().bProjectOpen);
}

TEST_F(ProjectCommands, CloseProject_YesWithoutASavedFileStaysInTheProject)
{
    CreateProject(0);
    ASSERT_TRUE(QFile::remove(App().sProjectPath)); // nothing can be saved or copied
    App().bProjectDirty = true;
    shell.answers = {Answer::Yes};
    EXPECT_FALSE(CloseProject());
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(ProjectCommands, CloseProject_NoGoesOnWithoutSaving)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("nicht sichern");
    App().bProjectDirty = true;
    shell.answers = {Answer::No};
    EXPECT_TRUE(CloseProject());
    SaveIfDirty();
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Ihre Firma");
}

TEST_F(ProjectCommands, CloseProject_WithoutAProjectIsTrue)
{
    EXPECT_TRUE(CloseProject());
    EXPECT_TRUE(shell.calls.isEmpty());
}

// Delete

TEST_F(ProjectCommands, Delete_RemovesTheFileAfterTheQuestion)
{
    WriteContent("weg.MDB", "x");
    shell.openPaths = {PathOf("weg.MDB")};
    shell.answers = {Answer::Yes};
    DeleteProjectFile();
    EXPECT_FALSE(QFile::exists(PathOf("weg.MDB")));
    EXPECT_EQ(shell.openQuestions[0].title, "Löschen");
    EXPECT_EQ(shell.openQuestions[0].filter, "KORVANEL Projekte (*.MDB)|*.MDB|KVL Projekte (*.KVL)|*.KVL|");
    EXPECT_EQ(shell.openQuestions[0].preset, "*.MDB");
    EXPECT_EQ(shell.boxes[0].title, "Achtung");
    EXPECT_EQ(shell.boxes[0].icon, BoxIcon::Question);
    EXPECT_EQ(shell.boxes[0].text, "Datei wirklich löschen?\n" + PathOf("weg.MDB"));
}

TEST_F(ProjectCommands, Delete_RemovesTheJournalBesideTheFile)
{
    WriteContent("weg.MDB", "x");
    WriteContent("weg.MDB-journal", "y");
    shell.openPaths = {PathOf("weg.MDB")};
    shell.answers = {Answer::Yes};
    DeleteProjectFile();
    EXPECT_FALSE(QFile::exists(PathOf("weg.MDB-journal")));
}

TEST_F(ProjectCommands, Delete_OldFormatToo)
{
    WriteContent("weg.kvl", "x");
    shell.openPaths = {PathOf("weg.kvl")};
    shell.answers = {Answer::Yes};
    DeleteProjectFile();
    EXPECT_FALSE(QFile::exists(PathOf("weg.kvl")));
}

TEST_F(ProjectCommands, Delete_NothingChosenGivesBothMessages)
{
    DeleteProjectFile();
    EXPECT_EQ(shell.BoxTexts(), (QStringList{kNothingChosen, FormatComplaint({})}));
}

TEST_F(ProjectCommands, Delete_RefusesOtherEndings)
{
    WriteContent("brief.txt", "x");
    shell.openPaths = {PathOf("brief.txt")};
    DeleteProjectFile();
    EXPECT_EQ(shell.BoxTexts(), QStringList{FormatComplaint(PathOf("brief.txt"))});
    EXPECT_TRUE(QFile::exists(PathOf("brief.txt")));
}

TEST_F(ProjectCommands, Delete_NoForTheOpenProjectClosesItAndKeepsTheFile)
{
    CreateProject(0);
    shell.openPaths = {PathOf("TEST.mdb")}; // compared without case
    shell.answers = {Answer::No};
    shell.calls.clear();
    DeleteProjectFile();
    EXPECT_TRUE(QFile::exists(PathOf("test.MDB")));
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_EQ(App().sProjectLabel, "");
    EXPECT_TRUE(shell.calls.contains("UnloadPage"));
    EXPECT_FALSE(shell.calls.contains("EnableProjectMenus 0")) << "the menus stay as they are";
}

} // namespace
} // namespace korvanel::test
