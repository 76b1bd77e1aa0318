// Capitalisation: the first byte of every word in upper case, the rest of it in lower case.
#pragma once
#include "bytes/byte_scan.h"
#include "bytes/bytes.h"

namespace vstring {

// Words are maximal runs of members; of these, only the letters of ASCII change. `out` has the size
// of `text` and does not overlap it.
void capitalise_words(const ByteScan& members, Bytes text, MutableBytes out);

}  // namespace vstring
