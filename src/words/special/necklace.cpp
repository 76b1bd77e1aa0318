#include "words/special/necklace.h"

namespace vstring::words {
namespace {

// A. F. Moebius' function: 0 if a square divides d, else 1 or -1 by the number of prime factors.
int moebius(std::uint64_t d) {
  int sign = 1;
  for (std::uint64_t p = 2; p <= d; ++p) {
    if (d % p != 0) continue;
    d /= p;
    if (d % p == 0) return 0;
    sign = -sign;
  }
  return sign;
}

}  // namespace

std::optional<std::uint64_t> power_within(std::uint64_t k, std::uint64_t n, std::uint64_t limit) {
  std::uint64_t power = 1;
  for (std::uint64_t i = 0; i < n && k > 1; ++i) {
    if (power > limit / k) return {};
    power *= k;
  }
  return power;
}

std::uint64_t count_lyndon_words(std::uint64_t k, std::uint64_t n) {
  if (k == 1 || n == 0) return n == 1 ? 1 : 0;
  std::int64_t sum = 0;
  for (std::uint64_t d = 1; d <= n; ++d) {
    if (n % d != 0) continue;
    sum += moebius(d) * static_cast<std::int64_t>(*power_within(k, n / d, INT64_MAX));
  }
  return static_cast<std::uint64_t>(sum) / n;
}

Bytes LyndonWords::next() {
  const auto last = static_cast<Byte>(alphabet_.size() - 1);
  if (last == 0) {
    return length_++ == 0 ? alphabet_.first(1) : Bytes{};
  }
  if (length_ == 0) {
    length_ = 1;
  } else {
    // Its power, cut off at n letters, then without final greatest letters and with the last letter
    // raised.
    for (std::size_t i = length_; i < n_; ++i) numbers_[i] = numbers_[i - length_];
    std::size_t i = n_;
    while (i > 0 && numbers_[i - 1] == last) --i;
    if (i == 0) return {};
    ++numbers_[i - 1];
    length_ = i;
  }
  for (std::size_t i = 0; i < length_; ++i) letters_[i] = alphabet_[numbers_[i]];
  return {letters_, length_};
}

Bytes LyndonWords::next_longest() {
  Bytes word = next();
  while (word.size() < n_) word = next();
  return word;
}

void de_bruijn_word(Bytes alphabet, std::size_t n, MutableBytes word) {
  LyndonWords lyndon(alphabet, n);
  while (!word.empty()) {
    const Bytes factor = lyndon.next();
    if (n % factor.size() == 0) word = copy_into(word, factor);
  }
}

}  // namespace vstring::words
