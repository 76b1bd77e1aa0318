// Texts by which bytes they consist of.
#pragma once
#include <cstddef>

#include "bytes/byte_set.h"
#include "bytes/bytes.h"

namespace vstring::charclass {

// Writes the members of `set` in increasing order to `out`, which has room for them.
void write_members(const ByteSet& set, MutableBytes out);

// Copies `text` to `out`, of the same size, without the bytes of `set`; returns how many stay.
std::size_t remove(Bytes text, const ByteSet& set, MutableBytes out);

}  // namespace vstring::charclass
