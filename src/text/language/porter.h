// The Porter stemmer.
//
// A word is read as [C](VC){m}[V], where C and V are runs of consonants and vowels and m is its
// measure; suffixes go, or are replaced, in five steps whose rules ask for the measure of what is
// left before the suffix.
//
// M. F. Porter, "An algorithm for suffix stripping", Program 14(3), 1980, with the author's two
// later rules "bli" and "logi" in step 2. Vowels are those of the class table; any other byte, a
// digit or a byte above 127 included, counts as a consonant.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::text {

inline constexpr std::size_t kLongestPorterWord = 127;

// Writes the stem of `word` in lower case to `out`, of the same size, and returns its length. A
// word of two bytes is only lower-cased, one of a single byte is copied as it is. Requires at most
// kLongestPorterWord bytes. No memory, O(n).
std::size_t porter(Bytes word, MutableBytes out);

}  // namespace vstring::text
