// Exact search for one pattern: the first occurrence, or all of them.
//
// Ordinary texts are scanned for the pattern's two rarest bytes, at the speed of memory. What the
// candidates cost is counted: where they come too thick (a small alphabet, a periodic text, rare
// bytes that are not rare here) the rest of the text is left to the two-way matcher, so that every
// search is linear in pattern and text.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/budget.h"
#include "bytes/bytes.h"
#include "bytes/find_pair.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/exact/two_way.h"

namespace vstring::search {

// The occurrences of `pattern` in `text` from left to right, overlapping ones included. The empty
// pattern occurs nowhere. Both spans must outlive the finder, which allocates nothing.
class Finder {
 public:
  Finder() = default;  // finds nothing until it is started
  Finder(Bytes pattern, Bytes text) { start(pattern, text); }
  void start(Bytes pattern, Bytes text);

  // Offset of the next occurrence, or npos.
  std::size_t next();
  // Offset of the next occurrence at `from` or later, or npos.
  std::size_t next_from(std::size_t from);

 private:
  static constexpr std::size_t kFreeBudget = 1024;

  std::size_t next_candidate(std::size_t end) const;
  bool occurs_at(std::size_t at) const;

  Bytes pattern_;
  Bytes text_;
  std::size_t at_ = npos;  // the next alignment to try; npos at the end
  Budget budget_{kFreeBudget};
  std::size_t rare_ = 0;    // offset of the pair in the pattern
  BytePair pair_ = {};      // of the pattern's rarest bytes; of a single byte, only the first
  std::uint64_t head_ = 0;  // the pattern's first bytes, eight at most, and
  std::uint64_t mask_ = 0;  // all bits of those
  bool is_two_way_ = false;
  TwoWay two_way_;
};

// Offset of the first occurrence of `pattern` in `text`, or npos. The empty pattern occurs nowhere.
std::size_t find(Bytes pattern, Bytes text);

// Appends the offsets of all occurrences, overlapping ones included, in increasing order.
Status find_all(Bytes pattern, Bytes text, HeldArray<std::size_t>& offsets);

}  // namespace vstring::search
