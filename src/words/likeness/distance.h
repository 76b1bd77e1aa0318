// Distances between texts that one pass computes.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// R. W. Hamming's distance (1950), where a letter without a counterpart counts as a difference.
std::size_t hamming_distance(Bytes s, Bytes t);

// C. Y. Lee's distance (1958) and weight over the residues modulo 256: the length of the shorter
// way round the circle, added up. The distance requires texts of equal length.
std::size_t lee_distance(Bytes s, Bytes t);
std::size_t lee_weight(Bytes s);

// Letters of both texts outside their longest common prefix, or suffix.
std::size_t prefix_distance(Bytes s, Bytes t);
std::size_t suffix_distance(Bytes s, Bytes t);

}  // namespace vstring::words
