// Whether no byte is less than the one before.
#pragma once
#include "bytes/bytes.h"

namespace vstring {

bool is_sorted(Bytes text);

}  // namespace vstring
