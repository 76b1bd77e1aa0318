#include "words/levenshtein.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>

#include "bytes/common.h"
#include "runtime/memory.h"

namespace vstring::words {
namespace {

constexpr std::size_t kBits = 64;

// Differences from one cell to its neighbour in a row, for up to 64 columns (bit i: column i).
struct RowDifferences {
  std::uint64_t plus = ~std::uint64_t{0};  // +1
  std::uint64_t minus = 0;                 // -1
};

// Differences from one cell to the one below, for the 64 rows of a stripe (bit i: row i).
struct ColumnDifferences {
  std::uint64_t plus = ~std::uint64_t{0};
  std::uint64_t minus = 0;
};

// Bit i of equal[c]: row i of the stripe has the letter c. Only the cells of letters that occur are
// initialised, so that short words do not pay for 256 of them.
using Equality = std::uint64_t[256];

// Moves down one stripe for a run of at most 64 columns. On entry `row` holds the differences
// along the row above the stripe, on return those along its row number `last`. `column` is carried
// from run to run.
void cross(const Equality& equal, std::size_t last, Bytes columns, ColumnDifferences& column,
           RowDifferences& row) {
  std::uint64_t vp = column.plus;
  std::uint64_t vn = column.minus;
  std::uint64_t plus_above = row.plus;
  std::uint64_t minus_above = row.minus;
  RowDifferences below = {0, 0};
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::uint64_t plus_in = plus_above & 1;
    const std::uint64_t minus_in = minus_above & 1;
    plus_above >>= 1;
    minus_above >>= 1;
    const std::uint64_t eq = equal[columns[i]];
    const std::uint64_t xv = eq | vn;
    const std::uint64_t xh = eq | minus_in;
    const std::uint64_t d0 = (((xh & vp) + vp) ^ vp) | xh;
    std::uint64_t hp = vn | ~(d0 | vp);
    std::uint64_t hn = vp & d0;
    below.plus |= ((hp >> last) & 1) << i;
    below.minus |= ((hn >> last) & 1) << i;
    hp = (hp << 1) | plus_in;
    hn = (hn << 1) | minus_in;
    vp = hn | ~(xv | hp);
    vn = hp & xv;
  }
  column = {vp, vn};
  row = below;
}

}  // namespace

Result<std::size_t> levenshtein(Bytes s, Bytes t) {
  const std::size_t prefix = common_prefix(s, t);
  s = s.subspan(prefix);
  t = t.subspan(prefix);
  const std::size_t suffix = common_suffix(s, t);
  s = s.first(s.size() - suffix);
  t = t.first(t.size() - suffix);

  Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty()) return rows.size();

  RowDifferences few_runs[16];
  Buffer<RowDifferences> many_runs;
  std::span<RowDifferences> row(few_runs);
  const std::size_t runs = (columns.size() + kBits - 1) / kBits;
  if (runs > row.size()) {
    if (!many_runs.resize(runs)) return Status::out_of_memory;
    row = {many_runs.data(), runs};
    std::fill(row.begin(), row.end(), RowDifferences{});
  }

  const std::size_t row_count = rows.size();
  Equality equal;
  for (const Byte c : columns) equal[c] = 0;
  for (const Byte c : rows) equal[c] = 0;
  while (!rows.empty()) {
    const Bytes stripe = rows.first(std::min(rows.size(), kBits));
    rows = rows.subspan(stripe.size());
    for (std::size_t i = 0; i < stripe.size(); ++i) equal[stripe[i]] |= std::uint64_t{1} << i;
    ColumnDifferences column;
    for (std::size_t r = 0; r < runs; ++r) {
      const Bytes run = columns.subspan(kBits * r, std::min(kBits, columns.size() - kBits * r));
      cross(equal, stripe.size() - 1, run, column, row[r]);
    }
    for (const Byte c : stripe) equal[c] = 0;
  }

  // Along the last row from its first cell, which is the number of rows. Bits behind the last
  // column are 0 in both.
  std::size_t distance = row_count;
  for (const RowDifferences& run : row.first(runs)) {
    distance += static_cast<std::size_t>(std::popcount(run.plus));
    distance -= static_cast<std::size_t>(std::popcount(run.minus));
  }
  return distance;
}

}  // namespace vstring::words
