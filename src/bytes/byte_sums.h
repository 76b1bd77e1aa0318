// Sums over the bytes of texts.
#pragma once
#include "bytes/bytes.h"

namespace vstring {

// Places at which two texts of one length differ.
std::size_t count_different(Bytes a, Bytes b);

// Ways round the circle of 256 residues: from the bytes of a text to those of another one of its
// length, or to 0.
std::size_t sum_ways(Bytes a, Bytes b);
std::size_t sum_ways_to_0(Bytes text);

}  // namespace vstring
