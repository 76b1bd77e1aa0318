#include "words/suffix/suffix_array.h"

#include <algorithm>
#include <cstring>

#include "bytes/common.h"
#include "runtime/memory.h"

namespace vstring::words {
namespace {

using Cell = std::int32_t;

// How many cells ahead the letters of a suffix are called into the cache.
constexpr Cell kAhead = 32;

template <typename Letter>
struct Text {
  const Letter* letters;
  Cell n;         // at least 1
  Cell alphabet;  // letters are below this
  Cell letter(Cell i) const { return static_cast<Cell>(letters[i]); }
};

// Sorting one text by induction. A cell holds the offset of a suffix, or the complement of one from
// which the pass at hand has nothing to induce; 0 also stands for an empty cell, since nothing
// precedes the suffix of offset 0.
template <typename Letter>
class Induction {
 public:
  // `buckets` has room for two numbers per letter of the alphabet.
  Induction(const Text<Letter>& text, Cell* sorted, Cell* buckets)
      : text_(text), sorted_(sorted), counts_(buckets), edges_(buckets + text.alphabet) {
    std::fill_n(counts_, text_.alphabet, 0);
    for (Cell i = 0; i < text_.n; ++i) ++counts_[text_.letter(i)];
  }

  // Calls visit(i) for each leftmost S suffix i, from right to left.
  template <typename Visit>
  void for_each_leftmost(Visit visit) const {
    Cell after = text_.letter(text_.n - 1);
    bool is_after_small = false;  // the suffix after i is of type S
    for (Cell i = text_.n - 2; i >= 0; --i) {
      const Cell letter = text_.letter(i);
      const bool is_small = letter < after || (letter == after && is_after_small);
      if (is_after_small && !is_small) visit(i + 1);
      is_after_small = is_small;
      after = letter;
    }
  }

  // Sorts the leftmost S suffixes by what stands from each of them up to the next, and puts them
  // into the last cells; all others are 0. Returns how many there are.
  Cell sort_factors() {
    std::fill_n(sorted_, text_.n, 0);
    point_to_ends();
    for_each_leftmost([this](Cell i) { sorted_[--edges_[text_.letter(i)]] = i; });
    induce_large<false>();
    return induce_small_factors();
  }

  // Replaces the factors in the last `m` cells by their ranks, in the order of the text. Returns
  // how many different ones there are; if they are all different, the cells stay as they are.
  Cell rank_factors(Cell m) {
    Cell* const order = sorted_ + text_.n - m;
    // Leftmost S suffixes are at least two letters apart: half an offset tells them apart.
    Cell next = text_.n;
    for_each_leftmost([&](Cell i) {
      sorted_[i / 2] = next - i + 1;  // length of the factor, the first letter of the next included
      next = i;
    });
    Cell rank = 0;
    Cell before = 0;
    Cell before_length = 0;
    for (Cell r = 0; r < m; ++r) {
      const Cell i = order[r];
      const Cell length = sorted_[i / 2];
      if (length != before_length || i + length > text_.n || before + length > text_.n ||
          !std::equal(text_.letters + i, text_.letters + i + length, text_.letters + before)) {
        ++rank;
      }
      sorted_[i / 2] = rank;
      before = i;
      before_length = length;
    }
    if (rank == m) return rank;
    Cell* last = sorted_ + text_.n;
    for (Cell i = (text_.n - 1) / 2; last > order; --i) {
      if (sorted_[i] != 0) *--last = sorted_[i] - 1;
    }
    return rank;
  }

  // Turns the sorted suffixes of the text of ranks, in the first `m` cells, into those that they
  // stand for.
  void name_suffixes(Cell m) {
    Cell* offset = sorted_ + text_.n;
    for_each_leftmost([&](Cell i) { *--offset = i; });
    for (Cell r = 0; r < m; ++r) sorted_[r] = offset[sorted_[r]];
  }

  // Sorts all suffixes, the leftmost S suffixes standing in order in the first `m` cells.
  void sort_suffixes(Cell m) {
    std::fill(sorted_ + m, sorted_ + text_.n, 0);
    point_to_ends();
    for (Cell r = m - 1; r >= 0; --r) {
      const Cell i = sorted_[r];
      sorted_[r] = 0;
      sorted_[--edges_[text_.letter(i)]] = i;
    }
    induce_large<true>();
    induce_small();
  }

 private:
  void point_to_starts() {
    Cell sum = 0;
    for (Cell c = 0; c < text_.alphabet; ++c) {
      edges_[c] = sum;
      sum += counts_[c];
    }
  }
  void point_to_ends() {
    Cell sum = 0;
    for (Cell c = 0; c < text_.alphabet; ++c) edges_[c] = sum += counts_[c];
  }

  void prefetch(Cell cell) const {
    if (cell > 0) __builtin_prefetch(text_.letters + cell - 1);
  }

  // From left to right: the suffix before an L suffix, or before a leftmost S suffix, goes to the
  // front of its letter's bucket if it is of type L. What stays active is what the next pass
  // induces from: L suffixes behind an S suffix. The others are kept, as complements, or dropped.
  template <bool kKeep>
  void induce_large() {
    point_to_starts();
    place_large(text_.n - 1);
    for (Cell r = 0; r < text_.n; ++r) {
      if (r + kAhead < text_.n) prefetch(sorted_[r + kAhead]);
      const Cell i = sorted_[r];
      if (i == 0) continue;
      sorted_[r] = kKeep || i < 0 ? ~i : 0;
      if (i > 0) place_large(i - 1);
    }
  }
  void place_large(Cell i) {
    const Cell letter = text_.letter(i);
    const bool is_active = i == 0 || text_.letter(i - 1) >= letter;
    sorted_[edges_[letter]++] = is_active ? i : ~i;
  }

