// Up to 256 rows of a table of edit distances, crossed from left to right in four columns of bit
// vectors at once: each is two letters behind the one above, from which it takes over the changes.
#pragma once
#include <bit>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/cpu.h"
#include "bytes/edit_column.h"

namespace vstring {

// The changes of a row over up to 64 letters, bit i at the i-th.
struct EditRun {
  std::uint64_t rose = ~std::uint64_t{0};  // the first row of the table rises with each letter
  std::uint64_t fell = 0;

  EditChange at(std::size_t i) const { return {rose >> i & 1, fell >> i & 1}; }
  void put(std::size_t i, EditChange change) {
    rose |= change.rose << i;
    fell |= change.fell << i;
  }
  std::size_t gain() const {
    return static_cast<std::size_t>(std::popcount(rose) - std::popcount(fell));
  }
};

inline constexpr std::size_t kStripeWords = 4;

// Whether it is worth while: without vectors a word or two at a time are faster.
inline bool has_edit_stripe() { return has_avx2(); }

// On entry `runs` holds the changes of the row above the stripe, on return those of its last row,
// in both cases for 64 letters each. Bit i of equal[c][w] tells whether row 64 w + i has letter c;
// letter 0 is in no row. Requires 1 to 256 rows, and vectors.
void cross_edit_stripe(const std::uint64_t (*equal)[kStripeWords], std::size_t rows, Bytes letters,
                       EditRun* runs);

}  // namespace vstring
