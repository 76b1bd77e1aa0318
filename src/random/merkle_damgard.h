// The frame that both digests stand on (R. Merkle, I. Damgard, 1989): the message, completed to
// whole blocks of 64 bytes by a 1 bit, zeroes and its length in bits, is compressed block by block
// into four 32-bit words.
#pragma once
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

#include "random/digest.h"

namespace vstring::random {

static_assert(std::endian::native == std::endian::little, "digest words are little-endian");

inline constexpr std::size_t kBlock = 64;

struct Chain {
  std::uint32_t a = 0x67452301;
  std::uint32_t b = 0xefcdab89;
  std::uint32_t c = 0x98badcfe;
  std::uint32_t d = 0x10325476;
};

using BlockWords = std::array<std::uint32_t, 16>;

inline BlockWords block_words(const Byte* block) {
  BlockWords words;
  std::memcpy(words.data(), block, kBlock);
  return words;
}

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
Digest digest(Bytes message, Compress compress) {
  Chain chain;
  Bytes rest = message;
  for (; rest.size() >= kBlock; rest = rest.subspan(kBlock)) {
    chain = compress(chain, block_words(rest.data()));
  }

  std::array<Byte, 2 * kBlock> end = {};
  copy_into(end, rest);
  end[rest.size()] = 0x80;
  const std::uint64_t bits = std::uint64_t{8} * message.size();
  const std::size_t size = rest.size() + 1 + sizeof bits <= kBlock ? kBlock : 2 * kBlock;
  std::memcpy(end.data() + size - sizeof bits, &bits, sizeof bits);
  for (std::size_t i = 0; i < size; i += kBlock) {
    chain = compress(chain, block_words(end.data() + i));
  }
  return std::bit_cast<Digest>(chain);
}

}  // namespace vstring::random
