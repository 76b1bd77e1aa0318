// How often a byte occurs.
#pragma once
#include "bytes/bytes.h"

namespace vstring {

std::size_t count_byte(Bytes text, Byte c);

}  // namespace vstring
