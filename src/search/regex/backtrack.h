// The backtracking matcher: tries the choices of a plan in order, depth first, on an explicit
// stack. The fastest way for most patterns, but exponential for some; so it works on credit.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/small_stack.h"
#include "search/regex/match.h"
#include "search/regex/plan.h"

namespace vstring::regex {

enum class Attempt : std::uint8_t { matched, failed, gave_up };

class Backtracker {
 public:
  // `text` is matched as a text that starts at `begin`. At most `max_frames` choices are kept open
  // at a time, of 24 bytes each.
  Backtracker(const Plan& plan, Bytes text, std::size_t max_frames)
      : plan_(plan), text_(text), max_frames_(max_frames) {}

  // Looks for a match that starts at `at`. Gives up when `credit`, one unit per step, is used up or
  // the stack is full.
  Attempt run(std::size_t begin, std::size_t at, std::int64_t& credit, Match& match);

 private:
  enum class Kind : std::uint32_t { alternative, restore, shorter };
  // alternative: go on with `state` at `low`; restore: slot `state` was `low`; shorter: go on with
  // `state` at the rightmost place in [low, high).
  struct Frame {
    Kind kind;
    StateNumber state;
    std::size_t low;
    std::size_t high;
  };

  struct Position {
    StateNumber state;
    std::size_t at;
  };
  enum class Step : std::uint8_t { go_on, turn_back, accept, give_up };

  Step push(const Frame& frame) {
    return stack_.size() < max_frames_ && stack_.push_back(frame) ? Step::go_on : Step::give_up;
  }
  std::size_t last_place(const State& next, std::size_t low, std::size_t high) const;
  Step step(std::size_t begin, Position& now, std::int64_t& credit, Match& match);
  Step run_ahead(const State& run, Position& now, std::int64_t& credit);
  bool resume(Position& now, std::int64_t& credit, Match& match);

  const Plan& plan_;
  Bytes text_;
  std::size_t max_frames_;
  SmallStack<Frame, 8> stack_;
};

}  // namespace vstring::regex
