// Search with mismatches: the alignments at which a pattern and the text under it differ in at most
// k bytes (Hamming distance). With k = 0 this is exact search, to which the empty pattern occurs
// nowhere; otherwise it fits everywhere, the end of the text included.
//
// Alignments are given up as soon as they have more than k; 32 are counted side by side.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::search {

struct Alignment {
  std::size_t offset;      // 0-based
  std::size_t mismatches;  // differing bytes
};

// Offset of the first alignment with at most `k` mismatches, or npos.
std::size_t find_mismatched(Bytes pattern, Bytes text, std::size_t k);

// Appends all of them, by offset.
Status find_all_mismatched(Bytes pattern, Bytes text, std::size_t k,
                           HeldArray<Alignment>& alignments);

}  // namespace vstring::search
