// Approximate search: where a stretch of the text is within k edits of the pattern, an edit being
// the insertion, deletion or substitution of one byte. What is reported of an occurrence is its
// end: the number of text bytes up to and including its last one.
//
// Two definitions are on offer. The table of edit distances with a free start (P. H. Sellers, "The
// theory and computation of evolutionary distances: pattern recognition", 1980) has every end. The
// bit-parallel one is the shift-and automaton of S. Wu and U. Manber, "Fast text searching allowing
// errors", 1992, started from zero and with masks of 32 bits, and users rely on what follows:
//   - pattern bytes cannot be deleted ahead of the first byte of the text, so some ends among the
//     first m + k are not seen;
//   - from byte 33 on the pattern counts as repetitions of its byte 32;
//   - of a pattern of more than 64 bytes only the first (m - 1) mod 64 + 1 count.
// Behind the first m + k bytes the two agree, so both run on the same table
// (search/approximate/edit_table.h): expected time O(nk / 64 + n), memory O(m). Where k is small,
// most of the text is passed over by exact search for pieces of the pattern
// (search/approximate/pieces.h).
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::search {

enum class EditModel { table, bit_parallel };

// The first end within `k` edits; 0 when there is none. A negative `k` finds nothing, nor does the
// bit-parallel model find the empty pattern; the table has it at every end.
Result<std::size_t> first_end(Bytes pattern, Bytes text, std::int64_t k, EditModel model);

// Appends every end, in increasing order.
Status all_ends(Bytes pattern, Bytes text, std::int64_t k, EditModel model,
                HeldArray<std::size_t>& ends);

}  // namespace vstring::search
