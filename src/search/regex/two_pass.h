// All matches of a text from one backward pass over it.
//
// For every place, the states from which a match can be completed there follow from those one byte
// further on. With that known, a match starts at the first place whose start state is among them,
// and is read off forward without a wrong turn: each choice takes the first alternative that leads
// to the end. So finding every match takes O(plan x text) time however far each search would have
// to look ahead, where restarting a matcher at the end of each match can be quadratic. The rows
// are kept at about every sqrt(n)-th place and worked out again in between. After A. Frisch and
// L. Cardelli, "Greedy regular expression matching", 2004.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "search/regex/match.h"
#include "search/regex/plan.h"

namespace vstring::regex {

class TwoPass {
 public:
  TwoPass(const Plan& plan, Bytes text) : plan_(plan), text_(text) {}

  // Makes the backward pass from the end of the text to `base`, unless has_circle(). False when
  // memory fails.
  bool prepare(std::size_t base);

  // For a plan whose matches all end with the text: finds where the first one from `base` on
  // starts, npos for none, going back from the end as far as a match can be under way. False when
  // that is further than `limit` places, or when memory fails.
  bool find_from_end(std::size_t base, std::size_t limit, std::size_t& start);

  // Whether the plan (of a damaged program) has a circle of states that takes no byte: then there
  // is no order to work them out in, and nothing may be run.
  bool has_circle() const { return has_circle_; }

  // Finds the leftmost match that starts at `begin` or later, in a text that starts there. Calls
  // go forward: from `base` on, none before the end of the match found last.
  bool run(std::size_t begin, Match& match);

 private:
  using Word = std::uint64_t;

  bool order_states();
  void work_out(Word* row, const Word* later, std::size_t at, bool is_begin) const;
  void load(std::size_t block);
  const Word* row(std::size_t at);
  const Word* row_after(std::size_t begin, std::size_t at);  // the same in a text from `begin` on
  StateNumber step(std::size_t begin, StateNumber s, std::size_t& at, Match& match);
  static bool has(const Word* row, StateNumber state) {
    return (row[state / 64] >> (state % 64) & 1) != 0;
  }

  const Plan& plan_;
  Bytes text_;
  bool has_circle_ = false;
  std::size_t base_ = 0;
  std::size_t block_length_ = 0;  // places from one kept row to the next
  std::size_t block_ = 0;         // whose rows are at hand
  std::size_t row_words_ = 0;
  Buffer<StateNumber> order_;  // states, each after those it leads to without taking a byte
  Buffer<Word> kept_;          // a row for base, base + block_length, ..., and for the end
  Buffer<Word> rows_;          // of the block at hand, and the first of the next
  Buffer<Word> begin_row_;     // at the start of the text, where ^ matches
};

}  // namespace vstring::regex
