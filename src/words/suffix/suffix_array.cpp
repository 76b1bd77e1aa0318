#include "words/suffix/suffix_array.h"

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <utility>

#include "bytes/common.h"
#include "runtime/memory.h"
#include "words/suffix/induction.h"

namespace vstring::words {
namespace {

// Texts whose letters are all this rare, one in so many, are sorted by a few letters at first, if
// they are long enough for a table of pairs.
constexpr Cell kRare = 64;
constexpr Cell kWorthPairs = 65536;
// More suffixes that begin with the same pair are not sorted by comparing.
constexpr Cell kLargestBucket = 1024;

// Sorts the leftmost S suffixes by their first letters: two, and then eight.
class FirstLetters {
 public:
  FirstLetters(Bytes text, Cell* sorted) : text_(text), sorted_(sorted) {}

  // Puts them into the first cells and returns how many there are; 0 when that does not tell all
  // apart, when too many begin with the same two letters, or for want of memory. O(n) time.
  Cell sort(const Induction<Byte>& induction) {
    if (induction.size() < kWorthPairs || induction.largest_count() > induction.size() / kRare ||
        !ends_.resize(kPairs) || !bucket_.resize(kLargestBucket)) {
      return 0;
    }
    std::fill_n(ends_.data(), kPairs, 0);
    induction.for_each_leftmost([&](Cell i) { ++ends_[pair(i)]; });
    Cell m = 0;
    for (Cell& end : ends_) {
      if (end > kLargestBucket) return 0;
      m += std::exchange(end, m);
    }
    induction.for_each_leftmost([&](Cell i) { sorted_[ends_[pair(i)]++] = i; });
    Cell start = 0;
    for (const Cell end : ends_) {
      if (!sort_bucket(start, end, m)) return 0;
      start = end;
    }
    return m;
  }

 private:
  static constexpr std::size_t kPairs = std::size_t{1} << 16;

  struct Keyed {
    std::uint64_t letters;
    Cell offset;
  };

  // A leftmost S suffix is never the last one.
  std::size_t pair(Cell i) const {
    const Byte* const at = text_.data() + i;
    return static_cast<std::size_t>(at[0] << 8 | at[1]);
  }

  // As a number, the first letter highest; zeros behind the end.
  std::uint64_t eight_letters(std::size_t i) const {
    std::uint64_t letters = 0;
    if (i + 8 <= text_.size()) {
      std::memcpy(&letters, text_.data() + i, 8);
      return __builtin_bswap64(letters);
    }
    for (std::size_t k = i; k < i + 8; ++k) {
      letters = letters << 8 | (k < text_.size() ? text_[k] : 0U);
    }
    return letters;
  }

  // Sorts cells start to end, of m in all. False when two of them agree in all letters.
  bool sort_bucket(Cell start, Cell end, Cell m) {
    if (end - start < 2) return true;
    Keyed* last = bucket_.data();
    for (Cell r = start; r < end; ++r) {
      if (r + kAhead < m) __builtin_prefetch(text_.data() + sorted_[r + kAhead]);
      *last++ = {eight_letters(static_cast<std::size_t>(sorted_[r]) + 2), sorted_[r]};
    }
    std::sort(bucket_.data(), last,
              [](const Keyed& a, const Keyed& b) { return a.letters < b.letters; });
    for (const Keyed* key = bucket_.data(); key < last; ++key) {
      if (key > bucket_.data() && key->letters == key[-1].letters) return false;
      sorted_[start++] = key->offset;
    }
    return true;
  }

  Bytes text_;
  Cell* sorted_;
  Buffer<Cell> ends_;  // of the cells of each pair of letters
  Buffer<Keyed> bucket_;
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

  // Leaves letters instead of offsets.
  void leave_letters_before(Cell own) { own_ = own; }
  Cell rank_of_own() const { return rank_of_own_; }

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
    if constexpr (std::is_same_v<Letter, Byte>) {
      level.leftmost = FirstLetters(text_, sorted_).sort(induction);
      is_sorted_ = level.leftmost > 0;
      if (is_sorted_) return;
    }
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
    if (depth_ == 0 && own_ >= 0) {
      rank_of_own_ = induction.sort_letters_before(m, own_);
    } else {
      induction.sort_suffixes(m);
    }
  }

  Bytes text_;
  Cell* sorted_;
  Buffer<Cell> buckets_;
  Level levels_[32];  // each at most half as long as the one above
  int depth_ = 0;
  bool is_sorted_ = false;  // the innermost leftmost S suffixes, in the first cells
  Cell own_ = -1;           // the suffix whose rank is asked for; then letters are left
  Cell rank_of_own_ = 0;
};

}  // namespace

Status suffix_array(Bytes text, std::span<std::int32_t> sorted) {
  if (text.size() >= kSuffixLimit) return Status::out_of_memory;
  if (text.empty()) return Status::ok;
  return Sorter(text, sorted.data()).sort();
}

Result<std::size_t> letters_before_sorted(Bytes text, std::size_t own,
                                          std::span<std::int32_t> letters) {
  if (text.size() >= kSuffixLimit) return Status::out_of_memory;
  Sorter sorter(text, letters.data());
  sorter.leave_letters_before(static_cast<Cell>(own));
  const Status status = sorter.sort();
  if (status != Status::ok) return status;
  return static_cast<std::size_t>(sorter.rank_of_own());
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
