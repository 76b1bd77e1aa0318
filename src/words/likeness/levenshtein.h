// Levenshtein distance: the least number of insertions, deletions and substitutions of one letter
// that turn one word into the other (V. I. Levenshtein, 1965).
//
// Bit-parallel: G. Myers, "A fast bit-vector algorithm for approximate string matching based on
// dynamic programming", 1999, in the form of H. Hyyro, "A bit-vector algorithm for computing
// Levenshtein and Damerau edit distances", 2003: the differences between neighbouring cells of the
// matrix of distances are -1, 0 or 1, so 64 rows of a column are two machine words. Where the
// distance turns out to be small, only the cells near the diagonal are visited (E. Ukkonen,
// "Algorithms for approximate string matching", 1985).
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// O(|s| |t| / 64) time, O(|s| d / 64) for a distance d that is small. Two bits for each letter of
// the shorter word, what the words have in common at their ends left out; no allocation up to 1024
// letters. A distance above `limit` need not be told apart from others above it. Fails only for
// want of memory.
Result<std::size_t> levenshtein(Bytes s, Bytes t, std::size_t limit = npos);

}  // namespace vstring::words
