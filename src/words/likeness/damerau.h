// The distance of F. J. Damerau, 1964: the least number of insertions, deletions and substitutions
// of one letter, and of exchanges of two neighbouring letters, that turn one word into the other.
// Letters may be deleted between two letters that then change places, and others be inserted
// between them; so it is a metric. Definition: R. Lowrance, R. A. Wagner, "An extension of the
// string-to-string correction problem", 1975.
#pragma once
#include <cstddef>

#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// C. Zhao, S. Sahni, "String correction using the Damerau-Levenshtein distance", 2019: only
// exchanges matter in which nothing is deleted or nothing inserted. O(|s| |t|) time; 24 bytes for
// each letter of the shorter word. Fails only for want of memory.
Result<std::size_t> damerau_distance(Bytes s, Bytes t);

}  // namespace vstring::words
