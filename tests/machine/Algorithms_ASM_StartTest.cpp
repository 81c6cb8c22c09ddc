// Model and estimation as the rest of the program calls them: on the block, with messages.
#include "machine/Algorithms_ASM_Start.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "machine/Algorithms_ASM_Leistung.h"
#include "machine/Algorithms_ASM_RZM.h"
#include "support/Fixture.h"
#include "support/Machines.h"

#include <functional>
#include <limits>

namespace korvanel::test {
namespace {

class MachineModelTest : public BlockTest
{
protected:
    void Build(const MachineRecord& record)
    {
        App().MachineI.record = record;
        BuildMachineModel();
    }
    /// Builds a machine whose data are wrong, and expects the one message.
    void ExpectMessage(const MachineRecord& record, int number)
    {
        App().MachineI.model = {};
        shell.boxes.clear();
        Build(record);
        EXPECT_EQ(App().ModelErrors, 1);
        ASSERT_EQ(shell.boxes.size(), 1U) << "message " << number;
        EXPECT_EQ(shell.boxes[0].text, ModelMessages(number));
        EXPECT_EQ(shell.boxes[0].icon, BoxIcon::Exclamation);
    }
};

TEST_F(MachineModelTest, Build_MakesResultsOutOfDate)
{
    App().MachineI.record = Motor();
    App().bEvaluated = 1;
    BuildMachineModel();
    EXPECT_EQ(App().bEvaluated, 0);
}

TEST_F(MachineModelTest, ModelMessages_ToTheLetter)
{
    const QString problem = QStringLiteral("Ein Bearbeitungsproblem ist aufgetreten.\n");
    const QString repeat = QStringLiteral("\nWiederholen Sie Messung wenn möglich.");
    EXPECT_EQ(ModelMessages(1), problem + "Bitte prüfen Sie ihre Bemessungsdaten.");
    EXPECT_EQ(ModelMessages(2), problem + "Die Angabe der Nenndrehzahl ist ungültig.");
    EXPECT_EQ(ModelMessages(3), problem + "Bitte prüfen Sie ihre Leerlaufdaten.");
    EXPECT_EQ(ModelMessages(4),
              problem + "Leerlaufdaten überschreiten interne Toleranzen in Bezug auf die Bemessungsdaten.");
    EXPECT_EQ(ModelMessages(5), problem + "Bitte prüfen Sie die Bemessungsdaten und die Angabe der Polpaarzahl.");
    EXPECT_EQ(ModelMessages(6), "Es sind Fehler bei der Leerlaufmessung aufgetreten." + repeat);
    EXPECT_EQ(ModelMessages(7), "Die gemessenen Werte schwankten zu stark." + repeat);
    EXPECT_EQ(ModelMessages(8), problem + "Leerlauffrequenz weicht zu stark von den Nennfrequenz ab.");
    EXPECT_EQ(ModelMessages(0), "");
    EXPECT_EQ(ModelMessages(9), "");
}

TEST_F(MachineModelTest, Build_OfAWholeMachine)
{
    MachineRecord record = MotorWithNoLoadData();
    record.Mkipp_Mn = 2.5;
    record.I_CL = QStringLiteral("F");
    record.Masse = 150;
    Build(record);
    EXPECT_TRUE(shell.boxes.empty());
    EXPECT_EQ(App().ModelErrors, 0);
    EXPECT_TRUE(App().bModelValid);
    EXPECT_EQ(App().MachineI.record.Polpaarzahl, 2);
    EXPECT_GT(App().MachineI.model.Kippmoment, 0);
    EXPECT_GT(App().MachineI.model.Tth, 0);
    EXPECT_EQ(App().MachineI.model.Tth, App().MachineI.model.Tth_ICL);
    EXPECT_EQ(App().MachineI.model.Mreib_rech, App().MachineI.model.M_RZM_D_o);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1);
    EXPECT_EQ(App().DiagramLimits, (DiagramLimitList{1000, 100, 50000, 100, 500, 5000}));
}

TEST_F(MachineModelTest, Build_OfPolePairsAndConnectionAloneIsValid)
{
    MachineRecord record;
    record.Polpaarzahl = 2;
    record.Schaltungsart = QStringLiteral("Y");
    Build(record);
    EXPECT_TRUE(App().bModelValid);
    EXPECT_EQ(App().MachineI.model.Rs_rech, 0.000001);
    EXPECT_EQ(App().MachineI.model.Po_rech, 0);
    EXPECT_EQ(App().MachineI.model.R2, 0);
    EXPECT_EQ(App().DiagramLimits, (DiagramLimitList{500, 10, 50, 100, 50, 5000}));
    for (const double current : {5.0, 50.0}) {
        EstimateLoad(400, current, 50, 3000, 40, 0);
        EXPECT_EQ(App().Estimate.n, 1500) << "without a slope the speed is synchronous";
        EXPECT_GT(App().Estimate.M, 0);
    }
}

TEST_F(MachineModelTest, Build_OfTooLittleIsNotValidButNoError)
{
    App().bModelValid = true;
    Build({});
    EXPECT_FALSE(App().bModelValid);
    EXPECT_EQ(App().ModelErrors, 0);
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineModelTest, Build_TellsEachErrorOnce)
{
    MachineRecord record = Motor();
    record.n = 0;
    ExpectMessage(record, 1);
    record.n = 3100;
    ExpectMessage(record, 2);
    record = NoLoadDataOnly();
    record.Io = 0;
    ExpectMessage(record, 3);
    record = MotorWithNoLoadData();
    record.Io = 60;
    ExpectMessage(record, 4);
    record = MotorWithNoLoadData();
    record.Po = 25000;
    ExpectMessage(record, 4);
    record = NoLoadDataOnly();
    record.Polpaarzahl = 0;
    ExpectMessage(record, 5);
    record = MotorWithNoLoadData();
    record.fo = 53;
    ExpectMessage(record, 8);
}

TEST_F(MachineModelTest, Build_ThatFailsKeepsTheFlagAndWhatItHasFoundSoFar)
{
    for (const bool wasValid : {true, false}) {
        App().bModelValid = wasValid;
        MachineRecord record = MotorWithNoLoadData();
        record.fo = 53;
        App().MachineI.model = {.R2 = 777};
        Build(record);
        EXPECT_EQ(App().bModelValid, wasValid);
        EXPECT_GT(App().MachineI.model.Pelec_n, 0);
        EXPECT_GT(App().MachineI.model.Po_rech, 0);
        EXPECT_EQ(App().MachineI.model.R2, 0) << "every build starts anew";
        EXPECT_EQ(App().MachineI.record.Polpaarzahl, 2);
    }
}

TEST_F(MachineModelTest, Build_ANewProgramComparesTheNoLoadDataWithNothing)
{
    MachineRecord record = MotorWithNoLoadData();
    record.Po = std::sqrt(3.0) * 400 * 11 * 0.95; // a greater factor than that of the rating
    Build(record);
    EXPECT_EQ(App().ModelErrors, 0);
    EXPECT_NEAR(App().MachineI.model.cosphi_o, 0.95, 1e-12);
    Build(record);
    EXPECT_EQ(shell.BoxTexts(), QStringList{ModelMessages(4)}) << "the next build compares with that of the first";
}

TEST_F(MachineModelTest, Build_TheNoLoadFactorOutlastsAMachineWithoutNoLoadData)
{
    Build(MotorWithNoLoadData());
    const double factor = App().MachineI.model.cosphi_o;
    Build(Motor());
    EXPECT_EQ(App().MachineI.model.cosphi_o, factor);
    EXPECT_EQ(App().MachineI.model.phi_o, 0) << "everything else starts at 0";
}

TEST_F(MachineModelTest, Build_AResultThatIsNotFiniteLeavesTheFormerModel)
{
    Build(MotorWithNoLoadData());
    const std::pair<const char*, std::function<void(MachineRecord&)>> faults[] = {
        {"cos phi 1", [](MachineRecord& r) { r.cosphi = 1; }},
        {"stall ratio below 1", [](MachineRecord& r) { r.Mkipp_Mn = 0.5; }},
        {"current beyond all numbers", [](MachineRecord& r) { r.I = 1e308; }},
        {"infinite resistance", [](MachineRecord& r) { r.Rs = std::numeric_limits<double>::infinity(); }},
        {"voltage ratio beyond all powers", [](MachineRecord& r) { r.Uo = 0.01, r.fo = 49; }},
    };
    for (const auto& [what, enter] : faults) {
        MachineRecord record = MotorWithNoLoadData();
        enter(record);
        const double constant = App().MachineI.model.R2;
        const DiagramLimitList limits = App().DiagramLimits;
        shell.boxes.clear();
        App().MachineI.record = record;
        RunGuarded(QStringLiteral("Modell"), BuildMachineModel);
        ASSERT_EQ(shell.boxes.size(), 1U) << what;
        EXPECT_EQ(shell.boxes[0].text, "Modell\nDie Berechnung hat keine endliche Zahl ergeben.") << what;
        EXPECT_EQ(App().MachineI.model.R2, constant) << what;
        EXPECT_EQ(App().DiagramLimits, limits) << what;
        EXPECT_TRUE(App().bModelValid) << what;
        EXPECT_NE(App().ModelErrors, 0) << what;
    }
}

TEST_F(MachineModelTest, ModelStep_RunsOneStepOnTheBlock)
{
    App().MachineI.record = Motor();
    ModelStep(8);
    EXPECT_EQ(App().MachineI.model.Rs_rech, 0.56);
    EXPECT_EQ(App().MachineI.model.R2, 0);
    ModelStep(1);
    EXPECT_GT(App().MachineI.model.R2, 0);
    App().MachineI.model.k_RZM = 0.95;
    ModelStep(6);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1);
}

