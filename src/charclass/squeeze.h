// Runs of one and the same byte made short.
#pragma once
#include <cstddef>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring::charclass {

// Copies `text` to `out`, of the same size, with one byte for every run of a member of `set`;
// returns the length of what is left.
std::size_t squeeze(Bytes text, const ByteSet& set, MutableBytes out);

}  // namespace vstring::charclass
