#include "search/exact/needle.h"

#include <algorithm>

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
  const std::size_t window = std::min(m, std::max(kShortestWindow, text_length / kWindowShare));
  const auto is_rarer = [&](std::size_t i, std::size_t j) {
    return kCommonness[pattern[i]] < kCommonness[pattern[j]];
  };
  std::size_t rarest = 0;
  for (std::size_t i = 1; i < window; ++i) {
    if (is_rarer(i, rarest)) rarest = i;
  }
  // The rarest of the other bytes; where there are none, the place farthest off.
  std::size_t second = npos;
  for (std::size_t i = 0; i < window; ++i) {
    if (pattern[i] == pattern[rarest]) continue;
    if (second == npos || is_rarer(i, second)) second = i;
  }
  if (second == npos) second = rarest == 0 ? window - 1 : 0;
  add(rarest);
  if (second != rarest) add(second);
  if (m <= Probes::kMost) {
    for (std::size_t i = 0; i < m; ++i) {
      if (i != rarest && i != second) add(i);
    }
  } else {
    constexpr std::size_t kMore = 4;
    for (std::size_t i = 0; i < kMore; ++i) add((window - 1) * i / (kMore - 1));
  }
}

Needle::Needle(Bytes known, std::span<const std::size_t> places) : Needle(known, known.size()) {
  for (std::size_t i = 0; i < probes_.count; ++i) probes_.offsets[i] = places[probes_.offsets[i]];
  pattern_ = {};
  size_ = places.back() + 1;
}

}  // namespace vstring::search
