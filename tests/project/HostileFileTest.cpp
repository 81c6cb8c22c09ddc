// Files that come from a stranger, a broken disk or a full one: each is told, harms nothing and stays as it was.
#include "data/FileManaging.h"
#include "data/ValueTables.h"
#include "project/ProjectCommands.h"
#include "support/ProjectFixture.h"

#include <QDir>

#include <sys/stat.h>

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
    OpenRecentProject(PathOf("test.MDB"));
    EXPECT_FALSE(App().bProjectOpen);
    EXPECT_EQ(shell.BoxTexts(),
              QStringList("Die Datei wird gerade von einem anderen Programm benutzt:\n" + PathOf("test.MDB")));
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

// What lies beside the file, or is none.

TEST_F(HostileFile, JournalThatNamesAnotherFileIsRefusedBeforeTheEngineSeesIt)
{
    MakeProject();
    WriteContent("victim.txt", "mine");
    // As the engine ends the journal of a transaction over two databases: page, name, length, sum and mark.
    const QByteArray name = PathOf("victim.txt").toLocal8Bit();
    QByteArray record(4, '\0');
    record += name;
    const auto bigEndian = [](quint32 number) {
        QByteArray bytes;
        for (int shift = 24; shift >= 0; shift -= 8)
            bytes += static_cast<char>(number >> shift & 0xFF);
        return bytes;
    };
    quint32 sum = 0;
    for (const char c : name)
        sum += static_cast<quint32>(static_cast<signed char>(c));
    record += bigEndian(static_cast<quint32>(name.size())) + bigEndian(sum) + QByteArray::fromHex("d9d505f920a163d7");
    WriteContent("test.MDB-journal", QByteArray::fromHex("d9d505f920a163d7") + QByteArray(504, '\0') + record);
    const QByteArray journal = ContentOf("test.MDB-journal");
    ExpectRefusal("test.MDB");
    EXPECT_EQ(ContentOf("victim.txt"), "mine");
    EXPECT_TRUE(ContentOf("test.MDB-journal") == journal);
}

TEST_F(HostileFile, JournalThatIsALinkAPipeOrAFolderIsRefused)
{
    MakeProject();
    WriteContent("victim.txt", "mine");
    for (const char* ending : {"-journal", "-wal", "-shm"}) {
        const QString beside = PathOf("test.MDB") + ending;
        ASSERT_TRUE(QFile::link(PathOf("victim.txt"), beside));
        ExpectRefusal("test.MDB");
        QFile::remove(beside);
        ASSERT_TRUE(QFile::link(PathOf("nowhere"), beside));
        ExpectRefusal("test.MDB");
        QFile::remove(beside);
        ASSERT_EQ(mkfifo(beside.toLocal8Bit().constData(), 0600), 0);
        ExpectRefusal("test.MDB");
        QFile::remove(beside);
        ASSERT_TRUE(QDir().mkdir(beside));
        ExpectRefusal("test.MDB");
        QDir().rmdir(beside);
    }
    EXPECT_EQ(ContentOf("victim.txt"), "mine");
}

TEST_F(HostileFile, JournalBesideTheFileThatALinkLeadsToCountsToo)
{
    MakeProject();
    ASSERT_TRUE(QFile::link(PathOf("test.MDB"), PathOf("link.MDB")));
    ASSERT_TRUE(QFile::link(PathOf("nowhere"), PathOf("test.MDB-journal")));
    OpenRecentProject(PathOf("link.MDB"));
    EXPECT_FALSE(App().bProjectOpen);
    QFile::remove(PathOf("test.MDB-journal"));
    OpenRecentProject(PathOf("link.MDB"));
    EXPECT_TRUE(App().bProjectOpen) << "a link of the user's own is no harm";
}

