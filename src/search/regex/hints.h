// What can be said of every match by looking at the plan alone.
#pragma once
#include "search/regex/plan.h"

namespace vstring::regex {

// Fills in plan.hints and the states' takes_all; if not all, only the hint that is found at once,
// plan.hints.first. False when memory fails. O(plan) time.
bool find_hints(Plan& plan, bool all);

}  // namespace vstring::regex
