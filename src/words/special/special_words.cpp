#include "words/special/special_words.h"

#include <algorithm>

namespace vstring::words {

void fibonacci_word(Bytes alphabet, MutableBytes word) {
  // The prefix of length f(i + 1) = f(i) + f(i - 1) is that of length f(i) and that of f(i - 1).
  const Byte start[] = {alphabet[0], alphabet[1]};
  std::copy_n(start, std::min<std::size_t>(word.size(), 2), word.begin());
  std::size_t shorter = 1;
  for (std::size_t n = 2; n < word.size();) {
    const std::size_t added = std::min(shorter, word.size() - n);
    copy_into(word.subspan(n), word.first(added));
    shorter = n;
    n += added;
  }
}

void thue_morse_word(Bytes alphabet, MutableBytes word) {
  const std::size_t k = alphabet.size();
  std::size_t digits[64] = {};  // of i, the lowest first
  std::size_t sum = 0;          // modulo k
  for (Byte& c : word) {
    c = alphabet[sum];
    std::size_t carry = 0;
    while (digits[carry] == k - 1) digits[carry++] = 0;
    ++digits[carry];
    // A digit k - 1 that becomes 0 adds 1 modulo k, as the last increment does.
    sum += carry + 1;
    while (sum >= k) sum -= k;
  }
}

void christoffel_word(std::uint64_t p, Bytes alphabet, MutableBytes word) {
  std::uint64_t rest = 0;  // i p modulo n
  for (Byte& c : word) {
    rest += p;
    const bool is_up = rest >= word.size();
    if (is_up) rest -= word.size();
    c = alphabet[is_up ? 1 : 0];
  }
}

}  // namespace vstring::words
