#include "encoding/escapes.h"

#include <algorithm>
#include <array>

#include "encoding/hexadecimal.h"

namespace vstring::encoding {
namespace {

constexpr Byte kFirstNamed = 7;
constexpr char kNames[] = "abtnvfr";  // of the bytes 7 to 13

// By the byte behind the backslash: what the two stand for; 0 where more is to be read.
consteval std::array<Byte, 256> named_bytes() {
  std::array<Byte, 256> bytes = {};
  for (std::size_t i = 0; i < sizeof kNames - 1; ++i) {
    bytes[static_cast<Byte>(kNames[i])] = static_cast<Byte>(kFirstNamed + i);
  }
  bytes['e'] = 27;
  for (const char c : {'\\', '"', '\'', '`', '?'}) {
    bytes[static_cast<Byte>(c)] = static_cast<Byte>(c);
  }
  return bytes;
}

constexpr std::array<Byte, 256> kNamed = named_bytes();

// A number of up to so many digits at the start of a text, and how many there are.
struct Number {
  unsigned value = 0;
  std::size_t digits = 0;
};

Number first_number(Bytes text, unsigned base, std::size_t most) {
  Number number;
  while (number.digits < std::min(most, text.size()) && digit_value(text[number.digits]) < base) {
    number.value = number.value * base + digit_value(text[number.digits++]);
  }
  return number;
}

}  // namespace

constinit const Pieces kEscaped([](Byte c) {
  Piece piece;
  if (c >= kFirstNamed && c < kFirstNamed + sizeof kNames - 1) {
    piece.add('\\');
    piece.add(kNames[c - kFirstNamed]);
  } else if (c < 32 || c > 126) {
    piece.add('\\');
    for (const unsigned shift : {6U, 3U, 0U}) piece.add('0' + static_cast<int>(c >> shift & 7U));
  } else {
    if (c == '\\' || c == '"') piece.add('\\');
    piece.add(c);
  }
  return piece;
});

Result<std::size_t> unescape(Bytes text, MutableBytes out, Bytes& invalid) {
  std::size_t n = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (text[at] != '\\') {
      out[n++] = text[at++];
      continue;
    }
    const Bytes behind = text.subspan(at + 1);
    Number number;
    std::size_t length = 2;
    if (!behind.empty() && kNamed[behind[0]] != 0) {
      number = {kNamed[behind[0]], 1};
    } else if (!behind.empty() && behind[0] == 'x') {
      number = first_number(behind.subspan(1), 16, 2);
      length = 2 + number.digits;
    } else {
      number = first_number(behind, 8, 3);
      length = 1 + std::max(number.digits, std::min(behind.size(), std::size_t{1}));
    }
    if (number.digits == 0 || number.value == 0 || number.value > 255) {
      const bool is_zero = number.digits > 0 && number.value == 0;
      invalid = is_zero ? Bytes() : text.subspan(at, length);
      return Status::refused;
    }
    out[n++] = static_cast<Byte>(number.value);
    at += length;
  }
  return n;
}

}  // namespace vstring::encoding