TEST_F(MachineModelTest, ModelStep_StartsWithoutErrorsAndCountsItsOwn)
{
    App().ModelErrors = 5;
    ModelStep(3);
    EXPECT_EQ(App().ModelErrors, 0) << "a step without anything to do";
    ModelStep(1);
    EXPECT_EQ(App().ModelErrors, 1);
    EXPECT_EQ(shell.BoxTexts(), QStringList{ModelMessages(1)});
}

TEST_F(MachineModelTest, ModelStep_OfANumberWithoutAStepIsAnErrorWithoutAMessage)
{
    for (const int code : {-1, 0, 9, 11, 12, 13, 14, 15, 16, 17, 18, 19, 21, 100}) {
        App().ModelErrors = 0;
        ModelStep(code);
        EXPECT_EQ(App().ModelErrors, 1) << code;
    }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineModelTest, EstimateLoad_KeepsTheSampleAndRunsTheMethod)
{
    Build(Motor());
    const EstimationConstants constants = ConstantsOf(App().MachineI.record, App().MachineI.model);
    const LoadSample sample{398, 20, 49.9, 11000, 35};
    EstimateLoad(398, 20, 49.9, 11000, 35, 0);
    EXPECT_EQ(App().Sample.U, 398);
    EXPECT_EQ(App().Sample.phi, 35);
    EXPECT_EQ(App().SampleLetter, "V");
    EXPECT_EQ(App().Estimate.M, EstimateBySpaceVector(constants, sample).M);
    EstimateLoad(398, 20, 49.9, 11000, 35, 1);
    EXPECT_EQ(App().SampleLetter, "P");
    EXPECT_EQ(App().Estimate.M, EstimateByPowerBalance(constants, sample).M);
    App().Sample.P = 5000;
    ModelStep(10);
    EXPECT_EQ(App().Estimate.M, EstimateByPowerBalance(constants, {398, 20, 49.9, 5000, 35}).M);
    ModelStep(20);
    EXPECT_EQ(App().Estimate.M, EstimateBySpaceVector(constants, {398, 20, 49.9, 5000, 35}).M);
}

