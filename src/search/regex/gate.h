// A yes or no in front of the simulation: whether the rest of a text holds any match at all.
//
// The states in which all threads together are at a place, taken as a set, are a state of a
// deterministic automaton, which is built as the text calls for it: one table look-up a byte where
// the same sets come again. It keeps no order and no captures, so a yes says only that the
// simulation will find the match; no is final. Memory is bounded: a full table is emptied, and when
// the sets made since then have not paid, the gate gives up for good. After K. Thompson, "Regular
// expression search algorithm", 1968, with the states made lazily as in R. Cox's RE2, 2010.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "search/regex/plan.h"

namespace vstring::regex {

class Gate {
 public:
  enum class Answer : std::uint8_t { no, yes, unknown };

  Gate(const Plan& plan, Bytes text) : plan_(plan), text_(text) {}

  // Whether a match starts at `from` or later, in a text that starts at `begin`. Looks no further
  // than to where the match that ends first has its end.
  Answer run(std::size_t begin, std::size_t from);

  std::size_t work() const { return work_; }  // bytes looked at
  std::size_t sets() const { return sets_made_; }

 private:
  using Word = std::uint64_t;
  using Set = std::uint32_t;  // of a set: where its row of successors begins

  bool prepare();
  void find_classes();
  void empty_table();
  void clear();
  void add(StateNumber state, bool is_begin, bool is_end);
  void make_next(Set set, Byte c);
  Set number();
  bool accepts_at_end(Set set, bool is_begin);
  template <typename Visit>
  void for_each(Set set, Visit visit) const;
  Word* members(Set set) { return members_.data() + set / class_count_ * words_; }

  const Plan& plan_;
  Bytes text_;
  std::size_t work_ = 0;
  std::size_t sets_made_ = 0;
  std::size_t flushed_at_ = 0;  // the work done when the table was last emptied
  bool has_given_up_ = false;
  std::size_t words_ = 0;  // of a set: a bit for each state
  std::size_t max_sets_ = 0;
  std::size_t set_count_ = 0;
  std::uint32_t class_count_ = 0;
  Byte class_of_[256] = {};  // bytes that no state tells apart
  Buffer<Set> rows_;         // by set and class: the set that follows, where it is known
  Buffer<Word> members_;     // by set: its states that take a byte or wait for the text's end
  Buffer<Set> table_;        // of sets, by the hash of their members
  Buffer<Word> room_;        // the members of the set under construction, and all it has come to
  bool accepts_ = false;     // so does that set
  Buffer<StateNumber> stack_;
};

}  // namespace vstring::regex
