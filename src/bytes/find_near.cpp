#include "bytes/find_near.h"

#include <algorithm>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

// Bit i tells whether alignment i of a block has fewer mismatches than `too_many`, and counts[i]
// how many. Given up as soon as none can have.
VSTRING_AVX2 std::uint32_t count_block(Bytes pattern, const Byte* block, __m256i too_many,
                                       __m256i& counts) {
  constexpr std::size_t kBetweenChecks = 4;
  counts = _mm256_setzero_si256();
  std::size_t j = 0;
  const auto count = [&](std::size_t n) VSTRING_AVX2 __attribute__((always_inline)) {
    __m256i equal = _mm256_setzero_si256();  // times -1
    for (const std::size_t end = j + n; j < end; ++j) {
      const __m256i byte = _mm256_set1_epi8(static_cast<char>(pattern[j]));
      equal = _mm256_add_epi8(equal, _mm256_cmpeq_epi8(avx2::load(block + j), byte));
    }
    const __m256i all = _mm256_set1_epi8(static_cast<char>(n));
    counts = _mm256_adds_epu8(counts, _mm256_add_epi8(all, equal));
    const __m256i over = _mm256_cmpeq_epi8(_mm256_max_epu8(counts, too_many), counts);
    return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(over));
  };
  while (pattern.size() - j > kBetweenChecks) {
    if (count(kBetweenChecks) == 0) return 0;
  }
  return count(pattern.size() - j);
}

VSTRING_AVX2 std::uint32_t find_in_blocks(Bytes pattern, Bytes text, std::size_t k, std::size_t& at,
                                          std::size_t end, Byte* counts) {
  const __m256i too_many = _mm256_set1_epi8(static_cast<char>(k + 1));
  __m256i counted;
  for (; end - at >= kNearBlock; at += kNearBlock) {
    const std::uint32_t within = count_block(pattern, text.data() + at, too_many, counted);
    if (within == 0) continue;
    avx2::store(counts, counted);
    return within;
  }
  return 0;
}

}  // namespace

#endif

std::uint32_t find_near(Bytes pattern, Bytes text, std::size_t k, std::size_t& at, std::size_t end,
                        Byte* counts) {
#ifdef VSTRING_AVX2
  if (has_avx2()) return find_in_blocks(pattern, text, k, at, end, counts);
#else
  (void)pattern, (void)text, (void)k, (void)at, (void)end, (void)counts;
#endif
  return 0;
}

}  // namespace vstring
