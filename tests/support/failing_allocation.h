#pragma once

namespace ovalis::test {

// A program that is linked with these counts what its process allocates.

/// How often memory was allocated so far.
extern long allocations;

/// The number of the allocation that fails; 0 for none.
extern long failingAllocation;

} // namespace ovalis::test
