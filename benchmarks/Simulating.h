// A second machine over the recordings of the benchmarks.
#pragma once

namespace korvanel::bench {

/// Makes a motor from a database the second machine of the open project, with the usual window.
void PrepareSecondMachine();
/// Puts it through the open project and evaluates what it did. False after a failure.
bool SimulateOpenProject();

} // namespace korvanel::bench
