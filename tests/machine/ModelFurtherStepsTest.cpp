// The steps of the model beside that of the rating: no-load test, stall, thermal time constant, friction, limits.
#include "machine/ModelStepsFixture.h"

#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"

#include <functional>

namespace korvanel::test {
namespace {

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
