// Where a text goes on no greater than eight given bytes do. Bytes are signed numbers here, and
// eight of them compare one after the other.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "bytes/common.h"

namespace vstring {

// Eight bytes as one number that compares as they do: the first byte is the most significant, and
// flipping the sign bits turns the signed order into the unsigned one.
inline std::uint64_t eight_signed(const Byte* bytes) {
  return __builtin_bswap64(load8(bytes)) ^ 0x8080808080808080U;
}

// The first place from `at` on whose eight bytes are not greater than those of `bound`; the first
// of the last seven places, or `at` if that is one, when there is none.
std::size_t pass_greater(const Byte* bound, Bytes text, std::size_t at);

}  // namespace vstring
