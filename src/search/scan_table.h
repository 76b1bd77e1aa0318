// The compact form in which an automaton scans a text.
//
// States are numbered breadth first from the root, 0, so the children of a state are consecutive
// and cost four bytes and a label. The first states, which a scan visits most, have a full row of
// transitions besides, with all failures resolved; bytes are grouped into classes, the bytes that
// occur in no pattern sharing one, to keep the rows short.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "host/vstring.h"
#include "runtime/bytes.h"

namespace vstring::search {

using State = std::uint32_t;
inline constexpr State kHit = State{1} << 31;  // added to a state in which some pattern ends
inline constexpr std::size_t kMaxStates = std::size_t{1} << 30;

// The state reached through the longest proper suffix, and the first of the children.
struct StateLinks {
  State first_child;
  State fail;  // with kHit when the state itself has outputs
};

struct ScanTable {
  State row_count;            // states below have a row
  std::uint32_t row_shift;    // log2 of the length of a row
  State* rows;                // [state << row_shift | class], with kHit
  StateLinks* links;          // one more than states: the last one ends the children
  Byte* label;                // the byte that leads to a state
  const VstringOutput** own;  // the pattern that ends in a state and begins at the root, or null
  std::uint32_t* inherited;   // the nearest state with a pattern up the failure links, times 2,
                              // plus 1 when an odd number of links leads there; 0: none
  Byte class_of[256];
};

// Prepares the nodes' failure links and the table that follows from them. `node_count` is their
// number. Null when memory fails; nodes and table live in the automaton's pool.
const ScanTable* prepare_table(VstringAutomaton* automaton, std::size_t node_count);

// Bounded stretch of an output chain that waits to be visited backwards.
inline constexpr std::size_t kOutputWindow = 256;

// Visits the patterns that end in a state, in the order that chains have which are built by
// putting copies of the failure state's chain, entry by entry, in front of the state's own
// pattern: each level reverses what it inherits. So with the state itself as 0, its failure state
// as 1 and so on, the patterns of 1, 3, 5, ... come first and those of ..., 4, 2, 0 after them.
// Nothing is copied, and memory stays linear in the patterns.
//
// A Cursor stands at a state: output() is the state's own pattern or null; up() moves to the next
// state with one along the failure links, if any, and odd() tells how many links that were in all.
// `visit` returns whether to go on. A chain of n outputs takes n + n*n / (4 kOutputWindow) steps.
template <typename Cursor, typename Visit>
bool visit_outputs(const Cursor& state, Visit visit) {
  const VstringOutput* window[kOutputWindow];
  std::size_t even = 0;
  if (state.output() != nullptr) window[even++] = state.output();
  for (Cursor cursor = state; cursor.up();) {
    if (!cursor.odd()) {
      window[even++ % kOutputWindow] = cursor.output();
    } else if (!visit(*cursor.output())) {
      return false;
    }
  }
  // The window holds the farthest of `even` entries: visit them, then collect those before.
  while (even > 0) {
    const std::size_t held = std::min(even, kOutputWindow);
    for (std::size_t i = 0; i < held; ++i) {
      if (!visit(*window[--even % kOutputWindow])) return false;
    }
    std::size_t collected = 0;
    if (even > 0 && state.output() != nullptr) window[collected++] = state.output();
    for (Cursor cursor = state; collected < even && cursor.up();) {
      if (!cursor.odd()) window[collected++ % kOutputWindow] = cursor.output();
    }
  }
  return true;
}

class TableCursor {
 public:
  TableCursor(const ScanTable& table, State state) : table_(&table), state_(state) {}
  const VstringOutput* output() const { return table_->own[state_]; }
  bool odd() const { return odd_; }
  bool up() {
    const std::uint32_t inherited = table_->inherited[state_];
    state_ = inherited / 2;
    odd_ ^= (inherited & 1) != 0;
    return inherited != 0;
  }

 private:
  const ScanTable* table_;
  State state_;
  bool odd_ = false;
};

// Child of `state` under `byte`, or 0.
inline State child_of(const ScanTable& table, State state, Byte byte) {
  const State first = table.links[state].first_child;
  const State count = table.links[state + 1].first_child - first;
  if (count == 0) return 0;
  if (table.label[first] == byte) return first;
  if (count == 1) return 0;
  const void* const found = std::memchr(table.label + first, byte, count);
  return found == nullptr ? 0 : static_cast<State>(static_cast<const Byte*>(found) - table.label);
}

// The state that follows `state`, with kHit when patterns end there.
inline State step(const ScanTable& table, State state, Byte byte) {
  while (state >= table.row_count) {
    const State child = child_of(table, state, byte);
    if (child != 0) return child | (table.links[child].fail & kHit);
    state = table.links[state].fail & ~kHit;
  }
  return table.rows[(std::size_t{state} << table.row_shift) | table.class_of[byte]];
}

// Calls visit(output, end) for every match in the order of the scan, `end` being the offset behind
// its last byte, until it returns false.
template <typename Visit>
void scan(const ScanTable& table, Bytes text, Visit visit) {
  State state = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (state == 0) {
      // Nothing is under way: look for a byte that begins a pattern.
      while (table.rows[table.class_of[text[i]]] == 0) {
        if (++i == text.size()) return;
      }
    }
    const State next = step(table, state, text[i]);
    state = next & ~kHit;
    if (state == next) continue;
    const std::size_t end = i + 1;
    const bool go_on = visit_outputs(
        TableCursor(table, state), [&](const VstringOutput& output) { return visit(output, end); });
    if (!go_on) return;
  }
}

}  // namespace vstring::search
