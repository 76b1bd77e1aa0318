// Alignments with scores for letters and gaps.
//
// S. B. Needleman, C. D. Wunsch, "A general method applicable to the search for similarities in the
// amino acid sequence of two proteins", 1970; T. F. Smith, M. S. Waterman, "Identification of
// common molecular subsequences", 1981. Of the best alignments the same one is chosen, and found in
// linear memory, as in edit_path.h.
#pragma once
#include <cstddef>
#include <cstdint>

#include "bytes/bytes.h"
#include "runtime/memory.h"
#include "runtime/status.h"

namespace vstring::words {

struct Scores {
  std::int32_t match = 1;  // each from -1000 to 1000
  std::int32_t mismatch = -1;
  std::int32_t gap = -1;  // a letter of one word alone
};

// Appends the columns (column.h) of the chosen alignment of all of s and t, and returns its score,
// the greatest there is. O(|s| |t|) time, O(|s| + |t|) memory, recursion as deep as log2 |s|. Fails
// only for want of memory.
Result<std::int64_t> align(Bytes s, Bytes t, const Scores& scores, HeldArray<Byte>& columns);

// Two factors: s[start_s, end_s), t[start_t, end_t).
struct LocalPair {
  std::int64_t score;
  std::size_t start_s, end_s, start_t, end_t;
};

// The factors whose alignment scores most; of several, those that end first in s, then in t, then
// those that begin last in s, then in t. A score of 0 stands for no factors. Time and memory as
// above.
Result<LocalPair> best_local_pair(Bytes s, Bytes t, const Scores& scores);

}  // namespace vstring::words
