// The steps of the model as pure functions: what ends them, and what they leave.
#include "machine/ModelStepsFixture.h"

#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"

#include <cmath>
#include <functional>

namespace korvanel::test {
namespace {

TEST(StatusOf, EachPieceOfKnowledgeIsAFieldOfItsOwn)
{
    EXPECT_EQ(StatusOf({}), MachineStatus{});
    const std::pair<MachineKnowledge, std::function<void(MachineRecord&)>> pieces[] = {
        {kRatingKnown, [](MachineRecord& r) { r.Pmech = 0; }},
        {kNoLoadKnown, [](MachineRecord& r) { r.Po = 0; }},
        {kPolePairsKnown, [](MachineRecord& r) { r.Polpaarzahl = 1; }},
        {kConnectionKnown, [](MachineRecord& r) { r.Schaltungsart = QStringLiteral("Y"); }},
        {kRsKnown, [](MachineRecord& r) { r.Rs = 0; }},
        {kStallRatioKnown, [](MachineRecord& r) { r.Mkipp_Mn = 0; }},
        {kTimeConstantKnown, [](MachineRecord& r) { r.Tth = 0; }},
        {kInsulationClassKnown, [](MachineRecord& r) { r.I_CL = QStringLiteral("F"); }},
        {kMassKnown, [](MachineRecord& r) { r.Masse = 0; }},
    };
    for (const auto& [piece, enter] : pieces) {
        MachineRecord record;
        enter(record);
        MachineStatus expected{};
        expected[piece] = true;
        EXPECT_EQ(StatusOf(record), expected) << piece;
    }
}

TEST(StatusOf, AnEmptyTextIsNotKnownAndNoPolePairsAreNone)
{
    MachineRecord record;
    record.Schaltungsart = record.I_CL = QString();
    for (const qint16 pairs : {qint16{0}, qint16{-1}}) {
        record.Polpaarzahl = pairs;
        EXPECT_EQ(StatusOf(record), MachineStatus{});
    }
}

TEST(ResistanceStep, TakesTheEnteredOneThenTheFitThenNearlyNothing)
{
    MachineRecord record = Motor();
    EXPECT_EQ(Making(record).model.Rs_rech, 0.56);
    ExpectClose(Making(record).model.Rs_polynom, 0.327038987561670298105428); // bc
    record.Rs.reset();
    EXPECT_EQ(Making(record).model.Rs_rech, Making(record).model.Rs_polynom);
    record.Pmech.reset();
    EXPECT_EQ(Making(record).model.Rs_rech, 0.000001);
    EXPECT_EQ(Making(record).model.Rs_polynom, 0);
    record.Pmech = 0;
    EXPECT_EQ(Making(record).model.Rs_rech, 0);
}

TEST(RatingStep, OfAMotorWithoutNoLoadData)
{
    MachineRecord record = Motor();
    record.M = 999;
    record.eta = 999;
    record.Polpaarzahl = 7;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
    // From bc.
    ExpectClose(*machine.record.M, 120.794520910771844583563);
    ExpectClose(*machine.record.eta, 0.905189273983456950115);
    EXPECT_EQ(machine.record.Polpaarzahl, 2);
    ExpectClose(machine.model.Pelec_n, 20437.714555086632777981);
    EXPECT_EQ(machine.model.n_syn_n, 1500);
    ExpectClose(machine.model.Nennschlupf, 0.025);
    ExpectClose(machine.model.phi_n, 26.103591118375955562752);
    ExpectClose(machine.model.Po_regress, 1507.528394610211408223);
    ExpectClose(machine.model.Po_polynom, 1017.3467035625);
    EXPECT_EQ(machine.model.Po_rech, machine.model.Po_polynom);
    ExpectClose(machine.model.k_maschine, 0.068175975767673770011);
    ExpectClose(machine.model.R2, 1.324563389081102014054);
}

TEST(RatingStep, FrictionIsTheSpaceVectorTorqueBeyondTheRatedOne)
{
    MachineInTheMaking machine = Making(Motor());
    RatingStep(machine);
    const MachineModel& m = machine.model;
    const double star = SpaceVectorTorque(400, 32.85, 50, m.phi_n, 2, 0.56, StatorConnection::Star);
    const double delta = SpaceVectorTorque(400, 32.85, 50, m.phi_n, 2, 0.56, StatorConnection::Delta);
    EXPECT_EQ(m.M_RZM_Y_n, star);
    EXPECT_EQ(m.M_RZM_D_n, delta);
    EXPECT_EQ(m.Mreib_Y_n, star - *machine.record.M);
    EXPECT_EQ(m.Mreib_D_n, delta - *machine.record.M);
    EXPECT_EQ(m.Po_Y_n, ShaftPower(m.Mreib_Y_n, 1500));
    EXPECT_EQ(m.Po_D_n, ShaftPower(m.Mreib_D_n, 1500));
    EXPECT_EQ(m.Po_RZM, (m.Po_D_n + m.Po_Y_n) / 2);
}

TEST(RatingStep, PolePairsFollowFromTheSpeedAlsoForAGenerator)
{
    MachineRecord record = Motor();
    record.n = 1470;
    MachineInTheMaking motor = Making(record);
    EXPECT_EQ(RatingStep(motor), ModelMessage::None);
    EXPECT_EQ(motor.record.Polpaarzahl, 2);
    MachineInTheMaking generator = Making(Generator());
    EXPECT_EQ(*generator.record.n, 1530);
    EXPECT_EQ(RatingStep(generator), ModelMessage::None);
    EXPECT_EQ(generator.record.Polpaarzahl, 2);
    EXPECT_LT(*generator.record.M, 0);
    EXPECT_LT(generator.model.Nennschlupf, 0);
}

TEST(RatingStep, ASmallMachineBelowTheFitTakesTheRegression)
{
    MachineRecord record = Motor();
    record.Pmech = 90;
    record.n = 2800;
    record.I = 0.3;
    record.cosphi = 0.8;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
    EXPECT_EQ(machine.record.Polpaarzahl, 1);
    EXPECT_EQ(machine.model.Po_polynom, 0);
    EXPECT_GT(machine.model.Po_regress, 0);
    EXPECT_EQ(machine.model.Po_rech, machine.model.Po_regress);
}

TEST(RatingStep, ANoLoadPowerWithoutRoomForLoadLossesIsDropped)
{
    MachineRecord record = Motor();
    record.Pmech = 20000; // of 20438 W drawn; the fit says that more than 1 kW is lost without load
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
    EXPECT_GT(machine.model.Po_polynom, 1000);
    EXPECT_EQ(machine.model.Po_rech, 0);
    const double M = *machine.record.M;
    ExpectClose(machine.model.k_maschine, (machine.model.Pelec_n - 20000) / (M * M));
}

TEST(RatingStep, NoLoadDataAreCarriedToTheRatedPoint)
{
    MachineRecord record = MotorWithNoLoadData();
    record.Uo = 380;
    record.fo = 49;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
    EXPECT_EQ(machine.model.Po_rech, NoLoadPowerAt(*record.Po, 400, 380, 50, 49));
}

TEST(RatingStep, EndsAtItsFirstError)
{
    using R = MachineRecord;
    ExpectFaults(RatingStep, MotorWithNoLoadData(),
                 {
                     {"no speed", [](R& r) { r.n.reset(); }, ModelMessage::CheckRating},
                     {"speed 0", [](R& r) { r.n = 0; }, ModelMessage::CheckRating},
                     {"power 0", [](R& r) { r.Pmech = 0; }, ModelMessage::CheckRating},
                     {"frequency 0", [](R& r) { r.f = 0; }, ModelMessage::CheckRating},
                     {"no voltage", [](R& r) { r.U.reset(); }, ModelMessage::CheckRating},
                     {"no current", [](R& r) { r.I.reset(); }, ModelMessage::CheckRating},
                     {"no frequency", [](R& r) { r.f.reset(); }, ModelMessage::CheckRating},
                     {"no power factor", [](R& r) { r.cosphi.reset(); }, ModelMessage::CheckRating},
                     {"a motor above 3000 rpm", [](R& r) { r.n = 3100; }, ModelMessage::InvalidSpeed},
                     {"more than 10 pole pairs", [](R& r) { r.n = 250; }, ModelMessage::InvalidSpeed},
                     {"far too slow", [](R& r) { r.n = 1e-9; }, ModelMessage::InvalidSpeed},
                     {"far too slow backwards", [](R& r) { r.n = -1e-9; }, ModelMessage::InvalidSpeed},
                     {"no slip", [](R& r) { r.n = 1500; }, ModelMessage::CheckRating},
                     {"no-load power too great", [](R& r) { r.Po = 25000; }, ModelMessage::NoLoadBeyondRating},
                     {"no-load frequency 6 % off", [](R& r) { r.fo = 53; }, ModelMessage::NoLoadFrequency},
                 });
}

TEST(RatingStep, AHalfOfSlipIsTooMuch)
{
    MachineRecord generator = Generator();
    generator.n = 2250; // 1500 (1 + 0.5)
    MachineInTheMaking machine = Making(generator);
    EXPECT_EQ(RatingStep(machine), ModelMessage::CheckRating);
    EXPECT_EQ(machine.model.Nennschlupf, 0);
    generator.n = 2249;
    machine = Making(generator);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
}

TEST(RatingStep, AFailedSpeedLeavesNoPolePairsAndTheErrorOfTheNoLoadPowerLeavesThatPower)
{
    MachineRecord record = MotorWithNoLoadData();
    record.n = 3100;
    MachineInTheMaking machine = Making(record);
    RatingStep(machine);
    EXPECT_EQ(machine.record.Polpaarzahl, 0);
    record = MotorWithNoLoadData();
    record.Po = 25000;
    machine = Making(record);
    RatingStep(machine);
    EXPECT_EQ(machine.model.Po_rech, 25000);
    EXPECT_EQ(machine.model.k_maschine, 0) << "the step ended before";
}

TEST(RatingStep, TheNoLoadFrequencyMayDifferByATwentieth)
{
    MachineRecord record = MotorWithNoLoadData();
    record.fo = 52.5;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(RatingStep(machine), ModelMessage::None);
}

TEST(RatingStep, APowerFactorOfOneIsNoNumber)
{
    for (const double cosphi : {1.0, 1.2}) {
        MachineRecord record = Motor();
        record.cosphi = cosphi;
        MachineInTheMaking machine = Making(record);
        RatingStep(machine);
        EXPECT_FALSE(IsFinite(machine)) << cosphi;
    }
}

} // namespace
} // namespace korvanel::test
