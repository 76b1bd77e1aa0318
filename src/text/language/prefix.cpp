#include "text/language/prefix.h"

#include "text/language/rule_table.h"
#include "text/language/syllables.h"

namespace vstring::text {
namespace {

constexpr Letters kPrefixes[] = {
    "anti", "any",   "apo",  "back", "bi",   "centi", "de",     "deca",  "deci", "dis", "di",
    "epi",  "extra", "giga", "hexa", "kilo", "mega",  "micro",  "milli", "nona", "iso", "octa",
    "octo", "penta", "peta", "pico", "post", "pre",   "quatro", "septa", "tri",  "un",  "uni",
};

constexpr std::size_t kLongestProtected = 3;

// The length of the first prefix that may go; 0 when there is none.
std::size_t removable(Bytes word) {
  for (const Letters& prefix : kPrefixes) {
    if (prefix.size <= word.size() && prefix.begin_at(word.data()) &&
        SyllableLength(word.subspan(prefix.size)) > 0) {
      return prefix.size;
    }
  }
  return 0;
}

}  // namespace

Bytes without_prefixes(Bytes word) {
  while (word.size() > kLongestProtected) {
    const std::size_t n = removable(word);
    if (n == 0) break;
    word = word.subspan(n);
  }
  return word;
}

}  // namespace vstring::text
