// A fingerprint of what a host object holds, to prove that a command left its arguments alone.
#pragma once
#include <cstdint>
#include <string_view>

#include "host/vstring.h"

namespace vstring_test {

// Of an argument sequence and all it leads to. A name counts by its text, since a command may
// assign to it.
std::uint64_t fingerprint(HostObject object);

// Of a text: many known answers in one number.
std::uint64_t fingerprint(std::string_view text);

}  // namespace vstring_test
