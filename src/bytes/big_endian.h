// The bytes of a word in the other order: from or to one whose highest byte comes first.
#pragma once
#include <bit>
#include <cstdint>

namespace vstring {

static_assert(std::endian::native == std::endian::little);

inline std::uint32_t big_endian(std::uint32_t word) { return __builtin_bswap32(word); }
inline std::uint64_t big_endian(std::uint64_t word) { return __builtin_bswap64(word); }

}  // namespace vstring
