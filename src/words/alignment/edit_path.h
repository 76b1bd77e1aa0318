// Which operations turn one word into the other, when their number is all that counts.
//
// A column of an alignment is D (a letter of s is deleted), I (a letter of t is inserted), = or X
// (letters are equal, or differ). Of the best alignments the first is chosen, columns being
// compared from the left by D < {=, X} < I. In the table with rows s and columns t this is the best
// path that stays lowest, so it may be cut: D. S. Hirschberg, "A linear space algorithm for
// computing maximal common subsequences", 1975, at the middle row and the least column in which a
// best path can cross it. The rows needed come from bit vectors (words/likeness/stripe.h).
#pragma once
#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

// Append the columns of the chosen alignment: with the fewest D, I and X, or with the most =, no X
// being allowed. O(|s| |t| / 64) time, the first O(|s| d / 64 + |t|) for a distance d that is
// small; O(|s| + |t|) memory, recursion as deep as log2 |s|. Fail only for want of memory.
Status edit_path(Bytes s, Bytes t, HeldArray<Byte>& columns);
Status subsequence_path(Bytes s, Bytes t, HeldArray<Byte>& columns);

}  // namespace vstring::words
