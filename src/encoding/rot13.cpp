#include "encoding/rot13.h"

#include <algorithm>

namespace vstring::encoding {

std::size_t rot13(Bytes text, MutableBytes out) {
  std::transform(text.begin(), text.end(), out.begin(), [](Byte c) {
    const auto letter = static_cast<Byte>(c | 0x20);
    const int up = letter >= 'a' && letter <= 'm' ? 13 : 0;
    const int down = letter >= 'n' && letter <= 'z' ? 13 : 0;
    return static_cast<Byte>(c + up - down);
  });
  return text.size();
}

}  // namespace vstring::encoding
