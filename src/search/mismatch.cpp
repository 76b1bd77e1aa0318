#include "search/mismatch.h"

#include <cstdint>
#include <cstring>

#include "search/exact.h"

namespace vstring::search {
namespace {

constexpr std::uint64_t kLowBits = 0x0101010101010101;

std::uint64_t load(const Byte* bytes) {
  std::uint64_t word = 0;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

// How many of the eight bytes of `word` are not zero.
std::size_t nonzero_bytes(std::uint64_t word) {
  constexpr std::uint64_t kSevenBits = 0x7f * kLowBits;
  const std::uint64_t marks = (((word & kSevenBits) + kSevenBits) | word) >> 7 & kLowBits;
  return marks * kLowBits >> 56;
}

// Differing bytes of a[0, m) and b[0, m), or some number above `k` once there are more.
std::size_t mismatches(const Byte* a, const Byte* b, std::size_t m, std::size_t k) {
  std::size_t count = 0;
  std::size_t i = 0;
  for (; m - i >= 8 && count <= k; i += 8) count += nonzero_bytes(load(a + i) ^ load(b + i));
  for (; i < m && count <= k; ++i) count += a[i] != b[i] ? 1 : 0;
  return count;
}

// The first alignment at `from` or later; npos as its offset when there is none.
Alignment next_alignment(Bytes pattern, Bytes text, std::size_t k, std::size_t from) {
  const std::size_t m = pattern.size();
  for (std::size_t i = from; i <= text.size() && text.size() - i >= m; ++i) {
    const std::size_t count = mismatches(pattern.data(), text.data() + i, m, k);
    if (count <= k) return {i, count};
  }
  return {npos, 0};
}

}  // namespace

std::size_t find_mismatched(Bytes pattern, Bytes text, std::size_t k) {
  return k == 0 ? find(pattern, text) : next_alignment(pattern, text, k, 0).offset;
}

Status find_all_mismatched(Bytes pattern, Bytes text, std::size_t k,
                           HeldArray<Alignment>& alignments) {
  if (k == 0) {
    Finder finder(pattern, text);
    for (std::size_t at = finder.next(); at != npos; at = finder.next()) {
      if (!alignments.push_back({at, 0})) return Status::out_of_memory;
    }
    return Status::ok;
  }
  Alignment next = next_alignment(pattern, text, k, 0);
  while (next.offset != npos) {
    if (!alignments.push_back(next)) return Status::out_of_memory;
    next = next_alignment(pattern, text, k, next.offset + 1);
  }
  return Status::ok;
}

}  // namespace vstring::search
