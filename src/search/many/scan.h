// The scan of a text by a prepared automaton's table.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bytes/bytes.h"
#include "search/many/output_chain.h"
#include "search/many/scan_table.h"

namespace vstring::search {

class TableCursor {
 public:
  TableCursor(const ScanTable& table, State state) : table_(&table), state_(state) {}
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
  State state_;
  bool odd_ = false;
};

// Child of `state` under `byte`, or 0.
inline State child_of(const ScanTable& table, State state, Byte byte) {
  const State first = table.links[state].first_child;
  const State count = table.links[state + 1].first_child - first;
  if (count > kLabelPadding) {
    const auto* const found =
        static_cast<const Byte*>(std::memchr(table.label + first, byte, count));
    return found == nullptr ? 0 : static_cast<State>(found - table.label);
  }
  // Eight labels at once: the lowest byte of `zeros` that is set marks the first equal one.
  constexpr std::uint64_t kOnes = 0x0101010101010101;
  std::uint64_t labels = 0;
  std::memcpy(&labels, table.label + first, sizeof labels);
  const std::uint64_t differences = labels ^ (kOnes * byte);
  const std::uint64_t zeros = (differences - kOnes) & ~differences & (kOnes << 7);
  const auto i = static_cast<State>(std::countr_zero(zeros)) / 8;
  return i < count ? first + i : 0;
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
  State shallow_end() const { return shallow_end_; }

  // Moves `state`, which was reached before the byte at `at`, to where the scan goes on.
  void take(State& state, std::size_t& at) {
    const std::size_t begin = at - (state >= 1) - (state >= table_.second);
    if (begin < unseen_) return;
    const std::size_t next = next_candidate(begin);
    unseen_ = next + 1;
    credit_ += static_cast<std::ptrdiff_t>(next - begin) - kCost;
    if (credit_ < 0) shallow_end_ = 0;
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

  static constexpr std::ptrdiff_t kCost = 6;  // what a short cut costs, in bytes of scanning

  const ScanTable& table_;
  Bytes text_;
  State shallow_end_;
  std::size_t unseen_ = 0;  // places before have been taken
  std::ptrdiff_t credit_ = 1000;
};

// Calls visit(pattern, end) for every match in the order of the scan, `end` being the offset behind
// its last byte, until it returns false.
template <typename Visit>
void scan(const ScanTable& table, Bytes text, Visit visit) {
  ShortCuts short_cuts(table, text);
  State state = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (state < short_cuts.shallow_end()) {
      short_cuts.take(state, at);
      if (at == text.size()) return;
    }
    const State next = step(table, state, text[at++]);
    state = next & ~kHit;
    if (state == next) continue;
    const bool go_on = visit_outputs(TableCursor(table, state),
                                     [&](const Pattern& pattern) { return visit(pattern, at); });
    if (!go_on) return;
  }
}

}  // namespace vstring::search
