#include "search/exact/needle.h"

#include <algorithm>
#include <utility>

#include "bytes/commonness.h"

namespace vstring::search {
namespace {

// The rarest bytes are looked for in a prefix of this length at least, and in this share of the
// text's length: it holds one as a rule, and a search in a short text should not wait for more.
constexpr std::size_t kShortestWindow = 64;
constexpr std::size_t kWindowShare = 16;

}  // namespace

Needle::Needle(Bytes pattern, std::size_t text_length) : pattern_(pattern), size_(pattern.size()) {
  const std::size_t m = size_;
  if (m == 0) return;
  const auto add = [this](std::size_t i) {
    probes_.bytes[probes_.count] = pattern_[i];
    probes_.offsets[probes_.count++] = i;
  };
  if (m == 1) {
    add(0);
    return;
  }
  const std::size_t window = std::min(m, std::max(kShortestWindow, text_length / kWindowShare));
  const auto is_rarer = [&](std::size_t i, std::size_t j) {
    return kCommonness[pattern[i]] < kCommonness[pattern[j]];
  };
  // The rarest byte, and the rarest of the others; where there are none, the place farthest off.
  std::size_t rarest = 0;
  std::size_t second = npos;
  for (std::size_t i = 1; i < window; ++i) {
    if (is_rarer(i, rarest)) {
      second = rarest;
      rarest = i;
    } else if (pattern[i] != pattern[rarest] && (second == npos || is_rarer(i, second))) {
      second = i;
    }
  }
  if (second == npos) second = rarest == 0 ? window - 1 : 0;
  if (m <= Probes::kMost) {
    for (std::size_t i = 0; i < m; ++i) add(i);
    const auto exchange = [this](std::size_t i, std::size_t j) {
      std::swap(probes_.bytes[i], probes_.bytes[j]);
      std::swap(probes_.offsets[i], probes_.offsets[j]);
    };
    exchange(0, rarest);
    exchange(1, second == 0 ? rarest : second);
  } else {
    add(rarest);
    add(second);
    // From the first to the last one: what is repetitive differs from itself at an end.
    constexpr std::size_t kMore = 4;
    for (std::size_t part = 0; part < kMore; ++part) {
      std::size_t i = (window - 1) * part / (kMore - 1);
      while (i == rarest || i == second) i = (i + 1) % window;
      add(i);
    }
  }
}

Needle::Needle(Bytes known, std::span<const std::size_t> places) : Needle(known, known.size()) {
  for (std::size_t i = 0; i < probes_.count; ++i) probes_.offsets[i] = places[probes_.offsets[i]];
  pattern_ = {};
  size_ = places.back() + 1;
}

}  // namespace vstring::search
