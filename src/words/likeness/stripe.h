// Tables of two words whose neighbouring cells differ by little, as bit vectors: 64 rows per
// machine word. Only the differences along one row are kept, two or three bits a column; stripes of
// rows move that row down through the table.
//
// A table is told by its column: the differences from cell to cell downwards for 64 rows, and how
// they move on by one letter. EditColumn (bytes/edit_column.h) is that of Levenshtein's distance.
#pragma once
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <type_traits>

#include "bytes/bytes.h"
#include "bytes/edit_column.h"
#include "bytes/edit_stripe.h"

namespace vstring::words {

inline constexpr std::size_t kRunColumns = 64;

// The changes of one row over up to 64 columns are a run (bit i: column i).

// Levenshtein's distance: a row changes by -1, 0 or 1.
struct EditTable {
  using Column = EditColumn;
  using Run = EditRun;
  static constexpr Run kNothing = {0, 0};
  static constexpr std::size_t kDown = 1;  // from row to row by a straight move
};

// Length of a longest common subsequence: 0 or 1. H. Hyyro, "Bit-parallel LCS-length computation
// revisited", 2004.
struct LcsColumn {
  // Bit i: row i + 1 is no longer than row i.
  std::uint64_t level = ~std::uint64_t{0};

  // Rows below the last one change nothing above, and pass its change on.
  std::uint64_t advance(std::uint64_t equal, std::uint64_t above, std::size_t) {
    const std::uint64_t met = level & equal;
    std::uint64_t sum = 0;
    const bool over = __builtin_add_overflow(level, met, &sum);
    const bool over_above = __builtin_add_overflow(sum, above, &sum);
    level = sum | (level & ~equal);
    return over || over_above ? 1 : 0;
  }
};

struct LcsTable {
  using Column = LcsColumn;
  struct Run {
    std::uint64_t rose = 0;

    std::uint64_t at(std::size_t i) const { return rose >> i & 1; }
    void put(std::size_t i, std::uint64_t change) { rose |= change << i; }
    std::size_t gain() const { return static_cast<std::size_t>(std::popcount(rose)); }
  };
  static constexpr Run kNothing = {0};
  static constexpr std::size_t kDown = 0;
};

// Which letters of up to 64 W rows equal which letter.
template <std::size_t W>
class LetterRows {
 public:
  explicit LetterRows(Bytes rows) {
    std::memset(equal_, 0, sizeof equal_);
    note(rows);
  }
  // Only letters of `columns` will be asked for: short words do not pay for all 256 of them, which
  // vectors clear at a few letters a cycle.
  LetterRows(Bytes rows, Bytes columns) {
    if (rows.size() + columns.size() < 64 * W) {
      for (const Byte c : columns) clear(c);
      for (const Byte c : rows) clear(c);
    } else {
      std::memset(equal_, 0, sizeof equal_);
    }
    note(rows);
  }

  // Bit i of word w: row 64 w + i has this letter.
  const std::uint64_t (&operator[](Byte c) const)[W] { return equal_[c]; }
  const std::uint64_t (*data() const)[W] { return equal_; }

 private:
  void clear(Byte c) { std::fill_n(equal_[c], W, std::uint64_t{0}); }
  void note(Bytes rows) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      equal_[rows[i]][i / 64] |= std::uint64_t{1} << (i % 64);
    }
  }
  std::uint64_t equal_[256][W];
};

// A stripe of up to 64 W rows, crossed from left to right.
template <typename Table, std::size_t W>
class Stripe {
 public:
  // Rows beyond 64 (W - 1) are there in any case.
  Stripe(Bytes rows, Bytes columns) : equal_(rows, columns), last_((rows.size() - 1) % 64) {}

  // Crosses the next run of columns. On entry `run` holds the differences along the row above the
  // stripe, on return those along its last row.
  void cross(Bytes columns, typename Table::Run& run) {
    typename Table::Column words[W];
    std::copy_n(words_, W, words);
    const std::size_t last = last_;
    const typename Table::Run above = run;
    typename Table::Run below = Table::kNothing;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      auto row = above.at(i);
      const std::uint64_t(&equal)[W] = equal_[columns[i]];
#pragma GCC unroll 8
      for (std::size_t w = 0; w + 1 < W; ++w) row = words[w].advance(equal[w], row, 63);
      row = words[W - 1].advance(equal[W - 1], row, last);
      below.put(i, row);
    }
    std::copy_n(words, W, words_);
    run = below;
  }

 private:
  LetterRows<W> equal_;
  typename Table::Column words_[W];
  std::size_t last_;
};

