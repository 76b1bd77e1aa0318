// The key of the New York State Identification and Intelligence System: names of like sound share
// it. (R. L. Taft, "Name search techniques", 1970.) It is not cut to six letters.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::text {

// Writes the key of the letters in `name`, all else left out, to `key`, which has room for as many
// bytes as the name; returns its length, 0 without letters. O(n).
std::size_t nysiis(Bytes name, MutableBytes key);

}  // namespace vstring::text
