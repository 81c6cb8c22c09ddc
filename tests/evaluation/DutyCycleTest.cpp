// A measured motor through an hour of a duty cycle: its samples on the way of a run, the load estimated by the program,
// the stored sets evaluated. The expected figures were formed by independent_evaluation.py from the sets in the file.
#include "data/ComputedQuantities.h"
#include "data/FileManaging.h"
#include "evaluation/EvaluationFixture.h"
#include "evaluation/ExpectedEvaluation.h"
#include "machine/Algorithms_ASM_Start.h"
#include "support/Machines.h"
#include "support/TestPaths.h"

#include <QFile>

#include <array>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <numbers>

namespace korvanel::test {
namespace {

constexpr int kSets = 3600;

/// Points of the measured load curve of the motor: see RealMotorTest.cpp, which has its origin.
struct Point
{
    double P2; ///< W at the shaft
    double I;  ///< A
    double cosphi;
};
constexpr std::array<Point, 12> kCurve{{
    {1845, 11.20, 0.327},
    {3549, 12.27, 0.506},
    {5325, 13.87, 0.636},
    {7521, 16.41, 0.741},
    {9372, 18.78, 0.797},
    {11010, 21.07, 0.831},
    {12930, 23.92, 0.857},
    {14950, 27.05, 0.875},
    {16360, 29.40, 0.887},
    {18500, 32.85, 0.896},
    {20180, 35.92, 0.902},
    {22170, 39.35, 0.906},
}};

/// A cycle of six minutes: start with overload, working strokes, idling, and lowering a load, when the machine feeds
/// back. A small disturbance repeats with a period of its own.
const Point& PointAt(int set)
{
    static constexpr std::array<std::size_t, 12> kSteps{11, 10, 9, 4, 8, 2, 9, 0, 5, 7, 1, 3};
    const auto step = static_cast<std::size_t>(set / 30) % kSteps.size();
    const std::size_t disturbance = set % 7 == 3 ? 1 : 0;
    return kCurve[std::min(kSteps[step] + disturbance, kCurve.size() - 1)];
}

bool IsFeedingBack(int set)
{
    return set / 30 % 12 == 8;
}

/// Shaft power of the curve while the machine drives, W.
double ShaftPower(int set)
{
    return PointAt(set).P2;
}

void FillSample(tMeasuredRow& row, int set)
{
    const Point& point = PointAt(set);
    const double U = 396 + set % 9;
    const double P = std::numbers::sqrt3 * U * point.I * point.cosphi * (IsFeedingBack(set) ? -1 : 1);
    const DerivedQuantities derived = DeriveQuantities(U, point.I, P, 0, true);
    row.lSet = set;
    row.dt = set - 1;
    row.dU[kSum] = U;
    row.dI[kSum] = point.I;
    row.df = 49.9 + 0.01 * (set % 20);
    row.dP[kSum] = P;
    row.dS[kSum] = derived.S;
    row.dQ[kSum] = derived.Q;
    row.dCosPhi[kSum] = derived.cosPhi;
    row.dPhi[kSum] = derived.phi;
}

class DutyCycle : public EvaluationTest
{
protected:
    void RecordCycle(int method)
    {
        CreateProject(2);
        App().iCalcMethod = static_cast<qint16>(method);
        App().MachineI.record = MotorWithNoLoadData();
        App().MachineI.record.Mkipp_Mn = 2.4;
        App().MachineI.record.Tth = 1200;
        BuildMachineModel();
        ASSERT_TRUE(App().bModelValid);
        settings->SetTWindowSelection(1);
        settings->SetTWindowFactor(0.5);
        const ProjectDbScope scope;
        DbTransaction transaction(ProjectDb()); // one for all: the disk is not what is tested
        ResetEnergies();
        App().MeasuredRow = {};
        for (int set = 1; set <= kSets; ++set) {
            FillSample(App().MeasuredRow, set);
            ASSERT_TRUE(AppendMeasuredRow());
        }
        transaction.Commit();
    }
    /// Keeps the project beside the name in the environment, and tells what the script has to be started with.
    static void KeepProject()
    {
        const char* const kept = std::getenv("KORVANEL_KEEP_DUTY_CYCLE");
        if (kept == nullptr)
            return;
        QFile::remove(QString::fromLocal8Bit(kept));
        ASSERT_TRUE(QFile::copy(App().sProjectPath, QString::fromLocal8Bit(kept)));
        const MachineRecord& machine = App().MachineI.record;
        const MachineModel& model = App().MachineI.model;
        std::cout << "project " << kept << " configuration=2 dt=1 selection=1 factor=0.5 valid=1" << std::hexfloat
                  << " tth=" << model.Tth << " U=" << *machine.U << " I=" << *machine.I << " f=" << *machine.f
                  << " n=" << *machine.n << " M=" << *machine.M << " Pmech=" << *machine.Pmech
                  << " Mkipp_Mn=" << *machine.Mkipp_Mn << " pel=" << model.Pelec_n << " kipp=" << model.Kippmoment
                  << std::defaultfloat << '\n';
    }
};

TEST_F(DutyCycle, EveryFigureAgrees)
{
    // The estimation uses functions that are not rounded in the same way everywhere.
    constexpr double kTolerance = 1e-9;
    ASSERT_NO_FATAL_FAILURE(RecordCycle(1));
    EvaluateProject();
    KeepProject();
    EXPECT_EQ(App().dTWindow, 600);
    std::ifstream table(KORVANEL_EVALUATION_DATA "/data/duty_cycle_expected.txt");
    std::string conditions;
    ASSERT_TRUE(std::getline(table, conditions));
    ExpectedEvaluation::Read(table).Compare(App().MachineI.evaluation, kTolerance);
}

TEST_F(DutyCycle, TheUtilisationIsThatOfTheMeasuredShaft)
{
    double squares = 0;
    double energy = 0;
    for (int set = 1; set <= kSets; ++set)
        if (!IsFeedingBack(set)) {
            squares += ShaftPower(set) * ShaftPower(set);
            energy += set > 1 ? ShaftPower(set) : 0;
        }
    ASSERT_NO_FATAL_FAILURE(RecordCycle(1));
    EvaluateProject();
    const EvaluationResults& results = App().MachineI.evaluation;
    // What the machine feeds back was not measured at the shaft; there the estimate stands for it.
    const double whole = results.tAsm[kWholePower].dValue;
    const double fedBack = std::abs(Query("SELECT total(Pmech*Pmech) FROM ComputedValues INNER JOIN SampledValues ON "
                                          "ComputedValues.[Set]=SampledValues.[Set] WHERE [P sum]<0")
                                        .toDouble());
    EXPECT_NEAR(whole / std::sqrt((squares + fedBack) / kSets), 1, 0.015);
    EXPECT_NEAR(results.tEnergy[kEnergyMechanical].dPlus / energy, 1, 0.015);
    EXPECT_LT(results.tEnergy[kEnergyMechanical].dMinus, 0);
    EXPECT_NEAR(results.tEnergy[kEnergyEfficiency].dPlus, 0.90, 0.02);
    EXPECT_EQ(results.lRowClassCount[0] + results.lRowClassCount[1] + results.lRowClassCount[2] +
                  results.lRowClassCount[3],
              kSets);
}

TEST_F(DutyCycle, BothMethodsTellTheSameUse)
{
    std::array<EvaluationResults, 2> results;
    for (const int method : {0, 1}) {
        ASSERT_NO_FATAL_FAILURE(RecordCycle(method));
        EvaluateProject();
        results[static_cast<std::size_t>(method)] = App().MachineI.evaluation;
        ASSERT_TRUE(QFile::remove(App().sProjectPath));
    }
    for (const UtilisationRow row : {kWholeTorque, kWholePower, kWindowTorque, kWindowPower})
        EXPECT_NEAR(results[0].tAsm[row].dValue / results[1].tAsm[row].dValue, 1, 0.05) << row;
    EXPECT_EQ(results[0].tAsm[kWholeCurrent].dValue, results[1].tAsm[kWholeCurrent].dValue) << "it is measured";
}

} // namespace
} // namespace korvanel::test
