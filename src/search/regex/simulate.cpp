#include "search/regex/simulate.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vstring::regex {

static constexpr std::uint32_t kNoSlot = kSlots;

bool Simulation::prepare() {
  if (!entered_.empty()) return true;
  const std::size_t n = plan_.state_count;
  // Entering a state leaves at most one thing pending, and no state is entered twice in a round.
  if (!state_room_.resize(2 * n) || !slot_room_.resize(2 * n * plan_.slot_count) ||
      !pending_.reserve(n + 1) || !entered_.resize_zeroed(n)) {
    return false;
  }
  now_ = {state_room_.data(), slot_room_.data(), 0};
  next_ = {state_room_.data() + n, slot_room_.data() + n * plan_.slot_count, 0};
  return true;
}

// Adds the thread of a state that takes a byte or accepts, or does what another one does. Whether
// the state leads further without taking a byte.
inline bool Simulation::pass(Threads& threads, StateNumber state, std::size_t at,
                             std::size_t* captures) {
  const State& s = plan_.states[state];
  if (s.op == Op::accept || consumes(s.op)) {
    threads.states[threads.count++] = state;
    std::memcpy(slots_of(threads, state), captures, plan_.slot_count * sizeof *captures);
  } else if (s.op == Op::report) {
    report(s);
  } else if (s.op == Op::branch) {
    (void)pending_.push_back({s.other, kNoSlot, 0});
  } else if (s.op == Op::save) {
    (void)pending_.push_back({0, s.slot, captures[s.slot]});
    captures[s.slot] = at;
  }
  return passes(s.op, at == begin_, at == text_.size());
}

// Adds the threads that `state` leads to without taking a byte, in order, unless they are there.
// `captures` is the same again afterwards.
void Simulation::enter(Threads& threads, StateNumber state, std::size_t at, std::size_t* captures) {
  for (;;) {
    for (; entered_[state] != round_; state = plan_.states[state].next) {
      entered_[state] = round_;
      if (!pass(threads, state, at, captures)) break;
    }
    for (std::uint32_t slot = 0; slot != kNoSlot;) {
      if (pending_.empty()) return;
      const Pending top = pending_.back();
      pending_.pop_back();
      slot = top.slot;
      state = top.state;
      if (slot != kNoSlot) captures[slot] = top.value;
    }
  }
}

// Moves the threads over the byte at `at`. True when one of them accepts: it then is the match,
// unless one before it still lives to win, and those after it are gone.
bool Simulation::step(std::size_t at, Match& match) {
  const bool has_byte = at < text_.size();
  const Byte c = has_byte ? text_[at] : Byte{0};
  for (std::size_t i = 0; i < now_.count; ++i) {
    const StateNumber state = now_.states[i];
    const State& s = plan_.states[state];
    std::size_t* const captures = slots_of(now_, state);
    if (s.op == Op::accept) {
      std::copy_n(captures, plan_.slot_count, match.slot);
      match.slot[1] = at;
      return true;
    }
    if (!has_byte || !plan_.takes(s, c)) continue;
    enter(next_, plan_.after(state), at + 1, captures);
  }
  return false;
}

bool Simulation::run(std::size_t begin, std::size_t from, Match& match) {
  begin_ = begin;
  now_.count = 0;
  ++round_;
  bool has_match = false;
  std::size_t at = from;
  for (;; ++at) {
    if (now_.count == 0) {
      if (has_match || (plan_.anchored && at != begin)) break;
      if (!plan_.anchored) at = starts_.next(at);
      if (at == npos) break;
    }
    if (!has_match && plan_.may_start(text_, begin, at)) {
      std::size_t captures[kSlots];
      std::fill_n(captures, plan_.slot_count, npos);
      captures[0] = at;
      enter(now_, plan_.start, at, captures);
    }
    ++round_;
    next_.count = 0;
    if (step(at, match)) has_match = true;
    std::swap(now_, next_);
    ++work_;
    if (at == text_.size()) break;
  }
  return has_match;
}

}  // namespace vstring::regex
