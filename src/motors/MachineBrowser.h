// The list of the motor database with the machine that is current in it, and what the page does with them: search, new,
// edit, delete, and passing the machine on to the project. The current machine is Motor/Generator I of the block.
#pragma once

#include "motors/MachineEntry.h"
#include "motors/MotorDatabase.h"

#include <optional>
#include <vector>

namespace korvanel {

class MachineBrowser
{
public:
    /// Reads the list and finds the project's machine in it, which is checked against the database. A project without a
    /// machine begins with the first one of the list; a machine that the list doesn't have stays, without a place.
    void Load();
    /// Reads the whole list again after the database has been changed for another one.
    void Reload();

    /// False if no database could be opened, which has been told.
    bool HasDatabase() const { return hasDatabase; }
    bool IsFiltered() const { return filter.has_value(); }
    int Count() const { return static_cast<int>(numbers.size()); }
    /// The machines of some rows, from the first of them; fewer where the list ends. One that can't be read is empty.
    std::vector<MachineRecord> Machines(int first, int count) const;
    /// Place of the current machine in the list; -1 if it has none.
    int Row() const { return row; }

    /// Reads the machine of a row and builds its model; does nothing beyond the list.
    void MoveTo(int wanted);
    /// Shows the machines of a filter, or all of them, and moves to the first. False if there is none, which has been
    /// told; the list stays then.
    bool Search(const std::optional<MachineFilter>& wanted);
    /// Keeps the current machine, to come back to.
    void BeginEdit();
    /// Takes what was entered, builds its model and writes it to the database. False if anything is wrong with it,
    /// which has been told; nothing is written then.
    bool Apply(const MachineEntry& entry, bool isNew);
    /// Comes back to the machine before `BeginEdit`.
    void CancelEdit();
    /// Deletes the current machine, if there is another one and the user agrees.
    void DeleteCurrent();
    /// Makes the current machine that of the project, with all its sets; see `PassMachineOn`.
    void PassOn();

private:
    bool Query();
    int PlaceOf(const std::optional<qint32>& set_ID) const;

    std::vector<qint32> numbers; ///< of the machines in the list; the machines are read when they come into view
    std::optional<MachineFilter> filter;
    int row = -1;
    bool hasDatabase = false;
    MachineRecord formerMachine;
};

} // namespace korvanel
