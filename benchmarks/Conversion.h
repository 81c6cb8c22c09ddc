// Old files of many sets, converted.
#pragma once

namespace korvanel::bench {

/// Converts an old file with as many sets as the open project has. False after a failure.
bool ConvertAsManySets();

} // namespace korvanel::bench
