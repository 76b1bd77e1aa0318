// The scratch buffer: most results are short and are built there instead of on the heap. The host
// copies every result at once, so one buffer serves all commands in turn.
//
// Hosts reach it by the exported pointer `smbuf`; the library itself goes by the array, which no
// host's own `smbuf` can stand before.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "runtime/memory.h"

namespace vstring {

extern Byte scratch[SMALL_BUFFER_BASE_SIZE];

// Largest result, terminator included, that is built in the scratch buffer.
inline constexpr std::size_t kScratchLimit = 8190;

// Whether a text may be built there. It may not by a command that the host calls before it has
// copied the result of one that waits.
inline bool scratch_is_free() { return memory::state.scratch_holder == nullptr; }

}  // namespace vstring
