// Where a pattern may begin: a filter in front of the automaton.
//
// All patterns are cut to the length m of the shortest. An occurrence, wherever it begins, then
// holds the three bytes at one of every m - 2 offsets of the text: only these are looked up, in a
// table of the blocks of three bytes that occur in patterns. The sampling is that of K. Fredriksson
// and Sz. Grabowski, "Average-optimal string matching", 2009, with blocks for bytes. A few patterns
// are looked for by their first three bytes in vectors instead.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "bytes/bytes.h"
#include "bytes/prefix_filter.h"
#include "host/vstring.h"
#include "search/many/pattern.h"

namespace vstring::search {

class SkipTable {
 public:
  // Fills in the table, in `pool`, unless the patterns are too short or too many for one. False
  // when memory fails.
  bool prepare(VstringPool* pool, std::span<const Pattern> patterns);

  bool is_ready() const { return stride_ > 0; }

  // No pattern begins at an offset of `from` or more before this one; the text's size when none
  // begins at all. Requires a table.
  std::size_t next_candidate(Bytes text, std::size_t from) const {
    if (has_filter_) return std::min(filter_.find(kBlock, text, from), text.size());
    for (std::size_t at = from + stride_ - 1; at + kBlock <= text.size(); at += stride_) {
      const std::size_t depth = places_[hash(text.data() + at)] & ~kBegins;
      for (std::size_t begin = at + 1 - depth; begin <= at; ++begin) {
        if ((places_[hash(text.data() + begin)] & kBegins) != 0) return begin;
      }
    }
    return text.size();
  }

  // Patterns are at least this long when there is a table.
  static constexpr std::size_t kBlock = 3;

 private:
  static constexpr Byte kBegins = 0x80;

  std::size_t hash(const Byte* block) const {
    std::uint16_t pair = 0;
    std::memcpy(&pair, block, sizeof pair);
    return (pair | std::uint32_t{block[2]} << 16) * 0x9e3779b1U >> hash_shift_;
  }

  bool has_filter_;
  PrefixFilter filter_;  // of few patterns
  std::size_t stride_;   // m - 2; 0: no table
  std::uint32_t hash_shift_;
  Byte* places_;  // by hash: 1 + the largest offset in a pattern where such a block stands, or 0;
                  // with kBegins when one begins a pattern
};

}  // namespace vstring::search
