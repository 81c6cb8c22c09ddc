// What is typical of a cage induction machine of some size, for values that neither a standard nor a measurement gives.
// docs/maschinenmodell.md tells where the figures come from and what they are worth.
#pragma once

#include "core/Machine.h"

namespace korvanel::motordb {

/// Rounded to so many significant digits.
double RoundedToDigits(double value, int digits);

/// 0 for the smallest machine of the tables, 1 for the largest, in equal steps of the logarithm of the power (kW).
double SizeOf(double kilowatts);

/// Fills everything but the rating and the remark that is still unknown: no-load data at the rated voltage and
/// frequency, stator resistance, stall ratio, time constant, class and mass. The rating must be complete; `isEfficient`
/// tells a machine of class IE3.
void AddTypicalData(MachineRecord& machine, bool isEfficient);

} // namespace korvanel::motordb
