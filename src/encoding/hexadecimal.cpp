#include "encoding/hexadecimal.h"

namespace vstring::encoding {

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
  Byte met = 0;
  for (std::size_t i = 0; i < n; ++i) {  // in vectors
    const Byte high = digit_value(text[2 * i]);
    const Byte low = digit_value(text[2 * i + 1]);
    met |= high | low;
    out[i] = static_cast<Byte>(high << 4 | low);
  }
  if (met > 15) return Status::refused;
  return n;
}

}  // namespace vstring::encoding
