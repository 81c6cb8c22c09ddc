// Energies, their efficiency and their price, by recordings that can be worked out by hand.
#include "evaluation/Energy.h"

#include "evaluation/EvaluationFixture.h"

#include <cmath>

namespace korvanel::test {
namespace {

class Energy : public EvaluationTest
{
protected:
    /// A set with power, reactive power, current, apparent and shaft power.
    static tValueRow Set(double P, double Q, double I, double S, double Pmech)
    {
        tValueRow row;
        row.dP[kSum] = P;
        row.dQ[kSum] = Q;
        row.dI[kSum] = I;
        row.dS[kSum] = S;
        row.dPmech = Pmech;
        return row;
    }
    static void Expect(const EnergyEntry& entry, double plus, double minus, double total)
    {
        EXPECT_EQ(entry.dPlus, plus);
        EXPECT_EQ(entry.dMinus, minus);
        EXPECT_EQ(entry.dTotal, total);
    }
};

TEST_F(Energy, TheFirstSetAddsNothing)
{
    const EvaluationResults& results =
        Evaluate(2, {Set(999, 999, 999, 999, 999), Set(100, 30, 2, 110, 80), Set(200, 40, 3, 220, 170)}, 7);
    Expect(results.tEnergy[kEnergyActive], (100.0 + 200) * 7, 0, (100.0 + 200) * 7);
    Expect(results.tEnergy[kEnergyReactive], (30.0 + 40) * 7, 0, (30.0 + 40) * 7);
    Expect(results.tEnergy[kEnergyCurrent], (2.0 + 3) * 7, 0, (2.0 + 3) * 7);
    Expect(results.tEnergy[kEnergyApparent], (110.0 + 220) * 7, 0, (110.0 + 220) * 7);
    Expect(results.tEnergy[kEnergyMechanical], (80.0 + 170) * 7, 0, (80.0 + 170) * 7);
}

TEST_F(Energy, CurrentApparentAndShaftPowerGoWithTheSignOfTheActivePower)
{
    const EvaluationResults& results =
        Evaluate(2, {{}, Set(100, -5, 2, 110, -80), Set(-200, 6, 3, 220, 170), Set(-10, 0, 1, 11, -9)}, 0.5);
    Expect(results.tEnergy[kEnergyActive], 50, -105, -55);
    Expect(results.tEnergy[kEnergyReactive], 3, -2.5, 0.5);
    Expect(results.tEnergy[kEnergyCurrent], 1, 2, 3);
    Expect(results.tEnergy[kEnergyApparent], 55, 115.5, 170.5);
    Expect(results.tEnergy[kEnergyMechanical], -40, 80.5, 40.5);
}

TEST_F(Energy, WithoutActivePowerOnlyTheTotalsGrow)
{
    const tValueRow set = Set(0, 4, 2, 5, 3);
    const EvaluationResults& results = Evaluate(2, {set, set, set});
    Expect(results.tEnergy[kEnergyActive], 0, 0, 0);
    Expect(results.tEnergy[kEnergyReactive], 8, 0, 8);
    Expect(results.tEnergy[kEnergyCurrent], 0, 0, 4);
    Expect(results.tEnergy[kEnergyApparent], 0, 0, 10);
    Expect(results.tEnergy[kEnergyMechanical], 0, 0, 6);
}

TEST_F(Energy, AGeneratorIsPaid)
{
    const tValueRow set = Set(-3600000, 0, 1, 1, -4000000);
    const EvaluationResults& results = Evaluate(2, {set, set}); // 1 kWh delivered
    Expect(results.tEnergy[kCostsActive], 0, 0.07, -0.07);
}

TEST_F(Energy, CostsAreThatOfWhatIsDrawnLessTheCreditForWhatIsDelivered)
{
    settings->SetEnergyCosts(0, 0.25);
    settings->SetEnergyCosts(1, 0.125);
    const EvaluationResults& results = Evaluate(0, {{}, Set(7200000, 0, 0, 0, 0), Set(-14400000, 0, 0, 0, 0)});
    Expect(results.tEnergy[kCostsActive], 2 * 0.25, 4 * 0.125, 2 * 0.25 - 4 * 0.125);
}

TEST_F(Energy, ReactiveCostsCountTheInductivePartOnly)
{
    settings->SetEnergyCosts(2, 0.5);
    const EvaluationResults& results = Evaluate(0, {{}, Set(0, 3600000, 0, 0, 0), Set(0, -36000000, 0, 0, 0)});
    Expect(results.tEnergy[kEnergyReactive], 3600000, -36000000, -32400000);
    Expect(results.tEnergy[kCostsReactive], 0.5, 0, 0);
}

TEST_F(Energy, NegativePricesCountAsPositiveOnes)
{
    for (std::size_t i = 0; i < 3; ++i)
        settings->SetEnergyCosts(i, -0.5);
    const EvaluationResults& results = Evaluate(0, {{}, Set(3600000, 3600000, 0, 0, 0), Set(-7200000, 0, 0, 0, 0)});
    Expect(results.tEnergy[kCostsActive], 0.5, 1, -0.5);
    Expect(results.tEnergy[kCostsReactive], 0.5, 0, 0);
}

TEST_F(Energy, OneCycleGivesTheSameTwice)
{
    SetRoundMachine();
    settings->SetCycles(1);
    const EvaluationResults& results =
        Evaluate(2, {{}, Set(100, -5, 2, 110, 80), Set(-200, 6, 3, 220, -250), Set(70, 1, 1, 75, 60)}, 60);
    for (std::size_t i = 0; i < kEnergyOfCycles; ++i)
        Expect(results.tEnergy[i + kEnergyOfCycles], results.tEnergy[i].dPlus, results.tEnergy[i].dMinus,
               results.tEnergy[i].dTotal);
    EXPECT_GT(results.tEnergy[kEnergyEfficiency].dPlus, 0);
}

TEST_F(Energy, CyclesMultiplyEnergiesAndCosts)
{
    for (const qint32 cycles : {10, 0, -3}) {
        settings->SetCycles(cycles);
        const EvaluationResults& results = Evaluate(0, {{}, Set(3600000, 7, 2, 110, 0)});
        EXPECT_EQ(results.tEnergy[kEnergyOfCycles + kEnergyActive].dPlus, cycles * 3600000.0);
        EXPECT_EQ(results.tEnergy[kEnergyOfCycles + kEnergyReactive].dTotal, cycles * 7.0);
        EXPECT_EQ(results.tEnergy[kEnergyOfCycles + kEnergyCurrent].dPlus, cycles * 2.0);
        EXPECT_EQ(results.tEnergy[kEnergyOfCycles + kEnergyApparent].dPlus, cycles * 110.0);
        EXPECT_EQ(results.tEnergy[kEnergyOfCycles + kCostsActive].dTotal, cycles * 0.15);
    }
}

TEST_F(Energy, TheEfficiencyOfManyCyclesIsNotMultiplied)
{
    SetRoundMachine();
    const std::vector<tValueRow> rows{{}, Set(1000, 0, 0, 0, 750), Set(-600, 0, 0, 0, -800)};
    for (const qint32 cycles : {10, 0}) {
        settings->SetCycles(cycles);
        const EvaluationResults& results = Evaluate(2, rows);
        Expect(results.tEnergy[kEnergyEfficiency], 0.75, 0.75, 0); // -50 / 400: of opposite sign in total
        if (cycles == 0)                                           // no energy, no ratio
            Expect(results.tEnergy[kEnergyOfCycles + kEnergyEfficiency], 0, 0, 0);
        else
            Expect(results.tEnergy[kEnergyOfCycles + kEnergyEfficiency], 0.75, 0.75, 0);
    }
}

TEST_F(Energy, WithoutAValidMachineThereIsNoEfficiency)
{
    SetRoundMachine();
    App().bModelValid = false;
    const EvaluationResults& results = Evaluate(2, {{}, Set(1000, 0, 0, 0, 750)});
    Expect(results.tEnergy[kEnergyEfficiency], 0, 0, 0);
    Expect(results.tEnergy[kEnergyOfCycles + kEnergyEfficiency], 0, 0, 0);
    EXPECT_EQ(results.tEnergy[kEnergyMechanical].dPlus, 750);
}

TEST_F(Energy, EnergyRatio_IsThatOfAMotorOrOfAGenerator)
{
    EXPECT_EQ(EnergyRatio(3, 4, 0), 0.75);
    EXPECT_EQ(EnergyRatio(-4, -3, 0), 0.75);
    EXPECT_EQ(EnergyRatio(3, -4, 0), 0);
    EXPECT_EQ(EnergyRatio(-3, 4, 0), 0);
    EXPECT_EQ(EnergyRatio(0, 4, 0), 0);
    EXPECT_EQ(EnergyRatio(3, 0, 0), 0);
    EXPECT_EQ(EnergyRatio(0, 0, 0), 0);
    EXPECT_EQ(EnergyRatio(-3, 0, 0), 0);
    EXPECT_EQ(EnergyRatio(5, 4, 0), 1.25) << "a ratio above 1 is not cut";
}

TEST_F(Energy, EnergyRatio_OfAMotorNeedsMoreThanTheLeastElectricalEnergy)
{
    EXPECT_EQ(EnergyRatio(3, 4, 3.9), 0.75);
    EXPECT_EQ(EnergyRatio(3, 4, 4), 0);
    EXPECT_EQ(EnergyRatio(3, 4, 5), 0);
    EXPECT_EQ(EnergyRatio(3, -4, -5), -0.75);
    EXPECT_EQ(EnergyRatio(-4, -3, 5), 0.75) << "that of a generator doesn't";
}

} // namespace
} // namespace korvanel::test
