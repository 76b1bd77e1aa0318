// Sorting the suffixes of one text by induction, as told in suffix_array.h.
#pragma once
#include <algorithm>
#include <cstdint>

namespace vstring::words {

using Cell = std::int32_t;

// How many cells ahead the letters of a suffix are called into the cache.
inline constexpr Cell kAhead = 32;

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

  Cell size() const { return text_.n; }
  Cell largest_count() const { return *std::max_element(counts_, counts_ + text_.alphabet); }

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
    induce_large<Leave::nothing>();
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
  void sort_suffixes(Cell m) { sort_all<Leave::offsets>(m); }

  // The same, but leaves the letters before the suffixes. Returns the rank of the suffix `own`.
  Cell sort_letters_before(Cell m, Cell own) {
    own_ = own;
    sort_all<Leave::letters>(m);
    return rank_of_own_;
  }

 private:
  // What the pass from left to right keeps of the cells that it is through with.
  enum class Leave { nothing, offsets, letters };

  template <Leave kLeave>
  void sort_all(Cell m) {
    std::fill(sorted_ + m, sorted_ + text_.n, 0);
    point_to_ends();
    for (Cell r = m - 1; r >= 0; --r) {
      const Cell i = sorted_[r];
      sorted_[r] = 0;
      sorted_[--edges_[text_.letter(i)]] = i;
    }
    induce_large<kLeave>();
    induce_small<kLeave>();
  }

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
  template <Leave kLeave>
  void induce_large() {
    point_to_starts();
    place_large(text_.n - 1);
    for (Cell r = 0; r < text_.n; ++r) {
      if (r + kAhead < text_.n) prefetch(sorted_[r + kAhead]);
      const Cell i = sorted_[r];
      if (i < 0) {
        sorted_[r] = ~i;
      } else if (i > 0) {
        sorted_[r] = kLeave == Leave::nothing ? 0 : ~left<kLeave>(i, r);
        place_large(i - 1);
      }
    }
  }
  void place_large(Cell i) {
    const Cell letter = text_.letter(i);
    const bool is_active = i == 0 || text_.letter(i - 1) >= letter;
    sorted_[edges_[letter]++] = is_active ? i : ~i;
  }

  // What is left in cell r, where the suffix i has come to stand.
  template <Leave kLeave>
  Cell left(Cell i, Cell r) {
    if (kLeave != Leave::letters) return i;
    if (i == own_) rank_of_own_ = r;
    return text_.letter(i - 1);
  }

  // From right to left: the suffix before an S suffix, or before an L suffix of a greater letter,
  // goes to the end of its bucket if it is of type S.
  template <Leave kLeave>
  void place_small(Cell i) {
    const Cell letter = text_.letter(i);
    const Cell r = --edges_[letter];
    const bool is_active = i == 0 || text_.letter(i - 1) <= letter;
    sorted_[r] = is_active ? i : ~left<kLeave>(i, r);
  }
  template <Leave kLeave>
  void induce_small() {
    point_to_ends();
    for (Cell r = text_.n - 1; r >= 0; --r) {
      if (r >= kAhead) prefetch(sorted_[r - kAhead]);
      const Cell i = sorted_[r];
      if (i < 0) {
        sorted_[r] = ~i;
      } else if (i > 0) {
        sorted_[r] = left<kLeave>(i, r);
        place_small<kLeave>(i - 1);
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
        place_small<Leave::nothing>(i - 1);
      }
    }
    return text_.n - found;
  }

  Text<Letter> text_;
  Cell* sorted_;
  Cell* counts_;
  Cell* edges_;
  Cell own_ = 0;
  Cell rank_of_own_ = 0;
};

}  // namespace vstring::words
