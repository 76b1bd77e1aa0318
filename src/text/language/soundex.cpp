#include "text/language/soundex.h"

#include <cctype>

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

constexpr char kLetters[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr char kDigits[] = "01230120022455012623010202";
static_assert(sizeof kDigits == sizeof kLetters);

Byte digit_of(Byte capital) {
  const bool is_coded = capital >= 'A' && capital <= 'Z';
  return static_cast<Byte>(is_coded ? kDigits[capital - 'A'] : '0');
}

}  // namespace

SoundexKey soundex(Bytes text) {
  SoundexKey key = {'Z', '0', '0', '0'};
  std::size_t n = 0;
  Byte last = '0';
  for (const Byte c : text) {
    if (!charclass::is(c, charclass::kAlpha)) continue;
    const auto capital = static_cast<Byte>(std::toupper(c));
    const Byte digit = digit_of(capital);
    if (n == 0) {
      key[n++] = capital;
    } else if (digit != '0' && digit != last) {
      key[n++] = digit;
      if (n == key.size()) break;
    }
    last = digit;
  }
  return key;
}

}  // namespace vstring::text
