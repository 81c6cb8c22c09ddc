// How far the machine is used: each row of the table by a recording that can be worked out by hand.
#include "evaluation/Utilisation.h"

#include "evaluation/EvaluationFixture.h"
#include "machine/Algorithms_ASM_Start.h"

#include <cmath>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr qint32 kGood = 49152;
constexpr qint32 kMedium = 40443;
constexpr qint32 kBad = 192;

class Utilisation : public EvaluationTest
{
protected:
    Utilisation() { SetRoundMachine(); }

    static void ExpectVerdict(const UtilisationEntry& entry, const QString& word, qint32 colour)
    {
        EXPECT_EQ(entry.sVerdict, word);
        EXPECT_EQ(entry.lColour, colour);
    }
    static void ExpectNoShare(const UtilisationEntry& entry)
    {
        EXPECT_FALSE(entry.vRatio.has_value());
        ExpectVerdict(entry, "-", 0);
    }
    /// A set of the round machine at a share of its load.
    static tValueRow Loaded(double load)
    {
        tValueRow row;
        row.dU[kSum] = 400;
        row.df = 50;
        row.dn = 1500;
        row.deta = 0.8;
        row.dI[kSum] = 100 * load;
        row.dM = 100 * load;
        row.dPmech = 10000 * load;
        row.dP[kSum] = 12000 * load;
        return row;
    }
    const UtilisationEntry& MostTorque(std::initializer_list<double> torques)
    {
        return Evaluate(2, Rows(torques, PutM)).tAsm[kMostTorque];
    }
    const UtilisationEntry& Current(double current) { return Evaluate(2, Rows({current}, PutI)).tAsm[kWholeCurrent]; }
};

TEST_F(Utilisation, MostTorque_UpToFourFifthsOfTheStallTorqueIsGood)
{
    ExpectVerdict(MostTorque({0, 160}), "gut", kGood);
    EXPECT_EQ(MostTorque({0, 160}).vRatio, 0.8);
    ExpectVerdict(MostTorque({0, std::nextafter(160, 200)}), "mittel", kMedium);
    ExpectVerdict(MostTorque({0, 200}), "mittel", kMedium);
    EXPECT_EQ(MostTorque({0, 200}).vRatio, 1);
    ExpectVerdict(MostTorque({0, std::nextafter(200, 300)}), "schlecht", kBad);
}

TEST_F(Utilisation, RatedShare_UpToSeventeenTwentiethsIsGood)
{
    ExpectVerdict(Current(85), "gut", kGood);
    EXPECT_EQ(Current(85).vRatio, 0.85);
    ExpectVerdict(Current(85.000001), "mittel", kMedium);
    ExpectVerdict(Current(100), "mittel", kMedium);
    ExpectVerdict(Current(100.000001), "schlecht", kBad);
    EXPECT_EQ(Current(150).vRatio, 1.5);
}

TEST_F(Utilisation, MostTorque_OfABrakingMachineIsTheSmallest)
{
    const UtilisationEntry& entry = MostTorque({50, -170, 120});
    EXPECT_EQ(entry.dValue, 170);
    EXPECT_EQ(entry.dSet, 2);
    EXPECT_EQ(entry.vRatio, 0.85);
}

TEST_F(Utilisation, MostTorque_ATieIsThatOfTheLargest)
{
    const UtilisationEntry& entry = MostTorque({50, -170, 170});
    EXPECT_EQ(entry.dValue, 170);
    EXPECT_EQ(entry.dSet, 3);
}

TEST_F(Utilisation, WindowRows_AreThoseOfTheHeaviestWindow)
{
    const EvaluationResults& results =
        Evaluate(2, {Loaded(0.5), Loaded(0.25), Loaded(1), Loaded(0.75), Loaded(0.5)}, 1, 1);
    const double load = std::sqrt((1 + 0.75 * 0.75) / 2);
    const double mean = (1 + 0.75) / 2;
    EXPECT_DOUBLE_EQ(results.tAsm[kWindowCurrent].dValue, 100 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWindowTorque].dValue, 100 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWindowPower].dValue, 10000 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWindowPowerOfTorque].dValue, 100 * load * 1500 * std::numbers::pi / 30);
    EXPECT_DOUBLE_EQ(results.tAsm[kWindowLoss].dValue, 2000 * mean);
    for (int row = kWindowCurrent; row <= kWindowLoss; ++row)
        EXPECT_EQ(results.tAsm[static_cast<std::size_t>(row)].dSet, 4);
}

