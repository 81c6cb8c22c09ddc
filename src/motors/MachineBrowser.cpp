#include "motors/MachineBrowser.h"

#include "core/Common.h"
#include "core/Messages.h"
#include "core/Shell.h"
#include "core/clsWaitCursor.h"
#include "core/texts/DefaultTexts.h"
#include "core/texts/FormF10Texts.h"
#include "machine/Algorithms_ASM_Start.h"
#include "project/ProjectStore.h"

#include <algorithm>

namespace korvanel {

namespace {

/// The motor database for one operation.
class MotorDbScope
{
public:
    MotorDbScope() : db(OpenMotorDb()) {}
    ~MotorDbScope() { CloseMotorDb(db); }
    MotorDbScope(const MotorDbScope&) = delete;
    MotorDbScope& operator=(const MotorDbScope&) = delete;
    explicit operator bool() const { return db != nullptr; }
    TableDb& operator*() const { return *db; }

private:
    std::unique_ptr<TableDb> db;
};

/// Machines of the whole database, whatever the list shows, counted up to two; nothing without a database.
std::optional<int> CountMachines()
{
    const MotorDbScope db;
    return db ? std::optional(CountMachinesUpTo(*db, 2)) : std::nullopt;
}

} // namespace

void MachineBrowser::Load()
{
    filter.reset();
    row = -1;
    if (!Query())
        return;
    MachineRecord& machine = App().MachineI.record;
    if (!HasMachineData(machine)) {
        MoveTo(0);
        return;
    }
    CheckMachineInDb(machine, WhichMachine::I);
    if (PlaceOf(machine.set_ID) < 0) // the check may have added it
        Query();
    MoveTo(PlaceOf(machine.set_ID));
}

void MachineBrowser::Reload()
{
    filter.reset();
    row = -1;
    if (!Query())
        return;
    if (HasMachineData(App().MachineI.record))
        row = PlaceOf(App().MachineI.record.set_ID);
    else
        MoveTo(0);
}

bool MachineBrowser::Query()
{
    hasDatabase = false;
    numbers.clear();
    const MotorDbScope db;
    if (db) {
        numbers = ListMachineNumbers(*db, filter);
        hasDatabase = true;
    }
    return hasDatabase;
}

int MachineBrowser::PlaceOf(const std::optional<qint32>& set_ID) const
{
    const auto place = set_ID ? std::find(numbers.begin(), numbers.end(), *set_ID) : numbers.end();
    return place == numbers.end() ? -1 : static_cast<int>(place - numbers.begin());
}

std::vector<MachineRecord> MachineBrowser::Machines(int first, int count) const
{
    return MachinesOfRows(numbers, first, count);
}

void MachineBrowser::MoveTo(int wanted)
{
    if (wanted < 0 || wanted >= Count())
        return;
    {
        const MotorDbScope db;
        if (!db)
            return;
        MachineRecord machine;
        ReadMachine(*db, numbers[static_cast<std::size_t>(wanted)], machine);
        if (!machine.set_ID) // somebody else has deleted it meanwhile
            return;
        row = wanted;
        App().MachineI.record = machine;
    }
    BuildMachineModel();
}

bool MachineBrowser::Search(const std::optional<MachineFilter>& wanted)
{
    const MotorDbScope db;
    if (!db)
        return false;
    std::vector<qint32> found = ListMachineNumbers(*db, wanted);
    if (found.empty()) {
        ShowInformation(texts::searchNothing);
        return false;
    }
    numbers = std::move(found);
    filter = wanted;
    MoveTo(0);
    return true;
}

void MachineBrowser::BeginEdit()
{
    formerMachine = App().MachineI.record;
}

bool MachineBrowser::Apply(const MachineEntry& entry, bool isNew)
{
    clsWaitCursor cursor;
    cursor.Show();
    MachineRecord& machine = App().MachineI.record;
    TakeMachineEntry(entry, machine);
    BuildMachineModel();
    if (App().ModelErrors != 0)
        return false;
    {
        const MotorDbScope db;
        if (!db)
            return false;
        if (FindDuplicate(*db, machine, isNew ? DuplicateScope::Any : DuplicateScope::OthersOnly)) {
            ShowError(texts::machineDuplicate);
            return false;
        }
        WriteMachine(*db, machine, isNew);
    }
    const std::optional<qint32> written = machine.set_ID;
    Query();
    if (filter && PlaceOf(written) < 0) {
        filter.reset();
        Query();
    }
    MoveTo(PlaceOf(written));
    return true;
}

void MachineBrowser::CancelEdit()
{
    App().MachineI.record = formerMachine;
    if (row >= 0)
        MoveTo(row);
    else
        BuildMachineModel();
}

void MachineBrowser::DeleteCurrent()
{
    if (row < 0)
        return;
    const std::optional<int> count = CountMachines();
    if (!count)
        return;
    if (*count < 2) {
        ShowError(texts::machineLeast);
        return;
    }
    const Answer answer = App().TheShell->ShowBox(
        {texts::titleAttention, texts::machineReallyDelete, BoxIcon::Question, BoxButtons::YesNo, Answer::No});
    if (answer != Answer::Yes)
        return;
    {
        const MotorDbScope db;
        if (!db)
            return;
        DeleteMachine(*db, numbers[static_cast<std::size_t>(row)]);
    }
    Query();
    if (filter && numbers.empty()) {
        filter.reset();
        Query();
    }
    MoveTo(0);
}

void MachineBrowser::PassOn()
{
    const ApplicationBlock& app = App();
    if (app.sProjectPath.isEmpty() || !HasMachine(app.iNetConfIndex))
        return;
    const qint16 formerMethod = app.iCalcMethod;
    if (HasMachineData(app.MachineI.record))
        PassMachineOn();
    else
        AdjustCalcMethod();
    if (app.iCalcMethod != formerMethod && app.bProjectOpen)
        SaveIfDirty(); // the page is left after the project was saved
}

} // namespace korvanel
