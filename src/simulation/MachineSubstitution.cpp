#include "simulation/MachineSubstitution.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/NumberText.h"
#include "core/ProjectDb.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF10Texts.h"
#include "core/texts/FormH12Texts.h"
#include "simulation/Algorithms_ASM_Simulation.h"

#include <algorithm>

namespace korvanel {

namespace {

bool IsRatingKnown(const MachineRecord& record)
{
    return record.Pmech && record.n && record.U && record.I && record.f && record.cosphi;
}

/// What choosing a machine changes in the block.
struct FormerMachine
{
    MachineInUse machine = App().MachineII;
    bool bASMSim = App().bASMSim;
    bool bProjectDirty = App().bProjectDirty;
    qint32 bEvaluated = App().bEvaluated;
    bool isEvaluated = App().lSimulationState == App().lRecordingState;

    void PutBack() const
    {
        ApplicationBlock& app = App();
        app.MachineII = machine;
        app.bASMSim = bASMSim;
        app.bProjectDirty = bProjectDirty;
        app.bEvaluated = bEvaluated;
        app.lSimulationState = isEvaluated ? app.lRecordingState : 0;
    }
};

/// False if the sets couldn't be written. A machine that can't be prepared is taken all the same, without sets.
bool TakeAndRun(const MachineRecord& record, const std::function<void()>& onTaken)
{
    ApplicationBlock& app = App();
    const qint32 bEvaluated = app.bEvaluated;
    const ProjectDbScope scope;
    DbTransaction transaction(ProjectDb());
    PutMachineIntoProject(record, WhichMachine::II);
    app.bEvaluated = bEvaluated; // the measured machine is the same
    app.MachineII = {};
    app.MachineII.record = record;
    app.bASMSim = true;
    app.bProjectDirty = true;
    onTaken();
    if (!RunSimulation() && app.ModelErrors == 0)
        return false;
    transaction.Commit();
    return true;
}

} // namespace

void SubstituteList::Take(std::vector<qint32> found)
{
    numbers = std::move(found);
    path = App().sMotorDbPath;
    ++version;
}

void SubstituteList::Load()
{
    const std::unique_ptr<TableDb> db = OpenMotorDb();
    Take(db ? ListMachineNumbers(*db) : std::vector<qint32>());
}

bool SubstituteList::Search(const MachineFilter& filter)
{
    const std::unique_ptr<TableDb> db = OpenMotorDb();
    if (!db)
        return false;
    std::vector<qint32> found = ListMachineNumbers(*db, filter);
    if (found.empty()) {
        ShowInformation(texts::searchNothing);
        return false;
    }
    Take(std::move(found));
    return true;
}

int SubstituteList::PresentRow() const
{
    const std::optional<qint32>& present = App().MachineII.record.set_ID;
    const auto place = present ? std::find(numbers.begin(), numbers.end(), *present) : numbers.end();
    if (place != numbers.end())
        return static_cast<int>(place - numbers.begin());
    return numbers.empty() ? -1 : 0;
}

std::optional<MachineRecord> SubstituteList::Read(int row)
{
    if (row < 0 || row >= Count())
        return std::nullopt;
    const std::unique_ptr<TableDb> db = OpenMotorDb();
    if (!db)
        return std::nullopt;
    if (App().sMotorDbPath != path) { // its numbers stand for other machines
        Take(ListMachineNumbers(*db));
        return std::nullopt;
    }
    const qint32 number = numbers[static_cast<std::size_t>(row)];
    MachineRecord record;
    ReadMachine(*db, number, record);
    if (!record.set_ID) {
        ShowError(FillPlaceholders(texts::noSuchSet, {QString::number(number)}) + u'.');
        return std::nullopt;
    }
    if (!IsRatingKnown(record)) {
        ShowError(texts::choiceNeedsRating);
        return std::nullopt;
    }
    return record;
}

bool SubstituteMachine(const MachineRecord& record, const std::function<void()>& onTaken)
{
    const FormerMachine former;
    try {
        if (!TakeAndRun(record, onTaken)) {
            former.PutBack();
            return false;
        }
    } catch (const DbError& error) {
        former.PutBack();
        ShowError(FillPlaceholders(texts::choiceTakenBack, {QString::fromUtf8(error.what())}));
        return false;
    } catch (...) {
        former.PutBack();
        throw;
    }
    EvaluateSimulation();
    return true;
}

} // namespace korvanel
