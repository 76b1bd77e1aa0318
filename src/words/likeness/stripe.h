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

#include "bytes/bytes.h"
#include "bytes/edit_column.h"

namespace vstring::words {

inline constexpr std::size_t kRunColumns = 64;

// The changes of one row over up to 64 columns are a run (bit i: column i).

// Levenshtein's distance: a row changes by -1, 0 or 1.
struct EditTable {
  using Column = EditColumn;
  struct Run {
    std::uint64_t rose = ~std::uint64_t{0};  // the first row of the table rises with each column
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
  // Only letters of `columns` will be asked for: when there are few, only these are made ready, so
  // that short words do not pay for all 256 of them.
  LetterRows(Bytes rows, Bytes columns) {
    if (columns.size() < 256) {
      for (const Byte c : columns) clear(c);
      for (const Byte c : rows) clear(c);
    } else {
      std::memset(equal_, 0, sizeof equal_);
    }
    note(rows);
  }

  // Bit i of word w: row 64 w + i has this letter.
  const std::uint64_t (&operator[](Byte c) const)[W] { return equal_[c]; }

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

// Crosses the runs of columns from `first` up to `end`.
template <typename Table, std::size_t W>
void cross_runs(Bytes rows, Bytes columns, std::size_t first, std::size_t end,
                std::span<typename Table::Run> runs) {
  const std::size_t start = kRunColumns * first;
  const Bytes inside = columns.subspan(start, std::min(kRunColumns * end, columns.size()) - start);
  Stripe<Table, W> stripe(rows, inside);
  for (std::size_t r = first; r < end; ++r) {
    const std::size_t at = kRunColumns * r;
    stripe.cross(columns.subspan(at, std::min(kRunColumns, columns.size() - at)), runs[r]);
  }
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
// off the diagonals count as reached by straight moves. Rows and columns are not empty; the words
// of a stripe overlap in the processor, since the upper ones need not wait for the lower ones.
//
// Below each stripe, is_over(start, runs on the diagonals) tells whether what follows matters no
// more; the row reached by then is given.
template <typename Table, typename IsOver = decltype(kToTheEnd)>
RowStart last_row(Bytes rows, Bytes columns, std::span<typename Table::Run> runs,
                  Diagonals near = {}, IsOver is_over = {}) {
  constexpr std::size_t kWide = 2;
  std::fill(runs.begin(), runs.end(), typename Table::Run{});
  RowStart start = {0, 0};
  for (std::size_t r = 0; r < rows.size();) {
    const std::size_t left = rows.size() - r;
    const std::size_t height = left >= kWide * 64 ? kWide * 64 : std::min<std::size_t>(64, left);
    const std::int64_t first = (static_cast<std::int64_t>(r) + near.low) / 64;
    const std::int64_t end = (static_cast<std::int64_t>(r + height) + near.high + 63) / 64;
    const std::size_t end_run =
        std::min(static_cast<std::size_t>(std::max<std::int64_t>(end, 0)), runs.size());
    const std::size_t first_run =
        std::min(static_cast<std::size_t>(std::max<std::int64_t>(first, 0)), end_run);
    for (; start.run < first_run; ++start.run) start.value += runs[start.run].gain();
    const Bytes stripe = rows.subspan(r, height);
    if (height > 64) {
      cross_runs<Table, kWide>(stripe, columns, start.run, end_run, runs);
    } else {
      cross_runs<Table, 1>(stripe, columns, start.run, end_run, runs);
    }
    start.value += Table::kDown * height;
    r += height;
    if (is_over(start, runs.subspan(start.run, end_run - start.run))) break;
  }
  return start;
}

}  // namespace vstring::words
