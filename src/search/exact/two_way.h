// The two-way string matcher: every occurrence of a pattern in linear time and constant space.
//
// The pattern is cut at a critical position: its right part is compared from left to right first,
// and a mismatch there moves the pattern behind the mismatch; only then the left part is compared,
// and a mismatch there moves the pattern by its period. A pattern with a short period remembers
// how much of it is known to agree after such a move, so that no byte is compared more than twice.
// Ahead of that, the bytes under the pattern's end allow long moves through ordinary text: the last
// one, or a hash of the last four, which keeps the moves long where the alphabet is small.
//
// M. Crochemore, D. Perrin, "Two-way string-matching", 1991; R. N. Horspool, "Practical fast
// searching in strings", 1980, for the moves.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::search {

class TwoWay {
 public:
  // Prepares to search `text` from offset `from` on. Requires a non-empty pattern. O(m) time.
  void start(Bytes pattern, Bytes text, std::size_t from);

  // Offset of the next occurrence, overlapping ones included, or npos.
  std::size_t next();

 private:
  void prepare_moves();
  std::size_t key(const Byte* end) const;  // index into moves_ by the bytes ahead of `end`

  Bytes pattern_;
  Bytes text_;
  std::size_t at_;          // where the pattern lies
  std::size_t remembered_;  // length of the prefix known to agree there
  std::size_t critical_;    // length of the left part
  std::size_t period_;      // of the pattern, or a safe move when the period is long
  bool is_periodic_;
  bool has_grams_;             // moves by four bytes rather than by one
  std::uint16_t moves_[1024];  // safe move by the bytes under the pattern's end; 0: perhaps there
};

}  // namespace vstring::search
