// The compact form in which an automaton scans a text.
//
// States are numbered breadth first from the root, 0, so the children of a state are consecutive:
// its first child and a label for each state are all there is to store. The first states, which a
// scan visits most, have a full row of transitions besides, with all failures resolved; bytes are
// grouped into classes, the bytes that occur in no pattern sharing one, to keep the rows short.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "host/vstring.h"
#include "search/many/skip_table.h"

namespace vstring::search {

using State = std::uint32_t;
inline constexpr State kHit = State{1} << 31;  // added to a state in which some pattern ends
inline constexpr std::size_t kMaxStates = std::size_t{1} << 30;

struct StateLinks {
  State first_child;        // the children end where those of the next state begin
  State fail;               // the longest proper suffix that is a state; with kHit when patterns
                            // end in the state itself
  std::uint32_t inherited;  // the nearest state with a pattern of its own up the failure links,
                            // times 2, plus 1 when an odd number of links leads there; 0: none
  std::uint32_t pattern;    // the pattern that leads here from the root; 0: none
};

struct ScanTable {
  State row_count;          // states below have a row
  std::uint32_t row_shift;  // log2 of the length of a row
  State* rows;              // [state << row_shift | class], with kHit
  StateLinks* links;        // one more than states
  Byte* label;              // the byte that leads to a state; kLabelPadding bytes behind the last
  Pattern* patterns;        // from 1 on
  SkipTable skips;
  State second;  // the first state at depth 2
  State third;   // the first state at depth 3
  Byte class_of[256];
};
inline constexpr std::size_t kLabelPadding = 8;

struct NodeCounts {
  std::size_t nodes;
  std::size_t patterns;  // nodes with an output
};

inline Pattern pattern_of(const VstringOutput& output) {
  return {output.text, static_cast<std::uint32_t>(output.length), output.number};
}

// Sets the nodes' failure links and makes the table that follows from them, in the automaton's
// pool. Null when memory fails.
const ScanTable* prepare_table(VstringAutomaton* automaton, const NodeCounts& counts);

}  // namespace vstring::search
