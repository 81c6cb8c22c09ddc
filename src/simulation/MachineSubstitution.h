// Another machine in the place of the measured one: the list to choose it from, and what choosing it does.
#pragma once

#include "motors/MotorDatabase.h"

#include <functional>
#include <optional>
#include <vector>

namespace korvanel {

/// The machines of the motor database, all or those of a search.
class SubstituteList
{
public:
    /// Reads the whole list. Without a database, which is told, it is empty. Throws DbError.
    void Load();
    /// Shows the machines of a filter. False if there is none, or no database: that is told, and the list stays. Throws
    /// DbError.
    bool Search(const MachineFilter& filter);

    int Count() const { return static_cast<int>(numbers.size()); }
    std::vector<MachineRecord> Machines(int first, int count) const { return MachinesOfRows(numbers, first, count); }
    /// Row of the present Motor/Generator II; without it the first one, and -1 in an empty list.
    int PresentRow() const;
    /// Reads the machine of a row. Nothing if the database or the machine has gone, or its rating data aren't known,
    /// which is told; a database that was chosen in the place of a missing one is listed then. Throws DbError.
    std::optional<MachineRecord> Read(int row);
    /// Counts how often the list has become another one.
    int Version() const { return version; }

private:
    void Take(std::vector<qint32> found);

    std::vector<qint32> numbers;
    QString path; ///< of the database that is listed
    int version = 0;
};

/// Makes a machine Motor/Generator II, in block and project, runs it over the sets and evaluates that. `onTaken` is
/// called between: from there on it is chosen. False if project or sets can't be written, which is told; then all is as
/// before. Throws ArithmeticFault, with all as before too.
bool SubstituteMachine(const MachineRecord& record, const std::function<void()>& onTaken);

} // namespace korvanel
