#include "words/likeness/damerau.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <utility>

#include "bytes/common.h"
#include "runtime/small_array.h"

namespace vstring::words {
namespace {

using Cell = std::int64_t;

constexpr Cell kFar = INT64_MAX / 4;

// The rows that the recurrence looks at, each with a cell before its first.
struct Rows {
  explicit Rows(std::span<Cell> cells)
      : width(cells.size() / 3),
        above(cells.data() + 1),
        here(above + width),
        exchange(here + width) {}

  std::size_t width;
  Cell* above;     // row i - 1; row i - 2 until it is overwritten
  Cell* here;      // row i
  Cell* exchange;  // at j: d(k - 1, j - 2) for the last row k so far with s_k = t_j
};

std::size_t distance(Bytes s, Bytes t, Rows rows) {
  std::array<Cell, 256> last_row;  // of each letter of s so far; far above when there is none
  last_row.fill(-kFar);
  for (Cell* const row : {rows.above, rows.here, rows.exchange}) row[-1] = kFar;
  const auto n = static_cast<Cell>(t.size());
  for (Cell j = 0; j <= n; ++j) {
    rows.here[j] = j;
    rows.above[j] = rows.exchange[j] = kFar;
  }
  for (Cell i = 1; i <= static_cast<Cell>(s.size()); ++i) {
    const Byte letter = s[static_cast<std::size_t>(i - 1)];
    std::swap(rows.above, rows.here);
    Cell* const above = rows.above;
    Cell* const here = rows.here;
    Cell two_above = here[0];  // d(i - 2, j - 1)
    here[0] = i;
    Cell last_column = -kFar;   // of `letter` in t so far
    Cell before_column = kFar;  // d(i - 2, last_column - 1)
    for (Cell j = 1; j <= n; ++j) {
      const Byte other = t[static_cast<std::size_t>(j - 1)];
      Cell best =
          std::min({above[j - 1] + (letter == other ? 0 : 1), here[j - 1] + 1, above[j] + 1});
      if (letter == other) {
        last_column = j;
        rows.exchange[j] = above[j - 2];
        before_column = two_above;
      } else if (j - last_column == 1) {
        best = std::min(best, rows.exchange[j] + (i - last_row[other]));
      } else if (i - last_row[other] == 1) {
        best = std::min(best, before_column + (j - last_column));
      }
      two_above = here[j];
      here[j] = best;
    }
    last_row[letter] = i;
  }
  return static_cast<std::size_t>(rows.here[n]);
}

}  // namespace

Result<std::size_t> damerau_distance(Bytes s, Bytes t) {
  trim_common_ends(s, t);
  if (s.size() < t.size()) std::swap(s, t);
  if (t.empty()) return s.size();
  SmallArray<Cell, 3 * 66> cells;
  if (!cells.allocate(3 * (t.size() + 2))) return Status::out_of_memory;
  const std::size_t result = distance(s, t, Rows(cells.view()));
  cells.free();
  return result;
}

}  // namespace vstring::words
