// Looks for alignments of a pattern with few mismatches, 32 of them at a time.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"

namespace vstring {

inline constexpr std::size_t kNearBlock = 32;
inline constexpr std::size_t kMaxNear = 254;  // mismatches that a block can count

// Goes over whole blocks of the alignments [at, end), as far as one in which some alignment has at
// most `k` mismatches: returns those alignments as bits, `at` then being the block's first one and
// counts[i] the mismatches of the i-th. Returns 0 when there is no such block, `at` then being
// where less than a block is left; without vectors, at once. Requires k <= kMaxNear, and the
// pattern within the text at `end` - 1.
std::uint32_t find_near(Bytes pattern, Bytes text, std::size_t k, std::size_t& at, std::size_t end,
                        Byte* counts);

}  // namespace vstring
