#include "words/arrangement.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace vstring::words {

bool are_anagrams(Bytes s, Bytes t) {
  if (s.size() != t.size()) return false;
  std::array<std::int64_t, 256> surplus = {};
  for (const Byte c : s) ++surplus[c];
  for (const Byte c : t) --surplus[c];
  return std::all_of(surplus.begin(), surplus.end(), [](std::int64_t n) { return n == 0; });
}

bool next_arrangement(MutableBytes word) {
  if (word.size() < 2) return false;
  std::size_t i = word.size() - 1;  // from here on letters do not increase
  while (i > 0 && word[i - 1] >= word[i]) --i;
  if (i == 0) return false;
  std::size_t j = word.size() - 1;
  while (word[j] <= word[i - 1]) --j;
  std::swap(word[i - 1], word[j]);
  std::reverse(word.begin() + static_cast<std::ptrdiff_t>(i), word.end());
  return true;
}

}  // namespace vstring::words
