#include "words/alignment/edit_path.h"

#include <algorithm>
#include <cstdint>

#include "words/alignment/column.h"
#include "words/likeness/levenshtein.h"
#include "words/likeness/stripe.h"

namespace vstring::words {
namespace {

// The tables are those of the suffixes: their cells tell what is left to do.
struct FewestEdits {
  using Table = EditTable;
  static constexpr bool kLeast = true;

  // The column that leaves cell (i, j), whose row is bit `row` of the vectors at j and at j + 1.
  static Byte next(const EditColumn& here, const EditColumn& right, std::size_t row,
                   bool is_equal) {
    if ((here.rise >> row & 1) != 0) return kDeleted;
    if (is_equal) return kEqual;
    return (right.fall >> row & 1) != 0 ? kInserted : kDiffering;
  }
};

struct LongestSubsequence {
  using Table = LcsTable;
  static constexpr bool kLeast = false;

  static Byte next(const LcsColumn& here, const LcsColumn&, std::size_t row, bool is_equal) {
    if ((here.level >> row & 1) != 0) return kDeleted;
    return is_equal ? kEqual : kInserted;
  }
};

template <typename Path>
class PathFinder {
  using Table = typename Path::Table;
  using Run = typename Table::Run;
  using Column = typename Table::Column;
  using Change = decltype(Run{}.at(0));

 public:
  PathFinder(Bytes s, Bytes t, HeldArray<Byte>& path) : s_(s), t_(t), path_(path) {}

  // The best path has at most `bound` other columns than =.
  Status find(std::size_t bound) {
    const std::size_t runs = runs_for(t_.size());
    if (!path_.reserve(path_.size() + s_.size() + t_.size()) || !s_back_.resize(s_.size()) ||
        !t_back_.resize(t_.size()) || !forth_.resize(runs) || !back_.resize(runs) ||
        !kept_.resize(room()) || !changes_.resize(t_.size())) {
      return Status::out_of_memory;
    }
    std::reverse_copy(s_.begin(), s_.end(), s_back_.begin());
    std::reverse_copy(t_.begin(), t_.end(), t_back_.begin());
    solve({0, s_.size()}, {0, t_.size()}, bound);
    return Status::ok;
  }

 private:
  struct Stretch {
    std::size_t start;
    std::size_t end;
    std::size_t size() const { return end - start; }
  };

  static Bytes part(Bytes word, Stretch of) { return word.subspan(of.start, of.size()); }
  static Bytes back_part(const Buffer<Byte>& back, Stretch of) {
    return back.view().subspan(back.size() - of.end, of.size());
  }

  void push(Byte column, std::size_t n) {
    for (; n > 0; --n) (void)path_.push_back(column);  // there is room
  }

  void solve(Stretch rows, Stretch columns, std::size_t bound) {
    if (columns.size() == 0) {
      push(kDeleted, rows.size());
    } else if (const Band band(rows, columns, bound);
               stripes_for(rows.size()) * (band.width + 1) <= kept_.size()) {
      keep(rows, columns, band);
      walk(rows, columns, band);
    } else {
      const std::size_t middle = rows.start + (rows.size() / 2 + 63) / 64 * 64;
      const Cut cut = best_cut(rows, columns, middle, bound);
      solve({rows.start, middle}, {columns.start, cut.column}, cut.before);
      solve({middle, rows.end}, {cut.column, columns.end}, cut.after);
    }
  }

  static std::size_t stripes_for(std::size_t rows) { return (rows + 63) / 64; }

  // How many vectors may be kept: as many as one stripe has, or some in any case.
  std::size_t room() const {
    constexpr std::size_t kKept = 4096;
    const std::size_t stripe = t_.size() + 1;
    return std::max(stripe, std::min(kKept, stripe * stripes_for(s_.size())));
  }

  // The letters of the columns, from the back, that stripe q of the rows from the back needs:
  // `width` at most.
  struct Band {
    std::int64_t n;
    Diagonals near;
    std::size_t width;

    Band(Stretch rows, Stretch columns, std::size_t bound)
        : n(static_cast<std::int64_t>(columns.size())), near(diagonals(rows, columns, bound)) {
      near.low = std::max(near.low, -static_cast<std::int64_t>(rows.size()));
      near.high = std::min(near.high, n);
      width = static_cast<std::size_t>(std::min(n, 64 + near.high - near.low));
    }
    Stretch letters(std::size_t q) const {
      const auto row = static_cast<std::int64_t>(64 * q);
      return {static_cast<std::size_t>(std::clamp<std::int64_t>(row + near.low, 0, n)),
              static_cast<std::size_t>(std::clamp<std::int64_t>(row + 64 + near.high, 0, n))};
    }
  };

