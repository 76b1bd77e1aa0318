// Primitive words and roots.
//
// A non-empty word is primitive when it is no power u^k with k >= 2; every non-empty word is a
// power of one primitive word, its root. (M. Lothaire, "Combinatorics on Words", 1983, chapter 1.)
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// Length of the primitive root of a non-empty `word`; its own length when the word is primitive.
// It is found as the order of a group element is: starting from n, prime divisors are taken out as
// long as what is left is a period. At most as many comparisons of the word with its shift as n
// has prime factors, most of them ending at the first letters; no memory.
std::size_t primitive_root(Bytes word);

}  // namespace vstring::words
