// Lyndon factorisation.
//
// A Lyndon word is smaller than each of its proper suffixes. Every word is, in one way only, a
// product of Lyndon words in non-increasing order (K. T. Chen, R. H. Fox, R. C. Lyndon, 1958).
// J.-P. Duval, "Factorizing words over an ordered alphabet", 1983, finds it from left to right.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// The factors of a word from left to right. Letters are in signed order (letter_order.h). All of
// them together take O(n) time; no memory.
class LyndonFactors {
 public:
  explicit LyndonFactors(Bytes word) : rest_(word) {}

  // The next factor; empty behind the last.
  Bytes next();

 private:
  Bytes rest_;
  std::size_t length_ = 0;   // of the factor that was found last
  std::size_t repeats_ = 0;  // how often the rest begins with that factor again
};

std::size_t count_lyndon_factors(Bytes word);

}  // namespace vstring::words
