#include "bytes/byte_map.h"

#include <algorithm>
#include <bit>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {

#ifdef VSTRING_AVX2

namespace {

// Row after row that may change. What is in the row has an upper half of 0 once its number is taken
// off; the sum has the top bit set for all else, to which a shuffle answers 0.
template <std::size_t kBlocks>
VSTRING_AVX2 void map_blocks(const Byte* changes, std::uint32_t rows, const Byte* text, Byte* out) {
  __m256i bytes[kBlocks];
  __m256i images[kBlocks];
  for (std::size_t k = 0; k < kBlocks; ++k) {
    bytes[k] = images[k] = avx2::load(text + k * avx2::kBlock);
  }
  for (; rows != 0; rows &= rows - 1) {
    const int first = 16 * std::countr_zero(rows);
    const __m256i row = avx2::load_table(changes + first);
    const __m256i number = _mm256_set1_epi8(static_cast<char>(first));
    for (std::size_t k = 0; k < kBlocks; ++k) {
      const __m256i place =
          _mm256_adds_epu8(_mm256_xor_si256(bytes[k], number), _mm256_set1_epi8(0x70));
      images[k] = _mm256_xor_si256(images[k], _mm256_shuffle_epi8(row, place));
    }
  }
  for (std::size_t k = 0; k < kBlocks; ++k) avx2::store(out + k * avx2::kBlock, images[k]);
}

// Requires a text of a block at least. The last block may overlap the one before.
VSTRING_AVX2 void map_in_blocks(const Byte* changes, std::uint32_t rows, Bytes text, Byte* out) {
  constexpr std::size_t kTogether = 4;  // these share the look at what a row is
  std::size_t i = 0;
  for (; text.size() - i >= kTogether * avx2::kBlock; i += kTogether * avx2::kBlock) {
    map_blocks<kTogether>(changes, rows, text.data() + i, out + i);
  }
  for (; text.size() - i >= avx2::kBlock; i += avx2::kBlock) {
    map_blocks<1>(changes, rows, text.data() + i, out + i);
  }
  const std::size_t last = text.size() - avx2::kBlock;
  if (i < text.size()) map_blocks<1>(changes, rows, text.data() + last, out + last);
}

}  // namespace

#endif

void ByteMap::apply(Bytes text, MutableBytes out) const {
#ifdef VSTRING_AVX2
  if (text.size() >= avx2::kBlock && has_avx2()) {
    return map_in_blocks(changes_, rows_, text, out.data());
  }
#endif
  std::transform(text.begin(), text.end(), out.begin(), [this](Byte c) { return (*this)(c); });
}

}  // namespace vstring
