// The order of letters in the combinatorics of words: bytes compare as signed numbers, so codes
// 128 to 255 come before codes 0 to 127.
#pragma once
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/pass_greater.h"

namespace vstring::words {

inline std::int8_t letter(Byte c) { return static_cast<std::int8_t>(c); }

// The first position j >= from whose eight letters are not greater than those at `at`. The last
// seven positions of a word have fewer than eight letters. The search stops at the first of them;
// when `at` itself is one, it stops at `from`.
inline std::size_t skip_greater(Bytes word, std::size_t at, std::size_t from) {
  constexpr std::size_t kNearby = 8;  // places that are looked at before vectors are
  if (at + 8 > word.size()) return from;
  const Byte* const bound = word.data() + at;
  const std::uint64_t most = eight_signed(bound);
  const std::size_t end = std::min(from + kNearby, word.size());
  std::size_t j = from;
  for (; j < end; ++j) {
    if (j + 8 > word.size() || eight_signed(word.data() + j) <= most) return j;
  }
  return pass_greater(bound, word, j);
}

}  // namespace vstring::words
