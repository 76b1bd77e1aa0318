// Which brackets match, with an explicit stack: any depth, in linear time.
//
// A closing bracket matches the opening one on top of the stack when they are a pair; another one
// is unmatched and leaves the stack alone, as are the opening ones left over in the end.
#pragma once
#include <array>
#include <cstddef>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::search {

class BracketPairs {
 public:
  // Opening and closing bytes in turn; false unless these are pairs of distinct bytes.
  [[nodiscard]] bool set(Bytes pairs);

  bool has(Byte c) const { return partner_[c] != 0; }
  bool is_opening(Byte c) const { return opening_.has(c); }
  Byte partner(Byte c) const { return partner_[c]; }

 private:
  std::array<Byte, 256> partner_ = {};
  ByteSet opening_;
};

// Offsets of an opening bracket and the closing one that it matches; npos for none.
struct Bracket {
  std::size_t opening;
  std::size_t closing;
};

// Appends all brackets, matching ones once, in the order of their first bytes.
Status find_brackets(Bytes text, const BracketPairs& pairs, HeldArray<Bracket>& brackets);

// Whether every bracket is matched.
Result<bool> is_balanced(Bytes text, const BracketPairs& pairs);

}  // namespace vstring::search
