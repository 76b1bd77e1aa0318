#include "random/generator.h"

#include <cstddef>

namespace vstring::random {

void Generator::seed(std::uint32_t seed) {
  constexpr std::uint32_t kMultiplier[4] = {18273, 23163, 24984, 28854};
  std::uint32_t x[4];
  carry_ = 0;
  for (std::uint32_t i = 0; i < 4; ++i) {
    const std::uint32_t nibble = (seed >> (8 * i)) & 0xf;
    x[i] = nibble == 0 ? 2 * i + 1 : nibble | 1;
    carry_ += x[i];
  }
  for (std::size_t k = 0; k + 1 < ring_.size(); ++k) {
    for (std::size_t i = 0; i < 4; ++i) x[i] = advance(x[i], kMultiplier[i]);
    const std::uint32_t high = (x[0] << 16) + (x[2] << 16);
    const std::uint32_t low = (x[1] & 0xffff) + (x[3] & 0xffff);
    ring_[k] = (high + low) | 1;
  }
  seeded_ = true;
}

Byte Generator::next_byte() {
  if (byte_count_ == 0) {
    bytes_ = next();
    byte_count_ = 4;
  }
  const auto byte = static_cast<Byte>(bytes_ >> 24);
  bytes_ <<= 8;
  --byte_count_;
  return byte;
}

constinit Generator process_generator;

}  // namespace vstring::random
