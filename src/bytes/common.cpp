#include "bytes/common.h"

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

VSTRING_AVX2 std::size_t pass_blocks(const Byte* a, const Byte* b, std::size_t i, std::size_t end) {
  for (; i + avx2::kBlock <= end; i += avx2::kBlock) {
    if (avx2::non_zero(_mm256_xor_si256(avx2::load(a + i), avx2::load(b + i))) != 0) break;
  }
  return i;
}

}  // namespace

#endif

std::size_t pass_equal_blocks(const Byte* a, const Byte* b, std::size_t i, std::size_t end) {
#ifdef VSTRING_AVX2
  if (has_avx2()) return pass_blocks(a, b, i, end);
#else
  (void)a, (void)b, (void)end;
#endif
  return i;
}

}  // namespace vstring
