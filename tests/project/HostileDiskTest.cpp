// A disk that is full, and files and folders that may only be read: each is told, and loses nothing.
#include "core/Paths.h"
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "instruments/NetConfigurationChange.h"
#include "project/ProjectCommands.h"
#include "support/ProjectFixture.h"

#ifdef Q_OS_UNIX

#include "support/FullDisk.h"

#include <sys/stat.h>
#include <unistd.h>

namespace korvanel::test {
namespace {

class HostileDisk : public ProjectTest
{
protected:
    void MakeProject()
    {
        CreateProject(2);
        App().bProjectOpen = false;
    }
};

/// File permissions don't bind the superuser, so for the length of a test a superuser is somebody else.
class Unprivileged
{
public:
    explicit Unprivileged(const QString& folder)
    {
        constexpr uid_t kNobody = 65534;
        if (geteuid() != 0)
            return;
        for (const QFileInfo& file : QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot))
            EXPECT_EQ(chown(file.filePath().toUtf8().constData(), kNobody, kNobody), 0);
        EXPECT_EQ(chown(folder.toUtf8().constData(), kNobody, kNobody), 0);
        EXPECT_EQ(seteuid(kNobody), 0);
        wasRoot = true;
    }
    Unprivileged(const Unprivileged&) = delete;
    Unprivileged& operator=(const Unprivileged&) = delete;
    ~Unprivileged()
    {
        if (wasRoot) {
            EXPECT_EQ(seteuid(0), 0);
        }
    }

private:
    bool wasRoot = false;
};

TEST_F(HostileDisk, ReadOnlyFileOpensWithAHintAndKeepsItsContent)
{
    MakeProject();
    const QByteArray before = ContentOf("test.MDB");
    const Unprivileged user(folder.path());
    ASSERT_TRUE(QFile::setPermissions(PathOf("test.MDB"), QFile::ReadOwner));
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.startsWith("Die Projektdatei ist schreibgeschützt."));
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    SaveIfDirty();
    EXPECT_EQ(shell.boxes.size(), 2U);
    EXPECT_TRUE(App().bProjectDirty);
    App().MeasuredRow.lSet = 1;
    OpenDbGuarded();
    EXPECT_FALSE(AppendMeasuredRow());
    CloseDbGuarded();
    EXPECT_EQ(shell.boxes.size(), 3U);
    EXPECT_TRUE(ContentOf("test.MDB") == before);
}

TEST_F(HostileDisk, ReadOnlyDirectoryKeepsTheFileAsItWas)
{
    MakeProject();
    const QByteArray before = ContentOf("test.MDB");
    const Unprivileged user(folder.path());
    ASSERT_TRUE(QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::ExeOwner));
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_EQ(shell.BoxTexts(), QStringList("Die Projektdatei ist schreibgeschützt. Änderungen lassen sich nur unter "
                                            "anderem Namen speichern:\n" +
                                            PathOf("test.MDB")));
    App().sCompany = QStringLiteral("Werk");
    App().bProjectDirty = true;
    SaveIfDirty();
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_FALSE(ChangeNetConfiguration(4));
    EXPECT_EQ(App().iNetConfIndex, 2);
    shell.savePaths = {PathOf("neu.MDB")};
    SaveProjectAs();
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
    EXPECT_EQ(shell.boxes.size(), 5U) << shell.BoxTexts().join(" / ").toStdString();
    QFile::setPermissions(folder.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    EXPECT_TRUE(ContentOf("test.MDB") == before);
}

TEST_F(HostileDisk, FullDiskDuringCreationLeavesNoFile)
{
    for (const rlim_t size : {0U, 512U, 4096U, 8192U, 12288U}) {
        shell.boxes.clear();
        ResetProjectData();
        const FullDisk disk(size);
        CreateProjectFile(PathOf("neu.MDB"));
        EXPECT_EQ(shell.boxes.size(), 1U) << size;
        EXPECT_FALSE(QFile::exists(PathOf("neu.MDB"))) << size;
        EXPECT_FALSE(QFile::exists(PathOf("neu.MDB-journal"))) << size;
    }
}

