// Reading, writing, listing and comparing machines, and opening the file that holds them.
#include "motors/MotorDatabase.h"

#include "core/clsProgSettings.h"
#include "support/MotorDbFixture.h"

#include <limits>

namespace korvanel::test {
namespace {

class MotorDatabase : public MotorDbTest
{
protected:
    MotorDatabase() { MakeMotorDb(); }

    QString Numbers() const { return QueryMotors("SELECT group_concat(set_ID, ',') FROM Motor"); }
    QStringList Remarks(const std::optional<MachineFilter>& filter = std::nullopt) const
    {
        TableDb db = OpenFile();
        QStringList remarks;
        for (const MachineLine& line : ListMachines(db, filter))
            remarks << line.record.Hersteller;
        return remarks;
    }
};

void ExpectEqual(const MachineRecord& a, const MachineRecord& b)
{
    EXPECT_EQ(a.Hersteller, b.Hersteller);
    EXPECT_EQ(a.Polpaarzahl, b.Polpaarzahl);
    EXPECT_EQ(a.Pmech, b.Pmech);
    EXPECT_EQ(a.U, b.U);
    EXPECT_EQ(a.M, b.M);
    EXPECT_EQ(a.n, b.n);
    EXPECT_EQ(a.I, b.I);
    EXPECT_EQ(a.f, b.f);
    EXPECT_EQ(a.cosphi, b.cosphi);
    EXPECT_EQ(a.eta, b.eta);
    EXPECT_EQ(a.Po, b.Po);
    EXPECT_EQ(a.Uo, b.Uo);
    EXPECT_EQ(a.Io, b.Io);
    EXPECT_EQ(a.fo, b.fo);
    EXPECT_EQ(a.Schaltungsart, b.Schaltungsart);
    EXPECT_EQ(a.Rs, b.Rs);
    EXPECT_EQ(a.Mkipp_Mn, b.Mkipp_Mn);
    EXPECT_EQ(a.Tth, b.Tth);
    EXPECT_EQ(a.I_CL, b.I_CL);
    EXPECT_EQ(a.Masse, b.Masse);
    EXPECT_EQ(a.Mreib, b.Mreib);
}

TEST_F(MotorDatabase, Write_PutsEveryValueIntoItsColumnInTheUnitOfTheTable)
{
    MachineRecord machine = KnownMachine();
    machine.Mreib = true;
    Add({machine});
    EXPECT_EQ(
        QueryMotors("SELECT set_ID||'|'||Hersteller||'|'||Polpaarzahl||'|'||Pmech||'|'||U||'|'||M||'|'||n||'|'||I"
                    "||'|'||f||'|'||cosphi||'|'||eta||'|'||Po||'|'||Uo||'|'||Io||'|'||fo||'|'||Schaltungsart||'|'"
                    "||Rs||'|'||Mkipp_Mn||'|'||Tth||'|'||I_CL||'|'||Masse||'|'||Mreib FROM Motor"),
        "1|Werk A|2|18.5|400.0|120.8|1462.5|32.85|50.0|0.898|0.9052|0.6478|400.0|11.0|50.0|D|0.56|3.1|30.0|F|180.0|"
        "1");
}

TEST_F(MotorDatabase, Read_GivesBackWhatWasWritten)
{
    Add({KnownMachine(), RatedMachine(), MachineRecord()});
    ExpectEqual(Read(1), KnownMachine());
    ExpectEqual(Read(2), RatedMachine());
    ExpectEqual(Read(3), MachineRecord());
    EXPECT_EQ(Read(3).set_ID, 3);
}

TEST_F(MotorDatabase, Read_OfAMissingRowLeavesTheRecordEmpty)
{
    TableDb db = OpenFile();
    MachineRecord record = KnownMachine();
    record.set_ID = 7;
    ReadMachine(db, 7, record);
    ExpectEqual(record, MachineRecord());
    EXPECT_FALSE(record.set_ID);
}

TEST_F(MotorDatabase, Write_OfANewMachineFillsTheFirstGap)
{
    Add({RatedMachine("1"), RatedMachine("2"), RatedMachine("3"), RatedMachine("4")});
    TableDb db = OpenFile();
    DeleteMachine(db, 2);
    DeleteMachine(db, 3);
    for (const qint32 expected : {2, 3, 5}) {
        MachineRecord machine = RatedMachine();
        WriteMachine(db, machine, true);
        EXPECT_EQ(machine.set_ID, expected);
    }
    EXPECT_EQ(Numbers(), "1,2,3,4,5");
}

TEST_F(MotorDatabase, Write_CountsFromOneWhateverNumbersThereAre)
{
    ExecuteMotors("INSERT INTO Motor(set_ID, Polpaarzahl, Mreib) VALUES (-3,2,0),(0,2,0),(2,2,0)");
    Add({RatedMachine(), RatedMachine()});
    EXPECT_EQ(Numbers(), "-3,0,1,2,3");
}

TEST_F(MotorDatabase, Write_OfANewMachineWithANumberTakesThatOne)
{
    TableDb db = OpenFile();
    MachineRecord machine = RatedMachine();
    machine.set_ID = 9;
    WriteMachine(db, machine, true);
    EXPECT_EQ(Numbers(), "9");
    EXPECT_THROW(WriteMachine(db, machine, true), DbError); // it is taken
    EXPECT_EQ(Numbers(), "9");
}

TEST_F(MotorDatabase, Write_OfAKnownMachineChangesItsRowOnly)
{
    Add({RatedMachine("1"), RatedMachine("2")});
    TableDb db = OpenFile();
    MachineRecord machine = KnownMachine();
    machine.set_ID = 2;
    WriteMachine(db, machine, false);
    ExpectEqual(Read(1), RatedMachine("1"));
    ExpectEqual(Read(2), KnownMachine());
}

TEST_F(MotorDatabase, Write_OverAMissingRowFailsAndAddsNone)
{
    TableDb db = OpenFile();
    MachineRecord machine = KnownMachine();
    EXPECT_THROW(WriteMachine(db, machine, false), DbError);
    machine.set_ID = 4;
    EXPECT_THROW(WriteMachine(db, machine, false), DbError);
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), "0");
}

