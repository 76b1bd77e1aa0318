// Optimal string alignment: the least number of insertions, deletions and substitutions of one
// letter, and of exchanges of two neighbouring letters that no other operation touches, that turn
// one word into the other.
//
// Bit-parallel: H. Hyyro, "A bit-vector algorithm for computing Levenshtein and Damerau edit
// distances", 2003.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// O(|s| |t| / 64) time, three bits for each letter of the shorter word. Fails only for want of
// memory.
Result<std::size_t> optimal_string_alignment(Bytes s, Bytes t);

}  // namespace vstring::words
