// The order of letters in the combinatorics of words: bytes compare as signed numbers, so codes
// 128 to 255 come before codes 0 to 127.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/common.h"

namespace vstring::words {

inline std::int8_t letter(Byte c) { return static_cast<std::int8_t>(c); }

// The eight letters from `bytes` on as one number that compares as they do: the first letter is
// the most significant, and flipping the sign bits turns the signed order into the unsigned one.
inline std::uint64_t eight_letters(const Byte* bytes) {
  return __builtin_bswap64(load8(bytes)) ^ 0x8080808080808080U;
}

// The first position j >= from whose eight letters are not greater than those at `at`. The last
// seven positions of a word have fewer than eight letters. The search stops at the first of them;
// when `at` itself is one, it stops at `from`.
inline std::size_t skip_greater(Bytes word, std::size_t at, std::size_t from) {
  if (at + 8 > word.size()) return from;
  const std::uint64_t bound = eight_letters(word.data() + at);
  std::size_t j = from;
  while (j + 8 <= word.size() && eight_letters(word.data() + j) > bound) ++j;
  return j;
}

}  // namespace vstring::words
