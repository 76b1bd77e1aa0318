// Stemmers and phonetic codes: Soundex beside its rules; of the others, what must hold for every
// word: the case of letters and what is no letter do not count, stems are made of the word's
// letters.
#include <cctype>

#include "input.h"
#include "support/direct.h"

namespace {

std::string soundex(const std::string& capitals) {
  std::string key;
  char last = '\0';
  for (const char c : capitals) {
    const char digit = "01230120022455012623010202"[c - 'A'];
    if (key.empty()) {
      key += c;
    } else if (digit != '0' && digit != last && key.size() < 4) {
      key += digit;
    }
    last = digit;
  }
  return key.empty() ? "Z000" : key + std::string(4 - key.size(), '0');
}

void drop_plural(std::string& word) {
  const std::size_t n = word.size();
  const auto small = [&](std::size_t from_end) { return word[word.size() - from_end] | 0x20; };
  if (n < 4 || small(1) != 's' || small(2) == 'u' || small(2) == 's') return;
  word.pop_back();
  const int before = small(2);
  if (small(1) != 'e' || before == 'a' || before == 'e' || before == 'o') return;
  word.pop_back();
  if (before == 'i' && n > 4 && small(2) != 'e' && small(2) != 'a')
    word.back() = word.back() == 'I' ? 'Y' : 'y';
}

}  // namespace

void vstring_test::try_input(Input& input) {
  const std::string mixed = input.text(60);
  std::string capitals, small;
  for (const char c : mixed) {
    const auto code = static_cast<unsigned char>(c);
    if (code >= 128 || std::isalpha(code) == 0) continue;
    capitals += static_cast<char>(std::toupper(code));
    small += static_cast<char>(std::tolower(code));
  }
  expect_same(soundex(capitals), text(vstring_soundex, {mixed}));
  expect_same(text(vstring_metaphone, {capitals}), text(vstring_metaphone, {mixed}));
  expect_same(text(vstring_nysiis, {capitals}), text(vstring_nysiis, {mixed}));

  for (const VelmorCommand stemmer : {vstring_porter, vstring_lancaster}) {
    const std::string stem = text(stemmer, {small});
    if (capitals.size() > 2) expect_same(stem, text(stemmer, {capitals}));
    if (stem.size() > small.size()) expect_same("no longer than " + small, stem);
  }
  call(vstring_prestem, {mixed});  // whatever the bytes are
  call(vstring_lancaster, {mixed});
  std::string plural = mixed;
  for (int times = 0; times < 2; ++times) drop_plural(plural);
  expect_same(plural, text(vstring_pstem, {mixed}));
  expect_same(plural, text(vstring_stem, {mixed, name("plural")}));
}
