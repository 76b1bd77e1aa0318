// The letters of ASCII rotated by 13, which undoes itself.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring::encoding {

// Writes to `out`, of the size of `text`, which is returned.
std::size_t rot13(Bytes text, MutableBytes out);

}  // namespace vstring::encoding
