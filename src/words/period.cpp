#include "words/period.h"

#include <cstring>
#include <optional>

#include "bytes/budget.h"
#include "bytes/common.h"
#include "words/border.h"

namespace vstring::words {
namespace {

// From this length on the direct search may be given up for the border array.
constexpr std::size_t kDirectSearchOnly = 500;
// It is, when it has compared this many times the length of the word.
constexpr std::size_t kPatience = 2;

// Tries p = 1, 2, ... in turn, at most `budget` letters being compared in vain behind the first
// eight. Nothing when the budget is used up.
std::optional<std::size_t> direct_search(Bytes word, Budget budget) {
  const std::size_t n = word.size();
  std::size_t p = 1;
  if (n > 8) {
    const std::uint64_t head = load8(word.data());
    for (; p + 8 <= n; ++p) {
      if (load8(word.data() + p) != head) continue;
      const std::size_t agreeing = 8 + common_prefix(word.subspan(8), word.subspan(p + 8));
      if (p + agreeing == n) return p;
      budget.spend(agreeing);
      if (budget.is_used_up()) return std::nullopt;
    }
  }
  while (p < n && !has_period(word, p)) ++p;
  return p;
}

}  // namespace

bool has_period(Bytes word, std::size_t p) {
  if (p < 1 || p > word.size()) return false;
  return std::memcmp(word.data(), word.data() + p, word.size() - p) == 0;
}

Result<std::size_t> smallest_period(Bytes word) {
  const std::size_t n = word.size();
  if (n < 2) return n;
  // Most words differ from their shifts within eight letters, and periodic ones agree with the
  // right one to the end: the direct search then runs at the speed of memory. Words of many long
  // repetitions (Fibonacci words) exhaust its budget.
  const Budget budget(n < kDirectSearchOnly ? n * n : kPatience * n);
  if (const auto p = direct_search(word, budget)) return *p;
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
