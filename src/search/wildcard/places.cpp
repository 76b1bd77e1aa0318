#include "search/wildcard/places.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <utility>

#include "bytes/commonness.h"

namespace vstring::search {
namespace {

constexpr std::size_t kLooked = 32;  // elements from the start

}  // namespace

Places::Places(const Segment& segment, Bytes text)
    : text_(text), end_(text.size() - segment.elements + 1) {
  if (segment.literals >= 2) choose_probes(segment);
  if (probes_.count < 2) choose_elements(segment);
}

// The rarest bytes first.
void Places::choose_probes(const Segment& segment) {
  struct Literal {
    Byte byte;
    std::size_t offset;
  };
  Literal literals[kLooked];
  std::size_t count = 0;
  std::size_t at = 0;
  for (std::size_t i = 0; i < std::min(segment.elements, kLooked); ++i) {
    if (is_literal(segment.pattern[at])) literals[count++] = {segment.pattern[at], i};
    at = behind_element(segment.pattern, at);
  }
  std::sort(literals, literals + count, [](const Literal& a, const Literal& b) {
    return std::pair(kCommonness[a.byte], a.offset) < std::pair(kCommonness[b.byte], b.offset);
  });
  probes_.count = std::min(count, Probes::kMost);
  for (std::size_t i = 0; i < probes_.count; ++i) {
    probes_.bytes[i] = literals[i].byte;
    probes_.offsets[i] = literals[i].offset;
  }
}

void Places::choose_elements(const Segment& segment) {
  const std::size_t looked = std::min(segment.elements, kLooked);
  ByteSet sets[kLooked];
  std::size_t at = 0;
  for (std::size_t i = 0; i < looked; ++i) {
    sets[i] = members_of(segment.pattern, at);
    at = behind_element(segment.pattern, at);
  }
  length_ = std::min(looked, PrefixFilter::kUsualLength);
  int fewest = INT_MAX;
  for (std::size_t i = 0; i + length_ <= looked; ++i) {
    int members = 0;
    for (std::size_t j = 0; j < length_; ++j) members += sets[i + j].count();
    if (members >= fewest) continue;
    fewest = members;
    offset_ = i;
  }
  for (std::size_t j = 0; j < length_; ++j) filter_.add(0, j, sets[offset_ + j]);
  if (length_ == 1) scan_ = ByteScan(sets[0]);
}

std::size_t Places::next() {
  if (length_ != 0) return next_of_elements();
  while (hits_ == 0) {
    if (at_ >= end_) return npos;
    base_ = at_;
    hits_ = find_probes(text_, base_, end_, probes_, ahead_);
    at_ = hits_ == 0 ? end_ : base_ + kProbeBlock;
  }
  const std::size_t place = base_ + static_cast<std::size_t>(std::countr_zero(hits_));
  hits_ &= hits_ - 1;
  return place;
}

std::size_t Places::next_of_elements() {
  if (at_ >= end_) return npos;
  const std::size_t from = at_ + offset_;
  const std::size_t found =
      length_ == 1 ? scan_.find(text_, from) : filter_.find(length_, text_, from);
  const std::size_t place = found - offset_;
  at_ = place < end_ ? place + 1 : end_;
  return place < end_ ? place : npos;
}

}  // namespace vstring::search
