#include "bytes/find_pair.h"

#include <bit>
#include <cstring>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

#ifdef VSTRING_AVX2

// Bit i tells whether the pair stands at byte i of the block.
VSTRING_AVX2 std::uint32_t pairs(const Byte* block, const BytePair& pair) {
  const __m256i first = _mm256_set1_epi8(static_cast<char>(pair.first));
  const __m256i second = _mm256_set1_epi8(static_cast<char>(pair.second));
  const __m256i both =
      _mm256_and_si256(_mm256_cmpeq_epi8(avx2::load(block), first),
                       _mm256_cmpeq_epi8(avx2::load(block + pair.distance), second));
  return static_cast<std::uint32_t>(_mm256_movemask_epi8(both));
}

// Needs a block at least. The last one overlaps the one before, in which there is no pair then.
VSTRING_AVX2 std::size_t find_in_blocks(const Byte* text, std::size_t at, std::size_t end,
                                        const BytePair& pair) {
  const std::size_t last = end - avx2::kBlock;
  for (; at < last; at += avx2::kBlock) {
    const std::uint32_t hits = pairs(text + at, pair);
    if (hits != 0) return at + static_cast<std::size_t>(std::countr_zero(hits));
  }
  const std::uint32_t hits = pairs(text + last, pair);
  return hits == 0 ? npos : last + static_cast<std::size_t>(std::countr_zero(hits));
}

#endif

}  // namespace

std::size_t find_pair(Bytes text, std::size_t at, std::size_t end, const BytePair& pair) {
#ifdef VSTRING_AVX2
  if (has_avx2() && end - at >= avx2::kBlock) return find_in_blocks(text.data(), at, end, pair);
#endif
  for (; at < end; ++at) {
    const void* const hit = std::memchr(text.data() + at, pair.first, end - at);
    if (hit == nullptr) break;
    at = static_cast<std::size_t>(static_cast<const Byte*>(hit) - text.data());
    if (text[at + pair.distance] == pair.second) return at;
  }
  return npos;
}

}  // namespace vstring
