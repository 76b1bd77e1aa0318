// From the nodes of a compiled expression to the states of a plan.
#pragma once
#include "host/vstring.h"
#include "search/regex/plan.h"

namespace vstring::regex {

// The plan, but for its hints: one block from malloc. Null when memory fails. O(program).
Plan* decode(const VstringRegex& regex);

}  // namespace vstring::regex
