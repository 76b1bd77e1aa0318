#include "words/likeness/distance.h"

#include <algorithm>

#include "bytes/byte_sums.h"
#include "bytes/common.h"

namespace vstring::words {

std::size_t hamming_distance(Bytes s, Bytes t) {
  const std::size_t common = std::min(s.size(), t.size());
  return count_different(s.first(common), t.first(common)) + std::max(s.size(), t.size()) - common;
}

std::size_t lee_distance(Bytes s, Bytes t) { return sum_ways(s, t); }
std::size_t lee_weight(Bytes s) { return sum_ways_to_0(s); }

std::size_t prefix_distance(Bytes s, Bytes t) {
  return s.size() + t.size() - 2 * common_prefix(s, t);
}

std::size_t suffix_distance(Bytes s, Bytes t) {
  return s.size() + t.size() - 2 * common_suffix(s, t);
}

}  // namespace vstring::words
