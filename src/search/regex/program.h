// The node program of a compiled regular expression.
//
// A program is the magic byte and then the nodes. A node is an opcode, a link of two bytes (high
// byte first) to the next node of its chain, and an operand where the opcode has one. Links are
// distances in bytes, forward except for BACK; 0 ends a chain. Nodes are named by their offset in
// the program; no node stands at offset 0, which therefore means "none".
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::regex {

inline constexpr Byte kMagic = 0234;
inline constexpr std::size_t kMaxProgram = 32766;  // keeps every distance within a link
inline constexpr int kGroups = 10;                 // the whole match and nine parentheses
inline constexpr std::size_t kNodeHeader = 3;

enum Opcode : Byte {
  kEnd = 0,      // success
  kBol = 1,      // at the start of the text
  kEol = 2,      // at the end of the text
  kAny = 3,      // any byte
  kAnyOf = 4,    // a byte of the set that is the operand, NUL-terminated
  kAnyBut = 5,   // a byte outside that set
  kBranch = 6,   // operand: a chain, one alternative; linked branches make an alternation
  kBack = 7,     // nothing; its link leads backwards
  kExactly = 8,  // the literal that is the operand, NUL-terminated
  kNothing = 9,  // the empty string
  kStar = 10,    // operand: one node that matches one byte, zero or more times
  kPlus = 11,    // the same, one or more times
  kOpen = 20,    // kOpen + n: group n starts here, n = 1 .. 9
  kClose = 30,   // kClose + n: group n ends here
};

inline constexpr bool is_open(Byte opcode) { return opcode > kOpen && opcode < kOpen + kGroups; }
inline constexpr bool is_close(Byte opcode) { return opcode > kClose && opcode < kClose + kGroups; }

inline std::size_t link_of(const Byte* program, std::size_t node) {
  return std::size_t{program[node + 1]} << 8 | program[node + 2];
}

inline void set_link(Byte* program, std::size_t node, std::size_t distance) {
  program[node + 1] = static_cast<Byte>(distance >> 8);
  program[node + 2] = static_cast<Byte>(distance);
}

inline constexpr std::size_t operand_of(std::size_t node) { return node + kNodeHeader; }

// The next node of the chain; none at its end.
inline std::size_t next_of(const Byte* program, std::size_t node) {
  const std::size_t distance = link_of(program, node);
  if (distance == 0) return 0;
  if (program[node] != kBack) return node + distance;
  return distance < node ? node - distance : 0;
}

}  // namespace vstring::regex
