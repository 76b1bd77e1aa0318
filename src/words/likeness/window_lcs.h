// Longest common subsequences of a pattern with all factors of a text at once.
//
// A. Tiskin, "Semi-local string comparison: algorithmic techniques and applications", 2008, combing
// of the table: strands come in from the left side and from the top, go straight on through cells
// whose letters differ unless they have crossed before, and turn in all other cells. The strands
// that enter at the top from place i on and leave at the bottom before place j are what the factor
// [i, j) has more letters than the common subsequence.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

class WindowLcs {
 public:
  // O(|pattern| |text|) time, 13 bytes for each letter of both. Fails only for want of memory, as
  // which texts of 4 GiB and more count.
  Status comb(Bytes pattern, Bytes text);

  // Calls visit(length of the factor, length of the common subsequence) for the prefixes of the
  // text that are shorter than the pattern, for the factors that are as long, and for the suffixes
  // that are shorter; empty ones are left out. O(|text|) time.
  template <typename Visit>
  void for_each_window(Visit visit) const {
    const std::size_t m = pattern_length_;
    const std::size_t n = entry_.size();
    std::size_t strands = 0;  // within the window
    for (std::size_t end = 1; end <= n; ++end) {
      strands += comes_from(end - 1, end > m ? end - m : 0) ? 1 : 0;
      if (end > m && exit_[end - m - 1] < end - 1) --strands;
      const std::size_t length = end < m ? end : m;
      visit(length, length - strands);
    }
    for (std::size_t start = n > m ? n - m : 0; start + 1 < n; ++start) {
      if (exit_[start] < n) --strands;
      visit(n - start - 1, n - start - 1 - strands);
    }
  }

 private:
  // Whether the strand that leaves at place `end` entered at the top, not before place `start`.
  bool comes_from(std::size_t end, std::size_t start) const {
    return entry_[end] >= pattern_length_ + start;
  }

  std::size_t pattern_length_ = 0;
  Buffer<std::uint32_t> entry_;  // of the strand that leaves at the bottom: sides first, then top
  Buffer<std::uint32_t> exit_;   // of the strand that enters at the top; |text| or more: at a side
};

}  // namespace vstring::words
