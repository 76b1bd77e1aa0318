// Arrangements of the letters of a word.
#pragma once
#include "bytes/bytes.h"

namespace vstring::words {

// Whether the words have the same letters equally often. O(n) time.
bool are_anagrams(Bytes s, Bytes t);

// Turns `word` into the next arrangement of its letters in lexicographic (unsigned) order, each of
// which comes once; false, and nothing changed, behind the last. O(n) time. (D. E. Knuth, "The Art
// of Computer Programming", volume 4A, 2011, algorithm L.)
bool next_arrangement(MutableBytes word);

}  // namespace vstring::words
