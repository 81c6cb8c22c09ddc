// The steps of the model as pure functions: what ends them, and what they leave.
#include "machine/ModelSteps.h"

#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"
#include "support/Machines.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>

namespace korvanel::test {
namespace {

MachineInTheMaking Making(const MachineRecord& record)
{
    MachineInTheMaking machine{record, StatusOf(record), {}};
    ResistanceStep(machine);
    return machine;
}

void ExpectClose(double value, double expected)
{
    EXPECT_NEAR(value, expected, std::abs(expected) * 1e-13);
}

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

struct Fault
{
    const char* what;
    std::function<void(MachineRecord&)> enter;
    ModelMessage message;
};

void ExpectFaults(ModelStepRoutine step, const MachineRecord& good, std::initializer_list<Fault> faults)
{
    for (const Fault& fault : faults) {
        MachineRecord record = good;
        fault.enter(record);
        MachineInTheMaking machine = Making(record);
        EXPECT_EQ(step(machine), fault.message) << fault.what;
        EXPECT_TRUE(IsFinite(machine)) << fault.what;
    }
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

TEST(NoLoadCheck, TellsACurrentOfMoreThanOneAndAHalfTimesTheRatedOne)
{
    MachineRecord record = MotorWithNoLoadData();
    record.Io = 1.5 * *record.I;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None);
    machine.record.Io = 1.51 * *record.I;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::NoLoadBeyondRating);
}

TEST(NoLoadCheck, ComparesWithThePowerFactorThatTheBuildBeforeHasLeft)
{
    MachineInTheMaking machine = Making(MotorWithNoLoadData());
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None) << "nothing was built before";
    machine.model.cosphi_o = 0.898;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None);
    machine.model.cosphi_o = 0.899;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::NoLoadBeyondRating);
    machine.record.cosphi = -0.9;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None) << "the magnitude counts";
}

TEST(NoLoadCheck, WhatIsNotKnownContradictsNothing)
{
    MachineRecord record;
    record.Po = 1;
    MachineInTheMaking machine = Making(record);
    machine.model.cosphi_o = 0.99;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None);
    machine.record.Io = 1e9;
    EXPECT_EQ(NoLoadCheck(machine), ModelMessage::None);
}

TEST(NoLoadStep, OfAMotor)
{
    MachineInTheMaking machine = Making(MotorWithNoLoadData());
    RatingStep(machine);
    EXPECT_EQ(NoLoadStep(machine), ModelMessage::None);
    const MachineModel& m = machine.model;
    EXPECT_NEAR(m.cosphi_o, 0.085, 1e-15);
    EXPECT_NEAR(m.phi_o, 85.123975130387038802, 1e-12); // bc
    EXPECT_EQ(m.n_syn_o, 1500);
    EXPECT_EQ(m.M_RZM_D_o, SpaceVectorTorque(400, 11, 50, m.phi_o, 2, 0.56, StatorConnection::Delta));
    EXPECT_EQ(m.M_RZM_Y_o, SpaceVectorTorque(400, 11, 50, m.phi_o, 2, 0.56, StatorConnection::Star));
    EXPECT_EQ(m.Po_D_o, ShaftPower(m.M_RZM_D_o, 1500));
    EXPECT_EQ(m.Po_Y_o, ShaftPower(m.M_RZM_Y_o, 1500));
}

TEST(NoLoadStep, WithoutRatingDataTakesTheSynchronousSpeedOfTheNoLoadTest)
{
    MachineRecord record = NoLoadDataOnly();
    record.fo = 49;
    MachineInTheMaking machine = Making(record);
    EXPECT_EQ(NoLoadStep(machine), ModelMessage::None);
    EXPECT_EQ(machine.model.n_syn_o, 1470);
    EXPECT_EQ(machine.model.Po_D_o, ShaftPower(machine.model.M_RZM_D_o, 1470));
}

TEST(NoLoadStep, EndsAtItsFirstError)
{
    using R = MachineRecord;
    ExpectFaults(NoLoadStep, NoLoadDataOnly(),
                 {
                     {"power 0", [](R& r) { r.Po = 0; }, ModelMessage::CheckNoLoad},
                     {"voltage 0", [](R& r) { r.Uo = 0; }, ModelMessage::CheckNoLoad},
                     {"current 0", [](R& r) { r.Io = 0; }, ModelMessage::CheckNoLoad},
                     {"no voltage", [](R& r) { r.Uo.reset(); }, ModelMessage::CheckNoLoad},
                     {"no current", [](R& r) { r.Io.reset(); }, ModelMessage::CheckNoLoad},
                     {"no frequency", [](R& r) { r.fo.reset(); }, ModelMessage::CheckNoLoad},
                     {"more active than apparent power", [](R& r) { r.Po = 8000; }, ModelMessage::CheckNoLoad},
                     {"power fed back", [](R& r) { r.Po = -500; }, ModelMessage::CheckNoLoad},
                     {"no pole pairs", [](R& r) { r.Polpaarzahl = 0; }, ModelMessage::CheckRatingAndPolePairs},
                     {"negative pole pairs", [](R& r) { r.Polpaarzahl = -2; }, ModelMessage::CheckRatingAndPolePairs},
                 });
}

