// What somebody who mistyped a name may have meant.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace velmor {

// The least number of insertions, deletions, substitutions and exchanges of neighbours that turn
// one word into the other, no letter being touched twice (the optimal string alignment distance);
// capitals count as small letters. O(|s| |t|) time.
std::size_t typing_distance(std::string_view s, std::string_view t);

// The nearest candidate, the first of several, if it is near enough for a slip: at most one letter
// in three is wrong. Empty when there is none.
std::string nearest(std::string_view word, std::span<const std::string> candidates);

}  // namespace velmor