TEST_F(HostileFile, WhatIsNoOrdinaryFileIsNotOpenedAtAll)
{
    ASSERT_EQ(mkfifo(PathOf("pipe.MDB").toLocal8Bit().constData(), 0600), 0);
    ASSERT_TRUE(QDir().mkdir(PathOf("folder.MDB")));
    for (const QString& path : {PathOf("pipe.MDB"), PathOf("folder.MDB"), QStringLiteral("/dev/zero"), QString()})
        EXPECT_THROW(TableDb::Open(path), DbError) << path.toStdString();
    EXPECT_THROW(TableDb::Create(QString(), 1, 1), DbError);
    EXPECT_FALSE(QFile::exists("-journal"));
}

// Tables that only look like the program's own.

TEST_F(HostileFile, VirtualTableInPlaceOfSamples)
{
    for (const char* words : {"CREATE VIRTUAL TABLE", "CREATE/**/VIRTUAL TABLE", "create  virtual table"}) {
        MakeProject();
        Execute("DROP TABLE SampledValues; CREATE VIRTUAL TABLE SampledValues USING fts5([Set], t)");
        Execute(QStringLiteral("PRAGMA writable_schema=ON; UPDATE sqlite_schema SET sql='%1 SampledValues USING "
                               "fts5([Set], t)' WHERE name='SampledValues'; PRAGMA writable_schema=OFF")
                    .arg(QLatin1String(words)));
        OpenRecentProject(PathOf("test.MDB"));
        EXPECT_FALSE(App().bProjectOpen) << words;
        EXPECT_EQ(shell.boxes.back().text, "Ungültiges Dateiformat:\n" + PathOf("test.MDB"));
        QFile::remove(PathOf("test.MDB"));
    }
}

TEST_F(HostileFile, ValueTablesWithoutAUniqueSet)
{
    for (const char* table : {"SampledValues", "ComputedValues"}) {
        MakeProject();
        Execute(QStringLiteral("CREATE TABLE copy AS SELECT * FROM %1; DROP TABLE %1; ALTER TABLE copy RENAME TO %1")
                    .arg(QLatin1String(table)));
        for (int i = 0; i < 3; ++i)
            Execute(QStringLiteral("INSERT INTO %1([Set]) VALUES(1)").arg(QLatin1String(table)));
        ExpectRefusal("test.MDB");
        Execute(QStringLiteral("DELETE FROM %1; CREATE UNIQUE INDEX key_of_%1 ON %1([Set])").arg(QLatin1String(table)));
        OpenRecentProject(PathOf("test.MDB"));
        EXPECT_TRUE(App().bProjectOpen) << "an index is as good as a key";
        App().bProjectOpen = false;
        QFile::remove(PathOf("test.MDB"));
    }
}

TEST_F(HostileFile, KeyOverTwoColumnsOrOverAPartIsNoUniqueSet)
{
    for (const char* key : {"CREATE UNIQUE INDEX k ON SampledValues([Set], t)",
                            "CREATE UNIQUE INDEX k ON SampledValues([Set]) WHERE t > 5"}) {
        MakeProject();
        Execute("CREATE TABLE copy AS SELECT * FROM SampledValues; DROP TABLE SampledValues; "
                "ALTER TABLE copy RENAME TO SampledValues");
        Execute(QLatin1String(key));
        ExpectRefusal("test.MDB");
        QFile::remove(PathOf("test.MDB"));
    }
}

TEST_F(HostileFile, VirtualTableInPlaceOfAnyOther)
{
    for (const char* table : {"Overview", "Settings", "ComputedValues", "SimulatedValues", "Motor"}) {
        MakeProject();
        Execute(QStringLiteral("DROP TABLE IF EXISTS %1; CREATE VIRTUAL TABLE %1 USING fts5(Name)")
                    .arg(QLatin1String(table)));
        ExpectRefusal("test.MDB");
        QFile::remove(PathOf("test.MDB"));
    }
}

TEST_F(HostileFile, ComputedColumn)
{
    MakeProject();
    Execute("ALTER TABLE SampledValues ADD COLUMN slow AS (hex(zeroblob(1000000)) LIKE '%1%1%1%')");
    ExpectRefusal("test.MDB");
}

} // namespace
} // namespace korvanel::test
