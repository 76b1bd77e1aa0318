// Exact search for one pattern: the first occurrence, or all of them.
//
// Texts are scanned for a few bytes of the pattern, 64 alignments at a time, the two rarest ahead
// (bytes/find_probes.h). A pattern of up to eight bytes has nothing else; of a longer one the rest
// is compared. What that takes is counted: where it comes too thick (periodic texts, mostly) the
// rest of the text is left to the two-way matcher, so that every search is linear in pattern and
// text.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/budget.h"
#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"
#include "search/exact/needle.h"
#include "search/exact/two_way.h"

namespace vstring::search {

// The occurrences of a needle in a text from left to right, overlapping ones included. The empty
// pattern occurs nowhere. The pattern and the text must outlive the finder, which allocates
// nothing.
class Finder {
 public:
  Finder() = default;  // finds nothing until it is started
  Finder(const Needle& needle, Bytes text) : needle_(needle) { start_text(text); }
  Finder(Bytes pattern, Bytes text) : needle_(pattern, text.size()) { start_text(text); }
  void start(Bytes pattern, Bytes text) {
    needle_ = Needle(pattern, text.size());
    start_text(text);
  }

  // Offset of the next occurrence, or npos.
  std::size_t next();
  // Offset of the next occurrence at `from` or later, or npos.
  std::size_t next_from(std::size_t from);
  // Appends the offsets of all occurrences that are left.
  Status collect(HeldArray<std::size_t>& offsets);

 private:
  void start_text(Bytes text);
  bool scan_on();
  bool occurs_at(std::size_t at);
  void give_up(std::size_t from);

  Needle needle_;
  Bytes text_;
  std::size_t end_ = 0;     // behind the last alignment
  std::size_t at_ = 0;      // the first alignment that has not been scanned
  std::size_t base_ = 0;    // of the block scanned last
  std::uint64_t hits_ = 0;  // the alignments of that block that are left to compare
  Budget ahead_ = kLookAhead;
  Budget budget_{0};  // for comparisons
  bool is_two_way_ = false;
  TwoWay two_way_;
};

// Offset of the first occurrence of `pattern` in `text`, or npos. The empty pattern occurs nowhere.
std::size_t find(Bytes pattern, Bytes text);

// Appends the offsets of all occurrences, overlapping ones included, in increasing order.
Status find_all(Bytes pattern, Bytes text, HeldArray<std::size_t>& offsets);

// The same for one pattern in many texts: a needle that is prepared once serves the short ones.
std::size_t find(const Needle& needle, Bytes text);
Status find_all(const Needle& needle, Bytes text, HeldArray<std::size_t>& offsets);

}  // namespace vstring::search
