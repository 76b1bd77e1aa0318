// Monotone factorisation.
//
// From left to right, a word is cut into stretches that rise or fall strictly. Equal letters may
// only stand at the start of a factor: aab is one factor, abb is ab and b.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::words {

// Offset just behind the monotone factor that starts at `start`, which lies inside `word`. Letters
// are in signed order (letter_order.h).
std::size_t monotone_factor_end(Bytes word, std::size_t start);

// Into how many factors `word` falls.
std::size_t count_monotone_factors(Bytes word);

}  // namespace vstring::words
