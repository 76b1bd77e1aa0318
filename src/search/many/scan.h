// The scan of a text by a prepared automaton's table.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/budget.h"
#include "bytes/bytes.h"
#include "search/many/output_chain.h"
#include "search/many/scan_table.h"

namespace vstring::search {

class TableCursor {
 public:
  TableCursor(const ScanTable& table, StateNumber state) : table_(&table), state_(state) {}
  bool has_pattern() const { return table_->links[state_].pattern != 0; }
  Pattern pattern() const { return table_->patterns[table_->links[state_].pattern]; }
  bool odd() const { return odd_; }
  bool up() {
    const std::uint32_t inherited = table_->links[state_].inherited;
    state_ = inherited / 2;
    odd_ ^= (inherited & 1) != 0;
    return inherited != 0;
  }

 private:
  const ScanTable* table_;
  StateNumber state_;
  bool odd_ = false;
};

// Where a scan takes the short cut of going straight to the next place where the head of a pattern
// stands, as the skip table knows it.
//
// In a state so shallow that no pattern is as short as its depth, nothing but the few bytes that
// led there is under way, so the scan may start over from there. Each place lies behind the one
// before: no byte is read more than a few times. Where places come too thick to pay, in a text
// full of beginnings, the automaton goes on alone.
class ShortCuts {
 public:
  // A state, and the place of the byte ahead of which it was reached.
  struct Position {
    StateNumber state;
    std::size_t at;
  };

  ShortCuts(const ScanTable& table, Bytes text)
      : table_(table),
        text_(text),
        head_(table.skips.head()),
        shallow_end_(table.depth_begin[head_]) {}

  // A short cut may be taken from states below this one.
  StateNumber shallow_end() const { return shallow_end_; }

  // Moves from a state that was reached before the byte at `at` to where the scan goes on. That is
  // one byte short of a head's end: no longer suffix of the text can be under way there.
  Position take(Position now) {
    const std::size_t begin = now.at - depth_of(now.state);
    if (begin < unseen_) return now;
    std::size_t from = begin;
    StateNumber state = 0;
    while (shallow_end_ != 0 && text_.size() - from >= head_) {
      const std::size_t place = table_.skips.next_place(text_, from, budget_);
      if (budget_.is_used_up()) shallow_end_ = 0;
      if (text_.size() - place < head_) break;
      from = unseen_ = place + 1;
      if (!begins_at(place, state)) continue;
      return {state, place + head_ - 1};
    }
    // Nothing is under way.
    return {0, shallow_end_ != 0 ? text_.size() : from};
  }

 private:
  static constexpr std::size_t kFree = 1000;

  // Requires a shallow state.
  std::size_t depth_of(StateNumber state) const {
    std::size_t depth = 0;
    while (depth + 1 < head_ && state >= table_.depth_begin[depth + 1]) ++depth;
    return depth;
  }

  // Whether the bytes at `place` lead one step deeper each, for all but the last of a head.
  bool begins_at(std::size_t place, StateNumber& state) const {
    state = 0;
    for (std::size_t depth = 1; depth < head_; ++depth) {
      state = step(table_, state, text_[place + depth - 1]) & ~kHit;
      if (state < table_.depth_begin[depth]) return false;
    }
    return true;
  }

  const ScanTable& table_;
  Bytes text_;
  std::size_t head_;
  StateNumber shallow_end_;
  std::size_t unseen_ = 0;  // places before have been taken
  Budget budget_{kFree};
};

// Calls visit(pattern, end) for every match in the order of the scan, `end` being the offset behind
// its last byte, until it returns false.
template <typename Visit>
void scan(const ScanTable& table, Bytes text, Visit visit) {
  ShortCuts short_cuts(table, text);
  ShortCuts::Position now = {0, 0};
  while (now.at < text.size()) {
    if (now.state < short_cuts.shallow_end()) {
      now = short_cuts.take(now);
      if (now.at == text.size()) return;
    }
    const StateNumber next = step(table, now.state, text[now.at]);
    const std::size_t end = now.at + 1;
    now = {next & ~kHit, end};
    if (now.state == next) continue;
    const bool go_on =
        visit_outputs(TableCursor(table, now.state),
                      [&visit, end](const Pattern& pattern) { return visit(pattern, end); });
    if (!go_on) return;
  }
}

}  // namespace vstring::search
