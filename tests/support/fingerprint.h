// A fingerprint of what a host object holds, to prove that a command left its arguments alone.
#pragma once
#include <cstdint>

#include "host/vstring.h"

namespace vstring_test {

// Of an argument sequence and all it leads to. A name counts by its text, since a command may
// assign to it.
std::uint64_t fingerprint(HostObject object);

}  // namespace vstring_test
