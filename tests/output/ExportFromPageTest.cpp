// The click on the export: its question, its folder for the next time, and targets that can't be written.
#include "ExportFixture.h"
#include "core/Paths.h"

#ifdef Q_OS_UNIX
#include "support/FullDisk.h"

#include <sys/stat.h>
#endif

namespace korvanel::test {
namespace {

class ExportFromPageTest : public ExportFixture
{
protected:
    ExportFromPageTest() { settings.SetExportPath(FolderPath()); }

    QString FolderPath() const { return folder.path() + QDir::separator(); }
    /// What holds after every click, whatever came of it.
    void ExpectIdle() const
    {
        EXPECT_EQ(shell.calls.count("SetBusyMenus 0"), 1);
        EXPECT_EQ(shell.calls.count("SetBusyMenus 1"), 1);
        EXPECT_EQ(shell.calls.last(), "SetBusyMenus 1");
        EXPECT_EQ(shell.calls.count("ShowProgress 0"), shell.calls.count("ShowProgress 2"));
        EXPECT_FALSE(IsProjectDbOpen());
    }
    void Click(const std::optional<QString>& answer)
    {
        shell.calls.clear();
        shell.savePaths.clear();
        if (answer)
            shell.savePaths.push_back(*answer);
        ExportFromPage();
        ExpectIdle();
    }
    void ExpectFailure(const QString& path)
    {
        Click(path);
        ASSERT_EQ(shell.boxes.size(), 1U) << path.toStdString();
        EXPECT_EQ(shell.boxes[0].title, "Fehlermeldung");
        EXPECT_TRUE(shell.boxes[0].text.startsWith("Excel/ASCII Export\n")) << shell.boxes[0].text.toStdString();
        EXPECT_EQ(settings.ExportPath(), FolderPath());
        shell.boxes.clear();
    }
};

TEST_F(ExportFromPageTest, QuestionHasTitleFilterExtensionAndTheProjectsName)
{
    CreateProject(0, "Pumpe.v2.MDB");
    Click(std::nullopt);
    ASSERT_EQ(shell.saveQuestions.size(), 1U);
    const FileQuestion& question = shell.saveQuestions[0];
    EXPECT_EQ(question.title, "Speichern unter");
    EXPECT_EQ(question.filter, "Exceldatei (*.xls)|*.xls|Textdokument (*.txt)|*.txt|");
    EXPECT_EQ(question.extension, ".xls");
    EXPECT_EQ(question.suggestion, PathOf("Pumpe.v2.xls"));
}

TEST_F(ExportFromPageTest, ProjectWithoutANameSuggestsProject1)
{
    CreateProject(0);
    App().sProjectPath.clear();
    Click(std::nullopt);
    EXPECT_EQ(FileNameOf(shell.saveQuestions[0].suggestion), "PROJECT1.xls");
}

TEST_F(ExportFromPageTest, FolderThatIsGoneGivesWayToThatOfTheProgram)
{
    CreateProject(0);
    App().sProgramDir = PathOf("programm");
    for (const QString& gone : {PathOf("nie dagewesen/"), QString(), App().sProjectPath}) {
        settings.SetExportPath(gone);
        Click(std::nullopt);
        EXPECT_EQ(shell.saveQuestions.back().suggestion, PathOf("programm/test.xls")) << gone.toStdString();
    }
}

TEST_F(ExportFromPageTest, CancelledDialogDoesNothing)
{
    MakeRecording(0, 1);
    Click(std::nullopt);
    EXPECT_FALSE(QFile::exists(PathOf("test.xls")));
    EXPECT_EQ(shell.boxes.size(), 0U);
    EXPECT_EQ(shell.calls.count("ShowProgress 0"), 0);
}

TEST_F(ExportFromPageTest, SuggestionConfirmedUnchangedIsExported)
{
    MakeRecording(0, 1);
    Click(PathOf("test.xls"));
    EXPECT_EQ(shell.boxes.size(), 0U);
    EXPECT_EQ(Number(Fields(LinesOf("test.xls").at(1)).at(1)), rows[0].dU[kSum]);
}

TEST_F(ExportFromPageTest, FolderOfASuccessIsKeptWithItsLastSeparator)
{
    MakeRecording(0, 1);
    QDir(folder.path()).mkdir("Übersicht");
    Click(PathOf("Übersicht/neu.txt"));
    EXPECT_EQ(settings.ExportPath(), PathOf("Übersicht/"));
    EXPECT_EQ(clsProgSettings(folder.path()).ExportPath(), PathOf("Übersicht/")) << "also in the store";
    Click(std::nullopt);
    EXPECT_EQ(shell.saveQuestions.back().suggestion, PathOf("Übersicht/test.xls"));
}

TEST_F(ExportFromPageTest, NameWithoutADotTakesTheExtension)
{
    MakeRecording(0, 1);
    Click(PathOf("ohne"));
    EXPECT_TRUE(QFile::exists(PathOf("ohne.xls")));
    Click(PathOf("mit.csv"));
    EXPECT_TRUE(QFile::exists(PathOf("mit.csv")));
    EXPECT_FALSE(QFile::exists(PathOf("mit.csv.xls")));
}

TEST_F(ExportFromPageTest, TargetThatCanNotBeOpenedIsTold)
{
    MakeRecording(0, 1);
    QDir(folder.path()).mkdir("ordner.xls");
    ExpectFailure(PathOf("ordner.xls"));
    ExpectFailure(PathOf("kein Ordner/x.xls"));
    ExpectFailure(PathOf(QString(300, u'x') + ".xls"));
}

TEST_F(ExportFromPageTest, OpenProjectAndMotorDatabaseAreNoTargets)
{
    MakeRecording(0, 1);
    WriteContent("MOTOR_DB.MDB", "motors");
    App().sMotorDbPath = PathOf("MOTOR_DB.MDB");
    const QByteArray before = ContentOf("test.MDB");
    ExpectFailure(PathOf("test.MDB"));
    ExpectFailure(PathOf("./test.MDB"));
    ExpectFailure(PathOf("MOTOR_DB.MDB"));
    EXPECT_TRUE(ContentOf("test.MDB") == before);
    EXPECT_EQ(ContentOf("MOTOR_DB.MDB"), "motors");
}

TEST_F(ExportFromPageTest, JournalOfTheOpenProjectIsNoTarget)
{
    MakeRecording(0, 1);
    ExpectFailure(PathOf("test.MDB-journal"));
    EXPECT_FALSE(QFile::exists(PathOf("test.MDB-journal")));
}

TEST_F(ExportFromPageTest, SetsThatCanNotBeReadAreToldAndTheBeginStays)
{
    MakeRecording(0, 1);
    Execute("DROP TABLE ComputedValues");
    ExpectFailure(PathOf("x.xls"));
    EXPECT_TRUE(ContentOf("x.xls").startsWith("\xEF\xBB\xBFSatz\t"));
}

TEST_F(ExportFromPageTest, RowThatCanNotBeReadLeavesThoseBefore)
{
    MakeRecording(0, 50);
    Execute("UPDATE SampledValues SET [Time]=zeroblob(200000) WHERE [Set]=40"); // longer than any text is read
    ExpectFailure(PathOf("x.xls"));
    const QStringList lines = LinesOf("x.xls");
    ASSERT_EQ(lines.size(), 40);
    EXPECT_EQ(Fields(lines.last()).first(), "39");
}

TEST_F(ExportFromPageTest, AfterAFailureTheNextExportWorks)
{
    MakeRecording(0, 1);
    ExpectFailure(PathOf("kein Ordner/x.xls"));
    Click(PathOf("x.xls"));
    EXPECT_EQ(shell.boxes.size(), 0U);
    EXPECT_TRUE(QFile::exists(PathOf("x.xls")));
}

#ifdef Q_OS_UNIX

TEST_F(ExportFromPageTest, DiskThatIsFullFromTheBeginIsTold)
{
    for (const int sets : {1, 5000}) { // less and more than one block
        MakeRecording(0, sets);
        const FullDisk disk(0);
        ExpectFailure(PathOf("voll.xls"));
    }
}

TEST_F(ExportFromPageTest, WhatIsNoOrdinaryFileIsNoTarget)
{
    MakeRecording(0, 1);
    ASSERT_EQ(mkfifo(PathOf("rohr.xls").toLocal8Bit().constData(), 0600), 0);
    ExpectFailure(PathOf("rohr.xls"));
}

TEST_F(ExportFromPageTest, DiskThatFillsUpInTheMiddleIsToldAndTheBeginStays)
{
    MakeRecording(2, 5000);
    ExportEvaluation(PathOf("ganz.xls"));
    const QByteArray whole = ContentOf("ganz.xls");
    ASSERT_GT(whole.size(), 700'000);
    for (const int room : {0, 1, 4096, 262'144, 300'001, static_cast<int>(whole.size()) - 1}) {
        {
            const FullDisk disk(static_cast<rlim_t>(room));
            ExpectFailure(PathOf("x.xls"));
        }
        EXPECT_TRUE(ContentOf("x.xls") == whole.left(room)) << room;
    }
    const FullDisk disk(static_cast<rlim_t>(whole.size()));
    Click(PathOf("x.xls"));
    EXPECT_EQ(shell.boxes.size(), 0U) << "with just enough room it works";
}

#endif

} // namespace
} // namespace korvanel::test
