// Motor databases that are missing, locked, damaged or something else: each is told and harms nothing.
#include "motors/MotorDatabase.h"

#include "support/MotorDbFixture.h"

#include <sys/stat.h>

namespace korvanel::test {
namespace {

class HostileMotorDb : public MotorDbTest
{
protected:
    /// Not the motor database, in the choice and where it is already set.
    void ExpectRefusal(const QString& path)
    {
        App().sMotorDbPath = path;
        EXPECT_FALSE(IsMotorDatabase(path)) << path.toStdString();
        shell.boxes.clear();
        EXPECT_EQ(OpenMotorDb(), nullptr);
        ASSERT_EQ(shell.boxes.size(), 1U) << path.toStdString();
        EXPECT_TRUE(shell.boxes[0].text.contains(path)) << shell.boxes[0].text.toStdString();
    }
    void InsertRows(const QString& values) const
    {
        ExecuteMotors("INSERT INTO Motor(set_ID,Hersteller,Polpaarzahl,Pmech,U,Mreib) VALUES " + values);
    }
    QStringList Remarks() const
    {
        TableDb db = OpenFile();
        QStringList remarks;
        for (const MachineLine& line : ListMachines(db))
            remarks << line.record.Hersteller;
        return remarks;
    }
};

TEST_F(HostileMotorDb, MissingFile)
{
    ExpectRefusal(PathOf("nirgends.MDB"));
    ExpectRefusal(folder.path());
    ExpectRefusal("");
}

TEST_F(HostileMotorDb, NoDatabase)
{
    WriteContent("x.MDB", QByteArray(8192, 'x'));
    ExpectRefusal(PathOf("x.MDB"));
    EXPECT_EQ(ContentOf("x.MDB"), QByteArray(8192, 'x'));
    WriteContent("leer.MDB", {});
    ExpectRefusal(PathOf("leer.MDB"));
}

TEST_F(HostileMotorDb, TruncatedAnywhere)
{
    constexpr qsizetype kPage = 4096;
    MakeMotorDb();
    Add(std::vector<MachineRecord>(200, RatedMachine(QString(200, u'x'))));
    const QByteArray whole = ContentOf("MOTORS.MDB");
    ASSERT_GT(whole.size(), 10 * kPage);
    for (qsizetype size = 1; size < whole.size() - kPage; size += 1997) {
        WriteContent("cut.MDB", whole.left(size));
        EXPECT_FALSE(IsMotorDatabase(PathOf("cut.MDB"))) << size;
    }
    // Of a page that is cut the engine takes the missing part for zeros; what is left are rows with a number.
    WriteContent("cut.MDB", whole.left(whole.size() - kPage / 2));
    App().sMotorDbPath = PathOf("cut.MDB");
    TableDb db = OpenFile();
    for (const MachineLine& line : ListMachines(db))
        EXPECT_GE(line.set_ID, 1);
}

TEST_F(HostileMotorDb, LockedByAnotherProgram)
{
    MakeMotorDb();
    Add({KnownMachine()});
    SQLite::Database other(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN EXCLUSIVE");
    ExpectRefusal(App().sMotorDbPath);
    EXPECT_TRUE(shell.boxes[0].text.contains("Die Datei wird gerade von einem anderen Programm benutzt"))
        << shell.boxes[0].text.toStdString();
    other.exec("ROLLBACK");
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
}

TEST_F(HostileMotorDb, LockedForWritingCanBeRead)
{
    MakeMotorDb();
    Add({KnownMachine()});
    SQLite::Database other(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    TableDb db = OpenFile();
    EXPECT_EQ(ListMachines(db).size(), 1U);
    MachineRecord machine = RatedMachine();
    EXPECT_THROW(WriteMachine(db, machine, true), DbError);
    EXPECT_FALSE(machine.set_ID);
}

TEST_F(HostileMotorDb, DatabaseWithoutMotors)
{
    MakeMotorDb();
    ExecuteMotors("ALTER TABLE Motor RENAME TO Pumpe");
    ExpectRefusal(App().sMotorDbPath);
}

TEST_F(HostileMotorDb, DatabaseWithoutRowsIsNotChosenButCanBeFilled)
{
    MakeMotorDb();
    EXPECT_FALSE(IsMotorDatabase(App().sMotorDbPath));
    EXPECT_NE(OpenMotorDb(), nullptr);
    Add({KnownMachine()});
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
}

TEST_F(HostileMotorDb, ProjectFileWithMachines)
{
    CreateProject(2);
    CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
    ASSERT_EQ(Query("SELECT count(*) FROM Motor"), "1");
    ExpectRefusal(App().sProjectPath);
    EXPECT_TRUE(shell.boxes[0].text.endsWith("Die ausgewählte Datenbank ist nicht kompatibel."));
}

TEST_F(HostileMotorDb, EachTableOfAProjectMarksOne)
{
    for (const char* table : {"Overview", "OVERVIEW", "sampledvalues", "SampledValues", "settings", "SETTINGS"}) {
        MakeMotorDb(QStringLiteral("%1.MDB").arg(QLatin1String(table)) + (table[1] >= 'a' ? "" : "2"));
        Add({KnownMachine()});
        ASSERT_TRUE(IsMotorDatabase(App().sMotorDbPath));
        ExecuteMotors(QStringLiteral("CREATE TABLE %1 (x)").arg(QLatin1String(table)));
        ExpectRefusal(App().sMotorDbPath);
    }
}

TEST_F(HostileMotorDb, ViewOrTriggerInPlaceOfTheTable)
{
    MakeMotorDb();
    Add({KnownMachine()});
    ExecuteMotors("CREATE TRIGGER evil AFTER INSERT ON Motor BEGIN DELETE FROM Motor; END");
    ExpectRefusal(App().sMotorDbPath);
    ExecuteMotors("DROP TRIGGER evil; ALTER TABLE Motor RENAME TO hidden; CREATE VIEW Motor AS SELECT * FROM hidden");
    ExpectRefusal(App().sMotorDbPath);
}

TEST_F(HostileMotorDb, MissingColumn)
{
    MakeMotorDb();
    Add({KnownMachine()});
    ExecuteMotors("ALTER TABLE Motor DROP COLUMN Mkipp_Mn");
    ExpectRefusal(App().sMotorDbPath);
}

TEST_F(HostileMotorDb, MoreColumnsAreNoObstacle)
{
    MakeMotorDb();
    ExecuteMotors("ALTER TABLE Motor ADD COLUMN Preis REAL");
    Add({KnownMachine()});
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
    EXPECT_EQ(Remarks(), QStringList{"Werk A"});
}

TEST_F(HostileMotorDb, RowsOfOtherTypesAreLeftOutOfTheList)
{
    MakeMotorDb();
    InsertRows("(1,'gut',2,7.5,400,0),"
               "(2,'Text statt Zahl',2,'viel',400,0),"
               "(3,'unendlich',2,9e999,400,0),"
               "(4,'Polpaare',1e9,7.5,400,0),"
               "(-5,'negative Nummer',2,7.5,400,0),"
               "(6,x'00ff',2,7.5,400,0),"
               "(9999999999,'große Nummer',2,7.5,400,0)");
    EXPECT_EQ(Remarks(), QStringList{"gut"});
    TableDb db = OpenFile();
    MachineRecord record;
    for (const qint32 number : {2, 3, 4, 6}) {
        record = KnownMachine();
        EXPECT_THROW(ReadMachine(db, number, record), DbError) << number;
        EXPECT_FALSE(record.Pmech) << number; // nothing half read
    }
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
    ExecuteMotors("DELETE FROM Motor WHERE set_ID=1");
    EXPECT_FALSE(IsMotorDatabase(App().sMotorDbPath)); // no machine is left that can be used
}

TEST_F(HostileMotorDb, KeysThatAreNone)
{
    App().sMotorDbPath = PathOf("keys.MDB");
    {
        SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec(QString(kCreateMotor).replace("set_ID INTEGER PRIMARY KEY", "set_ID").toStdString());
    }
    InsertRows("(NULL,'ohne',2,1,400,0),('1','Text',2,1,400,0),(1.5,'Bruch',2,1,400,0),(1,'eins',2,1,400,0),"
               "(1,'noch einmal',2,2,400,0),(2,'zwei',2,3,400,0),(x'03','Bytes',2,1,400,0)");
    EXPECT_EQ(Remarks(), (QStringList{"eins", "noch einmal", "zwei"}));
    MachineRecord machine = RatedMachine();
    TableDb db = OpenFile();
    WriteMachine(db, machine, true);
    EXPECT_EQ(machine.set_ID, 3);
}

TEST_F(HostileMotorDb, NullsInsideCompleteRatingDataAreRead)
{
    MakeMotorDb();
    InsertRows("(1,'halb',2,7.5,NULL,0)");
    TableDb db = OpenFile();
    MachineRecord record;
    ReadMachine(db, 1, record);
    EXPECT_EQ(record.Pmech, 7500);
    EXPECT_FALSE(record.U);
    EXPECT_EQ(Remarks(), QStringList{"halb"});
}

TEST_F(HostileMotorDb, HugeTextIsRefusedByTheEngine)
{
    MakeMotorDb();
    ExecuteMotors("INSERT INTO Motor(set_ID,Hersteller,Polpaarzahl,Mreib) VALUES (1, hex(zeroblob(5000000)), 2, 0)");
    TableDb db = OpenFile();
    MachineRecord record;
    EXPECT_THROW(ReadMachine(db, 1, record), DbError);
    EXPECT_THROW(ListMachines(db), DbError);
    EXPECT_FALSE(IsMotorDatabase(App().sMotorDbPath));
}

TEST_F(HostileMotorDb, CollationOfAStrangerDoesNotSoftenTheComparison)
{
    App().sMotorDbPath = PathOf("nocase.MDB");
    {
        SQLite::Database db(App().sMotorDbPath.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec(QString(kCreateMotor).replace("Hersteller TEXT", "Hersteller TEXT COLLATE NOCASE").toStdString());
    }
    Add({KnownMachine()});
    TableDb db = OpenFile();
    MachineRecord other = KnownMachine();
    other.Hersteller = "WERK A";
    EXPECT_FALSE(FindDuplicate(db, other, DuplicateScope::Any));
}

TEST_F(HostileMotorDb, PipeDeviceOrVirtualTable)
{
    ASSERT_EQ(mkfifo(PathOf("rohr.MDB").toLocal8Bit().constData(), 0600), 0);
    ExpectRefusal(PathOf("rohr.MDB"));
    ExpectRefusal("/dev/zero");
    MakeMotorDb();
    ExecuteMotors("DROP TABLE Motor; CREATE VIRTUAL TABLE Motor USING fts5(set_ID, Hersteller)");
    ExpectRefusal(App().sMotorDbPath);
}

TEST_F(HostileMotorDb, TwoHundredThousandMachinesAreCountedAndListedWithoutTheirData)
{
    MakeMotorDb();
    ExecuteMotors(
        "WITH RECURSIVE c(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM c WHERE i < 200000) INSERT INTO Motor "
        "(set_ID, Hersteller, Polpaarzahl, Pmech, U, Mreib) SELECT i, hex(zeroblob(50)), 2, i, 400, 0 FROM c");
    EXPECT_TRUE(IsMotorDatabase(App().sMotorDbPath));
    TableDb db = OpenFile();
    EXPECT_EQ(CountMachinesUpTo(db, 2), 2);
    const std::vector<qint32> numbers = ListMachineNumbers(db);
    ASSERT_EQ(numbers.size(), 200000U);
    const std::vector<MachineRecord> machines = ReadMachines(db, std::span(numbers).subspan(150000, 3));
    ASSERT_EQ(machines.size(), 3U);
    EXPECT_EQ(machines[1].Pmech, 150002 * 1000.0);
}

} // namespace
} // namespace korvanel::test
