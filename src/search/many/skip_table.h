// Where a pattern may begin: a filter in front of the automaton.
//
// Every pattern is known by its first bytes, as many as the shortest has, seven at most: its head.
// A text is looked up in a table of the grams of all heads, their stretches of q bytes. A head has
// several, so that it is enough to look at every so many-th place: the idea of S. Wu and U. Manber,
// "A fast algorithm for multi-pattern searching", 1994, with all strides alike. Eight places are
// looked up side by side, by hashes, in a table that is sparse enough to be left at few places but
// those of grams; then a table of heads decides. A few patterns are looked for by their first bytes
// in vectors instead.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/budget.h"
#include "bytes/bytes.h"
#include "bytes/common.h"
#include "bytes/prefix_filter.h"
#include "host/vstring.h"
#include "search/many/pattern.h"

namespace vstring::search {

class SkipTable {
 public:
  static constexpr std::size_t kLongestHead = 7;

  // Fills in the tables, in `pool`. False when memory fails.
  bool prepare(VstringPool* pool, std::span<const Pattern> patterns);

  // The length of heads: no pattern is shorter, unless there is none at all.
  std::size_t head() const { return head_; }

  // No pattern begins at `from` or later before this place, which may be the end of the text.
  // Within the last bytes of the text, too few for a look-up, it is `from`. The budget pays for
  // each place that is looked at closely; once it is used up, the place may be any.
  std::size_t next_place(Bytes text, std::size_t from, Budget& budget) const {
    while (text.size() - from >= kLookedUp && !budget.is_used_up()) {
      const std::size_t found = has_filter_ ? next_in_filter(text, from) : next_gram(text, from);
      budget.earn(found - from);
      budget.spend(kCost);
      const std::size_t end = std::min(found + stride_, text.size() - kLookedUp + 1);
      for (from = found; from < end; ++from) {
        if (is_head(text.data() + from)) return from;
      }
    }
    return from;
  }

 private:
  static constexpr std::size_t kLookedUp = sizeof(std::uint64_t);
  static constexpr std::size_t kCost = 8;

  // Bytes by hash, a product with the bytes that do not count shifted out of it.
  struct Table {
    Byte* slots;
    std::uint64_t factor;
    std::uint32_t shift;

    bool prepare(VstringPool* pool, std::size_t length, std::size_t entries);
    Byte& of(std::uint64_t bytes) const { return slots[bytes * factor >> shift]; }
  };

  std::size_t next_in_filter(Bytes text, std::size_t from) const {
    return std::min(filter_.find(filtered_, text, from), text.size());
  }

  // The first place from `from` on where a head may begin, as far as a gram in reach of it tells.
  std::size_t next_gram(Bytes text, std::size_t from) const {
    constexpr std::size_t kSide = 8;
    const Table grams = grams_;
    const std::size_t side = kSide * stride_;
    std::size_t at = from + stride_ - 1;
    for (; at + side + kLookedUp <= text.size(); at += side) {
      Byte any = 0;
#pragma GCC unroll 8
      for (std::size_t i = 0; i < kSide; ++i)
        any |= grams.of(load8(text.data() + at + i * stride_));
      if (any != 0) break;
    }
    while (at + kLookedUp <= text.size() && grams.of(load8(text.data() + at)) == 0) at += stride_;
    return at - (stride_ - 1);
  }

  // Whether a head may stand here, followed by a byte that follows it in some pattern.
  bool is_head(const Byte* place) const {
    const std::uint64_t bytes = load8(place);
    return (heads_.of(bytes) & follower(bytes)) != 0;
  }

  // One bit of eight for the byte behind a head.
  unsigned follower(std::uint64_t bytes) const { return 1U << (bytes >> (8 * head_) & 7); }

  std::size_t head_;
  std::size_t stride_;  // as many places in a row have a gram each where a head begins
  bool has_filter_;
  std::size_t filtered_;  // how many bytes of a head the filter knows
  PrefixFilter filter_;
  Table grams_;  // not zero for the grams of heads; the table of heads if these have one gram each
  Table heads_;  // the followers of heads, as bits
};

}  // namespace vstring::search
