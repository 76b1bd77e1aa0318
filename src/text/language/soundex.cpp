#include "text/language/soundex.h"

#include <array>
#include <cctype>
#include <cstddef>

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

constexpr char kDigits[] = "01230120022455012623010202";  // of A to Z

// The digit of each byte, of small letters as of capital ones.
consteval std::array<Byte, 256> digits_of_bytes() {
  std::array<Byte, 256> digits;
  digits.fill('0');
  for (std::size_t i = 0; i < 26; ++i) {
    digits['A' + i] = digits['a' + i] = static_cast<Byte>(kDigits[i]);
  }
  return digits;
}
constexpr std::array<Byte, 256> kDigitOf = digits_of_bytes();

}  // namespace

SoundexKey soundex(Bytes text) {
  SoundexKey key = {'Z', '0', '0', '0'};
  std::size_t n = 0;
  Byte last = '0';
  for (const Byte c : text) {
    if (!charclass::is(c, charclass::kAlpha)) continue;
    const Byte digit = kDigitOf[c];
    if (n == 0) {
      key[n++] = static_cast<Byte>(std::toupper(c));
    } else if (digit != '0' && digit != last) {
      key[n++] = digit;
      if (n == key.size()) break;
    }
    last = digit;
  }
  return key;
}

}  // namespace vstring::text
