#include "simulation/Algorithms_ASM_Simulation.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/ProjectDb.h"
#include "core/ToldAccess.h"
#include "core/texts/DefaultTexts.h"
#include "data/ComputedQuantities.h"
#include "data/PassOverSets.h"
#include "data/RowWriter.h"
#include "data/SetRewriter.h"
#include "data/ValueTables.h"
#include "evaluation/Algorithms.h"
#include "evaluation/EvaluationPass.h"
#include "evaluation/TimeWindow.h"
#include "machine/Algorithms_ASM_Start.h"
#include "machine/ModelSteps.h"
#include "simulation/SimulatedRow.h"

#include <SQLiteCpp/Statement.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace korvanel {

namespace {

constexpr std::size_t kPowerBalance = 1; ///< method whose letter simulated rows bear

void EmptyTable()
{
    ProjectDb().DropTable(QLatin1String(TableName(ValueTable::Simulated))); // whatever columns it has
    CreateSimulatedTable();
}

void Simulate(const SecondMachine& machine, double M, double U, double f, tValueRow& row)
{
    const SimulatedPoint point = SimulatedPointAt(machine, M, U, f);
    row.dU[kSum] = U;
    row.df = f;
    row.dM = M;
    row.dn = point.n;
    row.dPmech = point.Pmech;
    row.dP[kSum] = point.P;
    row.deta = point.eta;
    row.sMethod = App().MethodLetter.at(kPowerBalance);
    const double results[] = {point.n, point.Pmech, point.P, point.eta};
    if (!std::all_of(std::begin(results), std::end(results), [](double result) { return std::isfinite(result); }))
        throw ArithmeticFault();
}

void SimulateAll()
{
    static constexpr int kRead[] = {kU, kF, kM, kColumnTime};
    const SecondMachine machine = SecondMachineOf(App().MachineII.record, App().MachineII.model);
    ResetEnergies();
    SimulatedRowWriter target(ProjectDb());
    RewriteSets(
        ProjectDb(), App().iNetConfIndex, {.quantities = kRead}, target,
        [&machine](qint64, tValueRow& row) {
            Simulate(machine, row.dM, row.dU[kSum], row.df, row);
            StepEnergyOffline(row.dP[kSum], 0, row.dt);
            PutRunningEnergies(row);
            if (!std::isfinite(row.dWp))
                throw ArithmeticFault();
        },
        AdvanceOverSets);
}

/// Whether the table has one row for each set of the recording.
bool HasRowsOfRecording()
{
    const ProjectDbScope scope;
    return WithDbErrors([] {
        if (!TableExists(QLatin1String(TableName(ValueTable::Simulated))))
            return false;
        SQLite::Statement query(ProjectDb().Handle(),
                                std::string("SELECT (SELECT COUNT(*) FROM SimulatedValues), COUNT(*) FROM ") +
                                    kSimulatedJoin);
        query.executeStep();
        return query.getColumn(0).getInt() == App().iSetCount && query.getColumn(1).getInt() == App().iSetCount;
    });
}

} // namespace

bool PrepareMachine2()
{
    App().ModelErrors = 0;
    MachineInTheMaking machine{App().MachineII.record, StatusOf(App().MachineII.record), {}};
    const ModelMessage message = SecondMachineStep(machine);
    App().MachineII.status = machine.status;
    App().MachineII.model = machine.model;
    if (message == ModelMessage::None && IsFinite(machine))
        return true;
    App().ModelErrors = 1;
    if (message == ModelMessage::None)
        throw ArithmeticFault();
    ShowError(ModelMessages(static_cast<int>(message)));
    return false;
}

void SimulateRow(double M, double U, double f)
{
    Simulate(SecondMachineOf(App().MachineII.record, App().MachineII.model), M, U, f, App().SimulatedRow);
}

bool RunSimulation()
{
    const bool isPrepared = PrepareMachine2();
    RefreshSetCount();
    App().lSimulationState = 0;
    const bool isDone = ToldAccess(texts::cannotWriteFile, [isPrepared] {
        PassOverSets([isPrepared] {
            DropRecordsets();
            DbTransaction transaction(ProjectDb());
            EmptyTable();
            if (isPrepared)
                SimulateAll();
            transaction.Commit();
        });
    });
    return isDone && isPrepared;
}

bool EvaluateSimulation()
{
    App().MachineII.evaluation = {};
    if (!(App().dTWindow > 0)) // nobody has evaluated the measured machine yet
        ResolveTimeWindow();
    PassConditions conditions = ConditionsOfProject();
    conditions.rated = RatedDataOf(WhichMachine::II);
    conditions.energy.isMachineValid = true; // or there would be no rows
    const bool isDone = ToldAccess(texts::cannotReadFile, [&] {
        PassOverSets([&] {
            if (TableExists(QLatin1String(TableName(ValueTable::Simulated))))
                App().MachineII.evaluation =
                    EvaluateSets(ProjectDb(), SetSource::Simulated, conditions, App().iSetCount, AdvanceOverSets);
        });
    });
    if (isDone)
        App().lSimulationState = App().lRecordingState;
    return isDone && (App().MachineII.evaluation.lSets > 0 || App().iSetCount == 0);
}

bool ProvideSimulation()
{
    if (!HasSecondMachine() || App().lSimulationState == App().lRecordingState)
        return true;
    RefreshSetCount();
    bool isCurrent = false;
    if (!ToldAccess(texts::cannotReadFile, [&] { isCurrent = HasRowsOfRecording(); }))
        return false;
    if (isCurrent ? PrepareMachine2() : RunSimulation())
        return EvaluateSimulation();
    App().MachineII.evaluation = {}; // of a machine or of sets that are others now
    return false;
}

} // namespace korvanel
