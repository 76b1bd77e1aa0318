#include "words/lyndon.h"

#include "words/letter_order.h"

namespace vstring::words {

Status lyndon_factors(Bytes word, HeldArray<std::size_t>& ends) {
  const std::size_t n = word.size();
  std::size_t k = 0;  // word[0, k) is factored
  while (k < n) {
    // word[k, j) is a Lyndon word as long as no suffix from within it is smaller than the one from
    // k: look for the first smaller suffix, jumping over what agrees with the start.
    std::size_t j = k + 1;
    std::size_t agreeing = 0;
    for (;;) {
      j = skip_greater(word, k, j);
      agreeing = common_prefix(word.subspan(k), word.subspan(j));
      const bool at_end = j + agreeing == n;
      if (at_end || letter(word[j + agreeing]) < letter(word[k + agreeing])) break;
      j += agreeing + 1;
    }
    // The Lyndon word repeats for as long as the two agreed.
    const std::size_t length = j - k;
    const std::size_t last_start = j + agreeing - length;
    for (; k <= last_start; k += length) {
      if (!ends.push_back(k + length)) return Status::out_of_memory;
    }
  }
  return Status::ok;
}

}  // namespace vstring::words
