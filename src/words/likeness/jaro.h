// Jaro's and Winkler's likeness of two words, from 0 to 1: M. A. Jaro, "Advances in record-linkage
// methodology", 1989; W. E. Winkler, "String comparator metrics and enhanced decision rules in the
// Fellegi-Sunter model of record linkage", 1990.
#pragma once
#include "bytes/bytes.h"
#include "runtime/status.h"

namespace vstring::words {

// Letters of s are matched, from the left, with the first equal letter of t that is free and not
// more than half the longer length, less one, away. With m of them, of which k stand in another
// order, and x = floor(k / 2), as Winkler's own program counts: (m / |s| + m / |t| + (m - x) / m) /
// 3. Two empty words are alike. O(|s| + |t|) time: the places of a letter in t are a queue whose
// front only moves on. Fail only for want of memory.
Result<double> jaro(Bytes s, Bytes t);

// Raised, when it is above 0.7, for a common prefix of up to four letters.
Result<double> jaro_winkler(Bytes s, Bytes t);

}  // namespace vstring::words
