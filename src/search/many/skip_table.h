// Where a pattern may begin: a filter in front of the automaton.
//
// Every pattern is known by a hash of its first bytes, as many as the shortest has, six at most.
// Eight places of the text are looked up side by side in a table of such hashes, which is sparse
// enough to be left at few places but those where a pattern's first bytes do stand. A few patterns
// are looked for by their first three bytes in vectors instead.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "bytes/common.h"
#include "bytes/prefix_filter.h"
#include "host/vstring.h"
#include "search/many/pattern.h"

namespace vstring::search {

class SkipTable {
 public:
  static constexpr std::size_t kMostHashed = 6;

  // Fills in the table, in `pool`. False when memory fails.
  bool prepare(VstringPool* pool, std::span<const Pattern> patterns);

  // How many bytes are hashed: no pattern is shorter, unless there is none at all.
  std::size_t hashed() const { return hashed_; }

  // No pattern begins at `from` or later before this place, which may be the end of the text.
  // Within the last bytes of the text, too few for a look-up, it is `from`.
  std::size_t next_place(Bytes text, std::size_t from) const {
    if (has_filter_) {
      return std::min(filter_.find(PrefixFilter::kMaxLength, text, from), text.size());
    }
    constexpr std::size_t kSide = 8;
    std::size_t at = from;
    for (; text.size() - at >= kSide + sizeof(std::uint64_t); at += kSide) {
      Byte any = 0;
#pragma GCC unroll 8
      for (std::size_t i = 0; i < kSide; ++i) any |= begins_[hash(text.data() + at + i)];
      if (any != 0) break;
    }
    while (text.size() - at >= sizeof(std::uint64_t) && begins_[hash(text.data() + at)] == 0) ++at;
    return at;
  }

 private:
  // A product with the bytes that do not count shifted out of it.
  std::size_t hash(const Byte* place) const { return load8(place) * factor_ >> shift_; }

  std::size_t hashed_;
  bool has_filter_;
  PrefixFilter filter_;
  std::uint64_t factor_;
  std::uint32_t shift_;
  Byte* begins_;  // by hash: 1 where a pattern begins so
};

}  // namespace vstring::search
