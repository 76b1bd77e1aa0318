#include "text/language/syllables.h"

#include <cctype>

#include "charclass/class_table.h"

namespace vstring::text {
namespace {

enum State : std::uint8_t { kStart, kVowels, kConsonants };
constexpr int kStates = 3;

enum Kind : std::uint8_t { kVowel, kY, kConsonant };

// By kind of letter, then from each state in turn.
constexpr State kNext[][kStates] = {
    {kVowels, kVowels, kVowels},              // a, e, i, o, u
    {kConsonants, kConsonants, kVowels},      // y
    {kConsonants, kConsonants, kConsonants},  // every other letter
};
constexpr std::int32_t kAdded[][kStates] = {
    {0, 0, 0},
    {0, 1, 0},
    {0, 1, 0},
};

Kind kind_of(Byte letter) {
  switch (std::tolower(letter)) {
    case 'a':
    case 'e':
    case 'i':
    case 'o':
    case 'u':
      return kVowel;
    case 'y':
      return kY;
    default:
      return kConsonant;
  }
}

}  // namespace

std::int32_t SyllableLength(Bytes word) {
  if (word.empty()) return 0;
  State state = kStart;
  Kind before = kConsonant;  // of the last letter but one, in the end
  Kind last = kConsonant;
  std::int32_t count = 0;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (i == kLongestSyllabified) return kTooLong;
    if (!charclass::is(word[i], charclass::kAlpha)) return kNotAlphabetic;
    before = last;
    last = kind_of(word[i]);
    count += kAdded[last][state];
    state = kNext[last][state];
  }
  if (last == kY && before != kVowel) ++count;
  return count == 0 ? 1 : count;
}

}  // namespace vstring::text
