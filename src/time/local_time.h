// A time in the local zone as text.
#pragma once
#include <cstdint>

#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::time {

// The NUL-terminated text of `when` (seconds since the epoch), broken down in the local zone and
// formatted by my_strftime. It is built in `buffer`, of `size` bytes, or in `block` where that is
// too short. LC_TIME is the "C" locale meanwhile and what it was before on return.
Result<const char*> format_local(std::int64_t when, const char* format, char* buffer,
                                 std::size_t size, HeldArray<char>& block);

}  // namespace vstring::time
