// The machine of a project and the rows that were computed with it stay together, whatever fails.
#include "motors/ProjectMachinesFixture.h"

#include "machine/Algorithms_ASM_Start.h"
#include "support/FullDisk.h"

namespace korvanel::test {
namespace {

// Machine and rows.
class MachineAndRows : public ProjectMachines
{
protected:
    MachineAndRows()
    {
        CreateProject(2);
        CopyMachineIntoProject(KnownMachine(), WhichMachine::I);
        App().MachineI.record = KnownMachine();
        BuildMachineModel();
        OpenDbGuarded();
        for (App().MeasuredRow.lSet = 1; App().MeasuredRow.lSet <= 600; ++App().MeasuredRow.lSet) {
            tMeasuredRow& row = App().MeasuredRow;
            row.dU[0] = 400;
            row.dI[0] = 20;
            row.df = 50;
            row.dP[0] = 9000;
            row.dPhi[0] = 40;
            EXPECT_TRUE(AppendMeasuredRow());
        }
        CloseDbGuarded();
        former = Rows();
    }
    QString Rows() const { return Query("SELECT group_concat(n || ' ' || M || ' ' || Pmech) FROM ComputedValues"); }
    QString Corrected() const { return Query("SELECT count(*) FROM SampledValues WHERE Edit<>0"); }
    QString StoredPower() const { return Query("SELECT Pmech FROM Motor WHERE set_ID=1"); }
    static MachineRecord Other()
    {
        MachineRecord machine = KnownMachine();
        machine.n = 1440;
        machine.Hersteller = "Werk B";
        return machine;
    }
    void ExpectFormer()
    {
        EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=1"), KnownMachine().Hersteller);
        EXPECT_EQ(Rows(), former);
        EXPECT_EQ(Corrected(), "0");
        EXPECT_EQ(App().MachineI.record.Hersteller, KnownMachine().Hersteller);
        EXPECT_TRUE(App().bModelValid);
    }
    void TakeOther()
    {
        App().MachineI.record = Other();
        BuildMachineModel();
    }

    QString former;
};

TEST_F(MachineAndRows, ChangeTogether)
{
    TakeOther();
    EXPECT_TRUE(PassMachineOn());
    EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=1"), "Werk B");
    EXPECT_NE(Rows(), former);
    EXPECT_EQ(Corrected(), "600");
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineAndRows, StayTogetherWhenTheArithmeticFails)
{
    Execute("UPDATE SampledValues SET [P sum]=1e308, [U sum]=1e-300 WHERE [Set]=500");
    former = Rows();
    TakeOther();
    EXPECT_THROW(PassMachineOn(), std::exception);
    ExpectFormer();
}

TEST_F(MachineAndRows, StayTogetherWhenAnotherProgramHoldsTheFile)
{
    TakeOther();
    {
        SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
        other.exec("BEGIN IMMEDIATE");
        EXPECT_FALSE(PassMachineOn());
    }
    ExpectFormer();
    ASSERT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(shell.boxes[0].text,
              "Die Messwerte konnten nicht mit der neuen Maschine berechnet werden. Es bleibt bei der bisherigen "
              "Maschine.\nDie Datei wird gerade von einem anderen Programm benutzt.");
}

TEST_F(MachineAndRows, StayTogetherOnAFullDisk)
{
    TakeOther();
    {
        const FullDisk disk(4096);
        EXPECT_FALSE(PassMachineOn());
    }
    ExpectFormer();
    EXPECT_EQ(shell.boxes.size(), 1U);
    EXPECT_EQ(Query("PRAGMA integrity_check"), "ok");
}

TEST_F(MachineAndRows, MethodGoesBackWithThem)
{
    App().iCalcMethod = 0;
    App().MachineI.record = Other();
    App().MachineI.record.Schaltungsart.reset();
    BuildMachineModel();
    SQLite::Database other(App().sProjectPath.toStdString(), SQLite::OPEN_READWRITE);
    other.exec("BEGIN IMMEDIATE");
    EXPECT_FALSE(PassMachineOn());
    EXPECT_EQ(App().iCalcMethod, 0);
    other.exec("ROLLBACK");
    App().MachineI.record = Other();
    App().MachineI.record.Schaltungsart.reset();
    BuildMachineModel();
    EXPECT_TRUE(PassMachineOn());
    EXPECT_EQ(App().iCalcMethod, 1);
}

TEST_F(MachineAndRows, FollowEachOtherIntoACopy)
{
    TakeOther();
    App().bProjectOpen = true;
    shell.savePaths = {PathOf("Kopie.MDB")};
    SaveProjectAs();
    ASSERT_EQ(App().sProjectPath, PathOf("Kopie.MDB"));
    EXPECT_EQ(Query("SELECT Hersteller FROM Motor WHERE set_ID=1"), "Werk B");
    EXPECT_NE(Rows(), former);
    EXPECT_EQ(QueryFile(PathOf("test.MDB"), "SELECT Hersteller FROM Motor WHERE set_ID=1"), KnownMachine().Hersteller);
}

} // namespace
} // namespace korvanel::test
