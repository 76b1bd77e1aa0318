#include "language/suggest.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace velmor {
namespace {

char small(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::size_t typing_distance(std::string_view s, std::string_view t) {
  std::vector<std::size_t> before(t.size() + 1), above(t.size() + 1), row(t.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= s.size(); ++i) {
    before.swap(above);
    above.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= t.size(); ++j) {
      const auto equal = [&](std::size_t a, std::size_t b) {
        return small(s[a - 1]) == small(t[b - 1]);
      };
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (equal(i, j) ? 0U : 1U)});
      if (i > 1 && j > 1 && equal(i, j - 1) && equal(i - 1, j))
        row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row.back();
}

std::string nearest(std::string_view word, std::span<const std::string> candidates) {
  std::string best;
  std::size_t least = std::max<std::size_t>(1, word.size() / 3) + 1;
  for (const std::string& candidate : candidates) {
    if (std::max(word.size(), candidate.size()) - std::min(word.size(), candidate.size()) >= least)
      continue;
    const std::size_t distance = typing_distance(word, candidate);
    if (distance >= least) continue;
    best = candidate;
    least = distance;
  }
  return best;
}

}  // namespace velmor
