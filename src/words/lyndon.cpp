#include "words/lyndon.h"

#include "bytes/common.h"
#include "words/letter_order.h"

namespace vstring::words {

// One round of Duval's algorithm. The word is not empty.
LyndonFactors::Power LyndonFactors::first_power(Bytes word) {
  // word[0, j) is a Lyndon word as long as no suffix from within it is smaller than all of `word`:
  // look for the first smaller suffix, jumping over what agrees with the start.
  std::size_t j = 1;
  for (;;) {
    j = skip_greater(word, 0, j);
    const std::size_t agreeing = common_prefix(word, word.subspan(j));
    const bool at_end = j + agreeing == word.size();
    if (at_end || letter(word[j + agreeing]) < letter(word[agreeing])) {
      return {j, 1 + agreeing / j};  // it repeats for as long as the two agree
    }
    j += agreeing + 1;
  }
}

LyndonFactors::LyndonFactors(Bytes word) : rest_(word) {
  while (!word.empty()) {
    const Power power = first_power(word);
    if (kept_count_ < kKept) kept_[kept_count_++] = power;
    count_ += power.exponent;
    word = word.subspan(power.length * power.exponent);
  }
}

Bytes LyndonFactors::next() {
  if (rest_.empty()) return {};
  if (now_.exponent == 0) {
    now_ = passed_ < kept_count_ ? kept_[passed_++] : first_power(rest_);
  }
  --now_.exponent;
  const Bytes factor = rest_.first(now_.length);
  rest_ = rest_.subspan(now_.length);
  return factor;
}

}  // namespace vstring::words
