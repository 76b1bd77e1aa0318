// The names are those of FIPS 180-4, sections 4.1.2, 4.1.3 and 6.2.2.
#include "bytes/sha2_blocks.h"

#include <bit>
#include <cstring>

#include "bytes/big_endian.h"
#include "bytes/cpu.h"

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace vstring {
namespace {

// The fractional parts of the cube roots of the first primes.
constexpr std::uint32_t K256[64] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2,
};
constexpr std::uint64_t K512[80] = {
    0x428a2f98d728ae22, 0x7137449123ef65cd, 0xb5c0fbcfec4d3b2f, 0xe9b5dba58189dbbc,
    0x3956c25bf348b538, 0x59f111f1b605d019, 0x923f82a4af194f9b, 0xab1c5ed5da6d8118,
    0xd807aa98a3030242, 0x12835b0145706fbe, 0x243185be4ee4b28c, 0x550c7dc3d5ffb4e2,
    0x72be5d74f27b896f, 0x80deb1fe3b1696b1, 0x9bdc06a725c71235, 0xc19bf174cf692694,
    0xe49b69c19ef14ad2, 0xefbe4786384f25e3, 0x0fc19dc68b8cd5b5, 0x240ca1cc77ac9c65,
    0x2de92c6f592b0275, 0x4a7484aa6ea6e483, 0x5cb0a9dcbd41fbd4, 0x76f988da831153b5,
    0x983e5152ee66dfab, 0xa831c66d2db43210, 0xb00327c898fb213f, 0xbf597fc7beef0ee4,
    0xc6e00bf33da88fc2, 0xd5a79147930aa725, 0x06ca6351e003826f, 0x142929670a0e6e70,
    0x27b70a8546d22ffc, 0x2e1b21385c26c926, 0x4d2c6dfc5ac42aed, 0x53380d139d95b3df,
    0x650a73548baf63de, 0x766a0abb3c77b2a8, 0x81c2c92e47edaee6, 0x92722c851482353b,
    0xa2bfe8a14cf10364, 0xa81a664bbc423001, 0xc24b8b70d0f89791, 0xc76c51a30654be30,
    0xd192e819d6ef5218, 0xd69906245565a910, 0xf40e35855771202a, 0x106aa07032bbd1b8,
    0x19a4c116b8d2d0c8, 0x1e376c085141ab53, 0x2748774cdf8eeb99, 0x34b0bcb5e19b48a8,
    0x391c0cb3c5c95a63, 0x4ed8aa4ae3418acb, 0x5b9cca4f7763e373, 0x682e6ff3d6b2b8a3,
    0x748f82ee5defb2fc, 0x78a5636f43172f60, 0x84c87814a1f0ab72, 0x8cc702081a6439ec,
    0x90befffa23631e28, 0xa4506cebde82bde9, 0xbef9a3f7b2c67915, 0xc67178f2e372532b,
    0xca273eceea26619c, 0xd186b8c721c0c207, 0xeada7dd6cde0eb1e, 0xf57d4f7fee6ed178,
    0x06f067aa72176fba, 0x0a637dc5a2c898a6, 0x113f9804bef90dae, 0x1b710b35131c471b,
    0x28db77f523047d84, 0x32caab7b40c72493, 0x3c9ebe0a15c9bebc, 0x431d67c49c100d4c,
    0x4cc5d4becb3e42b6, 0x597f299cfc657e2a, 0x5fcb6fab3ad6faec, 0x6c44198c4a475817,
};

// Rotations, and a shift for the last of `sigma0` and `sigma1`.
struct Amounts {
  int Sigma0[3], Sigma1[3], sigma0[3], sigma1[3];
};
constexpr Amounts kAmounts256 = {{2, 13, 22}, {6, 11, 25}, {7, 18, 3}, {17, 19, 10}};
constexpr Amounts kAmounts512 = {{28, 34, 39}, {14, 18, 41}, {1, 8, 7}, {19, 61, 6}};

template <typename Word>
[[gnu::always_inline]] inline Word rotations(Word x, const int (&r)[3]) {
  return std::rotr(x, r[0]) ^ std::rotr(x, r[1]) ^ std::rotr(x, r[2]);
}
template <typename Word>
[[gnu::always_inline]] inline Word rotations_and_shift(Word x, const int (&r)[3]) {
  return std::rotr(x, r[0]) ^ std::rotr(x, r[1]) ^ (x >> r[2]);
}

template <typename Word, std::size_t kRounds>
[[gnu::always_inline]] inline void compress(std::array<Word, 8>& H, const Byte* block,
                                            const Word (&K)[kRounds], const Amounts& by) {
  Word W[16];  // the last sixteen of the message schedule
  std::memcpy(W, block, sizeof W);
  for (Word& word : W) word = big_endian(word);
  auto [a, b, c, d, e, f, g, h] = H;
  for (std::size_t t = 0; t < kRounds; t += 16) {
#pragma GCC unroll 16
    for (std::size_t i = 0; i < 16; ++i) {
      if (t > 0) {
        W[i] += rotations_and_shift(W[(i + 14) % 16], by.sigma1) + W[(i + 9) % 16] +
                rotations_and_shift(W[(i + 1) % 16], by.sigma0);
      }
      const Word Ch = g ^ (e & (f ^ g));
      const Word Maj = (a & b) | (c & (a | b));
      const Word T1 = h + rotations(e, by.Sigma1) + Ch + K[t + i] + W[i];
      const Word T2 = rotations(a, by.Sigma0) + Maj;
      h = g;
      g = f;
      f = e;
      e = d + T1;
      d = c;
      c = b;
      b = a;
      a = T1 + T2;
    }
  }
  const std::array<Word, 8> v = {a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < v.size(); ++i) H[i] += v[i];
}

#ifdef VSTRING_SHA
// The instructions keep the chain as ABEF and CDGH, the first letter in the highest word, and do
// two rounds at a time.
VSTRING_SHA void compress_in_hardware(std::array<std::uint32_t, 8>& H, const Byte* blocks,
                                      std::size_t count) {
  const __m128i byte_order = _mm_set_epi64x(0x0c0d0e0f08090a0b, 0x0405060700010203);
  auto* const chain = reinterpret_cast<__m128i*>(H.data());
  const __m128i badc = _mm_shuffle_epi32(_mm_loadu_si128(chain), 0xb1);
  const __m128i efgh = _mm_shuffle_epi32(_mm_loadu_si128(chain + 1), 0x1b);
  __m128i abef = _mm_alignr_epi8(badc, efgh, 8);
  __m128i cdgh = _mm_blend_epi16(efgh, badc, 0xf0);
  for (; count > 0; --count, blocks += 64) {
    const __m128i abef_before = abef;
    const __m128i cdgh_before = cdgh;
    __m128i W[4];  // the last sixteen of the message schedule
#pragma GCC unroll 16
    for (int i = 0; i < 16; ++i) {
      __m128i& w = W[i % 4];
      if (i < 4) {
        const auto* const words = reinterpret_cast<const __m128i*>(blocks) + i;
        w = _mm_shuffle_epi8(_mm_loadu_si128(words), byte_order);
      } else {
        const __m128i nine_to_six = _mm_alignr_epi8(W[(i + 3) % 4], W[(i + 2) % 4], 4);
        w = _mm_add_epi32(_mm_sha256msg1_epu32(w, W[(i + 1) % 4]), nine_to_six);
        w = _mm_sha256msg2_epu32(w, W[(i + 3) % 4]);
      }
      const auto* const constants = reinterpret_cast<const __m128i*>(K256) + i;
      const __m128i sums = _mm_add_epi32(w, _mm_loadu_si128(constants));
      cdgh = _mm_sha256rnds2_epu32(cdgh, abef, sums);
      abef = _mm_sha256rnds2_epu32(abef, cdgh, _mm_shuffle_epi32(sums, 0x0e));
    }
    abef = _mm_add_epi32(abef, abef_before);
    cdgh = _mm_add_epi32(cdgh, cdgh_before);
  }
  const __m128i feba = _mm_shuffle_epi32(abef, 0x1b);
  const __m128i dchg = _mm_shuffle_epi32(cdgh, 0xb1);
  _mm_storeu_si128(chain, _mm_blend_epi16(feba, dchg, 0xf0));
  _mm_storeu_si128(chain + 1, _mm_alignr_epi8(dchg, feba, 8));
}
#endif

}  // namespace

void sha256_blocks(std::array<std::uint32_t, 8>& chain, const Byte* blocks, std::size_t count) {
#ifdef VSTRING_SHA
  if (has_sha()) return compress_in_hardware(chain, blocks, count);
#endif
  for (; count > 0; --count, blocks += 64) compress(chain, blocks, K256, kAmounts256);
}

void sha512_blocks(std::array<std::uint64_t, 8>& chain, const Byte* blocks, std::size_t count) {
  for (; count > 0; --count, blocks += 128) compress(chain, blocks, K512, kAmounts512);
}

}  // namespace vstring