  // From right to left: the suffix before an S suffix, or before an L suffix of a greater letter,
  // goes to the end of its bucket if it is of type S.
  void place_small(Cell i) {
    const Cell letter = text_.letter(i);
    const bool is_active = i == 0 || text_.letter(i - 1) <= letter;
    sorted_[--edges_[letter]] = is_active ? i : ~i;
  }
  void induce_small() {
    point_to_ends();
    for (Cell r = text_.n - 1; r >= 0; --r) {
      if (r >= kAhead) prefetch(sorted_[r - kAhead]);
      const Cell i = sorted_[r];
      if (i < 0) {
        sorted_[r] = ~i;
      } else if (i > 0) {
        place_small(i - 1);
      }
    }
  }
  // The same when only the leftmost S suffixes are wanted: these are the complements that it meets.
  Cell induce_small_factors() {
    point_to_ends();
    Cell found = text_.n;
    for (Cell r = text_.n - 1; r >= 0; --r) {
      if (r >= kAhead) prefetch(sorted_[r - kAhead]);
      const Cell i = sorted_[r];
      sorted_[r] = 0;
      if (i < 0) {
        sorted_[--found] = ~i;
      } else if (i > 0) {
        place_small(i - 1);
      }
    }
    return text_.n - found;
  }

  Text<Letter> text_;
  Cell* sorted_;
  Cell* counts_;
  Cell* edges_;
};

// The texts of ranks lie, one below the other, in the cells that the one above does not need.
struct Level {
  const Cell* ranks;  // null: the bytes themselves
  Cell n;
  Cell alphabet;
  Cell leftmost = 0;
};

class Sorter {
 public:
  Sorter(Bytes text, Cell* sorted) : text_(text), sorted_(sorted) {}

  Status sort() {
    levels_[0] = {nullptr, static_cast<Cell>(text_.size()), 256};
    while (true) {
      const Status status = with(levels_[depth_], [this](auto induction) { descend(induction); });
      if (status != Status::ok) return status;
      if (is_sorted_) break;
    }
    for (; depth_ >= 0; --depth_) {
      const Status status = with(levels_[depth_], [this](auto induction) { ascend(induction); });
      if (status != Status::ok) return status;
    }
    return Status::ok;
  }

 private:
  template <typename Step>
  Status with(const Level& level, Step step) {
    if (!buckets_.resize(2 * static_cast<std::size_t>(level.alphabet))) {
      return Status::out_of_memory;
    }
    if (level.ranks == nullptr) {
      step(Induction<Byte>({text_.data(), level.n, level.alphabet}, sorted_, buckets_.data()));
    } else {
      step(Induction<Cell>({level.ranks, level.n, level.alphabet}, sorted_, buckets_.data()));
    }
    return Status::ok;
  }

  template <typename Letter>
  void descend(Induction<Letter>& induction) {
    Level& level = levels_[depth_];
    const Cell m = level.leftmost = induction.sort_factors();
    const Cell ranks = induction.rank_factors(m);
    Cell* const last = sorted_ + level.n - m;
    is_sorted_ = ranks == m;
    if (is_sorted_) {
      std::memmove(sorted_, last, sizeof(Cell) * static_cast<std::size_t>(m));
    } else {
      levels_[++depth_] = {last, m, ranks};
    }
  }

  template <typename Letter>
  void ascend(Induction<Letter>& induction) {
    const Cell m = levels_[depth_].leftmost;
    if (!is_sorted_) induction.name_suffixes(m);
    is_sorted_ = false;
    induction.sort_suffixes(m);
  }

  Bytes text_;
  Cell* sorted_;
  Buffer<Cell> buckets_;
  Level levels_[32];  // each at most half as long as the one above
  int depth_ = 0;
  bool is_sorted_ = false;  // the innermost leftmost S suffixes, in the first cells
};

}  // namespace

Status suffix_array(Bytes text, std::span<std::int32_t> sorted) {
  if (text.size() >= kSuffixLimit) return Status::out_of_memory;
  if (text.empty()) return Status::ok;
  return Sorter(text, sorted.data()).sort();
}

void common_prefixes(Bytes text, std::span<const std::int32_t> sorted,
                     std::span<std::int32_t> agreeing) {
  if (text.empty()) return;
  // First the offset of the suffix that is sorted just before, then the length.
  Cell before = -1;
  for (const Cell i : sorted) {
    agreeing[static_cast<std::size_t>(i)] = before;
    before = i;
  }
  std::size_t length = 0;  // the next suffix agrees on at most one letter less
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (agreeing[i] < 0) {
      length = 0;
    } else {
      const auto j = static_cast<std::size_t>(agreeing[i]);
      length += common_prefix(text.subspan(i + length), text.subspan(j + length));
    }
    agreeing[i] = static_cast<Cell>(length);
    if (length > 0) --length;
  }
}

}  // namespace vstring::words
