#include "bytes/pass_greater.h"

#include <bit>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

// Goes over whole blocks of places, to the one that is looked for or to where less than a block is
// left. Most blocks of most texts are passed by their first bytes alone.
VSTRING_AVX2 std::size_t pass_in_blocks(const Byte* bound, Bytes text, std::size_t at) {
  constexpr std::size_t kLetters = sizeof(std::uint64_t);
  __m256i bounds[kLetters];
  for (std::size_t k = 0; k < kLetters; ++k) {
    bounds[k] = _mm256_set1_epi8(static_cast<char>(bound[k]));
  }
  for (; text.size() - at >= avx2::kBlock + kLetters; at += avx2::kBlock) {
    const Byte* const place = text.data() + at;
    if (_mm256_movemask_epi8(_mm256_cmpgt_epi8(avx2::load(place), bounds[0])) == -1) continue;
    __m256i is_low = _mm256_set1_epi8(-1);  // from letter k on
    for (std::size_t k = kLetters; k-- > 0;) {
      const __m256i letters = avx2::load(place + k);
      const __m256i goes_on = _mm256_and_si256(is_low, _mm256_cmpeq_epi8(letters, bounds[k]));
      is_low = _mm256_or_si256(goes_on, _mm256_cmpgt_epi8(bounds[k], letters));
    }
    const auto found = static_cast<std::uint32_t>(_mm256_movemask_epi8(is_low));
    if (found != 0) return at + static_cast<std::size_t>(std::countr_zero(found));
  }
  return at;
}

}  // namespace

#endif

std::size_t pass_greater(const Byte* bound, Bytes text, std::size_t at) {
#ifdef VSTRING_AVX2
  if (at < text.size() && has_avx2()) at = pass_in_blocks(bound, text, at);
#endif
  const std::uint64_t most = eight_signed(bound);
  while (at + 8 <= text.size() && eight_signed(text.data() + at) > most) ++at;
  return at;
}

}  // namespace vstring
