// Factors of words: what stands in them without gaps, the empty word included.
//
// Every factor is a prefix of a suffix. Of the prefixes of a suffix those are new which are longer
// than what it has in common with the suffix that is sorted just before.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// How many different factors `word` has, and how many of them have `length` letters. O(n) time, 8
// to 9 bytes a letter. Fail only for want of memory.
Result<std::uint64_t> count_factors(Bytes word);
Result<std::uint64_t> count_factors(Bytes word, std::size_t length);

// The longest common factor, as it stands in s; of several the one that begins first there.
// O(|s| + |t|) time, 9 bytes for each letter of both. Fails only for want of memory.
Result<Bytes> longest_common_factor(Bytes s, Bytes t);

}  // namespace vstring::words
