// The library's allocations, seen and steered through the linker's --wrap: every malloc, calloc,
// realloc and free of the statically linked library comes here first. The C++ parts of the tests
// allocate through libstdc++.so and are not counted.
#pragma once
#include <cstddef>

namespace vstring_test {

// Blocks allocated by the library and not yet freed.
std::size_t live_blocks();

// Makes the k-th allocation from now (1-based) fail, and all after it if that is wanted; 0 disarms.
// `allocation_failed` tells whether one has.
void fail_allocation(std::size_t k, bool and_all_after = false);
bool allocation_failed();

// Requests above this size fail at once, as they would on a small machine, so that random sizes
// cannot fill a real one. Returns the limit before.
std::size_t limit_allocation(std::size_t bytes);

}  // namespace vstring_test
