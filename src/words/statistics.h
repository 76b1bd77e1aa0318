// Statistics of texts: letters, tokens, entropy, and how often things occur.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

// Shannon's entropy of the letters of `text`, in bits a letter: the sum of n_c log2(n / n_c) over
// the letters that occur, by increasing code, divided by n; 0 for the empty text. (C. E. Shannon,
// "A mathematical theory of communication", 1948.)
double entropy(Bytes text);

struct TextCounts {
  std::size_t newlines;
  std::size_t tokens;  // maximal runs of bytes that are no white space
};
TextCounts count_text(Bytes text);

// A thing, and how often it occurs.
struct Tally {
  Bytes text;
  std::size_t count;
};

// Append the letters of a text, or the different texts of a list, in the order in which they appear
// first. The first takes O(n) time. The second takes time in proportion to the bytes; texts made to
// collide in its table are sorted instead, with O(N log N) comparisons of bytes for N bytes and
// texts in all. Fail only for want of memory.
Status tally_letters(Bytes text, HeldArray<Tally>& tallies);
Status tally_texts(std::span<const Bytes> texts, HeldArray<Tally>& tallies);

// Keeps the n most frequent ones, by decreasing number; of equal numbers the one that came first.
Status keep_most_frequent(std::size_t n, HeldArray<Tally>& tallies);

}  // namespace vstring::words
