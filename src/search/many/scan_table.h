// The compact form in which an automaton scans a text.
//
// States are numbered breadth first from the root, 0, so the children of a state are consecutive:
// its first child and a label for each state are all there is to store. The first states, which a
// scan visits most, have a full row of transitions besides, with all failures resolved; bytes are
// grouped into classes, the bytes that occur in no pattern sharing one, to keep the rows short.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "search/many/pattern.h"
#include "search/many/skip_table.h"

namespace vstring::search {

using StateNumber = std::uint32_t;
inline constexpr StateNumber kHit = StateNumber{1}
                                    << 31;  // added to a state in which some pattern ends
inline constexpr std::size_t kMaxStates = std::size_t{1} << 30;

struct StateLinks {
  StateNumber first_child;  // the children end where those of the next state begin
  StateNumber fail;         // the longest proper suffix that is a state; with kHit when patterns
                            // end in the state itself
  std::uint32_t inherited;  // the nearest state with a pattern of its own up the failure links,
                            // times 2, plus 1 when an odd number of links leads there; 0: none
  std::uint32_t pattern;    // the pattern that leads here from the root; 0: none
};

struct ScanTable {
  StateNumber row_count;    // states below have a row
  std::uint32_t row_shift;  // log2 of the length of a row
  StateNumber* rows;        // [state << row_shift | class], with kHit
  StateLinks* links;        // one more than states
  Byte* label;              // the byte that leads to a state; kLabelPadding bytes behind the last
  Pattern* patterns;        // from 1 on
  SkipTable skips;
  StateNumber depth_begin[SkipTable::kLongestHead + 1];  // the first state at a depth
  Byte class_of[256];
};
inline constexpr std::size_t kLabelPadding = 8;

// Child of `state` under `byte`, or 0.
inline StateNumber child_of(const ScanTable& table, StateNumber state, Byte byte) {
  const StateNumber first = table.links[state].first_child;
  const StateNumber count = table.links[state + 1].first_child - first;
  if (count > kLabelPadding) {
    const auto* const found =
        static_cast<const Byte*>(std::memchr(table.label + first, byte, count));
    return found == nullptr ? 0 : static_cast<StateNumber>(found - table.label);
  }
  // Eight labels at once: the lowest byte of `zeros` that is set marks the first equal one.
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  std::uint64_t labels = 0;
  std::memcpy(&labels, table.label + first, sizeof labels);
  const std::uint64_t differences = labels ^ (kOnes * byte);
  const std::uint64_t zeros = (differences - kOnes) & ~differences & (kOnes << 7);
  const auto i = static_cast<StateNumber>(std::countr_zero(zeros)) / 8;
  return i < count ? first + i : 0;
}

// The state that follows `state`, with kHit when patterns end there.
inline StateNumber step(const ScanTable& table, StateNumber state, Byte byte) {
  while (state >= table.row_count) {
    const StateNumber child = child_of(table, state, byte);
    if (child != 0) return child | (table.links[child].fail & kHit);
    state = table.links[state].fail & ~kHit;
  }
  return table.rows[(std::size_t{state} << table.row_shift) | table.class_of[byte]];
}

// Sets the nodes' failure links and makes the table that follows from them, in the automaton's
// pool. Null when memory fails.
const ScanTable* prepare_table(VstringAutomaton* automaton);

}  // namespace vstring::search
