#include "random/drawing.h"

#include <bit>
#include <cstddef>
#include <cstring>
#include <numeric>
#include <utility>

namespace vstring::random {
namespace {

// (A. Mycroft, 1987.)
bool has_zero_byte(std::uint32_t word) { return ((word - 0x01010101) & ~word & 0x80808080) != 0; }

}  // namespace

void draw_bytes(Generator& generator, MutableBytes out) {
  static_assert(std::endian::native == std::endian::little);
  Generator::Run run(generator);
  const std::size_t n = out.size();
  std::size_t i = 0;
  do {
    std::uint32_t number = run.next();
    if (n - i >= sizeof number && !has_zero_byte(number)) {
      std::memcpy(&out[i], &number, sizeof number);
      i += sizeof number;
      continue;
    }
    for (int k = 0; k < 4 && i < n; ++k) {
      const auto byte = static_cast<Byte>(number);
      number >>= 8;
      out[i] = byte;  // overwritten by the next one when it is 0
      if (byte != 0) ++i;
    }
  } while (i < n);
}

void draw_bits(Generator& generator, MutableBytes out) {
  unsigned bits = 0;
  for (std::size_t i = 0; i < out.size(); ++i) {
    if (i % 8 == 0) bits = generator.next_byte();
    out[i] = static_cast<Byte>('0' + (bits & 1));
    bits >>= 1;
  }
}

Members drawable(CharTest test) {
  Members members = {};
  for (std::size_t code = 1; code < 128; ++code) {
    members[code] = test(static_cast<int>(code)) != 0 ? 1 : 0;
  }
  return members;
}

void draw_members(Generator& generator, const Members& members, MutableBytes out) {
  const auto n = static_cast<std::uint32_t>(out.size());
  std::uint32_t i = 0;
  const auto offer = [&](Byte c) {
    out[i] = c;  // overwritten by the next one when it is refused
    i += members[c];
  };
  while (i < n && generator.has_bytes()) offer(generator.next_byte());
  {
    Generator::Run run(generator);
    while (i + 4 <= n) {
      const std::uint32_t number = run.next();
      for (int shift = 24; shift >= 0; shift -= 8) offer(static_cast<Byte>(number >> shift));
    }
  }
  while (i < n) offer(generator.next_byte());
}

void draw_permutation(Generator& generator, std::span<std::uint32_t> out) {
  std::iota(out.begin(), out.end(), std::uint32_t{0});
  const auto n = static_cast<std::uint32_t>(out.size());
  for (std::uint32_t i = 0; i < n; ++i) std::swap(out[i], out[i + generator.next() % (n - i)]);
}

}  // namespace vstring::random
