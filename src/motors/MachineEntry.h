// What the machine page holds, as texts and choices, and the rules by which it becomes a machine's record and back:
// units of the page, limits of each field, the sign that belongs to motor or generator, and what counts as not known.
#pragma once

#include "core/Machine.h"
#include "core/Texts.h"

#include <QString>

#include <array>
#include <cstddef>
#include <span>

namespace korvanel {

/// The numbers that are typed on the page, in the order of its tabs.
enum MachineField
{
    kFieldPmech = 0,
    kFieldU,
    kFieldF,
    kFieldN,
    kFieldI,
    kFieldCosphi,
    kFieldPo,
    kFieldUo,
    kFieldIo,
    kFieldFo,
    kFieldRs,
    kFieldStallRatio,
    kFieldTth,
    kFieldMass,
    kMachineFieldCount
};

/// One line of the table of the fields.
struct MachineFieldEntry
{
    const char* control; ///< name of its box
    TextRef caption;     ///< with the unit in which it is typed
    std::optional<double> MachineRecord::*value;
    MachineKnowledge group;
    double factor; ///< from the unit of the page to that of the record
    double lowest; ///< of a motor, in the unit of the page; for a generator the limits are mirrored
    double highest;
    bool hasSignOfMode = false; ///< not negative for a motor, not positive for a generator
};

const MachineFieldEntry& MachineFieldOf(std::size_t field);

inline constexpr int kGreatestListedPolePairs = 10;

/// Insulation classes in list order.
std::span<const char* const> InsulationClasses();

/// What the page holds. A group that isn't known keeps its texts.
struct MachineEntry
{
    QString comment;
    bool isGenerator = false;
    MachineStatus isKnown{};
    std::array<QString, kMachineFieldCount> numbers;
    int polePairs = 0;        ///< 1 to 10; 0 without a choice
    int connection = -1;      ///< place in the list, whose first entry is the star; -1 without a choice
    int insulationClass = -1; ///< place in the list; -1 without a choice
    bool isFrictionZero = false;
};

/// A new machine: pole pairs 1 and the first entries chosen, nothing typed, the rating data to be known.
MachineEntry NewMachineEntry();

/// What the page shows of a record.
MachineEntry EntryOfMachine(const MachineRecord& record);

/// Takes what the page holds into a record. Rating and no-load data are complete or not known at all; torque and
/// efficiency are left to the model. Pole pairs that aren't known, or not chosen, leave the record's own. A number
/// whose text is still that of the record's value leaves the value, which may have more digits.
void TakeMachineEntry(const MachineEntry& entry, MachineRecord& record);

/// Whether there is any machine in the record.
bool HasMachineData(const MachineRecord& record);

/// A record's value as its box shows it; empty if not known.
QString MachineFieldText(std::size_t field, const MachineRecord& record);

/// Outcome of a typed number; `text` is what the box has to show.
struct EnteredNumber
{
    QString text;
    bool isAccepted = true;
};

/// A number as it is left. What is no number, and 0, gives an empty box. The sign of a power and of a power factor
/// follows the mode; a power factor keeps a distance from 0 and 1, so that its arc cosine exists. A value out of range
/// is told and not accepted.
EnteredNumber EnterMachineNumber(std::size_t field, const QString& text, bool isGenerator);

/// The text of a field after the mode was chosen: the sign follows, anything else stays.
QString TextForMode(std::size_t field, const QString& text, bool isGenerator);

} // namespace korvanel
