#include "bytes/byte_sums.h"

#include <algorithm>
#include <cstdint>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

// What two bytes add to a sum, and what the pairs of two blocks do.
struct Different {
  static Byte term(Byte a, Byte b) { return a != b ? 1 : 0; }
#ifdef VSTRING_AVX2
  VSTRING_AVX2 static __m256i terms(__m256i a, __m256i b) {
    return _mm256_andnot_si256(_mm256_cmpeq_epi8(a, b), _mm256_set1_epi8(1));
  }
#endif
};

struct Way {
  static Byte term(Byte a, Byte b) {
    return std::min(static_cast<Byte>(a - b), static_cast<Byte>(b - a));
  }
#ifdef VSTRING_AVX2
  VSTRING_AVX2 static __m256i terms(__m256i a, __m256i b) {
    return _mm256_min_epu8(_mm256_sub_epi8(a, b), _mm256_sub_epi8(b, a));
  }
#endif
};

struct WayTo0 {
  static Byte term(Byte a, Byte) { return Way::term(a, 0); }
#ifdef VSTRING_AVX2
  VSTRING_AVX2 static __m256i terms(__m256i a, __m256i) {
    return Way::terms(a, _mm256_setzero_si256());
  }
#endif
};

#ifdef VSTRING_AVX2

// Over `blocks` whole blocks.
template <typename Term>
VSTRING_AVX2 std::size_t sum_blocks(const Byte* a, const Byte* b, std::size_t blocks) {
  __m256i total = _mm256_setzero_si256();  // four sums
  for (std::size_t i = 0; i < blocks * avx2::kBlock; i += avx2::kBlock) {
    const __m256i terms = Term::terms(avx2::load(a + i), avx2::load(b + i));
    total = _mm256_add_epi64(total, _mm256_sad_epu8(terms, _mm256_setzero_si256()));
  }
  return avx2::sum_of_four(total);
}

#endif

template <typename Term>
std::size_t sum(Bytes a, Bytes b) {
  std::size_t total = 0;
  std::size_t i = 0;
#ifdef VSTRING_AVX2
  if (a.size() >= avx2::kBlock && has_avx2()) {
    total = sum_blocks<Term>(a.data(), b.data(), a.size() / avx2::kBlock);
    i = a.size() - a.size() % avx2::kBlock;
  }
#endif
  for (; i < a.size(); ++i) total += Term::term(a[i], b[i]);
  return total;
}

}  // namespace

std::size_t count_different(Bytes a, Bytes b) { return sum<Different>(a, b); }
std::size_t sum_ways(Bytes a, Bytes b) { return sum<Way>(a, b); }
std::size_t sum_ways_to_0(Bytes text) { return sum<WayTo0>(text, text); }

}  // namespace vstring
