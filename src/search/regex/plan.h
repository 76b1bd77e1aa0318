// A node program prepared for matching: states in place of nodes.
//
// Nodes that match nothing are gone, sets are bitmaps, every byte of a literal has a state of its
// own, and what is damaged (a caller owns the program and may have written to it) has become a
// state that reports it and fails. A plan leads nowhere outside itself, so matchers check nothing.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/byte_set.h"
#include "host/vstring.h"
#include "runtime/bytes.h"
#include "search/regex/program.h"

namespace vstring::regex {

enum class Op : std::uint8_t {
  fail,
  report,   // records message `other`, then goes on
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

enum class Test : std::uint8_t { any, byte, set };

struct State {
  Op op = Op::fail;
  Test test = Test::any;  // which byte one, star and plus take: any, `byte`, one of set `other`
  Byte byte = 0;          // of a literal: its first
  Byte slot = 0;          // 2n: start of group n, 2n + 1: its end
  std::uint32_t next = 0;
  std::uint32_t other = 0;
  std::uint32_t at = 0;
};

inline constexpr std::uint32_t kFailState = 0;
inline constexpr int kSlots = 2 * kGroups;

struct Plan {
  const Byte* program;  // of the compiled expression, which must outlive the plan
  const State* states;
  const ByteSet* sets;
  std::uint32_t state_count;
  std::uint32_t start;
  std::uint32_t slot_count;  // captures beyond these are never set
  std::uint32_t first_run;   // a star or plus that every match begins with; kFailState: none
  bool has_bol;              // whether the answer can depend on where the text starts
  bool anchored;             // tried at the start of the text only
  bool has_first_set;        // every match begins with a byte of first_set
  Byte first_byte;           // tried at this byte only; 0: no such hint
  ByteSet first_set;
  Bytes must;  // stands in every text that matches; empty: no such hint

  // Whether a state that consumes takes this byte first.
  bool takes(const State& state, Byte c) const {
    if (state.op == Op::literal || state.test == Test::byte) return c == state.byte;
    return state.test == Test::any || sets[state.other].has(c);
  }

  // Where the longest run of bytes that a star or plus takes ends.
  std::size_t run_end(const State& state, Bytes text, std::size_t from) const;

  // The state that follows once state `s` has taken a byte.
  std::uint32_t after(std::uint32_t s) const {
    const State& state = states[s];
    if (state.op == Op::star) return s;
    if (state.op == Op::plus || (state.op == Op::literal && state.other > 1)) return s + 1;
    return state.next;
  }

  // The first place from `at` on, the end of the text included, where a match may start as far as
  // its first byte tells; kNowhere when there is none.
  std::size_t next_start(Bytes text, std::size_t at) const;
  // The first place after `at`, where an attempt has failed, that is worth another. A run of bytes
  // that the pattern begins with need not be entered again further in: the places where it can be
  // left have all been tried.
  std::size_t after_failure(Bytes text, std::size_t at) const {
    return (first_run == kFailState ? at : run_end(states[first_run], text, at)) + 1;
  }
  // Whether one may start at `at`, in a text that starts at `begin`.
  bool may_start(Bytes text, std::size_t begin, std::size_t at) const {
    if (anchored) return at == begin;
    if (first_byte == 0 && !has_first_set) return true;
    if (at == text.size()) return false;
    return first_byte != 0 ? text[at] == first_byte : first_set.has(text[at]);
  }
};

inline constexpr std::size_t kNowhere = SIZE_MAX;

// One block from malloc, for free(); null when memory fails. O(program).
Plan* make_plan(const VstringRegex& regex);

// Records the message of a report state.
void report(const State& state);

// Where the groups of a match lie, as offsets; kNowhere for those that took no part.
struct Match {
  std::size_t slot[kSlots];

  void clear() {
    for (std::size_t& s : slot) s = kNowhere;
  }
  std::size_t start(int group = 0) const { return slot[2 * group]; }
  std::size_t end(int group = 0) const { return slot[2 * group + 1]; }
  bool has(int group) const { return start(group) != kNowhere && end(group) != kNowhere; }
  Bytes group(Bytes text, int group) const {
    return has(group) ? text.subspan(start(group), end(group) - start(group)) : Bytes();
  }
};

}  // namespace vstring::regex
