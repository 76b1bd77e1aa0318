#include "bytes/prefix_filter.h"

#include <bit>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

using Halves = PrefixFilter::Halves;

#ifdef VSTRING_AVX2

struct Tables {
  __m256i low;
  __m256i high;
};

// For each place of a block, the prefixes that may have its byte there, as bits.
VSTRING_AVX2 __m256i look_up(const Tables& tables, const Byte* block) {
  const __m256i bytes = avx2::load(block);
  const __m256i low = _mm256_and_si256(bytes, _mm256_set1_epi8(15));
  return _mm256_and_si256(_mm256_shuffle_epi8(tables.low, low),
                          _mm256_shuffle_epi8(tables.high, avx2::upper_halves(bytes)));
}

// Goes over whole blocks of places, to the one that is looked for or to where less is left.
template <std::size_t kLength>
VSTRING_AVX2 std::size_t find_in_blocks(const Halves* halves, const Byte* text, std::size_t at,
                                        std::size_t end) {
  Tables tables[kLength];
  for (std::size_t i = 0; i < kLength; ++i) {
    tables[i] = {avx2::load_table(halves[i].low), avx2::load_table(halves[i].high)};
  }
  for (; end - at >= avx2::kBlock; at += avx2::kBlock) {
    __m256i prefixes = look_up(tables[0], text + at);
    for (std::size_t i = 1; i < kLength; ++i) {
      prefixes = _mm256_and_si256(prefixes, look_up(tables[i], text + at + i));
    }
    const std::uint32_t places = avx2::non_zero(prefixes);
    if (places != 0) return at + static_cast<std::size_t>(std::countr_zero(places));
  }
  return at;
}

#endif

// Whether a prefix of `length` bytes may stand at a place.
bool may_stand(const Halves* halves, std::size_t length, const Byte* place) {
  unsigned prefixes = 255;
  for (std::size_t i = 0; i < length; ++i) {
    prefixes &= halves[i].low[place[i] % 16] & halves[i].high[place[i] / 16];
  }
  return prefixes != 0;
}

}  // namespace

void PrefixFilter::add(std::size_t prefix, std::size_t i, const ByteSet& set) {
  set.for_each([&](Byte c) {
    Byte& low = halves_[i].low[c % 16];
    Byte& high = halves_[i].high[c / 16];
    low = static_cast<Byte>(low | 1U << prefix);
    high = static_cast<Byte>(high | 1U << prefix);
  });
}

std::size_t PrefixFilter::find(std::size_t length, Bytes text, std::size_t at) const {
  if (text.size() < length) return npos;
  const std::size_t end = text.size() - length + 1;
#ifdef VSTRING_AVX2
  if (has_avx2() && at < end) {
    constexpr decltype(&find_in_blocks<2>) kFinders[] = {find_in_blocks<2>, find_in_blocks<3>,
                                                         find_in_blocks<4>, find_in_blocks<5>};
    at = kFinders[length - 2](halves_, text.data(), at, end);
  }
#endif
  for (; at < end; ++at) {
    if (may_stand(halves_, length, text.data() + at)) return at;
  }
  return npos;
}

}  // namespace vstring
