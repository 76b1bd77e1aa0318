// Likeness of texts by their q-grams, the factors of length q.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// The cosine of the angle between the vectors of the numbers of q-grams, q >= 1: their product
// divided by the root of the product of their squares. If one text has none, 1 when the texts are
// equal and 0 otherwise. O(|s| + |t|) time whatever q is, by the sorted suffixes of both; 9 bytes
// for each letter of both. Fails only for want of memory.
Result<double> qgram_cosine(Bytes s, Bytes t, std::size_t q);

}  // namespace vstring::words
