// A column of a table of edit distances as bit vectors: 64 rows per machine word.
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

namespace vstring {

// By how much a cell changed from one column to the next: each 0 or 1, at most one of them 1.
struct EditChange {
  std::uint64_t rose = 0;
  std::uint64_t fell = 0;

  std::int64_t value() const {
    return static_cast<std::int64_t>(rose) - static_cast<std::int64_t>(fell);
  }
};

struct EditColumn {
  static constexpr std::size_t kRows = 64;

  // Bit i: row i + 1 is one above (rise) or one below (fall) row i. Starts as the column ahead of
  // the text, in which row i holds i.
  std::uint64_t rise = ~std::uint64_t{0};
  std::uint64_t fall = 0;

  // Moves on by a byte that equals the pattern in the rows of `equal`, the cell over the first row
  // changing by `above`. Returns the change of the row of bit `bottom`.
  EditChange advance(std::uint64_t equal, EditChange above, std::size_t bottom) {
    const std::uint64_t vertical = equal | fall;
    const std::uint64_t reached = equal | above.fell;
    const std::uint64_t met = reached & rise;
    const std::uint64_t sum = met + rise;
    // The change is kept as "did not rise", and nothing that is known ahead of the sum waits for
    // it: from column to column seven operations depend on each other, instead of twelve.
    const std::uint64_t stayed = (sum | (rise | reached)) & ~fall;
    const std::uint64_t fell = met | (rise & ~sum);
    const std::uint64_t stayed_above = stayed << 1 | (above.rose ^ 1);
    const std::uint64_t fell_above = fell << 1 | above.fell;
    rise = fell_above | (stayed_above & ~vertical);
    fall = vertical & ~stayed_above;
    return {(stayed >> bottom & 1) ^ 1, fell >> bottom & 1};
  }
};

}  // namespace vstring