inline std::size_t runs_for(std::size_t columns) {
  return (columns + kRunColumns - 1) / kRunColumns;
}

template <typename Table, std::size_t W>
void cross_runs(Bytes rows, Bytes columns, std::span<typename Table::Run> runs) {
  Stripe<Table, W> stripe(rows, columns);
  for (typename Table::Run& run : runs) {
    const std::size_t width = std::min(kRunColumns, columns.size());
    stripe.cross(columns.first(width), run);
    columns = columns.subspan(width);
  }
}

// Rows that are best crossed at once, of those that are left: words of them overlap in the
// processor, since the upper ones need not wait for the lower ones.
inline constexpr std::size_t kWide = 2;

template <typename Table>
bool has_lanes() {
  return std::is_same_v<Table, EditTable> && has_edit_stripe();
}

template <typename Table>
std::size_t stripe_height(std::size_t left) {
  if (left <= 64) return left;
  if (has_lanes<Table>()) return std::min(64 * kStripeWords, left);
  return left >= 64 * kWide ? 64 * kWide : 64;
}

// Moves the differences along a row down by a stripe of that height.
template <typename Table>
void cross_stripe(Bytes rows, Bytes columns, std::span<typename Table::Run> runs) {
  if (rows.size() <= 64) return cross_runs<Table, 1>(rows, columns, runs);
  if constexpr (std::is_same_v<Table, EditTable>) {
    if (has_edit_stripe()) {
      const LetterRows<kStripeWords> equal(rows);
      return cross_edit_stripe(equal.data(), rows.size(), columns, runs.data());
    }
  }
  cross_runs<Table, kWide>(rows, columns, runs);
}

// Where the differences of a last row begin to count, and the cell there, with regard to the first
// cell of the table.
struct RowStart {
  std::size_t run;
  std::size_t value;
};

// Diagonals (column less row) on which cells are of interest.
struct Diagonals {
  std::int64_t low = -(std::int64_t{1} << 62);
  std::int64_t high = std::int64_t{1} << 62;
};

inline constexpr auto kToTheEnd = [](RowStart, const auto&) { return false; };

// Turns `runs`, one for 64 columns, into the differences along the last row of the table. Cells
// off the diagonals count as reached by straight moves. Rows and columns are not empty.
//
// Below each stripe, is_over(start, runs on the diagonals) tells whether what follows matters no
// more; the row reached by then is given.
template <typename Table, typename IsOver = decltype(kToTheEnd)>
RowStart last_row(Bytes rows, Bytes columns, std::span<typename Table::Run> runs,
                  Diagonals near = {}, IsOver is_over = {}) {
  std::fill(runs.begin(), runs.end(), typename Table::Run{});
  RowStart start = {0, 0};
  for (std::size_t r = 0; r < rows.size();) {
    const std::size_t height = stripe_height<Table>(rows.size() - r);
    const std::int64_t first = (static_cast<std::int64_t>(r) + near.low) / 64;
    const std::int64_t end = (static_cast<std::int64_t>(r + height) + near.high + 63) / 64;
    const std::size_t end_run =
        std::min(static_cast<std::size_t>(std::max<std::int64_t>(end, 0)), runs.size());
    const std::size_t first_run =
        std::min(static_cast<std::size_t>(std::max<std::int64_t>(first, 0)), end_run);
    for (; start.run < first_run; ++start.run) start.value += runs[start.run].gain();
    const std::span<typename Table::Run> inside = runs.subspan(start.run, end_run - start.run);
    const std::size_t column = std::min(kRunColumns * start.run, columns.size());
    const std::size_t width = std::min(kRunColumns * inside.size(), columns.size() - column);
    cross_stripe<Table>(rows.subspan(r, height), columns.subspan(column, width), inside);
    start.value += Table::kDown * height;
    r += height;
    if (is_over(start, inside)) break;
  }
  return start;
}

}  // namespace vstring::words