  // Keeps the vectors of all columns, the one ahead of the letters included, of all stripes.
  void keep(Stretch rows, Stretch columns, const Band& band) {
    if (rows.size() == 0) return;
    const Bytes s = back_part(s_back_, rows);
    const Bytes t = back_part(t_back_, columns);
    std::fill_n(changes_.begin(), t.size(), Run{}.at(0));
    Column* kept = kept_.data();
    for (std::size_t q = 0; 64 * q < s.size(); ++q, kept += band.width + 1) {
      const Stretch letters = band.letters(q);
      const Bytes stripe = s.subspan(64 * q, std::min<std::size_t>(64, s.size() - 64 * q));
      const LetterRows<1> equal(stripe, part(t, letters));
      Column column;
      kept[0] = column;
      for (std::size_t k = letters.start; k < letters.end; ++k) {
        changes_[k] = column.advance(equal[t[k]][0], changes_[k], stripe.size() - 1);
        kept[k - letters.start + 1] = column;
      }
    }
  }

  // Follows the path through the columns kept. Where it goes, they are right.
  void walk(Stretch rows, Stretch columns, const Band& band) {
    const std::size_t m = rows.size();
    const std::size_t n = columns.size();
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < m && j < n) {
      const std::size_t q = (m - 1 - i) / 64;
      const Column* const kept = kept_.data() + q * (band.width + 1);
      const std::size_t here = n - band.letters(q).start;  // column j is kept at here - j
      for (const std::size_t end = m - 64 * q; i < end && j < n;) {
        const bool is_equal = s_[rows.start + i] == t_[columns.start + j];
        const Byte next = Path::next(kept[here - j], kept[here - j - 1], end - 1 - i, is_equal);
        push(next, 1);
        i += next != kInserted ? 1 : 0;
        j += next != kDeleted ? 1 : 0;
      }
    }
    push(kDeleted, m - i);
    push(kInserted, n - j);
  }

  struct Cut {
    std::size_t column;
    std::size_t before;  // cell of the table up to here
    std::size_t after;   // and from here on
  };

  // A path with `bound` or fewer straight and differing columns stays on these diagonals.
  static Diagonals diagonals(Stretch rows, Stretch columns, std::size_t bound) {
    if (bound == npos) return {};
    const auto difference =
        static_cast<std::int64_t>(columns.size()) - static_cast<std::int64_t>(rows.size());
    const std::int64_t margin = (static_cast<std::int64_t>(bound) - std::abs(difference)) / 2;
    return {std::min<std::int64_t>(difference, 0) - margin,
            std::max<std::int64_t>(difference, 0) + margin};
  }

  // Moves a cell by the change of column k in a row.
  static void add(const Buffer<Run>& runs, std::size_t k, std::int64_t& cell, std::int64_t times) {
    const auto change = runs[k / kRunColumns].at(k % kRunColumns);
    if constexpr (Path::kLeast) {
      cell += times * change.value();
    } else {
      cell += times * static_cast<std::int64_t>(change);
    }
  }

  Cut best_cut(Stretch rows, Stretch columns, std::size_t middle, std::size_t bound) {
    const std::size_t n = columns.size();
    const Diagonals near = diagonals(rows, columns, bound);
    const std::size_t runs = runs_for(n);
    const RowStart forth = last_row<Table>(part(s_, {rows.start, middle}), part(t_, columns),
                                           {forth_.data(), runs}, near);
    const RowStart back = last_row<Table>(back_part(s_back_, {middle, rows.end}),
                                          back_part(t_back_, columns), {back_.data(), runs}, near);
    // Column j of one row is column n - j of the other.
    const std::size_t first = kRunColumns * forth.run;
    const std::size_t last = n - kRunColumns * back.run;
    auto before = static_cast<std::int64_t>(forth.value);
    auto after = static_cast<std::int64_t>(back.value);
    for (std::size_t k = n - last; k < n - first; ++k) add(back_, k, after, 1);
    std::int64_t best = 0;
    Cut cut = {npos, npos, npos};
    for (std::size_t j = first;; ++j) {
      const std::int64_t through = Path::kLeast ? -(before + after) : before + after;
      if (cut.column == npos || through > best) {
        best = through;
        cut.column = columns.start + j;
        if (Path::kLeast) {
          cut.before = static_cast<std::size_t>(before);
          cut.after = static_cast<std::size_t>(after);
        }
      }
      if (j == last) return cut;
      add(forth_, j, before, 1);
      add(back_, n - j - 1, after, -1);
    }
  }

  Bytes s_;
  Bytes t_;
  HeldArray<Byte>& path_;
  Buffer<Byte> s_back_;
  Buffer<Byte> t_back_;
  Buffer<Run> forth_;
  Buffer<Run> back_;
  Buffer<Column> kept_;     // of the part that is walked through, stripe by stripe
  Buffer<Change> changes_;  // from column to column in the row above a stripe
};

}  // namespace

Status edit_path(Bytes s, Bytes t, HeldArray<Byte>& columns) {
  const Result<std::size_t> distance = levenshtein(s, t);
  if (!distance.ok()) return distance.status();
  return PathFinder<FewestEdits>(s, t, columns).find(*distance);
}

Status subsequence_path(Bytes s, Bytes t, HeldArray<Byte>& columns) {
  return PathFinder<LongestSubsequence>(s, t, columns).find(npos);
}

}  // namespace vstring::words
