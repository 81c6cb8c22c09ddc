// The lines in which "Motor/Generator Info" lists what follows from a machine's data.
#pragma once

#include "machine/ModelSteps.h"

#include <QStringList>

namespace korvanel {

/// Listing of Motor/Generator I: each line a label, the value rounded to three decimals and its unit, in groups by what
/// is known of the machine, with a rule between them. Powers in kW, slips in percent, the time constant in minutes.
QStringList ModelListing(const MachineStatus& status, const MachineModel& model);

/// The short listing of Motor/Generator II: rating and no-load data, and what the simulation takes of the machine. A
/// value that isn't known leaves its place empty.
QStringList SecondMachineListing(const MachineRecord& record, const MachineModel& model);

} // namespace korvanel
