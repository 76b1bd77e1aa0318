// The scratch buffer `smbuf`: most results are short and are built there instead of on the heap.
// The host copies every result at once, so one buffer serves all commands in turn.
#pragma once
#include <cstddef>

namespace vstring {

// Largest result, terminator included, that is built in the scratch buffer.
inline constexpr std::size_t kScratchLimit = 8190;

}  // namespace vstring
