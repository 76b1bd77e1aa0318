#include "words/likeness/window_lcs.h"

#include <algorithm>

#include "bytes/comb.h"

namespace vstring::words {

Status WindowLcs::comb(Bytes pattern, Bytes text) {
  const std::size_t m = pattern.size();
  const std::size_t n = text.size();
  pattern_length_ = m;
  Buffer<std::uint32_t> side;  // strands in the rows, the last row first
  Buffer<Byte> letters;        // of the rows, in the same order
  if (m + n > UINT32_MAX || !side.resize(m) || !letters.resize(m) || !entry_.resize(n) ||
      !exit_.resize(n)) {
    return Status::out_of_memory;
  }
  for (std::size_t i = 0; i < m; ++i) side[i] = static_cast<std::uint32_t>(i);
  for (std::size_t j = 0; j < n; ++j) entry_[j] = static_cast<std::uint32_t>(m + j);
  std::reverse_copy(pattern.begin(), pattern.end(), letters.begin());

  // The cells of an anti-diagonal do not depend on each other.
  for (std::size_t k = 0; k + 1 < m + n; ++k) {
    const std::size_t first = k < m ? 0 : k - m + 1;  // column
    const std::size_t last = std::min(n - 1, k);
    const std::size_t row = m - 1 + first - k;
    comb_cells(letters.data() + row, text.data() + first, last - first + 1, side.data() + row,
               entry_.data() + first);
  }

  std::fill(exit_.begin(), exit_.end(), UINT32_MAX);
  for (std::size_t j = 0; j < n; ++j) {
    if (entry_[j] >= m) exit_[entry_[j] - m] = static_cast<std::uint32_t>(j);
  }
  return Status::ok;
}

}  // namespace vstring::words
