// Borders of words.
//
// A border of w is a word that is both a proper prefix and a proper suffix of w. The border array
// of J. H. Morris and V. R. Pratt, "A linear pattern-matching algorithm", 1970, holds the length of
// the longest border of every prefix: cell i, 0 <= i <= |w|, speaks of the prefix of length i
// (cells 0 and 1 are 0). It is also the failure function of the matching automaton of w.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// Tables of at most so many cells take no allocation.
inline constexpr std::size_t kShortTable = 512;

// Fills `border`, of |word| + 1 cells. Cell is std::uint32_t, or std::uint64_t for words that long.
// O(n) time.
template <typename Cell>
void border_array(Bytes word, std::span<Cell> border);

// Length of the longest border of the whole word, through its border array: O(n) time, n + 1 cells
// of 4 bytes (8 for words of 4 GiB and more). Fails only for want of memory.
Result<std::size_t> longest_border_by_array(Bytes word);

// How far `t` can be laid over the end of `s`: the length of the longest suffix of s that is a
// prefix of t, for |t| >= |s|: by exact search, or by running s through the matching automaton of
// t. O(|s|) time, as many cells as the shorter word has letters.
//
// A shorter t is treated in its own way, which callers rely on: the scan ends as soon as all of t
// has been matched, even before the end of s, and it falls back along the borders of s, not of t.
Result<std::size_t> overlap(Bytes s, Bytes t);

}  // namespace vstring::words
