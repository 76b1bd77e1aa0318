#include "words/conjugate.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "bytes/common.h"
#include "search/exact/exact.h"
#include "words/letter_order.h"
#include "words/shift.h"

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

// By exact search of the one's head in the other, which goes on from its start again. Nothing when
// too much has been compared in vain. Both are of one length, from kWorthSearching on.
std::optional<bool> are_conjugate_by_search(Bytes v, Bytes w) {
  const std::size_t n = v.size();
  const Bytes head = w.first(kHead);
  Byte seam[2 * (kHead - 1)];  // the places that are too near to the end of v
  copy_into(copy_into(seam, v.last(kHead - 1)), v.first(kHead - 1));
  Budget budget = patience(n);
  const std::pair<Bytes, std::size_t> stretches[] = {{v, 0}, {seam, n - (kHead - 1)}};
  for (const auto& [stretch, offset] : stretches) {
    search::Finder finder(head, stretch);
    for (std::size_t at = finder.next(); at != npos; at = finder.next()) {
      const std::size_t agreeing = agreement(w, 0, v, offset + at);
      if (agreeing == n) return true;
      budget.spend(agreeing);
      if (budget.is_used_up()) return std::nullopt;
    }
  }
  return false;
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
  if (v.size() >= kWorthSearching) {
    if (const auto answer = are_conjugate_by_search(v, w)) return *answer;
  }
  const std::size_t i = least_rotation(v);
  const std::size_t j = least_rotation(w);
  return (i <= j ? agreement(v, i, w, j) : agreement(w, j, v, i)) == v.size();
}

}  // namespace vstring::words
