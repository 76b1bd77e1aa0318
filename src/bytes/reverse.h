// A text from its end to its start.
#pragma once
#include "bytes/bytes.h"

namespace vstring {

// `out` has the size of `text` and does not overlap it.
void reverse_bytes(Bytes text, MutableBytes out);

}  // namespace vstring