TEST(NoLoadStep, WithoutPolePairsLeavesASpeedThatIsNearlyZero)
{
    MachineRecord record = NoLoadDataOnly();
    record.Polpaarzahl = 0;
    MachineInTheMaking machine = Making(record);
    NoLoadStep(machine);
    EXPECT_EQ(machine.model.n_syn_o, 0.000001);
    EXPECT_EQ(machine.model.M_RZM_D_o, 0);
}

TEST(StallStep, IsKloss)
{
    MachineRecord record = Motor();
    record.Mkipp_Mn = 2.5;
    MachineInTheMaking machine = Making(record);
    RatingStep(machine);
    EXPECT_EQ(StallStep(machine), ModelMessage::None);
    ExpectClose(machine.model.Kippschlupf, 0.119782196186948000082350);
    ExpectClose(machine.model.Kippmoment, 2.5 * 120.794520910771844583563);
    machine.record.Mkipp_Mn.reset();
    StallStep(machine);
    EXPECT_EQ(machine.model.Kippmoment, 0);
}

TEST(StallStep, ARatioBelowOneIsNoNumber)
{
    MachineRecord record = Motor();
    record.Mkipp_Mn = 0.5;
    MachineInTheMaking machine = Making(record);
    RatingStep(machine);
    StallStep(machine);
    EXPECT_FALSE(IsFinite(machine));
}

TEST(ThermalStep, FromClassAndMass)
{
    MachineRecord record = Motor();
    record.I_CL = QStringLiteral("F");
    record.Masse = 150;
    MachineInTheMaking machine = Making(record);
    RatingStep(machine);
    EXPECT_EQ(ThermalStep(machine), ModelMessage::None);
    ExpectClose(machine.model.Tth_ICL, 3617.018813014307781889255);
    machine.record.I_CL = QStringLiteral("Z");
    ThermalStep(machine);
    EXPECT_EQ(machine.model.Tth_ICL, 0);
}

TEST(ChoiceStep, TheEnteredTimeConstantPrecedesThatOfTheClass)
{
    MachineRecord record = Motor();
    record.I_CL = QStringLiteral("F");
    record.Masse = 150;
    MachineInTheMaking machine = Making(record);
    machine.model.Tth_ICL = 3600;
    ChoiceStep(machine);
    EXPECT_EQ(machine.model.Tth, 3600);
    machine.record.Tth = 1200;
    ChoiceStep(machine);
    EXPECT_EQ(machine.model.Tth, 1200);
    machine.record.Tth.reset();
    machine.record.Masse.reset();
    ChoiceStep(machine);
    EXPECT_EQ(machine.model.Tth, 0) << "an old value of the class is no value";
}

TEST(FrictionTorque, OfTheNoLoadTestPrecedesThatOfTheRating)
{
    const MachineModel model{.M_RZM_D_o = 1, .M_RZM_Y_o = 2, .Mreib_D_n = 3, .Mreib_Y_n = 4};
    const auto friction = [&](bool hasRating, bool hasNoLoad, const char* connection, bool isZero = false) {
        MachineRecord record;
        if (hasRating)
            record.Pmech = 1;
        if (hasNoLoad)
            record.Po = 1;
        if (connection)
            record.Schaltungsart = QString::fromLatin1(connection);
        record.Mreib = isZero;
        return FrictionTorque(record, model);
    };
    EXPECT_EQ(friction(true, false, "D"), 3);
    EXPECT_EQ(friction(true, false, "Y"), 4);
    EXPECT_EQ(friction(true, true, "D"), 1);
    EXPECT_EQ(friction(true, true, "Y"), 2);
    EXPECT_EQ(friction(false, true, "Y"), 2);
    EXPECT_EQ(friction(false, false, "Y"), 0);
    EXPECT_EQ(friction(true, true, nullptr), 0);
    EXPECT_EQ(friction(true, true, "Z"), 0);
    EXPECT_EQ(friction(true, true, "Y", true), 0) << "forced to zero whatever is known";
}

TEST(StepOf, NumbersWithoutAStepHaveNone)
{
    for (const int code : {1, 2, 3, 4, 5, 6, 7, 8})
        EXPECT_NE(StepOf(code), nullptr) << code;
    for (const int code : {-1, 0, 9, 10, 11, 19, 20, 21})
        EXPECT_EQ(StepOf(code), nullptr) << code;
}

TEST(IsUsable, WithRatingDataOrWithConnectionAndPolePairs)
{
    MachineStatus status{};
    EXPECT_FALSE(IsUsable(status));
    status[kConnectionKnown] = true;
    EXPECT_FALSE(IsUsable(status));
    status[kPolePairsKnown] = true;
    EXPECT_TRUE(IsUsable(status));
    status = {};
    status[kPolePairsKnown] = true;
    EXPECT_FALSE(IsUsable(status));
    status[kRatingKnown] = true;
    EXPECT_TRUE(IsUsable(status));
}

TEST(DiagramLimitsOf, AreFiveOrTenTimesAPowerOfTen)
{
    MachineInTheMaking machine = Making(Motor());
    RatingStep(machine);
    EXPECT_EQ(DiagramLimitsOf(machine), (DiagramLimitList{1000, 100, 50000, 100, 500, 5000}));
}

} // namespace
} // namespace korvanel::test
