// SHA-1, FIPS 180-4. The names are those of its section 6.1.
#include "random/merkle_damgard.h"

namespace vstring::random {
namespace {

using Word = std::uint32_t;
using Chain = std::array<Word, 5>;

Word Ch(Word x, Word y, Word z) { return z ^ (x & (y ^ z)); }
Word Parity(Word x, Word y, Word z) { return x ^ y ^ z; }
Word Maj(Word x, Word y, Word z) { return (x & y) | (z & (x | y)); }

// Twenty steps. W holds the last sixteen words of the message schedule.
template <auto function, Word K, unsigned from>
void run_round(Chain& v, BlockWords<Word>& W) {
#pragma GCC unroll 20
  for (unsigned t = from; t < from + 20; ++t) {
    if (t >= 16) {
      W[t % 16] = std::rotl(W[(t - 3) % 16] ^ W[(t - 8) % 16] ^ W[(t - 14) % 16] ^ W[t % 16], 1);
    }
    const auto [a, b, c, d, e] = v;
    v = {std::rotl(a, 5) + function(b, c, d) + e + K + W[t % 16], a, std::rotl(b, 30), c, d};
  }
}

void compress(Chain& H, const Byte* block) {
  BlockWords<Word> W = block_words<Word>(block);
  for (Word& word : W) word = big_endian(word);
  Chain v = H;
  run_round<Ch, 0x5a827999, 0>(v, W);
  run_round<Parity, 0x6ed9eba1, 20>(v, W);
  run_round<Maj, 0x8f1bbcdc, 40>(v, W);
  run_round<Parity, 0xca62c1d6, 60>(v, W);
  for (std::size_t i = 0; i < H.size(); ++i) H[i] += v[i];
}

}  // namespace

std::array<Byte, 20> sha1(Bytes message) {
  Chain H = {0x67452301, 0xefcdab89, 0x98badcfe, 0x10325476, 0xc3d2e1f0};
  compress_all<Word, LengthOrder::high_byte_first>(
      message, [&](const Byte* blocks, std::size_t count) {
        for (; count > 0; --count, blocks += sizeof(BlockWords<Word>)) compress(H, blocks);
      });
  for (Word& word : H) word = big_endian(word);
  return std::bit_cast<std::array<Byte, 20>>(H);
}

}  // namespace vstring::random
