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
  explicit LyndonFactors(Bytes word);

  // All of them; `next` takes none away.
  std::size_t count() const { return count_; }
  // The next factor; empty behind the last.
  Bytes next();

 private:
  // A factor's length, and how often it stands in a row.
  struct Power {
    std::size_t length;
    std::size_t exponent;
  };
  static constexpr std::size_t kKept = 64;  // those of most words, so as not to find them twice

  static Power first_power(Bytes word);

  Bytes rest_;
  std::size_t count_ = 0;
  Power kept_[kKept];
  std::size_t kept_count_ = 0;
  std::size_t passed_ = 0;  // of those kept
  Power now_ = {0, 0};      // the factor that was found last, and how often the rest repeats it
};

}  // namespace vstring::words
