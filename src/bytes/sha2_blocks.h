// The compression functions of SHA-256 and SHA-512 (FIPS 180-4), the first one with the processor's
// own instructions where it has them.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

// Take a chain over `count` blocks of 64 or 128 bytes.
void sha256_blocks(std::array<std::uint32_t, 8>& chain, const Byte* blocks, std::size_t count);
void sha512_blocks(std::array<std::uint64_t, 8>& chain, const Byte* blocks, std::size_t count);

}  // namespace vstring
