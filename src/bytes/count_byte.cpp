#include "bytes/count_byte.h"

#include <algorithm>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

// Occurrences in the whole blocks of a text, which is cut down to what is left.
VSTRING_AVX2 std::size_t count_in_blocks(Bytes& text, Byte c) {
  constexpr std::size_t kMost = 255;  // that a byte of the sums can hold
  const __m256i wanted = _mm256_set1_epi8(static_cast<char>(c));
  const __m256i zero = _mm256_setzero_si256();
  __m256i total = zero;  // four sums
  while (text.size() >= avx2::kBlock) {
    const std::size_t blocks = std::min(text.size() / avx2::kBlock, kMost);
    __m256i sums = zero;
    for (std::size_t i = 0; i < blocks; ++i) {
      const __m256i block = avx2::load(text.data() + i * avx2::kBlock);
      sums = _mm256_sub_epi8(sums, _mm256_cmpeq_epi8(block, wanted));
    }
    total = _mm256_add_epi64(total, _mm256_sad_epu8(sums, zero));
    text = text.subspan(blocks * avx2::kBlock);
  }
  return avx2::sum_of_four(total);
}

}  // namespace

#endif

std::size_t count_byte(Bytes text, Byte c) {
  std::size_t count = 0;
#ifdef VSTRING_AVX2
  if (text.size() >= avx2::kBlock && has_avx2()) count = count_in_blocks(text, c);
#endif
  return count + static_cast<std::size_t>(std::count(text.begin(), text.end(), c));
}

}  // namespace vstring
