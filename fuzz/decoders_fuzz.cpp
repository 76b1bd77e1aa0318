// Encodings and escapes: decoding undoes encoding, and a text that a strict scheme accepts is the
// encoding of what it stands for, but for line ends, padding and the case of digits.
#include <algorithm>

#include "input.h"
#include "support/direct.h"

namespace {

constexpr const char* kSchemes[] = {"hex",   "base64",  "base64url", "base32",
                                    "rot13", "percent", "quoted",    "null"};
constexpr std::size_t kStrict = 5;  // of them

std::string bare(std::string text, bool is_hex) {
  std::erase_if(text, [](char c) { return c == '\r' || c == '\n' || c == '='; });
  for (char& c : text) {
    if (is_hex && c >= 'A' && c <= 'F') c = static_cast<char>(c | 0x20);
  }
  return text;
}

}  // namespace

void vstring_test::try_input(Input& input) {
  const std::size_t number = input.below(std::size(kSchemes));
  const char* const scheme = kSchemes[number];
  const std::string t = input.text(200);
  expect_same(t, text(vstring_decode, {text(vstring_encode, {t, scheme}), scheme}));
  expect_same(t, text(vstring_unescape, {text(vstring_escape, {t})}));
  expect_same(t, text(vstring_frombytes, {result_of(vstring_bytes, {t})}));

  const HostObject decoded = result_of(vstring_decode, {t, scheme});
  if (decoded != 0) {
    const std::string again = text(vstring_encode, {decoded, scheme});
    if (number < kStrict) expect_same(bare(t, number == 0), bare(again, number == 0));
    expect_same(velmor_text(decoded), text(vstring_decode, {again, scheme}));
  }
  const HostObject unescaped = result_of(vstring_unescape, {t});
  if (unescaped == 0) return;
  expect_same(velmor_text(unescaped), text(vstring_unescape, {text(vstring_escape, {unescaped})}));
}
