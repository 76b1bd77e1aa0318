#include "random/digest.h"

namespace vstring::random {

void write_hexadecimal(Bytes digest, MutableBytes out) {
  constexpr char kDigits[] = "0123456789abcdef";
  for (std::size_t i = 0; i < digest.size(); ++i) {
    out[2 * i] = static_cast<Byte>(kDigits[digest[i] >> 4]);
    out[2 * i + 1] = static_cast<Byte>(kDigits[digest[i] & 15]);
  }
}

}  // namespace vstring::random
