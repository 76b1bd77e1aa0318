// Scans for a set of bytes: where a member stands, or where a run of members ends.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring {

class ByteScan {
 public:
  ByteScan() = default;  // of the empty set
  explicit ByteScan(const ByteSet& set);

  const ByteSet& set() const { return set_; }
  bool has(Byte c) const { return set_.has(c); }

  // Offset of the first member at `at` or later; the text's length when there is none.
  std::size_t find(Bytes text, std::size_t at) const { return find(true, text, at); }
  // The same for a byte that is not a member.
  std::size_t find_other(Bytes text, std::size_t at) const { return find(false, text, at); }
  // Which bytes of a text of at most 64 are members, as bits.
  std::uint64_t members(Bytes text) const;

 private:
  // What ends within a few bytes is not worth a vector.
  std::size_t find(bool member, Bytes text, std::size_t at) const {
    constexpr std::size_t kShort = 12;
    const std::size_t end = std::min(at + kShort, text.size());
    for (; at < end; ++at) {
      if (set_.has(text[at]) == member) return at;
    }
    return at == text.size() ? at : find_far(member, text, at);
  }
  std::size_t find_far(bool member, Bytes text, std::size_t at) const;

  ByteSet set_;
  bool is_all_but_one_ = false;
  Byte other_ = 0;  // that one
  // The set by half bytes, for table look-up in vectors: bit h of lower_[l] tells of the byte
  // 16 h + l, bit h of upper_[l] of 128 + 16 h + l.
  Byte lower_[16] = {};
  Byte upper_[16] = {};
};

}  // namespace vstring
