// A text of one byte repeated.
#pragma once
#include <cstring>

#include "bytes/bytes.h"

namespace vstring::text {

inline void Fill(Byte c, MutableBytes out) {
  if (!out.empty()) std::memset(out.data(), c, out.size());
}

}  // namespace vstring::text
