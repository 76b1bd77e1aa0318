#include "search/two_way.h"

#include <algorithm>

namespace vstring::search {
namespace {

struct Suffix {
  std::size_t start;
  std::size_t period;
};

// The largest suffix of `word` in the order given by `before`, and its period.
template <typename Before>
Suffix largest_suffix(Bytes word, Before before) {
  Suffix best = {0, 1};
  std::size_t rival = 1;
  std::size_t agreed = 0;  // bytes in which best and rival agree
  while (rival + agreed < word.size()) {
    const Byte ours = word[best.start + agreed];
    const Byte theirs = word[rival + agreed];
    if (ours == theirs) {
      if (++agreed == best.period) {
        rival += best.period;
        agreed = 0;
      }
    } else if (before(theirs, ours)) {
      rival += agreed + 1;
      agreed = 0;
      best.period = rival - best.start;
    } else {
      best = {rival, 1};
      ++rival;
      agreed = 0;
    }
  }
  return best;
}

// The later of the largest suffixes in the two orders starts at a critical position.
Suffix critical_suffix(Bytes word) {
  const Suffix up = largest_suffix(word, [](Byte a, Byte b) { return a < b; });
  const Suffix down = largest_suffix(word, [](Byte a, Byte b) { return a > b; });
  return up.start > down.start ? up : down;
}

}  // namespace

void TwoWay::start(Bytes pattern, Bytes text, std::size_t from) {
  pattern_ = pattern;
  text_ = text;
  at_ = from;
  remembered_ = 0;

  const std::size_t m = pattern.size();
  const Suffix right = critical_suffix(pattern);
  critical_ = right.start;
  period_ = right.period;
  is_periodic_ = equal(pattern.first(critical_), pattern.subspan(period_, critical_));
  if (!is_periodic_) period_ = std::max(critical_, m - critical_) + 1;

  // Moves of very long patterns are cut to 32 bits: a shorter move is as safe.
  const auto bounded = [](std::size_t move) {
    return static_cast<std::uint32_t>(std::min<std::size_t>(move, UINT32_MAX));
  };
  std::fill_n(skip_, 256, bounded(m));
  for (std::size_t i = 0; i < m; ++i) skip_[pattern[i]] = bounded(m - 1 - i);
}

std::size_t TwoWay::next() {
  const std::size_t m = pattern_.size();
  const Byte* const pattern = pattern_.data();
  while (at_ <= text_.size() && text_.size() - at_ >= m) {
    const Byte* const window = text_.data() + at_;
    // A jump would forget what is remembered, and with it the linear bound.
    if (remembered_ == 0) {
      const std::uint32_t move = skip_[window[m - 1]];
      if (move != 0) {
        at_ += move;
        continue;
      }
    }
    std::size_t i = std::max(critical_, remembered_);
    while (i < m && pattern[i] == window[i]) ++i;
    if (i < m) {
      at_ += i - critical_ + 1;
      remembered_ = 0;
      continue;
    }
    i = critical_;
    while (i > remembered_ && pattern[i - 1] == window[i - 1]) --i;
    const bool is_found = i <= remembered_;
    const std::size_t found = at_;
    at_ += period_;
    remembered_ = is_periodic_ ? m - period_ : 0;
    if (is_found) return found;
  }
  return SIZE_MAX;
}

}  // namespace vstring::search
