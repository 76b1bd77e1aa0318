// Texts mapped byte by byte. A map is kept as what it changes, so that making one costs little and
// the bytes that stay, usually most of them, need no look.
#pragma once
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

// The identity until it is told otherwise.
class ByteMap {
 public:
  void set(Byte from, Byte to) {
    changes_[from] = from ^ to;
    rows_ |= 1U << (from / kRow);
  }
  // The same for all of first..last, which takes a few instructions where these are constants.
  template <typename Map>
  void set_all(Byte first, Byte last, Map map) {
    for (unsigned c = first; c <= last; ++c) {
      changes_[c] = static_cast<Byte>(c ^ map(static_cast<Byte>(c)));
    }
    for (unsigned row = first / kRow; row <= last / kRow; ++row) rows_ |= 1U << row;
  }
  Byte operator()(Byte c) const { return c ^ changes_[c]; }
  // `out` has the size of `text` and does not overlap it.
  void apply(Bytes text, MutableBytes out) const;

 private:
  static constexpr unsigned kRow = 16;  // bytes that have the same upper half

  Byte changes_[256] = {};  // bits that differ between a byte and its image
  std::uint32_t rows_ = 0;  // bit h tells whether bytes 16 h to 16 h + 15 may change
};

}  // namespace vstring
