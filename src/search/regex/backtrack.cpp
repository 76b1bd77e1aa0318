#include "search/regex/backtrack.h"

#include <cstring>

namespace vstring::regex {
namespace {

// Bytes that a scan passes for one unit of credit.
constexpr std::size_t kScanPerUnit = 16;

}  // namespace

// The rightmost place in [low, high) where `next` has a chance, or kNowhere: before a literal,
// only its first byte is worth a try.
std::size_t Backtracker::last_place(const State& next, std::size_t low, std::size_t high) const {
  if (low >= high) return kNowhere;
  if (next.op != Op::literal) return high - 1;
  if (high > text_.size()) --high;
  const Byte* const first = text_.data() + low;
  const void* const found = memrchr(first, next.byte, high - low);
  if (found == nullptr) return kNowhere;
  return static_cast<std::size_t>(static_cast<const Byte*>(found) - text_.data());
}

Attempt Backtracker::run(std::size_t begin, std::size_t at, std::int64_t& credit, Match& match) {
  const State* const states = plan_.states;
  const std::size_t n = text_.size();
  std::size_t p = at;
  std::uint32_t current = plan_.start;
  stack_.clear();
  for (;;) {
    if (--credit < 0) return Attempt::gave_up;
    const State& state = states[current];
    bool goes_on = true;
    switch (state.op) {
      case Op::fail:
        goes_on = false;
        break;
      case Op::report:
        report(state);
        break;
      case Op::accept:
        match.slot[0] = at;
        match.slot[1] = p;
        return Attempt::matched;
      case Op::bol:
        goes_on = p == begin;
        break;
      case Op::eol:
        goes_on = p == n;
        break;
      case Op::one:
        goes_on = p < n && plan_.takes(state, text_[p]);
        ++p;
        break;
      case Op::literal:
        goes_on = n - p >= state.other && text_[p] == state.byte &&
                  (state.other == 1 ||
                   std::memcmp(text_.data() + p, plan_.program + state.at, state.other) == 0);
        p += state.other;
        break;
      case Op::branch:
        if (!push({Kind::alternative, state.other, p, 0})) return Attempt::gave_up;
        break;
      case Op::save:
        // With no choice open, a failure is that of the attempt: the captures are all cleared then.
        if (!stack_.empty() && !push({Kind::restore, state.slot, match.slot[state.slot], 0}))
          return Attempt::gave_up;
        match.slot[state.slot] = p;
        break;
      case Op::star:
      case Op::plus: {
        const std::size_t low = state.op == Op::plus ? p + 1 : p;
        const std::size_t end = plan_.run_end(state, text_, p);
        credit -= static_cast<std::int64_t>((end - p) / kScanPerUnit);
        if (state.takes_all) {
          goes_on = end >= low;
          p = end;
          break;
        }
        const std::size_t place = last_place(states[state.next], low, end + 1);
        goes_on = place != kNowhere;
        if (goes_on && low < place && !push({Kind::shorter, state.next, low, place})) {
          return Attempt::gave_up;
        }
        p = place;
        break;
      }
    }
    current = state.next;
    while (!goes_on) {
      if (stack_.empty()) {
        if (plan_.slot_count > 2) match.clear();
        return Attempt::failed;
      }
      Frame& frame = stack_.back();
      current = frame.state;
      if (frame.kind == Kind::restore) {
        match.slot[frame.state] = frame.low;
        stack_.pop_back();
        continue;
      }
      goes_on = true;
      if (frame.kind == Kind::alternative) {
        p = frame.low;
        stack_.pop_back();
        continue;
      }
      p = last_place(states[current], frame.low, frame.high);
      if (p == kNowhere) {
        goes_on = false;
      } else {
        credit -= static_cast<std::int64_t>((frame.high - p) / kScanPerUnit);
        frame.high = p;
      }
      if (p == kNowhere || p == frame.low) stack_.pop_back();
    }
  }
}

}  // namespace vstring::regex
