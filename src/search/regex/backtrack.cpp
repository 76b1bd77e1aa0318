#include "search/regex/backtrack.h"

#include <cstring>

namespace vstring::regex {
namespace {

// Bytes that a scan passes for one unit of credit.
constexpr std::size_t kScanPerUnit = 16;

std::int64_t scan_cost(std::size_t bytes) {
  return static_cast<std::int64_t>(bytes / kScanPerUnit);
}

}  // namespace

// The rightmost place in [low, high) where `next` has a chance, or npos: before a literal, only its
// first byte is worth a try.
std::size_t Backtracker::last_place(const State& next, std::size_t low, std::size_t high) const {
  if (low >= high) return npos;
  if (next.op != Op::literal) return high - 1;
  if (high > text_.size()) --high;
  const Byte* const first = text_.data() + low;
  const void* const found = memrchr(first, next.byte, high - low);
  if (found == nullptr) return npos;
  return static_cast<std::size_t>(static_cast<const Byte*>(found) - text_.data());
}

// Tries one state where the attempt stands, and goes on to the next state.
inline Backtracker::Step Backtracker::step(std::size_t begin, Position& now, std::int64_t& credit,
                                           Match& match) {
  const State& state = plan_.states[now.state];
  const std::size_t p = now.at;
  const auto go_on_if = [](bool condition) { return condition ? Step::go_on : Step::turn_back; };
  now.state = state.next;
  switch (state.op) {
    case Op::fail:
      return Step::turn_back;
    case Op::report:
      report(state);
      return Step::go_on;
    case Op::accept:
      return Step::accept;
    case Op::bol:
      return go_on_if(p == begin);
    case Op::eol:
      return go_on_if(p == text_.size());
    case Op::one:
      ++now.at;
      return go_on_if(p < text_.size() && plan_.takes(state, text_[p]));
    case Op::literal:
      now.at += state.other;
      return go_on_if(text_.size() - p >= state.other && text_[p] == state.byte &&
                      (state.other == 1 ||
                       std::memcmp(text_.data() + p, plan_.program + state.at, state.other) == 0));
    case Op::branch:
      if (state.looks) {
        const LookAhead& look = plan_.look_ahead[state.at];
        const Bytes rest = text_.subspan(p);
        if (!look.allows(1, rest)) return go_on_if(look.allows(0, rest));
        if (!look.allows(0, rest)) {
          now.state = state.other;
          return Step::go_on;
        }
      }
      return push({Kind::alternative, state.other, p, 0});
    case Op::save: {
      std::size_t& slot = match.slot[state.slot];
      const std::size_t before = slot;
      slot = p;
      // With no choice open there is nothing to go back to: every attempt begins with none set.
      return stack_.empty() ? Step::go_on : push({Kind::restore, state.slot, before, 0});
    }
    case Op::star:
    case Op::plus:
      return run_ahead(state, now, credit);
  }
  __builtin_unreachable();
}

// Takes the longest run of bytes, leaving open the choice of a shorter one.
inline Backtracker::Step Backtracker::run_ahead(const State& run, Position& now,
                                                std::int64_t& credit) {
  const std::size_t low = run.op == Op::plus ? now.at + 1 : now.at;
  const std::size_t end = plan_.run_end(run, text_, now.at);
  credit -= scan_cost(end - now.at);
  if (run.takes_all) {
    now.at = end;
    return end >= low ? Step::go_on : Step::turn_back;
  }
  now.at = last_place(plan_.states[run.next], low, end + 1);
  if (now.at == npos) return Step::turn_back;
  return low < now.at ? push({Kind::shorter, run.next, low, now.at}) : Step::go_on;
}

// Takes up the choice left open last. False when there is none.
inline bool Backtracker::resume(Position& now, std::int64_t& credit, Match& match) {
  while (!stack_.empty()) {
    Frame& frame = stack_.back();
    now.state = frame.state;
    switch (frame.kind) {
      case Kind::restore:
        match.slot[frame.state] = frame.low;
        stack_.pop_back();
        break;
      case Kind::alternative:
        now.at = frame.low;
        stack_.pop_back();
        return true;
      case Kind::shorter:
        now.at = last_place(plan_.states[now.state], frame.low, frame.high);
        if (now.at != npos) {
          credit -= scan_cost(frame.high - now.at);
          frame.high = now.at;
        }
        if (now.at == npos || now.at == frame.low) stack_.pop_back();
        if (now.at != npos) return true;
        break;
    }
  }
  return false;
}

Attempt Backtracker::run(std::size_t begin, std::size_t at, std::int64_t& credit, Match& match) {
  Position now = {plan_.start, at};
  stack_.clear();
  if (plan_.slot_count > 2) match.clear(plan_.slot_count);
  while (--credit >= 0) {
    switch (step(begin, now, credit, match)) {
      case Step::go_on:
        break;
      case Step::turn_back:
        if (resume(now, credit, match)) break;
        return Attempt::failed;
      case Step::accept:
        match.slot[0] = at;
        match.slot[1] = now.at;
        return Attempt::matched;
      case Step::give_up:
        return Attempt::gave_up;
    }
  }
  return Attempt::gave_up;
}

}  // namespace vstring::regex
