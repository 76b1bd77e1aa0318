#include "bytes/capitalise.h"

#include <algorithm>
#include <cstdint>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

constexpr std::size_t kStretch = 64;
constexpr Byte kCaseBit = 'a' ^ 'A';

// Changes the letters of up to 64 bytes: small ones that begin a word, capital ones within it.
void change_letters(Bytes text, std::uint64_t begins, std::uint64_t goes_on, Byte* out) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const Byte c = text[i];
    const bool is_small = c >= 'a' && c <= 'z';
    const bool is_capital = c >= 'A' && c <= 'Z';
    const bool changes =
        (is_small && (begins >> i & 1) != 0) || (is_capital && (goes_on >> i & 1) != 0);
    out[i] = static_cast<Byte>(c ^ (changes ? kCaseBit : 0));
  }
}

#ifdef VSTRING_AVX2

// All bits of byte i are bit i of the mask.
VSTRING_AVX2 __m256i spread(std::uint32_t mask) {
  const __m256i byte_of =
      _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
  const __m256i bit_of = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
  const __m256i bytes = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(mask)), byte_of);
  return _mm256_cmpeq_epi8(_mm256_and_si256(bytes, bit_of), bit_of);
}

VSTRING_AVX2 __m256i is_between(__m256i bytes, char first, char last) {
  return _mm256_and_si256(_mm256_cmpgt_epi8(bytes, _mm256_set1_epi8(static_cast<char>(first - 1))),
                          _mm256_cmpgt_epi8(_mm256_set1_epi8(static_cast<char>(last + 1)), bytes));
}

// The same for 64 bytes.
VSTRING_AVX2 void change_letters_of_two_blocks(const Byte* text, std::uint64_t begins,
                                               std::uint64_t goes_on, Byte* out) {
  for (std::size_t i = 0; i < kStretch; i += avx2::kBlock) {
    const __m256i bytes = avx2::load(text + i);
    const __m256i change =
        _mm256_or_si256(_mm256_and_si256(is_between(bytes, 'a', 'z'),
                                         spread(static_cast<std::uint32_t>(begins >> i))),
                        _mm256_and_si256(is_between(bytes, 'A', 'Z'),
                                         spread(static_cast<std::uint32_t>(goes_on >> i))));
    const __m256i bits = _mm256_and_si256(change, _mm256_set1_epi8(kCaseBit));
    avx2::store(out + i, _mm256_xor_si256(bytes, bits));
  }
}

#endif

}  // namespace

void capitalise_words(const ByteScan& members, Bytes text, MutableBytes out) {
  std::uint64_t before = 0;  // whether the byte ahead of the stretch is a member
  for (std::size_t i = 0; i < text.size(); i += kStretch) {
    const Bytes stretch = text.subspan(i, std::min(kStretch, text.size() - i));
    const std::uint64_t inside = members.members(stretch);
    const std::uint64_t behind = inside << 1 | before;
    before = inside >> (kStretch - 1);
#ifdef VSTRING_AVX2
    if (stretch.size() == kStretch && has_avx2()) {
      change_letters_of_two_blocks(stretch.data(), inside & ~behind, inside & behind, &out[i]);
      continue;
    }
#endif
    change_letters(stretch, inside & ~behind, inside & behind, &out[i]);
  }
}

}  // namespace vstring
