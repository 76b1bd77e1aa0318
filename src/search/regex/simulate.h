// The matcher whose cost cannot blow up: all states at once, byte by byte.
//
// The threads alive at a place stand in the order in which backtracking would try them, and no
// state has more than one, since a later one could only repeat what an earlier one fails at. The
// first thread to accept wins once all before it have died: the same match and groups as by
// backtracking, in O(plan x text) time and O(plan x groups) memory. After K. Thompson, "Regular
// expression search algorithm", 1968, and R. Pike's captures in the text editor sam, 1987.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "search/regex/match.h"
#include "search/regex/plan.h"
#include "search/regex/starts.h"

namespace vstring::regex {

class Simulation {
 public:
  Simulation(const Plan& plan, Bytes text, Starts& starts)
      : plan_(plan), text_(text), starts_(starts) {}

  // Makes room; false when memory fails.
  bool prepare();

  // Finds the leftmost match that starts at `from` or later, in a text that starts at `begin`.
  // On a match fills all of `match`.
  bool run(std::size_t begin, std::size_t from, Match& match);

  // How many bytes all runs together have looked at.
  std::size_t work() const { return work_; }

 private:
  // Threads in order: their states, and at slots[state * slot_count] their captures.
  struct Threads {
    StateNumber* states;
    std::size_t* slots;
    std::size_t count;
  };
  // A state still to be entered, or (slot not none) a capture to be set back to `value`.
  struct Pending {
    StateNumber state;
    std::uint32_t slot;
    std::size_t value;
  };

  std::size_t* slots_of(const Threads& threads, StateNumber state) const {
    return threads.slots + std::size_t{state} * plan_.slot_count;
  }
  bool pass(Threads& threads, StateNumber state, std::size_t at, std::size_t* captures);
  void enter(Threads& threads, StateNumber state, std::size_t at, std::size_t* captures);
  bool step(std::size_t at, Match& match);

  const Plan& plan_;
  Bytes text_;
  Starts& starts_;
  std::size_t begin_ = 0;
  std::size_t work_ = 0;
  std::size_t round_ = 0;
  Threads now_ = {};
  Threads next_ = {};
  Buffer<StateNumber> state_room_;
  Buffer<std::size_t> slot_room_;
  Buffer<std::size_t> entered_;  // by state: the last round in which it was entered
  Buffer<Pending> pending_;
};

}  // namespace vstring::regex
