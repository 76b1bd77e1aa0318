// Times in the local zone, which the environment variable TZ names.
#pragma once
#include <cstdint>
#include <optional>

#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::time {

// The NUL-terminated text of `when` (seconds since the epoch), broken down in the local zone and
// formatted by my_strftime, whose rule for plain text holds. It is built in `buffer`, of `size`
// bytes, or in `block` where that is too short. LC_TIME is the "C" locale meanwhile and what it was
// before on return.
Result<const char*> format_local(std::int64_t when, const char* format, char* buffer,
                                 std::size_t size, HeldArray<char>& block);

// The least time, in seconds since the epoch, at which clocks of the local zone show `clock`, which
// counts seconds as if they were those of UTC: the first of two when clocks go back, nothing when
// they pass over it. A clock is taken to stay as it is set for an hour at least; in the zones of
// the world the shortest such time so far is four days.
std::optional<std::int64_t> earliest_local(std::int64_t clock);

}  // namespace vstring::time
