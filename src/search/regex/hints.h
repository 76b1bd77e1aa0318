// What can be said of every match by looking at the plan alone.
#pragma once
#include "search/regex/plan.h"

namespace vstring::regex {

// Fills in plan.hints, the states' takes_all and the look-ahead; if not all, only
// plan.hints.first, which is found at once. False when memory fails. O(plan) time.
bool find_hints(Plan& plan, bool all);

}  // namespace vstring::regex
