// Two hexadecimal digits for each byte.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::encoding {

// The value of a digit of either case; 16 or more for another byte.
constexpr Byte digit_value(Byte c) {
  const auto digit = static_cast<Byte>(c - '0');
  const auto letter = static_cast<Byte>((c | 0x20) - 'a');
  const auto value = static_cast<Byte>(letter < 6 ? letter + 10 : 16);
  return digit < 10 ? digit : value;
}

// Writes digits in lower case to `out`, of twice the size, and returns how many.
std::size_t encode_hexadecimal(Bytes text, MutableBytes out);

// Writes to `out`, at least half as long as `text`, what its digits say, and returns the length.
// Status::refused for an odd number of digits or other bytes.
Result<std::size_t> decode_hexadecimal(Bytes text, MutableBytes out);

}  // namespace vstring::encoding
