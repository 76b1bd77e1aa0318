// What MD4 and MD5 share: a chain of four 32-bit words, whose bytes stand lowest first, and rounds
// of sixteen steps.
#pragma once
#include "random/merkle_damgard.h"

namespace vstring::random {

struct Chain {
  std::uint32_t a = 0x67452301;
  std::uint32_t b = 0xefcdab89;
  std::uint32_t c = 0x98badcfe;
  std::uint32_t d = 0x10325476;
};

using Words = BlockWords<std::uint32_t>;

// A round: step(a, b, c, d, i) for i = 0, ..., 15, the words of the chain taking turns to be the
// first one.
template <typename Step>
[[gnu::always_inline]] inline void sixteen_steps(Chain& v, Step step) {
#pragma GCC unroll 4
  for (unsigned i = 0; i < 16; i += 4) {
    step(v.a, v.b, v.c, v.d, i);
    step(v.d, v.a, v.b, v.c, i + 1);
    step(v.c, v.d, v.a, v.b, i + 2);
    step(v.b, v.c, v.d, v.a, i + 3);
  }
}

// `compress` takes a chain and the words of a block to the next chain.
template <typename Compress>
std::array<Byte, 16> digest(Bytes message, Compress compress) {
  Chain chain;
  compress_all<std::uint32_t, LengthOrder::low_byte_first>(
      message, [&](const Byte* blocks, std::size_t count) {
        for (; count > 0; --count, blocks += sizeof(Words)) {
          chain = compress(chain, block_words<std::uint32_t>(blocks));
        }
      });
  return std::bit_cast<std::array<Byte, 16>>(chain);
}

}  // namespace vstring::random
