// Counts what the whole process allocates, the libraries included.
#pragma once

#include <cstdint>

namespace korvanel::bench {

/// Allocations since the start of the process.
std::uint64_t AllocationCount();

} // namespace korvanel::bench