TEST_F(MachineModelTest, EstimateLoad_AtTheRatingPointBothMethodsFindTheRatedMachine)
{
    Build(Motor());
    const MachineRecord& r = App().MachineI.record;
    // The power balance begins with the no-load power at synchronous speed, so that a little of the cube is left.
    constexpr double kNear[] = {1e-12, 2e-5};
    for (const int method : {0, 1}) {
        EstimateLoad(*r.U, *r.I, *r.f, App().MachineI.model.Pelec_n, App().MachineI.model.phi_n, method);
        EXPECT_NEAR(App().Estimate.M / *r.M, 1, kNear[method]) << method;
        EXPECT_NEAR(App().Estimate.n / *r.n, 1, kNear[method]) << method;
        EXPECT_NEAR(App().Estimate.Pmech / *r.Pmech, 1, kNear[method]) << method;
        EXPECT_NEAR(App().Estimate.eta / *r.eta, 1, kNear[method]) << method;
    }
}

TEST_F(MachineModelTest, EstimateLoad_WritesTheFactorOfTheSampleIntoTheModel)
{
    MachineRecord record;
    record.Polpaarzahl = 2;
    record.Schaltungsart = QStringLiteral("D");
    Build(record);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1);
    EstimateLoad(400, 20, 50, 11000, 35, 0);
    EXPECT_EQ(App().MachineI.model.k_RZM, 0.95);
    EstimateLoad(400, 20, 50, 0, 89, 0);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1.05);
    EstimateLoad(400, 20, 50, 11000, 35, 1);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1.05) << "the power balance has no factor";
    record.Mreib = true;
    Build(record);
    EstimateLoad(400, 20, 50, 11000, 35, 0);
    EXPECT_EQ(App().MachineI.model.k_RZM, 1) << "a friction torque that is forced to zero is known";
}

