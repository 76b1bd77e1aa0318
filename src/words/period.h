// Periods of words.
//
// A period of w is a p in 1..|w| with w[i] == w[i + p] wherever both sides exist. Periods and
// borders are two views of one thing: w has the period p < |w| exactly when it has a border of
// length |w| - p. (M. Lothaire, "Algebraic Combinatorics on Words", 2002, chapter 1.)
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// Whether p is a period of `word`. Any p is accepted.
bool has_period(Bytes word, std::size_t p);

// The least period of `word`; 0 for the empty word. O(n) time from 500 letters on; below that at
// most n^2 / 2 letters are compared. No memory, unless a long word is so repetitive that its border
// array is needed: 4 (n + 1) bytes, and only then can it fail (Status::out_of_memory).
Result<std::size_t> smallest_period(Bytes word);

// Length of the longest proper border: |word| less its least period. As above.
Result<std::size_t> longest_border(Bytes word);

}  // namespace vstring::words
