#include "words/likeness/distance.h"

#include <algorithm>
#include <cstdint>

#include "bytes/common.h"

namespace vstring::words {
namespace {

// Sum of term(i), i < n, each below 256. Blocks keep the inner sums narrow, which lets the compiler
// add up many letters at once.
template <typename Term>
std::size_t sum(std::size_t n, Term term) {
  constexpr std::size_t kBlock = 4096;
  std::size_t total = 0;
  for (std::size_t i = 0; i < n;) {
    const std::size_t end = std::min(n, i + kBlock);
    std::uint32_t block = 0;
    for (; i < end; ++i) block += term(i);
    total += block;
  }
  return total;
}

// Way from a residue to 0.
Byte lee(int residue) { return std::min(static_cast<Byte>(residue), static_cast<Byte>(-residue)); }

}  // namespace

std::size_t hamming_distance(Bytes s, Bytes t) {
  const std::size_t common = std::min(s.size(), t.size());
  const std::size_t differing = sum(common, [s, t](std::size_t i) { return Byte{s[i] != t[i]}; });
  return differing + std::max(s.size(), t.size()) - common;
}

std::size_t lee_distance(Bytes s, Bytes t) {
  return sum(s.size(), [s, t](std::size_t i) { return lee(s[i] - t[i]); });
}

std::size_t lee_weight(Bytes s) {
  return sum(s.size(), [s](std::size_t i) { return lee(s[i]); });
}

std::size_t prefix_distance(Bytes s, Bytes t) {
  return s.size() + t.size() - 2 * common_prefix(s, t);
}

std::size_t suffix_distance(Bytes s, Bytes t) {
  return s.size() + t.size() - 2 * common_suffix(s, t);
}

}  // namespace vstring::words
