// Longest common subsequences, and the distance that goes with them: the least number of insertions
// and deletions of one letter that turn one word into the other.
//
// Bit-parallel: M. Crochemore, C. S. Iliopoulos, Y. J. Pinzon, J. F. Reid, "A fast and practical
// bit-vector algorithm for the longest common subsequence problem", 2001; H. Hyyro, "Bit-parallel
// LCS-length computation revisited", 2004.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// O(|s| |t| / 64) time, a bit for each letter of the shorter word. Fail only for want of memory.
Result<std::size_t> common_subsequence_length(Bytes s, Bytes t);
Result<std::size_t> indel_distance(Bytes s, Bytes t);

}  // namespace vstring::words
