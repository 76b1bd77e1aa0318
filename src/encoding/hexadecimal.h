// Two hexadecimal digits for each byte.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::encoding {

// The value of a digit of either case; 16 or more for another byte.
constexpr unsigned digit_value(Byte c) {
  if (c >= '0' && c <= '9') return c - unsigned{'0'};
  const unsigned letter = c | 0x20U;
  return letter >= 'a' && letter <= 'f' ? letter - 'a' + 10 : 16;
}

// Writes digits in lower case to `out`, of twice the size, and returns how many.
std::size_t encode_hexadecimal(Bytes text, MutableBytes out);

// Writes to `out`, at least half as long as `text`, what its digits say, and returns the length.
// Status::refused for an odd number of digits or other bytes.
Result<std::size_t> decode_hexadecimal(Bytes text, MutableBytes out);

}  // namespace vstring::encoding
