#include "charclass/support.h"

namespace vstring::charclass {

void write_members(const ByteSet& set, MutableBytes out) {
  std::size_t n = 0;
  set.for_each([&](Byte c) { out[n++] = c; });
}

// Every byte is written, and the next one over it when it does not stay.
std::size_t remove(Bytes text, const ByteSet& set, MutableBytes out) {
  std::size_t n = 0;
  for (const Byte c : text) {
    out[n] = c;
    n += set.has(c) ? 0 : 1;
  }
  return n;
}

}  // namespace vstring::charclass
