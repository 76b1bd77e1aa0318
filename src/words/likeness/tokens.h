// Likeness of texts by their tokens, the maximal runs of bytes that are no white space, in any
// order.
#pragma once
#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// The ratio (ratio.h) of the two texts' tokens, sorted and joined with blanks. Fails only for want
// of memory.
Result<double> token_sort_ratio(Bytes s, Bytes t);

// The sets of tokens are compared. Two empty sets are alike, an empty one is like no other. If one
// set is part of the other, 100; if they have nothing in common, the ratio of both, sorted and
// joined. Otherwise the best ratio of two of the common tokens, these followed by the others of s,
// and these followed by the others of t. Fails only for want of memory.
Result<double> token_set_ratio(Bytes s, Bytes t);

}  // namespace vstring::words
