#include "words/likeness/levenshtein.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>

#include "bytes/common.h"
#include "runtime/small_array.h"
#include "words/likeness/stripe.h"

namespace vstring::words {
namespace {

// Whether all cells of a row are above `bound`, and so all below it, as far as that is seen at
// little cost. The differences along the row begin at `start`.
bool is_above(std::size_t bound, RowStart start, std::span<const EditTable::Run> runs) {
  for (const EditTable::Run& run : runs) {
    if (start.value <= bound + static_cast<std::size_t>(std::popcount(run.fell))) return false;
    start.value += run.gain();
  }
  return start.value > bound;
}

// The distance if it is at most `bound`, else something above it. A path of that cost from corner
// to corner leaves the diagonals between the corners by at most half of what the bound has over
// their difference. Cells outside of this band count as reached by straight moves, which makes
// them too far but never too near. Requires |columns| <= |rows| <= bound + |columns|; `runs` has
// room for the columns.
std::size_t distance_within(Bytes rows, Bytes columns, std::size_t bound,
                            std::span<EditTable::Run> runs) {
  const auto difference = static_cast<std::int64_t>(rows.size() - columns.size());
  const auto margin = (static_cast<std::int64_t>(bound) - difference) / 2;
  bool stopped = false;
  const RowStart start = last_row<EditTable>(
      rows, columns, runs, {-difference - margin, margin},
      [&](RowStart row, const auto& near) { return stopped = is_above(bound, row, near); });
  if (stopped) return bound + 1;
  std::size_t distance = start.value;
  for (std::size_t r = start.run; r < runs.size(); ++r) distance += runs[r].gain();
  return distance;
}

// Of words of up to 64 letters: one column of one machine word, moved along the shorter word. The
// distance is where it begins, above the rows, and what these add to that.
std::size_t distance_in_one_word(Bytes rows, Bytes columns) {
  const LetterRows<1> equal(rows, columns);
  EditColumn column;
  for (const Byte c : columns) column.advance(equal[c][0], {1, 0}, 0);
  const std::uint64_t inside = UINT64_MAX >> (EditColumn::kRows - rows.size());
  const int added = std::popcount(column.rise & inside) - std::popcount(column.fall & inside);
  return columns.size() + static_cast<std::size_t>(added);
}

// The distance if it is at most `bound`, else something above it. One machine word of rows goes
// down with the columns, so that its bits stand for diagonals (Hyyro, 2003). Cells outside of it
// count as reached by straight moves. Requires |columns| <= |rows| <= bound + |columns| and
// bound < kRows < |rows|.
std::size_t distance_near_diagonal(Bytes rows, Bytes columns, std::size_t bound) {
  constexpr std::size_t kWidth = EditColumn::kRows;
  const std::size_t difference = rows.size() - columns.size();
  // A path that leaves the diagonals between the corners by more costs more than kWidth - 1.
  const std::size_t margin = (kWidth - 1 - difference) / 2;
  const std::size_t corner = difference + margin;  // bit of the diagonal that ends in the corner
  // Where a letter stands in the rows of the machine word, row r being bit r mod kWidth.
  std::uint64_t places[256] = {};
  for (std::size_t r = 0; r < kWidth - 1 - margin; ++r) places[rows[r]] |= std::uint64_t{1} << r;
  std::uint64_t rise = ~std::uint64_t{0} << margin;
  std::uint64_t fall = 0;
  std::size_t distance = difference;
  for (std::size_t j = 0; j < columns.size() && distance <= bound; ++j) {
    const std::size_t entering = j + kWidth - 1 - margin;
    const std::uint64_t place = std::uint64_t{1} << entering % kWidth;
    if (entering >= kWidth) places[rows[entering - kWidth]] ^= place;
    if (entering < rows.size()) places[rows[entering]] |= place;
    const std::uint64_t equal =
        std::rotr(places[columns[j]], static_cast<int>((entering + 1) % kWidth));
    const std::uint64_t met = equal & rise;
    const std::uint64_t sum = met + rise;
    const std::uint64_t zero = (sum ^ rise) | equal | fall;
    const std::uint64_t rose = fall | ~(sum | (rise | equal));
    const std::uint64_t fell = met | (rise & ~sum);
    rise = fell | ~(zero >> 1 | rose);
    fall = zero >> 1 & rose;
    distance += ~zero >> corner & 1;
  }
  return distance;
}

}  // namespace

Result<std::size_t> levenshtein(Bytes s, Bytes t, std::size_t limit) {
  trim_common_ends(s, t);
  const Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty() || rows.size() - columns.size() > limit) return rows.size() - columns.size();
  if (rows.size() <= EditColumn::kRows) return distance_in_one_word(rows, columns);
  if (rows.size() - columns.size() < EditColumn::kRows) {
    const std::size_t bound = std::min(EditColumn::kRows - 1, limit);
    const std::size_t distance = distance_near_diagonal(rows, columns, bound);
    if (distance <= bound || bound == limit) return distance;
  }

  SmallArray<EditTable::Run, 16> runs;
  if (!runs.allocate(runs_for(columns.size()))) return Status::out_of_memory;

  // The distance is at most |rows|. Bounds a quarter, a sixteenth, ... of that are tried first, as
  // long as they leave something out: all of them together cost less than the last.
  constexpr std::size_t kLeastBound = 256;
  int quarters = 0;
  while (rows.size() >> (2 * quarters + 2) >= kLeastBound) ++quarters;
  for (;; --quarters) {
    const std::size_t bound = std::min(rows.size() >> (2 * quarters), limit);
    if (bound < rows.size() - columns.size()) continue;
    const std::size_t distance = distance_within(rows, columns, bound, runs.view());
    if (distance > bound && bound < limit) continue;
    runs.free();
    return distance;
  }
}

}  // namespace vstring::words
