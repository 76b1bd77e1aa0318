// SHA-256 and SHA-512, FIPS 180-4.
#include "bytes/sha2_blocks.h"
#include "random/merkle_damgard.h"

namespace vstring::random {
namespace {

// Chains start as the fractional parts of the square roots of the first eight primes.
constexpr std::array<std::uint32_t, 8> kStart256 = {
    0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19,
};
constexpr std::array<std::uint64_t, 8> kStart512 = {
    0x6a09e667f3bcc908, 0xbb67ae8584caa73b, 0x3c6ef372fe94f82b, 0xa54ff53a5f1d36f1,
    0x510e527fade682d1, 0x9b05688c2b3e6c1f, 0x1f83d9abfb41bd6b, 0x5be0cd19137e2179,
};

template <typename Word, typename Compress>
std::array<Byte, 8 * sizeof(Word)> digest(Bytes message, std::array<Word, 8> chain,
                                          Compress compress) {
  compress_all<Word, LengthOrder::high_byte_first>(
      message, [&](const Byte* blocks, std::size_t count) { compress(chain, blocks, count); });
  for (Word& word : chain) word = big_endian(word);
  return std::bit_cast<std::array<Byte, 8 * sizeof(Word)>>(chain);
}

}  // namespace

std::array<Byte, 32> sha256(Bytes message) { return digest(message, kStart256, sha256_blocks); }
std::array<Byte, 64> sha512(Bytes message) { return digest(message, kStart512, sha512_blocks); }

}  // namespace vstring::random
