#include "bytes/find_probes.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "bytes/cpu.h"
#ifdef VSTRING_AVX2
#include "bytes/avx2.h"
#endif

namespace vstring {
namespace {

#ifdef VSTRING_AVX2

// A block of alignments, in two registers.
struct Hits {
  __m256i low;
  __m256i high;
};

VSTRING_AVX2 Hits probe(const Byte* block, __m256i byte) {
  return {_mm256_cmpeq_epi8(avx2::load(block), byte),
          _mm256_cmpeq_epi8(avx2::load(block + avx2::kBlock), byte)};
}

VSTRING_AVX2 Hits both(const Hits& a, const Hits& b) {
  return {_mm256_and_si256(a.low, b.low), _mm256_and_si256(a.high, b.high)};
}

VSTRING_AVX2 std::uint64_t bits(const Hits& hits) {
  const auto low = static_cast<std::uint32_t>(_mm256_movemask_epi8(hits.low));
  const auto high = static_cast<std::uint32_t>(_mm256_movemask_epi8(hits.high));
  return low | std::uint64_t{high} << 32;
}

// Goes over whole blocks of alignments, N probes for each; the last may overlap the one before.
template <std::size_t N>
VSTRING_AVX2 std::uint64_t find_in_blocks(const Byte* text, std::size_t& at, std::size_t end,
                                          const Probes& probes, Budget& ahead) {
  constexpr std::size_t kAhead = N < 2 ? N : 2;
  constexpr std::size_t kLookCost = 4;  // of a look at the others, in blocks that need none
  __m256i bytes[N];
  const Byte* texts[N];
  for (std::size_t i = 0; i < N; ++i) {
    bytes[i] = _mm256_set1_epi8(static_cast<char>(probes.bytes[i]));
    texts[i] = text + probes.offsets[i];
  }
  const auto look_ahead = [&](std::size_t place) VSTRING_AVX2 __attribute__((always_inline)) {
    Hits hits = probe(texts[0] + place, bytes[0]);
    for (std::size_t i = 1; i < kAhead; ++i) hits = both(hits, probe(texts[i] + place, bytes[i]));
    return hits;
  };
  const auto leaves_nothing = [](const Hits& hits) VSTRING_AVX2 __attribute__((always_inline)) {
    const __m256i any = _mm256_or_si256(hits.low, hits.high);
    return _mm256_testz_si256(any, any) != 0;
  };
  const auto look_at_others = [&](Hits hits, std::size_t place) VSTRING_AVX2
      __attribute__((always_inline)) {
#pragma GCC unroll 8
    for (std::size_t i = kAhead; i < N; ++i) hits = both(hits, probe(texts[i] + place, bytes[i]));
    return bits(hits);
  };
  const std::size_t last = end - kProbeBlock;
  std::size_t place = at;
  std::uint64_t found = 0;
  while (place <= last && !ahead.is_used_up()) {
    const std::size_t first = place;
    Hits hits = look_ahead(place);
    while (leaves_nothing(hits) && place + kProbeBlock <= last) {
      place += kProbeBlock;
      hits = look_ahead(place);
    }
    ahead.earn((place - first) / kProbeBlock);
    found = look_at_others(hits, place);
    if (found != 0) break;
    ahead.spend(kLookCost);
    place += kProbeBlock;
  }
  for (; found == 0 && place <= last; place += kProbeBlock) {
    found = look_at_others(look_ahead(place), place);
    if (found != 0) break;
  }
  if (found == 0 && place < end) {
    const std::size_t passed = place - last;
    place = last;
    found = look_at_others(look_ahead(place), place) >> passed << passed;
  }
  at = place;
  return found;
}

using FindInBlocks = std::uint64_t (*)(const Byte*, std::size_t&, std::size_t, const Probes&,
                                       Budget&);
constexpr FindInBlocks kFindInBlocks[] = {
    find_in_blocks<1>, find_in_blocks<2>, find_in_blocks<3>, find_in_blocks<4>,
    find_in_blocks<5>, find_in_blocks<6>, find_in_blocks<7>, find_in_blocks<8>,
};

#endif

// All probes at one alignment.
bool stand_at(const Byte* place, const Probes& probes) {
  for (std::size_t i = 0; i < probes.count; ++i) {
    if (place[probes.offsets[i]] != probes.bytes[i]) return false;
  }
  return true;
}

// Sixteen bytes, for which every processor has vector instructions.
using Lanes [[gnu::vector_size(16)]] = Byte;

// All probes at sixteen alignments, as bits.
std::uint64_t stand_in_lanes(const Byte* place, const Probes& probes) {
  Lanes stand = ~Lanes{};
  for (std::size_t i = 0; i < probes.count; ++i) {
    Lanes text;
    std::memcpy(&text, place + probes.offsets[i], sizeof text);
    stand = text == probes.bytes[i] ? stand : Lanes{};
  }
  std::uint64_t words[2];
  std::memcpy(words, &stand, sizeof words);
  // The product has the top bits of the eight bytes side by side in its own top byte.
  const auto bits = [](std::uint64_t word) {
    constexpr std::uint64_t kTopBits = 0x8080808080808080;
    return (word & kTopBits) * 0x0002040810204081 >> 56;
  };
  return bits(words[0]) | bits(words[1]) << 8;
}

// All probes at the first n alignments, a block of them at most, as bits.
std::uint64_t stand_in_block(const Byte* block, std::size_t n, const Probes& probes) {
  constexpr std::size_t kPart = sizeof(Lanes);
  std::uint64_t hits = 0;
  for (std::size_t i = 0; i < n && n >= kPart; i += kPart) {
    const std::size_t part = std::min(i, n - kPart);  // the last may overlap the one before
    hits |= stand_in_lanes(block + part, probes) << part;
  }
  for (std::size_t i = 0; i < n && n < kPart; ++i) {
    if (stand_at(block + i, probes)) hits |= std::uint64_t{1} << i;
  }
  return hits;
}

// From one place of the first probe to the next, there block by block.
std::uint64_t find_plainly(const Byte* text, std::size_t& at, std::size_t end,
                           const Probes& probes) {
  const Byte* const first = text + probes.offsets[0];
  for (; at < end; at += kProbeBlock) {
    const void* const found = std::memchr(first + at, probes.bytes[0], end - at);
    if (found == nullptr) break;
    at = static_cast<std::size_t>(static_cast<const Byte*>(found) - first);
    const std::uint64_t hits = stand_in_block(text + at, std::min(end - at, kProbeBlock), probes);
    if (hits != 0) return hits;
  }
  return 0;
}

}  // namespace

std::uint64_t find_probes(Bytes text, std::size_t& at, std::size_t end, const Probes& probes,
                          Budget& ahead) {
#ifdef VSTRING_AVX2
  if (has_avx2() && end >= kProbeBlock) {
    return kFindInBlocks[probes.count - 1](text.data(), at, end, probes, ahead);
  }
#endif
  return find_plainly(text.data(), at, end, probes);
}

}  // namespace vstring
