// The machines that a new motor database holds, as tables. What the limits of the standard say is copied from it; what
// is typical of a size is a smooth function of the rated power; what was measured stands as it was read.
#pragma once

#include "core/Machine.h"

#include <vector>

namespace korvanel::motordb {

/// All machines of a new database, without numbers.
std::vector<MachineRecord> AllMachines();

} // namespace korvanel::motordb
