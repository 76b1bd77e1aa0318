// Looks for two bytes a fixed distance apart: of a long pattern, two rare bytes find nearly as few
// places as all of them would.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

struct BytePair {
  Byte first;
  Byte second;
  std::size_t distance;  // from the first to the second
};

// The first place in text[at, end) where the pair's first byte stands, and its second one as far
// behind, or npos. Requires `end` + distance to be within the text.
std::size_t find_pair(Bytes text, std::size_t at, std::size_t end, const BytePair& pair);

}  // namespace vstring
