// What can be said of every match by looking at the plan alone.
#pragma once
#include "search/regex/plan.h"

namespace vstring::regex {

// Fills in plan.hints and the states' takes_all; if not all, only the hints that are found at once:
// plan.hints.first and `must`, which stands in every text that matches and may be empty. False when
// memory fails. O(plan) time.
bool find_hints(Plan& plan, Bytes must, bool all);

}  // namespace vstring::regex
