// From a compiled expression to a plan with its hints.
#pragma once
#include <cstddef>

#include "host/vstring.h"
#include "search/regex/plan.h"

namespace vstring::regex {

// To find all hints takes longer than the rest of a plan, and than to search so many bytes.
inline constexpr std::size_t kWorthHints = 512;

// The plan, but for its hints: one block from malloc, for free(). Null when memory fails.
// O(program).
Plan* decode(const VstringRegex& regex);

// Fills in plan.hints, the states' takes_all and the look-ahead; if not all, only
// plan.hints.first, which is found at once. False when memory fails. O(plan) time.
bool find_hints(Plan& plan, bool all);

// Both of them: one block from malloc, for free(); null when memory fails. O(program).
Plan* make_plan(const VstringRegex& regex, bool all_hints = true);

// Finds the hints of a plan, or all of them once it has some. False when memory fails.
bool add_hints(Plan& plan, const VstringRegex& regex, bool all = true);

}  // namespace vstring::regex
