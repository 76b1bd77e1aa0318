#include "words/alignment/alignment.h"

#include <algorithm>

#include "bytes/score_cells.h"
#include "words/alignment/column.h"

namespace vstring::words {
namespace {

// A table of scores, filled along its anti-diagonals: their cells do not depend on each other.
// Cell (i, j) is the best score of the first i letters of s and the first j of t.
template <typename Cell>
class ScoreTable {
 public:
  Status allocate(std::size_t rows) {
    for (Buffer<Cell>& diagonal : diagonals_) {
      if (!diagonal.resize(rows + 1)) return Status::out_of_memory;
    }
    return Status::ok;
  }

  // Calls visit(k, here, first, end, greatest) for each anti-diagonal k = i + j: here[i] is cell
  // (i, k - i) for i in [first, end), none of them greater than `greatest`. `t_back` is t reversed.
  template <typename Visit>
  void fill(Bytes s, Bytes t_back, const CellScores<Cell>& scores, Visit visit) {
    const std::size_t m = s.size();
    const std::size_t n = t_back.size();
    Cell* here = diagonals_[0].data();
    Cell* before = diagonals_[1].data();
    Cell* corner = diagonals_[2].data();
    Cell border = std::max<Cell>(0, scores.floor);
    here[0] = border;
    visit(std::size_t{0}, here, std::size_t{0}, std::size_t{1}, border);
    for (std::size_t k = 1; k <= m + n; ++k) {
      Cell* const oldest = corner;
      corner = before;
      before = here;
      here = oldest;
      const std::size_t first = std::max<std::size_t>(1, k > n ? k - n : 0);
      const std::size_t end = std::min(m, k - 1) + 1;
      Cell greatest = scores.floor;
      if (first < end) {
        greatest = score_cells(s.data() + first - 1, t_back.data() + n + first - k, end - first,
                               corner + first - 1, before + first - 1, here + first, scores);
      }
      border = std::max<Cell>(border + scores.gap, scores.floor);
      if (k <= n) here[0] = border;
      if (k <= m) here[k] = border;
      if (k <= n || k <= m) greatest = std::max(greatest, border);
      visit(k, here, k <= n ? 0 : k - n, k <= m ? k + 1 : m + 1, greatest);
    }
  }

 private:
  Buffer<Cell> diagonals_[3];
};

constexpr std::size_t kTableCells = std::size_t{1} << 14;  // small tables are kept whole

template <typename Cell>
constexpr Cell kNoFloor = -(static_cast<Cell>(1) << (8 * sizeof(Cell) - 2));

// The chosen alignment of two words.
template <typename Cell>
class Aligner {
 public:
  Aligner(Bytes s, Bytes t, const Scores& scores, HeldArray<Byte>& path)
      : s_(s),
        t_(t),
        scores_{scores.match, scores.mismatch, scores.gap, kNoFloor<Cell>},
        path_(path) {}

  Status align() {
    if (!path_.reserve(path_.size() + s_.size() + t_.size()) || !s_back_.resize(s_.size()) ||
        !t_back_.resize(t_.size()) || !forth_.resize(t_.size() + 1) ||
        !back_.resize(t_.size() + 1) ||
        !cells_.resize(std::max(kTableCells, 2 * (t_.size() + 1))) ||
        table_.allocate(s_.size()) != Status::ok) {
      return Status::out_of_memory;
    }
    std::reverse_copy(s_.begin(), s_.end(), s_back_.begin());
    std::reverse_copy(t_.begin(), t_.end(), t_back_.begin());
    solve(0, s_.size(), 0, t_.size());
    return Status::ok;
  }

 private:
  void push(Byte column, std::size_t n) {
    for (; n > 0; --n) (void)path_.push_back(column);  // there is room
  }

  // Rows [top, bottom), columns [left, right).
  void solve(std::size_t top, std::size_t bottom, std::size_t left, std::size_t right) {
    const std::size_t m = bottom - top;
    const std::size_t n = right - left;
    if (m <= 1 || (m + 1) * (n + 1) <= kTableCells) {
      walk(s_.subspan(top, m), t_.subspan(left, n));
      return;
    }
    const std::size_t middle = top + m / 2;
    last_row(s_.subspan(top, middle - top), t_back_.view().subspan(t_.size() - right, n), forth_);
    last_row(s_back_.view().subspan(s_.size() - bottom, bottom - middle), t_.subspan(left, n),
             back_);
    std::size_t cut = 0;  // the least column in which a best path crosses
    for (std::size_t j = 1; j <= n; ++j) {
      if (forth_[j] + back_[n - j] > forth_[cut] + back_[n - cut]) cut = j;
    }
    solve(top, middle, left, left + cut);
    solve(middle, bottom, left + cut, right);
  }

  void last_row(Bytes rows, Bytes columns_back, Buffer<Cell>& row) {
    const std::size_t m = rows.size();
    table_.fill(rows, columns_back, scores_,
                [&](std::size_t k, const Cell* here, std::size_t, std::size_t, Cell) {
                  if (k >= m) row[k - m] = here[m];
                });
  }

