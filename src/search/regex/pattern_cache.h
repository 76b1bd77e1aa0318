// The pattern compiled last, kept from one command to the next.
#pragma once
#include "bytes/bytes.h"
#include "search/regex/plan.h"

namespace vstring::regex {

// The plan of a pattern, good until a call with another one. Null, with the reason recorded and
// nothing kept, when the pattern cannot be compiled.
const Plan* plan_of(Bytes pattern);

}  // namespace vstring::regex
