#include "words/likeness/levenshtein.h"

#include <algorithm>
#include <cstdint>
#include <span>

#include "bytes/common.h"
#include "runtime/small_array.h"
#include "words/likeness/stripe.h"

namespace vstring::words {
namespace {

// The distance if it is at most `bound`, else something above it. A path of that cost from corner
// to corner leaves the diagonals between the corners by at most half of what the bound has over
// their difference. Cells outside of this band count as reached by straight moves, which makes
// them too far but never too near. Requires |columns| <= |rows| <= bound + |columns|; `runs` has
// room for the columns.
std::size_t distance_within(Bytes rows, Bytes columns, std::size_t bound,
                            std::span<EditTable::Run> runs) {
  const auto difference = static_cast<std::int64_t>(rows.size() - columns.size());
  const auto margin = (static_cast<std::int64_t>(bound) - difference) / 2;
  const RowStart start = last_row<EditTable>(rows, columns, runs, {-difference - margin, margin});
  std::size_t distance = start.value;
  for (std::size_t r = start.run; r < runs.size(); ++r) distance += runs[r].gain();
  return distance;
}

}  // namespace

Result<std::size_t> levenshtein(Bytes s, Bytes t, std::size_t limit) {
  trim_common_ends(s, t);
  const Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty() || rows.size() - columns.size() > limit) return rows.size() - columns.size();

  SmallArray<EditTable::Run, 16> runs;
  if (!runs.allocate(runs_for(columns.size()))) return Status::out_of_memory;

  // The distance is at most |rows|. Bounds a quarter, a sixteenth, ... of that are tried first, as
  // long as they leave something out: all of them together cost less than the last.
  constexpr std::size_t kLeastBound = 64;
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
