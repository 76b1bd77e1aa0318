// Words of the textbooks: Fibonacci, Thue and Morse, Christoffel.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring::words {

// Each fills `word` with the first letters of the infinite word, or with the finite one. Letters of
// an alphabet may be equal. O(n) time, no memory.

// The Fibonacci word, fixed point of a -> ab, b -> a, over an alphabet of two letters.
void fibonacci_word(Bytes alphabet, MutableBytes word);

// The word of A. Thue (1906) and M. Morse (1921) over k >= 2 letters: letter i, counted from 0, is
// the sum of the digits of i in base k, modulo k.
void thue_morse_word(Bytes alphabet, MutableBytes word);

// The lower Christoffel word of slope p/q over an alphabet of two letters: the steps of the path of
// q steps right and p steps up that stays closest below the line. `word` has p + q letters. (J.
// Berstel et al., "Combinatorics on words: Christoffel words and repetitions in words", 2008.)
void christoffel_word(std::uint64_t p, Bytes alphabet, MutableBytes word);

}  // namespace vstring::words
