// What a search gives: its outcome, and where the groups of the match lie.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "search/regex/program.h"

namespace vstring::regex {

// The end of one search, or of going from match to match through a whole text, which when all goes
// well is no_match: there is none left.
enum class Outcome : std::uint8_t {
  match,
  no_match,
  empty_match,    // none can be replaced or cut at
  out_of_space,   // no memory for the matcher
  out_of_memory,  // none for the caller's arrays
};

inline constexpr int kSlots = 2 * kGroups;

// Where the groups of a match lie, as offsets; npos for those that took no part.
struct Match {
  std::size_t slot[kSlots];

  Match() { clear(kSlots); }
  void clear(std::size_t slots) {
    for (std::size_t i = 0; i < slots; ++i) slot[i] = npos;
  }
  std::size_t start(int group = 0) const { return slot[2 * group]; }
  std::size_t end(int group = 0) const { return slot[2 * group + 1]; }
  bool has(int group) const { return start(group) != npos && end(group) != npos; }
  Bytes group(Bytes text, int group) const {
    return has(group) ? text.subspan(start(group), end(group) - start(group)) : Bytes();
  }
};

}  // namespace vstring::regex
