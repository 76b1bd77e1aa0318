#include "words/shift.h"

#include "bytes/common.h"
#include "search/exact/exact.h"

namespace vstring::words {

Budget patience(std::size_t length) {
  constexpr std::size_t kNeverGivenUp = 500;
  constexpr std::size_t kPatience = 2;  // times the length
  return Budget(length < kNeverGivenUp ? length * length : kPatience * length);
}

std::optional<std::size_t> find_shift(Bytes s, Bytes t, std::size_t first) {
  const std::size_t n = s.size();
  Budget budget = patience(n);
  const auto agreement = [&](std::size_t p, std::size_t known) {
    const std::size_t agreeing = known + common_prefix(s.subspan(p + known), t.subspan(known));
    budget.spend(agreeing);
    return agreeing;
  };
  std::size_t p = first;
  if (n >= kWorthSearching) {
    constexpr std::size_t kTryCost = 64;  // of a place that is found, beside its letters
    search::Finder finder(t.first(kHead), s);
    for (p = finder.next_from(first); p != npos; p = finder.next()) {
      if (p + agreement(p, kHead) == n) return p;
      budget.spend(kTryCost);
      if (budget.is_used_up()) return std::nullopt;
    }
    p = n - kHead + 1;
  }
  // Eight letters at a time, then what is left of them.
  if (p + 8 <= n) {
    const std::uint64_t head = load8(t.data());
    for (; p + 8 <= n; ++p) {
      if (load8(s.data() + p) != head) continue;
      if (p + agreement(p, 8) == n) return p;
      if (budget.is_used_up()) return std::nullopt;
    }
  }
  while (p < n && (s[p] != t[0] || !equal(s.subspan(p), t.first(n - p)))) ++p;
  return p;
}

}  // namespace vstring::words
