#include "words/likeness/levenshtein.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <cstring>
#include <span>

#include "bytes/common.h"
#include "bytes/edit_column.h"
#include "runtime/small_array.h"

namespace vstring::words {
namespace {

constexpr std::size_t kBits = EditColumn::kRows;
// Words of rows that one stripe goes down at once. The steps of its words overlap in the processor,
// since the upper ones need not wait for the lower ones.
constexpr std::size_t kWide = 2;

// Differences from one cell to its neighbour in a row, for a run of up to 64 columns (bit i: column
// i): where it is +1, and where it is -1.
struct Run {
  std::uint64_t plus = ~std::uint64_t{0};
  std::uint64_t minus = 0;

  std::size_t gain() const {
    return static_cast<std::size_t>(std::popcount(plus) - std::popcount(minus));
  }
};

// A stripe of up to 64 W rows, crossed from left to right.
template <std::size_t W>
class Stripe {
 public:
  // Rows beyond 64 (W - 1) are there in any case.
  Stripe(Bytes rows, Bytes columns) : last_((rows.size() - 1) % kBits) {
    if (columns.size() < 256) {
      for (const Byte c : columns) clear(c);
      for (const Byte c : rows) clear(c);
    } else {
      std::memset(equal_, 0, sizeof equal_);
    }
    for (std::size_t i = 0; i < rows.size(); ++i) {
      equal_[rows[i]][i / kBits] |= std::uint64_t{1} << (i % kBits);
    }
  }

  // Crosses the next run of columns. On entry `run` holds the differences along the row above the
  // stripe, on return those along its last row.
  void cross(Bytes columns, Run& run) {
    EditColumn words[W];
    std::copy_n(words_, W, words);
    const std::size_t last = last_;
    const Run above = run;
    Run below = {0, 0};
    for (std::size_t i = 0; i < columns.size(); ++i) {
      EditChange row = {above.plus >> i & 1, above.minus >> i & 1};
      const std::uint64_t(&equal)[W] = equal_[columns[i]];
#pragma GCC unroll 8
      for (std::size_t w = 0; w + 1 < W; ++w) row = words[w].advance(equal[w], row, kBits - 1);
      row = words[W - 1].advance(equal[W - 1], row, last);
      below.plus |= row.rose << i;
      below.minus |= row.fell << i;
    }
    std::copy_n(words, W, words_);
    run = below;
  }

 private:
  void clear(Byte c) { std::fill_n(equal_[c], W, std::uint64_t{0}); }

  // Bit i of word w: row 64 w + i has this letter. Only the cells of letters that occur are
  // initialised when there are few, so that short words do not pay for all 256 of them.
  std::uint64_t equal_[256][W];
  EditColumn words_[W];
  std::size_t last_;
};

// The runs of 64 columns from `first` up to `end`.
struct Band {
  std::size_t first;
  std::size_t end;
};

template <std::size_t W>
void descend(Bytes rows, Bytes columns, Band band, std::span<Run> runs) {
  const Bytes inside = columns.subspan(
      kBits * band.first, std::min(kBits * band.end, columns.size()) - kBits * band.first);
  Stripe<W> stripe(rows, inside);
  for (std::size_t r = band.first; r < band.end; ++r) {
    const std::size_t start = kBits * r;
    stripe.cross(columns.subspan(start, std::min(kBits, columns.size() - start)), runs[r]);
  }
}

// The distance if it is at most `bound`, else something above it. A path of that cost from corner
// to corner leaves the diagonals between the corners by at most half of what the bound has over
// their difference. Cells outside of this band count as reached by straight moves, which makes
// them too far but never too near. Requires |columns| <= |rows| <= bound + |columns|; `runs` has
// room for the columns.
std::size_t distance_within(Bytes rows, Bytes columns, std::size_t bound, std::span<Run> runs) {
  const std::size_t n = rows.size();
  const std::size_t difference = n - columns.size();
  const std::size_t margin = (bound - difference) / 2;
  std::fill(runs.begin(), runs.end(), Run{});

  std::size_t corner = 0;  // distance at row r and the left end of the band
  std::size_t left = 0;
  for (std::size_t r = 0; r < n;) {
    const std::size_t height = n - r >= kWide * kBits ? kWide * kBits : std::min(kBits, n - r);
    const std::size_t first = r > difference + margin ? (r - difference - margin) / kBits : 0;
    const std::size_t end = (r + height + margin + kBits - 1) / kBits;
    const Band band = {first, std::min(end, runs.size())};
    for (; left < band.first; ++left) corner += runs[left].gain();
    const Bytes stripe = rows.subspan(r, height);
    if (height > kBits) {
      descend<kWide>(stripe, columns, band, runs);
    } else {
      descend<1>(stripe, columns, band, runs);
    }
    corner += height;
    r += height;
  }
  for (; left < runs.size(); ++left) corner += runs[left].gain();
  return corner;
}

}  // namespace

Result<std::size_t> levenshtein(Bytes s, Bytes t) {
  const std::size_t prefix = common_prefix(s, t);
  s = s.subspan(prefix);
  t = t.subspan(prefix);
  const std::size_t suffix = common_suffix(s, t);
  s = s.first(s.size() - suffix);
  t = t.first(t.size() - suffix);

  const Bytes rows = s.size() >= t.size() ? s : t;
  const Bytes columns = s.size() >= t.size() ? t : s;
  if (columns.empty()) return rows.size();

  SmallArray<Run, 16> runs;
  if (!runs.allocate((columns.size() + kBits - 1) / kBits)) return Status::out_of_memory;

  // The distance is at most |rows|. Bounds a quarter, a sixteenth, ... of that are tried first, as
  // long as they leave something out: all of them together cost less than the last.
  constexpr std::size_t kLeastBound = 64;
  int quarters = 0;
  while (rows.size() >> (2 * quarters + 2) >= kLeastBound) ++quarters;
  for (;; --quarters) {
    const std::size_t bound = rows.size() >> (2 * quarters);
    if (bound < rows.size() - columns.size()) continue;
    const std::size_t distance = distance_within(rows, columns, bound, runs.view());
    if (distance > bound) continue;
    runs.free();
    return distance;
  }
}

}  // namespace vstring::words
