// The patterns that end in a state of an automaton, in order, without copies of chains.
#pragma once
#include <algorithm>
#include <cstddef>

#include "search/many/pattern.h"

namespace vstring::search {

// Bounded stretch of an output chain that waits to be visited backwards.
inline constexpr std::size_t kOutputWindow = 256;

// Visits the patterns that end in a state. A chain begins with the state's own pattern; then the
// chain of the failure state is copied entry by entry, each copy put in front. So each level
// reverses what it inherits: with the state itself as 0, its failure state as 1 and so on, the
// patterns of 1, 3, 5, ... come first and those of ..., 4, 2, 0 after them. Here nothing is copied,
// and memory stays linear in the patterns.
//
// A Cursor stands at a state; up() moves to the next one along the failure links that has a
// pattern of its own, if any, and odd() tells how many links that were in all.
// `visit` returns whether to go on. A chain of n outputs takes n + n*n / (4 kOutputWindow) steps.
template <typename Cursor, typename Visit>
bool visit_outputs(const Cursor& state, Visit visit) {
  Pattern window[kOutputWindow];
  std::size_t even = 0;
  if (state.has_pattern()) window[even++] = state.pattern();
  for (Cursor cursor = state; cursor.up();) {
    if (!cursor.odd()) {
      window[even++ % kOutputWindow] = cursor.pattern();
    } else if (!visit(cursor.pattern())) {
      return false;
    }
  }
  // The window holds the farthest of `even` entries: visit them, then collect those before.
  while (even > 0) {
    const std::size_t held = std::min(even, kOutputWindow);
    for (std::size_t i = 0; i < held; ++i) {
      if (!visit(window[--even % kOutputWindow])) return false;
    }
    std::size_t collected = 0;
    if (even > 0 && state.has_pattern()) window[collected++] = state.pattern();
    for (Cursor cursor = state; collected < even && cursor.up();) {
      if (!cursor.odd()) window[collected++ % kOutputWindow] = cursor.pattern();
    }
  }
  return true;
}

}  // namespace vstring::search
