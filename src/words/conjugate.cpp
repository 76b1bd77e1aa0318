#include "words/conjugate.h"

#include <algorithm>

#include "words/letter_order.h"

namespace vstring::words {
namespace {

// On how many letters the rotation of `v` by i and that of `w` by j agree; |v| = |w| and i <= j.
std::size_t agreement(Bytes v, std::size_t i, Bytes w, std::size_t j) {
  const std::size_t n = v.size();
  std::size_t k = common_prefix(v.subspan(i), w.subspan(j));
  if (k < n - j) return k;  // else w is at its end and goes on from its start
  k += common_prefix(v.subspan(i + k), w);
  if (k < n - i) return k;  // else v is too
  return k + common_prefix(v.first(i), w.subspan(j - i));
}

}  // namespace

std::size_t least_rotation(Bytes word) {
  const std::size_t n = word.size();
  const auto cyclic = [word, n](std::size_t i) { return letter(word[i < n ? i : i - n]); };
  // Every place before j other than i has lost to some other place.
  std::size_t i = 0;
  std::size_t j = 1;
  while ((j = skip_greater(word, i, j)) < n) {
    const std::size_t k = agreement(word, i, word, j);
    if (k == n) break;
    if (cyclic(i + k) < cyclic(j + k)) {
      j += k + 1;
    } else {
      i = std::max(i + k + 1, j);
      j = i + 1;
    }
  }
  return i;
}

bool are_conjugate(Bytes v, Bytes w) {
  if (v.size() != w.size()) return false;
  if (v.empty()) return true;
  const std::size_t i = least_rotation(v);
  const std::size_t j = least_rotation(w);
  return (i <= j ? agreement(v, i, w, j) : agreement(w, j, v, i)) == v.size();
}

}  // namespace vstring::words
