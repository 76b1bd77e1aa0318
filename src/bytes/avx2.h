// What the AVX2 kernels share. To be included where VSTRING_AVX2 is defined only.
#pragma once
#include <immintrin.h>

#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/cpu.h"

namespace vstring::avx2 {

inline constexpr std::size_t kBlock = 32;

VSTRING_AVX2 inline __m256i load(const Byte* block) {
  return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block));
}

VSTRING_AVX2 inline void store(Byte* block, __m256i bytes) {
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(block), bytes);
}

// A table of sixteen bytes for look-ups in both halves of a register.
VSTRING_AVX2 inline __m256i load_table(const Byte* table) {
  return _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table)));
}

// Each byte divided by 16.
VSTRING_AVX2 inline __m256i upper_halves(__m256i bytes) {
  return _mm256_and_si256(_mm256_srli_epi16(bytes, 4), _mm256_set1_epi8(15));
}

VSTRING_AVX2 inline std::uint64_t sum_of_four(__m256i numbers) {
  std::uint64_t parts[4];
  _mm256_storeu_si256(reinterpret_cast<__m256i*>(parts), numbers);
  return parts[0] + parts[1] + parts[2] + parts[3];
}

// Bit i tells whether byte i is not zero.
VSTRING_AVX2 inline std::uint32_t non_zero(__m256i bytes) {
  const __m256i zero = _mm256_cmpeq_epi8(bytes, _mm256_setzero_si256());
  return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(zero));
}

}  // namespace vstring::avx2
