#include "words/period.h"

#include <cstring>

#include "words/border.h"
#include "words/shift.h"

namespace vstring::words {

bool has_period(Bytes word, std::size_t p) {
  if (p < 1 || p > word.size()) return false;
  return std::memcmp(word.data(), word.data() + p, word.size() - p) == 0;
}

Result<std::size_t> smallest_period(Bytes word) {
  const std::size_t n = word.size();
  if (n < 2) return n;
  // Most words differ from their shifts within some letters, and periodic ones agree with the right
  // one to the end: this runs at the speed of memory then.
  if (const auto p = find_shift(word, word, 1)) return *p;
  const Result<std::size_t> border = longest_border_by_array(word);
  if (!border.ok()) return border.status();
  return n - *border;
}

Result<std::size_t> longest_border(Bytes word) {
  const Result<std::size_t> period = smallest_period(word);
  if (!period.ok()) return period.status();
  return word.size() - *period;
}

}  // namespace vstring::words
