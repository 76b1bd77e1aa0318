#include "encoding/hexadecimal.h"

#include <array>

namespace vstring::encoding {
namespace {

consteval std::array<Byte, 256> digit_values() {
  std::array<Byte, 256> values{};
  for (std::size_t c = 0; c < values.size(); ++c) {
    values[c] = static_cast<Byte>(digit_value(static_cast<Byte>(c)));
  }
  return values;
}

constexpr std::array<Byte, 256> kValues = digit_values();

}  // namespace

std::size_t encode_hexadecimal(Bytes text, MutableBytes out) {
  const auto digit = [](unsigned value) {
    return static_cast<Byte>(value + (value < 10 ? unsigned{'0'} : unsigned{'a' - 10}));
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    out[2 * i] = digit(text[i] >> 4U);
    out[2 * i + 1] = digit(text[i] & 15U);
  }
  return 2 * text.size();
}

Result<std::size_t> decode_hexadecimal(Bytes text, MutableBytes out) {
  if (text.size() % 2 != 0) return Status::refused;
  const std::size_t n = text.size() / 2;
  unsigned met = 0;
  for (std::size_t i = 0; i < n; ++i) {
    const unsigned high = kValues[text[2 * i]];
    const unsigned low = kValues[text[2 * i + 1]];
    met |= high | low;
    out[i] = static_cast<Byte>(high << 4 | low);
  }
  if (met > 15) return Status::refused;
  return n;
}

}  // namespace vstring::encoding
