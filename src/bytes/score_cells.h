// Cells on an anti-diagonal of a table of alignment scores, side by side.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

template <typename Cell>
struct CellScores {
  Cell match;
  Cell mismatch;
  Cell gap;
  Cell floor;  // no cell is less
};

// Fills here[0, n), where letter a[i] meets letter b[i]: the best of corner[i] and the letters'
// score, and of the cells above and to the left, before[i] and before[i + 1], and a gap. Returns
// the greatest of them, the floor when there are none.
template <typename Cell>
Cell score_cells(const Byte* a, const Byte* b, std::size_t n, const Cell* corner,
                 const Cell* before, Cell* here, const CellScores<Cell>& scores);

extern template std::int32_t score_cells(const Byte*, const Byte*, std::size_t, const std::int32_t*,
                                         const std::int32_t*, std::int32_t*,
                                         const CellScores<std::int32_t>&);
extern template std::int64_t score_cells(const Byte*, const Byte*, std::size_t, const std::int64_t*,
                                         const std::int64_t*, std::int64_t*,
                                         const CellScores<std::int64_t>&);

}  // namespace vstring
