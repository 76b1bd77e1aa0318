// A column of the edit-distance table as bit vectors: 64 rows per machine word.
//
// Neighbouring cells of the table differ by -1, 0 or 1, so a column is kept as its vertical
// differences and moved on by one byte of text in some fifteen word operations.
//
// G. Myers, "A fast bit-vector algorithm for approximate string matching based on dynamic
// programming", 1999, in the form of H. Hyyro, "A bit-vector algorithm for computing Levenshtein
// and Damerau edit distances", 2003.
#pragma once
#include <cstddef>
#include <cstdint>

namespace vstring::search {

inline constexpr std::size_t kColumnRows = 64;

// Bit i: row i + 1 is one above (rise) or one below (fall) row i. Starts as the column ahead of
// the text, in which row i holds i.
struct EditColumn {
  std::uint64_t rise = ~std::uint64_t{0};
  std::uint64_t fall = 0;
};

// Moves the column on by a byte that equals the pattern in the rows of `equal`. `above` is by how
// much the cell over the column's first row changed (-1, 0 or 1); returned is by how much the row
// of bit `bottom` did.
inline int advance(EditColumn& column, std::uint64_t equal, int above, unsigned bottom) {
  const std::uint64_t above_rose = above > 0 ? 1 : 0;
  const std::uint64_t above_fell = above < 0 ? 1 : 0;
  const std::uint64_t vertical = equal | column.fall;
  equal |= above_fell;
  const std::uint64_t horizontal = (((equal & column.rise) + column.rise) ^ column.rise) | equal;
  std::uint64_t rose = column.fall | ~(horizontal | column.rise);
  std::uint64_t fell = column.rise & horizontal;
  const int change = static_cast<int>(rose >> bottom & 1) - static_cast<int>(fell >> bottom & 1);
  rose = rose << 1 | above_rose;
  fell = fell << 1 | above_fell;
  column.rise = fell | ~(vertical | rose);
  column.fall = rose & vertical;
  return change;
}

}  // namespace vstring::search
