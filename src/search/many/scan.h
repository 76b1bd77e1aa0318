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

// Where a scan takes the short cut of going straight to the next place where a pattern may begin.
//
// In a state so shallow that no pattern is as short as its depth, nothing but the few bytes that
// led there is under way, so the scan may start over from there. Each place lies behind the one
// before: no byte is read more than a few times. Where places come too thick to pay, in a text
// full of beginnings, the automaton goes on alone.
class ShortCuts {
 public:
  ShortCuts(const ScanTable& table, Bytes text) : table_(table), text_(text) {
    shallow_end_ = table.skips.is_ready() ? table.third : 1;
  }

  // A short cut may be taken from states below this one.
  StateNumber shallow_end() const { return shallow_end_; }

  // Moves `state`, which was reached before the byte at `at`, to where the scan goes on.
  void take(StateNumber& state, std::size_t& at) {
    const std::size_t begin = at - (state >= 1) - (state >= table_.second);
    if (begin < unseen_) return;
    const std::size_t next = next_candidate(begin);
    unseen_ = next + 1;
    budget_.earn(next - begin);
    budget_.spend(kCost);
    if (budget_.is_used_up()) shallow_end_ = 0;
    if (next == begin) return;
    at = next;
    state = 0;
  }

 private:
  std::size_t next_candidate(std::size_t from) const {
    if (table_.skips.is_ready()) return table_.skips.next_candidate(text_, from);
    while (from < text_.size() && table_.rows[table_.class_of[text_[from]]] == 0) ++from;
    return from;
  }

  static constexpr std::size_t kCost = 6;
  static constexpr std::size_t kFree = 1000;

  const ScanTable& table_;
  Bytes text_;
  StateNumber shallow_end_;
  std::size_t unseen_ = 0;  // places before have been taken
  Budget budget_{kFree};
};

// Calls visit(pattern, end) for every match in the order of the scan, `end` being the offset behind
// its last byte, until it returns false.
template <typename Visit>
void scan(const ScanTable& table, Bytes text, Visit visit) {
  ShortCuts short_cuts(table, text);
  StateNumber state = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (state < short_cuts.shallow_end()) {
      short_cuts.take(state, at);
      if (at == text.size()) return;
    }
    const StateNumber next = step(table, state, text[at++]);
    state = next & ~kHit;
    if (state == next) continue;
    const bool go_on = visit_outputs(TableCursor(table, state),
                                     [&](const Pattern& pattern) { return visit(pattern, at); });
    if (!go_on) return;
  }
}

}  // namespace vstring::search
