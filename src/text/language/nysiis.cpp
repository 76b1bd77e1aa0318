#include "text/language/nysiis.h"

#include "charclass/case_map.h"
#include "charclass/class_table.h"

namespace vstring::text {
namespace {

struct Rule {
  const char* from;
  const char* to;  // no longer
};

constexpr Rule kAtStart[] = {
    {"MAC", "MCC"}, {"KN", "NN"}, {"K", "C"}, {"PH", "FF"}, {"PF", "FF"}, {"SCH", "SSS"},
};
constexpr Rule kAtEnd[] = {
    {"EE", "Y"}, {"IE", "Y"}, {"DT", "D"}, {"RT", "D"}, {"RD", "D"}, {"NT", "D"}, {"ND", "D"},
};
// Behind the first letter; what they make is as long as what it replaces.
constexpr Rule kInside[] = {
    {"EV", "AF"}, {"A", "A"}, {"E", "A"},   {"I", "A"}, {"O", "A"},     {"U", "A"},   {"Q", "G"},
    {"Z", "S"},   {"M", "N"}, {"KN", "NN"}, {"K", "C"}, {"SCH", "SSS"}, {"PH", "FF"},
};

bool is_vowel(Byte c) { return c == 'A' || c == 'E' || c == 'I' || c == 'O' || c == 'U'; }

// Replaces what `word` begins with by the first rule that applies, of those that keep its length.
template <std::size_t N>
bool replace_start(MutableBytes word, const Rule (&rules)[N]) {
  for (const Rule& rule : rules) {
    const Bytes from = bytes_of(rule.from);
    if (from.size() > word.size() || !equal(word.first(from.size()), from)) continue;
    copy_into(word, bytes_of(rule.to));
    return true;
  }
  return false;
}

// Replaces the end of word[0, n), and returns the new length.
std::size_t replace_end(MutableBytes word, std::size_t n) {
  for (const auto& [from, to] : kAtEnd) {
    if (n < 2 || !equal(word.subspan(n - 2, 2), from)) continue;
    copy_into(word.subspan(n - 2), bytes_of(to));
    return n - 1;
  }
  return n;
}

}  // namespace

std::size_t nysiis(Bytes name, MutableBytes key) {
  std::size_t n = 0;
  for (const Byte c : name) {
    if (charclass::is(c, charclass::kAlpha)) key[n++] = charclass::to_upper(c);
  }
  if (n == 0) return 0;
  replace_start(key.first(n), kAtStart);
  // The key grows over the letters that have been read already.
  const MutableBytes letters = key.first(replace_end(key, n));
  n = 1;
  Byte previous = letters[0];
  for (std::size_t i = 1; i < letters.size(); ++i) {
    Byte& letter = letters[i];
    if (!replace_start(letters.subspan(i), kInside)) {
      const bool vowel_follows = i + 1 < letters.size() && is_vowel(letters[i + 1]);
      const bool is_silent = (letter == 'H' && !(is_vowel(previous) && vowel_follows)) ||
                             (letter == 'W' && is_vowel(previous));
      if (is_silent) letter = previous;
    }
    previous = letter;
    if (key[n - 1] != previous) key[n++] = previous;
  }
  if (n > 1 && key[n - 1] == 'S') --n;
  if (n > 1 && key[n - 2] == 'A' && key[n - 1] == 'Y') key[--n - 1] = 'Y';
  if (n > 1 && key[n - 1] == 'A') --n;
  return n;
}

}  // namespace vstring::text
