#include "charclass/squeeze.h"

namespace vstring::charclass {

std::size_t squeeze(Bytes text, const ByteSet& set, MutableBytes out) {
  std::size_t n = 0;
  Byte before = 0;  // in no text
  for (const Byte c : text) {
    out[n] = c;
    n += c == before && set.has(c) ? 0 : 1;
    before = c;
  }
  return n;
}

}  // namespace vstring::charclass
