// Lyndon factorisation.
//
// A Lyndon word is smaller than each of its proper suffixes. Every word is, in one way only, a
// product of Lyndon words in non-increasing order (K. T. Chen, R. H. Fox, R. C. Lyndon, 1958).
// J.-P. Duval, "Factorizing words over an ordered alphabet", 1983, finds it from left to right.
#pragma once
#include <cstddef>

#include "runtime/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

// Appends the offset just behind each factor of `word` to `ends`, from left to right. Letters are
// in signed order (letter_order.h). O(n) time; fails only for want of memory for `ends`.
[[nodiscard]] Status lyndon_factors(Bytes word, HeldArray<std::size_t>& ends);

}  // namespace vstring::words