TEST_F(MotorDatabase, Write_OfWhatCanNotBeStoredLeavesTableAndRecordAsTheyWere)
{
    TableDb db = OpenFile();
    MachineRecord infinite = RatedMachine();
    infinite.U = std::numeric_limits<double>::infinity();
    MachineRecord huge = RatedMachine(QString(200'000, u'x'));
    for (MachineRecord* machine : {&infinite, &huge}) {
        EXPECT_THROW(WriteMachine(db, *machine, true), DbError);
        EXPECT_FALSE(machine->set_ID);
    }
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor"), "0");
}

TEST_F(MotorDatabase, Delete_TakesTheRowOfTheNumberOnly)
{
    Add({RatedMachine("1"), RatedMachine("2"), RatedMachine("3")});
    TableDb db = OpenFile();
    DeleteMachine(db, 2);
    DeleteMachine(db, 77);
    EXPECT_EQ(Numbers(), "1,3");
}

TEST_F(MotorDatabase, TextsAreValuesAndNeverPartsOfAStatement)
{
    const QStringList remarks{"O'Brien & Söhne",
                              "''; DROP TABLE Motor; --",
                              "\"doppelt\" und `schräg`",
                              "100 % _ Last; [Motor]",
                              "#1 ? :name @x $y",
                              "Zeile 1\nZeile 2\tund mehr",
                              QString::fromUtf8("Ω ∆ 電動機 \U0001F600"),
                              "\\"};
    for (const QString& remark : remarks) {
        MachineRecord machine = KnownMachine();
        machine.Hersteller = remark;
        EXPECT_FALSE(HasDuplicate(machine)) << remark.toStdString();
        Add({machine});
        EXPECT_TRUE(HasDuplicate(machine)) << remark.toStdString();
    }
    for (int i = 0; i < remarks.size(); ++i)
        EXPECT_EQ(Read(i + 1).Hersteller, remarks[i]);
    EXPECT_EQ(Numbers(), "1,2,3,4,5,6,7,8");
}

TEST_F(MotorDatabase, ADecimalCommaChangesNoStatement)
{
    const char* former = setlocale(LC_ALL, nullptr);
    const std::string formerName = former ? former : "C";
    for (const char* locale : {"de_DE.UTF-8", "de_DE", "C.UTF-8"}) {
        setlocale(LC_ALL, locale); // not every system has the first two
        App().DecimalChar = u',';
        const QString remark = QLatin1String(locale);
        MachineRecord machine = KnownMachine();
        machine.Hersteller = remark;
        Add({machine});
        EXPECT_TRUE(HasDuplicate(machine)) << locale;
        TableDb db = OpenFile();
        EXPECT_EQ(ListMachines(db, MachineFilter{2, 18.49, 400}).back().record.Pmech, 18500) << locale;
    }
    setlocale(LC_ALL, formerName.c_str());
    EXPECT_EQ(QueryMotors("SELECT count(*) FROM Motor WHERE Pmech=18.5 AND eta=0.9052"), "3");
}

// The list.

TEST_F(MotorDatabase, List_IsInItsFixedOrder)
{
    // Each line is less than the next in the column named, and greater in those that come after it.
    ExecuteMotors("INSERT INTO Motor(Hersteller,Polpaarzahl,U,Pmech,M,n,I,eta,Mreib) VALUES "
                  "('9 Polpaarzahl',3,1,1,1,1,1,1,0),"
                  "('8 U',2,690,1,1,1,1,1,0),"
                  "('7 Pmech',2,400,5,1,1,1,1,0),"
                  "('6 M',2,400,4,9,1,1,1,0),"
                  "('5 n',2,400,4,8,9,1,1,0),"
                  "('4 I',2,400,4,8,8,9,1,0),"
                  "('3 eta',2,400,4,8,8,8,9,0),"
                  "('2 B',2,400,4,8,8,8,8,0),"
                  "('2 A',2,400,4,8,8,8,8,0),"
                  "('0 Null zuerst',2,NULL,4,8,8,8,8,0)");
    EXPECT_EQ(Remarks(), (QStringList{"0 Null zuerst", "2 A", "2 B", "3 eta", "4 I", "5 n", "6 M", "7 Pmech", "8 U",
                                      "9 Polpaarzahl"}));
}

TEST_F(MotorDatabase, List_OfAFilterHasAtLeastThePowerOfAMotor)
{
    ExecuteMotors("INSERT INTO Motor(Hersteller,Polpaarzahl,U,Pmech,Mreib) VALUES ('a',2,400,4,0),('b',2,400,5.5,0),"
                  "('c',2,400,7.5,0),('d',1,400,7.5,0),('e',2,690,7.5,0),('f',2,400,NULL,0),('g',2,400,-7.5,0)");
    EXPECT_EQ(Remarks(MachineFilter{2, 5.5, 400}), (QStringList{"b", "c"}));
    EXPECT_EQ(Remarks(MachineFilter{2, -99, 400}), (QStringList{"g", "a", "b", "c"}));
    EXPECT_EQ(Remarks(MachineFilter{3, 5.5, 400}), QStringList());
}

TEST_F(MotorDatabase, List_OfAFilterHasAtMostThePowerOfAGenerator)
{
    ExecuteMotors("INSERT INTO Motor(Hersteller,Polpaarzahl,U,Pmech,Mreib) VALUES ('a',2,400,-4,0),('b',2,400,-5.5,0),"
                  "('c',2,400,-7.5,0),('d',2,400,7.5,0)");
    EXPECT_EQ(Remarks(MachineFilter{2, -5.5, 400, true}), (QStringList{"c", "b"}));
}

TEST_F(MotorDatabase, List_OfAFilterAsksForNothingThatIsNotThere)
{
    ExecuteMotors(
        "INSERT INTO Motor(Hersteller,Polpaarzahl,U,Pmech,f,Mreib) VALUES ('a',1,400,4,50,0),('b',2,400,5,60,0),"
        "('O''Neill; DROP TABLE Motor',2,690,6,50,0),('g',3,690,-6,60,0)");
    const struct
    {
        MachineFilter filter;
        QStringList found;
    } cases[] = {
        {{}, {"a", "b", "O'Neill; DROP TABLE Motor", "g"}},
        {{.polePairs = 2}, {"b", "O'Neill; DROP TABLE Motor"}},
        {{.Pmech = 5}, {"b", "O'Neill; DROP TABLE Motor"}},
        {{.Pmech = -5, .isGenerator = true}, {"g"}},
        {{.U = 690}, {"O'Neill; DROP TABLE Motor", "g"}},
        {{.f = 60}, {"b", "g"}},
        {{.U = 690, .f = 60}, {"g"}},
        {{.Hersteller = "O'Neill; DROP TABLE Motor"}, {"O'Neill; DROP TABLE Motor"}},
        {{.polePairs = 2, .Pmech = 5, .U = 400, .f = 60, .Hersteller = "b"}, {"b"}},
        {{.polePairs = 2, .Hersteller = "' OR 1=1 --"}, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Remarks(c.filter), c.found) << c.found.join(u' ').toStdString();
}

// The file.

TEST_F(MotorDatabase, Open_HoldsTheFileUntilItIsClosed)
{
    Add({KnownMachine()});
    std::unique_ptr<TableDb> db = OpenMotorDb();
    ASSERT_NE(db, nullptr);
    EXPECT_EQ(ListMachines(*db).size(), 1U);
    CloseMotorDb(db);
    EXPECT_EQ(db, nullptr);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_TRUE(QFile::rename(App().sMotorDbPath, PathOf("moved.MDB")));
}

TEST_F(MotorDatabase, Open_OfAMissingFileTellsItAndAsksForAnother)
{
    const QString present = App().sMotorDbPath;
    App().sMotorDbPath = PathOf("nirgends.MDB");
    EXPECT_EQ(OpenMotorDb(), nullptr); // left without choosing
    EXPECT_EQ(shell.BoxTexts(), QStringList{"Konnte Pfad/Datei nicht finden: \n" + PathOf("nirgends.MDB")});
    EXPECT_EQ(shell.calls, QStringList{"ShowDialog FormH11"});
    EXPECT_FALSE(QFile::exists(PathOf("nirgends.MDB")));

    shell.dialogs[kDialogMotorDatabase] = [&present] {
        App().sMotorDbPath = present;
        return true;
    };
    EXPECT_NE(OpenMotorDb(), nullptr);
    EXPECT_EQ(shell.boxes.size(), 2U);
    EXPECT_EQ(shell.calls.size(), 2);
}

TEST_F(MotorDatabase, Use_IsKeptForLaterStarts)
{
    clsProgSettings settings(folder.path());
    App().ProgSettings = &settings;
    UseMotorDatabase(PathOf("other.MDB"));
    EXPECT_EQ(App().sMotorDbPath, PathOf("other.MDB"));
    EXPECT_EQ(clsProgSettings(folder.path()).MotorDatabase(), PathOf("other.MDB"));
}

} // namespace
} // namespace korvanel::test
