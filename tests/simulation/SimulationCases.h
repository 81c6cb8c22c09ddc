// A project with a second machine, and sets for it to go through.
#pragma once

#include "simulation/Algorithms_ASM_Simulation.h"
#include "simulation/SimulatedRow.h"
#include "simulation/SimulationFixture.h"

#include <limits>

namespace korvanel::test {

inline constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline tValueRow Set(double M, double U = 400, double f = 50, double t = 0)
{
    tValueRow row;
    row.dM = M;
    row.dU[kSum] = U;
    row.df = f;
    row.dt = t;
    return row;
}

class Simulation : public SimulationTest
{
protected:
    Simulation()
    {
        CreateProject(2);
        App().MachineII.record = SecondMotor();
        App().bASMSim = true;
        App().bModelValid = true;
    }
    void Record(std::vector<tValueRow> rows) { StoreRows(rows); }
    /// Some sets under load, a second apart.
    void RecordSome(int count = 7)
    {
        std::vector<tValueRow> rows;
        for (int i = 0; i < count; ++i)
            rows.push_back(Set(20 + 15 * i % 90, 400 - i % 7, 50 - 0.1 * (i % 3), i));
        StoreRows(rows);
    }
    static SimulatedPoint PointOf(double M, double U, double f)
    {
        EXPECT_TRUE(PrepareMachine2());
        return SimulatedPointAt(SecondMachineOf(App().MachineII.record, App().MachineII.model), M, U, f);
    }
    static std::vector<int> StoredNumbers()
    {
        std::vector<int> numbers;
        for (const StoredSet& set : StoredSets())
            numbers.push_back(set.set);
        return numbers;
    }
    static double LargestSpeed() { return App().MachineII.evaluation.tExtremMax[kN].dValue; }
    void MarkSpeeds(int n) const { Execute(QStringLiteral("UPDATE SimulatedValues SET n=%1").arg(n)); }
};

} // namespace korvanel::test