  // All cells are kept: the best scores of the suffixes, the last cell being that of empty ones.
  void walk(Bytes s, Bytes t) {
    const std::size_t m = s.size();
    const std::size_t n = t.size();
    const auto cell = [&](std::size_t i, std::size_t j) -> Cell& {
      return cells_[i * (n + 1) + j];
    };
    const auto letters = [&](std::size_t i, std::size_t j) {
      return s[i] == t[j] ? scores_.match : scores_.mismatch;
    };
    cell(m, n) = 0;
    for (std::size_t j = n; j-- > 0;) cell(m, j) = cell(m, j + 1) + scores_.gap;
    for (std::size_t i = m; i-- > 0;) {
      cell(i, n) = cell(i + 1, n) + scores_.gap;
      for (std::size_t j = n; j-- > 0;) {
        const Cell straight = std::max(cell(i + 1, j), cell(i, j + 1)) + scores_.gap;
        cell(i, j) = std::max(straight, cell(i + 1, j + 1) + letters(i, j));
      }
    }
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < m && j < n) {
      if (cell(i, j) == cell(i + 1, j) + scores_.gap) {
        push(kDeleted, 1);
        ++i;
      } else if (cell(i, j) == cell(i + 1, j + 1) + letters(i, j)) {
        push(s[i] == t[j] ? kEqual : kDiffering, 1);
        ++i, ++j;
      } else {
        push(kInserted, 1);
        ++j;
      }
    }
    push(kDeleted, m - i);
    push(kInserted, n - j);
  }

  Bytes s_;
  Bytes t_;
  CellScores<Cell> scores_;
  HeldArray<Byte>& path_;
  Buffer<Byte> s_back_;
  Buffer<Byte> t_back_;
  Buffer<Cell> forth_;
  Buffer<Cell> back_;
  Buffer<Cell> cells_;
  ScoreTable<Cell> table_;
};

// Where the best pair ends: the first row, there the first column.
template <typename Cell>
Status find_end(Bytes s, Bytes t, const Scores& scores, LocalPair& pair) {
  Buffer<Byte> t_back;
  ScoreTable<Cell> table;
  if (!t_back.resize(t.size()) || table.allocate(s.size()) != Status::ok) {
    return Status::out_of_memory;
  }
  std::reverse_copy(t.begin(), t.end(), t_back.begin());
  table.fill(
      s, t_back.view(), CellScores<Cell>{scores.match, scores.mismatch, scores.gap, 0},
      [&](std::size_t k, const Cell* here, std::size_t first, std::size_t end, Cell greatest) {
        if (greatest < pair.score || greatest == 0) return;
        const Cell* const at = std::find(here + first, here + end, greatest);
        const auto i = static_cast<std::size_t>(at - here);
        if (greatest == pair.score && i >= pair.end_s) return;
        pair.score = greatest;
        pair.end_s = i;
        pair.end_t = k - i;
      });
  return Status::ok;
}

// Where it begins: from the end backwards, the first row and there the first column from which the
// score is reached.
template <typename Cell>
Status find_start(Bytes s, Bytes t, const Scores& scores, LocalPair& pair) {
  Buffer<Cell> row;
  if (!row.resize(pair.end_t + 1)) return Status::out_of_memory;
  Cell border = 0;
  for (std::size_t i = pair.end_s;; --i) {
    if (i == pair.end_s) {
      for (std::size_t k = 0; k <= pair.end_t; ++k) row[k] = static_cast<Cell>(k) * scores.gap;
    } else {
      Cell corner = row[0];
      row[0] = border += scores.gap;
      for (std::size_t k = 1; k <= pair.end_t; ++k) {
        const Cell letters = corner + (s[i] == t[pair.end_t - k] ? scores.match : scores.mismatch);
        corner = row[k];
        row[k] = std::max(letters, std::max(row[k], row[k - 1]) + scores.gap);
      }
    }
    const Cell* const at = std::find(row.begin(), row.end(), static_cast<Cell>(pair.score));
    if (at == row.end()) continue;
    pair.start_s = i;
    pair.start_t = pair.end_t - static_cast<std::size_t>(at - row.begin());
    return Status::ok;
  }
}

template <typename Cell>
Result<LocalPair> find_pair(Bytes s, Bytes t, const Scores& scores) {
  LocalPair pair = {};
  Status status = find_end<Cell>(s, t, scores, pair);
  if (status == Status::ok && pair.score > 0) status = find_start<Cell>(s, t, scores, pair);
  if (status != Status::ok) return status;
  return pair;
}

// Whether sums of scores stay far from the limits of 32 bits.
bool fits_short_cells(Bytes s, Bytes t) { return s.size() + t.size() < 1000000; }

}  // namespace

Result<std::int64_t> align(Bytes s, Bytes t, const Scores& scores, HeldArray<Byte>& columns) {
  const std::size_t first = columns.size();
  const Status status = fits_short_cells(s, t)
                            ? Aligner<std::int32_t>(s, t, scores, columns).align()
                            : Aligner<std::int64_t>(s, t, scores, columns).align();
  if (status != Status::ok) return status;
  std::int64_t score = 0;
  for (std::size_t k = first; k < columns.size(); ++k) {
    score += columns[k] == kEqual       ? scores.match
             : columns[k] == kDiffering ? scores.mismatch
                                        : scores.gap;
  }
  return score;
}

Result<LocalPair> best_local_pair(Bytes s, Bytes t, const Scores& scores) {
  return fits_short_cells(s, t) ? find_pair<std::int32_t>(s, t, scores)
                                : find_pair<std::int64_t>(s, t, scores);
}

}  // namespace vstring::words
