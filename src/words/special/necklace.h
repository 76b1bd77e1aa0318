// Lyndon words in order, and the de Bruijn words that they make up.
//
// H. Fredricksen, J. Maiorana, "Necklaces of beads in k colors and k-ary de Bruijn sequences",
// 1978: the Lyndon words whose lengths divide n, in order, make the least cyclic word in which each
// word of n letters stands once. J.-P. Duval, "Generation d'une section des classes de conjugaison
// et arbre des mots de Lyndon de longueur bornee", 1988, gives the next Lyndon word of at most n
// letters in constant time on average.
#pragma once
#include <cstddef>
#include <cstdint>
#include <optional>

#include "bytes/bytes.h"

namespace vstring::words {

// k^n, or nothing when it is above `limit`. Requires k >= 1.
std::optional<std::uint64_t> power_within(std::uint64_t k, std::uint64_t n, std::uint64_t limit);

// Number of Lyndon words of n letters over k letters, by the formula of E. Witt, 1937; k^n
// must be below 2^63.
std::uint64_t count_lyndon_words(std::uint64_t k, std::uint64_t n);

// The Lyndon words of at most n letters over `alphabet`, in order; letters are ordered as they
// stand there.
class LyndonWords {
 public:
  // With an alphabet of one letter the only word is that letter. Requires n >= 1, and n < 64
  // otherwise.
  LyndonWords(Bytes alphabet, std::size_t n) : alphabet_(alphabet), n_(n) {}

  // The next one, valid until the one after; empty behind the last.
  Bytes next();
  // The next one of n letters; there is one.
  Bytes next_longest();

 private:
  static constexpr std::size_t kLongest = 63;
  Bytes alphabet_;
  std::size_t n_;
  std::size_t length_ = 0;       // of the word last given
  Byte numbers_[kLongest] = {};  // of its letters, and on with its powers
  Byte letters_[kLongest] = {};
};

// Writes the least de Bruijn word of order n to `word`, of |alphabet|^n letters.
void de_bruijn_word(Bytes alphabet, std::size_t n, MutableBytes word);

}  // namespace vstring::words
