// The pattern compiled last, kept from one command to the next.
#pragma once
#include <cstddef>

#include "search/regex/plan.h"

namespace vstring::regex {

// The plan of a pattern, to search a text of `length` bytes; good until the next call. Null, with
// the reason recorded and nothing kept, when the pattern cannot be compiled.
const Plan* plan_of(const char* pattern, std::size_t length);

void forget_pattern();

}  // namespace vstring::regex
