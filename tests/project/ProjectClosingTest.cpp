#include "project/ProjectCommands.h"

#include "support/ProjectFixture.h"

namespace korvanel::test {
namespace {

class ProjectClosing : public ProjectTest
{
protected:
    QString FormatComplaint(const QString& path) const { return "Ungültiges Dateiformat:\n" + path; }
    QString NotFound(const QString& path) const { return "Konnte Pfad/Datei nicht finden: \n" + path; }
    QString Suggestion() const { return PathOf("PROJECTS/PROJECT1.MDB"); }
};

// Save, Save As

TEST_F(ProjectClosing, Save_WritesAndClearsTheFlag)
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

TEST_F(ProjectClosing, SaveAs_GoesOnInTheCopyAndLeavesTheOldFileAsLastSaved)
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

TEST_F(ProjectClosing, SaveAs_OntoTheFileItselfDoesNothing)
{
    CreateProject(0);
    const QByteArray before = ContentOf("test.MDB");
    shell.savePaths = {App().sProjectPath};
    SaveProjectAs();
    EXPECT_EQ(ContentOf("test.MDB"), before);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(ProjectClosing, SaveAs_OntoTheFileItselfUnderAnotherSpellingDoesNotDeleteIt)
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

TEST_F(ProjectClosing, SaveAs_OfAVanishedProjectIsTold)
{
    CreateProject(0);
    ASSERT_TRUE(QFile::remove(App().sProjectPath));
    shell.savePaths = {PathOf("neu.MDB")};
    SaveProjectAs();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht kopieren: "));
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
}

TEST_F(ProjectClosing, SaveAs_AfterDeleteWithNoStillDoesNotDeleteTheFile)
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

TEST_F(ProjectClosing, SaveAs_TakesAlongWhatCouldNotBeSavedInTheOldFile)
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
    EXPECT_EQ(shell.BoxTexts(),
              QStringList("Die Datei wird gerade von einem anderen Programm benutzt:\n" + PathOf("test.MDB")));
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Werk");
    EXPECT_FALSE(App().bProjectDirty);
}

TEST_F(ProjectClosing, SaveAs_RemovesTheJournalOfTheFileThatItReplaces)
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

TEST_F(ProjectClosing, SaveAs_FailedCopyIsToldAndTheProjectStays)
{
    CreateProject(0);
    shell.savePaths = {PathOf("no such folder/x.MDB")};
    SaveProjectAs();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Kann Datei nicht kopieren: "));
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
}

TEST_F(ProjectClosing, SaveAsFromThePage_AddsNothingToTheRecentList)
{
    CreateProject(0);
    shell.calls.clear();
    shell.savePaths = {PathOf("Kopie.MDB")};
    SaveProjectAsFromPage();
    EXPECT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_TRUE(shell.calls.filter("AddFileMRU").isEmpty());
}

// Close

TEST_F(ProjectClosing, Close_SavesAndForgetsTheProject)
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

TEST_F(ProjectClosing, CloseProject_AsksAboutChanges)
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

TEST_F(ProjectClosing, CloseProject_YesRunsSaveAs)
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

TEST_F(ProjectClosing, CloseProject_YesWithoutASavedFileStaysInTheProject)
{
    CreateProject(0);
    ASSERT_TRUE(QFile::remove(App().sProjectPath)); // nothing can be saved or copied
    App().bProjectDirty = true;
    shell.answers = {Answer::Yes};
    EXPECT_FALSE(CloseProject());
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(App().bProjectDirty);
}

TEST_F(ProjectClosing, CloseProject_NoGoesOnWithoutSaving)
{
    CreateProject(0);
    App().sCompany = QStringLiteral("nicht sichern");
    App().bProjectDirty = true;
    shell.answers = {Answer::No};
    EXPECT_TRUE(CloseProject());
    SaveIfDirty();
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Ihre Firma");
}

TEST_F(ProjectClosing, CloseProject_WithoutAProjectIsTrue)
{
    EXPECT_TRUE(CloseProject());
    EXPECT_TRUE(shell.calls.isEmpty());
}

// Delete

TEST_F(ProjectClosing, Delete_RemovesTheFileAfterTheQuestion)
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

TEST_F(ProjectClosing, Delete_RemovesTheJournalBesideTheFile)
{
    WriteContent("weg.MDB", "x");
    WriteContent("weg.MDB-journal", "y");
    shell.openPaths = {PathOf("weg.MDB")};
    shell.answers = {Answer::Yes};
    DeleteProjectFile();
    EXPECT_FALSE(QFile::exists(PathOf("weg.MDB-journal")));
}

TEST_F(ProjectClosing, Delete_OldFormatToo)
{
    WriteContent("weg.kvl", "x");
    shell.openPaths = {PathOf("weg.kvl")};
    shell.answers = {Answer::Yes};
    DeleteProjectFile();
    EXPECT_FALSE(QFile::exists(PathOf("weg.kvl")));
}

TEST_F(ProjectClosing, Delete_NothingChosenGivesBothMessages)
{
    DeleteProjectFile();
    EXPECT_EQ(shell.BoxTexts(), (QStringList{kNothingChosen, FormatComplaint({})}));
}

TEST_F(ProjectClosing, Delete_RefusesOtherEndings)
{
    WriteContent("brief.txt", "x");
    shell.openPaths = {PathOf("brief.txt")};
    DeleteProjectFile();
    EXPECT_EQ(shell.BoxTexts(), QStringList{FormatComplaint(PathOf("brief.txt"))});
    EXPECT_TRUE(QFile::exists(PathOf("brief.txt")));
}

TEST_F(ProjectClosing, Delete_NoForTheOpenProjectClosesItAndKeepsTheFile)
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