TEST_F(Utilisation, WholeRows_AreThoseOfAllSetsWithTheFirst)
{
    const EvaluationResults& results = Evaluate(5, {Loaded(0.5), Loaded(1)}, 1, 0);
    const double load = std::sqrt((0.25 + 1) / 2);
    EXPECT_DOUBLE_EQ(results.tAsm[kWholeCurrent].dValue, 100 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWholeTorque].dValue, 100 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWholePower].dValue, 10000 * load);
    EXPECT_DOUBLE_EQ(results.tAsm[kWholePowerOfTorque].dValue, 100 * load * 1500 * std::numbers::pi / 30);
    EXPECT_DOUBLE_EQ(results.tAsm[kWholeLoss].dValue, 2000 * 0.75);
    for (int row = kWholeCurrent; row <= kWholeLoss; ++row)
        EXPECT_EQ(results.tAsm[static_cast<std::size_t>(row)].dSet, 2);
}

TEST_F(Utilisation, EachRowHasItsRatedValue)
{
    const EvaluationResults& results = Evaluate(2, {Loaded(0.5)});
    const auto share = [&](UtilisationRow row) { return results.tAsm[row].vRatio.value_or(-1); };
    EXPECT_DOUBLE_EQ(share(kMostTorque), 0.25); // of 200 Nm
    for (const UtilisationRow row : {kWindowCurrent, kWindowTorque, kWindowPower, kWindowLoss, kWholeCurrent,
                                     kWholeTorque, kWholePower, kWholeLoss})
        EXPECT_DOUBLE_EQ(share(row), 0.5) << row;
    const double ofTorque = 50 * 1500 * std::numbers::pi / 30 / 10000;
    EXPECT_DOUBLE_EQ(share(kWindowPowerOfTorque), ofTorque);
    EXPECT_DOUBLE_EQ(share(kWholePowerOfTorque), ofTorque);
}

TEST_F(Utilisation, WindowLongerThanTheRecording_GivesTheRowsOfTheWhole)
{
    const EvaluationResults& results = Evaluate(2, {Loaded(0.3), Loaded(-0.7), Loaded(1.1)});
    for (const auto& [window, whole] :
         {std::pair(kWindowCurrent, kWholeCurrent), std::pair(kWindowTorque, kWholeTorque),
          std::pair(kWindowPower, kWholePower), std::pair(kWindowPowerOfTorque, kWholePowerOfTorque),
          std::pair(kWindowLoss, kWholeLoss)}) {
        EXPECT_DOUBLE_EQ(results.tAsm[window].dValue, results.tAsm[whole].dValue);
        EXPECT_EQ(results.tAsm[window].dSet, 3);
        EXPECT_EQ(results.tAsm[window].sVerdict, results.tAsm[whole].sVerdict);
    }
}

TEST_F(Utilisation, SharesOfAGeneratorArePositive)
{
    App().MachineI.record.Pmech = -10000;
    App().MachineI.record.M = -100;
    App().MachineI.model.Pelec_n = -8000;
    const EvaluationResults& results = Evaluate(2, {Loaded(-0.5)});
    for (const UtilisationEntry& entry : results.tAsm)
        EXPECT_GT(entry.vRatio.value_or(-1), 0);
}

TEST_F(Utilisation, WithoutRatedSpeedThePowerOfTheTorqueIs0AndStillHasAShare)
{
    App().MachineI.record.n.reset();
    const EvaluationResults& results = Evaluate(2, {Loaded(1)});
    for (const UtilisationRow row : {kWindowPowerOfTorque, kWholePowerOfTorque}) {
        EXPECT_EQ(results.tAsm[row].dValue, 0);
        EXPECT_EQ(results.tAsm[row].dSet, 0);
        EXPECT_EQ(results.tAsm[row].vRatio, 0);
    }
    EXPECT_EQ(results.tAsm[kWholePower].vRatio, 1);
}

TEST_F(Utilisation, WithoutRatedPowerNoRowHasAShare)
{
    App().MachineI.record.Pmech.reset();
    const EvaluationResults& results = Evaluate(2, {Loaded(1)});
    for (const UtilisationEntry& entry : results.tAsm) {
        ExpectNoShare(entry);
        EXPECT_GT(entry.dValue, 0) << "the figures are formed all the same";
    }
}

TEST_F(Utilisation, WithoutStallRatioTheMostTorqueHasNoShare)
{
    App().MachineI.record.Mkipp_Mn.reset();
    const EvaluationResults& results = Evaluate(2, {Loaded(1)});
    ExpectNoShare(results.tAsm[kMostTorque]);
    EXPECT_EQ(results.tAsm[kMostTorque].dValue, 100);
    EXPECT_EQ(results.tAsm[kWholeTorque].vRatio, 1);
}

