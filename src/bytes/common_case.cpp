#include "bytes/common_case.h"

#include <algorithm>
#include <bit>
#include <cstdint>

#include "bytes/common.h"
#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

constexpr Byte kCaseBit = 'a' ^ 'A';

// A byte in each of eight.
constexpr std::uint64_t eight(std::uint64_t byte) { return 0x0101010101010101 * byte; }

// The bits in which eight bytes differ from eight others, but for those that tell the case of a
// letter. (Sums of the lower seven bits reach the eighth one from some letter on.)
std::uint64_t different_bits(std::uint64_t a, std::uint64_t b) {
  const std::uint64_t small = a | eight(kCaseBit);
  const std::uint64_t lower = small & eight(0x7f);
  const std::uint64_t from_a = lower + eight(0x80 - 'a');
  const std::uint64_t behind_z = lower + eight(0x7f - 'z');
  const std::uint64_t letters = from_a & ~behind_z & ~small & eight(0x80);
  return (a ^ b) & ~(letters >> 2);
}

#ifdef VSTRING_AVX2

VSTRING_AVX2 __m256i different_bits(__m256i a, __m256i b) {
  const __m256i case_bit = _mm256_set1_epi8(kCaseBit);
  const __m256i small = _mm256_or_si256(a, case_bit);
  // The letters become the greatest of signed numbers.
  const __m256i shifted = _mm256_add_epi8(small, _mm256_set1_epi8(0x7f - 'z'));
  const __m256i letters = _mm256_cmpgt_epi8(shifted, _mm256_set1_epi8(0x7f - 26));
  return _mm256_andnot_si256(_mm256_and_si256(letters, case_bit), _mm256_xor_si256(a, b));
}

// Passes pairs of blocks that agree.
VSTRING_AVX2 std::size_t pass_blocks(Bytes a, Bytes b, std::size_t n) {
  std::size_t i = 0;
  for (; n - i >= 2 * avx2::kBlock; i += 2 * avx2::kBlock) {
    const __m256i first = different_bits(avx2::load(&a[i]), avx2::load(&b[i]));
    const __m256i second =
        different_bits(avx2::load(&a[i + avx2::kBlock]), avx2::load(&b[i + avx2::kBlock]));
    const __m256i both = _mm256_or_si256(first, second);
    if (_mm256_testz_si256(both, both) == 0) break;
  }
  return i;
}

#endif

}  // namespace

std::size_t common_prefix_of_letters(Bytes a, Bytes b) {
  const std::size_t n = std::min(a.size(), b.size());
  std::size_t i = 0;
#ifdef VSTRING_AVX2
  if (has_avx2()) i = pass_blocks(a, b, n);
#endif
  for (; n - i >= 8; i += 8) {
    const std::uint64_t bits = different_bits(load8(&a[i]), load8(&b[i]));
    if (bits != 0) return i + static_cast<std::size_t>(std::countr_zero(bits)) / 8;
  }
  while (i < n && (different_bits(a[i], b[i]) & 0xff) == 0) ++i;
  return i;
}

}  // namespace vstring
