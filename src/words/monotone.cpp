#include "words/monotone.h"

#include "words/letter_order.h"

namespace vstring::words {

std::size_t monotone_factor_end(Bytes word, std::size_t start) {
  std::size_t last = start;
  const auto is_inside = [&] { return last + 1 < word.size(); };
  while (is_inside() && word[last + 1] == word[last]) ++last;
  if (!is_inside()) return last + 1;
  if (letter(word[last + 1]) > letter(word[last])) {
    while (is_inside() && letter(word[last + 1]) > letter(word[last])) ++last;
  } else {
    while (is_inside() && letter(word[last + 1]) < letter(word[last])) ++last;
  }
  return last + 1;
}

std::size_t count_monotone_factors(Bytes word) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < word.size(); i = monotone_factor_end(word, i)) ++count;
  return count;
}

}  // namespace vstring::words
