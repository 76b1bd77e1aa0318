#include "text/extraction/readability.h"

#include "charclass/case_map.h"
#include "charclass/class_table.h"

namespace vstring::text {
namespace {

bool is_vowel(Byte c) {
  return c == 'a' || c == 'e' || c == 'i' || c == 'o' || c == 'u' || c == 'y';
}

// Runs of vowels among the letters of a word. A single final e is silent, but not behind a
// consonant and l (table); every word has a syllable.
std::size_t syllables(Bytes word) {
  std::size_t runs = 0;
  Byte last[3] = {};  // letters, the newest first; 0 where there is none
  for (const Byte c : word) {
    if (!charclass::is(c, charclass::kAlpha)) continue;
    const Byte letter = charclass::to_lower(c);
    if (is_vowel(letter) && !is_vowel(last[0])) ++runs;
    last[2] = last[1];
    last[1] = last[0];
    last[0] = letter;
  }
  const bool ends_in_e = last[0] == 'e' && last[1] != 0 && !is_vowel(last[1]);
  const bool ends_in_le = last[1] == 'l' && last[2] != 0 && !is_vowel(last[2]);
  if (ends_in_e && !ends_in_le) --runs;
  return runs == 0 ? 1 : runs;
}

}  // namespace

double readability(std::span<const Bytes> words, std::size_t sentences, Measure measure) {
  std::size_t sum = 0;
  for (const Bytes word : words) sum += syllables(word);
  const auto w = static_cast<double>(words.size());
  const auto z = static_cast<double>(sentences);
  const auto y = static_cast<double>(sum);
  if (measure == Measure::ease) return (206.835 - 1.015 * (w / z)) - 84.6 * (y / w);
  return (0.39 * (w / z) + 11.8 * (y / w)) - 15.59;
}

}  // namespace vstring::text
