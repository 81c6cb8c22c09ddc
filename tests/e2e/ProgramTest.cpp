// The real program, driven through its controls, with its files looked at by plain SQL.
#include "remote/ProgramDriver.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QSettings>
#include <QTemporaryDir>

#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace korvanel::test {
namespace {

class ProgramTest : public ::testing::Test
{
protected:
    QString PathOf(const QString& name) const { return folder.filePath(name); }
    void Write(const QString& name, const QByteArray& content) const
    {
        QFile file(PathOf(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    static QString Query(const QString& path, const char* sql)
    {
        SQLite::Database db(path.toStdString());
        SQLite::Statement query(db, sql);
        return query.executeStep() ? QString::fromStdString(query.getColumn(0).getString()) : QString();
    }
    /// A copy of the program in a folder of its own, with what is told to stand beside it.
    QString InstallProgram(bool withLogo = true)
    {
        const QDir here(folder.path());
        EXPECT_TRUE(here.mkpath("program/PROJECTS"));
        EXPECT_TRUE(here.mkpath("program/LANGUAGES"));
        QString program = PathOf("program/KORVANEL");
        const QString original = QStringLiteral(KORVANEL_PROGRAM);
        EXPECT_TRUE(QFile::copy(original, program));
        if (withLogo) {
            EXPECT_TRUE(QFile::copy(QFileInfo(original).dir().filePath("LOGO.BMP"), PathOf("program/LOGO.BMP")));
        }
        return program;
    }
    QString SettingsFile() const { return PathOf("settings/KORVANEL/KORVANEL.ini"); }
    void WriteSetting(const QString& key, const QString& value) const
    {
        QSettings(SettingsFile(), QSettings::IniFormat).setValue(key, value);
    }
    QString Setting(const QString& key) const
    {
        return QSettings(SettingsFile(), QSettings::IniFormat).value(key).toString();
    }
    void NewProject(ProgramDriver& program, const QString& path)
    {
        program.Trigger("mnuNew");
        program.GivePath(path);
        program.WaitForControl("FormF1");
    }

    QTemporaryDir folder;
    QString settings = folder.filePath("settings");
};

TEST_F(ProgramTest, FromTheFirstStartToAStoredProjectAndBack)
{
    const QString path = PathOf("Pumpe.MDB");
    {
        ProgramDriver program(settings);
        program.Start();
        const QJsonObject main = program.WaitForWindow("MainForm");
        EXPECT_EQ(main["title"].toString(), "KORVANEL ");
        EXPECT_FALSE(program.IsEnabled("mnuSave"));
        EXPECT_TRUE(program.IsRefused("trigger", "mnuSave"));
        NewProject(program, PathOf("Pumpe"));
        program.Type("txtName", "Kühlpumpe");
        EXPECT_EQ(program.MainTitle(), "KORVANEL [ Kühlpumpe ]");
        program.Trigger("cmdForw");
        program.WaitForControl("FormF2");
        program.Choose("tabPage", "3-Phasen-Spannungsmessung");
        program.Trigger("optNetConf_6");
        program.Trigger("mnuEnd");
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
    EXPECT_EQ(Query(path, "SELECT Text FROM Overview WHERE Name='Project Name'"), "Kühlpumpe");
    EXPECT_EQ(Query(path, "SELECT Number FROM Settings WHERE Name='iNetConfIndex'"), "6");
    EXPECT_EQ(Query(path, "SELECT group_concat(name) FROM pragma_table_info('SampledValues')"),
              "Set,Time,U sum,U 1,U 2,U 3,f sum,t,Edit");
    EXPECT_EQ(Query(path, "PRAGMA integrity_check"), "ok");
    {
        ProgramDriver program(settings);
        program.Start();
        program.WaitForWindow("MainForm");
        program.Trigger("mnuOpen");
        program.GivePath(path);
        program.WaitForControl("FormF1");
        EXPECT_EQ(program.Text("txtName"), "Kühlpumpe");
        EXPECT_EQ(program.Text("lblPanel_1"), "Pumpe.MDB");
        program.CloseMainWindow();
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
    EXPECT_EQ(Setting("MRU/1"), path);
    EXPECT_EQ(Setting("MRU/Max"), "4");
    {
        ProgramDriver program(settings);
        program.Start();
        program.WaitForWindow("MainForm");
        program.Trigger("mnuFileMRU_1");
        program.WaitForControl("FormF1");
        EXPECT_EQ(program.Text("txtName"), "Kühlpumpe");
    }
}

TEST_F(ProgramTest, ConfirmingTheSuggestionOfNewCreatesNothing)
{
    ProgramDriver program(settings, InstallProgram());
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuNew");
    program.GivePath(PathOf("program/PROJECTS/PROJECT1.MDB"));
    program.WaitForQuiet();
    EXPECT_FALSE(program.IsEnabled("mnuSave"));
    EXPECT_FALSE(QFile::exists(PathOf("program/PROJECTS/PROJECT1.MDB")));
    program.Trigger("mnuNew");
    program.GivePath({}); // cancelled
    program.WaitForQuiet();
    EXPECT_FALSE(program.IsEnabled("mnuSave"));
}

TEST_F(ProgramTest, MessagesAreRealModalBoxes)
{
    Write("kein Projekt.MDB", "nothing of the kind");
    Write("alt.KVL", "old");
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuOpen");
    program.GivePath(PathOf("kein Projekt.MDB"));
    const QJsonObject box = program.WaitForWindow("message");
    EXPECT_EQ(box["title"].toString(), "Fehlermeldung");
    EXPECT_EQ(box["text"].toString(), "Ungültiges Dateiformat:\n" + PathOf("kein Projekt.MDB"));
    EXPECT_EQ(box["buttons"].toArray(), QJsonArray{"OK"});
    EXPECT_TRUE(program.IsRefused("trigger", "mnuNew")) << "the box is modal";
    program.AnswerBox("OK");
    program.WaitForQuiet();
    program.Trigger("mnuDelete");
    program.GivePath(PathOf("alt.KVL"));
    EXPECT_EQ(program.AnswerBox("Nein"), "Datei wirklich löschen?\n" + PathOf("alt.KVL"));
    program.WaitForQuiet();
    EXPECT_TRUE(QFile::exists(PathOf("alt.KVL")));
    program.Trigger("mnuDelete");
    program.GivePath(PathOf("alt.KVL"));
    program.AnswerBox("Ja");
    program.WaitForQuiet();
    EXPECT_FALSE(QFile::exists(PathOf("alt.KVL")));
}

TEST_F(ProgramTest, NewOverAnExistingFileAsksTwiceInGermanAndReplacesIt)
{
    Write("alt.MDB", "old");
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuNew");
    program.GivePath(PathOf("alt.MDB"));
    EXPECT_TRUE(program.AnswerBox("Ja").contains("alt.MDB")) << "the dialog's own question";
    program.WaitForBox("Überschreiben der Datei\n" + PathOf("alt.MDB"));
    program.AnswerBox("Nein");
    program.GivePath(PathOf("alt.MDB")); // the dialog is there anew
    program.AnswerBox("Ja");
    program.WaitForBox("Überschreiben der Datei\n" + PathOf("alt.MDB"));
    program.AnswerBox("Ja");
    program.WaitForControl("FormF1");
    EXPECT_EQ(Query(PathOf("alt.MDB"), "SELECT count(*) FROM Overview"), "12");
}

TEST_F(ProgramTest, MissingLogoIsToldAndTheProgramStarts)
{
    ProgramDriver program(settings, InstallProgram(false));
    program.Start();
    EXPECT_EQ(program.AnswerBox("OK"), "Konnte Pfad/Datei nicht finden: \n" + PathOf("program/LOGO.BMP"));
    EXPECT_EQ(program.WaitForWindow("MainForm")["title"].toString(), "KORVANEL ");
}

TEST_F(ProgramTest, StartScreenClosesItselfAndLeavesTheMainWindow)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForControl("FormStart");
    EXPECT_EQ(program.Text("lblStart_0"), "KORVANEL");
    program.WaitForWindow("MainForm");
    program.WaitUntilGone("FormStart");
    EXPECT_TRUE(program.IsRunning());
    EXPECT_EQ(program.WaitForWindow("MainForm")["title"].toString(), "KORVANEL ");
}

TEST_F(ProgramTest, ChosenLanguageRestartsTheProgramInIt)
{
    const QString installed = InstallProgram();
    Write("program/LANGUAGES/english.lng", "lang=English\r\n[MAIN]\r\nsize=2\r\n001 &File\r\n002 &New\r\n");
    Write("program/LANGUAGES/notes.lng", "just notes\r\n");
    ProgramDriver program(settings, installed);
    program.Start();
    program.WaitForWindow("MainForm");
    EXPECT_EQ(program.Text("mnuLaname_0"), "standard");
    EXPECT_TRUE(program.Read("mnuLaname_0")["checked"].toBool());
    EXPECT_EQ(program.Text("mnuLaname_1"), "English");
    EXPECT_FALSE(program.Read("mnuLaname_2")["ok"].toBool()) << "the other file is none of a language";
    program.Trigger("mnuLaname_1");
    program.AnswerBox("Nein");
    program.WaitForQuiet();
    EXPECT_EQ(Setting("Settings/LangFile"), "");
    EXPECT_FALSE(program.Read("mnuLaname_1")["checked"].toBool());
    program.Trigger("mnuLaname_1");
    program.AnswerBox("Ja");
    program.FollowRestart();
    program.WaitForWindow("MainForm");
    EXPECT_EQ(program.Text("mnuFile"), "&File");
    EXPECT_TRUE(program.Read("mnuLaname_1")["checked"].toBool());
    EXPECT_EQ(Setting("Settings/LangFile"), "english.lng");
    program.CloseMainWindow();
    program.WaitForDisconnect();
}

TEST_F(ProgramTest, SavedLanguageWithoutItsFileFallsBackToTheStandard)
{
    WriteSetting("Settings/LangFile", "klingon.lng");
    ProgramDriver program(settings);
    program.Start();
    EXPECT_EQ(program.AnswerBox("OK"), "Couldn't find the saved language file.\nLoading standard language!");
    program.WaitForWindow("MainForm");
    EXPECT_EQ(program.Text("mnuFile"), "&Datei");
    EXPECT_EQ(Setting("Settings/LangFile"), "standard");
}

TEST_F(ProgramTest, StrangeSettingsAreToldAndTheProgramStarts)
{
    WriteSetting("GraphColours/77", "255");
    WriteSetting("Settings/Cycles", "many");
    WriteSetting("MRU/Max", "-3");
    ProgramDriver program(settings);
    program.Start();
    EXPECT_TRUE(program.AnswerBox("OK").startsWith("Programmeinstellungen\n"));
    program.WaitForWindow("MainForm");
    program.Trigger("mnuInfo");
    program.WaitForControl("FormH2");
}

TEST_F(ProgramTest, DamagedSettingsStoreIsCopiedAsideAndTold)
{
    QDir(folder.path()).mkpath("settings/KORVANEL");
    const QByteArray garbage("[Settings\nno line of a store\n\x01\x02%zz\n");
    Write("settings/KORVANEL/KORVANEL.ini", garbage);
    {
        ProgramDriver program(settings);
        program.Start();
        EXPECT_TRUE(program.AnswerBox("OK").startsWith("Die Programmeinstellungen sind beschädigt."));
        program.WaitForWindow("MainForm");
        program.CloseMainWindow();
        EXPECT_EQ(program.WaitForEnd(), 0);
    }
    QFile copy(SettingsFile() + ".bak");
    ASSERT_TRUE(copy.open(QIODevice::ReadOnly));
    EXPECT_EQ(copy.readAll(), garbage);
}

TEST_F(ProgramTest, PipeOrFolderInPlaceOfTheSettingsIsSetAsideAndTold)
{
    QDir(folder.path()).mkpath("settings/KORVANEL");
    for (const bool isPipe : {true, false}) {
        QFile::remove(SettingsFile() + ".bak");
        QFile::remove(SettingsFile());
        if (isPipe)
            ASSERT_EQ(mkfifo(SettingsFile().toLocal8Bit().constData(), 0600), 0);
        else
            ASSERT_TRUE(QDir().mkpath(SettingsFile()));
        ProgramDriver program(settings);
        program.Start();
        EXPECT_TRUE(program.AnswerBox("OK").startsWith("Die Programmeinstellungen sind beschädigt.")) << isPipe;
        program.WaitForWindow("MainForm");
        program.CloseMainWindow();
        EXPECT_EQ(program.WaitForEnd(), 0);
        EXPECT_TRUE(QFileInfo::exists(SettingsFile() + ".bak"));
        EXPECT_TRUE(QFileInfo(SettingsFile()).isFile()) << "the next settings have a store again";
    }
}

TEST_F(ProgramTest, RecentFileThatIsGoneIsToldAndStaysOnTheList)
{
    WriteSetting("MRU/Max", "4");
    WriteSetting("MRU/1", PathOf("weg.MDB"));
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuFileMRU_1");
    EXPECT_EQ(program.AnswerBox("OK"), "Konnte Pfad/Datei nicht finden: \n" + PathOf("weg.MDB"));
    program.WaitForQuiet();
    EXPECT_EQ(program.Text("mnuFileMRU_1"), PathOf("weg.MDB"));
}

TEST_F(ProgramTest, MissingFolderOfProjectsIsNoObstacleAndIsMadeByNew)
{
    const QString installed = InstallProgram();
    ASSERT_TRUE(QDir(PathOf("program")).rmdir("PROJECTS"));
    ProgramDriver program(settings, installed);
    program.Start();
    EXPECT_EQ(program.WaitForWindow("MainForm")["title"].toString(), "KORVANEL ");
    program.Trigger("mnuOpen");
    program.GivePath({});
    EXPECT_EQ(program.AnswerBox("OK"), "Keine Datei ausgewählt!");
    program.WaitForQuiet();
    NewProject(program, PathOf("program/PROJECTS/x"));
    EXPECT_TRUE(QFile::exists(PathOf("program/PROJECTS/x.MDB")));
}

TEST_F(ProgramTest, OpeningAListedFileBringsItToTheTopWithoutASecondEntry)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    for (const char* name : {"eins.MDB", "zwei.MDB"}) {
        NewProject(program, PathOf(name));
        program.Trigger("mnuClose");
        program.WaitUntilGone("FormF1");
        program.Trigger("mnuOpen");
        program.GivePath(PathOf(name));
        program.WaitForControl("FormF1");
    }
    EXPECT_EQ(program.Text("mnuFileMRU_1"), PathOf("zwei.MDB"));
    program.Trigger("mnuFileMRU_2");
    program.WaitForText("lblPanel_1", "eins.MDB");
    EXPECT_EQ(program.Text("mnuFileMRU_1"), PathOf("eins.MDB"));
    EXPECT_EQ(program.Text("mnuFileMRU_2"), PathOf("zwei.MDB"));
    EXPECT_FALSE(program.Read("mnuFileMRU_3")["ok"].toBool());
}

TEST_F(ProgramTest, AFileThatVanishesWhileItIsOpenIsToldWhenThePageIsLeft)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    NewProject(program, PathOf("x.MDB"));
    program.Type("txtName", "Neu");
    ASSERT_TRUE(QFile::remove(PathOf("x.MDB")));
    program.Trigger("cmdForw");
    const QJsonObject box = program.WaitForWindow("message");
    EXPECT_EQ(box["text"].toString(), "Konnte Pfad/Datei nicht finden: \n" + PathOf("x.MDB"));
    EXPECT_TRUE(program.IsRefused("trigger", "mnuEnd"));
    program.CloseMainWindow(); // behind the box: nothing happens
    program.AnswerBox("OK");
    program.WaitForControl("FormF2");
    EXPECT_TRUE(program.IsRunning());
}

TEST_F(ProgramTest, TheAddressSearchNeedsNoProjectAndCanBeLeft)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuModbus");
    program.WaitForWindow("FormH5");
    EXPECT_FALSE(program.IsEnabled("cmdOK"));
    program.Type("txtAddress_0", "248");
    program.Trigger("cmdSearch_0");
    program.WaitForText("lblInfo_0", "Die Adresse darf nur zwischen 1 und 247 liegen.");
    program.Trigger("cmdCancel");
    program.WaitForQuiet();
    EXPECT_TRUE(program.IsRunning());
}

TEST_F(ProgramTest, TheMotorDatabaseStandsBesideTheProgramAndCanBeChanged)
{
    const QString delivered = QFileInfo(KORVANEL_PROGRAM).dir().filePath("MOTORDATABASE/MOTOR_DB.MDB");
    const QString own = PathOf("eigene.mdb");
    ASSERT_TRUE(QFile::copy(delivered, own));
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    program.Trigger("mnuDatabaseOpt");
    program.WaitForWindow("FormH11");
    EXPECT_EQ(program.Text("lblDatabase"), delivered);
    program.Trigger("cmdAbort");
    program.WaitForQuiet();
    program.CloseMainWindow();
    EXPECT_EQ(program.WaitForEnd(), 0);

    WriteSetting("Settings/Mdb", own); // as the dialog stores it
    ProgramDriver again(settings);
    again.Start();
    again.WaitForWindow("MainForm");
    again.Trigger("mnuDatabaseOpt");
    again.WaitForWindow("FormH11");
    EXPECT_EQ(again.Text("lblDatabase"), own);
    EXPECT_TRUE(again.IsEnabled("cmdOK")); // the file in use is marked
    again.Trigger("cmdOK");
    again.WaitForQuiet();
    EXPECT_EQ(Setting("Settings/Mdb"), own);
}

TEST_F(ProgramTest, TheMeasuringConfigurationIsStoredWithTheProject)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    NewProject(program, PathOf("x.MDB"));
    program.Trigger("mnuDeviceConf");
    program.WaitForControl("FormF3");
    program.Choose("cboSelect", "NANOVIP-PLUS 1Ø2W");
    program.WaitForText("cboInterval", "2");
    program.Choose("cboInterval", "7");
    program.Trigger("cmdBack");
    program.WaitForControl("FormF2");
    program.Trigger("mnuDeviceConf");
    program.WaitForControl("FormF3");
    EXPECT_EQ(program.Text("cboSelect"), "NANOVIP-PLUS 1Ø2W");
    EXPECT_EQ(program.Text("cboInterval"), "7");
}

TEST_F(ProgramTest, ResultTables_AppearWithoutARecordingToo)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    NewProject(program, PathOf("x"));
    program.Trigger("mnuResTable");
    program.WaitForControl("FormF6");
    EXPECT_EQ(program.Text("lblTWindow"), "Zeitfenster: 00:15:00");
    EXPECT_EQ(program.Text("lblCorrected"), "* korregierte Datensätze, Anzahl: 0");
    EXPECT_TRUE(program.IsShown("flxValues"));
    EXPECT_TRUE(program.IsShown("lblDeviceID"));
    program.Trigger("cmdOptions_2");
    program.WaitForWindow("FormH9");
    program.Type("txtTime_1", "2");
    program.Trigger("cmdOK");
    program.WaitForText("lblTWindow", "Zeitfenster: 00:02:00");
}

TEST_F(ProgramTest, Diagrams_AppearWithoutARecordingToo)
{
    ProgramDriver program(settings);
    program.Start();
    program.WaitForWindow("MainForm");
    NewProject(program, PathOf("x"));
    program.Trigger("mnuResGraph");
    program.WaitForControl("FormF8");
    EXPECT_TRUE(program.IsShown("Picture1"));
    EXPECT_TRUE(program.IsShown("flxInfo"));
    EXPECT_TRUE(program.IsShown("lblDeviceID"));
    program.Trigger("cmdFullScreen");
    program.Mouse("Picture1", "click", {40, 40}, "right");
    program.WaitForQuiet();
}

} // namespace
} // namespace korvanel::test
