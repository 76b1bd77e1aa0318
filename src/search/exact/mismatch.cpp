#include "search/exact/mismatch.h"

#include <bit>
#include <cstdint>

#include "bytes/common.h"
#include "bytes/find_near.h"
#include "search/exact/exact.h"

namespace vstring::search {
namespace {

constexpr std::uint64_t kLowBits = 0x0101010101010101;

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
  for (; m - i >= 8 && count <= k; i += 8) count += nonzero_bytes(load8(a + i) ^ load8(b + i));
  for (; i < m && count <= k; ++i) count += a[i] != b[i] ? 1 : 0;
  return count;
}

// Calls visit(alignment) for each alignment with at most `k` mismatches, by offset, until it
// returns false.
template <typename Visit>
void visit_near(Bytes pattern, Bytes text, std::size_t k, Visit visit) {
  const std::size_t m = pattern.size();
  if (m > text.size()) return;
  const std::size_t end = text.size() - m + 1;
  std::size_t at = 0;
  Byte counts[kNearBlock];
  while (k <= kMaxNear) {
    std::uint32_t near = find_near(pattern, text, k, at, end, counts);
    if (near == 0) break;
    for (; near != 0; near &= near - 1) {
      const auto i = static_cast<std::size_t>(std::countr_zero(near));
      if (!visit(Alignment{at + i, counts[i]})) return;
    }
    at += kNearBlock;
  }
  for (; at < end; ++at) {
    const std::size_t count = mismatches(pattern.data(), text.data() + at, m, k);
    if (count <= k && !visit(Alignment{at, count})) return;
  }
}

}  // namespace

std::size_t find_mismatched(Bytes pattern, Bytes text, std::size_t k) {
  if (k == 0) return find(pattern, text);
  std::size_t found = npos;
  visit_near(pattern, text, k, [&](const Alignment& alignment) {
    found = alignment.offset;
    return false;
  });
  return found;
}

Status find_all_mismatched(Bytes pattern, Bytes text, std::size_t k,
                           HeldArray<Alignment>& alignments) {
  bool has_memory = true;
  if (k == 0) {
    Finder finder(pattern, text);
    for (std::size_t at = finder.next(); at != npos && has_memory; at = finder.next()) {
      has_memory = alignments.push_back({at, 0});
    }
  } else {
    visit_near(pattern, text, k, [&](const Alignment& alignment) {
      return has_memory = alignments.push_back(alignment);
    });
  }
  return has_memory ? Status::ok : Status::out_of_memory;
}

}  // namespace vstring::search
