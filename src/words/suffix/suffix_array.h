// Suffix arrays: the suffixes of a text in increasing order, each told by its offset. Letters
// compare unsigned, a proper prefix comes first.
//
// G. Nong, S. Zhang, W. H. Chan, "Linear suffix array construction by almost pure induced sorting",
// 2009. A suffix is of type S when it is smaller than the next one and of type L otherwise. Once
// the S suffixes that follow an L suffix ("leftmost S") are in order, two passes over the array
// put every other suffix behind the one that it precedes in the text. The leftmost S suffixes, at
// most half of all, are sorted as suffixes of a shorter text, whose letters are the ranks of the
// factors between them. Where a few letters are likely to tell them all apart, as in compressed
// files, they are sorted by those letters instead.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// Texts of this length and more have no suffix array here: cells are 32-bit and hold a sign. They
// count as too large for the memory.
inline constexpr std::size_t kSuffixLimit = std::size_t{1} << 31;

// Fills `sorted`, of |text| cells, with the offsets of the suffixes in order. O(n) time; besides
// text and cells at most 4 bytes a letter, none for texts whose factors are soon told apart. Fails
// only for want of memory.
Status suffix_array(Bytes text, std::span<std::int32_t> sorted);

// The same, but each cell holds the letter before the suffix, 0 for the suffix of offset 0. Returns
// the rank of the suffix of offset `own`; requires that offset 0 is that of the least suffix.
Result<std::size_t> letters_before_sorted(Bytes text, std::size_t own,
                                          std::span<std::int32_t> letters);

// Fills `agreeing`, of |text| cells, with the length of the common prefix of each suffix, by its
// offset, and of the one sorted just before it; 0 for the first one. O(n) time: J. Karkkainen,
// G. Manzini, S. J. Puglisi, "Permuted longest-common-prefix array", 2009, after T. Kasai et al.,
// "Linear-time longest-common-prefix computation in suffix arrays and its applications", 2001.
void common_prefixes(Bytes text, std::span<const std::int32_t> sorted,
                     std::span<std::int32_t> agreeing);

}  // namespace vstring::words
