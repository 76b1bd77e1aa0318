// MD4, RFC 1320. The names are those of its section 3.4.
#include "random/rivest.h"

namespace vstring::random {
namespace {

std::uint32_t F(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return z ^ (x & (y ^ z)); }
// A sum, of which the processor has one half done before x is known.
std::uint32_t G(std::uint32_t x, std::uint32_t y, std::uint32_t z) {
  return (x & (y ^ z)) + (y & z);
}
std::uint32_t H(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return x ^ (y ^ z); }

struct Round {
  std::uint32_t constant;
  int shifts[4];
  unsigned char words[16];  // which word of the block each step takes
};

// The constants are the square roots of 2 and 3 in binary, from the first 1 bit on.
constexpr Round kRounds[3] = {
    {0, {3, 7, 11, 19}, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}},
    {0x5a827999, {3, 5, 9, 13}, {0, 4, 8, 12, 1, 5, 9, 13, 2, 6, 10, 14, 3, 7, 11, 15}},
    {0x6ed9eba1, {3, 9, 11, 15}, {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15}},
};

// a = (a + f(b, c, d) + X[k] + constant) <<< s
template <auto function, int number>
void run_round(Chain& v, const Words& X) {
  const auto step = [&X](std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                         unsigned i) {
    const std::uint32_t word = X[kRounds[number].words[i]] + kRounds[number].constant;
    a = std::rotl(a + word + function(b, c, d), kRounds[number].shifts[i % 4]);
  };
  sixteen_steps(v, step);
}

Chain compress(const Chain& chain, const Words& X) {
  Chain v = chain;
  run_round<F, 0>(v, X);
  run_round<G, 1>(v, X);
  run_round<H, 2>(v, X);
  return {chain.a + v.a, chain.b + v.b, chain.c + v.c, chain.d + v.d};
}

}  // namespace

std::array<Byte, 16> md4(Bytes message) { return digest(message, compress); }

}  // namespace vstring::random
