// Replacing every match of a pattern, and cutting a text at every match.
//
// Each search runs on what is left after the match before it as if that were a whole text, so that
// ^ matches at the start of every remainder.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/growing_text.h"
#include "runtime/memory.h"
#include "search/regex/match.h"
#include "search/regex/matcher.h"
#include "search/regex/plan.h"

namespace vstring::regex {

// Appends what the template makes of one match to `result`. False when memory fails.
bool expand(Bytes text, const Match& match, Bytes replacement, GrowingText& result);

// Replaces every match as the template says. The new text goes to `result`, which is empty at
// first; nothing goes there when there is no match. The new text must not be empty, nor may any
// match be: both are told by Outcome::empty_match.
Outcome replace_all(const Plan& plan, Bytes text, Bytes replacement, GrowingText& result,
                    Method method = Method::automatic);

// A piece of the text between matches.
struct Cut {
  std::size_t start;
  std::size_t end;
};

// Finds the pieces that end at a match, and `rest`, where the last match ends.
Outcome find_cuts(const Plan& plan, Bytes text, HeldArray<Cut>& cuts, std::size_t& rest,
                  Method method = Method::automatic);

}  // namespace vstring::regex
