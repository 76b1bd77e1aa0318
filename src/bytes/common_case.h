// How far two texts agree, capital and small letters of ASCII being the same.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"

namespace vstring {

// Length of the longest common prefix in that sense.
std::size_t common_prefix_of_letters(Bytes a, Bytes b);

}  // namespace vstring
