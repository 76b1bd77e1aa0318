#include "words/primitivity.h"

#include "words/period.h"

namespace vstring::words {

std::size_t primitive_root(Bytes word) {
  std::size_t root = word.size();
  std::size_t cofactor = word.size();  // prime divisors below q have been taken out
  for (std::size_t q = 2; cofactor > 1; ++q) {
    if (q * q > cofactor) q = cofactor;  // which is a prime then
    if (cofactor % q != 0) continue;
    while (cofactor % q == 0) cofactor /= q;
    // word is a power of its first `root` letters, so a shorter root shows within them.
    while (root % q == 0 && has_period(word.first(root), root / q)) root /= q;
  }
  return root;
}

}  // namespace vstring::words