TEST_F(Utilisation, WhereARatedValueIsUnknownItsRowsHaveNoShare)
{
    App().MachineI.record.I.reset();
    App().MachineI.record.M.reset();
    const EvaluationResults& results = Evaluate(2, {Loaded(1)});
    for (const UtilisationRow row : {kWindowCurrent, kWholeCurrent, kWindowTorque, kWholeTorque})
        ExpectNoShare(results.tAsm[row]);
    EXPECT_EQ(results.tAsm[kWindowPower].vRatio, 1);
    EXPECT_EQ(results.tAsm[kWindowLoss].vRatio, 1);
}

TEST_F(Utilisation, TorqueOf0ThatTheModelPutsInWithoutARatedSpeedIsNotKnown)
{
    App().MachineI.record.n.reset();
    App().MachineI.record.M = 0;
    App().MachineI.model.Kippmoment = 0;
    const EvaluationResults& results = Evaluate(2, {Loaded(1)});
    for (const UtilisationRow row : {kMostTorque, kWindowTorque, kWholeTorque})
        ExpectNoShare(results.tAsm[row]);
    for (const UtilisationRow row : {kWindowPowerOfTorque, kWholePowerOfTorque}) {
        EXPECT_EQ(results.tAsm[row].dValue, 0);
        EXPECT_EQ(results.tAsm[row].vRatio, 0);
    }
    EXPECT_EQ(results.tAsm[kWindowCurrent].vRatio, 1);
}

TEST_F(Utilisation, ARatedValueOf0EndsInTheGeneralErrorReport)
{
    for (std::optional<double>* value :
         {&App().MachineI.record.I, &App().MachineI.record.M, &App().MachineI.record.Pmech}) {
        SetRoundMachine();
        *value = 0;
        MakeProject(2, {Loaded(1)});
        EXPECT_THROW(EvaluateProject(), ArithmeticFault);
        EXPECT_EQ(App().bEvaluated, 0);
    }
    SetRoundMachine();
    App().MachineI.model.Kippmoment = 0;
    MakeProject(2, {Loaded(1)});
    EXPECT_THROW(EvaluateProject(), ArithmeticFault);
    SetRoundMachine();
    App().MachineI.model.Pelec_n = 10000; // no loss at rated load
    MakeProject(2, {Loaded(1)});
    EXPECT_THROW(EvaluateProject(), ArithmeticFault);
}

TEST_F(Utilisation, ARatedValueOf0NeedsNoFigureToFail)
{
    App().MachineI.record.I = 0;
    for (const std::size_t sets : {0U, 1U}) {
        MakeProject(2, std::vector<tValueRow>(sets));
        EXPECT_THROW(EvaluateProject(), ArithmeticFault) << sets;
    }
}

TEST_F(Utilisation, SetsAreCountedByTheWorstOfTheirRatings)
{
    tValueRow lowVoltage = Loaded(1);
    lowVoltage.dU[kSum] = 361; // 0.9025 of the rated one
    tValueRow tooFast = Loaded(1);
    tooFast.dn = 6000.5;
    tValueRow wrongFrequency = Loaded(1);
    wrongFrequency.df = 47.49;
    wrongFrequency.dU[kSum] = 361;
    tValueRow muchCurrent = Loaded(1);
    muchCurrent.dI[kSum] = 1e9;
    const EvaluationResults& results =
        Evaluate(2, {Loaded(1), lowVoltage, tooFast, wrongFrequency, Loaded(0.5), muchCurrent});
    EXPECT_EQ(results.lRowClassCount, (std::array<qint32, kRatingCount>{0, 3, 1, 2}));
}

TEST_F(Utilisation, WithoutAnyRatedValueThePowerIsWhatMakesSetsBad)
{
    App().MachineI.record = {};
    const EvaluationResults& results = Evaluate(2, {Loaded(0.5), Loaded(1)});
    EXPECT_EQ(results.lRowClassCount, (std::array<qint32, kRatingCount>{0, 0, 0, 2}));
}

TEST_F(Utilisation, WithoutSetsTheFiguresOfTheWholeAre0)
{
    const EvaluationResults& results = Evaluate(2, {});
    for (const UtilisationEntry& entry : results.tAsm) {
        EXPECT_EQ(entry.dValue, 0);
        EXPECT_EQ(entry.vRatio, 0);
    }
    EXPECT_EQ(results.lRowClassCount, (std::array<qint32, kRatingCount>{}));
}

} // namespace
} // namespace korvanel::test
