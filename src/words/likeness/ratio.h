// Likeness of two texts, from 0 to 100, by their longest common subsequence.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// 100 times twice the length of a common subsequence, divided by the length of both texts; 100 for
// two empty texts.
double ratio_of(std::size_t common, std::size_t both);

// O(|s| |t| / 64) time. Fails only for want of memory.
Result<double> ratio(Bytes s, Bytes t);

// The greatest ratio of the shorter text and a factor of the longer one that is as long, or a
// prefix or suffix of it that is shorter; of equally long texts either may count as the shorter
// one. 0 when just one is empty. O(|s| |t|) time, O(|s| + |t|) memory (window_lcs.h); fails only
// for want of memory.
Result<double> partial_ratio(Bytes s, Bytes t);

}  // namespace vstring::words
