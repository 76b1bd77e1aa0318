#include "bytes/reverse.h"

#include <algorithm>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

VSTRING_AVX2 void reverse_block(const Byte* block, Byte* out) {
  // A shuffle stays within its half of the register: the halves change places afterwards.
  const __m256i backwards = _mm256_broadcastsi128_si256(
      _mm_set_epi8(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15));
  const __m256i halves = _mm256_shuffle_epi8(avx2::load(block), backwards);
  avx2::store(out, _mm256_permute4x64_epi64(halves, 0x4e));
}

// Requires a text of a block at least. The last block may overlap the one before.
VSTRING_AVX2 void reverse_in_blocks(Bytes text, Byte* out) {
  const std::size_t last = text.size() - avx2::kBlock;
  for (std::size_t i = 0; i < last; i += avx2::kBlock) {
    reverse_block(text.data() + last - i, out + i);
  }
  reverse_block(text.data(), out + last);
}

}  // namespace

#endif

void reverse_bytes(Bytes text, MutableBytes out) {
#ifdef VSTRING_AVX2
  if (text.size() >= avx2::kBlock && has_avx2()) return reverse_in_blocks(text, out.data());
#endif
  std::reverse_copy(text.begin(), text.end(), out.begin());
}

}  // namespace vstring
