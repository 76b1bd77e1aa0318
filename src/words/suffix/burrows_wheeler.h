// The transform of M. Burrows and D. J. Wheeler, "A block-sorting lossless data compression
// algorithm", 1994, over the conjugates of a word, without an end mark.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// Writes the last letters of the rotations of `word`, sorted unsigned, to `last`, of the same size,
// and returns the 0-based rank of the first row that is the word itself. The rotations of a Lyndon
// word are sorted as its suffixes are (R. Giancarlo, A. Restivo, M. Sciortino, "From first
// principles to the Burrows and Wheeler transform and beyond", 2007), and each word is a rotation
// of a power of one. O(n) time, 5 to 9 bytes a letter. Requires a word that is not empty; fails
// only for want of memory.
Result<std::size_t> burrows_wheeler(Bytes word, MutableBytes last);

// The way back, for any text and any row: writes, from its end, the word whose letters are met from
// row `rank` on. Whenever `last` and `rank` come from a word, it is that word. O(n) time, 4 bytes a
// letter; fails only for want of memory, as which texts of 4 GiB and more count.
Status inverse_burrows_wheeler(Bytes last, std::size_t rank, MutableBytes word);

}  // namespace vstring::words
