// How far two texts agree, read eight bytes at a time.
#pragma once
#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "bytes/bytes.h"

namespace vstring {

static_assert(std::endian::native == std::endian::little);

// Eight bytes as one number, the first one lowest.
inline std::uint64_t load8(const Byte* bytes) {
  std::uint64_t word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// From i on, passes blocks of some size in which the texts agree, none beyond `end`; without
// vectors it stays where it is.
std::size_t pass_equal_blocks(const Byte* a, const Byte* b, std::size_t i, std::size_t end);

// Length of the longest common prefix. Most are short: the call waits until some bytes agree.
inline std::size_t common_prefix(Bytes a, Bytes b) {
  constexpr std::size_t kNear = 32;
  const std::size_t n = std::min(a.size(), b.size());
  std::size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    if (i == kNear) i = pass_equal_blocks(a.data(), b.data(), i, n - 8);
    const std::uint64_t differing = load8(a.data() + i) ^ load8(b.data() + i);
    if (differing != 0) return i + static_cast<std::size_t>(std::countr_zero(differing)) / 8;
  }
  while (i < n && a[i] == b[i]) ++i;
  return i;
}

// Length of the longest common suffix.
inline std::size_t common_suffix(Bytes a, Bytes b) {
  const std::size_t n = std::min(a.size(), b.size());
  const Byte* const a_end = a.data() + a.size();
  const Byte* const b_end = b.data() + b.size();
  std::size_t i = 0;
  for (; i + 8 <= n; i += 8) {
    const std::uint64_t differing = load8(a_end - i - 8) ^ load8(b_end - i - 8);
    if (differing != 0) return i + static_cast<std::size_t>(std::countl_zero(differing)) / 8;
  }
  while (i < n && a[a.size() - 1 - i] == b[b.size() - 1 - i]) ++i;
  return i;
}

// Cuts off what the texts have in common at their starts, then at their ends; returns how much.
inline std::size_t trim_common_ends(Bytes& a, Bytes& b) {
  const std::size_t prefix = common_prefix(a, b);
  a = a.subspan(prefix);
  b = b.subspan(prefix);
  const std::size_t suffix = common_suffix(a, b);
  a = a.first(a.size() - suffix);
  b = b.first(b.size() - suffix);
  return prefix + suffix;
}

}  // namespace vstring
