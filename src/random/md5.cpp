// MD5, RFC 1321. The names are those of its section 3.4.
#include "random/rivest.h"

namespace vstring::random {
namespace {

// T[i] is the integer part of 4294967296 times abs(sin(i + 1)), i in radians.
constexpr std::uint32_t T[64] = {
    0xd76aa478, 0xe8c7b756, 0x242070db, 0xc1bdceee, 0xf57c0faf, 0x4787c62a, 0xa8304613, 0xfd469501,
    0x698098d8, 0x8b44f7af, 0xffff5bb1, 0x895cd7be, 0x6b901122, 0xfd987193, 0xa679438e, 0x49b40821,
    0xf61e2562, 0xc040b340, 0x265e5a51, 0xe9b6c7aa, 0xd62f105d, 0x02441453, 0xd8a1e681, 0xe7d3fbc8,
    0x21e1cde6, 0xc33707d6, 0xf4d50d87, 0x455a14ed, 0xa9e3e905, 0xfcefa3f8, 0x676f02d9, 0x8d2a4c8a,
    0xfffa3942, 0x8771f681, 0x6d9d6122, 0xfde5380c, 0xa4beea44, 0x4bdecfa9, 0xf6bb4b60, 0xbebfbc70,
    0x289b7ec6, 0xeaa127fa, 0xd4ef3085, 0x04881d05, 0xd9d4d039, 0xe6db99e5, 0x1fa27cf8, 0xc4ac5665,
    0xf4292244, 0x432aff97, 0xab9423a7, 0xfc93a039, 0x655b59c3, 0x8f0ccc92, 0xffeff47d, 0x85845dd1,
    0x6fa87e4f, 0xfe2ce6e0, 0xa3014314, 0x4e0811a1, 0xf7537e82, 0xbd3af235, 0x2ad7d2bb, 0xeb86d391,
};

constexpr int kShifts[4][4] = {{7, 12, 17, 22}, {5, 9, 14, 20}, {4, 11, 16, 23}, {6, 10, 15, 21}};

// F and G with fewer operations behind their first argument, the word that the step before has just
// computed: the digest is one long chain of such steps.
std::uint32_t F(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return z ^ (x & (y ^ z)); }
std::uint32_t G(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return (y & ~z) + (x & z); }
std::uint32_t H(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return x ^ (y ^ z); }
std::uint32_t I(std::uint32_t x, std::uint32_t y, std::uint32_t z) { return y ^ (x | ~z); }

// Sixteen steps; step i of the round takes the word X[(start + stride i) mod 16].
template <auto function, int round, unsigned start, unsigned stride>
void run_round(Chain& v, const Words& X) {
  // a = b + ((a + f(b, c, d) + X[k] + T[i]) <<< s)
  const auto step = [&X](std::uint32_t& a, std::uint32_t b, std::uint32_t c, std::uint32_t d,
                         unsigned i) {
    const std::uint32_t word = X[(start + stride * i) % 16] + T[16 * round + i];
    a = b + std::rotl(a + word + function(b, c, d), kShifts[round][i % 4]);
  };
  sixteen_steps(v, step);
}

Chain compress(const Chain& chain, const Words& X) {
  Chain v = chain;
  run_round<F, 0, 0, 1>(v, X);
  run_round<G, 1, 1, 5>(v, X);
  run_round<H, 2, 5, 3>(v, X);
  run_round<I, 3, 0, 7>(v, X);
  return {chain.a + v.a, chain.b + v.b, chain.c + v.c, chain.d + v.d};
}

}  // namespace

std::array<Byte, 16> md5(Bytes message) { return digest(message, compress); }

}  // namespace vstring::random
