// Which machines count as the same.
#include "support/MotorDbFixture.h"

namespace korvanel::test {
namespace {

class MotorDuplicates : public MotorDbTest
{
protected:
    MotorDuplicates() { MakeMotorDb(); }
};

TEST_F(MotorDuplicates, IsAMachineWithAllDataEqual)
{
    Add({KnownMachine()});
    EXPECT_TRUE(HasDuplicate(KnownMachine()));
}

TEST_F(MotorDuplicates, NeedsEveryValueEqual)
{
    using Change = void (*)(MachineRecord&);
    constexpr Change kChanges[] = {
        [](MachineRecord& m) { m.Hersteller = "Werk a"; }, // exactly, upper and lower case apart
        [](MachineRecord& m) { m.Polpaarzahl = 1; },
        [](MachineRecord& m) { m.Pmech = 18501; },
        [](MachineRecord& m) { m.U = 401; },
        [](MachineRecord& m) { m.M = 120.9; },
        [](MachineRecord& m) { m.n = 1462; },
        [](MachineRecord& m) { m.I = 32.86; },
        [](MachineRecord& m) { m.f = 60; },
        [](MachineRecord& m) { m.cosphi = 0.899; },
        [](MachineRecord& m) { m.eta = 0.9053; },
        [](MachineRecord& m) { m.Po = 647.9; },
        [](MachineRecord& m) { m.Uo = 399; },
        [](MachineRecord& m) { m.Io = 11.1; },
        [](MachineRecord& m) { m.fo = 49; },
        [](MachineRecord& m) { m.Schaltungsart = "Y"; },
        [](MachineRecord& m) { m.Rs = 0.57; },
        [](MachineRecord& m) { m.Mkipp_Mn = 3; },
        [](MachineRecord& m) { m.Tth = 1860; },
        [](MachineRecord& m) { m.I_CL = "H"; },
        [](MachineRecord& m) { m.Masse = 181; },
        [](MachineRecord& m) { m.Mreib = true; },
    };
    Add({KnownMachine()});
    int index = 0;
    for (const Change change : kChanges) {
        MachineRecord other = KnownMachine();
        change(other);
        EXPECT_FALSE(HasDuplicate(other)) << index;
        ++index;
    }
}

TEST_F(MotorDuplicates, IsNeverAMachineWithAnythingUnknown)
{
    using Forget = void (*)(MachineRecord&);
    constexpr Forget kForgets[] = {
        [](MachineRecord& m) { m.Pmech.reset(); },    [](MachineRecord& m) { m.U.reset(); },
        [](MachineRecord& m) { m.M.reset(); },        [](MachineRecord& m) { m.n.reset(); },
        [](MachineRecord& m) { m.I.reset(); },        [](MachineRecord& m) { m.f.reset(); },
        [](MachineRecord& m) { m.cosphi.reset(); },   [](MachineRecord& m) { m.eta.reset(); },
        [](MachineRecord& m) { m.Po.reset(); },       [](MachineRecord& m) { m.Uo.reset(); },
        [](MachineRecord& m) { m.Io.reset(); },       [](MachineRecord& m) { m.fo.reset(); },
        [](MachineRecord& m) { m.Rs.reset(); },       [](MachineRecord& m) { m.Schaltungsart.reset(); },
        [](MachineRecord& m) { m.Mkipp_Mn.reset(); }, [](MachineRecord& m) { m.Tth.reset(); },
        [](MachineRecord& m) { m.I_CL = ""; },        [](MachineRecord& m) { m.Masse.reset(); },
    };
    int index = 0;
    for (const Forget forget : kForgets) {
        MachineRecord machine = KnownMachine();
        forget(machine);
        Add({machine});
        EXPECT_FALSE(HasDuplicate(machine)) << index;
        ++index;
    }
}

TEST_F(MotorDuplicates, WithAnEmptyRemarkIsOne)
{
    MachineRecord machine = KnownMachine();
    machine.Hersteller.clear();
    Add({machine});
    EXPECT_TRUE(HasDuplicate(machine));
}

TEST_F(MotorDuplicates, TwoMachinesMayDifferInTheRemarkAlone)
{
    MachineRecord second = KnownMachine();
    second.Hersteller = "Werk A, Ersatzmaschine";
    Add({KnownMachine(), second});
    TableDb db = OpenFile();
    for (const qint32 number : {1, 2}) {
        MachineRecord machine = Read(number);
        EXPECT_FALSE(FindDuplicate(db, machine, DuplicateScope::OthersOnly));
        EXPECT_EQ(machine.set_ID, number);
    }
}

TEST_F(MotorDuplicates, TruthOfAnotherEngineIsTheSame)
{
    MachineRecord machine = KnownMachine();
    machine.Mreib = true;
    Add({machine});
    ExecuteMotors("UPDATE Motor SET Mreib=-1");
    EXPECT_TRUE(HasDuplicate(machine));
    EXPECT_FALSE(HasDuplicate(KnownMachine()));
}

TEST_F(MotorDuplicates, AmongTheOthersLeavesOutTheOwnRow)
{
    Add({KnownMachine()});
    TableDb db = OpenFile();
    MachineRecord machine = KnownMachine();
    machine.set_ID = 1;
    EXPECT_FALSE(FindDuplicate(db, machine, DuplicateScope::OthersOnly));
    machine.set_ID = 2;
    EXPECT_TRUE(FindDuplicate(db, machine, DuplicateScope::OthersOnly));
    EXPECT_EQ(machine.set_ID, 2);
    machine.set_ID.reset();
    EXPECT_TRUE(FindDuplicate(db, machine, DuplicateScope::OthersOnly));
}

TEST_F(MotorDuplicates, InARowLooksAtThatRowOnly)
{
    Add({RatedMachine(), KnownMachine()});
    TableDb db = OpenFile();
    MachineRecord machine = KnownMachine();
    machine.set_ID = 1;
    EXPECT_FALSE(FindDuplicate(db, machine, DuplicateScope::Row, 1));
    EXPECT_TRUE(FindDuplicate(db, machine, DuplicateScope::Row, 2));
    EXPECT_EQ(machine.set_ID, 1);
}

TEST_F(MotorDuplicates, AnywhereGivesItsNumberOrTakesItAway)
{
    Add({RatedMachine(), KnownMachine()});
    TableDb db = OpenFile();
    MachineRecord machine = KnownMachine();
    machine.set_ID = 55;
    EXPECT_TRUE(FindDuplicate(db, machine, DuplicateScope::Any));
    EXPECT_EQ(machine.set_ID, 2);
    machine.U = 690;
    EXPECT_FALSE(FindDuplicate(db, machine, DuplicateScope::Any));
    EXPECT_FALSE(machine.set_ID);
}

} // namespace
} // namespace korvanel::test
