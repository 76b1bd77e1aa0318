#include "search/exact/two_way.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace vstring::search {
namespace {

// Below this length the moves by four bytes, at most m - 3, are no longer than those by one.
constexpr std::size_t kShortestForGrams = 8;
constexpr std::uint32_t kGoldenRatio = 0x9e3779b1;  // spreads the grams over the high bits

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

  prepare_moves();
}

std::size_t TwoWay::key(const Byte* end) const {
  if (!has_grams_) return end[-1];
  std::uint32_t gram = 0;
  std::memcpy(&gram, end - sizeof gram, sizeof gram);
  return gram * kGoldenRatio >> 22;
}

void TwoWay::prepare_moves() {
  const std::size_t m = pattern_.size();
  has_grams_ = m >= kShortestForGrams;
  const std::size_t q = has_grams_ ? 4 : 1;
  // A shorter move is as safe: those of very long patterns are cut to 16 bits.
  const auto bounded = [](std::size_t move) {
    return static_cast<std::uint16_t>(std::min<std::size_t>(move, UINT16_MAX));
  };
  std::fill_n(moves_, has_grams_ ? std::size(moves_) : 256, bounded(m - q + 1));
  const std::size_t first = std::max(q, m - std::min<std::size_t>(m, UINT16_MAX));
  for (std::size_t end = first; end <= m; ++end) {
    moves_[key(pattern_.data() + end)] = bounded(m - end);
  }
}

std::size_t TwoWay::next() {
  const std::size_t m = pattern_.size();
  const Byte* const pattern = pattern_.data();
  while (at_ <= text_.size() && text_.size() - at_ >= m) {
    const Byte* const window = text_.data() + at_;
    // A jump would forget what is remembered, and with it the linear bound.
    if (remembered_ == 0) {
      const std::size_t move = moves_[key(window + m)];
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
  return npos;
}

}  // namespace vstring::search
