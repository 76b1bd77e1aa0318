#include "bytes/find_probes.h"

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

// Goes over whole blocks of alignments, one at least, N probes for each.
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
  std::uint64_t found = 0;
  while (found == 0 && at <= last && !ahead.is_used_up()) {
    const std::size_t first = at;
    Hits hits = look_ahead(at);
    while (leaves_nothing(hits) && at + kProbeBlock <= last) hits = look_ahead(at += kProbeBlock);
    ahead.earn((at - first) / kProbeBlock);
    ahead.spend(kLookCost);
    found = look_at_others(hits, at);
    if (found == 0) at += kProbeBlock;
  }
  if (found != 0) return found;
  std::size_t place = at;
  for (; place <= last; place += kProbeBlock) {
    found = look_at_others(look_ahead(place), place);
    if (found != 0) break;
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

// All probes at the alignments of a block, as bits.
std::uint64_t stand_in_block(const Byte* block, const Probes& probes) {
  constexpr std::size_t kParts = kProbeBlock / sizeof(Lanes);
  Lanes stand[kParts];
  std::memset(stand, 0xff, sizeof stand);
  for (std::size_t i = 0; i < probes.count; ++i) {
    Lanes text[kParts];
    std::memcpy(text, block + probes.offsets[i], sizeof text);
    for (std::size_t part = 0; part < kParts; ++part) {
      stand[part] = text[part] == probes.bytes[i] ? stand[part] : Lanes{};
    }
  }
  std::uint64_t words[kProbeBlock / 8];
  std::memcpy(words, stand, sizeof words);
  std::uint64_t bits = 0;
  for (std::size_t i = 0; i < kProbeBlock / 8; ++i) {
    // The product has the top bits of the eight bytes side by side in its own top byte.
    constexpr std::uint64_t kTopBits = 0x8080808080808080;
    bits |= (words[i] & kTopBits) * 0x0002040810204081 >> 56 << 8 * i;
  }
  return bits;
}

// From one place of the first probe to the next, there block by block.
std::uint64_t find_plainly(const Byte* text, std::size_t& at, std::size_t end,
                           const Probes& probes) {
  const Byte* const first = text + probes.offsets[0];
  std::uint64_t hits = 0;
  for (; hits == 0 && at < end; at += hits == 0 ? kProbeBlock : 0) {
    const void* const found = std::memchr(first + at, probes.bytes[0], end - at);
    if (found == nullptr) return 0;
    at = static_cast<std::size_t>(static_cast<const Byte*>(found) - first);
    if (end - at >= kProbeBlock) {
      hits = stand_in_block(text + at, probes);
      continue;
    }
    for (std::size_t i = at; i < end; ++i) {
      if (stand_at(text + i, probes)) hits |= std::uint64_t{1} << (i - at);
    }
  }
  return hits;
}

}  // namespace

std::uint64_t find_probes(Bytes text, std::size_t& at, std::size_t end, const Probes& probes,
                          Budget& ahead) {
#ifdef VSTRING_AVX2
  if (has_avx2() && end >= at + kProbeBlock) {
    const FindInBlocks find_in_blocks = kFindInBlocks[probes.count - 1];
    const std::uint64_t hits = find_in_blocks(text.data(), at, end, probes, ahead);
    if (hits != 0 || at == end) return hits;
    // The last block overlaps the one before.
    const std::size_t passed = at - (end - kProbeBlock);
    at = end - kProbeBlock;
    return find_in_blocks(text.data(), at, end, probes, ahead) >> passed << passed;
  }
#endif
  return find_plainly(text.data(), at, end, probes);
}

}  // namespace vstring
