// A node program prepared for matching: states in place of nodes.
//
// Nodes that match nothing are gone, sets are bitmaps, every byte of a literal has a state of its
// own, and what is damaged (a caller owns the program and may have written to it) has become a
// state that reports it and fails. A plan leads nowhere outside itself, so matchers check nothing.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/byte_scan.h"
#include "bytes/bytes.h"
#include "bytes/prefix_filter.h"
#include "host/vstring.h"
#include "search/exact/needle.h"
#include "search/regex/program.h"

namespace vstring::regex {

using StateNumber = std::uint32_t;

enum class Op : std::uint8_t {
  fail,
  report,   // records the message of fault `other`, then goes on
  accept,   // the end of a match
  bol,      // goes on at the start of the text
  eol,      // goes on at the end of the text
  one,      // takes one byte
  literal,  // takes `other` bytes, those of the program from `at` on; the state after this one
            // stands for all but the first of them
  branch,   // goes on with `next`, or else with `other`
  save,     // sets capture `slot`
  star,     // takes as many bytes as it can, then fewer
  plus,     // the same, at least one; the state after this one is the star that remains
};

// Whether a state of this kind takes a byte before it goes on; a star may also take none.
inline constexpr bool consumes(Op op) {
  return op == Op::one || op == Op::literal || op == Op::star || op == Op::plus;
}

// Whether a state of this kind leads on without taking a byte, at the start or the end of the text
// or elsewhere.
inline constexpr bool passes(Op op, bool is_begin, bool is_end) {
  if (op == Op::bol) return is_begin;
  if (op == Op::eol) return is_end;
  return op == Op::report || op == Op::branch || op == Op::save || op == Op::star;
}

enum class Test : std::uint8_t { any, byte, set };

struct State {
  Op op = Op::fail;
  Test test = Test::any;  // which byte one, star and plus take: any, `byte`, one of set `other`
  Byte byte = 0;          // of a literal: its first
  Byte slot = 0;          // 2n: start of group n, 2n + 1: its end
  StateNumber next = 0;
  std::uint32_t other = 0;
  std::uint16_t at = 0;
  bool takes_all = false;  // star, plus: taking fewer bytes than it can never leads to a match
  bool looks = false;      // branch: the look-ahead of that number (`at`) tells the ways apart
};

// Of the two ways that a branch can go: the bytes that can come next there, and whether the way can
// also come to the end of a match or of the text. Unknown is as good as everything.
struct LookAhead {
  ByteSet bytes[2];
  bool can_end[2];

  // Whether way `i` is worth a try where the text goes on with `rest`.
  bool allows(int i, Bytes rest) const {
    return can_end[i] || (!rest.empty() && bytes[i].has(rest[0]));
  }
};

inline constexpr StateNumber kFailState = 0;

// What may be wrong with a program. The state of that number in every plan reports it.
enum Fault : StateNumber { kBrokenChain = kFailState + 1, kBadOpcode, kBadOperand, kFaults };

// The states that one leads to, the preferred one first.
struct Successors {
  StateNumber state[2];
  int count;

  const StateNumber* begin() const { return state; }
  const StateNumber* end() const { return state + count; }
};
inline Successors successors(const State& state) {
  const bool is_last = state.op == Op::fail || state.op == Op::accept;
  return {{state.next, state.other}, is_last ? 0 : state.op == Op::branch ? 2 : 1};
}

inline constexpr int kMaxRequired = 4;  // states of which hints say that every match needs them

// What is known beforehand of every match, so that most of a text need not be tried (hints.cpp).
struct Hints {
  bool has_first = false;  // whether a match begins with a byte of `first`
  ByteScan first;
  search::Needle prefix;          // what a match begins with; of size 0: nothing is known
  std::size_t prefix_length = 0;  // a match begins as `prefixes` has it, with 2 or 3 bytes; 0: no
  PrefixFilter prefixes;
  std::size_t window_length = 0;  // the first so many bytes of a match are of `window`; 0: unknown
  ByteSet window;
  int required_count = 0;
  StateNumber required[kMaxRequired];  // a match has what they take; what tells most comes first
  bool has_lead = false;  // whether the bytes of a match ahead of required[0] are of `lead`
  ByteSet lead;
  std::size_t min_lead = 0;       // there are so many at least, 0 or 1
  std::size_t around_length = 0;  // it stands where `around` does, of so many bytes; 0: unknown
  std::size_t around_at = 0;      // from this one of them on
  PrefixFilter around;
  ByteSet taken;  // all bytes that a match can have, where every match ends with the text
};

struct Plan {
  const Byte* program;  // of the compiled expression, which must outlive the plan
  State* states;
  const ByteScan* sets;
  LookAhead* look_ahead;
  std::uint32_t state_count;
  StateNumber start;
  std::uint32_t slot_count;   // captures beyond these are never set
  StateNumber first_run;      // a star or plus that every match begins with; kFailState: none
  StateNumber single;         // groups aside, a match is what this state takes wherever one can
                              // start; kFailState: it is not as simple as that
  std::uint32_t start_slots;  // bit n: capture n is where that match starts, not where it ends
  bool has_bol;               // whether the answer can depend on where the text starts
  bool ends_with_text;        // every match does, for want of a way around a $
  bool anchored;              // tried at the start of the text only
  Hints hints;

  // Whether a state that consumes takes this byte first.
  bool takes(const State& state, Byte c) const {
    if (state.op == Op::literal || state.test == Test::byte) return c == state.byte;
    return state.test == Test::any || sets[state.other].has(c);
  }

  // The bytes that a state that consumes can take first.
  ByteSet first_bytes(const State& state) const {
    if (state.op == Op::literal || state.test == Test::byte) return ByteSet(Bytes(&state.byte, 1));
    if (state.test == Test::set) return sets[state.other].set();
    ByteSet all;
    all.complement();
    return all;
  }

  // Where the longest run of bytes that a star or plus takes ends.
  std::size_t run_end(const State& state, Bytes text, std::size_t from) const {
    if (state.test == Test::any) return text.size();
    if (state.test == Test::set) return sets[state.other].find_other(text, from);
    while (from < text.size() && text[from] == state.byte) ++from;
    return from;
  }

  // The state that follows once state `s` has taken a byte.
  StateNumber after(StateNumber s) const {
    const State& state = states[s];
    if (state.op == Op::star) return s;
    if (state.op == Op::plus || (state.op == Op::literal && state.other > 1)) return s + 1;
    return state.next;
  }

  // The bytes of a literal; of another state that takes but one byte, that one.
  Bytes literal(const State& state) const {
    return state.op == Op::literal ? Bytes(program + state.at, state.other) : Bytes(&state.byte, 1);
  }

  // The first place after `at`, where an attempt has failed, that is worth another. A run of bytes
  // that the pattern begins with need not be entered again further in: the places where it can be
  // left have all been tried.
  std::size_t after_failure(Bytes text, std::size_t at) const {
    return (first_run == kFailState ? at : run_end(states[first_run], text, at)) + 1;
  }

  // Whether one may start at `at`, in a text that starts at `begin`, as far as one byte tells.
  bool may_start(Bytes text, std::size_t begin, std::size_t at) const {
    if (anchored) return at == begin;
    return !hints.has_first || (at < text.size() && hints.first.has(text[at]));
  }
};

// Records the message of a report state.
void report(const State& state);

}  // namespace vstring::regex