TEST_F(MachineModelTest, EstimateLoad_RaisesNoMessageWhateverTheGuards)
{
    Build(Motor());
    for (const int method : {0, 1})
        for (const double zero : {400.0, 0.0})
            for (const double f : {50.0, 0.0}) {
                EstimateLoad(zero, 0, f, 0, 0, method);
                EXPECT_EQ(App().Estimate.eta, 0);
            }
    EXPECT_TRUE(shell.boxes.empty());
}

TEST_F(MachineModelTest, EstimateLoad_AResultThatIsNotFiniteIsAFault)
{
    Build(Motor());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(EstimateLoad(nan, 20, 50, 11000, 35, 0), ArithmeticFault);
    EXPECT_THROW(EstimateLoad(1e6, 20, 500, 11000, 35, 1), ArithmeticFault) << "beyond all powers";
    EXPECT_EQ(App().Estimate.M, 0);
}

TEST_F(MachineModelTest, AdjustCalcMethod_ChangesToTheMethodThatCanBeUsed)
{
    const auto adjusted = [](int method, bool hasRating, bool hasConnection) {
        App().iCalcMethod = static_cast<qint16>(method);
        App().MachineI.status = {};
        App().MachineI.status[kRatingKnown] = hasRating;
        App().MachineI.status[kConnectionKnown] = hasConnection;
        App().bProjectDirty = false;
        AdjustCalcMethod();
        EXPECT_EQ(App().bProjectDirty, App().iCalcMethod != method);
        return App().iCalcMethod;
    };
    EXPECT_EQ(adjusted(0, true, false), 1);
    EXPECT_EQ(adjusted(1, false, true), 0);
    for (const int method : {0, 1}) {
        EXPECT_EQ(adjusted(method, true, true), method);
        EXPECT_EQ(adjusted(method, false, false), method);
    }
    EXPECT_EQ(adjusted(0, false, true), 0);
    EXPECT_EQ(adjusted(1, true, false), 1);
}

} // namespace
} // namespace korvanel::test
