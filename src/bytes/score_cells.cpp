#include "bytes/score_cells.h"

#include <algorithm>
#include <type_traits>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

template <typename Cell>
Cell score_plain(const Byte* a, const Byte* b, std::size_t n, const Cell* corner,
                 const Cell* before, Cell* here, const CellScores<Cell>& scores) {
  Cell greatest = scores.floor;
  for (std::size_t i = 0; i < n; ++i) {
    const Cell letters = corner[i] + (a[i] == b[i] ? scores.match : scores.mismatch);
    const Cell gap = std::max(before[i], before[i + 1]) + scores.gap;
    here[i] = std::max(std::max(letters, gap), scores.floor);
    greatest = std::max(greatest, here[i]);
  }
  return greatest;
}

#ifdef VSTRING_AVX2

constexpr std::size_t kLanes = 8;

VSTRING_AVX2 __m256i load_lanes(const std::int32_t* cells) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(cells));
}

VSTRING_AVX2 std::int32_t score_lanes(const Byte* a, const Byte* b, std::size_t n,
                                      const std::int32_t* corner, const std::int32_t* before,
                                      std::int32_t* here, const CellScores<std::int32_t>& scores) {
  const __m256i match = _mm256_set1_epi32(scores.match);
  const __m256i mismatch = _mm256_set1_epi32(scores.mismatch);
  const __m256i gap = _mm256_set1_epi32(scores.gap);
  const __m256i floor = _mm256_set1_epi32(scores.floor);
  __m256i greatest = floor;
  for (std::size_t i = 0; i < n; i += kLanes) {
    const __m128i rows = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(a + i));
    const __m128i columns = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(b + i));
    const __m256i equal = _mm256_cvtepi8_epi32(_mm_cmpeq_epi8(rows, columns));
    const __m256i letters =
        _mm256_add_epi32(load_lanes(corner + i), _mm256_blendv_epi8(mismatch, match, equal));
    const __m256i straight = _mm256_max_epi32(load_lanes(before + i), load_lanes(before + i + 1));
    const __m256i best = _mm256_max_epi32(letters, _mm256_add_epi32(straight, gap));
    const __m256i cells = _mm256_max_epi32(best, floor);
    _mm256_storeu_si256(reinterpret_cast<__m256i*>(here + i), cells);
    greatest = _mm256_max_epi32(greatest, cells);
  }
  alignas(32) std::int32_t lanes[kLanes];
  _mm256_store_si256(reinterpret_cast<__m256i*>(lanes), greatest);
  return *std::max_element(lanes, lanes + kLanes);
}

#endif

}  // namespace

template <typename Cell>
Cell score_cells(const Byte* a, const Byte* b, std::size_t n, const Cell* corner,
                 const Cell* before, Cell* here, const CellScores<Cell>& scores) {
  std::size_t done = 0;
  Cell greatest = scores.floor;
#ifdef VSTRING_AVX2
  if constexpr (std::is_same_v<Cell, std::int32_t>) {
    if (has_avx2()) {
      done = n - n % kLanes;
      greatest = score_lanes(a, b, done, corner, before, here, scores);
    }
  }
#endif
  return std::max(greatest, score_plain(a + done, b + done, n - done, corner + done, before + done,
                                        here + done, scores));
}

template std::int32_t score_cells(const Byte*, const Byte*, std::size_t, const std::int32_t*,
                                  const std::int32_t*, std::int32_t*,
                                  const CellScores<std::int32_t>&);
template std::int64_t score_cells(const Byte*, const Byte*, std::size_t, const std::int64_t*,
                                  const std::int64_t*, std::int64_t*,
                                  const CellScores<std::int64_t>&);

}  // namespace vstring
