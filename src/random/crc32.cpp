// CRC-32, eight bytes at a time (M. E. Kounavis and F. L. Berry, "Novel table lookup-based
// algorithms for high-performance CRC generation", 2008).
#include <bit>
#include <cstdint>

#include "bytes/big_endian.h"
#include "bytes/common.h"
#include "random/digest.h"

namespace vstring::random {
namespace {

constexpr std::size_t kSlices = 8;

struct Tables {
  // rows[k][c]: the remainder of byte c with k zero bytes behind it.
  std::uint32_t rows[kSlices][256];

  constexpr Tables() : rows{} {
    for (std::uint32_t c = 0; c < 256; ++c) {
      std::uint32_t remainder = c;
      for (int bit = 0; bit < 8; ++bit) {
        remainder = (remainder >> 1) ^ ((remainder & 1) != 0 ? 0xedb88320U : 0U);
      }
      rows[0][c] = remainder;
    }
    for (std::size_t k = 1; k < kSlices; ++k) {
      for (std::size_t c = 0; c < 256; ++c) {
        const std::uint32_t before = rows[k - 1][c];
        rows[k][c] = (before >> 8) ^ rows[0][before & 0xff];
      }
    }
  }
};

constexpr Tables kTables;

}  // namespace

std::array<Byte, 4> crc32(Bytes message) {
  std::uint32_t remainder = 0xffffffff;
  for (; message.size() >= kSlices; message = message.subspan(kSlices)) {
    const std::uint64_t word = load8(message.data()) ^ remainder;
    remainder = 0;
    for (std::size_t k = 0; k < kSlices; ++k) {
      remainder ^= kTables.rows[kSlices - 1 - k][(word >> (8 * k)) & 0xff];
    }
  }
  for (const Byte c : message) {
    remainder = (remainder >> 8) ^ kTables.rows[0][(remainder ^ c) & 0xff];
  }
  return std::bit_cast<std::array<Byte, 4>>(big_endian(~remainder));
}

}  // namespace vstring::random