TEST_F(HostileDisk, FullDiskDuringASaveLeavesTheFileAsItWas)
{
    MakeProject();
    App().bProjectOpen = true;
    const QByteArray before = ContentOf("test.MDB");
    App().sDescription = QString(30000, u'x'); // needs new pages
    App().bProjectDirty = true;
    {
        const FullDisk disk(static_cast<rlim_t>(before.size()));
        EXPECT_FALSE(SaveProject());
    }
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("test.MDB")});
    EXPECT_TRUE(App().bProjectDirty);
    EXPECT_TRUE(ContentOf("test.MDB") == before);
    EXPECT_TRUE(SaveProject()) << "with room again the save works";
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(HostileDisk, FullDiskDuringARunLosesNoStoredRow)
{
    MakeProject();
    OpenProjectDb();
    OpenJoinedRecordset();
    qint32 stored = 0;
    {
        const FullDisk disk(static_cast<rlim_t>(ContentOf("test.MDB").size()));
        for (App().MeasuredRow.lSet = 1; App().iFileErrors == 0 && stored < 1000; ++App().MeasuredRow.lSet) {
            if (AppendMeasuredRow())
                ++stored;
        }
    }
    EXPECT_GT(stored, 0);
    EXPECT_LT(stored, 1000);
    App().MeasuredRow.lSet = stored + 1;
    EXPECT_TRUE(AppendMeasuredRow()) << "with room again the run goes on";
    CloseProjectDb();
    EXPECT_EQ(CountSets(), stored + 1);
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(HostileDisk, FullDiskDuringACopyLeavesTheTargetAsItWas)
{
    MakeProject();
    WriteContent("ziel.MDB", "old");
    const FullDisk disk(4096);
    EXPECT_FALSE(CopyFileReplacing(PathOf("test.MDB"), PathOf("ziel.MDB")).isEmpty());
    EXPECT_EQ(ContentOf("ziel.MDB"), "old");
}

TEST_F(HostileDisk, FullDiskDuringSaveAsKeepsTheProjectThatWasToBeReplaced)
{
    MakeProject();
    ASSERT_TRUE(QFile::copy(PathOf("test.MDB"), PathOf("alt.MDB")));
    const QByteArray old = ContentOf("alt.MDB");
    OpenRecentProject(PathOf("test.MDB"));
    shell.answers = {Answer::Yes};
    shell.savePaths = {PathOf("alt.MDB")};
    {
        const FullDisk disk(4096);
        SaveProjectAs();
    }
    EXPECT_EQ(App().sProjectPath, PathOf("test.MDB"));
    EXPECT_TRUE(ContentOf("alt.MDB") == old);
    EXPECT_EQ(QDir(folder.path()).entryList({"alt*"}, QDir::Files), QStringList("alt.MDB")) << "and no draft stays";
    EXPECT_TRUE(shell.boxes.back().text.startsWith("Kann Datei nicht kopieren:"));
}

TEST_F(HostileDisk, FullDiskDuringNewKeepsTheProjectThatWasToBeReplaced)
{
    MakeProject();
    App().sCompany = QStringLiteral("Werk");
    const QByteArray old = ContentOf("test.MDB");
    shell.answers = {Answer::Yes};
    shell.savePaths = {PathOf("test.MDB")};
    {
        const FullDisk disk(4096);
        NewProject();
    }
    EXPECT_TRUE(ContentOf("test.MDB") == old);
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_FALSE(QFile::exists(PathOf("test.MDB.neu")));
    shell.answers = {Answer::Yes};
    shell.savePaths = {PathOf("test.MDB")};
    NewProject();
    EXPECT_TRUE(App().bProjectOpen) << "with room it is replaced";
    EXPECT_EQ(Query("SELECT Text FROM Overview WHERE Name='Company'"), "Ihre Firma");
}

} // namespace
} // namespace korvanel::test

#endif
