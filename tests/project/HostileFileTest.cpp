// Files that come from a stranger, a broken disk or a full one: each is told, harms nothing and stays as it was.
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "project/ProjectCommands.h"
#include "support/ProjectFixture.h"

#include <limits>

namespace korvanel::test {
namespace {

class HostileFile : public ProjectTest
{
protected:
    /// Opens as the menu does and expects the refusal, with the file as it was.
    void ExpectRefusal(const QString& name)
    {
        const QByteArray before = ContentOf(name);
        shell.boxes.clear();
        OpenRecentProject(PathOf(name));
        EXPECT_EQ(shell.BoxTexts(), QStringList{"Ungültiges Dateiformat:\n" + PathOf(name)});
        EXPECT_FALSE(App().bProjectOpen);
        EXPECT_FALSE(IsProjectDbOpen());
        EXPECT_TRUE(App().iNetConfIndex >= 0 && App().iNetConfIndex < kNetConfCount);
        EXPECT_TRUE(ContentOf(name) == before) << "the file has changed";
    }
    void MakeProject()
    {
        CreateProject(2);
        App().bProjectOpen = false;
    }
};

TEST_F(HostileFile, NoDatabase)
{
    WriteContent("x.MDB", QByteArray(8192, 'x'));
    ExpectRefusal("x.MDB");
}

TEST_F(HostileFile, EmptyFile)
{
    WriteContent("x.MDB", {});
    ExpectRefusal("x.MDB");
}

TEST_F(HostileFile, TruncatedAnywhere)
{
    MakeProject();
    const QByteArray whole = ContentOf("test.MDB");
    for (qsizetype size = 1; size < whole.size() - 4096; size += 997) {
        WriteContent("cut.MDB", whole.left(size));
        ExpectRefusal("cut.MDB");
    }
}

TEST_F(HostileFile, DatabaseWithoutSamples)
{
    MakeProject();
    Execute("DROP TABLE SampledValues");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, ViewInPlaceOfSamples)
{
    MakeProject();
    Execute("ALTER TABLE SampledValues RENAME TO hidden; CREATE VIEW SampledValues AS SELECT * FROM hidden");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, ViewInPlaceOfSettings)
{
    MakeProject();
    Execute("ALTER TABLE Settings RENAME TO hidden; CREATE VIEW Settings AS SELECT * FROM hidden");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, TriggerOnSettings)
{
    MakeProject();
    Execute("CREATE TRIGGER evil AFTER UPDATE ON Settings BEGIN DELETE FROM SampledValues; END");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, ViewOfTheUsersOwnIsNoObstacle)
{
    MakeProject();
    Execute("CREATE VIEW auswertung AS SELECT avg([U sum]) FROM SampledValues");
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(HostileFile, WriteAheadLogOfAnotherProgramIsTakenBackIntoTheFile)
{
    MakeProject();
    {
        SQLite::Database other(PathOf("test.MDB").toStdString(), SQLite::OPEN_READWRITE);
        other.exec("PRAGMA journal_mode=WAL");
        other.exec("UPDATE Overview SET Text='aus dem Protokoll' WHERE Name='Company'");
    }
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_EQ(App().sCompany, "aus dem Protokoll");
    EXPECT_EQ(Query("PRAGMA journal_mode"), "delete");
}

TEST_F(HostileFile, AnotherProjectInPlaceOfTheOpenOneIsNotOverwritten)
{
    CreateProject(5, "fremd.MDB");
    const QByteArray foreign = ContentOf("fremd.MDB");
    clock.now = clock.now.addDays(1);
    CreateProject(0);
    WriteContent("test.MDB", foreign);
    App().bProjectDirty = true;
    EXPECT_FALSE(SaveProject());
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("test.MDB")});
    EXPECT_TRUE(ContentOf("test.MDB") == foreign);
}

TEST_F(HostileFile, HugeIntervalGivesATermAndNoHarm)
{
    for (const char* interval : {"1e300", "-1e300", "0"}) {
        CreateProject(2, QStringLiteral("%1.MDB").arg(QLatin1String(interval)));
        OpenProjectDb();
        for (App().MeasuredRow.lSet = 1; App().MeasuredRow.lSet <= 3; ++App().MeasuredRow.lSet)
            ASSERT_TRUE(AppendMeasuredRow());
        CloseProjectDb();
        Execute(QStringLiteral("UPDATE Overview SET Decimal=%1 WHERE Name='Measurement Interval'")
                    .arg(QLatin1String(interval)));
        const QString path = App().sProjectPath;
        App().bProjectOpen = false;
        OpenRecentProject(path);
        EXPECT_TRUE(App().bProjectOpen) << interval;
        EXPECT_FALSE(App().sMeasurementTerm.isEmpty()) << interval;
    }
}

TEST_F(HostileFile, TriggersNeverFireEvenIfTheyComeLater)
{
    MakeProject();
    OpenProjectDb();
    Execute("CREATE TRIGGER evil AFTER UPDATE ON Settings BEGIN DELETE FROM Overview; END");
    EXPECT_TRUE(SaveProject());
    CloseProjectDb();
    EXPECT_EQ(Query("SELECT count(*) FROM Overview"), "12");
}

TEST_F(HostileFile, MissingKeyTable)
{
    MakeProject();
    Execute("DROP TABLE Overview");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, KeyTableWithOtherColumns)
{
    MakeProject();
    Execute("DROP TABLE Settings; CREATE TABLE Settings (Name TEXT, Wert TEXT)");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, ValuesOfWrongTypeNullOrOutOfRange)
{
    const char* const changes[] = {
        "UPDATE Settings SET Number=99 WHERE Name='iNetConfIndex'",
        "UPDATE Settings SET Number=-1 WHERE Name='iNetConfIndex'",
        "UPDATE Settings SET Number=70000 WHERE Name='iNetConfIndex'",
        "UPDATE Settings SET Number='zwei' WHERE Name='iNetConfIndex'",
        "UPDATE Settings SET Number=2 WHERE Name='iCalcMethod'",
        "UPDATE Settings SET Number=NULL WHERE Name='COM'",
        "UPDATE Settings SET Number=x'0102' WHERE Name='COM'",
        "UPDATE Settings SET Number=9223372036854775807 WHERE Name='COM'",
        "UPDATE Settings SET Number=-1e300 WHERE Name='MODBUS'",
        "UPDATE Settings SET Decimal=9e999 WHERE Name='ScaleEnds 0'",
        "UPDATE Settings SET Decimal='' WHERE Name='dTrigger 1'",
        "UPDATE Settings SET Number=NULL WHERE Name='bASMSim'",
        "UPDATE Overview SET Time='gestern' WHERE Name='Project Created'",
        "UPDATE Overview SET Time='2026-02-30 00:00:00' WHERE Name='Project Created'",
        "UPDATE Overview SET Time=NULL WHERE Name='Measurement End'",
        "UPDATE Overview SET Decimal=NULL WHERE Name='Measurement Interval'",
        "UPDATE Overview SET Text=x'ff00ff' WHERE Name='Project Name'",
    };
    MakeProject();
    const QByteArray whole = ContentOf("test.MDB");
    for (const char* change : changes) {
        SCOPED_TRACE(change);
        WriteContent("test.MDB", whole);
        App().sProjectPath = PathOf("test.MDB");
        Execute(change);
        ExpectRefusal("test.MDB");
    }
}

TEST_F(HostileFile, TextOfTenMegabytes)
{
    MakeProject();
    Execute("UPDATE Overview SET Text=hex(zeroblob(5000000)) WHERE Name='Project Name'");
    ExpectRefusal("test.MDB");
}

TEST_F(HostileFile, RowWithATextOfTenMegabytesIsNotTakenIntoMemory)
{
    MakeProject();
    OpenDbGuarded();
    App().MeasuredRow.lSet = 1;
    ASSERT_TRUE(AppendMeasuredRow());
    CloseDbGuarded();
    Execute("UPDATE ComputedValues SET Method=hex(zeroblob(5000000))");
    OpenDbGuarded();
    EXPECT_FALSE(ReadRow(1));
    CloseDbGuarded();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_LT(App().CurrentRow.sMethod.size(), 100);
}

TEST_F(HostileFile, LongTextThatAUserMayTypeIsKept)
{
    MakeProject();
    App().sDescription = QString(kLongestTypedText, u'€');
    ASSERT_TRUE(SaveProject());
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(App().sDescription.size(), kLongestTypedText);
}

TEST_F(HostileFile, TextWithNullCharactersAndBrokenUtf8OpensWithoutHarm)
{
    MakeProject();
    Execute("UPDATE Overview SET Text=CAST(x'41004200ff' AS TEXT) WHERE Name='Project Name'");
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
    EXPECT_EQ(App().sProjectName.size(), 5);
}

TEST_F(HostileFile, OverwrittenPagesNeverCrash)
{
    MakeProject();
    OpenProjectDb();
    for (App().MeasuredRow.lSet = 1; App().MeasuredRow.lSet <= 200; ++App().MeasuredRow.lSet)
        ASSERT_TRUE(AppendMeasuredRow());
    CloseProjectDb();
    const QByteArray whole = ContentOf("test.MDB");
    for (qsizetype page = 0; page < whole.size() / 4096; ++page) {
        QByteArray damaged = whole;
        for (qsizetype i = page == 0 ? 100 : 0; i < 4096; i += 7)
            damaged[page * 4096 + i] = static_cast<char>(i * 31);
        WriteContent("damaged.MDB", damaged);
        OpenRecentProject(PathOf("damaged.MDB"));
        OpenDbGuarded();
        for (qint32 set = 1; set <= 200; set += 50)
            ReadRow(set);
        CloseDbGuarded();
        EXPECT_TRUE(ContentOf("damaged.MDB") == damaged) << "page " << page;
        App().bProjectOpen = false;
    }
}

TEST_F(HostileFile, DirectoryInPlaceOfAFile)
{
    QDir(folder.path()).mkdir("dir.MDB");
    OpenRecentProject(PathOf("dir.MDB"));
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("dir.MDB")});
}

TEST_F(HostileFile, LockedByAnotherProcess)
{
    MakeProject();
    SQLite::Database other(PathOf("test.MDB").toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    ExpectRefusal("test.MDB");
    other.exec("ROLLBACK");
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
}

TEST_F(HostileFile, NewerVersionIsToldAndOpensAsItStands)
{
    MakeProject();
    Execute("PRAGMA user_version=77; ALTER TABLE SampledValues ADD COLUMN [T oil] REAL");
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_TRUE(App().bProjectOpen);
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_TRUE(shell.boxes[0].text.contains("neueren Programmversion")) << shell.boxes[0].text.toStdString();
    EXPECT_TRUE(SaveProject());
    EXPECT_EQ(Query("PRAGMA user_version"), "77");
}

} // namespace
} // namespace korvanel::test
