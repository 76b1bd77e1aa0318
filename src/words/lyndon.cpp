#include "words/lyndon.h"

#include "words/letter_order.h"

namespace vstring::words {
namespace {

struct Power {
  std::size_t length;
  std::size_t exponent;
};

// One round of Duval's algorithm: the first factor of `word`, which is not empty, and how often it
// stands there in a row.
Power first_power(Bytes word) {
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

}  // namespace

Bytes LyndonFactors::next() {
  if (rest_.empty()) return {};
  if (repeats_ == 0) {
    const Power power = first_power(rest_);
    length_ = power.length;
    repeats_ = power.exponent;
  }
  --repeats_;
  const Bytes factor = rest_.first(length_);
  rest_ = rest_.subspan(length_);
  return factor;
}

std::size_t count_lyndon_factors(Bytes word) {
  std::size_t count = 0;
  for (Bytes rest = word; !rest.empty();) {
    const Power power = first_power(rest);
    count += power.exponent;
    rest = rest.subspan(power.length * power.exponent);
  }
  return count;
}

}  // namespace vstring::words
