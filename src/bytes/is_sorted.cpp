#include "bytes/is_sorted.h"

#include <algorithm>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

// Length of the sorted prefix as far as whole blocks behind the first byte tell.
VSTRING_AVX2 std::size_t pass_sorted_blocks(Bytes text) {
  std::size_t i = 1;
  for (; text.size() - i >= avx2::kBlock; i += avx2::kBlock) {
    const __m256i bytes = avx2::load(text.data() + i);
    const __m256i before = avx2::load(text.data() + i - 1);
    const __m256i ascents = _mm256_cmpeq_epi8(_mm256_max_epu8(before, bytes), bytes);
    if (_mm256_movemask_epi8(ascents) != -1) break;
  }
  return i;
}

}  // namespace

#endif

bool is_sorted(Bytes text) {
#ifdef VSTRING_AVX2
  if (text.size() > avx2::kBlock && has_avx2()) text = text.subspan(pass_sorted_blocks(text) - 1);
#endif
  return std::is_sorted(text.begin(), text.end());
}

}  // namespace vstring
