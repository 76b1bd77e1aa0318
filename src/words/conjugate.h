// Conjugates: the rotations of a word.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// Where the least rotation of a non-empty `word` starts; the earliest such place when the word is
// a power. Letters are in signed order (letter_order.h). O(n) time, no memory: of two candidates
// that agree on k letters, the loser takes the k places behind it along. (Y. Shiloach, "Fast
// canonization of circular strings", 1981; the same starts as K. S. Booth, "Lexicographically
// least circular substrings", 1980.)
std::size_t least_rotation(Bytes word);

// Whether the words are rotations of each other: the start of one is looked for in the other; where
// that stands too often, their least rotations are compared. O(n) time.
bool are_conjugate(Bytes v, Bytes w);

}  // namespace vstring::words
