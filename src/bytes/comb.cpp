#include "bytes/comb.h"

#include <algorithm>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

void comb_plain(const Byte* a, const Byte* b, std::size_t n, std::uint32_t* across,
                std::uint32_t* down) {
  for (std::size_t i = 0; i < n; ++i) {
    const std::uint32_t h = across[i];
    const std::uint32_t v = down[i];
    const bool turns = a[i] == b[i] || h > v;
    across[i] = turns ? v : h;
    down[i] = turns ? h : v;
  }
}

#ifdef VSTRING_AVX2

constexpr std::size_t kLanes = 8;

VSTRING_AVX2 void comb_lanes(const Byte* a, const Byte* b, std::size_t n, std::uint32_t* across,
                             std::uint32_t* down) {
  for (std::size_t i = 0; i < n; i += kLanes) {
    const __m128i rows = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(a + i));
    const __m128i columns = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(b + i));
    const __m256i equal = _mm256_cvtepi8_epi32(_mm_cmpeq_epi8(rows, columns));
    const __m256i h = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(across + i));
    const __m256i v = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(down + i));
    const __m256i low = _mm256_blendv_epi8(_mm256_min_epu32(h, v), v, equal);
    const __m256i high = _mm256_blendv_epi8(_mm256_max_epu32(h, v), h, equal);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(across + i), low);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(down + i), high);
  }
}

#endif

}  // namespace

void comb_cells(const Byte* a, const Byte* b, std::size_t n, std::uint32_t* across,
                std::uint32_t* down) {
  std::size_t done = 0;
#ifdef VSTRING_AVX2
  if (has_avx2()) {
    done = n - n % kLanes;
    comb_lanes(a, b, done, across, down);
  }
#endif
  comb_plain(a + done, b + done, n - done, across + done, down + done);
}

}  // namespace vstring
