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

/// Machines of the whole database, whatever the list shows; nothing without a database.
std::optional<std::size_t> CountMachines()
{
    const MotorDbScope db;
    return db ? std::optional(ListMachines(*db).size()) : std::nullopt;
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
    lines.clear();
    const MotorDbScope db;
    if (db) {
        lines = ListMachines(*db, filter);
        hasDatabase = true;
    }
    return hasDatabase;
}

int MachineBrowser::PlaceOf(const std::optional<qint32>& set_ID) const
{
    const auto line =
        std::find_if(lines.begin(), lines.end(), [&set_ID](const MachineLine& l) { return l.set_ID == set_ID; });
    return line == lines.end() ? -1 : static_cast<int>(line - lines.begin());
}

void MachineBrowser::MoveTo(int wanted)
{
    if (wanted < 0 || wanted >= static_cast<int>(lines.size()))
        return;
    {
        const MotorDbScope db;
        if (!db)
            return;
        MachineRecord machine;
        ReadMachine(*db, lines[static_cast<std::size_t>(wanted)].set_ID, machine);
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
    std::vector<MachineLine> found = ListMachines(*db, wanted);
    if (found.empty()) {
        ShowInformation(texts::searchNothing);
        return false;
    }
    lines = std::move(found);
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
    const std::optional<std::size_t> count = CountMachines();
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
        DeleteMachine(*db, lines[static_cast<std::size_t>(row)].set_ID);
    }
    Query();
    if (filter && lines.empty()) {
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
