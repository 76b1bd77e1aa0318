// Copies of a few bytes each, where calling memcpy would take longer than the copy.
#pragma once
#include <cstddef>
#include <cstring>

#include "bytes/bytes.h"

namespace vstring {

// Copies from[at, at + n) to the start of `to` and returns what is left of `to`. Where there is
// room on both sides a whole block is copied: what follows in `to` must still be to be written.
inline constexpr std::size_t kCopyBlock = 16;
inline MutableBytes copy_part(MutableBytes to, Bytes from, std::size_t at, std::size_t n) {
  if (n <= kCopyBlock && to.size() >= kCopyBlock && from.size() - at >= kCopyBlock) {
    std::memcpy(to.data(), from.data() + at, kCopyBlock);
  } else if (n > 0) {
    std::memcpy(to.data(), from.data() + at, n);
  }
  return to.subspan(n);
}

// Copies a text that fills whole words of eight bytes, some of whose last word may follow in `to`.
inline void copy_words(Byte* to, Bytes from) {
  constexpr std::size_t kFew = 32;
  if (from.size() > kFew) {
    std::memcpy(to, from.data(), from.size());
    return;
  }
  for (std::size_t i = 0; i < from.size(); i += 8) std::memcpy(to + i, from.data() + i, 8);
}

}  // namespace vstring
